#include <cmath>

#include "actions/Catalogue.h"
#include "support/Context.h"

using Standard::ActionGroup;
using Standard::ActionType;
using Standard::BridgeType;
using Standard::Classification;
using Standard::DesignMaterial;
using Standard::LoadDuration;
using Standard::Mode;
using Standard::SafetyFactors;
using support::distinctFactors;
using support::factorFields;
using support::FreshContext;
using support::sets;
using support::text;

namespace
{

constexpr auto building = Classification::BUILDING;
constexpr auto bridge = Classification::BRIDGE;
constexpr auto roadway = BridgeType::ROADWAY;

/// The getters and setters for the set in force, in the order of factorFields.
struct InForce {
    const char* name;
    double (ActionType::*get)() const;
    void (ActionType::*set)(double);
    double fallback;
};

constexpr InForce inForce[] = {
    {"gamma sup",       &ActionType::getGammaSup, &ActionType::setGammaSup, 1.0},
    {"gamma inf",       &ActionType::getGammaInf, &ActionType::setGammaInf, 1.0},
    {"psi0",            &ActionType::getPsi0,     &ActionType::setPsi0,     1.0},
    {"psi1",            &ActionType::getPsi1,     &ActionType::setPsi1,     1.0},
    {"psi2",            &ActionType::getPsi2,     &ActionType::setPsi2,     1.0},
    {"psi11",           &ActionType::getPsi11,    &ActionType::setPsi11,    1.0},
    {"psi21",           &ActionType::getPsi21,    &ActionType::setPsi21,    0.0},
    {"psi22",           &ActionType::getPsi22,    &ActionType::setPsi22,    0.0},
    {"crack reduction", &ActionType::getCrackRed, &ActionType::setCrackRed, 1.0},
};

} // namespace

TEST(ActionType, IsNewWithoutFactorsAndGroup)
{
    const ActionType type(ActionType::Id::D);
    EXPECT_EQ(type.getId(), ActionType::Id::D);
    EXPECT_EQ(type.getActionGroup(), nullptr);
    EXPECT_EQ(type.getActionGroupId(), ActionGroup::Type::NONE);
    EXPECT_EQ(type.getLoadDurationClass(), LoadDuration::MEDIUMTERM);
    EXPECT_EQ(sets(type), "");
    EXPECT_EQ(ActionType::IdCount, 51) << "one less than there are";
}

TEST(ActionType, ASetThatIsMadeIsZeroAndStays)
{
    ActionType type(ActionType::Id::SNOW);
    SafetyFactors* const made = type.giveFactors(Mode::EC, bridge, roadway);
    EXPECT_EQ(sets(type), "EC ROADWAY 0 0 0 0 0 0 0 0 0\n");
    EXPECT_EQ(type.giveFactors(Mode::EC, bridge, roadway), made);
    EXPECT_EQ(type.getFactors(Mode::EC, bridge, roadway), made);
}

TEST(ActionType, ABuildingHasOneSetACodeAndABridgeOneForEachType)
{
    ActionType type(ActionType::Id::SNOW);
    int number = 0;
    for (const Mode mode : {Mode::NO_CODE, Mode::EC, Mode::DIN_EN}) {
        type.giveFactors(mode, building, roadway)->setPsi0(++number);
        for (int bridgeType = 0; bridgeType <= 6; ++bridgeType)
            type.giveFactors(mode, bridge, BridgeType{bridgeType})->setPsi0(++number);
    }
    number = 0;
    for (const Mode mode : {Mode::NO_CODE, Mode::EC, Mode::DIN_EN}) {
        const double ofBuilding = ++number;
        for (int bridgeType = 0; bridgeType <= 6; ++bridgeType) {
            const BridgeType of{bridgeType};
            const double ofBridge = ++number;
            EXPECT_EQ(type.getFactors(mode, building, of)->getPsi0(), ofBuilding);
            EXPECT_EQ(type.getFactors(mode, bridge, of)->getPsi0(), ofBridge);
            for (const int other : {-1, 0, 3})
                EXPECT_EQ(type.getFactors(mode, Classification{other}, of)->getPsi0(), ofBridge)
                    << "every classification but BUILDING means the bridge";
        }
    }
}

TEST(ActionType, LookingForASetLeavesNothingBehind)
{
    const FreshContext context;
    ActionType type(ActionType::Id::SNOW);
    const ActionType untouched(ActionType::Id::SNOW);
    type.giveFactors(Mode::EC, bridge, roadway);
    for (const Classification classification : {building, bridge}) {
        context->setClassification(classification);
        EXPECT_EQ(type.getFactors(Mode::BS, classification, roadway), nullptr);
        EXPECT_EQ(type.getFactors(Mode::EC, classification, BridgeType::RAILWAY1), nullptr);
        context->setMode(Mode::CSN);
        EXPECT_EQ(type.getGammaSup(), 1.0);
        type.setGammaSup(1.5);
        EXPECT_FALSE(type.isActive());
        EXPECT_FALSE(type.hasValues(Mode::OENORM));
    }
    EXPECT_EQ(sets(type), "EC ROADWAY 0 0 0 0 0 0 0 0 0\n");
    ActionType same = untouched;
    same.giveFactors(Mode::EC, bridge, roadway);
    EXPECT_FALSE(type != same);
}

TEST(ActionType, WithoutASetInForceTheGettersFallBackAndTheSettersDoNothing)
{
    const FreshContext context;
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::BS, building, roadway); // EC is in force
    const std::string before = sets(type);
    for (const InForce& value : inForce) {
        (type.*value.set)(0.25);
        EXPECT_EQ((type.*value.get)(), value.fallback) << value.name;
    }
    EXPECT_EQ(type.getGammaSupReduced(), 1.0);
    EXPECT_EQ(type.getGammaInfReduced(), 1.0);
    EXPECT_FALSE(type.isActive());
    EXPECT_FALSE(type.hasSafetyFactors());
    EXPECT_EQ(sets(type), before);
}

TEST(ActionType, WithASetInForceTheGettersAndSettersReachItsFields)
{
    const FreshContext context;
    ActionType type(ActionType::Id::SNOW);
    SafetyFactors& factors = *type.giveFactors(Mode::EC, building, roadway);
    EXPECT_TRUE(type.isActive());
    EXPECT_TRUE(type.hasSafetyFactors());
    for (std::size_t i = 0; i < std::size(inForce); ++i) {
        SCOPED_TRACE(inForce[i].name);
        factors = SafetyFactors();
        EXPECT_EQ((type.*inForce[i].get)(), 0.0) << "a new set is zero, crack reduction too";
        (type.*inForce[i].set)(0.25);
        EXPECT_EQ((type.*inForce[i].get)(), 0.25);
        SafetyFactors expected;
        (expected.*factorFields[i].set)(0.25);
        EXPECT_EQ(text(factors), text(expected));
    }
}

TEST(ActionType, TheSetInForceFollowsTheSettings)
{
    const FreshContext context;
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::EC, building, roadway)->setGammaSup(1);
    type.giveFactors(Mode::EC, bridge, roadway)->setGammaSup(2);
    type.giveFactors(Mode::EC, bridge, BridgeType::RAILWAY2)->setGammaSup(3);
    type.giveFactors(Mode::DIN_EN, building, roadway)->setGammaSup(4);
    type.giveFactors(Mode::DIN_EN, bridge, BridgeType::FOOTBRIDGE2)->setGammaSup(5);
    struct Case {
        Mode mode;
        Classification classification;
        int bridgeType;
        double gammaSup;
    };
    constexpr Case cases[] = {
        {Mode::EC,     building, 1, 1},
        {Mode::EC,     building, 3, 1},
        {Mode::EC,     bridge,   1, 2},
        {Mode::EC,     bridge,   0, 2}, // none is a road bridge
        {Mode::EC,     bridge,   3, 3},
        {Mode::DIN_EN, bridge,   6, 5},
        {Mode::DIN_EN, building, 6, 4},
    };
    for (const Case& c : cases) {
        context->setMode(c.mode);
        context->setClassification(c.classification);
        context->setBridgeType(BridgeType{c.bridgeType});
        EXPECT_EQ(type.getGammaSup(), c.gammaSup);
    }
}

TEST(ActionType, AGammaAboveTheThresholdIsReducedForConcrete)
{
    const FreshContext context;
    struct Case {
        DesignMaterial material;
        double gamma;
        double reduced;
    };
    const double above = std::nextafter(0.99, 1.0);
    const Case cases[] = {
        {DesignMaterial::CONCRETE,           1.35,  1.35 * 0.8 },
        {DesignMaterial::COMPOSITE_CONCRETE, 1.35,  1.35 * 0.8 },
        {DesignMaterial::STEEL,              1.35,  1.35       },
        {DesignMaterial::TIMBER,             1.35,  1.35       },
        {DesignMaterial::ROPE,               1.35,  1.35       },
        {DesignMaterial::COMPOSITE_STEEL,    1.35,  1.35       },
        {DesignMaterial{-1},                 1.35,  1.35       },
        {DesignMaterial::CONCRETE,           0.99,  0.99       },
        {DesignMaterial::CONCRETE,           above, above * 0.8},
        {DesignMaterial::CONCRETE,           0.0,   0.0        },
    };
    for (const Case& c : cases) {
        ActionType type(ActionType::Id::SNOW);
        type.giveFactors(Mode::EC, building, roadway)->setCrackRed(0.8);
        context->setDesignMaterial(c.material);
        type.setGammaSup(c.gamma);
        type.setGammaInf(2.0);
        EXPECT_EQ(type.getGammaSupReduced(), c.reduced) << c.gamma;
        type.setGammaInf(c.gamma);
        type.setGammaSup(2.0);
        EXPECT_EQ(type.getGammaInfReduced(), c.reduced) << c.gamma;
    }
}

TEST(ActionType, HasValuesLooksAtBuildingsAndBridgesUpToTheFirstFootbridge)
{
    const auto hasValues = [](Classification classification, int bridgeType) {
        ActionType type(ActionType::Id::SNOW);
        type.giveFactors(Mode::BS, classification, BridgeType{bridgeType});
        EXPECT_FALSE(type.hasValues(Mode::EC));
        return type.hasValues(Mode::BS);
    };
    EXPECT_TRUE(hasValues(building, 1));
    for (int bridgeType = 0; bridgeType <= 7; ++bridgeType)
        EXPECT_EQ(hasValues(bridge, bridgeType), bridgeType >= 1 && bridgeType <= 5) << bridgeType;
}

TEST(ActionType, SecondaryEffectsAreThoseOfPrestressDeformationAndShrinkage)
{
    std::string secondary;
    for (int id = -1; id <= 52; ++id)
        if (ActionType(ActionType::Id{id}).isSecondary())
            secondary += " " + std::to_string(id);
    EXPECT_EQ(secondary, " 6 7 8 9 10");
}

TEST(ActionType, AComparisonSeesOnlyTheSetsOfTheLeftOperand)
{
    static ActionGroup group(ActionGroup::Type::SNOW);
    struct Case {
        const char* what;
        void (*change)(ActionType&);
        bool isSeenFromTheOther;
    };
    const Case cases[] = {
        {"group",                    [](ActionType& t) { t.setActionGroup(&group); },                       true },
        {"load duration",            [](ActionType& t) { t.setLoadDurationClass(LoadDuration::LONGTERM); },
         true                                                                                                    },
        {"value of a building",
         [](ActionType& t) { t.giveFactors(Mode::EC, building, roadway)->setPsi0(1); },                     true },
        {"value of a bridge",
         [](ActionType& t) { t.giveFactors(Mode::EC, bridge, roadway)->setPsi22(1); },                      true },
        {"building of another code",
         [](ActionType& t) { t.giveFactors(Mode::BS, building, roadway); },                                 false},
        {"bridge of another code",   [](ActionType& t) { t.giveFactors(Mode::BS, bridge, roadway); },
         false                                                                                                   },
        {"bridge of another type",
         [](ActionType& t) { t.giveFactors(Mode::EC, bridge, BridgeType::RAILWAY1); },                      false},
    };
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::EC, building, roadway);
    type.giveFactors(Mode::EC, bridge, roadway);
    EXPECT_TRUE(type == ActionType(type));
    EXPECT_TRUE(ActionType(ActionType::Id::SNOW) != ActionType(ActionType::Id::T));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ActionType changed = type;
        c.change(changed);
        EXPECT_TRUE(changed != type);
        EXPECT_FALSE(changed == type);
        EXPECT_EQ(type != changed, c.isSeenFromTheOther);
        EXPECT_EQ(type == changed, !c.isSeenFromTheOther);
    }
}

TEST(ActionType, ACopyIsDeep)
{
    ActionGroup group(ActionGroup::Type::SNOW);
    ActionType type(ActionType::Id::SNOW);
    type.setActionGroup(&group);
    type.setLoadDurationClass(LoadDuration::SHORTTERM);
    *type.giveFactors(Mode::EC, building, roadway) = distinctFactors(1);
    *type.giveFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2) = distinctFactors(21);
    const std::string before = sets(type);

    const ActionType constructed(type);
    ActionType assigned(ActionType::Id::T);
    assigned.giveFactors(Mode::SIA, building, roadway);
    assigned.giveFactors(Mode::SIA, bridge, roadway);
    assigned = type;
    ActionType factorsOnly(ActionType::Id::T);
    factorsOnly.giveFactors(Mode::SIA, building, roadway);
    factorsOnly.copyGammasAndPsis(type);
    type.giveFactors(Mode::EC, building, roadway)->setPsi0(9);
    type.giveFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2)->setPsi0(9);

    EXPECT_EQ(sets(constructed), before);
    EXPECT_EQ(sets(assigned), before);
    EXPECT_EQ(sets(factorsOnly), before);
    for (const ActionType* copy : {&constructed, static_cast<const ActionType*>(&assigned)}) {
        EXPECT_EQ(copy->getId(), ActionType::Id::SNOW);
        EXPECT_EQ(copy->getActionGroup(), &group);
        EXPECT_EQ(copy->getLoadDurationClass(), LoadDuration::SHORTTERM);
    }
    EXPECT_EQ(factorsOnly.getId(), ActionType::Id::T);
    EXPECT_EQ(factorsOnly.getActionGroup(), nullptr);
    EXPECT_EQ(factorsOnly.getLoadDurationClass(), LoadDuration::MEDIUMTERM);
}

TEST(ActionType, AssignmentToItselfKeepsEverything)
{
    ActionType type(ActionType::Id::SNOW);
    SafetyFactors* const factors = type.giveFactors(Mode::EC, building, roadway);
    const ActionType& same = type;
    type = same;
    type.copyGammasAndPsis(same);
    EXPECT_EQ(type.getFactors(Mode::EC, building, roadway), factors);
}

TEST(ActionType, CopyingFromEcReplacesWhatEcHasAndLeavesTheRest)
{
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::BS, bridge, BridgeType::RAILWAY1)->setPsi0(7);
    type.copyFromEC(Mode::BS);
    EXPECT_EQ(sets(type), "BS RAILWAY1 0 0 7 0 0 0 0 0 0\n") << "EC has nothing to copy";

    *type.giveFactors(Mode::EC, building, roadway) = distinctFactors(1);
    *type.giveFactors(Mode::EC, bridge, BridgeType{0}) = distinctFactors(11);
    *type.giveFactors(Mode::EC, bridge, BridgeType::FOOTBRIDGE2) = distinctFactors(21);
    *type.giveFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2) = SafetyFactors(5);
    type.copyFromEC(Mode::BS);
    type.copyFromEC(Mode::EC);
    type.giveFactors(Mode::EC, building, roadway)->setGammaSup(9);

    EXPECT_EQ(sets(type), "EC BUILDING 9 0.02 0.03 0.04 0.05 0.06 0.07 0.08 0.09\n"
                          "EC 0 0.11 0.12 0.13 0.14 0.15 0.16 0.17 0.18 0.19\n"
                          "EC 6 0.21 0.22 0.23 0.24 0.25 0.26 0.27 0.28 0.29\n"
                          "BS BUILDING 0.01 0.02 0.03 0.04 0.05 0.06 0.07 0.08 0.09\n"
                          "BS 0 0.11 0.12 0.13 0.14 0.15 0.16 0.17 0.18 0.19\n"
                          "BS RAILWAY1 0 0 7 0 0 0 0 0 0\n"
                          "BS 6 0.21 0.22 0.23 0.24 0.25 0.26 0.27 0.28 0.29\n");
}

TEST(ActionType, TakingOverReachesAllSetsOfTheCodeAndNoOthers)
{
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::EC, building, roadway);
    type.giveFactors(Mode::BS, building, roadway);
    type.giveFactors(Mode::BS, bridge, BridgeType{0});
    type.giveFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2);
    SafetyFactors overlay(-1.0);
    overlay.setPsi1(0.5);

    type.takeOver(Mode::BS, overlay);
    type.takeOver(Mode::CSN, overlay);

    EXPECT_EQ(sets(type), "EC BUILDING 0 0 0 0 0 0 0 0 0\n"
                          "BS BUILDING 0 0 0 0.5 0 0 0 0 1\n"
                          "BS 0 0 0 0 0.5 0 0 0 0 1\n"
                          "BS 6 0 0 0 0.5 0 0 0 0 1\n");
}
