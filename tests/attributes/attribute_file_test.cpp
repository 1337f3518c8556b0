#include "attributes/Attributes.h"

#include <zelstandard/attributes/StateAttributeWriter.h>

#include "support/Files.h"

using Standard::BridgeType;
using Standard::Classification;
using Standard::Mode;
using Standard::StateAttribute;
using support::Attributes;
using Token = Standard::StateAttributeToken;

namespace
{

const std::string head = R"(<?xml version="1.0" encoding="UTF-8"?>)";

std::string list(const std::string& content)
{
    return "<STATEATTRIBUTES>" + content + "</STATEATTRIBUTES>";
}

/// An attribute SNOW with these child elements.
std::string snow(const std::string& children)
{
    return R"(<STATEATTRIBUTE NAME="SNOW">)" + children + "</STATEATTRIBUTE>";
}

/// What an attribute without any child element becomes.
const std::string bare = "- -1 DEFAULT UNDEFINED {} {} {} 0 0";

/// The tree without layout.
std::string raw(const ZelXmlTree& tree)
{
    std::ostringstream stream;
    tree.putToStream(stream, false);
    const std::string document = stream.str();
    return document.substr(document.starts_with(head) ? head.size() : 0);
}

/// The elements with their names, texts and children, as they stand in the document; without
/// comments and with one spelling of empty elements.
std::string outline(const ZelXmlData* element)
{
    std::string result = ZelXmlData::getName(element);
    if (const std::string name = ZelXmlData::getAttributeString(element, "NAME"); !name.empty())
        result += "[" + name + "]";
    if (const std::string data = ZelXmlData::getData(element); !data.empty())
        result += "=" + data;
    std::string children;
    for (const ZelXmlData* child = ZelXmlData::getFirstChild(element); child;
         child = ZelXmlData::getNextSibling(child))
        children += (children.empty() ? "" : " ") + outline(child);
    return children.empty() ? result : result + "(" + children + ")";
}

std::string outline(const std::string& document)
{
    ZelXmlTree tree;
    support::build(tree, document);
    return outline(tree.getRoot());
}

} // namespace

TEST(AttributeFile, IsReadElementByElement)
{
    const std::string full =
        "<ACTIONTYPE>SNOW</ACTIONTYPE><OPERATOR>AND_MINMAX</OPERATOR><TYPE>SNOW</TYPE>"
        "<LOAD_TYPE>LANE</LOAD_TYPE><CLASSIFICATION>BRIDGE</CLASSIFICATION>"
        "<STANDARD><OENORM/><EC/></STANDARD><BRIDGETYPE><ROADWAY/></BRIDGETYPE>"
        "<EXCLGROUP>7</EXCLGROUP><COMBGROUP>AGR_AO</COMBGROUP>";
    struct Case {
        std::string attributes;
        std::string read;
    };
    const Case cases[] = {
        {snow(full),                                                                                     "SNOW: SNOW AND_MINMAX SNOW LANE {BRIDGE} {EC OENORM} {ROADWAY} 7 2\n"},
        {snow(""),                                                                                       "SNOW: " + bare + "\n"                                                },
        {snow("<ACTIONTYPE/><OPERATOR/><TYPE/><LOAD_TYPE/><CLASSIFICATION/><STANDARD/>"
              "<BRIDGETYPE/><EXCLGROUP/><COMBGROUP/>"),
         "SNOW: " + bare + "\n"                                                                                                                                                },
        {snow("<ACTIONTYPE>X</ACTIONTYPE><OPERATOR>and</OPERATOR><TYPE>X</TYPE>"
              "<LOAD_TYPE>X</LOAD_TYPE><CLASSIFICATION>X</CLASSIFICATION><STANDARD><X/></STANDARD>"
              "<BRIDGETYPE><X/></BRIDGETYPE><EXCLGROUP>X</EXCLGROUP><COMBGROUP>X</COMBGROUP>"),
         "SNOW: " + bare + "\n"                                                                                                                                                },
 // The token is the attribute's, the element's name is not looked at.
        {R"(<ANY NAME="SNOW"/><STATEATTRIBUTE NAME="snow"/><STATEATTRIBUTE/><G1/>)",
         "SNOW: " + bare + "\n0: " + bare + "\n"                                                                                                                               },
 // The catalogue of action types does not know it.
        {snow("<ACTIONTYPE>CRANE</ACTIONTYPE>"),                                                         "SNOW: " + bare + "\n"                                                },
        {snow("<CLASSIFICATION> BUILDING\n</CLASSIFICATION>"),
         "SNOW: - -1 DEFAULT UNDEFINED {BUILDING} {} {} 0 0\n"                                                                                                                 },
        {snow("<CLASSIFICATION>bridge</CLASSIFICATION>"),                                                "SNOW: " + bare + "\n"                                                },
        {snow("<STANDARD><CSN/><DIN_2008/><EC/><OENORM/></STANDARD><BRIDGETYPE><RAILWAY1/>"
              "<RAILWAY2/><RAILWAY3/><ROADWAY/><FOOTBRIDGE1/></BRIDGETYPE>"),
         "SNOW: - -1 DEFAULT UNDEFINED {} {EC DIN-2008 OENORM CSN} "
         "{ROADWAY RAILWAY1 RAILWAY2 RAILWAY3 FOOTBRIDGE1} 0 0\n"                                                                                                              },
        {snow("<STANDARD><DIN-2008/><DIN-EN/><SIA/><BS/>EC<ANY><EC/></ANY></STANDARD>"
              "<BRIDGETYPE><FOOTBRIDGE2/>ROADWAY</BRIDGETYPE>"),
         "SNOW: " + bare + "\n"                                                                                                                                                },
 // The first element of the name counts, however deep.
        {snow("<ANY><STANDARD><EC/></STANDARD></ANY><STANDARD><CSN/></STANDARD>"
              "<BRIDGETYPE><ROADWAY/></BRIDGETYPE><BRIDGETYPE><RAILWAY1/></BRIDGETYPE>"
              "<EXCLGROUP>1</EXCLGROUP><EXCLGROUP>2</EXCLGROUP>"),
         "SNOW: - -1 DEFAULT UNDEFINED {} {EC} {ROADWAY} 1 0\n"                                                                                                                },
 // Words of a combination group share their numbers, and the numbers are no words.
        {snow("<COMBGROUP>AGR_GR3</COMBGROUP>"),                                                         "SNOW: - -1 DEFAULT UNDEFINED {} {} {} 0 3\n"                         },
        {snow("<COMBGROUP>AGR_SSM</COMBGROUP>"),                                                         "SNOW: - -1 DEFAULT UNDEFINED {} {} {} 0 2\n"                         },
        {snow("<COMBGROUP>1</COMBGROUP>"),                                                               "SNOW: " + bare + "\n"                                                },
        {snow("<EXCLGROUP>-3</EXCLGROUP>"),                                                              "SNOW: - -1 DEFAULT UNDEFINED {} {} {} -3 0\n"                        },
        {snow("<EXCLGROUP>1.5</EXCLGROUP>"),                                                             "SNOW: " + bare + "\n"                                                },
    };
    for (const Case& c : cases)
        EXPECT_EQ(Attributes(list(c.attributes)).text(), c.read) << c.attributes;
}

TEST(AttributeFile, OfOneTokenTwiceTheLaterReplacesAllButTheActionType)
{
    const auto with = [](const std::string& classification) {
        return classification.empty() ? ""
                                      : "<CLASSIFICATION>" + classification + "</CLASSIFICATION>";
    };
    const std::string first = "<ACTIONTYPE>SNOW</ACTIONTYPE><OPERATOR>AND</OPERATOR>"
                              "<TYPE>SNOW</TYPE><LOAD_TYPE>LANE</LOAD_TYPE><STANDARD><EC/>"
                              "</STANDARD><BRIDGETYPE><ROADWAY/></BRIDGETYPE>"
                              "<EXCLGROUP>1</EXCLGROUP><COMBGROUP>AGR_AU</COMBGROUP>";
    const std::string later = "<ACTIONTYPE>T</ACTIONTYPE><OPERATOR>OR</OPERATOR>"
                              "<STANDARD><CSN/></STANDARD>";
    struct Case {
        const char* first;
        const char* later;
        const char* classifications;
    };
    constexpr Case cases[] = {
        {"BUILDING", "BRIDGE",   "{BUILDING BRIDGE}"}, // a classification adds to the earlier one
        {"BRIDGE",   "BUILDING", "{BUILDING BRIDGE}"},
        {"BRIDGE",   "BRIDGE",   "{BRIDGE}"         },
        {"BRIDGE",   "any",      "{}"               },
        {"BRIDGE",   "",         "{}"               },
        {"",         "BRIDGE",   "{BRIDGE}"         },
    };
    for (const Case& c : cases)
        EXPECT_EQ(Attributes(list(snow(first + with(c.first)) + R"(<STATEATTRIBUTE NAME="WIND"/>)" +
                                  snow(later + with(c.later))))
                      .text(),
                  "SNOW: SNOW OR DEFAULT UNDEFINED " + std::string(c.classifications) +
                      " {CSN} {} 0 0\nWIND: " + bare + "\n")
            << c.first << " then " << c.later;
}

TEST(AttributeFile, IsTheFirstListAtOrBelowTheRoot)
{
    const std::string attributes = list(snow("<OPERATOR>AND</OPERATOR>"));
    const std::string rules = R"(<STATEINSTRUCTIONS><INSTRUCTION TYPE="RARE"><STATEATTRIBUTES>
        <DEFAULT_BLOCKS><ANY/></DEFAULT_BLOCKS><STATEATTRIBUTE NAME="WIND" OPERATOR="OR"/>
        </STATEATTRIBUTES></INSTRUCTION></STATEINSTRUCTIONS>)";
    const std::string read = "SNOW: - AND DEFAULT UNDEFINED {} {} {} 0 0\n";
    struct Case {
        std::string document;
        std::string read;
    };
    const Case cases[] = {
        {attributes,                                                                   read                                   },
        {"<SMOD><ANY/>" + attributes + "</SMOD>",                                      read                                   },
        {"<A><B><C>" + attributes + "</C></B></A>",                                    read                                   },
        {"<SMOD>" + attributes + list(R"(<STATEATTRIBUTE NAME="WIND"/>)") + "</SMOD>", read                                   },
        {"<SMOD><STATEATTRIBUTES/>" + attributes + "</SMOD>",                          ""                                     },
        {"<stateattributes>" + snow("") + "</stateattributes>",                        ""                                     },
 // Superposition rules have lists of the same name; theirs is taken when it comes first. The
  // operator, there an XML attribute, is not seen, and the blocks become one with no token.
        {"<SMOD>" + attributes + rules + "</SMOD>",                                    read                                   },
        {"<SMOD>" + rules + attributes + "</SMOD>",                                    "0: " + bare + "\nWIND: " + bare + "\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Attributes(c.document).text(), c.read) << c.document;
}

TEST(AttributeFile, IsWrittenInAFixedOrder)
{
    Attributes attributes;
    EXPECT_EQ(outline(attributes.written()), "STATEATTRIBUTES");

    attributes->giveStateAttribute(Token::WIND, Standard::ActionTypeId::LW);
    StateAttribute& all =
        *attributes->giveStateAttribute(Token::SNOW, Standard::ActionTypeId::SNOW);
    all.setOperator(Standard::Operator::OR);
    all.setType(Standard::AttributeType::SNOW);
    all.setLoadType(Standard::AttributeLoadType::LANE);
    all.addClassification(Classification::BRIDGE);
    for (const Mode mode : {Mode::CSN, Mode::EC, Mode::DIN_2008, Mode::OENORM})
        all.addStandard(mode);
    for (int type = 5; type >= 1; --type)
        all.addBridgeType(BridgeType{type});
    all.setExclGroup(-7);
    all.setCombGroup(1);
    EXPECT_EQ(outline(attributes.written()),
              "STATEATTRIBUTES("
              "STATEATTRIBUTE[WIND](ACTIONTYPE=LW OPERATOR=AND TYPE=DEFAULT LOAD_TYPE=UNDEFINED "
              "CLASSIFICATION STANDARD BRIDGETYPE EXCLGROUP=0 COMBGROUP=0) "
              "STATEATTRIBUTE[SNOW](ACTIONTYPE=SNOW OPERATOR=OR TYPE=SNOW LOAD_TYPE=LANE "
              "CLASSIFICATION=BRIDGE STANDARD(DIN_2008 EC OENORM CSN) "
              "BRIDGETYPE(RAILWAY1 RAILWAY2 RAILWAY3 ROADWAY FOOTBRIDGE1) "
              "EXCLGROUP=-7 COMBGROUP=AGR_AU))");
}

TEST(AttributeFile, CannotHoldEverything)
{
    struct Case {
        const char* what;
        void (*change)(StateAttribute&);
        const char* written; ///< the element that holds it
        const char* readBack;
    };
    const Case cases[] = {
        {"codes without an element",
         [](StateAttribute& a) {
             for (const int mode : {0, 2, 4, 7, 8})
                 a.addStandard(Mode{mode});
         },                                                                                                      "STANDARD BRIDGETYPE",     "SNOW: SNOW AND DEFAULT UNDEFINED {} {} {} 0 0\n"        },
        {"codes with and without one",
         [](StateAttribute& a) { a.addStandard(Mode::DIN_EN), a.addStandard(Mode::EC); },
         "STANDARD(EC)",                                                                                                                    "SNOW: SNOW AND DEFAULT UNDEFINED {} {EC} {} 0 0\n"      },
        {"second footbridge",          [](StateAttribute& a) { a.addBridgeType(BridgeType::FOOTBRIDGE2); },
         "BRIDGETYPE EXCLGROUP",                                                                                                            "SNOW: SNOW AND DEFAULT UNDEFINED {} {} {} 0 0\n"        },
        {"both classifications",
         [](StateAttribute& a) {
             a.addClassification(Classification::BUILDING),
                 a.addClassification(Classification::BRIDGE);
         },                                                                                                      "CLASSIFICATION STANDARD", "SNOW: SNOW AND DEFAULT UNDEFINED {} {} {} 0 0\n"        },
        {"building",                   [](StateAttribute& a) { a.addClassification(Classification::BUILDING); },
         "CLASSIFICATION=BUILDING",                                                                                                         "SNOW: SNOW AND DEFAULT UNDEFINED {BUILDING} {} {} 0 0\n"},
        {"group of several words",     [](StateAttribute& a) { a.setCombGroup(2); },                             "COMBGROUP=AGR_AO",
         "SNOW: SNOW AND DEFAULT UNDEFINED {} {} {} 0 2\n"                                                                                                                                           },
        {"group without a word",       [](StateAttribute& a) { a.setCombGroup(4); },                             "COMBGROUP=0",
         "SNOW: SNOW AND DEFAULT UNDEFINED {} {} {} 0 0\n"                                                                                                                                           },
        {"type without a word",
         [](StateAttribute& a) { a.setType(Standard::AttributeType::ELM4_53); },                                 "TYPE=-",
         "SNOW: SNOW AND DEFAULT UNDEFINED {} {} {} 0 0\n"                                                                                                                                           },
        {"load type without a word",
         [](StateAttribute& a) { a.setLoadType(Standard::AttributeLoadType{12}); },                              "LOAD_TYPE=-",
         "SNOW: SNOW AND DEFAULT UNDEFINED {} {} {} 0 0\n"                                                                                                                                           },
        {"operator that is none",      [](StateAttribute& a) { a.setOperator(Standard::Operator{9}); },
         "OPERATOR=-",                                                                                                                      "SNOW: SNOW -1 DEFAULT UNDEFINED {} {} {} 0 0\n"         },
        {"no action type",             [](StateAttribute& a) { a.setActionType(nullptr); },                      "ACTIONTYPE=NONE",
         "SNOW: - AND DEFAULT UNDEFINED {} {} {} 0 0\n"                                                                                                                                              },
        {"token that is none",         [](StateAttribute& a) { a.setToken(Token{131}); },
         "STATEATTRIBUTE[-]",                                                                                                               "0: SNOW AND DEFAULT UNDEFINED {} {} {} 0 0\n"           },
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Attributes attributes;
        c.change(*attributes->giveStateAttribute(Token::SNOW, Standard::ActionTypeId::SNOW));
        const std::string first = attributes.written();
        EXPECT_NE(outline(first).find(c.written), std::string::npos) << outline(first);
        Attributes read(first);
        EXPECT_EQ(read.text(), c.readBack);

        const std::string second = read.written();
        EXPECT_EQ(Attributes(second).text(), c.readBack);
        EXPECT_EQ(Attributes(second).written(), second) << "from the second writing on";
    }
}

// The catalogue has SNOW (EC, roadway, group 1) and WIND without restrictions.
TEST(AttributeFile, IsWrittenIntoATreeSoThatItReadsBack)
{
    const std::string set = "ACTIONTYPE=SNOW OPERATOR=AND TYPE=DEFAULT LOAD_TYPE=UNDEFINED "
                            "CLASSIFICATION STANDARD(EC) BRIDGETYPE(ROADWAY) EXCLGROUP=1 "
                            "COMBGROUP=0";
    const std::string newWind = "STATEATTRIBUTE[WIND](ACTIONTYPE=LW OPERATOR=AND TYPE=DEFAULT "
                                "LOAD_TYPE=UNDEFINED CLASSIFICATION STANDARD BRIDGETYPE "
                                "EXCLGROUP=0 COMBGROUP=0)";
    const std::string newSnow = "STATEATTRIBUTE[SNOW](" + set + ")";
    struct Case {
        const char* what;
        std::string before;
        std::string after;
    };
    const Case cases[] = {
        {"an empty tree",                                      "",                                                             "STATEATTRIBUTES(" + newSnow + " " + newWind + ")"},
        {"a list below the root",                              "<SMOD><ANY/>" + list("") + "<ANY/></SMOD>",
         "SMOD(ANY STATEATTRIBUTES(" + newSnow + " " + newWind + ") ANY)"                                                                                                        },
        {"another document",                                   "<SMOD><ANY/></SMOD>",
         "SMOD(ANY STATEATTRIBUTES(" + newSnow + " " + newWind + "))"                                                                                                            },
        {"the same attributes, in another order",
         list(R"(<STATEATTRIBUTE NAME="WIND"/>)" + snow("")),
         "STATEATTRIBUTES(" + newWind + " " + newSnow + ")"                                                                                                                      },
        {"stale members of the sets",
         list(snow("<STANDARD><CSN/><EC/><OENORM/><CSN/></STANDARD>"
                   "<BRIDGETYPE><RAILWAY1/><FOOTBRIDGE1/></BRIDGETYPE>")),
         "STATEATTRIBUTES(STATEATTRIBUTE[SNOW](STANDARD(EC) BRIDGETYPE(ROADWAY) ACTIONTYPE=SNOW "
         "OPERATOR=AND TYPE=DEFAULT LOAD_TYPE=UNDEFINED CLASSIFICATION EXCLGROUP=1 COMBGROUP=0) " +
             newWind + ")"                                                                                                                                                       },
        {"unknown content",
         list("<OTHER/>" +
              snow("<ANY><X/></ANY><STANDARD><SIA/>any</STANDARD><BRIDGETYPE><ROADWAY>"
                   "<X/></ROADWAY><FOOTBRIDGE2/></BRIDGETYPE>") +
              R"(<STATEATTRIBUTE NAME="G1"><OPERATOR>OR</OPERATOR></STATEATTRIBUTE>)"),
         "STATEATTRIBUTES(OTHER STATEATTRIBUTE[SNOW](ANY(X) STANDARD=any(SIA EC) "
         "BRIDGETYPE(ROADWAY(X) FOOTBRIDGE2) ACTIONTYPE=SNOW OPERATOR=AND TYPE=DEFAULT "
         "LOAD_TYPE=UNDEFINED CLASSIFICATION EXCLGROUP=1 COMBGROUP=0) "
         "STATEATTRIBUTE[G1](OPERATOR=OR) " +
             newWind + ")"                                                                                                                                                       },
        {"elements that would be read for the same attribute",
         list(R"(<ANY NAME="SNOW"/>)" + snow("") + snow("<STANDARD><CSN/></STANDARD>") +
              R"(<ANY NAME="WIND"/>)"),
         "STATEATTRIBUTES(" + newSnow + " " + newWind + ")"                                                                                                                      },
        {"a set in an unknown element",
         list(snow("<ANY><STANDARD><CSN/></STANDARD></ANY><BRIDGETYPE/>")),
         "STATEATTRIBUTES(STATEATTRIBUTE[SNOW](ANY BRIDGETYPE(ROADWAY) "
         "ACTIONTYPE=SNOW OPERATOR=AND TYPE=DEFAULT LOAD_TYPE=UNDEFINED CLASSIFICATION "
         "STANDARD(EC) EXCLGROUP=1 COMBGROUP=0) " +
             newWind + ")"                                                                                                                                                       },
        {"a set inside of another",
         list(snow("<BRIDGETYPE><RAILWAY1><STANDARD/></RAILWAY1></BRIDGETYPE>")),
         "STATEATTRIBUTES(STATEATTRIBUTE[SNOW](BRIDGETYPE(ROADWAY) ACTIONTYPE=SNOW OPERATOR=AND "
         "TYPE=DEFAULT LOAD_TYPE=UNDEFINED CLASSIFICATION STANDARD(EC) EXCLGROUP=1 COMBGROUP=0) " +
             newWind + ")"                                                                                                                                                       },
        {"children twice",                                     list(snow("<EXCLGROUP>5</EXCLGROUP><EXCLGROUP>6</EXCLGROUP>")),
         "STATEATTRIBUTES(STATEATTRIBUTE[SNOW](EXCLGROUP=1 EXCLGROUP=6 ACTIONTYPE=SNOW "
         "OPERATOR=AND TYPE=DEFAULT LOAD_TYPE=UNDEFINED CLASSIFICATION STANDARD(EC) "
         "BRIDGETYPE(ROADWAY) COMBGROUP=0) " +
             newWind + ")"                                                                                                                                                       },
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Attributes attributes;
        StateAttribute& first =
            *attributes->giveStateAttribute(Token::SNOW, Standard::ActionTypeId::SNOW);
        first.addStandard(Mode::EC);
        first.addBridgeType(BridgeType::ROADWAY);
        first.setExclGroup(1);
        attributes->giveStateAttribute(Token::WIND, Standard::ActionTypeId::LW);

        ZelXmlTree tree;
        support::build(tree, c.before);
        attributes->output(tree);
        EXPECT_EQ(outline(tree.getRoot()), c.after);
        const std::string once = raw(tree);
        attributes->output(tree);
        EXPECT_EQ(raw(tree), once) << "a second time";

        Attributes read;
        read->init(tree);
        for (const StateAttribute* attribute : attributes->getAttributes()) {
            const StateAttribute* found = read->findStateAttributeToToken(attribute->getToken());
            ASSERT_NE(found, nullptr);
            EXPECT_EQ(support::text(*found), support::text(*attribute));
        }
    }
}

TEST(AttributeFile, KeepsTheCommentsOfATreeThatItIsWrittenInto)
{
    const std::string before = list("<!-- first -->" + snow("<!-- second --><EXCLGROUP>1<!-- third "
                                                            "--></EXCLGROUP>"));
    ZelXmlTree tree;
    support::build(tree, before);
    Attributes()->output(tree);
    EXPECT_EQ(raw(tree), before) << "an empty catalogue changes nothing";
    Attributes(list(snow("")))->output(tree);
    for (const char* comment : {"<!-- first -->", "<!-- second -->", "0<!-- third -->"})
        EXPECT_NE(raw(tree).find(comment), std::string::npos) << raw(tree);
}

// As for reading: the list of an instruction that stands in front is taken for the attributes'.
TEST(AttributeFile, IsWrittenIntoTheRulesThatStandInFront)
{
    ZelXmlTree tree;
    support::build(tree, "<SMOD><INSTRUCTION>" + list(R"(<ANY NAME="WIND"/>)") +
                             "</INSTRUCTION>"
                             "</SMOD>");
    Attributes attributes(list(snow("")));
    attributes->output(tree);
    EXPECT_EQ(outline(tree.getRoot()),
              "SMOD(INSTRUCTION(STATEATTRIBUTES(ANY[WIND] STATEATTRIBUTE[SNOW](ACTIONTYPE=NONE "
              "OPERATOR=- TYPE=DEFAULT LOAD_TYPE=UNDEFINED CLASSIFICATION STANDARD BRIDGETYPE "
              "EXCLGROUP=0 COMBGROUP=0))))")
        << "the list that the writer opened at the end stays empty";
    Attributes read;
    read->init(tree);
    EXPECT_EQ(read.text(), "WIND: " + bare + "\n" + attributes.text());
}

TEST(AttributeFile, IsWrittenBelowAnyElement)
{
    ZelXmlTree tree;
    ZelXmlData* const element = tree.open("ANY", false);
    Attributes attributes(list(snow("<EXCLGROUP>4</EXCLGROUP>")));
    Standard::StateAttributeWriter(&*attributes).writeStateAttributes(element);
    EXPECT_EQ(outline(tree.getRoot()),
              "ANY(STATEATTRIBUTE[SNOW](ACTIONTYPE=NONE OPERATOR=- TYPE=DEFAULT "
              "LOAD_TYPE=UNDEFINED CLASSIFICATION STANDARD BRIDGETYPE EXCLGROUP=4 COMBGROUP=0))");
}

TEST(AttributeFile, TheShippedOneIsWrittenAsItStands)
{
    const std::string document = support::readFile(support::sourceFile("data/StateAttributes.xml"));
    Standard::ActionTypeManager types(support::sourceFile("data/ActionTypes.xml").string());
    Standard::StateAttributeManager attributes(&types);
    attributes.init(support::sourceFile("data/StateAttributes.xml").string());
    ASSERT_GT(attributes.getAttributes().size(), 100U);

    std::ostringstream written;
    attributes.output(written);
    EXPECT_EQ(outline(written.str()), outline(document)) << "nothing lost, nothing added";

    ZelXmlTree tree;
    support::build(tree, document);
    const std::string before = raw(tree);
    attributes.output(tree);
    EXPECT_EQ(raw(tree), before) << "comments and all";
}
