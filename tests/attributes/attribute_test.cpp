#include <functional>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/StateAttribute.h>

#include "attributes/Attributes.h"
#include "support/Context.h"

using Standard::ActionType;
using Standard::BridgeType;
using Standard::Classification;
using Standard::Mode;
using Standard::Operator;
using Standard::StateAttribute;
using Token = Standard::StateAttributeToken;

namespace
{

struct Factor {
    double (StateAttribute::*get)() const;
    void (StateAttribute::*set)(double);
    double (ActionType::*ofType)() const;
};

constexpr Factor factors[] = {
    {&StateAttribute::getGammaSup, &StateAttribute::setGammaSup, &ActionType::getGammaSup},
    {&StateAttribute::getGammaInf, &StateAttribute::setGammaInf, &ActionType::getGammaInf},
    {&StateAttribute::getPsi0,     &StateAttribute::setPsi0,     &ActionType::getPsi0    },
    {&StateAttribute::getPsi1,     &StateAttribute::setPsi1,     &ActionType::getPsi1    },
    {&StateAttribute::getPsi2,     &StateAttribute::setPsi2,     &ActionType::getPsi2    },
    {&StateAttribute::getPsi11,    &StateAttribute::setPsi11,    &ActionType::getPsi11   },
    {&StateAttribute::getPsi21,    &StateAttribute::setPsi21,    &ActionType::getPsi21   },
    {&StateAttribute::getPsi22,    &StateAttribute::setPsi22,    &ActionType::getPsi22   },
    {&StateAttribute::getCrackRed, &StateAttribute::setCrackRed, &ActionType::getCrackRed},
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
    StateAttribute attribute(Token::SNOW, nullptr);
    const auto expectSet = [&]<class Value>(void (StateAttribute::*add)(Value),
                                            bool (StateAttribute::*has)(Value) const,
                                            int (StateAttribute::*bitField)() const,
                                            bool (StateAttribute::*isForAll)() const,
                                            void (StateAttribute::*clear)()) {
        EXPECT_TRUE((attribute.*isForAll)());
        for (const int value : {2, 1, 1})
            (attribute.*add)(Value{value});
        EXPECT_FALSE((attribute.*isForAll)());
        EXPECT_TRUE((attribute.*has)(Value{1}) && (attribute.*has)(Value{2}));
        EXPECT_EQ((attribute.*bitField)(), 16 + 32) << "once, however often it was added";
        EXPECT_EQ(attribute.getStandardBitField() + attribute.getClassificationBitField() +
                      attribute.getBridgeTypeBitField(),
                  16 + 32)
            << "the other two sets stay empty";
        (attribute.*clear)();
        EXPECT_EQ((attribute.*bitField)(), 0);
        EXPECT_FALSE((attribute.*has)(Value{1})) << "not even when it is valid for all";
    };
    using A = StateAttribute;
    expectSet(&A::addStandard, &A::hasStandard, &A::getStandardBitField, &A::isValidForAllStandards,
              &A::clearStandards);
    expectSet(&A::addClassification, &A::hasClassification, &A::getClassificationBitField,
              &A::isValidForAllClassifications, &A::clearClassifications);
    expectSet(&A::addBridgeType, &A::hasBridgeType, &A::getBridgeTypeBitField,
              &A::isValidForAllBridgeTypes, &A::clearBridgeTypes);
}

TEST(Attribute, HasTheFactorsOfItsActionTypeOrFixedOnes)
{
    const support::FreshContext context;
    ActionType type(ActionType::Id::SNOW);
    type.giveFactors(Mode::EC, Classification::BUILDING, BridgeType::ROADWAY);
    StateAttribute attribute(Token::SNOW, &type);
    const StateAttribute sharing(Token::SNOW_CST, &type);
    StateAttribute without(Token::SNOW, nullptr);
    std::string fixed;
    for (double value = 0.5; const Factor& factor : factors) {
        (attribute.*factor.set)(value);
        (without.*factor.set)(value);
        value += 0.125;
        fixed += std::to_string(static_cast<int>((without.*factor.get)())) + " ";
    }
    EXPECT_EQ(fixed, "1 1 1 1 1 1 0 0 1 ");
    for (double value = 0.5; const Factor& factor : factors) {
        EXPECT_EQ((attribute.*factor.get)(), value);
        EXPECT_EQ((sharing.*factor.get)(), value);
        EXPECT_EQ((type.*factor.ofType)(), value);
        value += 0.125;
    }
    attribute.setGammaSup(1.35);
    attribute.setGammaInf(1.25);
    attribute.setCrackRed(0.8);
    EXPECT_EQ(attribute.getGammaSupReduced(), 1.35 * 0.8); // the material is concrete
    EXPECT_EQ(attribute.getGammaInfReduced(), 1.25 * 0.8);
    EXPECT_EQ(without.getGammaSupReduced() + without.getGammaInfReduced(), 2.0);
}

TEST(Attribute, ShowsItsOperatorAsASymbol)
{
    std::string symbols;
    for (int value = -1; value <= 5; ++value) {
        StateAttribute attribute(Token::SNOW, nullptr);
        attribute.setOperator(Operator{value});
        symbols += "'" + attribute.getOperatorString() + "'";
        EXPECT_EQ(attribute.hasOperator(), value != 4) << "even what is no operator";
    }
    EXPECT_EQ(symbols, "' ''+''?''+(0?)''?(0?)'' '' '");
}

TEST(Attribute, IsComparedByValue)
{
    ActionType type(ActionType::Id::SNOW);
    ActionType equalType(ActionType::Id::SNOW);
    ActionType other(ActionType::Id::WIND_CST);
    const std::function<void(StateAttribute&)> changes[] = {
        [](auto& a) { a.setToken(Token::WIND); },
        [](auto& a) { a.setOperator(Operator::NONE); },
        [](auto& a) { a.setType(Standard::AttributeType::WIND); },
        [](auto& a) { a.setLoadType(Standard::AttributeLoadType::UNDEFINED); },
        [](auto& a) { a.setActionType(nullptr); },
        [&](auto& a) { a.setActionType(&other); },
        [](auto& a) { a.setExclGroup(4); },
        [](auto& a) { a.setCombGroup(0); },
        [](auto& a) { a.addClassification(Classification::BUILDING); },
        [](auto& a) { a.addStandard(Mode::CSN); },
        [](auto& a) { a.clearBridgeTypes(); },
    };
    const StateAttribute attribute = filled(&type);
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        SCOPED_TRACE(i);
        StateAttribute changed = filled(&equalType);
        changed.setActionTypeInstanceFlag(1); // plays no part
        EXPECT_EQ(attribute == changed, 1);
        EXPECT_EQ(attribute != changed, 0);
        changes[i](changed);
        EXPECT_EQ(attribute == changed, 0);
        EXPECT_EQ(changed == attribute, 0);
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
    for (const bool owns : {false, true}) {
        StateAttribute source = filled(&type);
        source.setActionTypeInstanceFlag(!owns);
        StateAttribute target(Token::WIND, &ofItsOwn);
        target.addStandard(Mode::CSN);
        target.setActionTypeInstanceFlag(owns);
        target.setData(&source);
        target.setData(nullptr);
        target.setData(&target);
        EXPECT_EQ(support::text(target), "SNOW: " + std::string(owns ? "T" : "SNOW") +
                                             " OR_MINMAX SNOW LANE {BRIDGE} {EC} {ROADWAY} 3 2");
        EXPECT_EQ(target.getActionTypeInstanceFlag(), owns);
    }
}

TEST(Attribute, ConvertsTokensAsFilesDo)
{
    std::string imposed;
    for (int token = 0; token < support::tokenCount; ++token) {
        const std::string word = StateAttribute::getPersistenceStringFromToken(Token{token});
        EXPECT_EQ(word, Standard::XMLUtil::get()->getStringToStateAttrToken(Token{token}));
        EXPECT_EQ(StateAttribute::getTokenFromPersistenceString(word), Token{token}) << word;
        if (StateAttribute(Token{token}, nullptr).isImposedLoadType())
            imposed += word + " ";
    }
    EXPECT_EQ(imposed, "NLA NLB NLC NLD NLE NLF NLG NLH ");
    for (const char* unknown : {"traffic", " TRAFFIC", "TRAFFIC ", ""})
        EXPECT_EQ(StateAttribute::getTokenFromPersistenceString(unknown), Token::UNDEFINED);
    // Only here a value that is no token has no word at all; in files it is written "-".
    for (const int token : {-1, support::tokenCount})
        EXPECT_EQ(StateAttribute::getPersistenceStringFromToken(Token{token}), "");
}
