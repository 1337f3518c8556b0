#include <algorithm>

#include <zelstandard/actions/ActionGroupManager.h>

using Standard::ActionGroup;
using Standard::ActionGroupManager;

TEST(ActionGroups, AreOneObjectEachFoundByTypeAndByNameInAnyLetterCase)
{
    ActionGroupManager& manager = *ActionGroupManager::get();
    const auto& groups = manager.getActionGroups();
    ASSERT_EQ(groups.size(), 11U);
    ASSERT_EQ(ActionGroup::getNumberOfTypes(), 11U);
    for (std::size_t i = 0; i < 11; ++i) {
        const auto type = static_cast<ActionGroup::Type>(i + 1);
        EXPECT_EQ(ActionGroup::getTypes()[i], type);
        EXPECT_EQ(groups[i]->getId(), type);
        EXPECT_EQ(manager.giveActionGroup(type), groups[i]);
        std::string name = groups[i]->getName();
        std::ranges::transform(name, name.begin(), [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        });
        EXPECT_EQ(manager.findActionGroup("  " + name + " "), groups[i]) << name;
    }
    EXPECT_EQ(manager.giveActionGroup(ActionGroup::Type::NONE), nullptr);
    EXPECT_EQ(manager.findActionGroup(""), nullptr);
    EXPECT_EQ(groups.size(), 11U);
}
