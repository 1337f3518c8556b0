#include <cctype>

#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include "attributes/Attributes.h"
#include "support/Files.h"

using Standard::ActionType;
using Standard::StateAttribute;
using Standard::StateAttributeManager;
using support::Attributes;
using Token = Standard::StateAttributeToken;

TEST(AttributeCatalogue, KeepsTheFirstAttributeOfAToken)
{
    Attributes attributes;
    ActionType* const snow = attributes.types().findActionType(ActionType::Id::SNOW);
    ActionType* const temperature = attributes.types().findActionType(ActionType::Id::T);
    attributes->add(Token::WIND, temperature);
    attributes->add(Token::SNOW, snow);
    attributes->add(Token::SNOW, temperature);
    ASSERT_EQ(attributes->getAttributes().size(), 2U) << "in the order of adding";
    EXPECT_EQ(attributes->getAttributes()[1]->getActionType(), snow);
    EXPECT_EQ(attributes->findStateAttributeToToken(Token::SNOW), attributes->getAttributes()[1]);
    EXPECT_EQ(attributes->findStateAttributeToToken(Token::G1), nullptr);

    attributes->getAttributes()[1]->setToken(Token::WIND);
    EXPECT_EQ(attributes->findStateAttributeToToken(Token::WIND), attributes->getAttributes()[0]);
}

TEST(AttributeCatalogue, MakesAMissingAttributeWithItsActionType)
{
    Attributes attributes;
    StateAttribute* const snow = attributes->giveStateAttribute(Token::SNOW, ActionType::Id::SNOW);
    EXPECT_EQ(snow->getActionType(), attributes.types().findActionType(ActionType::Id::SNOW));
    EXPECT_EQ(attributes->giveStateAttribute(Token::SNOW, ActionType::Id::T), snow);
    EXPECT_EQ(snow->getActionType()->getId(), ActionType::Id::SNOW);

    // No type of that identity: none is made in the catalogue of action types either.
    for (const auto id : {ActionType::Id::NONE, ActionType::Id::CRANE}) {
        attributes->reset();
        EXPECT_EQ(attributes->giveStateAttribute(Token::CRANEWAY, id)->getActionType(), nullptr);
        EXPECT_EQ(attributes.types().findActionType(id), nullptr);
        EXPECT_EQ(attributes->getAttributes().size(), 1U);
    }

    StateAttributeManager withoutTypes(nullptr);
    const StateAttribute* attribute =
        withoutTypes.giveStateAttribute(Token::SNOW, ActionType::Id::SNOW);
    EXPECT_EQ(attribute->getActionType(), nullptr);
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

TEST(AttributeCatalogue, HoldsAnyCurrentAttribute)
{
    Attributes attributes;
    StateAttribute stranger(Token::SNOW, nullptr);
    EXPECT_EQ(attributes->getCurrentAttribute(), nullptr);
    attributes->setCurrentAttribute(&stranger);
    EXPECT_EQ(attributes->getCurrentAttribute(), &stranger);
    EXPECT_TRUE(attributes->getAttributes().empty());
}

TEST(AttributeCatalogue, IsReplacedByAnyFileThatExists)
{
    const std::string document = "<STATEATTRIBUTES><STATEATTRIBUTE NAME=\"SNOW\">"
                                 "<ACTIONTYPE>SNOW</ACTIONTYPE></STATEATTRIBUTE></STATEATTRIBUTES>";
    const std::string enciphered = support::enciphered(document);
    std::string damaged = enciphered;
    damaged.back() = static_cast<char>(damaged.back() ^ 1);
    std::istringstream plain(document);
    std::ostringstream withAnotherKey;
    ASSERT_TRUE(zelsuite::encrypt(plain, withAnotherKey, "another key"));

    const support::TemporaryDirectory directory;
    std::filesystem::create_directory(directory.path() / "directory");
    struct Case {
        const char* file;
        std::string content;
        std::string attribute; ///< the one that is there afterwards
    };
    const Case cases[] = {
        {"plain",                              document,          "SNOW"},
        {"enciphered",                         enciphered,        "SNOW"},
        {"empty",                              "",                ""},
        {"broken",                             document.substr(0, document.size() - 1),""},
        {"no XML",                                    "SNOW",                                              ""},
        {"without attributes",                                    "<SMOD/>",                                  ""},
        {"enciphered, damaged at the end",                                    damaged,                      ""},
        {"enciphered, cut",                                    enciphered.substr(0,                                     enciphered.size() - 1),""},
        {"enciphered, cut after its header",                                  enciphered.substr(0,                                                   enciphered.size() / 2),""},
        {"enciphered with another key",              withAnotherKey.str(),""},
        {"enciphered, broken",   support::enciphered(document + "<"),                                        ""              },
        {"directory","",""},
        {"missing",                                    "",                                                                             "WIND"                                                                                                                    },
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        const std::string file(c.file);
        if (file != "directory" && file != "missing")
            directory.write(file, c.content);
        Attributes attributes;
        attributes->add(Token::WIND, nullptr);
        attributes->setCurrentAttribute(attributes->getAttributes()[0]);
        attributes->init(directory.file(file));
        const auto& list = attributes->getAttributes();
        EXPECT_EQ(list.empty() ? ""
                               : StateAttribute::getPersistenceStringFromToken(list[0]->getToken()),
                  c.attribute);
        EXPECT_LE(list.size(), 1U);
        EXPECT_EQ(attributes->getCurrentAttribute() != nullptr, file == "missing");
    }
}

TEST(AttributeCatalogue, IsReplacedByATreeEvenAnEmptyOne)
{
    Attributes attributes("<STATEATTRIBUTES><STATEATTRIBUTE NAME=\"SNOW\"/></STATEATTRIBUTES>");
    attributes->setCurrentAttribute(attributes->getAttributes()[0]);
    ZelXmlTree tree;
    support::build(tree, "<STATEATTRIBUTES><STATEATTRIBUTE NAME=\"WIND\"/></STATEATTRIBUTES>");
    attributes->init(tree);
    ASSERT_EQ(attributes->getAttributes().size(), 1U);
    EXPECT_EQ(attributes->getAttributes()[0]->getToken(), Token::WIND);
    EXPECT_EQ(attributes->getCurrentAttribute(), nullptr);
    attributes->init(ZelXmlTree());
    EXPECT_TRUE(attributes->getAttributes().empty());
}

TEST(AttributeCatalogue, IsWrittenOverTheFile)
{
    const support::TemporaryDirectory directory;
    Attributes attributes("<STATEATTRIBUTES><STATEATTRIBUTE NAME=\"SNOW\">"
                          "<ACTIONTYPE>SNOW</ACTIONTYPE></STATEATTRIBUTE></STATEATTRIBUTES>");
    const std::string file = directory.write("attributes.xml", std::string(100000, 'x'));
    attributes->output(file);
    EXPECT_EQ(support::unixLines(support::readFile(file)), attributes.written());
    Attributes read;
    read->init(file);
    EXPECT_EQ(read.text(), attributes.text());

    attributes->output(directory.file("no such directory/attributes.xml"));
    EXPECT_FALSE(std::filesystem::exists(directory.path() / "no such directory"));
}
