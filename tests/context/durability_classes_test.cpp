#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

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
    for (const char name : {'a', 'G', '\0'})
        EXPECT_EQ(context->findRequirementClass(name), nullptr) << name;
    for (ExposureClass* exposure : context->getExposureClasses())
        EXPECT_EQ(context->findExposureClass(exposure->getName()), exposure);
    for (const char* name : {"", "xc1", "XC", "XC1 "})
        EXPECT_EQ(context->findExposureClass(name), nullptr) << name;
    for (Requirement* requirement : context->getRequirements())
        EXPECT_EQ(context->findRequirement(requirement->getBridgeRequirement()), requirement);
    for (const int type : {0, 5}) {
        EXPECT_EQ(context->findRequirement(static_cast<Requirement::Type>(type)), nullptr) << type;
        EXPECT_EQ(GetBridgeRequirementText(static_cast<Requirement::Type>(type)), "") << type;
    }
    EXPECT_EQ(context->findRequirementClass('E')->getDescription(),
              context->findRequirementClass('F')->getDescription());
}

TEST(DurabilityClasses, AreNumberedByTheirLetters)
{
    std::string numbers;
    for (const char letter : std::string("ABFafGg@` ") + '\0')
        numbers += std::to_string(Class(letter, "").getNClas());
    EXPECT_EQ(numbers, "12616000000");
    EXPECT_EQ(Class('B', "").getNameAndDescription(), "B ");
}

TEST(DurabilityClasses, OfRequirementsFollowTheBridgeType)
{
    // The letters for the bridge types 0 to 7.
    const char* const letters[] = {"CCBBBCCC", "DDDDDDDD", "CCCCCCCC", "CCBBBCCC", "CCBBBCCC"};
    int type = 0;
    for (const char* expected : letters) {
        Requirement requirement('A', "", static_cast<Requirement::Type>(type++));
        std::string got;
        for (int bridgeType = 0; bridgeType <= 7; ++bridgeType) {
            requirement.updateNClas(static_cast<BridgeType>(bridgeType));
            got += requirement.getName();
        }
        EXPECT_EQ(got, expected) << "type " << type - 1;
    }
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
