#include <zelstandard/context/IO.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/ZelXml.h>

#include "support/Context.h"
#include "support/Documents.h"

using namespace Standard;

TEST(DurabilityClasses, AreFoundByTheirExactNames)
{
    const support::FreshContext context;
    ASSERT_FALSE(context->getRequirementClasses().empty() ||
                 context->getExposureClasses().empty() || context->getRequirements().empty());
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
        EXPECT_EQ(context->findRequirement(Requirement::Type{type}), nullptr) << type;
        EXPECT_EQ(GetBridgeRequirementText(Requirement::Type{type}), "") << type;
    }
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
    // A row a type from 0 on: the letters for the bridge types 0 to 7.
    std::string letters;
    for (int type = 0; type <= 4; ++type) {
        // A text too long to live inside the object: a leak is seen by the sanitizers.
        std::unique_ptr<Class> base =
            std::make_unique<Requirement>('A', std::string(100, 'x'), Requirement::Type{type});
        for (int bridge = 0; bridge <= 7; ++bridge) {
            dynamic_cast<Requirement&>(*base).updateNClas(BridgeType{bridge});
            letters += base->getName();
        }
        letters += ' ';
    }
    EXPECT_EQ(letters, "CCBBBCCC DDDDDDDD CCCCCCCC CCBBBCCC CCBBBCCC ");
}

TEST(Settings, GoIntoTheOpenElementOfATree)
{
    const support::FreshContext context;
    ZelXmlTree tree;
    tree.open("HOST", false);
    ZelXmlData* const project = tree.open("PROJECT", false);
    IO::write(tree, ZelStandard::get());
    const ZelXmlData* settings = ZelXmlData::findChild(project, "SETTINGS");
    EXPECT_EQ(ZelXmlDataUtil::getChildString(settings, "STANDARD_MODE"), "EC");
    // The element that was open is still open.
    const ZelXmlData* last = tree.open("LAST", false);
    EXPECT_EQ(ZelXmlData::findChild(project, "LAST"), last);
}
