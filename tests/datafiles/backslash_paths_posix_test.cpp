#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/Context.h"
#include "support/Files.h"

// The path of the settings file has backslashes everywhere; where they part no names, the short
// path leads to the file.

using namespace Standard;
using support::TemporaryDirectory;

namespace
{

class BackslashPaths : public testing::Test
{
protected:
    BackslashPaths()
    {
        std::filesystem::create_directory(directory_.path() / "Profiles");
        zelsuite::setInstallationDirectory(directory_.path().string());
    }

    support::FreshContext context_;
    TemporaryDirectory directory_;
};

} // namespace

TEST_F(BackslashPaths, LeadToAFileBySlashesButFirstToTheOneOfThatVeryName)
{
    const std::string top = directory_.path().string();
    directory_.write("Profiles/Standard.xml",
                     "<SETTINGS><DESIGNMATERIAL>TIMBER</DESIGNMATERIAL></SETTINGS>");
    for (const std::string& path : {context_->getDataBaseDir(), top + "\\Profiles/Standard.xml",
                                    top + "/Profiles\\Standard.xml"}) {
        context_->setDesignMaterial(DesignMaterial::STEEL);
        context_->input(path);
        EXPECT_EQ(context_->getDesignMaterial(), DesignMaterial::TIMBER) << path;
    }
    context_->input(directory_.write("Profiles\\Standard.xml",
                                     "<SETTINGS><DESIGNMATERIAL>ROPE</DESIGNMATERIAL></SETTINGS>"));
    EXPECT_EQ(context_->getDesignMaterial(), DesignMaterial::ROPE);
}

TEST_F(BackslashPaths, AreWrittenToAsTheyAreRead)
{
    context_->setServiceClass(3);
    // There is no such file yet.
    for (const std::string& path : {context_->getDataBaseDir(), std::string(5000, '\\')})
        context_->input(path);
    EXPECT_EQ(context_->getServiceClass(), 3);

    context_->output(context_->getDataBaseDir());
    EXPECT_TRUE(std::filesystem::exists(directory_.path() / "Profiles" / "Standard.xml"));
    EXPECT_FALSE(std::filesystem::exists(context_->getDataBaseDir()));
    ZelStandard::kill();
    EXPECT_EQ(context_->getServiceClass(), 3);
}
