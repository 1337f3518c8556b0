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

/// What a catalogue becomes when it is written and read again and again.
struct RoundTrips {
    std::string read; ///< contents after reading what was written first
    int writings = 1; ///< until the document stays the same

    explicit RoundTrips(ActionTypeManager& catalogue)
    {
        std::string document = written(catalogue);
        read = contents(readCatalogue(document));
        for (int i = 1; i <= 4; ++i) {
            ActionTypeManager next = readCatalogue(document);
            const std::string before = std::exchange(document, written(next));
            if (document != before)
                writings = i + 1;
        }
    }
};

/// A number below a limit.
struct Random {
    std::minstd_rand engine;
    int operator()(int limit) { return static_cast<int>(engine() >> 8) % limit; }
};

SafetyFactors randomFactors(Random& random, int decimals)
{
    SafetyFactors factors;
    const int scale = static_cast<int>(std::pow(10, decimals));
    for (const FactorField& field : factorFields)
        (factors.*field.set)(static_cast<double>(random(2 * scale)) / scale);
    return factors;
}

/// Anything that a program can set, more than a file can hold.
void fillWithAnything(ActionTypeManager& catalogue, Random& random)
{
    for (int types = random(8); types > 0; --types) {
        auto* type = new ActionType(ActionType::Id{random(6)});
        catalogue.addType(type);
        type->setActionGroup(
            ActionGroupManager::get()->findActionGroupToId(ActionGroup::Type{random(12)}));
        type->setLoadDurationClass(LoadDuration{random(5)});
        for (int sets = random(20); sets > 0; --sets)
            give(*type, Mode{random(9)}, structures[random(7)]) = randomFactors(random, random(4));
    }
}

/// True when EC has a set for the second footbridge and no other.
bool hasOnlySecondFootbridge(const ActionType* type)
{
    return type->getFactors(Mode::EC, secondFootbridge.classification,
                            secondFootbridge.bridgeType) &&
           !type->hasValues(Mode::EC);
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

TEST(Writing, FromTheSecondTimeOnTheDocumentStaysTheSame)
{
    int changed = 0;
    for (unsigned int seed = 0; seed < 300; ++seed) {
        Random random{std::minstd_rand(seed)};
        ActionTypeManager catalogue = emptyCatalogue();
        fillWithAnything(catalogue, random);
        const bool isOdd = std::ranges::any_of(catalogue.getActionTypes(), hasOnlySecondFootbridge);
        const int writings = RoundTrips(catalogue).writings;
        ASSERT_LE(writings, isOdd ? 3 : 2) << "seed " << seed;
        changed += writings > 1;
    }
    EXPECT_GT(changed, 50) << "the catalogues hold what a file cannot";
}

TEST(Writing, LosesWhatAFileCannotHold)
{
    struct Sets {
        Mode mode;
        const Structure& structure;
        double psi0;
    };
    const auto expect = [](const char* what, const std::vector<Sets>& sets, const std::string& read,
                           int writings) {
        SCOPED_TRACE(what);
        ActionTypeManager catalogue = emptyCatalogue();
        ActionType& type = *catalogue.giveActionType(ActionType::Id::SNOW);
        for (const Sets& set : sets)
            give(type, set.mode, set.structure).setPsi0(set.psi0);
        const RoundTrips trips(catalogue);
        EXPECT_EQ(trips.read, "SNOW, group NONE, MEDIUMTERM\n" + read);
        EXPECT_EQ(trips.writings, writings);
    };
    const std::string ec = "EC BUILDING 0 0 0.7 0 0 0 0 0 0\n";
    const std::string bs = "BS BUILDING 0 0 0.7 0 0 0 0 0 0\n";

    expect("digits beyond the second, with which a whole annex may vanish",
           {
               {Mode::EC, building, 0.7  },
               {Mode::BS, building, 0.701}
    },
           ec + bs, 2);
    expect("the second footbridge, for whose sake alone an annex may have been written",
           {
               {Mode::EC,  building,         0.7},
               {Mode::BS,  building,         0.7},
               {Mode::EC,  secondFootbridge, 0  },
               {Mode::BS,  secondFootbridge, 0.5},
               {Mode::CSN, secondFootbridge, 0.5}
    },
           ec + bs, 2);
    expect("the second footbridge of EC, in comparison with which alone a code was written",
           {
               {Mode::EC, secondFootbridge, 0  },
               {Mode::BS, secondFootbridge, 0.5},
               {Mode::BS, building,         0.7}
    },
           bs, 3);
    expect("a set without a twin under EC, in an annex that is otherwise EC",
           {
               {Mode::EC, building, 0.7},
               {Mode::BS, building, 0.7},
               {Mode::BS, roadway,  0.4}
    },
           ec + bs, 1);
    expect("every set of a code when there is none under EC",
           {
               {Mode::BS, building, 0.7}
    },
           "", 2);
    expect("the want of a set that EC has",
           {
               {Mode::EC, building, 0.7},
               {Mode::EC, roadway,  0.4},
               {Mode::BS, building, 0.6}
    },
           ec + "EC ROADWAY 0 0 0.4 0 0 0 0 0 0\n"
                "BS BUILDING 0 0 0.6 0 0 0 0 0 0\n"
                "BS ROADWAY 0 0 0.4 0 0 0 0 0 0\n",
           2);
    expect(
        "SIA and no code",
        {
            {Mode::EC,      building, 0.7},
            {Mode::SIA,     building, 0.6},
            {Mode::NO_CODE, building, 0.5}
    },
        ec, 1);

    // All but the last of several types of one identity, words for what has none.
    ActionTypeManager catalogue = emptyCatalogue();
    give(*catalogue.giveActionType(ActionType::Id::SNOW), Mode::EC, building);
    auto* const wordless = new ActionType(ActionType::Id{99});
    wordless->setLoadDurationClass(LoadDuration{99});
    catalogue.addType(wordless);
    auto* const last = new ActionType(ActionType::Id::SNOW);
    give(*last, Mode::EC, roadway);
    catalogue.addType(last);
    EXPECT_EQ(RoundTrips(catalogue).read, "SNOW, group NONE, MEDIUMTERM\n"
                                          "EC ROADWAY 0 0 0 0 0 0 0 0 0\n"
                                          "NONE, group NONE, PERMANENT\n");
}
