#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <zelstandard/platform/Tools.h>
#include <zelsuite/zelsuite.h>

#include "support/Files.h"

namespace fs = std::filesystem;

TEST(StringCompare, MatchesByItsMode)
{
    const struct {
        const char* searched;
        const char* candidate;
        bool mode0, mode1;
    } rows[] = {
        {"Wind",      "Wind",       true,  true },
        {"Wind",      " wIND\t",    false, true },
        {" Wind ",    "WIND",       false, true },
        {"",          " ",          false, true },
        {"Wind",      "Winds",      false, false},
        {"Snow load", "Snow  load", false, false},
        {"\xC3\xA4",  "\xC3\x84",   false, false}, // ä and Ä: only ASCII letters have no case
        {"[",         "{",          false, false}, // neighbours of the letters
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Tools::StringCompare(row.searched, 0)(row.candidate), row.mode0) << row.searched;
        EXPECT_EQ(Tools::StringCompare(row.searched, 2)(row.candidate), row.mode0) << row.searched;
        EXPECT_EQ(Tools::StringCompare(row.searched, 1)(row.candidate), row.mode1) << row.searched;
    }
}

TEST(Files, AreThereUnderEachNameThatASystemMakes)
{
    const support::TemporaryDirectory directory;
    for (const char* name : {"plain.xml", "SHORT~1.XML", "two words"})
        EXPECT_TRUE(Tools::File::exists(directory.write(name, ""))) << name;
    for (const std::string& missing : {directory.file("missing.xml"), std::string()})
        EXPECT_FALSE(Tools::File::exists(missing)) << missing;
}

TEST(InstallationDirectory, IsTheHostsOrBesideTheLibrary)
{
    const std::string builtIn = Tools::getInstallationDirectory(false);
    EXPECT_TRUE(fs::path(builtIn).is_absolute()) << builtIn;
    EXPECT_TRUE(builtIn.ends_with("/share/zelstandard")) << builtIn;
    EXPECT_EQ(Tools::getInstallationDirectory(true), builtIn + "/");

    zelsuite::setInstallationDirectory("/opt/frame/");
    EXPECT_EQ(Tools::getInstallationDirectory(false), "/opt/frame");
    EXPECT_EQ(Tools::getInstallationDirectory(true), "/opt/frame/");
    zelsuite::setInstallationDirectory("/");
    EXPECT_EQ(Tools::getInstallationDirectory(true), "/");
    zelsuite::setInstallationDirectory("");

    const fs::path before = fs::current_path();
    fs::current_path(fs::temp_directory_path());
    EXPECT_EQ(Tools::getInstallationDirectory(false), builtIn);
    fs::current_path(before);
}
