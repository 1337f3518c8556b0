#include <cmath>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/StateAttribute.h>

#include "attributes/Attributes.h"
#include "support/Context.h"

using Standard::ActionGroup;
using Standard::ActionType;
using Standard::BridgeType;
using Standard::Classification;
using Standard::DesignMaterial;
using Standard::Mode;
using Standard::Operator;
using Standard::StateAttribute;
using support::FreshContext;
using Token = Standard::StateAttributeToken;

namespace
{

/// The operations on one of the three validity sets.
template <class Value> struct ValiditySet {
    int first, last;
    void (StateAttribute::*add)(Value);
    bool (StateAttribute::*has)(Value) const;
    int (StateAttribute::*bitField)() const;
    bool (StateAttribute::*isForAll)() const;
    void (StateAttribute::*clear)();
};

constexpr ValiditySet<Mode> standards = {0,
                                         8,
                                         &StateAttribute::addStandard,
                                         &StateAttribute::hasStandard,
                                         &StateAttribute::getStandardBitField,
                                         &StateAttribute::isValidForAllStandards,
                                         &StateAttribute::clearStandards};
constexpr ValiditySet<Classification> classifications = {
    1,
    2,
    &StateAttribute::addClassification,
    &StateAttribute::hasClassification,
    &StateAttribute::getClassificationBitField,
    &StateAttribute::isValidForAllClassifications,
    &StateAttribute::clearClassifications};
constexpr ValiditySet<BridgeType> bridgeTypes = {0,
                                                 6,
                                                 &StateAttribute::addBridgeType,
                                                 &StateAttribute::hasBridgeType,
                                                 &StateAttribute::getBridgeTypeBitField,
                                                 &StateAttribute::isValidForAllBridgeTypes,
                                                 &StateAttribute::clearBridgeTypes};

template <class Value> void expectValiditySet(const ValiditySet<Value>& set)
{
    StateAttribute attribute(Token::SNOW, nullptr);
    int bits = 0;
    for (int value = set.last; value >= set.first; --value) {
        EXPECT_EQ((attribute.*set.isForAll)(), value == set.last) << "only the empty set is all";
        EXPECT_FALSE((attribute.*set.has)(Value{value})) << "not even when it is valid for all";
        (attribute.*set.add)(Value{value});
        (attribute.*set.add)(Value{value});
        bits += 8 << value;
        EXPECT_TRUE((attribute.*set.has)(Value{value}));
        EXPECT_EQ((attribute.*set.bitField)(), bits) << "once, however often it was added";
    }
    EXPECT_EQ(attribute.getStandardBitField() + attribute.getClassificationBitField() +
                  attribute.getBridgeTypeBitField(),
              bits)
        << "the other two sets stay empty";
    (attribute.*set.clear)();
    EXPECT_TRUE((attribute.*set.isForAll)());
    EXPECT_FALSE((attribute.*set.has)(Value{set.last}));
    EXPECT_EQ((attribute.*set.bitField)(), 0);
}

struct Factor {
    const char* name;
    double (StateAttribute::*get)() const;
    void (StateAttribute::*set)(double);
    double withoutActionType;
    double (ActionType::*ofType)() const;
};

constexpr Factor factors[] = {
    {"gamma sup",       &StateAttribute::getGammaSup, &StateAttribute::setGammaSup, 1.0,
     &ActionType::getGammaSup                                                                                 },
    {"gamma inf",       &StateAttribute::getGammaInf, &StateAttribute::setGammaInf, 1.0,
     &ActionType::getGammaInf                                                                                 },
    {"psi0",            &StateAttribute::getPsi0,     &StateAttribute::setPsi0,     1.0, &ActionType::getPsi0 },
    {"psi1",            &StateAttribute::getPsi1,     &StateAttribute::setPsi1,     1.0, &ActionType::getPsi1 },
    {"psi2",            &StateAttribute::getPsi2,     &StateAttribute::setPsi2,     1.0, &ActionType::getPsi2 },
    {"psi11",           &StateAttribute::getPsi11,    &StateAttribute::setPsi11,    1.0, &ActionType::getPsi11},
    {"psi21",           &StateAttribute::getPsi21,    &StateAttribute::setPsi21,    0.0, &ActionType::getPsi21},
    {"psi22",           &StateAttribute::getPsi22,    &StateAttribute::setPsi22,    0.0, &ActionType::getPsi22},
    {"crack reduction", &StateAttribute::getCrackRed, &StateAttribute::setCrackRed, 1.0,
     &ActionType::getCrackRed                                                                                 },
};

/// An attribute without any default.
StateAttribute filled(ActionType* type)
{
    StateAttribute attribute(Token::SNOW, type);
    attribute.setOperator(Operator::OR_MINMAX);
    attribute.setType(Standard::AttributeType::SNOW);
    attribute.setLoadType(Standard::AttributeLoadType::LANE);
    attribute.addClassification(Classification::BRIDGE);
    attribute.addStandard(Mode::EC);
    attribute.addBridgeType(BridgeType::ROADWAY);
    attribute.setExclGroup(3);
    attribute.setCombGroup(2);
    return attribute;
}

} // namespace

TEST(Attribute, HasASetAndABitFieldForEachValidity)
{
    expectValiditySet(standards);
    expectValiditySet(classifications);
    expectValiditySet(bridgeTypes);

    StateAttribute attribute(Token::SNOW, nullptr);
    attribute.addStandard(Mode::EC);
    attribute.addStandard(Mode::DIN_2008);
    EXPECT_EQ(attribute.getStandardBitField(), 80);
}

TEST(Attribute, TakesItsGroupFromItsActionType)
{
    ActionGroup group(ActionGroup::Type::SNOW);
    ActionType type(ActionType::Id::SNOW);
    StateAttribute attribute(Token::SNOW, nullptr);
    EXPECT_EQ(attribute.getActionGroup(), nullptr);
    attribute.setActionType(&type);
    EXPECT_EQ(attribute.getActionGroup(), nullptr);
    type.setActionGroup(&group);
    EXPECT_EQ(attribute.getActionGroup(), &group);
    EXPECT_EQ(attribute.getActionTypeInstanceFlag(), 0) << "setting a type is not owning it";
}

TEST(Attribute, WithoutAnActionTypeHasFixedFactors)
{
    const FreshContext context;
    StateAttribute attribute(Token::SNOW, nullptr);
    for (const Factor& factor : factors) {
        (attribute.*factor.set)(0.25);
        EXPECT_EQ((attribute.*factor.get)(), factor.withoutActionType) << factor.name;
    }
    EXPECT_EQ(attribute.getGammaSupReduced(), 1.0);
    EXPECT_EQ(attribute.getGammaInfReduced(), 1.0);
}

TEST(Attribute, SharesTheFactorsInForceWithItsActionType)
{
    const FreshContext context;
    ActionType type(ActionType::Id::SNOW);
    StateAttribute attribute(Token::SNOW, &type);
    const StateAttribute sharing(Token::SNOW_CST, &type);
    for (const Factor& factor : factors) {
        (attribute.*factor.set)(0.25);
        EXPECT_EQ((attribute.*factor.get)(), (type.*factor.ofType)())
            << factor.name << " without a set in force";
    }
    type.giveFactors(Mode::EC, Classification::BUILDING, BridgeType::ROADWAY);
    double value = 0.0;
    for (const Factor& factor : factors)
        (attribute.*factor.set)(value += 0.25);
    value = 0.0;
    for (const Factor& factor : factors) {
        SCOPED_TRACE(factor.name);
        value += 0.25;
        EXPECT_EQ((attribute.*factor.get)(), value);
        EXPECT_EQ((sharing.*factor.get)(), value);
        EXPECT_EQ((type.*factor.ofType)(), value);
    }
}

TEST(Attribute, ReducesAGammaAboveTheThresholdForConcrete)
{
    const FreshContext context;
    const double above = std::nextafter(0.99, 1.0);
    struct Case {
        DesignMaterial material;
        double gamma;
        double reduced;
    };
    const Case cases[] = {
        {DesignMaterial::CONCRETE,           1.35,  1.35 * 0.8 },
        {DesignMaterial::COMPOSITE_CONCRETE, 1.35,  1.35 * 0.8 },
        {DesignMaterial::COMPOSITE_STEEL,    1.35,  1.35       },
        {DesignMaterial::STEEL,              1.35,  1.35       },
        {DesignMaterial::TIMBER,             1.35,  1.35       },
        {DesignMaterial::ROPE,               1.35,  1.35       },
        {DesignMaterial::CONCRETE,           0.99,  0.99       },
        {DesignMaterial::CONCRETE,           above, above * 0.8},
    };
    for (const Case& c : cases) {
        context->setDesignMaterial(c.material);
        ActionType type(ActionType::Id::SNOW);
        type.giveFactors(Mode::EC, Classification::BUILDING, BridgeType::ROADWAY);
        StateAttribute attribute(Token::SNOW, &type);
        attribute.setCrackRed(0.8);
        attribute.setGammaSup(c.gamma);
        attribute.setGammaInf(2.0);
        EXPECT_EQ(attribute.getGammaSupReduced(), c.reduced) << c.gamma;
        attribute.setGammaInf(c.gamma);
        attribute.setGammaSup(2.0);
        EXPECT_EQ(attribute.getGammaInfReduced(), c.reduced) << c.gamma;
    }
}

TEST(Attribute, ShowsItsOperatorAsASymbol)
{
    std::string symbols;
    for (int value = -1; value <= 5; ++value) {
        StateAttribute attribute(Token::SNOW, nullptr);
        attribute.setOperator(Operator{value});
        symbols += "'" + attribute.getOperatorString() + "'";
    }
    EXPECT_EQ(symbols, "' ''+''?''+(0?)''?(0?)'' '' '");
}

TEST(Attribute, IsComparedByValue)
{
    struct Case {
        const char* what;
        void (*change)(StateAttribute&);
    };
    static ActionType other(ActionType::Id::WIND_CST);
    const Case cases[] = {
        {"base field",             [](StateAttribute& a) { a.setOperator(Operator::NONE); }               },
        {"no action type",         [](StateAttribute& a) { a.setActionType(nullptr); }                    },
        {"other action type",      [](StateAttribute& a) { a.setActionType(&other); }                     },
        {"exclusion group",        [](StateAttribute& a) { a.setExclGroup(4); }                           },
        {"combination group",      [](StateAttribute& a) { a.setCombGroup(0); }                           },
        {"further classification",
         [](StateAttribute& a) { a.addClassification(Classification::BUILDING); }                         },
        {"no classification",      [](StateAttribute& a) { a.clearClassifications(); }                    },
        {"further standard",       [](StateAttribute& a) { a.addStandard(Mode::CSN); }                    },
        {"other standard",         [](StateAttribute& a) { a.clearStandards(), a.addStandard(Mode::CSN); }},
        {"further bridge type",    [](StateAttribute& a) { a.addBridgeType(BridgeType::RAILWAY1); }       },
        {"other bridge type",
         [](StateAttribute& a) { a.clearBridgeTypes(), a.addBridgeType(BridgeType{6}); }                  },
    };
    ActionType type(ActionType::Id::SNOW);
    ActionType equalType(ActionType::Id::SNOW);
    const StateAttribute attribute = filled(&type);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        StateAttribute changed = filled(&equalType);
        changed.setActionTypeInstanceFlag(1); // plays no part
        EXPECT_EQ(attribute == changed, 1);
        EXPECT_EQ(attribute != changed, 0);
        c.change(changed);
        EXPECT_EQ(attribute == changed, 0);
        EXPECT_EQ(changed == attribute, 0);
        EXPECT_EQ(attribute != changed, 1);
        EXPECT_EQ(changed != attribute, 1);
    }
    // Action types compare the sets of the left one only, and so do attributes.
    equalType.giveFactors(Mode::EC, Classification::BUILDING, BridgeType::ROADWAY);
    EXPECT_EQ(attribute == filled(&equalType), 1);
    EXPECT_EQ(filled(&equalType) == attribute, 0);
}

TEST(Attribute, TakesOverTheDataOfAnotherButForAnActionTypeOfItsOwn)
{
    ActionType type(ActionType::Id::SNOW);
    ActionType ofItsOwn(ActionType::Id::T);
    StateAttribute source = filled(&type);
    source.setActionTypeInstanceFlag(1);

    StateAttribute sharing(Token::WIND, nullptr);
    sharing.addStandard(Mode::CSN);
    sharing.setData(&source);
    EXPECT_EQ(support::text(sharing), "SNOW: SNOW OR_MINMAX SNOW LANE {BRIDGE} {EC} {ROADWAY} 3 2");
    EXPECT_EQ(sharing.getActionType(), &type);
    EXPECT_EQ(sharing.getActionTypeInstanceFlag(), 0);

    StateAttribute owning(Token::WIND, &ofItsOwn);
    owning.setActionTypeInstanceFlag(1);
    source.setActionTypeInstanceFlag(0);
    owning.setData(&source);
    EXPECT_EQ(support::text(owning), "SNOW: T OR_MINMAX SNOW LANE {BRIDGE} {EC} {ROADWAY} 3 2");
    EXPECT_EQ(owning.getActionTypeInstanceFlag(), 1);

    owning.setData(nullptr);
    owning.setData(&owning);
    EXPECT_EQ(support::text(owning), "SNOW: T OR_MINMAX SNOW LANE {BRIDGE} {EC} {ROADWAY} 3 2");
}
