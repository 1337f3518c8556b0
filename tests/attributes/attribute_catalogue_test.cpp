#include <cctype>

#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include "attributes/Attributes.h"
#include "support/Files.h"

using Standard::ActionType;
using Standard::StateAttribute;
using support::Attributes;
using Token = Standard::StateAttributeToken;

TEST(AttributeCatalogue, KeepsTheFirstAttributeOfAToken)
{
    Attributes attributes;
    ActionType* const snow = attributes.types().findActionType(ActionType::Id::SNOW);
    attributes->add(Token::WIND, nullptr);
    attributes->add(Token::SNOW, snow);
    attributes->add(Token::SNOW, nullptr);
    StateAttribute* const attribute =
        attributes->giveStateAttribute(Token::SNOW, ActionType::Id::T);
    ASSERT_EQ(attributes->getAttributes().size(), 2U) << "in the order of adding";
    EXPECT_EQ(attributes->getAttributes()[1], attribute);
    EXPECT_EQ(attribute->getActionType(), snow);
    attribute->setToken(Token::WIND);
    EXPECT_EQ(attributes->findStateAttributeToToken(Token::WIND), attributes->getAttributes()[0]);
    EXPECT_EQ(attributes->findStateAttributeToToken(Token::SNOW), nullptr);
}

TEST(AttributeCatalogue, MakesAMissingAttributeWithoutMakingAnActionType)
{
    for (const auto id : {ActionType::Id::NONE, ActionType::Id::CRANE}) {
        Attributes attributes;
        EXPECT_EQ(attributes->giveStateAttribute(Token::CRANEWAY, id)->getActionType(), nullptr);
        EXPECT_EQ(attributes.types().findActionType(id), nullptr);
    }
    Standard::StateAttributeManager withoutTypes(nullptr);
    EXPECT_EQ(withoutTypes.giveStateAttribute(Token::SNOW, ActionType::Id::SNOW)->getActionType(),
              nullptr);
}

TEST(AttributeCatalogue, FindsByTextAsTheQueriesSay)
{
    Attributes attributes;
    for (const Token token : {Token::UNDEFINED, Token::NLB, Token::TRAFFIC, Token::WIND})
        attributes->add(token, nullptr);
    const std::string office = ZelText::Load(6002); // name of NLB
    const std::string wind = ZelText::Load(4097);
    const std::string description = ZelText::Load(6025) + " (" + office + ")";
    std::string shouted = " \t" + wind + "\n";
    for (char& letter : shouted)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));

    struct Case {
        std::string text;
        const char* byName;
        const char* byNameOrDescription;
        const char* inFiles;
    };
    const Case cases[] = {
        {wind,              "WIND", "WIND", "WIND"   },
        {shouted,           "WIND", "WIND", "WIND"   },
        {office,            "NLB",  "NLB",  "NLB"    },
        {description,       "",     "NLB",  "-"      },
        {" " + description, "",     "",     "-"      },
        {"TRAFFIC",         "",     "",     "TRAFFIC"},
        {"NLB",             "",     "",     "NLB"    },
        {"nlb",             "",     "",     "-"      },
        {"NLC",             "",     "",     ""       },
        {"no such text",    "",     "",     "-"      }, // an unknown word means UNDEFINED
    };
    const auto word = [](const StateAttribute* found) {
        return found ? StateAttribute::getPersistenceStringFromToken(found->getToken()) : "";
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("'" + c.text + "'");
        EXPECT_EQ(word(attributes->findStateAttributeToName(c.text)), c.byName);
        EXPECT_EQ(word(attributes->findStateAttributeToNameAndDescription(c.text)),
                  c.byNameOrDescription);
        EXPECT_EQ(word(attributes->findStateAttributeFileInput(c.text)), c.inFiles);
    }
}

TEST(AttributeCatalogue, FindsAllByTheirNamesInEveryLanguage)
{
    Attributes attributes;
    for (int token = 1; token < support::tokenCount; ++token)
        attributes->add(Token{token}, nullptr);
    for (const char* language : {"de", "en"}) { // leaves English in force
        ASSERT_TRUE(zelsuite::setLanguage(language));
        for (StateAttribute* attribute : attributes->getAttributes()) {
            const std::string name = attribute->getName();
            const auto word = StateAttribute::getPersistenceStringFromToken(attribute->getToken());
            EXPECT_TRUE(!name.empty() && !attribute->getReportName().empty()) << word;
            EXPECT_EQ(attributes->findStateAttributeToName(name), attribute) << name;
            EXPECT_EQ(
                attributes->findStateAttributeToNameAndDescription(attribute->getDescription()),
                attribute);
            EXPECT_EQ(attributes->findStateAttributeFileInput(word), attribute)
                << "no other token's name may read as its word";
        }
    }
}

TEST(AttributeCatalogue, IsReplacedByAnyFileThatExists)
{
    const std::string document = R"(<STATEATTRIBUTES><A NAME="SNOW"/></STATEATTRIBUTES>)";
    const std::string enciphered = support::enciphered(document);
    const support::TemporaryDirectory directory;
    const std::pair<std::string, const char*> rows[] = {
        {directory.write("plain", document),                                  "SNOW"},
        {directory.write("enciphered",                       enciphered),                                      "SNOW"},
        {directory.write("empty",                 ""),                      ""},
        {directory.write("other",    "<SMOD/>"),                       ""},
        {directory.write("malformed", document + "<"),                              ""},
        {directory.write("cut",                       enciphered.substr(0,                                       enciphered.size() - 1)), ""},
        {directory.path().string(),                     ""                                 },
        {directory.file("missing"),"WIND"},
    };
    for (const auto& [path, expected] : rows) {
        SCOPED_TRACE(path);
        Attributes attributes;
        attributes->add(Token::WIND, nullptr);
        attributes->setCurrentAttribute(attributes->getAttributes()[0]);
        attributes->init(path);
        std::string tokens;
        for (const StateAttribute* attribute : attributes->getAttributes())
            tokens += StateAttribute::getPersistenceStringFromToken(attribute->getToken());
        EXPECT_EQ(tokens, expected);
        EXPECT_EQ(attributes->getCurrentAttribute() != nullptr, tokens == "WIND");
        attributes->init(ZelXmlTree());
        EXPECT_TRUE(attributes->getAttributes().empty()) << "nor does a tree add to what there is";
    }
}
