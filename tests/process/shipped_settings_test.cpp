// The first ZelStandard::get() of a process reads the settings file that is installed beside the
// library. On systems that part names by slashes its path, which has backslashes, is found all the
// same.

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/Tools.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/Files.h"

using namespace Standard;

TEST(ShippedSettings, AreReadByTheFirstCall)
{
    const std::filesystem::path installation = Tools::getInstallationDirectory(false);
    ASSERT_TRUE(std::filesystem::exists(installation / "Profiles" / "Standard.xml"));

    const ZelStandard& context = *ZelStandard::get();
    EXPECT_EQ(context.getDataBaseDir(), installation.string() + "\\Profiles\\Standard.xml");
    EXPECT_EQ(context.getMode(), Mode::EC) << "without the file it would be DIN-2008";
    EXPECT_EQ(context.getClassification(), Classification::BUILDING);
    EXPECT_EQ(context.getBuildingType(), BuildingType::COMMON);
    EXPECT_EQ(context.getDuctilityClass(), DuctilityClass::DCM);
}
