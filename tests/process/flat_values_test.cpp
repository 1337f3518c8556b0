#include <algorithm>

#include <zelstandard/flat.h>

#include "support/Context.h"
#include "support/Files.h"

namespace
{

const char* const document = R"(<SMOD><ACTIONTYPES>
  <ACTIONTYPE NAME="SNOW"><ANNEXES>
    <ANNEX NAME="EC">
      <CLASSIFICATION NAME="BUILDING">
        <GAMMA_SUP>1.5</GAMMA_SUP> <GAMMA_INF>0.1</GAMMA_INF>
        <PSI0>0.7</PSI0> <PSI1>0.5</PSI1> <PSI2>0.2</PSI2>
        <PSI11>0.8</PSI11> <PSI21>0.3</PSI21> <PSI22>0.4</PSI22> <CrackRed>0.9</CrackRed>
      </CLASSIFICATION>
      <CLASSIFICATION NAME="ROADWAY"> <GAMMA_SUP>11</GAMMA_SUP> </CLASSIFICATION>
      <CLASSIFICATION NAME="RAILWAY3"> <GAMMA_SUP>14</GAMMA_SUP> </CLASSIFICATION>
      <CLASSIFICATION NAME="FOOTBRIDGE1"> <GAMMA_SUP>15</GAMMA_SUP> </CLASSIFICATION>
    </ANNEX>
    <ANNEX NAME="DIN-EN"><CLASSIFICATION NAME="BUILDING"> <GAMMA_SUP>81</GAMMA_SUP> </CLASSIFICATION></ANNEX>
    <ANNEX NAME="SIA"/>
    <ANNEX NAME="-"/>
  </ANNEXES></ACTIONTYPE>
  <ACTIONTYPE NAME="T"><ANNEXES>
    <ANNEX NAME="EC">
      <CLASSIFICATION NAME="BUILDING"> <GAMMA_SUP>31</GAMMA_SUP> </CLASSIFICATION>
      <CLASSIFICATION NAME="any other structure"> <GAMMA_SUP>32</GAMMA_SUP> </CLASSIFICATION>
    </ANNEX>
  </ANNEXES></ACTIONTYPE>
  <ACTIONTYPE NAME="no identity"><ANNEXES>
    <ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"/></ANNEX>
  </ANNEXES></ACTIONTYPE>
</ACTIONTYPES></SMOD>)";

constexpr double untouched = -7.5;

/// Room for more values than there are.
struct Block {
    std::vector<double> values = std::vector<double>(20, untouched);

    [[nodiscard]] bool isUntouchedFrom(std::ptrdiff_t first) const
    {
        return std::all_of(values.begin() + first, values.end(),
                           [](double value) { return value == untouched; });
    }
};

/// Gamma sup, or 0 when there are no factors; then nothing may have been written either.
double gammaSup(const char* type, const char* mode, const char* structure)
{
    Block block;
    const int found =
        ZelStandardGetCombValues(type, mode, structure, block.values.data(), block.values.size());
    EXPECT_TRUE(found == 0 || found == 1);
    EXPECT_TRUE(block.isUntouchedFrom(found ? 9 : 0));
    return found ? block.values.front() : 0.0;
}

class FlatValues : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const support::TemporaryDirectory directory;
        ASSERT_NE(ZelStandardInitialiseFile(directory.write("types.xml", document).c_str()), 0);
    }
};

} // namespace

TEST_F(FlatValues, NineAreWrittenInTheirOrder)
{
    for (const std::size_t count : {std::size_t{9}, std::size_t{20}}) {
        Block block;
        EXPECT_EQ(ZelStandardGetCombValues("SNOW", "EC", "BUILDING", block.values.data(), count),
                  1);
        EXPECT_EQ(std::vector(block.values.begin(), block.values.begin() + 9),
                  (std::vector{1.5, 0.1, 0.7, 0.5, 0.2, 0.8, 0.3, 0.4, 0.9}));
        EXPECT_TRUE(block.isUntouchedFrom(9));
    }
}

TEST_F(FlatValues, NothingIsWrittenIntoTooLittleRoom)
{
    for (std::size_t count = 0; count < 9; ++count) {
        Block block;
        EXPECT_EQ(ZelStandardGetCombValues("SNOW", "EC", "BUILDING", block.values.data(), count),
                  0);
        EXPECT_TRUE(block.isUntouchedFrom(0));
    }
}

TEST_F(FlatValues, ANullPointerGivesNothing)
{
    Block block;
    double* const values = block.values.data();
    EXPECT_EQ(ZelStandardGetCombValues(nullptr, "EC", "BUILDING", values, 20), 0);
    EXPECT_EQ(ZelStandardGetCombValues("SNOW", nullptr, "BUILDING", values, 20), 0);
    EXPECT_EQ(ZelStandardGetCombValues("SNOW", "EC", nullptr, values, 20), 0);
    EXPECT_EQ(ZelStandardGetCombValues("SNOW", "EC", "BUILDING", nullptr, 20), 0);
    EXPECT_TRUE(block.isUntouchedFrom(0));
}

TEST_F(FlatValues, OnlyTheExactWordOfABuildingMeansOne)
{
    struct Case {
        const char* structure;
        double ofSnow;        ///< which has no set for an unknown structure
        double ofTemperature; ///< which has one
    };
    const std::string longWord(1'000'000, 'B');
    const Case cases[] = {
        {"BUILDING",         1.5, 31},
        {"building",         0,   32},
        {"Building",         0,   32},
        {"BUILDING ",        0,   32},
        {" BUILDING",        0,   32},
        {"BUILDIN",          0,   32},
        {"BRIDGE",           0,   32},
        {"",                 0,   32},
        {"-",                0,   32},
        {"BUILDINGBUILDING", 0,   32},
        {longWord.c_str(),   0,   32},
        {"ROADWAY",          11,  0 },
        {"RAILWAY3",         14,  0 },
        {"FOOTBRIDGE1",      15,  0 },
        {"FOOTBRIDGE2",      15,  0 },
        {"roadway",          0,   32},
        {"RAILWAY1",         0,   0 },
    };
    for (const Case& c : cases) {
        const std::string structure = std::string(c.structure).substr(0, 40);
        EXPECT_EQ(gammaSup("SNOW", "EC", c.structure), c.ofSnow) << structure;
        EXPECT_EQ(gammaSup("T", "EC", c.structure), c.ofTemperature) << structure;
    }
}

TEST_F(FlatValues, OnlyExactWordsOfCodesAreCodes)
{
    struct Case {
        const char* mode;
        double gammaSup;
    };
    const std::string longWord = "EC" + std::string(1'000'000, ' ');
    const Case cases[] = {
        {"EC",             1.5},
        {"DIN-EN",         81 },
        {"SIA",            1.5}, // an empty annex
        {"BS",             0  }, // no annex
        {"-",              0  }, // the file has an annex of that name
        {"",               0  },
        {"ec",             0  },
        {" EC",            0  },
        {"DIN",            0  },
        {"1",              0  },
        {longWord.c_str(), 0  },
    };
    for (const Case& c : cases)
        EXPECT_EQ(gammaSup("SNOW", c.mode, "BUILDING"), c.gammaSup)
            << std::string(c.mode).substr(0, 40);
}

TEST_F(FlatValues, OnlyExactWordsOfActionTypesInTheFileAreTypes)
{
    const std::string longWord = "SNOW" + std::string(1'000'000, 'X');
    for (const char* type : {"NONE", "no identity", "", "snow", "SNOW ", "SNO", "30", "P",
                             "WIND_CST", "SNOW_CST", "BRAKE_LM71", longWord.c_str()})
        EXPECT_EQ(gammaSup(type, "EC", "BUILDING"), 0) << std::string(type).substr(0, 40);
}

TEST_F(FlatValues, TheSettingsOfTheProcessPlayNoPart)
{
    const support::FreshContext context;
    for (int mode = 0; mode <= 8; ++mode) {
        for (const int classification : {1, 2}) {
            context->setMode(Standard::Mode{mode});
            context->setClassification(Standard::Classification{classification});
            context->setBridgeType(Standard::BridgeType::RAILWAY3);
            context->setDesignMaterial(Standard::DesignMaterial::STEEL);
            EXPECT_EQ(gammaSup("SNOW", "EC", "BUILDING"), 1.5);
            EXPECT_EQ(gammaSup("SNOW", "EC", "ROADWAY"), 11);
            EXPECT_EQ(context->getMode(), Standard::Mode{mode});
            EXPECT_EQ(context->getClassification(), Standard::Classification{classification});
        }
    }
}
