#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <string>

#include "support/Context.h"

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

TEST(Descriptions, OfEveryClassificationButBuildingAreThoseOfBridges)
{
    const FreshContext context;
    for (int material = -1; material <= 6; ++material)
        for (int mode = -1; mode <= 9; ++mode)
            EXPECT_EQ(description(0, material, mode), description(2, material, mode))
                << material << " " << mode;
    EXPECT_NE(description(1, 1, 8), description(2, 1, 8));
}

TEST(Descriptions, HaveTheLanguageOfTheObjectsCreation)
{
    const FreshContext context;
    const std::string english = description(1, 0, 5);
    const std::string englishName = context->getStandardText(Mode::OENORM);
    ASSERT_TRUE(zelsuite::setLanguage("de"));
    EXPECT_EQ(description(1, 0, 5), english);
    // The names of the codes are not stored.
    EXPECT_NE(context->getStandardText(Mode::OENORM), englishName);
    EXPECT_EQ(ZelStandard::getStandardText_static(Mode::OENORM),
              context->getStandardText(Mode::OENORM));
    const std::string classText = context->findRequirementClass('A')->getDescription();
    ZelStandard::kill();
    EXPECT_NE(description(1, 0, 5), english);
    EXPECT_NE(context->findRequirementClass('A')->getDescription(), classText);
    zelsuite::setLanguage("en");
}
