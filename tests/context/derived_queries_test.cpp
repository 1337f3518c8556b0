#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>

#include "support/Context.h"
#include "support/Golden.h"

using namespace Standard;
using support::FreshContext;

namespace
{

/// The names of the queries that are true, of those given.
using Query = std::pair<bool, const char*>;

std::string queries(std::initializer_list<Query> all)
{
    std::string names;
    for (const auto& [holds, name] : all)
        names += holds ? name : "";
    return names;
}

std::string materialAndSituation()
{
    const ZelStandard& context = *ZelStandard::get();
    EXPECT_EQ(isComposite(), context.isComposite());
    EXPECT_EQ(isCompositeSteel(), context.isCompositeSteel());
    EXPECT_EQ(isCompositeConcrete(), context.isCompositeConcrete());
    return queries({
        {context.isConcrete(),                      " concrete"             },
        {context.isSteel(),                         " steel"                },
        {context.isComposite(),                     " composite"            },
        {context.isCompositeSteel(),                " composite-steel"      },
        {context.isCompositeConcrete(),             " composite-concrete"   },
        {context.isPersistentSituation(),           " persistent"           },
        {context.isAccidentalSituation(),           " accidental"           },
        {context.isAccidentalEarthquakeSituation(), " accidental-earthquake"}
    });
}

/// The uses without and with the flag, and what holds of the classification and the bridge type.
std::string structure()
{
    const ZelStandard& context = *ZelStandard::get();
    EXPECT_EQ(isBridgeClassification(), context.isBridgeClassification());
    EXPECT_EQ(isBuildingClassification(), context.isBuildingClassification());
    EXPECT_EQ(isRailwayBridge(), context.isRailwayBridge());
    return std::to_string(context.getNUTZ(false)) + " " + std::to_string(context.getNUTZ(true)) +
           queries({
               {context.isBuildingClassification(), " building"      },
               {context.isBridgeClassification(),   " bridge"        },
               {context.isRailwayBridge(),          " railway-bridge"},
               {context.isFootbridge(),             " footbridge"    }
    });
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
        table << value << ":" << materialAndSituation() << "\n";
    }

    table << "\nclassification, building type: use without and with the flag\n";
    for (int classification = 0; classification <= 3; ++classification)
        for (int type = 0; type <= 3; ++type) {
            context->setClassification(static_cast<Classification>(classification));
            context->setBuildingType(static_cast<BuildingType>(type));
            table << classification << " " << type << ": " << structure() << "\n";
        }

    table << "\nclassification, bridge type: use without and with the flag\n";
    for (int classification = 0; classification <= 3; ++classification)
        for (int type = -1; type <= 7; ++type) {
            context->setClassification(static_cast<Classification>(classification));
            context->setBuildingType(BuildingType::COMMON);
            context->setBridgeType(static_cast<BridgeType>(type));
            table << classification << " " << type << ": " << structure() << "\n";
        }
    support::expectGolden("derived_queries.txt", table.str());
}
