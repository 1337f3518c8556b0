#include <zelstandard/actions/ActionGroup.h>

#include <iterator>

#include <zelstandard/platform/ZelText.h>

namespace Standard
{

namespace
{

constexpr ActionGroupType types[] = {
    ActionGroupType::G, ActionGroupType::V, ActionGroupType::P,    ActionGroupType::E,
    ActionGroupType::T, ActionGroupType::S, ActionGroupType::SNOW, ActionGroupType::WIND,
    ActionGroupType::A, ActionGroupType::L, ActionGroupType::Z,
};

} // namespace

unsigned int ActionGroup::getTextID() const
{
    // The order of the texts is not that of the values.
    switch (id_) {
    case Type::NONE:
        return 0;
    case Type::G:
        return 6065;
    case Type::V:
        return 6066;
    case Type::P:
        return 6068;
    case Type::E:
        return 6069;
    case Type::T:
        return 6070;
    case Type::S:
        return 6073;
    case Type::SNOW:
        return 6072;
    case Type::WIND:
        return 6071;
    case Type::A:
        return 6067;
    case Type::L:
        return 6074;
    case Type::Z:
        return 6075;
    }
    return 0;
}

std::string ActionGroup::getName() const
{
    const unsigned int id = getTextID();
    return id == 0 ? "-" : ZelText::Load(id);
}

const ActionGroup::Type* ActionGroup::getTypes() { return types; }

std::size_t ActionGroup::getNumberOfTypes() { return std::size(types); }

} // namespace Standard
