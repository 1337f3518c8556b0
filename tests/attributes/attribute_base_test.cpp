#include <zelstandard/attributes/StateAttributeBase.h>

#include "attributes/Attributes.h"

using Standard::AttributeLoadType;
using Standard::AttributeType;
using Standard::Operator;
using Standard::StateAttributeBase;
using Token = Standard::StateAttributeToken;

TEST(AttributeBase, IsNewWithTheOperatorAnd)
{
    const StateAttributeBase attribute(Token::SNOW);
    EXPECT_EQ(attribute.getToken(), Token::SNOW);
    EXPECT_EQ(attribute.getOperator(), Operator::AND);
    EXPECT_EQ(attribute.getType(), AttributeType::DEFAULT);
    EXPECT_EQ(attribute.getLoadType(), AttributeLoadType::UNDEFINED);
    EXPECT_EQ(StateAttributeBase(Token::SNOW, Operator::OR).getOperator(), Operator::OR);
}

TEST(AttributeBase, IsComparedAndCopiedByAllItsFields)
{
    struct Case {
        const char* field;
        void (*change)(StateAttributeBase&);
    };
    const Case cases[] = {
        {"token",     [](StateAttributeBase& a) { a.setToken(Token::WIND); }               },
        {"type",      [](StateAttributeBase& a) { a.setType(AttributeType::WIND); }        },
        {"load type", [](StateAttributeBase& a) { a.setLoadType(AttributeLoadType::LANE); }},
        {"operator",  [](StateAttributeBase& a) { a.setOperator(Operator::NONE); }         },
    };
    const StateAttributeBase attribute(Token::SNOW, Operator::OR);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.field);
        StateAttributeBase changed = attribute;
        EXPECT_EQ(changed == attribute, 1);
        EXPECT_EQ(changed != attribute, 0);
        c.change(changed);
        EXPECT_EQ(changed == attribute, 0);
        EXPECT_EQ(changed != attribute, 1);

        StateAttributeBase other(Token::G1);
        other.setData(&changed);
        EXPECT_EQ(other == changed, 1);
        other.setData(nullptr);
        EXPECT_EQ(other == changed, 1) << "null changes nothing";
    }
}

TEST(AttributeBase, EveryOperatorButNoneCountsAsOne)
{
    for (int value = -1; value <= 5; ++value)
        EXPECT_EQ(StateAttributeBase(Token::SNOW, Operator{value}).hasOperator(), value != 4)
            << value;
}

TEST(AttributeBase, IsOfItsTypeOnly)
{
    StateAttributeBase attribute(Token::SNOW);
    attribute.setType(AttributeType::WIND);
    EXPECT_TRUE(attribute.isType(AttributeType::WIND));
    EXPECT_FALSE(attribute.isType(AttributeType::DEFAULT));
}

TEST(AttributeBase, TheCategoriesOfImposedLoadsAreNlaToNlh)
{
    std::string imposed;
    for (int token = -1; token <= support::tokenCount; ++token)
        if (StateAttributeBase(Token{token}).isImposedLoadType())
            imposed += StateAttributeBase::getPersistenceStringFromToken(Token{token}) + " ";
    EXPECT_EQ(imposed, "NLA NLB NLC NLD NLE NLF NLG NLH ");
}

TEST(AttributeBase, ConvertsTokensAsFilesDo)
{
    Standard::XMLUtil& words = *Standard::XMLUtil::get();
    for (int token = 0; token < support::tokenCount; ++token) {
        const std::string word = StateAttributeBase::getPersistenceStringFromToken(Token{token});
        EXPECT_EQ(word, words.getStringToStateAttrToken(Token{token})) << token;
        EXPECT_EQ(StateAttributeBase::getTokenFromPersistenceString(word), Token{token}) << word;
    }
    for (const char* unknown : {"traffic", " TRAFFIC", "TRAFFIC ", ""})
        EXPECT_EQ(StateAttributeBase::getTokenFromPersistenceString(unknown), Token::UNDEFINED)
            << unknown;
    // Only here a value that is no token has no word at all; in files it is written "-".
    for (const int token : {-1, support::tokenCount}) {
        EXPECT_EQ(StateAttributeBase::getPersistenceStringFromToken(Token{token}), "");
        EXPECT_EQ(words.getStringToStateAttrToken(Token{token}), "-");
    }
}
