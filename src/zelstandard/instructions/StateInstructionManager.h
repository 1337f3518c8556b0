#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/instructions/StateInstruction.h>

class ZelXmlTree;

namespace Standard
{

class StateAttributeManager;

/// The superposition rules of every template, and the choice of the template in force. It owns the
/// instructions.
///
/// A copy shares the instructions, and every destructor deletes them: this is wanted, and it means
/// that of a catalogue and its copies only one may ever be destroyed.
///
/// Several threads may read a catalogue that none changes.
class ZELSTANDARD_API StateInstructionManager
{
public:
    /// The number of members of SuperpositionTemplate.
    static const std::uint64_t NumberOfSuperpositionTemplates = 6;

    /// Reads the rules of the settings file at ZelStandard::getDataBaseDir(), which is never
    /// enciphered; a missing or unreadable file leaves the catalogue empty.
    /// @param attributes gives new entries their types; not owned, may be null
    explicit StateInstructionManager(StateAttributeManager* attributes);
    StateInstructionManager(const StateInstructionManager& other);
    StateInstructionManager& operator=(const StateInstructionManager& other);
    ~StateInstructionManager();

    /// The template for a code, classification and material. Only DIN-1988 selects the DIN
    /// templates, and steel has a template of its own only there; every classification but BUILDING
    /// counts as a bridge. This is wanted.
    [[nodiscard]] SuperpositionTemplate getTemplateID(Mode mode, Classification classification,
                                                      DesignMaterial material) const;
    /// The template for the settings that ZelStandard::get() holds.
    [[nodiscard]] SuperpositionTemplate getCurrentTemplateID() const;

    // A template that is no member gives null, false or an empty list.

    /// The first instruction of that type in the template, created at the end when missing.
    StateInstruction* giveStateInstruction(InstructionType type, SuperpositionTemplate id);
    /// The first instruction of that type in the template, or null.
    [[nodiscard]] StateInstruction* findStateInstruction(InstructionType type,
                                                         SuperpositionTemplate id) const;
    /// Deletes the first instruction of that type, deletable or not.
    /// @return false when there is none
    bool deleteStateInstruction(InstructionType type, SuperpositionTemplate id);
    /// The instructions of a template, which the catalogue keeps.
    [[nodiscard]] std::vector<StateInstruction*>
    getStateInstructions(SuperpositionTemplate id) const;

    /// The instruction's attribute of that token: an existing one as it is, whatever its operator,
    /// else a new one with the types that the attribute catalogue knows for the token. Null for
    /// null.
    StateAttributeBase* stateInstructionGiveAttribute(StateInstruction* instruction,
                                                      StateAttributeToken token, Operator value);

    /// Deletes all instructions but leaves their pointers in the lists: this is wanted, and it
    /// means that nothing but the destructor of the catalogue may follow.
    void killStateInstructions();

    /// Adds the rules of a document to those that there are.
    void read(std::istream& stream);
    void read(const ZelXmlTree& tree);

private:
    friend class StateInstructionReader;

    using List = std::vector<StateInstruction*>;

    /// Null for a template that is no member.
    [[nodiscard]] const List* listOf(SuperpositionTemplate id) const;

    StateAttributeManager* attributes_;
    std::array<List, NumberOfSuperpositionTemplates> instructions_;
};

} // namespace Standard
