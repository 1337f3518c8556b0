#include <zelstandard/instructions/StateInstruction.h>

#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

StateInstruction::StateInstruction(InstructionType type) : type_(type) {}

StateInstruction::StateInstruction(const StateInstruction& other) = default;
StateInstruction& StateInstruction::operator=(const StateInstruction& other) = default;

StateInstruction::~StateInstruction()
{
    for (StateAttributeBase* attribute : attributes_)
        delete attribute;
}

void StateInstruction::addAttribute(StateAttributeBase* attribute)
{
    attributes_.push_back(attribute);
}

StateAttributeBase* StateInstruction::findAttributeToToken(StateAttributeToken token) const
{
    for (StateAttributeBase* attribute : attributes_)
        if (attribute && attribute->getToken() == token)
            return attribute;
    return nullptr;
}

std::string StateInstruction::getName() const
{
    const auto id = getTextId();
    return id.hasValue() ? ZelText::Load(id.getValue()) : "-";
}

zelt::Nullable<unsigned int> StateInstruction::getTextId() const
{
    const unsigned int id = textIdOf<instructionTypeWords>(type_);
    return id == 0 ? zelt::Nullable<unsigned int>() : id;
}

} // namespace Standard
