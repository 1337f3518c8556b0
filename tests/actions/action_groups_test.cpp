#include <algorithm>
#include <sstream>

#include <zelstandard/actions/ActionGroupManager.h>
#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Golden.h"

using Standard::ActionGroup;
using Standard::ActionGroupManager;

TEST(ActionGroups, HaveTheirTexts)
{
    std::ostringstream table;
    for (int value = -1; value <= 12; ++value) {
        const ActionGroup group(ActionGroup::Type{value});
        table << value << " " << Standard::XMLUtil::get()->getStringToActionGroup(group.getId())
              << ": " << group.getTextID() << "\n";
        EXPECT_EQ(group.getName(), group.getTextID() == 0 ? "-" : ZelText::Load(group.getTextID()));
    }
    support::expectGolden("action_group_texts.txt", table.str());
}

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
