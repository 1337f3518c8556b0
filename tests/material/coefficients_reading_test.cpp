#include "material/CoefficientTables.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

namespace
{

class CoefficientsReading : public testing::Test
{
protected:
    CoefficientsReading() { clearCoefficients(); }

    /// The expected values are those of values(coefficient).
    static void expectOfDocument(const char* fact, const std::string& document,
                                 const char* expected, const Coefficient& coefficient = gammaC)
    {
        clearCoefficients();
        readCoefficients(document);
        EXPECT_EQ(values(coefficient), expected) << fact;
    }

    /// Of the annexes of one coefficient.
    static void expect(const char* fact, const std::string& annexes, const char* expected,
                       const Coefficient& coefficient = gammaC)
    {
        const std::string tag = coefficient.element;
        expectOfDocument(fact,
                         "<COEFFICIENTS><" + tag + ">" + annexes + "</" + tag + "></COEFFICIENTS>",
                         expected, coefficient);
    }

    FreshContext context_;
};

} // namespace

TEST_F(CoefficientsReading, OfAnnexes)
{
    expect("EC replaces what came before it, a value that nobody gave by 0 too",
           R"(<ANNEX NAME="BS"><PERSISTENT>1.6</PERSISTENT><ACCIDENTAL>1.1</ACCIDENTAL></ANNEX>
              <ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>
              <ANNEX NAME="CSN"><ACCIDENTAL>1.4</ACCIDENTAL></ANNEX>)",
           "1.5 0 0; CSN 1.5 1.4 0");
    expect("EC copies its values as they then stand, also an earlier annex's",
           R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>
              <ANNEX NAME="BS"><PERSISTENT>1.6</PERSISTENT></ANNEX>
              <ANNEX NAME="EC"><ACCIDENTAL>1.2</ACCIDENTAL></ANNEX>)",
           "1.5 1.2 0");
    expect("an annex EC without values copies all the same",
           R"(<ANNEX NAME="BS"><PERSISTENT>1.6</PERSISTENT></ANNEX><ANNEX NAME="EC"/>)", "0 0 0");
    expect("of two annexes of a code the later decides, value by value",
           R"(<ANNEX NAME="SIA"><PERSISTENT>1.6</PERSISTENT><ACCIDENTAL>1.4</ACCIDENTAL></ANNEX>
              <ANNEX NAME="SIA"><PERSISTENT>1.7</PERSISTENT></ANNEX>)",
           "0 0 0; SIA 1.7 1.4 0");
    expect("a magnitude up to 1e-7 is passed over, what exceeds it is taken",
           R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT><ACCIDENTAL>1.5</ACCIDENTAL>
                <ACCIDENTAL_EQ>1.5</ACCIDENTAL_EQ></ANNEX>
              <ANNEX NAME="DIN-1988"><PERSISTENT>0</PERSISTENT><ACCIDENTAL>0.0000001</ACCIDENTAL>
                <ACCIDENTAL_EQ>-0.0000001</ACCIDENTAL_EQ></ANNEX>
              <ANNEX NAME="DIN-2008"><PERSISTENT>0.00000011</PERSISTENT>
                <ACCIDENTAL>-0.00000011</ACCIDENTAL><ACCIDENTAL_EQ>-1.5</ACCIDENTAL_EQ></ANNEX>)",
           "1.5 1.5 1.5; DIN-2008 1.1e-07 -1.1e-07 -1.5");
    expect("what is no number is passed over; an annex may have any element name",
           R"(<CODE NAME="EC"><PERSISTENT>1.5</PERSISTENT></CODE>
              <ANNEX NAME="BS"><PERSISTENT>1,6</PERSISTENT><ACCIDENTAL/>
                <ACCIDENTAL_EQ>high</ACCIDENTAL_EQ></ANNEX>)",
           "1.5 0 0");
    expect("values are children of their annex, and the first of a name counts",
           R"(<ANNEX NAME="EC"><NOTE><PERSISTENT>1.4</PERSISTENT></NOTE>
                <ACCIDENTAL>1.2</ACCIDENTAL><ACCIDENTAL>1.3</ACCIDENTAL></ANNEX>)",
           "0 1.2 0");
    expect("the rules hold for classifications too, and design situations are none",
           R"(<ANNEX NAME="BS"><BUILDING>0.7</BUILDING><BRIDGE>0.7</BRIDGE></ANNEX>
              <ANNEX NAME="EC"><BUILDING>1</BUILDING><PERSISTENT>2</PERSISTENT></ANNEX>
              <ANNEX NAME="DIN-EN"><BRIDGE>0.8</BRIDGE><BUILDING>0.0000001</BUILDING></ANNEX>)",
           "1 0; DIN-EN 1 0.8", alphaCC);
    expect("an annex of an unknown code changes none",
           R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>
              <ANNEX NAME="ec"><PERSISTENT>1.6</PERSISTENT></ANNEX>
              <ANNEX NAME="-"><PERSISTENT>1.7</PERSISTENT></ANNEX>
              <ANNEX><PERSISTENT>1.8</PERSISTENT></ANNEX>)",
           "1.5 0 0");
    EXPECT_EQ(gammaC.get(Mode::NO_CODE, 0), 1.8) << "but it is kept, under no code";
}

TEST_F(CoefficientsReading, OfDocuments)
{
    const std::string table = R"(<GAMMA_C><A NAME="EC"><PERSISTENT>1.5</PERSISTENT></A></GAMMA_C>)";
    const std::string other = R"(<GAMMA_C><A NAME="EC"><ACCIDENTAL>9</ACCIDENTAL></A></GAMMA_C>)";
    expectOfDocument("coefficients and a table may stand deeper, and the first ones count",
                     "<PROFILE><CODES><COEFFICIENTS><CONCRETE>" + table + "</CONCRETE>" + other +
                         "</COEFFICIENTS></CODES><COEFFICIENTS>" + other +
                         "</COEFFICIENTS></PROFILE>",
                     "1.5 0 0");
    expectOfDocument("a table outside of the first COEFFICIENTS does not count",
                     "<SMOD>" + table + "<COEFFICIENTS/><COEFFICIENTS>" + table +
                         "</COEFFICIENTS></SMOD>",
                     "0 0 0");
    expectOfDocument("a document that is not well formed gives nothing", "<COEFFICIENTS>" + table,
                     "0 0 0");

    // Tables that a document lacks stay, as do all when there is none.
    setDistinctValues();
    const std::string before = values();
    Coefficients::get()->input(static_cast<ZelXmlData*>(nullptr));
    readCoefficients("<COEFFICIENTS><GAMMA_C/><ALPHA_CC/></COEFFICIENTS>");
    EXPECT_EQ(values(), before);
}

TEST_F(CoefficientsReading, SettersReachTheirOwnValueAlone)
{
    // Every value is different, so a crossed pair shows. Keys are not checked.
    for (const bool set : {true, false})
        for (const Coefficient& coefficient : coefficients)
            for (int mode = -1; mode <= 9; ++mode)
                for (int key = -1; key <= 3; ++key) {
                    const auto number = &coefficient - coefficients;
                    const double value = static_cast<double>(1000 * number + 10 * mode + key);
                    if (set)
                        coefficient.set(Mode{mode}, key, value);
                    else
                        EXPECT_EQ(coefficient.get(Mode{mode}, key), value)
                            << coefficient.element << " " << mode << " " << key;
                }
}

TEST_F(CoefficientsReading, OfAFile)
{
    const TemporaryDirectory directory;
    const std::string document = R"(<COEFFICIENTS><GAMMA_C>
        <ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX></GAMMA_C></COEFFICIENTS>)";
    // The last one is never deciphered.
    for (const std::string& path :
         {directory.file("missing.xml"), directory.path().string(), std::string(),
          directory.write("coefficients.enc", enciphered(document))})
        Coefficients::get()->input(path);
    EXPECT_EQ(values(gammaC), "0 0 0");

    Coefficients::get()->input(directory.write("coefficients.xml", document));
    EXPECT_EQ(values(gammaC), "1.5 0 0");
}
