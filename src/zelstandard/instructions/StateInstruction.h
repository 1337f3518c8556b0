#pragma once

#include <string>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/attributes/StateAttributeBase.h>
#include <zelstandard/platform/Nullable.h>

namespace Standard
{

/// One superposition rule: a combination of actions and, in order, the state attributes that take
/// part in it, each with the operator by which its load cases are superposed. It owns them.
///
/// A copy shares the attributes, and every destructor deletes them: this is wanted, and it means
/// that of an instruction and its copies only one may be destroyed with its list intact.
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API StateInstruction
{
public:
    /// No attributes, not deletable.
    explicit StateInstruction(InstructionType type);
    StateInstruction(const StateInstruction& other);
    /// The attributes that this instruction held are not deleted.
    StateInstruction& operator=(const StateInstruction& other);
    virtual ~StateInstruction();

    /// Appends an attribute, which the instruction then owns; a token may occur twice.
    void addAttribute(StateAttributeBase* attribute);

    /// The first attribute of that token, or null; the instruction keeps it.
    [[nodiscard]] StateAttributeBase* findAttributeToToken(StateAttributeToken token) const;
    [[nodiscard]] const std::vector<StateAttributeBase*>& getAttributes() const
    {
        return attributes_;
    }

    [[nodiscard]] InstructionType getType() const { return type_; }
    void setType(InstructionType type) { type_ = type; }
    [[nodiscard]] bool isType(InstructionType type) const { return type_ == type; }

    /// Whether the user may delete the instruction; the caller's business to honour.
    [[nodiscard]] bool isDeletable() const { return deletable_; }
    void setDeletable(bool deletable) { deletable_ = deletable; }

    /// The display name; "-" for a type without one (BRIDGE_EC2, FATIGUE_G, FATIGUE_ZERO, NONE).
    [[nodiscard]] std::string getName() const;

private:
    friend class StateInstructionReader;

    [[nodiscard]] zelt::Nullable<unsigned int> getTextId() const;

    std::vector<StateAttributeBase*> attributes_;
    bool deletable_ = false;
    InstructionType type_;
};

} // namespace Standard
