// The catalogue of action groups lives as long as the process, so what is added to it stays.

#include <zelstandard/actions/ActionGroupManager.h>

using Standard::ActionGroupManager;

TEST(ActionGroupGrowth, AGroupOfAnUnknownTypeIsMadeOnceAndACopySharesTheGroups)
{
    constexpr Standard::ActionGroup::Type unknown{99};
    ActionGroupManager& manager = *ActionGroupManager::get();
    ASSERT_EQ(manager.findActionGroupToId(unknown), nullptr);
    ASSERT_EQ(manager.findActionGroup("-"), nullptr);

    Standard::ActionGroup* const made = manager.giveActionGroup(unknown);

    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getTextID(), 0U);
    EXPECT_EQ(manager.giveActionGroup(unknown), made);
    EXPECT_EQ(manager.findActionGroup("-"), made);
    ASSERT_EQ(manager.getActionGroups().size(), 12U);

    // Never destroyed: it would delete the groups of the process.
    static auto* const copy = new ActionGroupManager(manager);
    EXPECT_EQ(copy->getActionGroups(), manager.getActionGroups());
}
