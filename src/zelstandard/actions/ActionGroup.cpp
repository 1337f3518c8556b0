#include <zelstandard/actions/ActionGroup.h>

#include <array>

#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

namespace
{

/// All groups but the first row's, NONE.
constexpr auto types = [] {
    std::array<ActionGroupType, std::size(actionGroupTypeWords) - 1> result{};
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = actionGroupTypeWords[i + 1].value;
    return result;
}();

} // namespace

ActionGroup::ActionGroup(const ActionGroup& other) = default;
ActionGroup& ActionGroup::operator=(const ActionGroup& other) = default;

unsigned int ActionGroup::getTextID() const { return textIdOf<actionGroupTypeWords>(id_); }

std::string ActionGroup::getName() const
{
    const unsigned int id = getTextID();
    return id == 0 ? "-" : ZelText::Load(id);
}

const ActionGroup::Type* ActionGroup::getTypes() { return types.data(); }

std::size_t ActionGroup::getNumberOfTypes() { return types.size(); }

} // namespace Standard
