#include <algorithm>
#include <cmath>
#include <locale>
#include <random>
#include <utility>

#include <zelstandard/actions/ActionGroupManager.h>

#include "actions/Catalogue.h"
#include "support/Files.h"
#include "support/Golden.h"

using Standard::ActionGroup;
using Standard::ActionGroupManager;
using Standard::ActionType;
using Standard::ActionTypeManager;
using Standard::BridgeType;
using Standard::Classification;
using Standard::LoadDuration;
using Standard::Mode;
using Standard::SafetyFactors;
using support::contents;
using support::distinctFactors;
using support::emptyCatalogue;
using support::FactorField;
using support::factorFields;
using support::readCatalogue;
using support::written;

namespace
{

struct Structure {
    Classification classification;
    BridgeType bridgeType;
};

/// A building and the bridge types 1 to 6.
constexpr Structure structures[] = {
    {Classification::BUILDING, BridgeType::ROADWAY    },
    {Classification::BRIDGE,   BridgeType::ROADWAY    },
    {Classification::BRIDGE,   BridgeType::RAILWAY1   },
    {Classification::BRIDGE,   BridgeType::RAILWAY2   },
    {Classification::BRIDGE,   BridgeType::RAILWAY3   },
    {Classification::BRIDGE,   BridgeType::FOOTBRIDGE1},
    {Classification::BRIDGE,   BridgeType::FOOTBRIDGE2},
};
constexpr const Structure& building = structures[0];
constexpr const Structure& roadway = structures[1];
constexpr const Structure& secondFootbridge = structures[6];

SafetyFactors& give(ActionType& type, Mode mode, const Structure& structure)
{
    return *type.giveFactors(mode, structure.classification, structure.bridgeType);
}

/// Text with a decimal comma and digits in groups.
struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\1"; }
};

} // namespace

TEST(Writing, PutsEverythingInItsOrder)
{
    // Made in another order than it is written, with sets that are never written.
    ActionTypeManager catalogue = emptyCatalogue();
    ActionType& snow = *catalogue.giveActionType(ActionType::Id::SNOW);
    double first = 1;
    for (int mode = 8; mode >= 0; --mode)
        for (int i = 6; i >= 0; --i)
            if (mode == 1 || i == 0 || i == mode % 6 || i == 6)
                give(snow, Mode{mode}, structures[i]) = distinctFactors(first++);
    give(snow, Mode::EC, {Classification::BRIDGE, BridgeType{0}});
    snow.setActionGroup(ActionGroupManager::get()->giveActionGroup(ActionGroup::Type::SNOW));
    snow.setLoadDurationClass(LoadDuration::SHORTTERM);
    catalogue.giveActionType(ActionType::Id::G1);
    catalogue.addType(new ActionType(ActionType::Id::NONE));
    catalogue.addType(nullptr);

    support::expectGolden("action_types_written.xml", written(catalogue));

    const support::TemporaryDirectory directory;
    const std::string path = directory.write("types.xml", "replaced as a whole");
    catalogue.output(path);
    EXPECT_EQ(support::unixLines(support::readFile(path)), written(catalogue));
}

TEST(Writing, ValuesAreRoundedToTwoDecimalsAndCrackReductionToThreeInAnyLocale)
{
    struct Case {
        double value;
        const char* two;
        const char* three;
    };
    constexpr Case cases[] = {
        {1.355,   "1.35",       "1.355"      }, // the double below 1.355
        {0.125,   "0.12",       "0.125"      }, // half goes to the even digit
        {0.375,   "0.38",       "0.375"      },
        {0.0625,  "0.06",       "0.062"      },
        {0.9996,  "1.00",       "1.000"      },
        {-0.5,    "-0.50",      "-0.500"     },
        {1234567, "1234567.00", "1234567.000"},
    };
    const std::locale before = std::locale::global(std::locale(std::locale(), new Comma));
    for (const Case& c : cases) {
        ActionTypeManager catalogue = emptyCatalogue();
        SafetyFactors& factors =
            give(*catalogue.giveActionType(ActionType::Id::SNOW), Mode::EC, building);
        factors = SafetyFactors(c.value);
        factors.setCrackRed(c.value);
        const std::string document = written(catalogue);
        for (const char* name :
             {"GAMMA_SUP", "GAMMA_INF", "PSI0", "PSI1", "PSI2", "PSI11", "PSI21", "PSI22"})
            EXPECT_NE(document.find(std::string(name) + ">" + c.two + "<"), std::string::npos)
                << name << document;
        EXPECT_NE(document.find(std::string("<CrackRed>") + c.three + "<"), std::string::npos)
            << document;
        ActionTypeManager read = readCatalogue(document);
        EXPECT_EQ(written(read), document);
    }
    std::locale::global(before);
}

TEST(Writing, AnAnnexThatEqualsEcWithinTheToleranceIsEmpty)
{
    for (const Structure& structure : structures)
        for (const FactorField& field : factorFields)
            for (const Mode changed : {Mode::EC, Mode::BS})
                for (const double difference : {1e-7, std::nextafter(1e-7, 1.0)}) {
                    ActionTypeManager catalogue = emptyCatalogue();
                    ActionType& type = *catalogue.giveActionType(ActionType::Id::SNOW);
                    for (const Mode mode : {Mode::EC, Mode::BS}) {
                        give(type, mode, building);
                        give(type, mode, structure);
                    }
                    (give(type, changed, structure).*field.set)(difference);
                    EXPECT_EQ(written(catalogue).find("<ANNEX NAME=\"BS\" />") != std::string::npos,
                              difference == 1e-7)
                        << field.name;
                }
}
