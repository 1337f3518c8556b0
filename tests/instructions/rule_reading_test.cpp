#include <zelstandard/instructions/StateInstructionReader.h>

#include <algorithm>
#include <chrono>

#include <gtest/gtest.h>

#include <zelstandard/platform/ZelXml.h>

#include "instructions/Rules.h"
#include "support/Context.h"

using namespace Standard;
using support::contents;

namespace
{

struct Case {
    const char* fact;
    const char* rules; ///< what STATEINSTRUCTIONS holds
    const char* expected;
};

constexpr Case blocks[] = {
    {"a block is defined by its NAME and pulled in by an element of that name",
     R"(<DEFAULT_BLOCKS>
          <BLOCK NAME="permanent"><E NAME="G1" OPERATOR="AND"/><E NAME="V" OPERATOR="OR"/></BLOCK>
        </DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><permanent/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",                                                                       "EC-BUILDING RARE: G1 AND, V OR\n"                  },
    {"neither the name of the definition nor the NAME of the reference counts",
     R"(<DEFAULT_BLOCKS><permanent><E NAME="G1" OPERATOR="AND"/></permanent></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><permanent/><BLOCK NAME="permanent"/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",  "EC-BUILDING RARE: \n"                              },
    {"names of blocks are compared exactly",
     R"(<DEFAULT_BLOCKS><B NAME="permanent"><E NAME="G1" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><Permanent/><permanen/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)", "EC-BUILDING RARE: \n"                              },
    {"a block defined twice, in one container and in two, adds up",
     R"(<DEFAULT_BLOCKS>
          <B NAME="a"><E NAME="G1" OPERATOR="AND"/></B>
          <B NAME="b"><E NAME="SNOW" OPERATOR="AND"/></B>
          <B NAME="a"><E NAME="V" OPERATOR="AND"/></B>
        </DEFAULT_BLOCKS>
        <DEFAULT_BLOCKS><B NAME="a"><E NAME="KS" OPERATOR="OR"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",                                                                       "EC-BUILDING RARE: G1 AND, V AND, KS OR\n"          },
    {"a block keeps the first mention of a token",
     R"(<DEFAULT_BLOCKS>
          <B NAME="a"><E NAME="G1" OPERATOR="AND"/><E NAME="V" OPERATOR="AND"/></B>
          <B NAME="a"><E NAME="G1" OPERATOR="OR"/></B>
        </DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",                                                                       "EC-BUILDING RARE: G1 AND, V AND\n"                 },
    {"a reference in front of the definition adds nothing, one behind it does",
     R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>
        <DEFAULT_BLOCKS><B NAME="a"><E NAME="G1" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="CREEP" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",                             "EC-BUILDING RARE: \nEC-BUILDING CREEP: G1 AND\n"   },
    {"blocks are pulled in in the order of their references",
     R"(<DEFAULT_BLOCKS>
          <B NAME="a"><E NAME="G1" OPERATOR="AND"/></B>
          <B NAME="b"><E NAME="V" OPERATOR="AND"/><E NAME="G1" OPERATOR="OR"/></B>
        </DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><b/><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",                                                                       "EC-BUILDING RARE: V AND, G1 OR\n"                  },
    {"an own entry in front of a block decides its token's operator",
     R"(<DEFAULT_BLOCKS><B NAME="a">
          <E NAME="V" OPERATOR="AND"/><E NAME="G1" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <STATEATTRIBUTE NAME="G1" OPERATOR="OR"/><DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",                                                           "EC-BUILDING RARE: G1 OR, V AND\n"                  },
    {"a block in front of an own entry decides",
     R"(<DEFAULT_BLOCKS><B NAME="a"><E NAME="G1" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS><STATEATTRIBUTE NAME="G1" OPERATOR="OR"/>
          <STATEATTRIBUTE NAME="SNOW" OPERATOR="AND"/>
        </STATEATTRIBUTES></RULE>)",         "EC-BUILDING RARE: G1 AND, SNOW AND\n"              },
    {"a block pulled in again adds nothing but what it has gained",
     R"(<DEFAULT_BLOCKS><B NAME="a"><E NAME="G1" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/><a/></DEFAULT_BLOCKS><DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>
        <DEFAULT_BLOCKS><B NAME="a"><E NAME="V" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <STATEATTRIBUTE NAME="SNOW" OPERATOR="AND"/><DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>
        </STATEATTRIBUTES></RULE>)",         "EC-BUILDING RARE: G1 AND, SNOW AND, V AND\n"       },
    {"each instruction pulls in the whole of a block",
     R"(<DEFAULT_BLOCKS><B NAME="a"><E NAME="G1" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS></STATEATTRIBUTES></RULE>
        <RULE TYPE="RARE" TEMPLATE="EC-BRIDGE"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS></STATEATTRIBUTES></RULE>)",         "EC-BUILDING RARE: G1 AND\nEC-BRIDGE RARE: G1 AND\n"},
};

constexpr Case instructions[] = {
    {"two elements of one type and template are one instruction",
     R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <E NAME="G1" OPERATOR="AND"/><E NAME="V" OPERATOR="AND"/></STATEATTRIBUTES></RULE>
        <RULE TYPE="RARE" TEMPLATE="EC-BRIDGE"><STATEATTRIBUTES/></RULE>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <E NAME="SNOW" OPERATOR="AND"/><E NAME="G1" OPERATOR="OR"/></STATEATTRIBUTES></RULE>)",         "EC-BUILDING RARE: G1 AND, V AND, SNOW AND\nEC-BRIDGE RARE: \n"},
    {"an unknown or missing TYPE is NONE",
     R"(<RULE TYPE="rare" TEMPLATE="EC-BUILDING">
          <STATEATTRIBUTES><E NAME="G1" OPERATOR="AND"/></STATEATTRIBUTES></RULE>
        <RULE TEMPLATE="EC-BUILDING">
          <STATEATTRIBUTES><E NAME="V" OPERATOR="AND"/></STATEATTRIBUTES></RULE>)",                          "EC-BUILDING NONE: G1 AND, V AND\n"                            },
    {"an unknown or missing TEMPLATE is DIN-BUILDING",
     R"(<RULE TYPE="RARE" TEMPLATE="EC_BUILDING"><STATEATTRIBUTES/></RULE>
        <RULE TYPE="CREEP"><STATEATTRIBUTES/></RULE>)", "DIN-BUILDING RARE: \nDIN-BUILDING CREEP: \n"                  },
    {"an unknown or missing OPERATOR is none, which is not NONE",
     R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <E NAME="G1" OPERATOR="and"/><E NAME="V"/><E NAME="KS" OPERATOR="NONE"/>
        </STATEATTRIBUTES></RULE>)",         "EC-BUILDING RARE: G1 -, V -, KS NONE\n"                       },
    {"unknown and missing tokens are one, the undefined token",
     R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <E NAME="g1" OPERATOR="OR"/><E OPERATOR="AND"/><E NAME="G1" OPERATOR="AND"/>
        </STATEATTRIBUTES></RULE>)",         "EC-BUILDING RARE: - OR, G1 AND\n"                             },
    {"an instruction without STATEATTRIBUTES stays without attributes",
     R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"/>
        <RULE TYPE="CREEP" TEMPLATE="EC-BUILDING"><E NAME="G1" OPERATOR="AND"/></RULE>)",                         "EC-BUILDING RARE: \nEC-BUILDING CREEP: \n"                    },
    {"STATEATTRIBUTES may stand deeper, and the first one counts",
     R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING">
          <NOTE><STATEATTRIBUTES><E NAME="G1" OPERATOR="AND"/></STATEATTRIBUTES></NOTE>
          <STATEATTRIBUTES><E NAME="V" OPERATOR="AND"/></STATEATTRIBUTES></RULE>)",                          "EC-BUILDING RARE: G1 AND\n"                                   },
    {"an instruction may itself be named STATEATTRIBUTES",
     R"(<STATEATTRIBUTES TYPE="RARE" TEMPLATE="EC-BUILDING">
          <E NAME="G1" OPERATOR="AND"/></STATEATTRIBUTES>)",               "EC-BUILDING RARE: G1 AND\n"                                   },
    {"entries are children alone; what they hold is passed over",
     R"(<RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <E NAME="G1" OPERATOR="AND"><E NAME="V" OPERATOR="AND"/></E>
          <STATEATTRIBUTES><E NAME="SNOW" OPERATOR="AND"/></STATEATTRIBUTES>
        </STATEATTRIBUTES></RULE>)",         "EC-BUILDING RARE: G1 AND, - -\n"                              },
    {"only an element named exactly DEFAULT_BLOCKS holds blocks",
     R"(<default_blocks TYPE="RARE" TEMPLATE="EC-BUILDING">
          <B NAME="a"><E NAME="G1" OPERATOR="AND"/></B></default_blocks>)",                "EC-BUILDING RARE: \n"                                         },
    {"comments and text are passed over",
     R"(<!-- <RULE TYPE="CREEP" TEMPLATE="EC-BUILDING"/> --> text
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <!-- variable --> text <E NAME="G1" OPERATOR="AND"/></STATEATTRIBUTES></RULE>)",          "EC-BUILDING RARE: G1 AND\n"                                   },
};

/// Documents as a whole.
constexpr Case documents[] = {
    {"the rules are found at any depth",
     R"(<A><B><STATEINSTRUCTIONS><RULE TYPE="RARE"/></STATEINSTRUCTIONS></B></A>)",                                        "DIN-BUILDING RARE: \n"},
    {"the rules may be the root",                         R"(<STATEINSTRUCTIONS><RULE TYPE="RARE"/></STATEINSTRUCTIONS>)",
     "DIN-BUILDING RARE: \n"                                                                                                                      },
    {"only the first rules count",
     R"(<A><STATEINSTRUCTIONS><RULE TYPE="RARE"/></STATEINSTRUCTIONS>
           <STATEINSTRUCTIONS><RULE TYPE="CREEP"/></STATEINSTRUCTIONS></A>)",                                                     "DIN-BUILDING RARE: \n"},
    {"without rules there is nothing to read",
     R"(<SMOD><STATEINSTRUCTION TYPE="RARE" TEMPLATE="EC-BUILDING"/></SMOD>)",                                             ""                     },
    {"a document that is not well formed gives no rules",
     R"(<SMOD><STATEINSTRUCTIONS><RULE TYPE="RARE"/></STATEINSTRUCTIONS>)",                                                ""                     },
    {"an empty document gives no rules",                  "",                                                              ""                     },
};

class RuleReading : public testing::Test
{
protected:
    /// By a stream and by a tree, into a catalogue of their own each.
    static void expect(const char* fact, const std::string& document, const char* expected)
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

    support::FreshContext context_;
};

} // namespace

TEST_F(RuleReading, OfBlocks)
{
    for (const Case& c : blocks)
        expect(c.fact, std::string("<STATEINSTRUCTIONS>") + c.rules + "</STATEINSTRUCTIONS>",
               c.expected);
}

TEST_F(RuleReading, OfInstructions)
{
    for (const Case& c : instructions)
        expect(c.fact, std::string("<STATEINSTRUCTIONS>") + c.rules + "</STATEINSTRUCTIONS>",
               c.expected);
}

TEST_F(RuleReading, OfDocuments)
{
    for (const Case& c : documents)
        expect(c.fact, c.rules, c.expected);
}

TEST_F(RuleReading, AnOperatorThatIsNoneIsStoredAsMinusOne)
{
    StateInstructionManager catalogue(nullptr);
    support::read(catalogue, R"(<STATEINSTRUCTIONS><RULE TYPE="RARE" TEMPLATE="EC-BUILDING">
        <STATEATTRIBUTES><E NAME="G1" OPERATOR="?"/></STATEATTRIBUTES>
      </RULE></STATEINSTRUCTIONS>)");
    const auto* rare =
        catalogue.findStateInstruction(InstructionType::RARE, SuperpositionTemplate::EC_BUILDING);
    ASSERT_NE(rare, nullptr);
    ASSERT_EQ(rare->getAttributes().size(), 1U);
    EXPECT_EQ(static_cast<int>(rare->getAttributes()[0]->getOperator()), -1);
}

TEST_F(RuleReading, AddsToTheCatalogueAndLeavesTheBlocksBehind)
{
    StateInstructionManager catalogue(nullptr);
    StateInstruction* rare =
        catalogue.giveStateInstruction(InstructionType::RARE, SuperpositionTemplate::EC_BUILDING);
    catalogue.stateInstructionGiveAttribute(rare, StateAttributeToken::V, Operator::OR);
    rare->setDeletable(true);

    support::read(catalogue, R"(<STATEINSTRUCTIONS>
        <DEFAULT_BLOCKS><B NAME="a"><E NAME="KS" OPERATOR="AND"/></B></DEFAULT_BLOCKS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <E NAME="G1" OPERATOR="AND"/><E NAME="V" OPERATOR="AND"/></STATEATTRIBUTES></RULE>
      </STATEINSTRUCTIONS>)");
    EXPECT_EQ(contents(catalogue), "EC-BUILDING RARE: V OR, G1 AND\n");
    EXPECT_FALSE(rare->isDeletable()) << "what a file gives is not deletable";

    support::read(catalogue, R"(<STATEINSTRUCTIONS>
        <RULE TYPE="RARE" TEMPLATE="EC-BUILDING"><STATEATTRIBUTES>
          <DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS></STATEATTRIBUTES></RULE>
      </STATEINSTRUCTIONS>)");
    EXPECT_EQ(contents(catalogue), "EC-BUILDING RARE: V OR, G1 AND\n");
}

TEST_F(RuleReading, NoDocumentGrowsBeyondItsOwnSize)
{
    // A block of all tokens, pulled in many times over; for comparison one that does not exist.
    std::string block;
    for (int token = 0; token <= 130; ++token)
        block += "<E OPERATOR=\"AND\" NAME=\"" +
                 XMLUtil::get()->getStringToStateAttrToken(StateAttributeToken{token}) + "\"/>";
    const auto documentWith = [&](const std::string& reference) {
        std::string references;
        for (int count = 0; count < 20000; ++count)
            references += reference;
        return "<STATEINSTRUCTIONS><DEFAULT_BLOCKS><B NAME=\"all\">" + block +
               "</B></DEFAULT_BLOCKS><RULE TYPE=\"RARE\"><STATEATTRIBUTES><DEFAULT_BLOCKS>" +
               references + "</DEFAULT_BLOCKS></STATEATTRIBUTES></RULE></STATEINSTRUCTIONS>";
    };
    // The shortest of a few readings, so that other work on the machine does not count.
    const auto timeOf = [](const std::string& document, std::size_t attributes) {
        using Clock = std::chrono::steady_clock;
        auto shortest = Clock::duration::max();
        for (int count = 0; count < 5; ++count) {
            StateInstructionManager catalogue(nullptr);
            const auto start = Clock::now();
            support::read(catalogue, document);
            shortest = std::min(shortest, Clock::now() - start);
            const auto* rare = catalogue.findStateInstruction(InstructionType::RARE,
                                                              SuperpositionTemplate::DIN_BUILDING);
            EXPECT_EQ(rare->getAttributes().size(), attributes);
        }
        return shortest;
    };
    const auto harmless = timeOf(documentWith("<nil/>"), 0);
    EXPECT_LT(timeOf(documentWith("<all/>"), 131), 4 * harmless);
}
