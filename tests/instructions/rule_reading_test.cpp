#include <zelstandard/instructions/StateInstructionReader.h>

#include <algorithm>

#include <gtest/gtest.h>

#include <zelstandard/platform/ZelXml.h>

#include "instructions/Rules.h"
#include "support/Context.h"

using namespace Standard;
using support::contents;

namespace
{

const std::string g1 = R"(<E NAME="G1" OPERATOR="AND"/>)";
const std::string g1Or = R"(<E NAME="G1" OPERATOR="OR"/>)";
const std::string v = R"(<E NAME="V" OPERATOR="AND"/>)";
const std::string snow = R"(<E NAME="SNOW" OPERATOR="AND"/>)";

std::string element(const std::string& name, const std::string& content)
{
    return "<" + name + ">" + content + "</" + name + ">";
}

std::string blocks(const std::string& content) { return element("DEFAULT_BLOCKS", content); }

std::string block(const std::string& name, const std::string& content)
{
    return "<B NAME=\"" + name + "\">" + content + "</B>";
}

std::string rule(const std::string& attributes)
{
    return R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING">)" + element("STATEATTRIBUTES", attributes) +
           "</RULE>";
}

class RuleReading : public testing::Test
{
protected:
    /// By a stream and by a tree, into a catalogue of their own each.
    static void expectOfDocument(const char* fact, const std::string& document,
                                 const std::string& expected)
    {
        StateInstructionManager catalogue(nullptr);
        support::read(catalogue, document);
        EXPECT_EQ(contents(catalogue), expected) << fact;

        std::istringstream stream(document);
        ZelXmlTree tree;
        tree.buildOfStream(stream);
        StateInstructionManager fromTree(nullptr);
        fromTree.read(tree);
        EXPECT_EQ(contents(fromTree), expected) << fact;
    }

    static void expect(const char* fact, const std::string& rules, const std::string& expected)
    {
        expectOfDocument(fact, element("STATEINSTRUCTIONS", rules), expected);
    }

    support::FreshContext context_;
};

} // namespace

TEST_F(RuleReading, OfBlocks)
{
    expect("a reference names the NAME of the definition exactly",
           blocks(block("permanent", g1 + v) + element("other", snow)) +
               rule(blocks("<Permanent/><permanen/><other/><B NAME=\"permanent\"/>")) +
               R"(<RULE TYPE="CREEP" TEMPLATE="EC-BRIDGE"><STATEATTRIBUTES>)" +
               blocks("<permanent/>") + "</STATEATTRIBUTES></RULE>",
           "EC-BUILDING RARE: \nEC-BRIDGE CREEP: G1 AND, V AND\n");
    expect("a block defined twice, in one container and in two, adds up; the first mention counts",
           blocks(block("a", g1) + block("b", snow) + block("a", g1Or + v)) +
               blocks(block("a", R"(<E NAME="KS" OPERATOR="OR"/>)")) + rule(blocks("<a/>")),
           "EC-BUILDING RARE: G1 AND, V AND, KS OR\n");
    expect("a reference in front of the definition adds nothing",
           rule(blocks("<a/>") + v) + blocks(block("a", g1)), "EC-BUILDING RARE: V AND\n");
    expect("blocks are pulled in in the order of their references",
           blocks(block("a", g1) + block("b", v + g1Or)) + rule(blocks("<b/><a/>")),
           "EC-BUILDING RARE: V AND, G1 OR\n");
    expect("an own entry in front of a block decides its token's operator",
           blocks(block("a", v + g1)) + rule(g1Or + blocks("<a/>")),
           "EC-BUILDING RARE: G1 OR, V AND\n");
    expect("a block in front of an own entry decides",
           blocks(block("a", g1)) + rule(blocks("<a/>") + g1Or + snow),
           "EC-BUILDING RARE: G1 AND, SNOW AND\n");
    expect("a block pulled in again adds nothing but what it has gained",
           blocks(block("a", g1)) + rule(blocks("<a/><a/>") + blocks("<a/>")) +
               blocks(block("a", v)) + rule(snow + blocks("<a/>")),
           "EC-BUILDING RARE: G1 AND, SNOW AND, V AND\n");
    expect("each instruction pulls in the whole of a block",
           blocks(block("a", g1)) + rule(blocks("<a/>")) + "<RULE TYPE=\"CREEP\">" +
               element("STATEATTRIBUTES", blocks("<a/>")) + "</RULE>",
           "DIN-BUILDING CREEP: G1 AND\nEC-BUILDING RARE: G1 AND\n");
    expect("only an element named exactly DEFAULT_BLOCKS holds blocks",
           R"(<default_blocks TYPE="RARE" TEMPLATE="EC-BUILDING"/>)", "EC-BUILDING RARE: \n");
}

TEST_F(RuleReading, OfInstructions)
{
    expect("two elements of one type and template are one instruction",
           rule(g1 + v) + R"(<RULE TYPE="RARE" TEMPLATE="EC-BRIDGE"/>)" + rule(snow + g1Or),
           "EC-BUILDING RARE: G1 AND, V AND, SNOW AND\nEC-BRIDGE RARE: \n");
    expect("an unknown or missing TYPE is NONE, an unknown or missing TEMPLATE is DIN-BUILDING",
           R"(<RULE TYPE="rare" TEMPLATE="EC-BUILDING"/><RULE TEMPLATE="EC-BRIDGE"/>
              <RULE TYPE="RARE" TEMPLATE="EC_BUILDING"/><RULE TYPE="CREEP"/>)",
           "DIN-BUILDING RARE: \nDIN-BUILDING CREEP: \nEC-BUILDING NONE: \nEC-BRIDGE NONE: \n");
    expect("an unknown or missing OPERATOR is none, which is not NONE",
           rule(R"(<E NAME="G1" OPERATOR="and"/><E NAME="V"/><E NAME="KS" OPERATOR="NONE"/>)"),
           "EC-BUILDING RARE: G1 -, V -, KS NONE\n");
    expect("unknown and missing tokens are one, the undefined token",
           rule(R"(<E NAME="g1" OPERATOR="OR"/><E OPERATOR="AND"/>)" + g1),
           "EC-BUILDING RARE: - OR, G1 AND\n");
    expect("an instruction without STATEATTRIBUTES stays without attributes",
           R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"/>
              <RULE TYPE="CREEP" TEMPLATE="EC-BUILDING">)" +
               g1 + "</RULE>",
           "EC-BUILDING RARE: \nEC-BUILDING CREEP: \n");
    expect("STATEATTRIBUTES may stand deeper, and the first one counts",
           R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><NOTE>)" + element("STATEATTRIBUTES", g1) +
               "</NOTE>" + element("STATEATTRIBUTES", v) + "</RULE>",
           "EC-BUILDING RARE: G1 AND\n");
    expect("an instruction may itself be named STATEATTRIBUTES",
           R"(<STATEATTRIBUTES TYPE="RARE" TEMPLATE="EC-BUILDING">)" + g1 + "</STATEATTRIBUTES>",
           "EC-BUILDING RARE: G1 AND\n");
    expect("entries are children alone; what they hold is passed over, as are comments and text",
           rule("<!-- " + v + R"( --> text <E NAME="G1" OPERATOR="AND">)" + v + "</E>" +
                element("STATEATTRIBUTES", snow)),
           "EC-BUILDING RARE: G1 AND, - -\n");
}

TEST_F(RuleReading, OfDocuments)
{
    const std::string rare = "<STATEINSTRUCTIONS><RULE TYPE=\"RARE\"/></STATEINSTRUCTIONS>";
    expectOfDocument("the first rules count, at any depth",
                     "<A><B>" + rare + "</B>" +
                         element("STATEINSTRUCTIONS", "<RULE TYPE=\"CREEP\"/>") + "</A>",
                     "DIN-BUILDING RARE: \n");
    for (const std::string& document :
         {std::string(), "<SMOD>" + rare, std::string("<SMOD><STATEINSTRUCTION/></SMOD>")})
        expectOfDocument("without rules there is nothing to read", document, "");
}

TEST_F(RuleReading, AddsToTheCatalogueAndLeavesTheBlocksBehind)
{
    StateInstructionManager catalogue(nullptr);
    StateInstruction* rare =
        catalogue.giveStateInstruction(InstructionType::RARE, SuperpositionTemplate::EC_BUILDING);
    catalogue.stateInstructionGiveAttribute(rare, StateAttributeToken::V, Operator::OR);
    rare->setDeletable(true);

    const std::string rules = blocks(block("a", snow)) + rule("<E NAME=\"G1\"/>" + v);
    Standard::StateInstructionReader reader(&catalogue);
    for (const std::string& document : {rules, rule(blocks("<a/>"))}) {
        std::istringstream stream(element("STATEINSTRUCTIONS", document));
        reader.readXml(stream);
    }
    EXPECT_EQ(contents(catalogue), "EC-BUILDING RARE: V OR, G1 -\n");
    EXPECT_FALSE(rare->isDeletable()) << "what a file gives is not deletable";
    EXPECT_EQ(static_cast<int>(rare->getAttributes().at(1)->getOperator()), -1);
}

TEST_F(RuleReading, NoDocumentGrowsBeyondItsOwnSize)
{
    // A block of all tokens, pulled in many times over.
    std::string all;
    for (int token = 0; token <= 130; ++token)
        all += "<E OPERATOR=\"AND\" NAME=\"" +
               XMLUtil::get()->getStringToStateAttrToken(StateAttributeToken{token}) + "\"/>";
    std::string references;
    for (int count = 0; count < 20000; ++count)
        references += "<all/>";
    StateInstructionManager catalogue(nullptr);
    support::read(catalogue, element("STATEINSTRUCTIONS",
                                     blocks(block("all", all)) + rule(blocks(references))));
    const auto* rare =
        catalogue.findStateInstruction(InstructionType::RARE, SuperpositionTemplate::EC_BUILDING);
    EXPECT_EQ(rare->getAttributes().size(), 131U);
}
