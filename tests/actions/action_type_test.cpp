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
using support::FreshContext;
using support::sets;
using support::text;

namespace
{

constexpr auto building = Classification::BUILDING;
constexpr auto bridge = Classification::BRIDGE;
constexpr auto roadway = BridgeType::ROADWAY;

} // namespace

TEST(ActionType, GettersAndSettersReachTheSetInForceOrFallBackWithoutOne)
{
    const FreshContext context;
    struct Field {
        double (ActionType::*get)() const;
        void (ActionType::*set)(double);
        double fallback;
    };
    constexpr Field fields[] = {
  // in the order of factorFields
        {&ActionType::getGammaSup, &ActionType::setGammaSup, 1.0},
        {&ActionType::getGammaInf, &ActionType::setGammaInf, 1.0},
        {&ActionType::getPsi0,     &ActionType::setPsi0,     1.0},
        {&ActionType::getPsi1,     &ActionType::setPsi1,     1.0},
        {&ActionType::getPsi2,     &ActionType::setPsi2,     1.0},
        {&ActionType::getPsi11,    &ActionType::setPsi11,    1.0},
        {&ActionType::getPsi21,    &ActionType::setPsi21,    0.0},
        {&ActionType::getPsi22,    &ActionType::setPsi22,    0.0},
        {&ActionType::getCrackRed, &ActionType::setCrackRed, 1.0},
    };
    for (std::size_t i = 0; i < std::size(fields); ++i) {
        SCOPED_TRACE(support::factorFields[i].name);
        const auto [get, set, fallback] = fields[i];
        ActionType type(ActionType::Id::SNOW);
        type.giveFactors(Mode::BS, building, roadway); // EC is in force
        const ActionType untouched = type;
        (type.*set)(0.25);
        EXPECT_EQ((type.*get)(), fallback);
        EXPECT_FALSE(type.isActive() || type.hasSafetyFactors());
        EXPECT_FALSE(type != untouched) << "looking for a set leaves nothing behind";

        const SafetyFactors& factors = *type.giveFactors(Mode::EC, building, roadway);
        EXPECT_EQ((type.*get)(), 0.0) << "a new set is zero, crack reduction too";
        (type.*set)(0.25);
        EXPECT_EQ((type.*get)(), 0.25);
        SafetyFactors expected;
        (expected.*support::factorFields[i].set)(0.25);
        EXPECT_EQ(text(factors), text(expected));
        EXPECT_TRUE(type.isActive() && type.hasSafetyFactors());
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
    const auto gammaSup = [&](Mode mode, Classification classification, int bridgeType) {
        context->setMode(mode);
        context->setClassification(classification);
        context->setBridgeType(BridgeType{bridgeType});
        return type.getGammaSup();
    };
    EXPECT_EQ(gammaSup(Mode::EC, building, 3), 1);
    EXPECT_EQ(gammaSup(Mode::EC, bridge, 0), 2) << "none is a road bridge";
    EXPECT_EQ(gammaSup(Mode::EC, bridge, 3), 3);
    EXPECT_EQ(gammaSup(Mode::DIN_EN, bridge, 6), 5);
    EXPECT_EQ(gammaSup(Mode::DIN_EN, building, 6), 4);
    for (const int other : {-1, 0, 3})
        EXPECT_EQ(type.getFactors(Mode::EC, Classification{other}, roadway)->getGammaSup(), 2)
            << "every classification but BUILDING means the bridge";
}

TEST(ActionType, AGammaAboveTheThresholdIsReducedForConcrete)
{
    const FreshContext context;
    const auto expect = [&](DesignMaterial material, double gamma, double factor) {
        ActionType type(ActionType::Id::SNOW);
        type.giveFactors(Mode::EC, building, roadway)->setCrackRed(0.8);
        context->setDesignMaterial(material);
        type.setGammaSup(gamma);
        EXPECT_EQ(type.getGammaSupReduced(), gamma * factor) << gamma;
        EXPECT_EQ(type.getGammaInfReduced(), 0.0);
        type.setGammaInf(gamma);
        EXPECT_EQ(type.getGammaInfReduced(), gamma * factor) << gamma;
    };
    for (const auto material : {DesignMaterial::CONCRETE, DesignMaterial::COMPOSITE_CONCRETE}) {
        expect(material, 1.35, 0.8);
        expect(material, 0.99, 1.0);
        expect(material, std::nextafter(0.99, 1.0), 0.8);
    }
    for (const auto material :
         {DesignMaterial::STEEL, DesignMaterial::COMPOSITE_STEEL, DesignMaterial{-1}})
        expect(material, 1.35, 1.0);
}

TEST(ActionType, HasValuesLooksAtBuildingsAndBridgesUpToTheFirstFootbridge)
{
    for (int bridgeType = 0; bridgeType <= 7; ++bridgeType) {
        ActionType type(ActionType::Id::SNOW);
        type.giveFactors(Mode::BS, bridge, BridgeType{bridgeType});
        EXPECT_EQ(type.hasValues(Mode::BS), bridgeType >= 1 && bridgeType <= 5) << bridgeType;
        type.giveFactors(Mode::BS, building, BridgeType{bridgeType});
        EXPECT_TRUE(type.hasValues(Mode::BS));
        EXPECT_FALSE(type.hasValues(Mode::EC));
    }
}

TEST(ActionType, SecondaryEffectsAreThoseOfPrestressDeformationAndShrinkage)
{
    for (int id = -1; id <= 52; ++id)
        EXPECT_EQ(ActionType(ActionType::Id{id}).isSecondary(), id >= 6 && id <= 10) << id;
    EXPECT_EQ(ActionType::IdCount, 51) << "one less than there are";
}

TEST(ActionType, AComparisonSeesOnlyTheSetsOfTheLeftOperand)
{
    static ActionGroup group(ActionGroup::Type::SNOW);
    struct Case {
        void (*change)(ActionType&);
        bool isSeenFromTheOther;
    };
    const Case cases[] = {
        {[](ActionType& t) { t.setActionGroup(&group); },                               true },
        {[](ActionType& t) { t.setLoadDurationClass(LoadDuration::LONGTERM); },         true },
        {[](ActionType& t) { t.giveFactors(Mode::EC, building, roadway)->setPsi0(1); }, true },
        {[](ActionType& t) { t.giveFactors(Mode::EC, bridge, roadway)->setPsi22(1); },  true },
        {[](ActionType& t) { t.giveFactors(Mode::BS, building, roadway); },             false},
        {[](ActionType& t) { t.giveFactors(Mode::BS, bridge, roadway); },               false},
        {[](ActionType& t) { t.giveFactors(Mode::EC, bridge, BridgeType::RAILWAY1); },  false},
    };
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::EC, building, roadway);
    type.giveFactors(Mode::EC, bridge, roadway);
    EXPECT_TRUE(type == ActionType(type));
    EXPECT_TRUE(ActionType(ActionType::Id::SNOW) != ActionType(ActionType::Id::T));
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        ActionType changed = type;
        c.change(changed);
        EXPECT_TRUE(changed != type && !(changed == type));
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
    assigned.giveFactors(Mode::SIA, bridge, roadway);
    ActionType factorsOnly = assigned;
    assigned = type;
    factorsOnly.copyGammasAndPsis(type);
    type.giveFactors(Mode::EC, building, roadway)->setPsi0(9);
    SafetyFactors* const kept = type.giveFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2);
    kept->setPsi0(9);

    EXPECT_EQ(sets(factorsOnly), before);
    EXPECT_EQ(factorsOnly.getId(), ActionType::Id::T);
    EXPECT_EQ(factorsOnly.getActionGroup(), nullptr);
    EXPECT_EQ(factorsOnly.getLoadDurationClass(), LoadDuration::MEDIUMTERM);
    for (const ActionType& copy : {constructed, assigned}) {
        EXPECT_EQ(sets(copy), before);
        EXPECT_EQ(copy.getId(), ActionType::Id::SNOW);
        EXPECT_EQ(copy.getActionGroup(), &group);
        EXPECT_EQ(copy.getLoadDurationClass(), LoadDuration::SHORTTERM);
    }

    const ActionType& same = type;
    type = same;
    type.copyGammasAndPsis(same);
    EXPECT_EQ(type.getFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2), kept);
}

TEST(ActionType, CopyingFromEcReplacesWhatEcHasAndLeavesTheRest)
{
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::BS, bridge, BridgeType::RAILWAY1)->setPsi0(7);
    *type.giveFactors(Mode::EC, building, roadway) = distinctFactors(1);
    type.giveFactors(Mode::EC, bridge, BridgeType{0});
    *type.giveFactors(Mode::EC, bridge, BridgeType::FOOTBRIDGE2) = distinctFactors(21);
    *type.giveFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2) = SafetyFactors(5);
    type.copyFromEC(Mode::BS);
    type.copyFromEC(Mode::EC);
    type.giveFactors(Mode::EC, building, roadway)->setGammaSup(9);

    EXPECT_EQ(sets(type), "EC BUILDING 9 0.02 0.03 0.04 0.05 0.06 0.07 0.08 0.09\n"
                          "EC 0 0 0 0 0 0 0 0 0 0\n"
                          "EC 6 0.21 0.22 0.23 0.24 0.25 0.26 0.27 0.28 0.29\n"
                          "BS BUILDING 0.01 0.02 0.03 0.04 0.05 0.06 0.07 0.08 0.09\n"
                          "BS 0 0 0 0 0 0 0 0 0 0\n"
                          "BS RAILWAY1 0 0 7 0 0 0 0 0 0\n"
                          "BS 6 0.21 0.22 0.23 0.24 0.25 0.26 0.27 0.28 0.29\n");
}

TEST(ActionType, TakingOverReachesAllSetsOfTheCodeAndNoOthers)
{
    ActionType type(ActionType::Id::SNOW);
    for (const Mode mode : {Mode::EC, Mode::BS})
        type.giveFactors(mode, building, roadway);
    for (const int bridgeType : {0, 6})
        type.giveFactors(Mode::BS, bridge, BridgeType{bridgeType});
    SafetyFactors overlay(-1.0);
    overlay.setPsi1(0.5);
    type.takeOver(Mode::BS, overlay);
    type.takeOver(Mode::CSN, overlay);
    EXPECT_EQ(sets(type), "EC BUILDING 0 0 0 0 0 0 0 0 0\n"
                          "BS BUILDING 0 0 0 0.5 0 0 0 0 1\n"
                          "BS 0 0 0 0 0.5 0 0 0 0 1\n"
                          "BS 6 0 0 0 0.5 0 0 0 0 1\n");
}
