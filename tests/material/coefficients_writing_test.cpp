#include "material/CoefficientTables.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

namespace
{

using CoefficientsWriting = CoefficientsTest;

std::string written()
{
    ZelXmlTree tree;
    Coefficients::get()->output(tree);
    return raw(tree);
}

/// What a table holds in the document.
std::string tableIn(const std::string& document, const std::string& tag)
{
    const auto begin = document.find("<" + tag + ">") + tag.size() + 2;
    return document.substr(begin, document.find("</" + tag + ">") - begin);
}

std::string annexes(const std::string& ec, const std::string& din2008)
{
    return R"(<ANNEX NAME="EC">)" + ec + R"(</ANNEX><ANNEX NAME="DIN-1988"/>)" +
           (din2008.empty() ? R"(<ANNEX NAME="DIN-2008"/>)"
                            : R"(<ANNEX NAME="DIN-2008">)" + din2008 + "</ANNEX>") +
           R"(<ANNEX NAME="SIA"/><ANNEX NAME="OENORM"/><ANNEX NAME="CSN"/>)"
           R"(<ANNEX NAME="BS"/><ANNEX NAME="DIN-EN"/>)";
}

void setForAll(const Coefficient& coefficient, int key, double value)
{
    for (const Mode mode : Coefficients::get()->getSupportedModes())
        coefficient.set(mode, key, value);
}

std::size_t count(const std::string& text, const std::string& part)
{
    std::size_t found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

} // namespace

TEST_F(CoefficientsWriting, KeepsAnOrderOfTheTables)
{
    ZelXmlTree tree;
    Coefficients::get()->output(tree);
    std::string order;
    for (const auto* table = ZelXmlData::getFirstChild(tree.getRoot()); table;
         table = ZelXmlData::getNextSibling(table))
        order += std::string(" ") + ZelXmlData::getName(table);
    EXPECT_STREQ(ZelXmlData::getName(tree.getRoot()), "COEFFICIENTS");
    EXPECT_EQ(order, " GAMMA_S GAMMA_A GAMMA_T GAMMA_C GAMMA_F GAMMA_R GAMMA_RV GAMMA_RH GAMMA_RE"
                     " ALPHA_CC ALPHA_CT");
}

TEST_F(CoefficientsWriting, GivesECInFullAndOtherCodesWhereTheyDiffer)
{
    setForAll(gammaC, 0, 1.5);
    setForAll(gammaC, 1, 1.2);
    gammaC.set(Mode::DIN_2008, 1, 1.3);
    setForAll(alphaCC, 1, 1.0);
    alphaCC.set(Mode::DIN_2008, 1, 0.85);
    const std::string document = written();
    EXPECT_EQ(tableIn(document, "GAMMA_C"),
              annexes("<PERSISTENT>1.50</PERSISTENT><ACCIDENTAL>1.20</ACCIDENTAL>"
                      "<ACCIDENTAL_EQ>0.00</ACCIDENTAL_EQ>",
                      "<ACCIDENTAL>1.30</ACCIDENTAL>"));
    EXPECT_EQ(
        tableIn(document, "ALPHA_CC"),
        annexes("<BUILDING>1.00</BUILDING><BRIDGE>0.00</BRIDGE>", "<BUILDING>0.85</BUILDING>"));
}

TEST_F(CoefficientsWriting, RoundsToTwoDecimals)
{
    alphaCC.set(Mode::EC, 1, 1.2351);
    alphaCC.set(Mode::EC, 2, -0.126);
    alphaCC.set(Mode::DIN_2008, 1, 12345.0);
    alphaCC.set(Mode::DIN_2008, 2, 0.004);
    const std::string table = tableIn(written(), "ALPHA_CC");
    EXPECT_TRUE(table.starts_with(
        R"(<ANNEX NAME="EC"><BUILDING>1.24</BUILDING><BRIDGE>-0.13</BRIDGE></ANNEX>)"));
    EXPECT_NE(table.find(R"(<BUILDING>12345.00</BUILDING><BRIDGE>0.00</BRIDGE>)"),
              std::string::npos);
}

TEST_F(CoefficientsWriting, TakesValuesWithinTheToleranceForEqual)
{
    for (const double ec : {1.5, -1.5})
        for (const double difference : {0.9e-7, -0.9e-7, 1.1e-7, -1.1e-7}) {
            clearCoefficients();
            setForAll(alphaCC, 1, ec);
            alphaCC.set(Mode::DIN_2008, 1, ec + difference);
            const std::string number = ec > 0 ? "1.50" : "-1.50";
            EXPECT_EQ(
                tableIn(written(), "ALPHA_CC"),
                annexes("<BUILDING>" + number + "</BUILDING><BRIDGE>0.00</BRIDGE>",
                        std::abs(difference) < 1e-7 ? "" : "<BUILDING>" + number + "</BUILDING>"))
                << ec << " " << difference;
        }
}

TEST_F(CoefficientsWriting, LeavesOutKeysThatNoFileHolds)
{
    setDistinctValues();
    const std::string before = written();
    for (const Coefficient& coefficient : coefficients)
        for (const int other : {-1, 0, 9})
            for (int key = -1; key <= 3; ++key)
                coefficient.set(Mode{other}, key, 77.0);
    for (const Coefficient& coefficient : coefficients)
        coefficient.set(Mode::EC, 3, 77.0);
    EXPECT_EQ(written(), before);
}

TEST_F(CoefficientsWriting, IsReadAgainAlike)
{
    setDistinctValues();
    const std::string before = values();
    const std::string document = written();
    clearCoefficients();
    readCoefficients(document);
    EXPECT_EQ(values(), before);
    EXPECT_EQ(written(), document);
}

TEST_F(CoefficientsWriting, OfAFileReplacesIt)
{
    const TemporaryDirectory directory;
    setDistinctValues();
    const std::string before = values();
    const std::string path = directory.write("coefficients.xml", "<SMOD><OWN>lost</OWN></SMOD>");
    Coefficients::get()->output(path);
    EXPECT_EQ(readFile(path).find("OWN"), std::string::npos);
    clearCoefficients();
    Coefficients::get()->input(path);
    EXPECT_EQ(values(), before);
}

namespace
{

/// Documents that hold coefficients already, and what of them must stay.
struct Existing {
    const char* fact;
    const char* document;
    std::vector<const char*> kept;
    std::vector<const char*> gone;
};

const Existing existing[] = {
    {"an empty table",                                        "<SMOD><COEFFICIENTS><GAMMA_C/></COEFFICIENTS></SMOD>", {},                                                                      {}},
    {"other elements, comments and attributes",
     R"(<SMOD><!-- one --><SETTINGS><A>1</A></SETTINGS><COEFFICIENTS VERSION="2"><!-- two -->
          <GAMMA_C SOURCE="x"><!-- three --><ANNEX NAME="EC" STATUS="y"><!-- four -->
            <PERSISTENT SOURCE="z">1.9</PERSISTENT><NOTE>own</NOTE></ANNEX></GAMMA_C>
          <GAMMA_X><ANNEX NAME="EC"/></GAMMA_X></COEFFICIENTS><OWN/></SMOD>)",                        {"<!-- one -->", "<A>1</A>", R"(<COEFFICIENTS VERSION="2">)", "<!-- two -->",
      R"(<GAMMA_C SOURCE="x">)", "<!-- three -->", R"(<ANNEX NAME="EC" STATUS="y">)",
      "<!-- four -->", R"(<PERSISTENT SOURCE="z">)", "<NOTE>own</NOTE>", "<GAMMA_X>", "<OWN/>"},
     {"1.9<"}                                                                                                                                                                                    },
    {"an annex EC that does not come first",
     R"(<COEFFICIENTS><GAMMA_C><!-- codes --><ANNEX NAME="BS"><PERSISTENT>1.9</PERSISTENT></ANNEX>
          <ANNEX NAME="EC"><PERSISTENT>1.9</PERSISTENT></ANNEX><ANNEX NAME="SIA"/></GAMMA_C>
        </COEFFICIENTS>)",                   {"<!-- codes -->"},
     {"1.9<"}                                                                                                                                                                                    },
    {"the annex of an unknown code in front of all",
     R"(<COEFFICIENTS><GAMMA_C><ANNEX NAME="ISO"><PERSISTENT>1.9</PERSISTENT></ANNEX>
          <ANNEX NAME="BS"/></GAMMA_C></COEFFICIENTS>)",                                {R"(<ANNEX NAME="ISO"><PERSISTENT>1.9</PERSISTENT></ANNEX>)"},
     {}                                                                                                                                                                                          },
    {"annexes of one code twice",
     R"(<COEFFICIENTS><GAMMA_C><ANNEX NAME="EC"><PERSISTENT>1.9</PERSISTENT></ANNEX>
          <ANNEX NAME="BS"><PERSISTENT>1.9</PERSISTENT></ANNEX>
          <ANNEX NAME="BS"><ACCIDENTAL>1.9</ACCIDENTAL></ANNEX>
          <ANNEX NAME="EC"><ACCIDENTAL>1.9</ACCIDENTAL></ANNEX></GAMMA_C></COEFFICIENTS>)",                                 {},
     {"1.9<"}                                                                                                                                                                                    },
    {"annexes under another element name",
     R"(<COEFFICIENTS><GAMMA_C><CODE NAME="DIN-EN"><PERSISTENT>1.9</PERSISTENT></CODE>
          <CODE NAME="EC"><PERSISTENT>1.9</PERSISTENT></CODE></GAMMA_C></COEFFICIENTS>)",                               {},
     {"1.9<"}                                                                                                                                                                                    },
    {"values that are equal to EC now, once and twice",
     R"(<COEFFICIENTS><ALPHA_CT><ANNEX NAME="EC"/><ANNEX NAME="OENORM"><BRIDGE>1.9</BRIDGE>
          <BUILDING>1.9</BUILDING><BRIDGE>1.9</BRIDGE></ANNEX></ALPHA_CT></COEFFICIENTS>)",                          {},
     {"1.9<"}                                                                                                                                                                                    },
    {"a value twice in one annex",
     R"(<COEFFICIENTS><GAMMA_C><ANNEX NAME="EC"><PERSISTENT>1.9</PERSISTENT>
          <PERSISTENT>2.9</PERSISTENT></ANNEX></GAMMA_C></COEFFICIENTS>)",                                         {},
     {"1.9<"}                                                                                                                                                                                    },
    {"a table that stands deeper, and another one behind it",
     R"(<SMOD><COEFFICIENTS><CONCRETE><GAMMA_C><ANNEX NAME="BS"><PERSISTENT>1.9</PERSISTENT></ANNEX>
          </GAMMA_C></CONCRETE><GAMMA_C><ANNEX NAME="BS"><PERSISTENT>2.9</PERSISTENT></ANNEX>
          </GAMMA_C></COEFFICIENTS></SMOD>)",
     {"<CONCRETE"},
     {"1.9<"}                                                                                                                                                                                    },
    {"coefficients that stand deeper",
     R"(<PROFILE><CODES><COEFFICIENTS><GAMMA_C>
          <ANNEX NAME="EC"><PERSISTENT>1.9</PERSISTENT></ANNEX></GAMMA_C></COEFFICIENTS></CODES>
        </PROFILE>)",                                                                      {"<PROFILE><CODES>"},
     {"1.9<"}                                                                                                                                                                                    },
    {"another root without coefficients",
     "<PROFILE><OWN>kept</OWN></PROFILE>",                                                                            {"<PROFILE>", "<OWN>kept</OWN>"},
     {}                                                                                                                                                                                          },
};

/// Values that suit the documents above: codes equal to EC, codes of their own, and both.
void setMixedValues()
{
    setDistinctValues();
    for (const Coefficient& coefficient : coefficients)
        for (const Mode equal : {Mode::DIN_1988, Mode::BS, Mode::OENORM})
            for (int key = coefficient.firstKey; key <= lastKey; ++key)
                coefficient.set(equal, key, coefficient.get(Mode::EC, key));
    for (const Coefficient& coefficient : coefficients)
        coefficient.set(Mode::BS, lastKey, 55.55);
}

} // namespace

TEST_F(CoefficientsWriting, IntoAnExistingTreeIsReadAgainAlike)
{
    for (const Existing& c : existing) {
        SCOPED_TRACE(c.fact);
        setMixedValues();
        const std::string before = values();
        ZelXmlTree tree;
        build(tree, c.document);
        Coefficients::get()->output(tree);
        const std::string document = raw(tree);

        clearCoefficients();
        readCoefficients(document);
        EXPECT_EQ(values(), before);

        for (const char* part : c.kept)
            EXPECT_EQ(count(document, part), 1U) << part << " in\n" << document;
        for (const char* part : c.gone)
            EXPECT_EQ(count(document, part), 0U) << part << " in\n" << document;

        Coefficients::get()->output(tree);
        EXPECT_EQ(raw(tree), document) << "writing again changes nothing";
    }
}

TEST_F(CoefficientsWriting, KeepsAValueThatRepeatsEurocodesWithWhatStandsBesideIt)
{
    for (const Mode mode : Coefficients::get()->getSupportedModes())
        Coefficients::get()->setGammaS(mode, Standard::DesignSituation::PERSISTENT, 1.15);
    ZelXmlTree tree;
    build(tree, R"(<COEFFICIENTS><GAMMA_S><ANNEX NAME="EC"/>
        <ANNEX NAME="SIA"><PERSISTENT SOURCE="SIA 262">1.15</PERSISTENT></ANNEX>
        <ANNEX NAME="BS"><PERSISTENT SOURCE="stale">1.25</PERSISTENT></ANNEX>
        </GAMMA_S></COEFFICIENTS>)");
    Coefficients::get()->output(tree);
    EXPECT_EQ(count(raw(tree), "SIA 262"), 1U);
    EXPECT_EQ(count(raw(tree), "stale"), 0U);
}

// The inner table would go with the outer one's annex.
TEST_F(CoefficientsWriting, WritesATableThatStoodInsideOfAnother)
{
    setMixedValues();
    const std::string before = values();
    ZelXmlTree tree;
    build(tree, R"(<COEFFICIENTS><ALPHA_CC><X NAME="BS"><GAMMA_A/></X></ALPHA_CC></COEFFICIENTS>)");
    Coefficients::get()->output(tree);
    const std::string document = raw(tree);
    clearCoefficients();
    readCoefficients(document);
    EXPECT_EQ(values(), before);
}

TEST_F(CoefficientsWriting, UpdatesTheElementsThatATreeHolds)
{
    setMixedValues();
    ZelXmlTree tree;
    tree.open("SMOD", false);
    Coefficients::get()->output(tree);
    setForAll(gammaC, 0, 1.75);
    Coefficients::get()->output(tree);
    tree.close();
    const std::string document = raw(tree);
    EXPECT_TRUE(document.starts_with("<SMOD><COEFFICIENTS><GAMMA_S>")) << document;
    EXPECT_EQ(count(document, "<ANNEX "), 88U) << "eight codes in eleven tables";
    EXPECT_EQ(count(document, ">1.75<"), 1U);
}
