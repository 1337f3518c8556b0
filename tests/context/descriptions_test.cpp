#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <sstream>
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

TEST(Descriptions, HaveGaps)
{
    const FreshContext context;
    // The modes that have a text, by classification and material.
    std::ostringstream table;
    for (const int classification : {1, 2})
        for (int material = -1; material <= 6; ++material) {
            table << classification << " " << material << ":";
            for (int mode = -1; mode <= 9; ++mode)
                if (!description(classification, material, mode).empty())
                    table << " " << mode;
            table << "\n";
        }
    EXPECT_EQ(table.str(), "1 -1:\n"
                           "1 0: 1 3 5 6 7 8\n"
                           "1 1: 1 3 5 6 7 8\n"
                           "1 2: 1 3 5 6 7 8\n"
                           "1 3:\n"
                           "1 4:\n"
                           "1 5:\n"
                           "1 6:\n"
                           "2 -1:\n"
                           "2 0: 1 3 5 6 7 8\n"
                           "2 1: 1 3 5 6 8\n"
                           "2 2:\n"
                           "2 3:\n"
                           "2 4: 1 3 8\n"
                           "2 5: 1 3 5 6 7 8\n"
                           "2 6:\n");
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
    EXPECT_NE(before, description(2, 1, 8));
    context->setClassification(Classification::BRIDGE);
    context->setMode(Mode::SIA);
    context->setDesignMaterial(DesignMaterial::ROPE);
    EXPECT_EQ(description(1, 1, 8), before);
}

TEST(Descriptions, HaveTheLanguageOfTheObjectsCreation)
{
    const FreshContext context;
    const std::string english = description(1, 0, 5);
    const std::string englishName = context->getStandardText(Mode::OENORM);
    ASSERT_TRUE(zelsuite::setLanguage("de"));
    const std::string stored = description(1, 0, 5);
    const std::string germanName = context->getStandardText(Mode::OENORM);
    ZelStandard::kill();
    const std::string german = description(1, 0, 5);
    zelsuite::setLanguage("en");
    EXPECT_EQ(stored, english);
    EXPECT_NE(german, english);
    // The names of the codes are not stored.
    EXPECT_NE(germanName, englishName);
}
