#include "material/CoefficientTables.h"
#include "material/ControlRecords.h"

using namespace Standard;
using namespace support;

// Neither codes nor situations are checked; every value is different, so a crossed pair shows.
TEST(CoefficientSetters, ReachTheirOwnValueAlone)
{
    const FreshContext context;
    for (const bool set : {true, false})
        for (const Coefficient& coefficient : coefficients)
            for (int mode = -1; mode <= 9; ++mode)
                for (int key = -1; key <= 3; ++key) {
                    const auto number = &coefficient - coefficients;
                    const double value = static_cast<double>(1000 * number + 10 * mode + key);
                    if (set)
                        coefficient.set(Mode{mode}, key, value);
                    else
                        EXPECT_EQ(coefficient.get(Mode{mode}, key), value)
                            << coefficient.element << " " << mode << " " << key;
                }
    EXPECT_EQ(Coefficients::get()->getSupportedModes(),
              (std::vector{Mode::EC, Mode::DIN_1988, Mode::DIN_2008, Mode::SIA, Mode::OENORM,
                           Mode::CSN, Mode::BS, Mode::DIN_EN}));
}

// DIN-1988 has a record, and all other codes share one.
TEST(ControlSetters, ReachTheirOwnValueOfOneRecord)
{
    const FreshContext context;
    for (const ControlValue& changed : controlValues)
        for (int mode = -1; mode <= 9; ++mode) {
            setRecord(Mode::EC, {});
            setRecord(Mode::DIN_1988, {});
            changed.set(Mode{mode}, 1.0);
            for (const ControlValue& asked : controlValues)
                for (int other = -1; other <= 9; ++other)
                    EXPECT_EQ(asked.get(Mode{other}),
                              &asked == &changed && (mode == 2) == (other == 2) ? 1.0 : 0.0)
                        << asked.name << " of " << other << " after " << changed.name << " of "
                        << mode;
        }
}
