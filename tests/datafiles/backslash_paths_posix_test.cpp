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

std::string settingsOf(const std::string& material)
{
    return "<SMOD><SETTINGS><DESIGNMATERIAL>" + material + "</DESIGNMATERIAL></SETTINGS></SMOD>";
}

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

TEST_F(BackslashPaths, LeadToAFileBySlashes)
{
    directory_.write("Profiles/Standard.xml", settingsOf("TIMBER"));
    for (const std::string& path :
         {context_->getDataBaseDir(), directory_.path().string() + "\\Profiles/Standard.xml",
          directory_.path().string() + "/Profiles\\Standard.xml"}) {
        context_->setDesignMaterial(DesignMaterial::STEEL);
        context_->input(path);
        EXPECT_EQ(context_->getDesignMaterial(), DesignMaterial::TIMBER) << path;
    }
}

TEST_F(BackslashPaths, LeadToTheFileOfThatVeryNameFirst)
{
    directory_.write("Profiles/Standard.xml", settingsOf("TIMBER"));
    const std::string literal = directory_.write("Profiles\\Standard.xml", settingsOf("ROPE"));
    context_->input(literal);
    EXPECT_EQ(context_->getDesignMaterial(), DesignMaterial::ROPE);
}

TEST_F(BackslashPaths, LeadNowhereWhenThereIsNoFile)
{
    context_->setServiceClass(2);
    context_->input(context_->getDataBaseDir());
    context_->input("\\");
    context_->input(std::string(5000, '\\'));
    EXPECT_EQ(context_->getServiceClass(), 2);
}

TEST_F(BackslashPaths, AreWrittenToAsTheyAreRead)
{
    context_->setServiceClass(3);
    context_->output(context_->getDataBaseDir());
    EXPECT_TRUE(std::filesystem::exists(directory_.path() / "Profiles" / "Standard.xml"));
    EXPECT_FALSE(std::filesystem::exists(context_->getDataBaseDir()));
    ZelStandard::kill();
    EXPECT_EQ(context_->getServiceClass(), 3);
}
