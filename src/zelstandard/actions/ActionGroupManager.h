#pragma once

#include <string>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/actions/ActionGroup.h>

namespace Standard
{

/// The one catalogue of action groups, one object a group, so that groups compare by pointer.
///
/// It owns the groups. A copy shares them, and every destructor deletes them: this is wanted, and
/// it means that a copy must never be destroyed while the groups are in use, that is, before the
/// process ends.
///
/// Several threads may read it once get() has been called.
class ZELSTANDARD_API ActionGroupManager
{
public:
    /// Holds the eleven groups in the order of their values; never null.
    static ActionGroupManager* get();

    ActionGroupManager(const ActionGroupManager& other);
    ActionGroupManager& operator=(const ActionGroupManager& other);
    ~ActionGroupManager();

    /// The group of a type, created when missing; null for NONE.
    ActionGroup* giveActionGroup(ActionGroup::Type type);

    /// The group of a type, or null.
    [[nodiscard]] ActionGroup* findActionGroupToId(ActionGroup::Type type) const;

    /// The first group of a display name, without regard to letter case and blanks around, or null.
    /// Persistence words are not display names.
    [[nodiscard]] ActionGroup* findActionGroup(const std::string& name) const;

    [[nodiscard]] const std::vector<ActionGroup*>& getActionGroups() const { return groups_; }

private:
    ActionGroupManager();

    std::vector<ActionGroup*> groups_;
};

} // namespace Standard
