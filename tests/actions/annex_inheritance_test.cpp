#include "actions/Catalogue.h"

#include <zelstandard/actions/ActionTypeReader.h>

using Standard::ActionType;
using Standard::ActionTypeManager;
using support::contents;
using support::readCatalogue;

namespace
{

std::string annex(const std::string& name, const std::string& content)
{
    return "<ANNEX NAME='" + name + "'>" + content + "</ANNEX>";
}

std::string set(const std::string& name, const std::string& values = "")
{
    return "<CLASSIFICATION NAME='" + name + "'>" + values + "</CLASSIFICATION>";
}

std::string psi0(const std::string& value) { return "<PSI0>" + value + "</PSI0>"; }
std::string psi1(const std::string& value) { return "<PSI1>" + value + "</PSI1>"; }
std::string crackRed(const std::string& value) { return "<CrackRed>" + value + "</CrackRed>"; }

/// The sets of a type with these annexes.
std::string setsOf(const std::string& annexes)
{
    const ActionTypeManager catalogue =
        readCatalogue("<SMOD><ACTIONTYPES><ACTIONTYPE NAME='SNOW'><ANNEXES>" + annexes +
                      "</ANNEXES></ACTIONTYPE></ACTIONTYPES></SMOD>");
    return support::sets(*catalogue.findActionType(ActionType::Id::SNOW));
}

const std::string ec = annex("EC", set("BUILDING", psi0("0.7") + psi1("0.5")));
const std::string ecSet = "EC BUILDING 0 0 0.7 0.5 0 0 0 0 1\n";

} // namespace

TEST(AnnexInheritance, AnAnnexStartsFromTheEcSetsReadSoFar)
{
    EXPECT_EQ(setsOf(ec + annex("SIA", "")), ecSet + "SIA BUILDING 0 0 0.7 0.5 0 0 0 0 1\n");
    EXPECT_EQ(setsOf(ec + annex("BS", set("DEFAULT", psi0("0.4")))),
              ecSet + "BS BUILDING 0 0 0.4 0.5 0 0 0 0 1\n")
        << "an annex with only a DEFAULT";
    EXPECT_EQ(setsOf(ec + annex("BS", set("BUILDING", psi0("0.6")) + set("ROADWAY", psi0("0.4")))),
              ecSet + "BS BUILDING 0 0 0.6 0.5 0 0 0 0 1\n"
                      "BS ROADWAY 0 0 0.4 0 0 0 0 0 1\n")
        << "a named set changes its own values only, and a new one starts from zero";
    EXPECT_EQ(setsOf(annex("BS", set("DEFAULT", psi0("0.5"))) +
                     annex("CSN", set("ROADWAY", psi0("0.4"))) + ec),
              ecSet + "CSN ROADWAY 0 0 0.4 0 0 0 0 0 1\n")
        << "an annex before EC has nothing to start from";
    EXPECT_EQ(setsOf(ec + annex("BS", "") + annex("EC", set("BUILDING", psi0("0.6")))),
              "EC BUILDING 0 0 0.6 0.5 0 0 0 0 1\n"
              "BS BUILDING 0 0 0.7 0.5 0 0 0 0 1\n")
        << "a second annex of EC goes on with the sets of the first, and one between has those";
    EXPECT_EQ(setsOf(ec + annex("BS", set("BUILDING", psi0("0.6") + "<PSI2>0.1</PSI2>")) +
                     annex("BS", set("BUILDING", psi1("0.2")))),
              ecSet + "BS BUILDING 0 0 0.7 0.2 0 0 0 0 1\n")
        << "a second annex of a code starts from EC again";
}

TEST(AnnexInheritance, DefaultsReachWhatFollowsThemAndOutsideEcWhatThereIs)
{
    EXPECT_EQ(setsOf(annex("EC", set("BUILDING") + set("DEFAULT", psi0("0.5")) + set("ROADWAY") +
                                     set("RAILWAY1", psi0("0.8"))) +
                     annex("BS", set("RAILWAY2"))),
              "EC BUILDING 0 0 0 0 0 0 0 0 1\n"
              "EC ROADWAY 0 0 0.5 0 0 0 0 0 1\n"
              "EC RAILWAY1 0 0 0.8 0 0 0 0 0 1\n"
              "BS BUILDING 0 0 0 0 0 0 0 0 1\n"
              "BS ROADWAY 0 0 0.5 0 0 0 0 0 1\n"
              "BS RAILWAY1 0 0 0.8 0 0 0 0 0 1\n"
              "BS RAILWAY2 0 0 0 0 0 0 0 0 1\n")
        << "in EC only the named sets behind it, and no annex but its own";
    EXPECT_EQ(setsOf(annex("BS", set("BUILDING", psi0("0.7") + psi1("0.6")) +
                                     set("DEFAULT", psi0("0.5")))),
              "BS BUILDING 0 0 0.5 0.6 0 0 0 0 1\n")
        << "a DEFAULT behind a named set overrides it";
    EXPECT_EQ(setsOf(ec + annex("BS", set("DEFAULT", psi0("0.3") + psi1("0.1")) + set("ROADWAY") +
                                          set("DEFAULT", psi1("0.4")) + set("RAILWAY1"))),
              ecSet + "BS BUILDING 0 0 0.3 0.4 0 0 0 0 1\n"
                      "BS ROADWAY 0 0 0.3 0.4 0 0 0 0 1\n"
                      "BS RAILWAY1 0 0 0.3 0.4 0 0 0 0 1\n")
        << "several DEFAULTs add up";
    EXPECT_EQ(setsOf(ec + annex("BS", set("DEFAULT", psi0("0") + psi1("-0.1")))),
              ecSet + "BS BUILDING 0 0 0 0.5 0 0 0 0 1\n")
        << "a DEFAULT may give zero but nothing below it";
    EXPECT_EQ(setsOf(annex("EC", set("default", psi0("0.7")))), "EC 0 0 0 0.7 0 0 0 0 0 1\n")
        << "in lower case it is an unknown structure";
}

TEST(AnnexInheritance, ANamedSetTakesCrackReductionOneUnlessGivenAnother)
{
    const auto expect = [](const std::string& sets, const char* building, const char* bridge) {
        const std::string zeros = " 0 0 0 0 0 0 0 0 ";
        EXPECT_EQ(
            setsOf(annex("EC", set("BUILDING", crackRed("0.8")) + set("ROADWAY", crackRed("0.7"))) +
                   annex("BS", sets)),
            "EC BUILDING" + zeros + "0.8\nEC ROADWAY" + zeros + "0.7\nBS BUILDING" + zeros +
                building + "\nBS ROADWAY" + zeros + bridge + "\n")
            << sets;
    };
    expect("", "0.8", "0.7");
    expect(set("BUILDING"), "1", "0.7");
    expect(set("BUILDING", crackRed("0.6")), "0.6", "0.7");
    expect(set("DEFAULT", crackRed("0.5")) + set("BUILDING"), "0.5", "0.5");
    expect(set("DEFAULT"), "1", "1");
    expect(set("DEFAULT", crackRed("-1")) + set("BUILDING"), "0.8", "0.7");
}

TEST(AnnexInheritance, UnknownWordsStandForNothingAndWhatIsMissingIsSkipped)
{
    EXPECT_EQ(contents(readCatalogue(R"(<SMOD><ACTIONTYPES>
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
        <ACTIONTYPE NAME="T"> <ACTIONGROUP>T</ACTIONGROUP> <ANNEXES/> </ACTIONTYPE>
        <ACTIONTYPE NAME="P"> <DEEPER> <ACTIONGROUP>P</ACTIONGROUP> </DEEPER> </ACTIONTYPE>
        </ACTIONTYPES></SMOD>)")),
              "NONE, group NONE, PERMANENT\n"
              "- 0 0 0 0.1 0.2 0.3 0 0 0 1\n"
              "- FOOTBRIDGE1 0 0 0.4 0 0 0 0 0 1\n"
              "EC 0 0 0 0.1 0.2 0.3 0 0 0 1\n"
              "EC FOOTBRIDGE1 0 0 0.4 0 0 0 0 0 1\n"
              "NONE, group NONE, MEDIUMTERM\n"
              "SNOW, group NONE, PERMANENT\n"
              "T, group T, MEDIUMTERM\n"
              "P, group NONE, MEDIUMTERM\n");
}

TEST(AnnexInheritance, OnlyWholeNumbersOfTextAreValues)
{
    const auto expect = [](const std::string& written, const std::string& read) {
        EXPECT_EQ(setsOf(annex("EC", set("DEFAULT", psi0("0.75")) + set("BUILDING", written))),
                  "EC BUILDING 0 0 " + read + " 0 0 0 0 0 1\n")
            << written;
    };
    expect(psi0(" +0.5\n"), "0.5");
    expect(psi0("5e-1"), "0.5");
    expect(psi0("-0.5"), "-0.5"); // a named set takes what is written
    expect(psi0("0.5") + psi0("0.6"), "0.5");
    for (const char* unchanged : {"", "0,5", "0.5 m", "nan", "inf", "0x1", "1e999"})
        expect(psi0(unchanged), "0.75");
    expect("<psi0>0.5</psi0>", "0.75");
    expect("<X><PSI0>1</PSI0></X>", "0.75");
}

TEST(AnnexInheritance, ATypeThatOccursTwiceIsTwoEntriesAndAReaderAddsToWhatIsThere)
{
    ActionTypeManager catalogue = readCatalogue(R"(<SMOD><ACTIONTYPES>
        <ACTIONTYPE NAME="SNOW"> <LOADDURATION>LONGTERM</LOADDURATION> </ACTIONTYPE>
        <ACTIONTYPE NAME="SNOW"> <LOADDURATION>SHORTTERM</LOADDURATION> </ACTIONTYPE>
        </ACTIONTYPES></SMOD>)");
    std::istringstream document("<ACTIONTYPES><ACTIONTYPE NAME='T'/></ACTIONTYPES>");
    Standard::ActionTypeReader(&catalogue).readXml(document);
    EXPECT_EQ(contents(catalogue), "SNOW, group NONE, LONGTERM\n"
                                   "SNOW, group NONE, SHORTTERM\n"
                                   "T, group NONE, MEDIUMTERM\n");
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::SNOW), catalogue.getActionTypes().front());
}

TEST(AnnexInheritance, ElementsGoByTheirAttributeBelowTheFirstActionTypes)
{
    EXPECT_EQ(contents(readCatalogue(R"(<X><SMOD/><Y><ACTIONTYPES><KIND NAME="SNOW"><MORE><ANNEXES>
        <!-- no element --><CODE NAME="EC"><CASE NAME="BUILDING"><PSI0>0.5</PSI0></CASE></CODE>
        <OTHER NAME="BS"/></ANNEXES></MORE></KIND></ACTIONTYPES></Y>
        <ACTIONTYPES><ACTIONTYPE NAME="T"/></ACTIONTYPES></X>)")),
              "SNOW, group NONE, MEDIUMTERM\n"
              "EC BUILDING 0 0 0.5 0 0 0 0 0 1\n"
              "BS BUILDING 0 0 0.5 0 0 0 0 0 1\n");

    // The inner ACTIONTYPES is a type without a name, to which the annexes found in it belong.
    EXPECT_EQ(contents(readCatalogue(R"(<SMOD><ACTIONTYPES>
        <ACTIONTYPES><ACTIONTYPE NAME="T"><ANNEXES>
          <ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"/></ANNEX>
        </ANNEXES></ACTIONTYPE></ACTIONTYPES>
        </ACTIONTYPES></SMOD>)")),
              "NONE, group NONE, MEDIUMTERM\n"
              "EC BUILDING 0 0 0 0 0 0 0 0 1\n");
    EXPECT_EQ(contents(readCatalogue("<actiontypes><ACTIONTYPE NAME='SNOW'/></actiontypes>")), "");
}
