// What only the interface of a state attribute shows. Its factors and when it is active stand in
// text/actions and text/attributes.

#include <functional>

#include <zelstandard/attributes/StateAttributeValidator.h>

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

TEST(Attribute, HasTheGroupOfItsActionAndTakesTheDataOfAnother)
{
    using namespace Standard;
    ActionGroup group(ActionGroup::Type::SNOW);
    ActionType snow(ActionTypeId::SNOW);
    StateAttribute attribute(Token::SNOW, nullptr);
    EXPECT_EQ(attribute.getActionGroup(), nullptr);
    attribute.setActionType(&snow);
    EXPECT_EQ(attribute.getActionGroup(), nullptr);
    snow.setActionGroup(&group);
    EXPECT_EQ(attribute.getActionGroup(), &group);

    StateAttributeBase other(Token::V);
    other.setOperator(Operator::OR);
    other.setType(AttributeType::WIND);
    other.setLoadType(AttributeLoadType::VEHICLE);
    StateAttributeBase base(Token::SNOW);
    for (const StateAttributeBase* source : {&other, static_cast<StateAttributeBase*>(nullptr)}) {
        base.setData(source);
        EXPECT_EQ(base.getToken(), Token::V);
        EXPECT_EQ(base.getOperator(), Operator::OR);
        EXPECT_EQ(base.getType(), AttributeType::WIND);
        EXPECT_EQ(base.getLoadType(), AttributeLoadType::VEHICLE);
    }
}

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
        for (const int value : {-4, 29, 40, 40}) { // no bit stands for them
            (attribute.*add)(Value{value});
            EXPECT_TRUE((attribute.*has)(Value{value}));
        }
        EXPECT_EQ((attribute.*bitField)(), 16 + 32) << "once, however often it was added";
        EXPECT_EQ(attribute.getStandardBitField() + attribute.getClassificationBitField() +
                      attribute.getBridgeTypeBitField(),
                  16 + 32)
            << "the other two sets stay empty";
        (attribute.*clear)();
        EXPECT_EQ((attribute.*bitField)(), 0);
        for (const int value : {1, 40})
            EXPECT_FALSE((attribute.*has)(Value{value})) << "not even when it is valid for all";
    };
    using A = StateAttribute;
    expectSet(&A::addStandard, &A::hasStandard, &A::getStandardBitField, &A::isValidForAllStandards,
              &A::clearStandards);
    expectSet(&A::addClassification, &A::hasClassification, &A::getClassificationBitField,
              &A::isValidForAllClassifications, &A::clearClassifications);
    expectSet(&A::addBridgeType, &A::hasBridgeType, &A::getBridgeTypeBitField,
              &A::isValidForAllBridgeTypes, &A::clearBridgeTypes);
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

TEST(Attribute, IsValidForABridgeByItsMaterialAlone)
{
    const support::FreshContext context; // a building of concrete
    StateAttribute precast(Token::PRECAST, nullptr);
    precast.addStandard(Mode::CSN);
    EXPECT_TRUE(precast.isValidForBridgeDesignType());
    context->setClassification(Classification::BRIDGE);
    EXPECT_FALSE(precast.isValidForBridgeDesignType());
    context->setDesignMaterial(Standard::DesignMaterial::TIMBER);
    EXPECT_TRUE(precast.isValidForBridgeDesignType()) << "under another code, too";
    EXPECT_FALSE(Standard::StateAttributeValidator::isAttributeActive(nullptr));
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
        EXPECT_TRUE(attribute == changed && !(attribute != changed));
        changes[i](changed);
        EXPECT_FALSE(attribute == changed || changed == attribute);
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
        EXPECT_EQ(support::text(target), support::text(filled(owns ? &ofItsOwn : &type)));
        EXPECT_EQ(target.getActionTypeInstanceFlag(), owns);
    }
}

TEST(Attribute, ConvertsTokensAsFilesDo)
{
    std::string imposed;
    for (int token = 0; token < support::tokenCount; ++token) {
        const std::string word = StateAttribute::getPersistenceStringFromToken(Token{token});
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
