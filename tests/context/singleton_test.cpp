#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;
using support::FreshContext;
using support::TemporaryDirectory;

namespace
{

const std::string timberSettings =
    "<SMOD><SETTINGS><DESIGNMATERIAL>TIMBER</DESIGNMATERIAL></SETTINGS></SMOD>";

} // namespace

TEST(Singleton, HasDefaultsWithoutSettingsFile)
{
    const FreshContext fresh;
    ZelStandard::kill();
    const ZelStandard& context = *ZelStandard::get();
    EXPECT_EQ(context.getMode(), Mode::DIN_2008);
    EXPECT_EQ(context.getClassification(), Classification::BUILDING);
    EXPECT_EQ(context.getSituation(), DesignSituation::PERSISTENT);
    EXPECT_EQ(context.getDesignMaterial(), DesignMaterial::CONCRETE);
    EXPECT_EQ(context.getBridgeType(), BridgeType::ROADWAY);
    EXPECT_EQ(context.getBuildingType(), BuildingType::COMMON);
    EXPECT_EQ(context.getDuctilityClass(), DuctilityClass::DCM);
    EXPECT_EQ(context.getServiceClass(), 1);
}

TEST(Singleton, ReadsTheSettingsOfTheInstallationAndStartsAnewWhenKilled)
{
    const TemporaryDirectory installation;
    std::filesystem::create_directory(installation.path() / "Profiles");
    support::writeFile(installation.path() / "Profiles" / "Standard.xml", timberSettings);
    const FreshContext context;
    zelsuite::setInstallationDirectory(installation.path().string());
    EXPECT_EQ(ZelStandard::get(), ZelStandard::get());
    EXPECT_EQ(context->getDesignMaterial(), DesignMaterial::CONCRETE);
    ZelStandard::kill();
    ZelStandard::kill();
    EXPECT_EQ(context->getDesignMaterial(), DesignMaterial::TIMBER);
}

TEST(Singleton, LooksForItsSettingsBelowTheInstallationOrAtTheAlternativePath)
{
    const FreshContext context;
    const std::string normal = "no-such-directory\\Profiles\\Standard.xml";
    EXPECT_EQ(context->getDataBaseDir(), normal);

    // The alternative path takes the place of the whole path, whatever it looks like.
    context->setAlternativeDBPath(" ");
    context->setAlternativeDBPath(context->getDataBaseDir());
    EXPECT_EQ(context->getDataBaseDir(), " ");
    context->setAlternativeDBPath("");
    EXPECT_EQ(context->getDataBaseDir(), normal);

    // Setting it reads nothing, and it belongs to the object.
    const TemporaryDirectory directory;
    context->setAlternativeDBPath(directory.write("settings.xml", timberSettings));
    EXPECT_EQ(context->getDesignMaterial(), DesignMaterial::CONCRETE);
    context->input(context->getDataBaseDir());
    EXPECT_EQ(context->getDesignMaterial(), DesignMaterial::TIMBER);
    ZelStandard::kill();
    EXPECT_EQ(context->getDataBaseDir(), normal);
}

TEST(Singleton, StoresValuesUnchecked)
{
    const FreshContext context;
    context->setMode(static_cast<Mode>(-7));
    EXPECT_EQ(context->getMode(), static_cast<Mode>(-7));
    context->setServiceClass(99);
    EXPECT_EQ(context->getServiceClass(), 99);
    // The bridge type alone is never given below ROADWAY.
    for (const int value : {-7, 0, 1, 99}) {
        context->setBridgeType(static_cast<BridgeType>(value));
        EXPECT_EQ(static_cast<int>(context->getBridgeType()), std::max(value, 1));
    }
}
