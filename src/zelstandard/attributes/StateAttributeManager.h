#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/attributes/StateAttribute.h>

class ZelXmlTree;

namespace Standard
{

class ActionTypeManager;

/// The catalogue of state attributes, in the order in which they were added. It owns them and takes
/// their action types from a catalogue of action types, which must outlive it.
///
/// A copy shares the attributes, and every destructor deletes them: this is wanted, and it means
/// that of a catalogue and its copies only one may ever be destroyed, reset or read anew.
///
/// Several threads may read a catalogue that none changes.
class ZELSTANDARD_API StateAttributeManager
{
public:
    /// Empty. The catalogue of action types is not owned; with null, attributes get no action type.
    explicit StateAttributeManager(ActionTypeManager* actionTypes);
    StateAttributeManager(const StateAttributeManager& other);
    StateAttributeManager& operator=(const StateAttributeManager& other);
    ~StateAttributeManager();

    /// Deletes all attributes; the action types stay. There is no current attribute then.
    void reset();

    /// Appends an attribute; one of that token that exists already stays as it is.
    void add(StateAttributeToken token, ActionType* actionType);

    /// The first attribute of the token; created at the end when missing, with the action type of
    /// that identity, or without one when the catalogue of action types has none.
    StateAttribute* giveStateAttribute(StateAttributeToken token, ActionTypeId actionType);

    // Each gives the first attribute that fits, or null; the catalogue keeps it.

    [[nodiscard]] StateAttribute* findStateAttributeToToken(StateAttributeToken token) const;
    /// By display name, without regard to letter case and blanks around.
    [[nodiscard]] StateAttribute* findStateAttributeToName(const std::string& name) const;
    /// By display name, else by the exact description.
    [[nodiscard]] StateAttribute*
    findStateAttributeToNameAndDescription(const std::string& text) const;
    /// By display name, else by the token's word: for the text that other files hold.
    [[nodiscard]] StateAttribute* findStateAttributeFileInput(const std::string& text) const;

    [[nodiscard]] const std::vector<StateAttribute*>& getAttributes() const { return attributes_; }
    [[nodiscard]] ActionTypeManager* getActionTypeManager() const { return actionTypes_; }

    /// The attribute that the caller chose; null for none. Membership is not checked.
    [[nodiscard]] StateAttribute* getCurrentAttribute() const { return current_; }
    void setCurrentAttribute(StateAttribute* attribute) { current_ = attribute; }

    /// Replaces the contents by those of a state attribute file, plain or enciphered. Nothing is
    /// reported: a missing file keeps the contents; one that cannot be opened, deciphered or parsed
    /// leaves the catalogue empty. When memory ends, the contents stay as they were.
    void init(const std::string& path);
    void init(const ZelXmlTree& tree);

    // Writing; see StateAttributeWriter for what a file cannot hold.

    void output(std::ostream& stream);
    void output(ZelXmlTree& tree);
    /// Writes over the file directly, without a temporary one. The text is whole before the file is
    /// opened.
    void output(const std::string& path);

private:
    friend class StateAttributeReader;

    StateAttribute* append(StateAttributeToken token, ActionType* actionType);
    StateAttribute* append(StateAttributeToken token, ActionTypeId actionType);

    ActionTypeManager* actionTypes_;
    std::vector<StateAttribute*> attributes_;
    StateAttribute* current_ = nullptr;
};

} // namespace Standard
