#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "support/Context.h"
#include "support/Golden.h"

using namespace Standard;
using support::FreshContext;

namespace
{

/// The names of the queries that are true, apart from the classification's and the bridge type's.
std::string materialAndSituation(const ZelStandard& context)
{
    std::string names;
    const auto add = [&](bool holds, const char* name) { names += holds ? name : ""; };
    add(context.isConcrete(), " concrete");
    add(context.isSteel(), " steel");
    add(context.isComposite(), " composite");
    add(context.isCompositeSteel(), " composite-steel");
    add(context.isCompositeConcrete(), " composite-concrete");
    add(context.isPersistentSituation(), " persistent");
    add(context.isAccidentalSituation(), " accidental");
    add(context.isAccidentalEarthquakeSituation(), " accidental-earthquake");
    return names;
}

/// The same of the classification and the bridge type.
std::string structure(const ZelStandard& context)
{
    std::string names;
    const auto add = [&](bool holds, const char* name) { names += holds ? name : ""; };
    add(context.isBuildingClassification(), " building");
    add(context.isBridgeClassification(), " bridge");
    add(context.isRailwayBridge(), " railway-bridge");
    add(context.isFootbridge(), " footbridge");
    return names;
}

} // namespace

TEST(DerivedQueries, OfAllValues)
{
    const FreshContext context;
    std::ostringstream table;

    table << "mode: code\n";
    for (int mode = -1; mode <= 9; ++mode) {
        context->setMode(static_cast<Mode>(mode));
        table << mode << ": " << context->getCODE() << "\n";
    }

    table << "\nmaterial, situation\n";
    for (int value = -1; value <= 6; ++value) {
        context->setDesignMaterial(static_cast<DesignMaterial>(value));
        context->setSituation(static_cast<DesignSituation>(value));
        table << value << ":" << materialAndSituation(*ZelStandard::get()) << "\n";
    }

    table << "\nclassification, building type: use without and with the flag\n";
    for (int classification = 0; classification <= 3; ++classification)
        for (int type = 0; type <= 3; ++type) {
            context->setClassification(static_cast<Classification>(classification));
            context->setBuildingType(static_cast<BuildingType>(type));
            table << classification << " " << type << ": " << context->getNUTZ(false) << " "
                  << context->getNUTZ(true) << structure(*ZelStandard::get()) << "\n";
        }

    table << "\nclassification, bridge type: use without and with the flag\n";
    for (int classification = 0; classification <= 3; ++classification)
        for (int type = -1; type <= 7; ++type) {
            context->setClassification(static_cast<Classification>(classification));
            context->setBuildingType(BuildingType::COMMON);
            context->setBridgeType(static_cast<BridgeType>(type));
            table << classification << " " << type << ": " << context->getNUTZ(false) << " "
                  << context->getNUTZ(true) << structure(*ZelStandard::get()) << "\n";
        }
    support::expectGolden("derived_queries.txt", table.str());
}

TEST(DerivedQueries, SeeTheStoredBridgeTypeAndNotTheOneThatIsGiven)
{
    const FreshContext context;
    context->setClassification(Classification::BRIDGE);
    context->setBridgeType(static_cast<BridgeType>(0));
    EXPECT_EQ(context->getBridgeType(), BridgeType::ROADWAY);
    EXPECT_FALSE(context->isRailwayBridge());
    EXPECT_FALSE(context->isFootbridge());
    EXPECT_EQ(context->getNUTZ(false), 0);
    // The second footbridge type counts as a footbridge.
    context->setBridgeType(BridgeType::FOOTBRIDGE2);
    EXPECT_TRUE(context->isFootbridge());
    EXPECT_EQ(context->getNUTZ(true), 21);
}

TEST(DerivedQueries, HaveShortcutsThatAskTheSingleton)
{
    const FreshContext context;
    for (int classification = 1; classification <= 2; ++classification)
        for (int type = 0; type <= 6; ++type) {
            context->setClassification(static_cast<Classification>(classification));
            context->setBridgeType(static_cast<BridgeType>(type));
            context->setDesignMaterial(static_cast<DesignMaterial>(type));
            EXPECT_EQ(isBridgeClassification(), context->isBridgeClassification());
            EXPECT_EQ(isBuildingClassification(), context->isBuildingClassification());
            EXPECT_EQ(isRailwayBridge(), context->isRailwayBridge()) << type;
            EXPECT_EQ(isComposite(), context->isComposite()) << type;
            EXPECT_EQ(isCompositeSteel(), context->isCompositeSteel()) << type;
            EXPECT_EQ(isCompositeConcrete(), context->isCompositeConcrete()) << type;
        }
    EXPECT_NE(ZelStandard::getStandardText_static(Mode::DIN_EN), "");
    EXPECT_EQ(ZelStandard::getStandardText_static(Mode::DIN_EN),
              context->getStandardText(Mode::DIN_EN));
}
