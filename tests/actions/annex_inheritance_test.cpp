#include "actions/Catalogue.h"

#include <zelstandard/actions/ActionTypeReader.h>

using Standard::ActionType;
using Standard::ActionTypeManager;
using support::contents;
using support::readCatalogue;
using support::sets;

namespace
{

/// The sets of a type with these annexes.
std::string setsOf(const std::string& annexes)
{
    const ActionTypeManager catalogue =
        readCatalogue("<SMOD><ACTIONTYPES><ACTIONTYPE NAME='SNOW'><ANNEXES>" + annexes +
                      "</ANNEXES></ACTIONTYPE></ACTIONTYPES></SMOD>");
    return sets(*catalogue.findActionType(ActionType::Id::SNOW));
}

struct Case {
    const char* what;
    const char* annexes;
    const char* sets;
};

void expectSets(const std::vector<Case>& cases)
{
    for (const Case& c : cases)
        EXPECT_EQ(setsOf(c.annexes), c.sets) << c.what;
}

} // namespace

TEST(AnnexInheritance, EachValueElementIsReadIntoItsField)
{
    EXPECT_EQ(setsOf(R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING">
        <CrackRed>9</CrackRed> <PSI22>8</PSI22> <PSI21>7</PSI21> <PSI11>6</PSI11> <PSI2>5</PSI2>
        <PSI1>4</PSI1> <PSI0>3</PSI0> <GAMMA_INF>2</GAMMA_INF> <GAMMA_SUP>1</GAMMA_SUP>
        </CLASSIFICATION></ANNEX>)"),
              "EC BUILDING 1 2 3 4 5 6 7 8 9\n");
}

TEST(AnnexInheritance, AnAnnexStartsFromTheEcSetsReadSoFar)
{
    expectSets({
        {"an annex with only a DEFAULT",
         R"(<ANNEX NAME="EC">
              <CLASSIFICATION NAME="BUILDING"> <GAMMA_SUP>1.5</GAMMA_SUP> <PSI0>0.7</PSI0> </CLASSIFICATION>
              <CLASSIFICATION NAME="ROADWAY"> <GAMMA_SUP>1.35</GAMMA_SUP> <PSI2>0.2</PSI2> </CLASSIFICATION>
            </ANNEX>
            <ANNEX NAME="DIN-2008"> <CLASSIFICATION NAME="DEFAULT"> <PSI0>0.5</PSI0> </CLASSIFICATION> </ANNEX>)",                                                                                             "EC BUILDING 1.5 0 0.7 0 0 0 0 0 1\n"
         "EC ROADWAY 1.35 0 0 0 0.2 0 0 0 1\n"
         "DIN-2008 BUILDING 1.5 0 0.5 0 0 0 0 0 1\n"
         "DIN-2008 ROADWAY 1.35 0 0.5 0 0.2 0 0 0 1\n"},
        {"an annex without anything",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="RAILWAY3"> <PSI1>0.8</PSI1> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="SIA"/>)",
         "EC RAILWAY3 0 0 0 0.8 0 0 0 0 1\n"
         "SIA RAILWAY3 0 0 0 0.8 0 0 0 0 1\n"                                       },
        {"a named set changes its own values only, and a new one starts from zero",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.7</PSI0> <PSI1>0.5</PSI1> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="BS">
              <CLASSIFICATION NAME="BUILDING"> <PSI0>0.6</PSI0> </CLASSIFICATION>
              <CLASSIFICATION NAME="ROADWAY"> <PSI0>0.4</PSI0> </CLASSIFICATION>
            </ANNEX>)",
         "EC BUILDING 0 0 0.7 0.5 0 0 0 0 1\n"
         "BS BUILDING 0 0 0.6 0.5 0 0 0 0 1\n"
         "BS ROADWAY 0 0 0.4 0 0 0 0 0 1\n"                                         },
        {"an annex before EC has nothing to start from",
         R"(<ANNEX NAME="BS"> <CLASSIFICATION NAME="DEFAULT"> <PSI0>0.5</PSI0> </CLASSIFICATION> </ANNEX>
            <ANNEX NAME="CSN"> <CLASSIFICATION NAME="ROADWAY"> <PSI0>0.4</PSI0> </CLASSIFICATION> </ANNEX>
            <ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.7</PSI0> </CLASSIFICATION></ANNEX>)",
         "EC BUILDING 0 0 0.7 0 0 0 0 0 1\n"
         "CSN ROADWAY 0 0 0.4 0 0 0 0 0 1\n"                                        },
        {"an annex between two of EC has the sets of the first",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.7</PSI0> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="BS"/>
            <ANNEX NAME="EC"><CLASSIFICATION NAME="ROADWAY"> <PSI0>0.4</PSI0> </CLASSIFICATION></ANNEX>)",
         "EC BUILDING 0 0 0.7 0 0 0 0 0 1\n"
         "EC ROADWAY 0 0 0.4 0 0 0 0 0 1\n"
         "BS BUILDING 0 0 0.7 0 0 0 0 0 1\n"                                        },
        {"a second annex of a code starts from EC again",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.7</PSI0> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="BS"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.6</PSI0> <PSI1>0.5</PSI1> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="BS"><CLASSIFICATION NAME="BUILDING"> <PSI2>0.2</PSI2> </CLASSIFICATION></ANNEX>)",
         "EC BUILDING 0 0 0.7 0 0 0 0 0 1\n"
         "BS BUILDING 0 0 0.7 0 0.2 0 0 0 1\n"                                      },
        {"a second annex of EC goes on with the sets of the first",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.7</PSI0> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI2>0.2</PSI2> </CLASSIFICATION></ANNEX>)",
         "EC BUILDING 0 0 0.7 0 0.2 0 0 0 1\n"                                      },
    });
}

TEST(AnnexInheritance, DefaultsReachWhatFollowsThemAndOutsideEcWhatThereIs)
{
    expectSets({
        {"a DEFAULT of EC reaches only the named sets behind it",
         R"(<ANNEX NAME="EC">
              <CLASSIFICATION NAME="BUILDING"/>
              <CLASSIFICATION NAME="DEFAULT"> <PSI0>0.5</PSI0> </CLASSIFICATION>
              <CLASSIFICATION NAME="ROADWAY"/>
              <CLASSIFICATION NAME="RAILWAY1"> <PSI0>0.8</PSI0> </CLASSIFICATION>
            </ANNEX>)",                                                                                             "EC BUILDING 0 0 0 0 0 0 0 0 1\n"
         "EC ROADWAY 0 0 0.5 0 0 0 0 0 1\n"
         "EC RAILWAY1 0 0 0.8 0 0 0 0 0 1\n"                                                                                      },
        {"a DEFAULT behind a named set overrides it",
         R"(<ANNEX NAME="BS">
              <CLASSIFICATION NAME="BUILDING"> <PSI0>0.7</PSI0> <PSI1>0.6</PSI1> </CLASSIFICATION>
              <CLASSIFICATION NAME="DEFAULT"> <PSI0>0.5</PSI0> </CLASSIFICATION>
            </ANNEX>)",                                                                                             "BS BUILDING 0 0 0.5 0.6 0 0 0 0 1\n"},
        {"several DEFAULTs add up",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI2>0.2</PSI2> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="BS">
              <CLASSIFICATION NAME="DEFAULT"> <PSI0>0.5</PSI0> <PSI1>0.1</PSI1> </CLASSIFICATION>
              <CLASSIFICATION NAME="ROADWAY"/>
              <CLASSIFICATION NAME="DEFAULT"> <PSI1>0.4</PSI1> </CLASSIFICATION>
              <CLASSIFICATION NAME="RAILWAY1"/>
            </ANNEX>)",
         "EC BUILDING 0 0 0 0 0.2 0 0 0 1\n"
         "BS BUILDING 0 0 0.5 0.4 0.2 0 0 0 1\n"
         "BS ROADWAY 0 0 0.5 0.4 0 0 0 0 1\n"
         "BS RAILWAY1 0 0 0.5 0.4 0 0 0 0 1\n"                                                                                                                  },
        {"the DEFAULTs of an annex end with it",
         R"(<ANNEX NAME="EC">
              <CLASSIFICATION NAME="DEFAULT"> <PSI0>0.5</PSI0> </CLASSIFICATION>
              <CLASSIFICATION NAME="BUILDING"/>
            </ANNEX>
            <ANNEX NAME="BS"><CLASSIFICATION NAME="ROADWAY"/></ANNEX>)",                                                                                             "EC BUILDING 0 0 0.5 0 0 0 0 0 1\n"
         "BS BUILDING 0 0 0.5 0 0 0 0 0 1\n"
         "BS ROADWAY 0 0 0 0 0 0 0 0 1\n"                                                                                         },
        {"a DEFAULT may give zero but nothing below it",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.7</PSI0> <PSI1>0.5</PSI1> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="BS"><CLASSIFICATION NAME="DEFAULT"> <PSI0>0</PSI0> <PSI1>-0.1</PSI1> </CLASSIFICATION></ANNEX>)",
         "EC BUILDING 0 0 0.7 0.5 0 0 0 0 1\n"
         "BS BUILDING 0 0 0 0.5 0 0 0 0 1\n"                                                                                                                    },
        {"DEFAULT is a word of its own: in lower case it is an unknown structure",
         R"(<ANNEX NAME="EC"><CLASSIFICATION NAME="default"> <PSI0>0.7</PSI0> </CLASSIFICATION></ANNEX>)",
         "EC 0 0 0 0.7 0 0 0 0 0 1\n"                                                                                                                           },
    });
}

TEST(AnnexInheritance, ANamedSetTakesCrackReductionOneUnlessGivenAnother)
{
    const std::string ec = R"(<ANNEX NAME="EC">
        <CLASSIFICATION NAME="BUILDING"> <CrackRed>0.8</CrackRed> </CLASSIFICATION>
        <CLASSIFICATION NAME="ROADWAY"> <CrackRed>0.7</CrackRed> </CLASSIFICATION></ANNEX>)";
    const std::string ecSets = "EC BUILDING 0 0 0 0 0 0 0 0 0.8\nEC ROADWAY 0 0 0 0 0 0 0 0 0.7\n";
    const std::vector<Case> annexes = {
        {"named without a value",                 R"(<CLASSIFICATION NAME="BUILDING"/>)",
         "BS BUILDING 0 0 0 0 0 0 0 0 1\nBS ROADWAY 0 0 0 0 0 0 0 0 0.7\n"                                                                                    },
        {"named with its own value",
         R"(<CLASSIFICATION NAME="BUILDING"> <CrackRed>0.6</CrackRed> </CLASSIFICATION>)", "BS BUILDING 0 0 0 0 0 0 0 0 0.6\nBS ROADWAY 0 0 0 0 0 0 0 0 0.7\n"},
        {"given by a DEFAULT",
         R"(<CLASSIFICATION NAME="DEFAULT"> <CrackRed>0.5</CrackRed> </CLASSIFICATION>
            <CLASSIFICATION NAME="BUILDING"/>)",    "BS BUILDING 0 0 0 0 0 0 0 0 0.5\nBS ROADWAY 0 0 0 0 0 0 0 0 0.5\n"},
        {"a DEFAULT without the value gives 1.0", R"(<CLASSIFICATION NAME="DEFAULT"/>)",
         "BS BUILDING 0 0 0 0 0 0 0 0 1\nBS ROADWAY 0 0 0 0 0 0 0 0 1\n"                                                                                      },
        {"a DEFAULT below zero gives none",
         R"(<CLASSIFICATION NAME="DEFAULT"> <CrackRed>-1</CrackRed> </CLASSIFICATION>
            <CLASSIFICATION NAME="BUILDING"/>)",     "BS BUILDING 0 0 0 0 0 0 0 0 0.8\nBS ROADWAY 0 0 0 0 0 0 0 0 0.7\n"},
        {"nothing named",                         "",                                      "BS BUILDING 0 0 0 0 0 0 0 0 0.8\nBS ROADWAY 0 0 0 0 0 0 0 0 0.7\n"},
    };
    for (const Case& c : annexes)
        EXPECT_EQ(setsOf(ec + "<ANNEX NAME='BS'>" + c.annexes + "</ANNEX>"), ecSets + c.sets)
            << c.what;
}

TEST(AnnexInheritance, UnknownWordsStandForNothing)
{
    const ActionTypeManager catalogue = readCatalogue(R"(<SMOD><ACTIONTYPES>
        <ACTIONTYPE NAME="snow">
          <ACTIONGROUP>snow</ACTIONGROUP> <LOADDURATION>shortterm</LOADDURATION>
          <ANNEXES>
            <ANNEX NAME="EC">
              <CLASSIFICATION NAME="building"> <PSI0>0.1</PSI0> </CLASSIFICATION>
              <CLASSIFICATION> <PSI1>0.2</PSI1> </CLASSIFICATION>
              <CLASSIFICATION NAME="BRIDGE"> <PSI2>0.3</PSI2> </CLASSIFICATION>
              <CLASSIFICATION NAME="FOOTBRIDGE2"> <PSI0>0.4</PSI0> </CLASSIFICATION>
            </ANNEX>
            <ANNEX NAME="EC "/>
          </ANNEXES>
        </ACTIONTYPE>
        <ACTIONTYPE/>
        <ACTIONTYPE NAME="SNOW"> <ACTIONGROUP/> <LOADDURATION/> </ACTIONTYPE>
        </ACTIONTYPES></SMOD>)");
    EXPECT_EQ(contents(catalogue), "NONE, group NONE, PERMANENT\n"
                                   "- 0 0 0 0.1 0.2 0.3 0 0 0 1\n"
                                   "- FOOTBRIDGE1 0 0 0.4 0 0 0 0 0 1\n"
                                   "EC 0 0 0 0.1 0.2 0.3 0 0 0 1\n"
                                   "EC FOOTBRIDGE1 0 0 0.4 0 0 0 0 0 1\n"
                                   "NONE, group NONE, MEDIUMTERM\n"
                                   "SNOW, group NONE, PERMANENT\n");
}

TEST(AnnexInheritance, WhatIsMissingIsSkipped)
{
    const ActionTypeManager catalogue = readCatalogue(R"(<SMOD><ACTIONTYPES>
        <ACTIONTYPE NAME="SNOW"/>
        <ACTIONTYPE NAME="T"> <ACTIONGROUP>T</ACTIONGROUP> </ACTIONTYPE>
        <ACTIONTYPE NAME="E"> <LOADDURATION>INSTANTANEOUS</LOADDURATION> <ANNEXES/> </ACTIONTYPE>
        <ACTIONTYPE NAME="P"> <DEEPER> <ACTIONGROUP>P</ACTIONGROUP> </DEEPER> </ACTIONTYPE>
        </ACTIONTYPES></SMOD>)");
    EXPECT_EQ(contents(catalogue), "SNOW, group NONE, MEDIUMTERM\n"
                                   "T, group T, MEDIUMTERM\n"
                                   "E, group NONE, INSTANTANEOUS\n"
                                   "P, group NONE, MEDIUMTERM\n");
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::SNOW)->getActionGroup(), nullptr);
}

TEST(AnnexInheritance, OnlyWholeNumbersOfTextAreValues)
{
    const auto psi0 = [](const std::string& value) {
        const ActionTypeManager catalogue =
            readCatalogue("<ACTIONTYPES><ACTIONTYPE NAME='SNOW'><ANNEXES><ANNEX NAME='EC'>"
                          "<CLASSIFICATION NAME='DEFAULT'><PSI0>0.75</PSI0></CLASSIFICATION>"
                          "<CLASSIFICATION NAME='BUILDING'>" +
                          value + "</CLASSIFICATION></ANNEX></ANNEXES></ACTIONTYPE></ACTIONTYPES>");
        return catalogue.findActionType(ActionType::Id::SNOW)
            ->getFactors(Standard::Mode::EC, Standard::Classification::BUILDING,
                         Standard::BridgeType::ROADWAY)
            ->getPsi0();
    };
    EXPECT_EQ(psi0("<PSI0> +0.5\n</PSI0>"), 0.5);
    EXPECT_EQ(psi0("<PSI0>5e-1</PSI0>"), 0.5);
    EXPECT_EQ(psi0("<PSI0>-0.5</PSI0>"), -0.5) << "a named set takes what is written";
    EXPECT_EQ(psi0("<PSI0>0.5</PSI0><PSI0>0.6</PSI0>"), 0.5) << "the first counts";
    for (const char* unchanged :
         {"", "<PSI0/>", "<PSI0>0,5</PSI0>", "<PSI0>0.5 m</PSI0>", "<PSI0>nan</PSI0>",
          "<PSI0>inf</PSI0>", "<PSI0>0x1</PSI0>", "<PSI0>1e999</PSI0>", "<psi0>0.5</psi0>",
          "<X><PSI0>1</PSI0></X>"})
        EXPECT_EQ(psi0(unchanged), 0.75) << unchanged;
}

TEST(AnnexInheritance, ATypeThatOccursTwiceIsTwoEntries)
{
    const ActionTypeManager catalogue = readCatalogue(R"(<SMOD><ACTIONTYPES>
        <ACTIONTYPE NAME="SNOW"> <LOADDURATION>LONGTERM</LOADDURATION> </ACTIONTYPE>
        <ACTIONTYPE NAME="SNOW"> <LOADDURATION>SHORTTERM</LOADDURATION> </ACTIONTYPE>
        </ACTIONTYPES></SMOD>)");
    EXPECT_EQ(contents(catalogue), "SNOW, group NONE, LONGTERM\n"
                                   "SNOW, group NONE, SHORTTERM\n");
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::SNOW), catalogue.getActionTypes().front());
}

TEST(AnnexInheritance, ElementsGoByTheirAttributeWhateverTheyAreCalled)
{
    const std::string expected = "SNOW, group NONE, MEDIUMTERM\n"
                                 "EC BUILDING 0 0 0.5 0 0 0 0 0 1\n"
                                 "BS BUILDING 0 0 0.5 0 0 0 0 0 1\n";
    const std::string types = R"(<ACTIONTYPES><KIND NAME="SNOW"><MORE><ANNEXES>
        <!-- no element --><CODE NAME="EC"><CASE NAME="BUILDING"><PSI0>0.5</PSI0></CASE></CODE>
        <OTHER NAME="BS"/></ANNEXES></MORE></KIND></ACTIONTYPES>)";
    for (const std::string& document :
         {types, "<SMOD>" + types + "</SMOD>", "<X><SMOD/><Y><Z>" + types + "</Z></Y></X>"})
        EXPECT_EQ(contents(readCatalogue(document)), expected) << document;

    EXPECT_EQ(contents(readCatalogue(
                  "<SMOD><actiontypes><ACTIONTYPE NAME='SNOW'/></actiontypes></SMOD>")),
              "");
}

TEST(AnnexInheritance, OfNestedActionTypesTheOuterOnesAreRead)
{
    // The inner ACTIONTYPES is a type without a name, to which the annexes found in it belong.
    const ActionTypeManager nested = readCatalogue(R"(<SMOD><ACTIONTYPES>
        <ACTIONTYPE NAME="SNOW"/>
        <ACTIONTYPES><ACTIONTYPE NAME="T"><ANNEXES>
          <ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"/></ANNEX>
        </ANNEXES></ACTIONTYPE></ACTIONTYPES>
        </ACTIONTYPES></SMOD>)");
    EXPECT_EQ(contents(nested), "SNOW, group NONE, MEDIUMTERM\n"
                                "NONE, group NONE, MEDIUMTERM\n"
                                "EC BUILDING 0 0 0 0 0 0 0 0 1\n");

    const ActionTypeManager twice = readCatalogue(R"(<SMOD>
        <A><ACTIONTYPES><ACTIONTYPE NAME="T"/></ACTIONTYPES></A>
        <ACTIONTYPES><ACTIONTYPE NAME="SNOW"/></ACTIONTYPES></SMOD>)");
    EXPECT_EQ(contents(twice), "T, group NONE, MEDIUMTERM\n") << "the first in document order";
}

TEST(AnnexInheritance, AReaderAddsToWhatIsThere)
{
    ActionTypeManager catalogue =
        readCatalogue("<ACTIONTYPES><ACTIONTYPE NAME='T'/></ACTIONTYPES>");
    std::istringstream document("<ACTIONTYPES><ACTIONTYPE NAME='SNOW'/></ACTIONTYPES>");
    Standard::ActionTypeReader(&catalogue).readXml(document);
    EXPECT_EQ(contents(catalogue), "T, group NONE, MEDIUMTERM\nSNOW, group NONE, MEDIUMTERM\n");
}
