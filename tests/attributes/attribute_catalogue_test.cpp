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

TEST(AttributeCatalogue, IsReplacedByAnyFileThatExists)
{
    const std::string document =
        R"(<STATEATTRIBUTES><STATEATTRIBUTE NAME="SNOW"/></STATEATTRIBUTES>)";
    const std::string enciphered = support::enciphered(document);
    std::string damaged = enciphered;
    damaged.back() = static_cast<char>(damaged.back() ^ 1);
    std::istringstream plain(document);
    std::ostringstream withAnotherKey;
    ASSERT_TRUE(zelsuite::encrypt(plain, withAnotherKey, "another key"));

    const support::TemporaryDirectory directory;
    const auto expectTokens = [&](const std::string& path, const std::string& expected) {
        Attributes attributes;
        attributes->add(Token::WIND, nullptr);
        attributes->setCurrentAttribute(attributes->getAttributes()[0]);
        attributes->init(path);
        std::string tokens;
        for (const StateAttribute* attribute : attributes->getAttributes())
            tokens += StateAttribute::getPersistenceStringFromToken(attribute->getToken());
        EXPECT_EQ(tokens, expected);
        EXPECT_EQ(attributes->getCurrentAttribute() != nullptr, expected == "WIND");
    };
    expectTokens(directory.write("plain", document), "SNOW");
    expectTokens(directory.write("enciphered", enciphered), "SNOW");
    for (const std::string& content :
         {std::string(), document.substr(0, document.size() - 1), std::string("<SMOD/>"), damaged,
          enciphered.substr(0, enciphered.size() - 1), enciphered.substr(0, enciphered.size() / 2),
          withAnotherKey.str(), support::enciphered(document + "<")}) {
        SCOPED_TRACE(content);
        expectTokens(directory.write("bad", content), "");
    }
    expectTokens(directory.path().string(), "");
    expectTokens(directory.file("missing"), "WIND");

    Attributes attributes(document);
    attributes->init(ZelXmlTree());
    EXPECT_TRUE(attributes->getAttributes().empty()) << "nor does a tree add to what there is";
}

TEST(AttributeCatalogue, IsWrittenOverTheFile)
{
    const support::TemporaryDirectory directory;
    Attributes attributes(R"(<STATEATTRIBUTES><STATEATTRIBUTE NAME="SNOW"/></STATEATTRIBUTES>)");
    const std::string file = directory.write("attributes.xml", std::string(100000, 'x'));
    attributes->output(file);
    EXPECT_EQ(support::unixLines(support::readFile(file)), attributes.written());
    attributes->output(directory.file("no such directory/attributes.xml"));
    EXPECT_FALSE(std::filesystem::exists(directory.path() / "no such directory"));
}
