// What only the interface of an action type shows: comparison and copies. Which set is in force,
// and what it gives, stands in text/actions.

#include "actions/Catalogue.h"
#include "support/Context.h"

using Standard::ActionGroup;
using Standard::ActionType;
using Standard::BridgeType;
using Standard::Classification;
using Standard::LoadDuration;
using Standard::Mode;
using Standard::SafetyFactors;
using support::sets;

namespace
{

constexpr auto building = Classification::BUILDING;
constexpr auto bridge = Classification::BRIDGE;
constexpr auto roadway = BridgeType::ROADWAY;

} // namespace

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
        {[](ActionType& t) { t.giveFactors(Mode::EC, bridge, BridgeType{0}); },         false},
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
    *type.giveFactors(Mode::EC, building, roadway) = SafetyFactors(1);
    *type.giveFactors(Mode::BS, bridge, BridgeType::FOOTBRIDGE2) = SafetyFactors(2);
    *type.giveFactors(Mode::BS, bridge, BridgeType{0}) = SafetyFactors(3);
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

TEST(ActionType, TakingOverReachesAllSetsOfTheCodeAndNoOthers)
{
    const support::FreshContext context; // EC, a building
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
    EXPECT_TRUE(type.hasSafetyFactors());
    context->setMode(Mode::CSN);
    EXPECT_FALSE(type.hasSafetyFactors());
    EXPECT_EQ(ActionType::IdCount, 51) << "one less than there are";
}
