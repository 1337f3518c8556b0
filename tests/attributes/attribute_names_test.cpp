#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include "attributes/Attributes.h"
#include "support/Golden.h"

using Standard::StateAttributeBase;
using Token = Standard::StateAttributeToken;
using support::tokenCount;

TEST(AttributeNames, AreTextsThatLeadToOneTokenInEveryLanguage)
{
    std::string table;
    support::Attributes attributes;
    for (int token = 0; token < tokenCount; ++token) {
        attributes->add(Token{token}, nullptr);
        table += std::to_string(token) + " " +
                 StateAttributeBase::getPersistenceStringFromToken(Token{token}) + " " +
                 std::to_string(Standard::stateAttributeTokens[token].textId) + "\n";
    }
    support::expectGolden("attribute_names.txt", table);

    for (const char* language : {"de", "en"}) { // leaves English in force
        ASSERT_TRUE(zelsuite::setLanguage(language));
        for (const auto* attribute : attributes->getAttributes()) {
            const int token = static_cast<int>(attribute->getToken());
            const auto id = Standard::stateAttributeTokens[token].textId;
            const std::string name = attribute->getName();
            const std::string reportName = attribute->getReportName();
            SCOPED_TRACE(name);
            EXPECT_EQ(name, ZelText::Load(id));
            EXPECT_EQ(reportName, ZelText::LoadReport(id));

            const bool isImposed = token >= 15 && token <= 22; // described by its use
            const auto use = isImposed ? 6009U + static_cast<unsigned int>(token) : 3463U;
            const auto described = [&](const std::string& text, const std::string& afterwards) {
                return isImposed ? text + " (" + afterwards + ")" : afterwards;
            };
            EXPECT_EQ(attribute->getDescriptionText(), ZelText::Load(use));
            EXPECT_EQ(attribute->getReportDescriptionText(), ZelText::LoadReport(use));
            EXPECT_EQ(attribute->getDescription(), described(ZelText::Load(use), name));
            EXPECT_EQ(attribute->getReportDescription(),
                      described(ZelText::LoadReport(use), reportName));

            if (token == 0)
                continue;
            EXPECT_NE(name, "");
            EXPECT_NE(reportName, "");
            EXPECT_EQ(attributes->findStateAttributeToName(name), attribute);
            EXPECT_EQ(
                attributes->findStateAttributeToNameAndDescription(attribute->getDescription()),
                attribute);
            EXPECT_EQ(attributes->findStateAttributeFileInput(
                          StateAttributeBase::getPersistenceStringFromToken(Token{token})),
                      attribute)
                << "no other token's name may read as its word";
        }
    }
    EXPECT_EQ(StateAttributeBase(Token{tokenCount}).getName(), ZelText::Load(3463));
}
