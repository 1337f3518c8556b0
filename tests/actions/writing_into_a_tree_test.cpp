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

std::string types(const std::string& content)
{
    return "<SMOD><ACTIONTYPES>" + content + "</ACTIONTYPES></SMOD>";
}

std::string snow(const std::string& annexes)
{
    return types("<ACTIONTYPE NAME='SNOW'><ANNEXES>" + annexes + "</ANNEXES></ACTIONTYPE>");
}

std::string annex(const std::string& name, const std::string& content = "")
{
    return "<ANNEX NAME='" + name + "'>" + content + "</ANNEX>";
}

/// A set with a value other than those of the catalogue.
std::string set(const std::string& name)
{
    return "<CLASSIFICATION NAME='" + name + "'><PSI0>7</PSI0><PSI0>8</PSI0></CLASSIFICATION>";
}

} // namespace

TEST(WritingIntoATree, WhatIsReadAgainIsTheCatalogueWhateverStoodThere)
{
    // A full annex of EC, an empty one of BS, a full one of DIN-EN.
    ActionTypeManager catalogue = readCatalogue(R"(<ACTIONTYPES><ACTIONTYPE NAME="SNOW">
    <ACTIONGROUP>SNOW</ACTIONGROUP> <LOADDURATION>SHORTTERM</LOADDURATION>
    <ANNEXES>
      <ANNEX NAME="EC">
        <CLASSIFICATION NAME="BUILDING"> <PSI0>0.1</PSI0> <CrackRed>0.9</CrackRed> </CLASSIFICATION>
        <CLASSIFICATION NAME="FOOTBRIDGE1"> <PSI0>0.2</PSI0> </CLASSIFICATION>
      </ANNEX>
      <ANNEX NAME="BS"/>
      <ANNEX NAME="DIN-EN"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.3</PSI0> </CLASSIFICATION></ANNEX>
    </ANNEXES></ACTIONTYPE></ACTIONTYPES>)");
    const std::string documents[] = {
        "<SMOD><SETTINGS/></SMOD>",
        "<ROOT><A><ACTIONTYPES><ACTIONTYPE NAME='SNOW'/></ACTIONTYPES></A></ROOT>",
        types("<ACTIONTYPE NAME='SNOW'><LOADDURATION>LONG<!-- -->TERM</LOADDURATION>"
              "<ACTIONGROUP>T</ACTIONGROUP></ACTIONTYPE><ACTIONTYPE NAME='SNOW'/>"),
        // elements of other names, annexes that are not direct children
        types("<TYPE NAME='SNOW'><MORE><ANNEXES>" + annex("CSN") + "</ANNEXES></MORE></TYPE>"),
        snow("<CODE NAME='DIN-EN'>" + set("ROADWAY") + "</CODE>"),
        snow("<ANNEX NAME='EC'><SET NAME='BUILDING'/></ANNEX>"),
        // sets and annexes that the type does not have, or has once
        snow(annex("EC", set("BUILDING") + set("RAILWAY2")) + annex("DIN-EN", set("ROADWAY"))),
        snow(annex("BS", set("BUILDING") + set("RAILWAY1"))),
        snow(annex("EC", set("BUILDING") + set("BUILDING"))),
        snow(annex("EC", set("FOOTBRIDGE1") + set("FOOTBRIDGE2"))),
        snow(annex("CSN", set("BUILDING")) + annex("OENORM")),
        snow(annex("EC") + annex("EC", set("BUILDING"))),
        snow(annex("DIN-EN") + annex("BS") + annex("EC")),
        // a DEFAULT in each kind of annex, in front of the sets and behind them
        snow(annex("EC", set("DEFAULT"))),
        snow(annex("BS", set("DEFAULT"))),
        snow(annex("DIN-EN", set("BUILDING") + set("DEFAULT"))),
    };
    for (const std::string& before : documents) {
        const std::string document = writtenInto(before, catalogue);
        EXPECT_EQ(contents(readCatalogue(document)), contents(catalogue)) << before << document;
    }
}

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
