#include "actions/Catalogue.h"

#include <zelstandard/actions/ActionTypeWriter.h>

using Standard::ActionTypeManager;
using support::contents;
using support::readCatalogue;

namespace
{

std::string put(const ZelXmlTree& tree)
{
    std::ostringstream stream;
    tree.putToStream(stream, true);
    return stream.str();
}

/// The document after the catalogue was written into it.
std::string writtenInto(const std::string& document, ActionTypeManager& catalogue)
{
    std::istringstream stream(document);
    ZelXmlTree tree;
    EXPECT_TRUE(tree.buildOfStream(stream)) << document;
    catalogue.output(tree);
    const std::string once = put(tree);
    catalogue.output(tree);
    EXPECT_EQ(put(tree), once) << "writing once more changes nothing";
    return once;
}

} // namespace

TEST(WritingIntoATree, KeepsWhatItDoesNotKnow)
{
    // Of two types of one identity the last counts.
    ActionTypeManager catalogue = readCatalogue(R"(<ACTIONTYPES><ACTIONTYPE NAME="SNOW"/>
        <ACTIONTYPE NAME="SNOW"><ANNEXES>
          <ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.5</PSI0> </CLASSIFICATION></ANNEX>
          <ANNEX NAME="BS"/></ANNEXES></ACTIONTYPE></ACTIONTYPES>)");
    EXPECT_EQ(writtenInto(R"(<!-- first -->
<SMOD author="us"><SETTINGS/><!-- types -->
  <ACTIONTYPES version="2">
    <ACTIONTYPE NAME="WIND_CST"><ANNEXES/></ACTIONTYPE><ACTIONTYPE NAME="MINE"/><ACTIONTYPE/>
    <ACTIONTYPE colour="white" NAME="SNOW"><!-- of snow --><NOTE>on roofs</NOTE>
      <LOADDURATION unit="none">LONGTERM</LOADDURATION>
      <MORE><ANNEXES>
        <ANNEX NAME="SIA"/>
        <ANNEX NAME="BS"><!-- of BS --><SOURCE>NA</SOURCE><CLASSIFICATION NAME="BUILDING"/></ANNEX>
        <ANNEX NAME="ELSEWHERE"/>
        <ANNEX NAME="EC" since="1990">
          <CLASSIFICATION NAME="BUILDING">
            <!-- of psi0 --><PSI0 table="A1.1">0.70</PSI0><PSI3>1</PSI3>
          </CLASSIFICATION>
          <CLASSIFICATION NAME="TUNNEL"/>
        </ANNEX>
      </ANNEXES></MORE>
    </ACTIONTYPE>
  </ACTIONTYPES>
</SMOD>)",
                          catalogue),
              R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- first -->
<SMOD author="us">
  <SETTINGS />
  <!-- types -->
  <ACTIONTYPES version="2">
    <ACTIONTYPE NAME="WIND_CST">
      <ANNEXES />
    </ACTIONTYPE>
    <ACTIONTYPE NAME="MINE" />
    <ACTIONTYPE />
    <ACTIONTYPE colour="white" NAME="SNOW">
      <!-- of snow -->
      <NOTE>on roofs</NOTE>
      <LOADDURATION unit="none">MEDIUMTERM</LOADDURATION>
      <MORE>
        <ANNEXES>
          <ANNEX NAME="SIA" />
          <ANNEX NAME="EC" since="1990">
            <CLASSIFICATION NAME="BUILDING">
              <!-- of psi0 -->
              <PSI0 table="A1.1">0.50</PSI0>
              <PSI3>1</PSI3>
              <GAMMA_SUP>0.00</GAMMA_SUP>
              <GAMMA_INF>0.00</GAMMA_INF>
              <PSI1>0.00</PSI1>
              <PSI2>0.00</PSI2>
              <PSI11>0.00</PSI11>
              <PSI21>0.00</PSI21>
              <PSI22>0.00</PSI22>
              <CrackRed>1.000</CrackRed>
            </CLASSIFICATION>
            <CLASSIFICATION NAME="TUNNEL" />
          </ANNEX>
          <ANNEX NAME="BS">
            <!-- of BS -->
            <SOURCE>NA</SOURCE>
          </ANNEX>
          <ANNEX NAME="ELSEWHERE" />
        </ANNEXES>
      </MORE>
      <ACTIONGROUP>NONE</ACTIONGROUP>
    </ACTIONTYPE>
  </ACTIONTYPES>
</SMOD>
)");
}

TEST(WritingIntoATree, LeavesNothingOpenAndWorksBelowAnyElement)
{
    ZelXmlTree tree;
    ActionTypeManager catalogue =
        readCatalogue("<ACTIONTYPES><ACTIONTYPE NAME='T'/></ACTIONTYPES>");
    catalogue.output(tree);
    ZelXmlData* const parent = tree.open("MINE", false);
    EXPECT_EQ(ZelXmlData::findChild(tree.getRoot(), "MINE"), parent);
    Standard::ActionTypeWriter(&catalogue).writeActionTypes(parent);
    EXPECT_EQ(ZelXmlData::getAttributeString(ZelXmlData::getFirstChild(parent), "NAME"), "T");
}
