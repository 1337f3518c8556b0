// Coefficients that no settings file gives. They are made once for the life of the process.

#include "material/CoefficientTables.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(CoefficientsWithoutSettings, AreZeroAndStaySoWhenAPathIsSetLater)
{
    const TemporaryDirectory directory;
    const FreshContext context;
    for (const Coefficient& coefficient : coefficients)
        for (int mode = -1; mode <= 9; ++mode)
            for (int key = -1; key <= 3; ++key)
                EXPECT_EQ(coefficient.get(Mode{mode}, key), 0.0) << coefficient.element;
    EXPECT_EQ(Coefficients::get()->getSupportedModes(),
              (std::vector{Mode::EC, Mode::DIN_1988, Mode::DIN_2008, Mode::SIA, Mode::OENORM,
                           Mode::CSN, Mode::BS, Mode::DIN_EN}));

    context->setAlternativeDBPath(directory.write("settings.xml", R"(<SMOD><COEFFICIENTS><GAMMA_C>
        <ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX></GAMMA_C></COEFFICIENTS></SMOD>)"));
    EXPECT_EQ(values(gammaC), "0 0 0") << "the settings file is read once, at the first use";
    Coefficients::get()->input(context->getDataBaseDir());
    EXPECT_EQ(values(gammaC), "1.5 0 0");
}
