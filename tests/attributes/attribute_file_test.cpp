#include "attributes/Attributes.h"

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
/// How one without restrictions is written behind its action type and operator.
const std::string unrestricted = "TYPE=DEFAULT LOAD_TYPE=UNDEFINED CLASSIFICATION STANDARD "
                                 "BRIDGETYPE EXCLGROUP=0 COMBGROUP=0)";

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
    const auto expectRead = [](const std::string& attributes, const std::string& read) {
        EXPECT_EQ(Attributes(list(attributes)).text(), read + "\n") << attributes;
    };
    const std::string sets = "SNOW: - -1 DEFAULT UNDEFINED ";
    expectRead(snow(""), "SNOW: " + bare);
    expectRead(snow("<ACTIONTYPE/><OPERATOR/><TYPE/><LOAD_TYPE/><CLASSIFICATION/><STANDARD/>"
                    "<BRIDGETYPE/><EXCLGROUP/><COMBGROUP/>"),
               "SNOW: " + bare);
    expectRead(snow("<ACTIONTYPE>X</ACTIONTYPE><OPERATOR>and</OPERATOR><TYPE>X</TYPE>"
                    "<LOAD_TYPE>X</LOAD_TYPE><CLASSIFICATION>bridge</CLASSIFICATION>"
                    "<STANDARD><X/></STANDARD><BRIDGETYPE><X/></BRIDGETYPE>"
                    "<EXCLGROUP>1.5</EXCLGROUP><COMBGROUP>1</COMBGROUP>"),
               "SNOW: " + bare);
    // The token is the attribute's, the element's name is not looked at.
    expectRead(R"(<ANY NAME="SNOW"/><STATEATTRIBUTE NAME="snow"/><STATEATTRIBUTE/><G1/>)",
               "SNOW: " + bare + "\n0: " + bare);
    // The catalogue of action types does not know it.
    expectRead(snow("<ACTIONTYPE>CRANE</ACTIONTYPE>"), "SNOW: " + bare);
    expectRead(snow("<CLASSIFICATION> BUILDING\n</CLASSIFICATION><EXCLGROUP>-3</EXCLGROUP>"),
               sets + "{BUILDING} {} {} -3 0");
    // Only these codes and bridge types have an element, and DIN-2008 another word than elsewhere.
    expectRead(snow("<STANDARD><CSN/><DIN_2008/><EC/><OENORM/></STANDARD><BRIDGETYPE><RAILWAY1/>"
                    "<RAILWAY2/><RAILWAY3/><ROADWAY/><FOOTBRIDGE1/></BRIDGETYPE>"),
               sets + "{} {EC DIN-2008 OENORM CSN} "
                      "{ROADWAY RAILWAY1 RAILWAY2 RAILWAY3 FOOTBRIDGE1} 0 0");
    expectRead(snow("<STANDARD><DIN-2008/><DIN-EN/><SIA/><BS/>EC<ANY><EC/></ANY></STANDARD>"
                    "<BRIDGETYPE><FOOTBRIDGE2/>ROADWAY</BRIDGETYPE>"),
               "SNOW: " + bare);
    // The first element of the name counts, however deep.
    expectRead(snow("<ANY><STANDARD><EC/></STANDARD></ANY><STANDARD><CSN/></STANDARD>"
                    "<BRIDGETYPE><ROADWAY/></BRIDGETYPE><BRIDGETYPE><RAILWAY1/></BRIDGETYPE>"
                    "<EXCLGROUP>1</EXCLGROUP><EXCLGROUP>2</EXCLGROUP>"),
               sets + "{} {EC} {ROADWAY} 1 0");
    // Words of a combination group share their numbers.
    expectRead(snow("<COMBGROUP>AGR_SSM</COMBGROUP>"), sets + "{} {} {} 0 2");
}

TEST(AttributeFile, OfOneTokenTwiceTheLaterReplacesAllButTheActionType)
{
    const auto expectClassifications = [](const std::string& first, const std::string& later,
                                          const std::string& expected) {
        EXPECT_EQ(Attributes(list(snow("<ACTIONTYPE>SNOW</ACTIONTYPE><OPERATOR>AND</OPERATOR>"
                                       "<TYPE>SNOW</TYPE><LOAD_TYPE>LANE</LOAD_TYPE><STANDARD><EC/>"
                                       "</STANDARD><BRIDGETYPE><ROADWAY/></BRIDGETYPE>"
                                       "<EXCLGROUP>1</EXCLGROUP><COMBGROUP>AGR_AU</COMBGROUP>" +
                                       first) +
                                  snow("<ACTIONTYPE>T</ACTIONTYPE><OPERATOR>OR</OPERATOR>"
                                       "<STANDARD><CSN/></STANDARD>" +
                                       later)))
                      .text(),
                  "SNOW: SNOW OR DEFAULT UNDEFINED " + expected + " {CSN} {} 0 0\n")
            << first << later;
    };
    const std::string building = "<CLASSIFICATION>BUILDING</CLASSIFICATION>";
    const std::string bridge = "<CLASSIFICATION>BRIDGE</CLASSIFICATION>";
    expectClassifications(building, bridge, "{BUILDING BRIDGE}"); // adds to the earlier one
    expectClassifications(bridge, bridge, "{BRIDGE}");
    expectClassifications(bridge, "<CLASSIFICATION>any</CLASSIFICATION>", "{}");
    expectClassifications(bridge, "", "{}");
}

// Superposition rules have lists of the same name; theirs is taken when it comes first, for reading
// and for writing. The operator, there an XML attribute, is not seen, and the blocks become an
// attribute without a token.
TEST(AttributeFile, IsTheFirstListAtOrBelowTheRoot)
{
    const std::string attributes = list(snow(""));
    const std::string rules = R"(<INSTRUCTION><STATEATTRIBUTES><DEFAULT_BLOCKS><ANY/>
        </DEFAULT_BLOCKS><ANY NAME="WIND" OPERATOR="OR"/></STATEATTRIBUTES></INSTRUCTION>)";
    const std::string read = "SNOW: " + bare + "\n";
    const std::string ofTheRules = "0: " + bare + "\nWIND: " + bare + "\n";
    EXPECT_EQ(Attributes("<A><B><C>" + attributes + "</C></B></A>").text(), read);
    EXPECT_EQ(Attributes("<SMOD><STATEATTRIBUTES/>" + attributes + "</SMOD>").text(), "");
    EXPECT_EQ(Attributes("<stateattributes>" + snow("") + "</stateattributes>").text(), "");
    EXPECT_EQ(Attributes("<SMOD>" + attributes + rules + "</SMOD>").text(), read);
    EXPECT_EQ(Attributes("<SMOD>" + rules + attributes + "</SMOD>").text(), ofTheRules);

    ZelXmlTree tree;
    support::build(tree, "<SMOD>" + rules + "</SMOD>");
    Attributes(attributes)->output(tree);
    EXPECT_EQ(outline(tree.getRoot()),
              "SMOD(INSTRUCTION(STATEATTRIBUTES(DEFAULT_BLOCKS(ANY) ANY[WIND] "
              "STATEATTRIBUTE[SNOW](ACTIONTYPE=NONE OPERATOR=- " +
                  unrestricted + ")))")
        << "the list that the writer opened at the end stays empty";
    EXPECT_EQ(Attributes(raw(tree)).text(), ofTheRules + read);
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
