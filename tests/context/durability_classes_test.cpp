#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/ZelText.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "support/Context.h"
#include "support/Golden.h"

using namespace Standard;
using support::FreshContext;

TEST(DurabilityClasses, OfTheContext)
{
    const FreshContext context;
    std::ostringstream table;
    table << "requirement class: number, crack width in m\n";
    for (const RequirementClass* requirement : context->getRequirementClasses())
        table << requirement->getName() << ": " << requirement->getNClas() << ", "
              << requirement->getCrackWidth() << "\n";
    table << "\nrequirement: number, type\n";
    for (const Requirement* requirement : context->getRequirements())
        table << requirement->getName() << ": " << requirement->getNClas() << ", "
              << static_cast<int>(requirement->getBridgeRequirement()) << "\n";
    table << "\nexposure class, description: group, number\n";
    for (const ExposureClass* exposure : context->getExposureClasses())
        table << exposure->getName() << ", " << exposure->getDescription() << ": "
              << exposure->getGroup() << ", " << exposure->getNumber() << "\n";
    support::expectGolden("durability_classes.txt", table.str());
}

TEST(DurabilityClasses, AreFoundByTheirExactNames)
{
    const FreshContext context;
    for (RequirementClass* requirement : context->getRequirementClasses())
        EXPECT_EQ(context->findRequirementClass(requirement->getName()), requirement);
    for (const char name : {'a', 'f', 'G', ' ', '\0'})
        EXPECT_EQ(context->findRequirementClass(name), nullptr) << name;

    for (ExposureClass* exposure : context->getExposureClasses())
        EXPECT_EQ(context->findExposureClass(exposure->getName()), exposure);
    for (const char* name : {"", "X", "xc1", "XC", "XC1 ", "XC11"})
        EXPECT_EQ(context->findExposureClass(name), nullptr) << name;

    for (Requirement* requirement : context->getRequirements())
        EXPECT_EQ(context->findRequirement(requirement->getBridgeRequirement()), requirement);
    for (const int type : {-1, 0, 5})
        EXPECT_EQ(context->findRequirement(static_cast<Requirement::Type>(type)), nullptr) << type;
}

TEST(DurabilityClasses, EAndFShareOneText)
{
    const FreshContext context;
    const RequirementClass& e = *context->findRequirementClass('E');
    const RequirementClass& f = *context->findRequirementClass('F');
    EXPECT_EQ(e.getDescription(), f.getDescription());
    EXPECT_LT(e.getCrackWidth(), f.getCrackWidth());
}

TEST(DurabilityClasses, HaveTheLanguageOfTheirCreation)
{
    const FreshContext context;
    ASSERT_TRUE(zelsuite::setLanguage("de"));
    const std::string english = context->findRequirementClass('A')->getDescription();
    ZelStandard::kill();
    const std::string german = context->findRequirementClass('A')->getDescription();
    zelsuite::setLanguage("en");
    EXPECT_EQ(english, ZelText::Load(1064));
    EXPECT_NE(german, english);
}

TEST(DurabilityClasses, AreNumberedByTheirLetters)
{
    const std::pair<char, int> numbers[] = {
        {'A',  1},
        {'B',  2},
        {'F',  6},
        {'a',  1},
        {'e',  5},
        {'f',  6},
        {'G',  0},
        {'g',  0},
        {'@',  0},
        {'`',  0},
        {' ',  0},
        {'\0', 0},
    };
    for (const auto& [letter, number] : numbers)
        EXPECT_EQ(Class(letter, "").getNClas(), number) << letter;
}

TEST(DurabilityClasses, JoinLetterAndText)
{
    EXPECT_EQ(Class('B', "").getNameAndDescription(), "B ");
    EXPECT_EQ(Class('B', "text").getNameAndDescription(), "B text");
}

TEST(DurabilityClasses, OfRequirementsFollowTheBridgeType)
{
    // The letters for the bridge types 0 to 7.
    const std::pair<int, std::string> letters[] = {
        {0, "CCBBBCCC"},
        {1, "DDDDDDDD"},
        {2, "CCCCCCCC"},
        {3, "CCBBBCCC"},
        {4, "CCBBBCCC"},
        {5, "CCBBBCCC"},
    };
    for (const auto& [type, expected] : letters) {
        Requirement requirement('A', "", static_cast<Requirement::Type>(type));
        std::string got;
        for (int bridgeType = 0; bridgeType <= 7; ++bridgeType) {
            requirement.updateNClas(static_cast<BridgeType>(bridgeType));
            got += requirement.getName();
        }
        EXPECT_EQ(got, expected) << "type " << type;
    }
}

TEST(DurabilityClasses, HaveARequirementTextOnlyForTheirTypes)
{
    for (int type = 1; type <= 4; ++type)
        EXPECT_NE(GetBridgeRequirementText(static_cast<Requirement::Type>(type)), "") << type;
    for (const int type : {-1, 0, 5})
        EXPECT_EQ(GetBridgeRequirementText(static_cast<Requirement::Type>(type)), "") << type;
}

TEST(DurabilityClasses, AreDestroyedThroughTheirBase)
{
    // A text too long to live inside the object: a leak is seen by the sanitizers.
    const std::string text(100, 'x');
    std::unique_ptr<Class> element = std::make_unique<RequirementClass>('C', text, 0.0003);
    EXPECT_NE(dynamic_cast<RequirementClass*>(element.get()), nullptr);
    element = std::make_unique<Requirement>('B', text, Requirement::Type::TYPE_3);
    EXPECT_EQ(element->getDescription(), text);
}
