#include <zelstandard/instructions/StateInstructionManager.h>

#include <algorithm>
#include <memory>
#include <optional>

#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/detail/DataFile.h>
#include <zelstandard/instructions/StateInstructionReader.h>

namespace Standard
{

namespace
{

/// A condition that is not given holds for every value.
struct TemplateRule {
    std::optional<DesignMaterial> material;
    std::optional<Mode> mode;
    std::optional<Classification> classification;
    SuperpositionTemplate id;
};

constexpr std::nullopt_t any = std::nullopt;

/// The first rule that holds decides.
constexpr TemplateRule templateRules[] = {
    {DesignMaterial::STEEL, Mode::DIN_1988, any,                      SuperpositionTemplate::DIN_STEEL   },
    {any,                   Mode::DIN_1988, Classification::BUILDING, SuperpositionTemplate::DIN_BUILDING},
    {any,                   any,            Classification::BUILDING, SuperpositionTemplate::EC_BUILDING },
    {any,                   Mode::DIN_1988, any,                      SuperpositionTemplate::DIN_BRIDGE  },
    {any,                   Mode::CSN,      any,                      SuperpositionTemplate::CSN_BRIDGE  },
    {any,                   any,            any,                      SuperpositionTemplate::EC_BRIDGE   },
};

} // namespace

const std::uint64_t StateInstructionManager::NumberOfSuperpositionTemplates;

StateInstructionManager::StateInstructionManager(StateAttributeManager* attributes)
    : attributes_(attributes)
{
    const auto stream = openInputFile(ZelStandard::get()->getDataBaseDir());
    if (!stream->good())
        return;
    try {
        read(*stream);
    } catch (...) {
        killStateInstructions(); // no destructor follows
        throw;
    }
}

StateInstructionManager::StateInstructionManager(const StateInstructionManager& other) = default;
StateInstructionManager&
StateInstructionManager::operator=(const StateInstructionManager& other) = default;

StateInstructionManager::~StateInstructionManager() { killStateInstructions(); }

SuperpositionTemplate StateInstructionManager::getTemplateID(Mode mode,
                                                             Classification classification,
                                                             DesignMaterial material) const
{
    const auto* rule = std::ranges::find_if(templateRules, [&](const TemplateRule& candidate) {
        return candidate.material.value_or(material) == material &&
               candidate.mode.value_or(mode) == mode &&
               candidate.classification.value_or(classification) == classification;
    });
    return rule->id; // the last rule holds always
}

SuperpositionTemplate StateInstructionManager::getCurrentTemplateID() const
{
    const ZelStandard& standard = *ZelStandard::get();
    return getTemplateID(standard.getMode(), standard.getClassification(),
                         standard.getDesignMaterial());
}

StateInstruction* StateInstructionManager::giveStateInstruction(InstructionType type,
                                                                SuperpositionTemplate id)
{
    if (StateInstruction* instruction = findStateInstruction(type, id))
        return instruction;
    if (!listOf(id))
        return nullptr;
    auto made = std::make_unique<StateInstruction>(type);
    instructions_[static_cast<std::size_t>(id)].push_back(made.get());
    return made.release();
}

StateInstruction* StateInstructionManager::findStateInstruction(InstructionType type,
                                                                SuperpositionTemplate id) const
{
    if (const List* list = listOf(id))
        for (StateInstruction* instruction : *list)
            if (instruction->isType(type))
                return instruction;
    return nullptr;
}

bool StateInstructionManager::deleteStateInstruction(InstructionType type, SuperpositionTemplate id)
{
    const std::unique_ptr<StateInstruction> instruction(findStateInstruction(type, id));
    if (!instruction)
        return false;
    List& list = instructions_[static_cast<std::size_t>(id)];
    list.erase(std::ranges::find(list, instruction.get()));
    return true;
}

std::vector<StateInstruction*>
StateInstructionManager::getStateInstructions(SuperpositionTemplate id) const
{
    const List* list = listOf(id);
    return list ? *list : List();
}

StateAttributeBase*
StateInstructionManager::stateInstructionGiveAttribute(StateInstruction* instruction,
                                                       StateAttributeToken token, Operator value)
{
    if (!instruction)
        return nullptr;
    if (StateAttributeBase* attribute = instruction->findAttributeToToken(token))
        return attribute;
    auto made = std::make_unique<StateAttributeBase>(token, value);
    const StateAttribute* known =
        attributes_ ? attributes_->findStateAttributeToToken(token) : nullptr;
    if (known) {
        made->setType(known->getType());
        made->setLoadType(known->getLoadType());
    }
    instruction->addAttribute(made.get());
    return made.release();
}

void StateInstructionManager::killStateInstructions()
{
    for (const List& list : instructions_)
        for (StateInstruction* instruction : list)
            delete instruction;
}

void StateInstructionManager::read(std::istream& stream)
{
    StateInstructionReader(this).readXml(stream);
}

void StateInstructionManager::read(const ZelXmlTree& tree)
{
    StateInstructionReader(this).readXml(tree);
}

const StateInstructionManager::List* StateInstructionManager::listOf(SuperpositionTemplate id) const
{
    const auto index = static_cast<std::size_t>(id);
    return index < instructions_.size() ? &instructions_[index] : nullptr;
}

} // namespace Standard
