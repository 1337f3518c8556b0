#include <zelstandard/actions/ActionGroupManager.h>

#include <memory>

#include <zelstandard/platform/Tools.h>

namespace Standard
{

ActionGroupManager* ActionGroupManager::get()
{
    static ActionGroupManager* const instance =
        new ActionGroupManager; // lives until the process ends
    return instance;
}

ActionGroupManager::ActionGroupManager()
{
    for (std::size_t i = 0; i < ActionGroup::getNumberOfTypes(); ++i)
        giveActionGroup(ActionGroup::getTypes()[i]);
}

ActionGroupManager::ActionGroupManager(const ActionGroupManager& other) = default;
ActionGroupManager& ActionGroupManager::operator=(const ActionGroupManager& other) = default;

ActionGroupManager::~ActionGroupManager()
{
    for (ActionGroup* group : groups_)
        delete group;
}

ActionGroup* ActionGroupManager::giveActionGroup(ActionGroup::Type type)
{
    if (ActionGroup* group = findActionGroupToId(type))
        return group;
    if (type == ActionGroup::Type::NONE)
        return nullptr;
    auto made = std::make_unique<ActionGroup>(type);
    groups_.push_back(made.get());
    return made.release();
}

ActionGroup* ActionGroupManager::findActionGroupToId(ActionGroup::Type type) const
{
    for (ActionGroup* group : groups_)
        if (group->getId() == type)
            return group;
    return nullptr;
}

ActionGroup* ActionGroupManager::findActionGroup(const std::string& name) const
{
    const Tools::StringCompare matches(name, 1);
    for (ActionGroup* group : groups_)
        if (matches(group->getName()))
            return group;
    return nullptr;
}

} // namespace Standard
