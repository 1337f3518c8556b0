#include "material/CoefficientTables.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

namespace
{

using CoefficientsReading = CoefficientsTest;

struct Case {
    const char* fact;
    const char* document;
    const char* expected;
};

/// The annexes of one coefficient; the expected values are those of values(coefficient).
constexpr Case gammaAnnexes[] = {
    {"EC gives its values to all codes",                                   R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>)",
     "1.5 0 0"                                                                                                                                                                      },
    {"each design situation has its element",
     R"(<ANNEX NAME="EC"><ACCIDENTAL_EQ>1.3</ACCIDENTAL_EQ><PERSISTENT>1.5</PERSISTENT>
        <ACCIDENTAL>1.2</ACCIDENTAL></ANNEX>)",                                               "1.5 1.2 1.3"                                },
    {"an annex behind EC replaces what it gives",
     R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT><ACCIDENTAL>1.2</ACCIDENTAL></ANNEX>
        <ANNEX NAME="DIN-2008"><ACCIDENTAL>1.3</ACCIDENTAL></ANNEX>
        <ANNEX NAME="DIN-EN"/>)",                                             "1.5 1.2 0; DIN-2008 1.5 1.3 0"              },
    {"EC replaces what came before it, a value that nobody gave by 0 too",
     R"(<ANNEX NAME="BS"><PERSISTENT>1.6</PERSISTENT><ACCIDENTAL>1.1</ACCIDENTAL></ANNEX>
        <ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>
        <ANNEX NAME="CSN"><ACCIDENTAL>1.4</ACCIDENTAL></ANNEX>)",                                             "1.5 0 0; CSN 1.5 1.4 0"                     },
    {"EC copies its values as they then stand, also an earlier annex's",
     R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>
        <ANNEX NAME="BS"><PERSISTENT>1.6</PERSISTENT></ANNEX>
        <ANNEX NAME="EC"><ACCIDENTAL>1.2</ACCIDENTAL></ANNEX>)",                                                                         "1.5 1.2 0"                                  },
    {"an annex EC without values copies all the same",
     R"(<ANNEX NAME="BS"><PERSISTENT>1.6</PERSISTENT></ANNEX><ANNEX NAME="EC"/>)",                                                     "0 0 0"                                      },
    {"of two annexes of a code the later decides, value by value",
     R"(<ANNEX NAME="SIA"><PERSISTENT>1.6</PERSISTENT><ACCIDENTAL>1.4</ACCIDENTAL></ANNEX>
        <ANNEX NAME="SIA"><PERSISTENT>1.7</PERSISTENT></ANNEX>)",                                            "0 0 0; SIA 1.7 1.4 0"                       },
    {"a magnitude up to 1e-7 is passed over, what exceeds it is taken",
     R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT><ACCIDENTAL>1.5</ACCIDENTAL>
          <ACCIDENTAL_EQ>1.5</ACCIDENTAL_EQ></ANNEX>
        <ANNEX NAME="DIN-1988"><PERSISTENT>0</PERSISTENT><ACCIDENTAL>0.0000001</ACCIDENTAL>
          <ACCIDENTAL_EQ>-0.0000001</ACCIDENTAL_EQ></ANNEX>
        <ANNEX NAME="DIN-2008"><PERSISTENT>0.00000011</PERSISTENT>
          <ACCIDENTAL>-0.00000011</ACCIDENTAL><ACCIDENTAL_EQ>-1.5</ACCIDENTAL_EQ></ANNEX>)",                                                     "1.5 1.5 1.5; DIN-2008 1.1e-07 -1.1e-07 -1.5"},
    {"what is no number is passed over",
     R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>
        <ANNEX NAME="BS"><PERSISTENT>1,6</PERSISTENT><ACCIDENTAL/>
          <ACCIDENTAL_EQ>high</ACCIDENTAL_EQ></ANNEX>)",                                                                         "1.5 0 0"                                    },
    {"an annex of an unknown code changes none",
     R"(<ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX>
        <ANNEX NAME="ec"><PERSISTENT>1.6</PERSISTENT></ANNEX>
        <ANNEX NAME="-"><PERSISTENT>1.7</PERSISTENT></ANNEX>
        <ANNEX><PERSISTENT>1.8</PERSISTENT></ANNEX>)",                                                                         "1.5 0 0"                                    },
    {"an annex may have any element name",                                 R"(<CODE NAME="EC"><PERSISTENT>1.5</PERSISTENT></CODE>)",
     "1.5 0 0"                                                                                                                                                                      },
    {"values are children of their annex, and the first of a name counts",
     R"(<ANNEX NAME="EC"><NOTE><PERSISTENT>1.4</PERSISTENT></NOTE>
          <ACCIDENTAL>1.2</ACCIDENTAL><ACCIDENTAL>1.3</ACCIDENTAL></ANNEX>)",                                                                    "0 1.2 0"                                    },
};

constexpr Case alphaAnnexes[] = {
    {"each classification has its element",
     R"(<ANNEX NAME="EC"><BRIDGE>0.85</BRIDGE><BUILDING>1</BUILDING></ANNEX>)",                                                         "1 0.85"           },
    {"EC replaces what came before it, and is replaced by what comes behind",
     R"(<ANNEX NAME="BS"><BUILDING>0.7</BUILDING><BRIDGE>0.7</BRIDGE></ANNEX>
        <ANNEX NAME="EC"><BUILDING>1</BUILDING></ANNEX>
        <ANNEX NAME="DIN-EN"><BRIDGE>0.8</BRIDGE><BUILDING>0.0000001</BUILDING></ANNEX>)",                                                          "1 0; DIN-EN 1 0.8"},
    {"design situations do not count",                                        R"(<ANNEX NAME="EC"><PERSISTENT>1</PERSISTENT></ANNEX>)",
     "0 0"                                                                                                                                                 },
};

/// Documents as a whole; the expected values are those of GAMMA_C.
constexpr Case documents[] = {
    {"the coefficients may be the root",
     R"(<COEFFICIENTS><GAMMA_C><A NAME="EC"><PERSISTENT>1.5</PERSISTENT></A></GAMMA_C>
        </COEFFICIENTS>)",   "1.5 0 0"},
    {"coefficients and a table may stand deeper",
     R"(<PROFILE><CODES><COEFFICIENTS><CONCRETE><GAMMA_C>
          <A NAME="EC"><PERSISTENT>1.5</PERSISTENT></A></GAMMA_C></CONCRETE></COEFFICIENTS>
        </CODES></PROFILE>)",                                "1.5 0 0"},
    {"of two tables of a name, at any depth, the first counts",
     R"(<SMOD><COEFFICIENTS>
          <OLD><GAMMA_C><A NAME="EC"><PERSISTENT>1.5</PERSISTENT></A></GAMMA_C></OLD>
          <GAMMA_C><A NAME="EC"><PERSISTENT>1.6</PERSISTENT></A></GAMMA_C></COEFFICIENTS></SMOD>)",                                                             "1.5 0 0"},
    {"of two elements COEFFICIENTS the first counts",
     R"(<SMOD><COEFFICIENTS/><COEFFICIENTS>
          <GAMMA_C><A NAME="EC"><PERSISTENT>1.5</PERSISTENT></A></GAMMA_C></COEFFICIENTS></SMOD>)",                                              "0 0 0"  },
    {"a table outside of COEFFICIENTS does not count",
     R"(<SMOD><GAMMA_C><A NAME="EC"><PERSISTENT>1.5</PERSISTENT></A></GAMMA_C>
          <COEFFICIENTS/></SMOD>)",           "0 0 0"  },
    {"a document that is not well formed gives nothing",
     R"(<COEFFICIENTS><GAMMA_C><A NAME="EC"><PERSISTENT>1.5</PERSISTENT></A></GAMMA_C>)", "0 0 0"  },
};

} // namespace

TEST_F(CoefficientsReading, OfTheAnnexesOfOneTable)
{
    const auto expect = [](const Coefficient& coefficient, const Case& c) {
        clearCoefficients();
        const std::string tag = coefficient.element;
        readCoefficients("<COEFFICIENTS><" + tag + ">" + c.document + "</" + tag +
                         "></COEFFICIENTS>");
        EXPECT_EQ(values(coefficient), c.expected) << c.fact;
    };
    for (const Case& c : gammaAnnexes)
        expect(gammaC, c);
    for (const Case& c : alphaAnnexes)
        expect(alphaCC, c);
}

TEST_F(CoefficientsReading, OfDocuments)
{
    for (const Case& c : documents) {
        clearCoefficients();
        readCoefficients(c.document);
        EXPECT_EQ(values(gammaC), c.expected) << c.fact;
    }
    clearCoefficients();
    Coefficients::get()->input(static_cast<ZelXmlData*>(nullptr));
    EXPECT_EQ(values(gammaC), "0 0 0");
}

TEST_F(CoefficientsReading, OfEachTableReachesItsGetterAlone)
{
    for (const Coefficient& read : coefficients) {
        clearCoefficients();
        const std::string tag = read.element;
        const std::string word = read.word(lastKey);
        readCoefficients("<COEFFICIENTS><" + tag + "><ANNEX NAME=\"EC\"><" + word + ">1.5</" +
                         word + "></ANNEX></" + tag + "></COEFFICIENTS>");
        for (const Coefficient& asked : coefficients)
            for (int mode = 0; mode <= 9; ++mode)
                for (int key = -1; key <= 3; ++key)
                    EXPECT_EQ(asked.get(Mode{mode}, key),
                              &asked == &read && mode >= 1 && mode <= 8 && key == lastKey ? 1.5
                                                                                          : 0.0)
                        << asked.element << " " << mode << " " << key << " after " << tag;
    }
}

TEST_F(CoefficientsReading, KeepsTheValuesOfAnUnknownCodeUnderNoCode)
{
    readCoefficients(R"(<COEFFICIENTS><GAMMA_C>
        <ANNEX NAME="ISO"><PERSISTENT>1.6</PERSISTENT></ANNEX></GAMMA_C></COEFFICIENTS>)");
    EXPECT_EQ(gammaC.get(Mode::NO_CODE, 0), 1.6);
}

TEST_F(CoefficientsReading, ReplacesOnlyWhatTheDocumentGives)
{
    setDistinctValues();
    const std::string before = values();
    readCoefficients("<COEFFICIENTS><GAMMA_C/><ALPHA_CC/></COEFFICIENTS>");
    EXPECT_EQ(values(), before);
    readCoefficients(R"(<COEFFICIENTS>
        <GAMMA_C><ANNEX NAME="BS"><ACCIDENTAL>7</ACCIDENTAL></ANNEX></GAMMA_C></COEFFICIENTS>)");
    EXPECT_EQ(gammaC.get(Mode::BS, 1), 7.0);
    gammaC.set(Mode::BS, 1, distinctValue(gammaC, Mode::BS, 1));
    EXPECT_EQ(values(), before);
}

TEST_F(CoefficientsReading, OfAFile)
{
    const TemporaryDirectory directory;
    const std::string document = R"(<COEFFICIENTS><GAMMA_C>
        <ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX></GAMMA_C></COEFFICIENTS>)";

    Coefficients::get()->input(directory.file("missing.xml"));
    Coefficients::get()->input(directory.path().string());
    Coefficients::get()->input(std::string());
    // Never deciphered.
    Coefficients::get()->input(directory.write("coefficients.age", enciphered(document)));
    EXPECT_EQ(values(gammaC), "0 0 0");

    Coefficients::get()->input(directory.write("coefficients.xml", document));
    EXPECT_EQ(values(gammaC), "1.5 0 0");
}

TEST_F(CoefficientsReading, SettersReachTheirOwnValueAlone)
{
    // Every value is different, so a crossed pair shows.
    setDistinctValues();
    for (const Coefficient& coefficient : coefficients)
        for (int mode = -1; mode <= 9; ++mode)
            for (int key = -1; key <= 3; ++key) {
                const bool isGiven =
                    mode >= 1 && mode <= 8 && key >= coefficient.firstKey && key <= lastKey;
                EXPECT_EQ(coefficient.get(Mode{mode}, key),
                          isGiven ? distinctValue(coefficient, Mode{mode}, key) : 0.0)
                    << coefficient.element << " " << mode << " " << key;
            }
    // Keys are not checked.
    gammaC.set(Mode{9}, 3, 1.25);
    EXPECT_EQ(gammaC.get(Mode{9}, 3), 1.25);
}
