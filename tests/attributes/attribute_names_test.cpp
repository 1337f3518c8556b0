#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include "attributes/Attributes.h"
#include "support/Golden.h"

using Standard::StateAttributeBase;
using Token = Standard::StateAttributeToken;
using support::tokenCount;

namespace
{

/// English is in force again at the end of a test, however it ends.
struct English {
    English() = default;
    English(const English&) = delete;
    English& operator=(const English&) = delete;
    ~English() { zelsuite::setLanguage("en"); }
};

} // namespace

TEST(AttributeNames, AreTheTextsOfTheTokens)
{
    const English afterwards;
    std::ostringstream table;
    for (int token = -1; token <= tokenCount; ++token) {
        const bool isToken = token >= 0 && token < tokenCount;
        const unsigned int id = isToken ? Standard::stateAttributeTokens[token].nameTextId : 3463;
        const StateAttributeBase attribute(Token{token});
        for (const char* language : {"en", "de"}) {
            ASSERT_TRUE(zelsuite::setLanguage(language));
            EXPECT_EQ(attribute.getName(), ZelText::Load(id)) << token;
            EXPECT_EQ(attribute.getReportName(), ZelText::LoadReport(id)) << token;
        }
        if (isToken)
            table << token << " " << StateAttributeBase::getPersistenceStringFromToken(Token{token})
                  << " " << id << "\n";
    }
    support::expectGolden("attribute_names.txt", table.str());
}

TEST(AttributeNames, OnlyImposedLoadsAreDescribedByTheirUse)
{
    for (int token = 0; token < tokenCount; ++token) {
        const StateAttributeBase attribute(Token{token});
        const bool isImposed = token >= 15 && token <= 22;
        const auto use = isImposed ? 6009U + static_cast<unsigned int>(token) : 3463U;
        EXPECT_EQ(attribute.getDescriptionText(), ZelText::Load(use)) << token;
        EXPECT_EQ(attribute.getReportDescriptionText(), ZelText::LoadReport(use)) << token;

        const std::string name = attribute.getName();
        const std::string reportName = attribute.getReportName();
        EXPECT_EQ(attribute.getDescription(),
                  isImposed ? ZelText::Load(use) + " (" + name + ")" : name)
            << token;
        EXPECT_EQ(attribute.getReportDescription(),
                  isImposed ? ZelText::LoadReport(use) + " (" + reportName + ")" : reportName)
            << token;
    }
}

TEST(AttributeNames, LeadToOneTokenInEveryLanguage)
{
    const English afterwards;
    support::Attributes attributes;
    for (int token = 1; token < tokenCount; ++token)
        attributes->add(Token{token}, nullptr);
    for (const char* language : {"en", "de"}) {
        ASSERT_TRUE(zelsuite::setLanguage(language));
        for (const Standard::StateAttribute* attribute : attributes->getAttributes()) {
            const std::string word =
                StateAttributeBase::getPersistenceStringFromToken(attribute->getToken());
            SCOPED_TRACE(word + ", " + language + " " + attribute->getName());
            EXPECT_NE(attribute->getName(), "");
            EXPECT_NE(attribute->getReportName(), "");
            EXPECT_EQ(attributes->findStateAttributeToName(attribute->getName()), attribute);
            EXPECT_EQ(
                attributes->findStateAttributeToNameAndDescription(attribute->getDescription()),
                attribute);
            EXPECT_EQ(attributes->findStateAttributeFileInput(word), attribute)
                << "no other token's name may read as this word";
        }
    }
}
