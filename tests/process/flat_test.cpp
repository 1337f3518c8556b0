#include <algorithm>

#include <zelstandard/flat.h>

#include "support/Files.h"

// Which words and files: text/process/flat.txt.
TEST(Flat, WritesNineFactorsOrNoneIntoTooLittleRoom)
{
    const support::TemporaryDirectory directory;
    std::vector<double> values(20);
    const auto written = [&](const char* type, const char* mode, const char* structure,
                             std::size_t count) {
        std::ranges::fill(values, -7.5);
        const int found = ZelStandardGetCombValues(type, mode, structure, values.data(), count);
        EXPECT_EQ(20 - std::ranges::count(values, -7.5), found ? 9 : 0);
        return found;
    };
    EXPECT_EQ(ZelStandardInitialiseFile(nullptr), 0);
    EXPECT_EQ(ZelStandardInitialiseFile(std::string(100'000, 'x').c_str()), 0);
    EXPECT_EQ(written("SNOW", "EC", "BUILDING", 20), 0) << "nothing is loaded";
    const std::string file = directory.write(
        "types.xml", "<ACTIONTYPES><ACTIONTYPE NAME='SNOW'><ANNEXES><ANNEX NAME='EC'>"
                     "<A NAME='BUILDING'/></ANNEX></ANNEXES></ACTIONTYPE></ACTIONTYPES>");
    EXPECT_EQ(ZelStandardInitialiseFile(file.c_str()), 1);
    EXPECT_EQ(ZelStandardInitialiseFile(nullptr), 1) << "a catalogue is there";
    for (std::size_t count = 0; count <= 9; ++count)
        EXPECT_EQ(written("SNOW", "EC", "BUILDING", count), count < 9 ? 0 : 1) << count;
    EXPECT_EQ(ZelStandardGetCombValues("SNOW", "EC", "BUILDING", nullptr, 20), 0);
    const std::string longWord(1'000'000, 'B');
    for (const char* word : {static_cast<const char*>(nullptr), longWord.c_str()}) {
        EXPECT_EQ(written(word, "EC", "BUILDING", 20), 0);
        EXPECT_EQ(written("SNOW", word, "BUILDING", 20), 0);
        EXPECT_EQ(written("SNOW", "EC", word, 20), 0);
    }
}
