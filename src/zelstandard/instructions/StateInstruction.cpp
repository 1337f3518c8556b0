#include <zelstandard/instructions/StateInstruction.h>

#include <algorithm>
#include <iterator>

#include <zelstandard/platform/ZelText.h>

namespace Standard
{

namespace
{

struct TextRow {
    InstructionType type;
    unsigned int textId;
};

/// Full superposition has one name under DIN and under EC. The fatigue lorries follow in step from
/// firstLorryText on; types not listed have no name.
constexpr TextRow nameTexts[] = {
    {InstructionType::CHARACTERISTIC,      6521},
    {InstructionType::FUNDAMENTAL,         4131},
    {InstructionType::ACCIDENTAL,          4135},
    {InstructionType::RARE,                4136},
    {InstructionType::FREQUENT,            4137},
    {InstructionType::QUASI_PERMANENT,     4138},
    {InstructionType::INFREQUENT,          5167},
    {InstructionType::FULL_DIN,            4126},
    {InstructionType::FULL_EC2,            4126},
    {InstructionType::BRIDGE_DIN,          4125},
    {InstructionType::CONCRETE_DIN,        4127},
    {InstructionType::STEEL_DIN,           4129},
    {InstructionType::BRIDGE_CSN,          5151},
    {InstructionType::PONTI_EC2,           5216},
    {InstructionType::CREEP,               5503},
    {InstructionType::ACTIONTYPES,         5742},
    {InstructionType::FATIGUE,             6087},
    {InstructionType::DECOMPRESSION,       6141},
    {InstructionType::EARTHQUAKE,          6348},
    {InstructionType::EARTHQUAKE_RESPONSE, 6976},
};

constexpr unsigned int firstLorryText = 7099;

} // namespace

StateInstruction::StateInstruction(InstructionType type) : type_(type) {}

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
    if (type_ >= InstructionType::ELM4_11 && type_ <= InstructionType::ELM4_54)
        return firstLorryText + static_cast<unsigned int>(type_) -
               static_cast<unsigned int>(InstructionType::ELM4_11);
    const auto* row = std::ranges::find(nameTexts, type_, &TextRow::type);
    return row == std::end(nameTexts) ? zelt::Nullable<unsigned int>() : row->textId;
}

} // namespace Standard
