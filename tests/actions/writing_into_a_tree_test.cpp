#include "actions/Catalogue.h"

#include <zelstandard/actions/ActionGroupManager.h>
#include <zelstandard/actions/ActionTypeWriter.h>

using Standard::ActionType;
using Standard::ActionTypeManager;
using Standard::BridgeType;
using Standard::Classification;
using Standard::Mode;
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

/// The catalogue that the cases write: a full annex of EC, an empty one of BS, a full one of
/// DIN-EN.
const std::string catalogueDocument = R"(<ACTIONTYPES><ACTIONTYPE NAME="SNOW">
    <ACTIONGROUP>SNOW</ACTIONGROUP> <LOADDURATION>SHORTTERM</LOADDURATION>
    <ANNEXES>
      <ANNEX NAME="EC">
        <CLASSIFICATION NAME="BUILDING"> <PSI0>0.1</PSI0> <CrackRed>0.9</CrackRed> </CLASSIFICATION>
        <CLASSIFICATION NAME="FOOTBRIDGE1"> <PSI0>0.2</PSI0> </CLASSIFICATION>
      </ANNEX>
      <ANNEX NAME="BS"/>
      <ANNEX NAME="DIN-EN"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.3</PSI0> </CLASSIFICATION></ANNEX>
    </ANNEXES></ACTIONTYPE></ACTIONTYPES>)";

std::string around(const std::string& type)
{
    return "<SMOD><ACTIONTYPES>" + type + "</ACTIONTYPES></SMOD>";
}

std::string snow(const std::string& annexes)
{
    return around("<ACTIONTYPE NAME='SNOW'><ANNEXES>" + annexes + "</ANNEXES></ACTIONTYPE>");
}

} // namespace

TEST(WritingIntoATree, WhatIsReadAgainIsTheCatalogueWhateverStoodThere)
{
    ActionTypeManager catalogue = readCatalogue(catalogueDocument);
    struct Case {
        const char* what;
        std::string document;
    };
    const Case cases[] = {
        {"no types",                                   "<SMOD><SETTINGS/></SMOD>"                                    },
        {"another root",                               "<ROOT><ACTIONTYPES/></ROOT>"                                 },
        {"deeper in another root",
         "<ROOT><A><ACTIONTYPES><ACTIONTYPE NAME='SNOW'/></ACTIONTYPES></A></ROOT>"                                  },
        {"an empty type",                              around("<ACTIONTYPE NAME='SNOW'/>")                           },
        {"another group and duration",
         around("<ACTIONTYPE NAME='SNOW'><LOADDURATION>LONG<!-- -->TERM</LOADDURATION>"
                "<ACTIONGROUP>T</ACTIONGROUP></ACTIONTYPE>")                                                         },
        {"the type twice",
         around("<ACTIONTYPE NAME='SNOW'/><ACTIONTYPE "
                "NAME='SNOW'><LOADDURATION>LONGTERM</LOADDURATION></ACTIONTYPE>")                                    },
        {"the type in an element of another name",
         around("<TYPE NAME='SNOW'><ANNEXES><ANNEX NAME='EC'><CLASSIFICATION "
                "NAME='ROADWAY'/></ANNEX></ANNEXES></TYPE>")                                                         },
        {"annexes that are not direct children",
         around("<ACTIONTYPE NAME='SNOW'><MORE><ANNEXES><ANNEX "
                "NAME='CSN'/></ANNEXES></MORE></ACTIONTYPE>")                                                        },
        {"other values",
         snow("<ANNEX NAME='EC'><CLASSIFICATION "
              "NAME='BUILDING'><PSI0>7</PSI0><PSI1>7</PSI1></CLASSIFICATION></ANNEX>")                               },
        {"a value twice",
         snow("<ANNEX NAME='EC'><CLASSIFICATION "
              "NAME='BUILDING'><PSI0>7</PSI0><PSI0>8</PSI0></CLASSIFICATION></ANNEX>")                               },
        {"a DEFAULT in EC",                            snow("<ANNEX NAME='EC'><CLASSIFICATION "
                                 "NAME='DEFAULT'><PSI0>7</PSI0></CLASSIFICATION></ANNEX>")},
        {"a DEFAULT in the annex that is to be empty",
         snow("<ANNEX NAME='BS'><CLASSIFICATION "
              "NAME='DEFAULT'><PSI0>7</PSI0></CLASSIFICATION></ANNEX>")                                              },
        {"a DEFAULT behind a set",
         snow("<ANNEX NAME='DIN-EN'><CLASSIFICATION NAME='BUILDING'/><CLASSIFICATION "
              "NAME='DEFAULT'><PSI0>7</PSI0></CLASSIFICATION></ANNEX>")                                              },
        {"sets in the annex that is to be empty",
         snow("<ANNEX NAME='BS'><CLASSIFICATION NAME='BUILDING'/><CLASSIFICATION "
              "NAME='RAILWAY1'/></ANNEX>")                                                                           },
        {"a set that the type does not have",
         snow("<ANNEX NAME='EC'><CLASSIFICATION NAME='RAILWAY2'/></ANNEX><ANNEX "
              "NAME='DIN-EN'><CLASSIFICATION NAME='ROADWAY'/></ANNEX>")                                              },
        {"a set twice",                                snow("<ANNEX NAME='EC'><CLASSIFICATION NAME='BUILDING'/><CLASSIFICATION "
                             "NAME='BUILDING'><PSI0>7</PSI0></CLASSIFICATION></ANNEX>")       },
        {"a set in an element of another name",
         snow("<ANNEX NAME='EC'><SET NAME='BUILDING'/></ANNEX>")                                                     },
        {"a footbridge under its second word",
         snow("<ANNEX NAME='EC'><CLASSIFICATION NAME='FOOTBRIDGE1'/><CLASSIFICATION "
              "NAME='FOOTBRIDGE2'><PSI0>7</PSI0></CLASSIFICATION></ANNEX>")                                          },
        {"an annex that the type does not have",
         snow("<ANNEX NAME='CSN'><CLASSIFICATION NAME='BUILDING'/></ANNEX><ANNEX NAME='OENORM'/>")                   },
        {"an annex twice",                             snow("<ANNEX NAME='EC'/><ANNEX NAME='EC'><CLASSIFICATION "
                                "NAME='BUILDING'><PSI0>7</PSI0></CLASSIFICATION></ANNEX>") },
        {"an annex in an element of another name",
         snow("<CODE NAME='DIN-EN'><CLASSIFICATION NAME='ROADWAY'/></CODE>")                                         },
        {"annexes before that of EC",
         snow("<ANNEX NAME='DIN-EN'/><ANNEX NAME='BS'/><ANNEX NAME='EC'/>")                                          },
    };
    for (const Case& c : cases) {
        const std::string document = writtenInto(c.document, catalogue);
        EXPECT_EQ(contents(readCatalogue(document)), contents(catalogue)) << c.what << "\n"
                                                                          << document;
    }
}

TEST(WritingIntoATree, KeepsWhatItDoesNotKnow)
{
    ActionTypeManager catalogue = readCatalogue(R"(<ACTIONTYPES>
        <ACTIONTYPE NAME="SNOW">
          <ANNEXES>
            <ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"> <PSI0>0.5</PSI0> </CLASSIFICATION></ANNEX>
            <ANNEX NAME="BS"/>
          </ANNEXES></ACTIONTYPE>
        <ACTIONTYPE NAME="T"/></ACTIONTYPES>)");
    const std::string document = writtenInto(R"(<!-- first -->
<SMOD author="us">
  <SETTINGS><STANDARD_MODE>EC</STANDARD_MODE></SETTINGS>
  <!-- types -->
  <ACTIONTYPES version="2">
    <ACTIONTYPE NAME="WIND_CST"><ANNEXES><ANNEX NAME="EC"><CLASSIFICATION NAME="DEFAULT"/></ANNEX></ANNEXES></ACTIONTYPE>
    <ACTIONTYPE colour="white" NAME="SNOW">
      <!-- of snow -->
      <NOTE>on roofs</NOTE>
      <LOADDURATION unit="none">LONGTERM</LOADDURATION>
      <ANNEXES>
        <ANNEX NAME="BS">
          <!-- of BS -->
          <SOURCE>NA</SOURCE>
          <CLASSIFICATION NAME="BUILDING"/>
        </ANNEX>
        <ANNEX NAME="SIA"><CLASSIFICATION NAME="DEFAULT"><PSI0>0.4</PSI0></CLASSIFICATION></ANNEX>
        <ANNEX NAME="ELSEWHERE"/>
        <ANNEX NAME="EC" since="1990">
          <CLASSIFICATION NAME="BUILDING">
            <!-- of psi0 -->
            <PSI0 table="A1.1">0.70</PSI0>
            <PSI3>1</PSI3>
          </CLASSIFICATION>
          <CLASSIFICATION NAME="TUNNEL"/>
        </ANNEX>
      </ANNEXES>
    </ACTIONTYPE>
  </ACTIONTYPES>
</SMOD>)",
                                             catalogue);
    EXPECT_EQ(document, R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- first -->
<SMOD author="us">
  <SETTINGS>
    <STANDARD_MODE>EC</STANDARD_MODE>
  </SETTINGS>
  <!-- types -->
  <ACTIONTYPES version="2">
    <ACTIONTYPE NAME="WIND_CST">
      <ANNEXES>
        <ANNEX NAME="EC">
          <CLASSIFICATION NAME="DEFAULT" />
        </ANNEX>
      </ANNEXES>
    </ACTIONTYPE>
    <ACTIONTYPE colour="white" NAME="SNOW">
      <!-- of snow -->
      <NOTE>on roofs</NOTE>
      <LOADDURATION unit="none">MEDIUMTERM</LOADDURATION>
      <ANNEXES>
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
        <ANNEX NAME="SIA">
          <CLASSIFICATION NAME="DEFAULT">
            <PSI0>0.4</PSI0>
          </CLASSIFICATION>
        </ANNEX>
        <ANNEX NAME="ELSEWHERE" />
      </ANNEXES>
      <ACTIONGROUP>NONE</ACTIONGROUP>
    </ACTIONTYPE>
    <ACTIONTYPE NAME="T">
      <ACTIONGROUP>NONE</ACTIONGROUP>
      <LOADDURATION>MEDIUMTERM</LOADDURATION>
      <ANNEXES />
    </ACTIONTYPE>
  </ACTIONTYPES>
</SMOD>
)");
}

TEST(WritingIntoATree, LeavesNothingOpen)
{
    ZelXmlTree tree;
    ActionTypeManager catalogue =
        readCatalogue("<ACTIONTYPES><ACTIONTYPE NAME='T'/></ACTIONTYPES>");
    catalogue.output(tree);
    tree.open("SETTINGS", false);
    EXPECT_NE(ZelXmlData::findChild(tree.getRoot(), "SETTINGS"), nullptr);
}

TEST(WritingIntoATree, TypesCanBeWrittenBelowAnyElement)
{
    ZelXmlTree tree;
    ZelXmlData* const parent = tree.open("MINE", false);
    ActionTypeManager catalogue =
        readCatalogue("<ACTIONTYPES><ACTIONTYPE NAME='T'/><ACTIONTYPE NAME='SNOW'/></ACTIONTYPES>");
    Standard::ActionTypeWriter(&catalogue).writeActionTypes(parent);
    std::string names;
    for (ZelXmlData* type = ZelXmlData::getFirstChild(parent); type;
         type = ZelXmlData::getNextSibling(type))
        names += ZelXmlData::getAttributeString(type, "NAME") + " ";
    EXPECT_EQ(names, "T SNOW ");
}
