#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;
using support::FreshContext;
using support::TemporaryDirectory;

namespace
{

const std::string bridgeSettings = R"(<SMOD>
  <SETTINGS>
    <STANDARD_MODE>CSN</STANDARD_MODE>
    <CLASSIFICATION_MODE>BRIDGE</CLASSIFICATION_MODE>
    <BRIDGETYPE>RAILWAY2</BRIDGETYPE>
    <BUILDINGTYPE>ENGINEERING</BUILDINGTYPE>
    <DESIGNMATERIAL>COMPOSITE_STEEL</DESIGNMATERIAL>
    <SITUATION>ACCIDENTAL</SITUATION>
    <DUCTILITY_CLASSIFICATION>DCH</DUCTILITY_CLASSIFICATION>
    <SERVICE_CLASS>3</SERVICE_CLASS>
  </SETTINGS>
</SMOD>)";

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

TEST(Singleton, StaysOneUntilKilledAndStartsAnew)
{
    const FreshContext context;
    ZelStandard* first = ZelStandard::get();
    first->setServiceClass(2);
    EXPECT_EQ(ZelStandard::get(), first);
    EXPECT_EQ(ZelStandard::get()->getServiceClass(), 2);

    ZelStandard::kill();
    ZelStandard::kill();
    EXPECT_EQ(ZelStandard::get()->getServiceClass(), 1);
}

TEST(Singleton, ReadsTheSettingsOfTheInstallation)
{
    const TemporaryDirectory installation;
    std::filesystem::create_directory(installation.path() / "Profiles");
    support::writeFile(installation.path() / "Profiles" / "Standard.xml", bridgeSettings);
    const FreshContext fresh;
    zelsuite::setInstallationDirectory(installation.path().string());
    ZelStandard::kill();

    const ZelStandard& context = *ZelStandard::get();
    EXPECT_EQ(context.getMode(), Mode::CSN);
    EXPECT_EQ(context.getClassification(), Classification::BRIDGE);
    EXPECT_EQ(context.getBridgeType(), BridgeType::RAILWAY2);
    EXPECT_EQ(context.getBuildingType(), BuildingType::ENGINEERING);
    EXPECT_EQ(context.getDesignMaterial(), DesignMaterial::COMPOSITE_STEEL);
    EXPECT_EQ(context.getSituation(), DesignSituation::ACCIDENTAL);
    EXPECT_EQ(context.getDuctilityClass(), DuctilityClass::DCH);
    EXPECT_EQ(context.getServiceClass(), 3);
}

TEST(Singleton, LooksForItsSettingsBelowTheInstallationOrAtTheAlternativePath)
{
    const FreshContext context;
    const std::string normal = "no-such-directory\\Profiles\\Standard.xml";
    EXPECT_EQ(context->getDataBaseDir(), normal);

    // The alternative path takes the place of the whole path, whatever it looks like.
    for (const char* path : {"settings.xml", "/some/where/", " "}) {
        context->setAlternativeDBPath(path);
        EXPECT_EQ(context->getDataBaseDir(), path);
    }
    context->setAlternativeDBPath(context->getDataBaseDir());
    EXPECT_EQ(context->getDataBaseDir(), " ");

    context->setAlternativeDBPath("");
    EXPECT_EQ(context->getDataBaseDir(), normal);

    // It belongs to the object.
    context->setAlternativeDBPath("settings.xml");
    ZelStandard::kill();
    EXPECT_EQ(context->getDataBaseDir(), normal);
}

TEST(Singleton, NeitherReadsNorResetsAnythingWhenTheAlternativePathIsSet)
{
    const TemporaryDirectory directory;
    const FreshContext context;
    context->setAlternativeDBPath(directory.write("settings.xml", bridgeSettings));
    EXPECT_EQ(context->getMode(), Mode::EC);
    context->input(context->getDataBaseDir());
    EXPECT_EQ(context->getMode(), Mode::CSN);
}

TEST(Singleton, StoresValuesUnchecked)
{
    const FreshContext context;
    for (const int value : {-7, 0, 99}) {
        context->setMode(static_cast<Mode>(value));
        context->setDesignMaterial(static_cast<DesignMaterial>(value));
        context->setBuildingType(static_cast<BuildingType>(value));
        context->setClassification(static_cast<Classification>(value));
        context->setSituation(static_cast<DesignSituation>(value));
        context->setDuctilityClass(static_cast<DuctilityClass>(value));
        context->setServiceClass(value);
        EXPECT_EQ(static_cast<int>(context->getMode()), value);
        EXPECT_EQ(static_cast<int>(context->getDesignMaterial()), value);
        EXPECT_EQ(static_cast<int>(context->getBuildingType()), value);
        EXPECT_EQ(static_cast<int>(context->getClassification()), value);
        EXPECT_EQ(static_cast<int>(context->getSituation()), value);
        EXPECT_EQ(static_cast<int>(context->getDuctilityClass()), value);
        EXPECT_EQ(context->getServiceClass(), value);
    }
    // The bridge type alone is never given below ROADWAY.
    for (const int value : {-7, 0, 1, 6, 99}) {
        context->setBridgeType(static_cast<BridgeType>(value));
        EXPECT_EQ(static_cast<int>(context->getBridgeType()), std::max(value, 1));
    }
}
