#include <zelsuite/zelsuite.h>

#include "attributes/Attributes.h"

using Token = Standard::StateAttributeToken;
using support::tokenCount;

// Which text a name is stands in golden/text_ids_of_actions.txt.
TEST(AttributeNames, LeadToOneTokenInEveryLanguage)
{
    support::Attributes attributes;
    for (int token = 1; token < tokenCount; ++token)
        attributes->add(Token{token}, nullptr);
    for (const char* language : {"de", "en"}) { // leaves English in force
        ASSERT_TRUE(zelsuite::setLanguage(language));
        for (const auto* attribute : attributes->getAttributes()) {
            const std::string name = attribute->getName();
            const auto word =
                Standard::StateAttributeBase::getPersistenceStringFromToken(attribute->getToken());
            EXPECT_NE(name, "") << word;
            EXPECT_NE(attribute->getReportName(), "") << word;
            EXPECT_EQ(attributes->findStateAttributeToName(name), attribute) << name;
            EXPECT_EQ(
                attributes->findStateAttributeToNameAndDescription(attribute->getDescription()),
                attribute);
            EXPECT_EQ(attributes->findStateAttributeFileInput(word), attribute)
                << "no other token's name may read as its word";
        }
    }
}
