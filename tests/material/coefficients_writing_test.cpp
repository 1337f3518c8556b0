#include "material/CoefficientTables.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

namespace
{

class CoefficientsWriting : public testing::Test
{
protected:
    CoefficientsWriting() { clearCoefficients(); }

    FreshContext context_;
};

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

TEST_F(CoefficientsWriting, GivesECInFullAndOtherCodesWhereTheyDiffer)
{
    setForAll(gammaC, 0, 1.5);
    setForAll(gammaC, 1, 1.2);
    gammaC.set(Mode::DIN_2008, 1, 1.3);
    setForAll(alphaCC, 1, 1.2351);
    alphaCC.set(Mode::DIN_2008, 1, 12345.0);
    alphaCC.set(Mode::DIN_2008, 2, -0.126);
    for (const Coefficient& coefficient : coefficients) // no file holds these
        for (const int other : {-1, 0, 9})
            coefficient.set(Mode{other}, 1, 77.0);
    gammaC.set(Mode::EC, 3, 77.0);
    const std::string document = written();
    EXPECT_EQ(tableIn(document, "GAMMA_C"),
              annexes("<PERSISTENT>1.50</PERSISTENT><ACCIDENTAL>1.20</ACCIDENTAL>"
                      "<ACCIDENTAL_EQ>0.00</ACCIDENTAL_EQ>",
                      "<ACCIDENTAL>1.30</ACCIDENTAL>"));
    EXPECT_EQ(tableIn(document, "ALPHA_CC"),
              annexes("<BUILDING>1.24</BUILDING><BRIDGE>0.00</BRIDGE>",
                      "<BUILDING>12345.00</BUILDING><BRIDGE>-0.13</BRIDGE>"));

    // The tables keep an order of their own.
    std::size_t last = 0;
    for (const char* table : {"GAMMA_S", "GAMMA_A", "GAMMA_T", "GAMMA_C", "GAMMA_F", "GAMMA_R",
                              "GAMMA_RV", "GAMMA_RH", "GAMMA_RE", "ALPHA_CC", "ALPHA_CT"}) {
        const auto at = document.find("<" + std::string(table) + ">");
        EXPECT_TRUE(at != std::string::npos && at > last) << table;
        last = at;
    }
}

TEST_F(CoefficientsWriting, TakesValuesWithinTheToleranceForEqual)
{
    for (const double difference : {0.9e-7, -0.9e-7, 1.1e-7, -1.1e-7}) {
        clearCoefficients();
        setForAll(alphaCC, 1, -1.5);
        alphaCC.set(Mode::DIN_2008, 1, -1.5 + difference);
        EXPECT_EQ(tableIn(written(), "ALPHA_CC"),
                  annexes("<BUILDING>-1.50</BUILDING><BRIDGE>0.00</BRIDGE>",
                          std::abs(difference) < 1e-7 ? "" : "<BUILDING>-1.50</BUILDING>"))
            << difference;
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
    setDistinctValues();
    const std::string before = values();
    ZelXmlTree tree;
    build(tree, R"(<COEFFICIENTS><ALPHA_CC><X NAME="BS"><GAMMA_A/></X></ALPHA_CC></COEFFICIENTS>)");
    Coefficients::get()->output(tree);
    const std::string document = raw(tree);
    clearCoefficients();
    readCoefficients(document);
    EXPECT_EQ(values(), before);
}
