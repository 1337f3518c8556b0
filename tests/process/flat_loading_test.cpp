// The flat interface loads its catalogue once in the life of the process.

#include <zelstandard/flat.h>

#include "support/Files.h"

TEST(FlatLoading, TheFirstFileWithActionTypesIsKept)
{
    const support::TemporaryDirectory directory;
    const std::string document =
        "<ACTIONTYPES><ACTIONTYPE NAME='SNOW'><ANNEXES><ANNEX NAME='EC'><CLASSIFICATION "
        "NAME='BUILDING'><GAMMA_SUP>1.5</GAMMA_SUP></CLASSIFICATION></ANNEX></ANNEXES>"
        "</ACTIONTYPE></ACTIONTYPES>";
    double values[ZELSTANDARD_FACTORS] = {-7};
    const auto query = [&](const char* type) {
        return ZelStandardGetCombValues(type, "EC", "BUILDING", values, std::size(values));
    };
    EXPECT_EQ(ZelStandardInitialiseFile(nullptr), 0);
    EXPECT_EQ(query("SNOW"), 0) << "nothing is loaded";
    for (const std::string& path :
         {directory.file("missing.xml"), std::string(), std::string(100'000, 'x'),
          directory.path().string(), directory.write("empty.xml", ""),
          directory.write("no-types.xml", "<SMOD><ACTIONTYPES/></SMOD>"),
          directory.write("malformed.xml", document + "<"),
          directory.write("damaged.xml", support::enciphered(document) + "x")}) {
        EXPECT_EQ(ZelStandardInitialiseFile(path.c_str()), 0) << path.substr(0, 100);
        EXPECT_EQ(query("SNOW"), 0) << path.substr(0, 100);
    }
    EXPECT_EQ(values[0], -7);

    const std::string good = directory.write("good.xml", support::enciphered(document));
    EXPECT_NE(ZelStandardInitialiseFile(good.c_str()), 0);

    const std::string second =
        directory.write("second.xml", "<ACTIONTYPES><ACTIONTYPE NAME='T'/></ACTIONTYPES>");
    support::writeFile(good, "");
    for (const char* path :
         {second.c_str(), good.c_str(), "missing.xml", static_cast<const char*>(nullptr)}) {
        EXPECT_NE(ZelStandardInitialiseFile(path), 0) << "a catalogue is there";
        EXPECT_EQ(query("SNOW"), 1);
        EXPECT_EQ(values[0], 1.5);
    }
}
