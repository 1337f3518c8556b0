// The catalogue of action groups lives as long as the process, so what is added to it stays.

#include <zelstandard/actions/ActionGroupManager.h>

using Standard::ActionGroup;
using Standard::ActionGroupManager;

TEST(ActionGroupGrowth, AGroupOfAnUnknownTypeIsMadeOnce)
{
    constexpr ActionGroup::Type unknown{99};
    ActionGroupManager& manager = *ActionGroupManager::get();
    ASSERT_EQ(manager.findActionGroupToId(unknown), nullptr);
    ASSERT_EQ(manager.findActionGroup("-"), nullptr);

    ActionGroup* const made = manager.giveActionGroup(unknown);

    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getTextID(), 0U);
    EXPECT_EQ(made->getName(), "-");
    EXPECT_EQ(manager.giveActionGroup(unknown), made);
    EXPECT_EQ(manager.findActionGroup("-"), made);
    ASSERT_EQ(manager.getActionGroups().size(), 12U);
    EXPECT_EQ(manager.getActionGroups().back(), made);
}

TEST(ActionGroupGrowth, ACopySharesTheGroups)
{
    // Never destroyed: it would delete the groups of the process.
    static ActionGroupManager* const copy = new ActionGroupManager(*ActionGroupManager::get());
    EXPECT_EQ(copy->getActionGroups(), ActionGroupManager::get()->getActionGroups());

    *copy = *ActionGroupManager::get();
    EXPECT_EQ(copy->getActionGroups(), ActionGroupManager::get()->getActionGroups());
}
