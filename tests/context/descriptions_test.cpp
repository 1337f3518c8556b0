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

std::string description(int classification, int material, int mode)
{
    return ZelStandard::get()->getStandardDescription(static_cast<Classification>(classification),
                                                      static_cast<DesignMaterial>(material),
                                                      static_cast<Mode>(mode));
}

} // namespace

// A classification and a material without lines have no descriptions.
TEST(Descriptions, OfAllMaterialsAndModes)
{
    const FreshContext context;
    std::ostringstream table;
    for (const int classification : {1, 2})
        for (int material = -1; material <= 6; ++material)
            for (int mode = -1; mode <= 9; ++mode) {
                const std::string text = description(classification, material, mode);
                if (!text.empty())
                    table << classification << " " << material << " " << mode << " " << text
                          << "\n";
            }
    support::expectGolden("descriptions.txt", table.str());
}

TEST(Descriptions, OfEveryClassificationButBuildingAreThoseOfBridges)
{
    const FreshContext context;
    for (const int classification : {-1, 0, 3})
        for (int material = -1; material <= 6; ++material)
            for (int mode = -1; mode <= 9; ++mode)
                EXPECT_EQ(description(classification, material, mode),
                          description(2, material, mode))
                    << classification << " " << material << " " << mode;
}

TEST(Descriptions, DoNotDependOnTheSettings)
{
    const FreshContext context;
    const std::string before = description(1, 1, 8);
    context->setClassification(Classification::BRIDGE);
    context->setMode(Mode::SIA);
    context->setDesignMaterial(DesignMaterial::ROPE);
    EXPECT_EQ(description(1, 1, 8), before);
    EXPECT_EQ(description(1, 0, 2), "");
}

TEST(Descriptions, HaveTheLanguageOfTheObjectsCreation)
{
    const FreshContext context;
    const std::string english = description(1, 2, 1);
    ASSERT_TRUE(zelsuite::setLanguage("de"));
    const std::string stored = description(1, 2, 1);
    const std::string name = context->getStandardText(Mode::EC);
    zelsuite::setLanguage("en");
    EXPECT_EQ(stored, english);
    // The names of the codes are not stored.
    EXPECT_EQ(name.empty(), false);
}
