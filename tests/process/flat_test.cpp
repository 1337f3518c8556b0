#include <algorithm>

#include <zelstandard/flat.h>

#include "support/Context.h"
#include "support/Files.h"

namespace
{

const std::string document = R"(<SMOD><ACTIONTYPES>
  <ACTIONTYPE NAME="SNOW"><ANNEXES>
    <ANNEX NAME="EC">
      <CLASSIFICATION NAME="BUILDING">
        <GAMMA_SUP>1.5</GAMMA_SUP> <GAMMA_INF>0.1</GAMMA_INF>
        <PSI0>0.7</PSI0> <PSI1>0.5</PSI1> <PSI2>0.2</PSI2>
        <PSI11>0.8</PSI11> <PSI21>0.3</PSI21> <PSI22>0.4</PSI22> <CrackRed>0.9</CrackRed>
      </CLASSIFICATION>
      <CLASSIFICATION NAME="ROADWAY"> <GAMMA_SUP>11</GAMMA_SUP> </CLASSIFICATION>
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

/// Gamma sup, or 0 when there are no factors; then nothing may have been written either.
double gammaSup(const char* type, const char* mode, const char* structure, std::size_t count = 20)
{
    std::vector<double> values(20, untouched);
    const int found = ZelStandardGetCombValues(type, mode, structure, values.data(), count);
    EXPECT_TRUE(found == 0 || found == 1);
    EXPECT_EQ(std::ranges::count(values, untouched), found ? 11 : 20);
    return found ? values.front() : 0.0;
}

} // namespace

// The catalogue is loaded once in the life of the process: this test comes first, and the others
// ask what it has loaded.
TEST(Flat, KeepsTheFirstFileWithActionTypes)
{
    const support::TemporaryDirectory directory;
    EXPECT_EQ(ZelStandardInitialiseFile(nullptr), 0);
    EXPECT_EQ(gammaSup("SNOW", "EC", "BUILDING"), 0) << "nothing is loaded";
    for (const std::string& path :
         {directory.file("missing.xml"), std::string(), std::string(100'000, 'x'),
          directory.path().string(), directory.write("empty.xml", ""),
          directory.write("no-types.xml", "<SMOD><ACTIONTYPES/></SMOD>"),
          directory.write("malformed.xml", document + "<"),
          directory.write("damaged.xml", support::enciphered(document) + "x")}) {
        EXPECT_EQ(ZelStandardInitialiseFile(path.c_str()), 0) << path.substr(0, 100);
        EXPECT_EQ(gammaSup("SNOW", "EC", "BUILDING"), 0) << path.substr(0, 100);
    }
    const std::string good = directory.write("good.xml", support::enciphered(document));
    EXPECT_NE(ZelStandardInitialiseFile(good.c_str()), 0);
    const std::string second =
        directory.write("second.xml", "<ACTIONTYPES><ACTIONTYPE NAME='T'/></ACTIONTYPES>");
    support::writeFile(good, "");
    for (const char* path :
         {second.c_str(), good.c_str(), "missing.xml", static_cast<const char*>(nullptr)}) {
        EXPECT_NE(ZelStandardInitialiseFile(path), 0) << "a catalogue is there";
        EXPECT_EQ(gammaSup("SNOW", "EC", "BUILDING"), 1.5);
    }
}

TEST(Flat, NineAreWrittenInTheirOrderOrNoneIntoTooLittleRoom)
{
    std::vector<double> values(9);
    EXPECT_EQ(ZelStandardGetCombValues("SNOW", "EC", "BUILDING", values.data(), 9), 1);
    EXPECT_EQ(values, (std::vector{1.5, 0.1, 0.7, 0.5, 0.2, 0.8, 0.3, 0.4, 0.9}));
    for (std::size_t count = 0; count <= 9; ++count)
        EXPECT_EQ(gammaSup("SNOW", "EC", "BUILDING", count), count < 9 ? 0 : 1.5) << count;
    EXPECT_EQ(ZelStandardGetCombValues("SNOW", "EC", "BUILDING", nullptr, 20), 0);
    EXPECT_EQ(gammaSup(nullptr, "EC", "BUILDING"), 0);
    EXPECT_EQ(gammaSup("SNOW", nullptr, "BUILDING"), 0);
    EXPECT_EQ(gammaSup("SNOW", "EC", nullptr), 0);
}

TEST(Flat, OnlyTheExactWordOfABuildingMeansOne)
{
    EXPECT_EQ(gammaSup("T", "EC", "BUILDING"), 31);
    const std::string longWord(1'000'000, 'B');
    for (const char* structure : {"building", "BUILDING ", " BUILDING", "BUILDIN", "BRIDGE", "",
                                  "-", "BUILDINGBUILDING", "roadway", longWord.c_str()}) {
        SCOPED_TRACE(std::string(structure).substr(0, 40));
        EXPECT_EQ(gammaSup("SNOW", "EC", structure), 0);
        EXPECT_EQ(gammaSup("T", "EC", structure), 32) << "has a set for an unknown structure";
    }
    EXPECT_EQ(gammaSup("SNOW", "EC", "ROADWAY"), 11);
    EXPECT_EQ(gammaSup("SNOW", "EC", "FOOTBRIDGE2"), 15) << "means the first footbridge";
    EXPECT_EQ(gammaSup("T", "EC", "RAILWAY1"), 0);
}

TEST(Flat, OnlyExactWordsOfCodesAndTypesInTheFileCount)
{
    EXPECT_EQ(gammaSup("SNOW", "DIN-EN", "BUILDING"), 81);
    EXPECT_EQ(gammaSup("SNOW", "SIA", "BUILDING"), 1.5) << "an empty annex";
    const std::string longMode = "EC" + std::string(1'000'000, ' ');
    for (const char* mode : {"BS", "-", "", "ec", " EC", "DIN", "1", longMode.c_str()})
        EXPECT_EQ(gammaSup("SNOW", mode, "BUILDING"), 0) << std::string(mode).substr(0, 40);
    const std::string longType = "SNOW" + std::string(1'000'000, 'X');
    for (const char* type : {"NONE", "no identity", "", "snow", "SNOW ", "SNO", "30", "P",
                             "SNOW_CST", "BRAKE_LM71", longType.c_str()})
        EXPECT_EQ(gammaSup(type, "EC", "BUILDING"), 0) << std::string(type).substr(0, 40);
}

TEST(Flat, TheSettingsOfTheProcessPlayNoPart)
{
    const support::FreshContext context;
    for (int mode = 0; mode <= 8; ++mode) {
        for (const int classification : {1, 2}) {
            context->setMode(Standard::Mode{mode});
            context->setClassification(Standard::Classification{classification});
            context->setBridgeType(Standard::BridgeType::RAILWAY3);
            EXPECT_EQ(gammaSup("SNOW", "EC", "BUILDING"), 1.5);
            EXPECT_EQ(gammaSup("SNOW", "EC", "ROADWAY"), 11);
            EXPECT_EQ(context->getMode(), Standard::Mode{mode});
            EXPECT_EQ(context->getClassification(), Standard::Classification{classification});
        }
    }
}
