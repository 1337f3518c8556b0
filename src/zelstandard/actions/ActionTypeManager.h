#pragma once

#include <array>
#include <iosfwd>
#include <string>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/actions/ActionType.h>

class ZelXmlTree;

namespace Standard
{

/// The catalogue of action types, in the order in which they were added. It owns them.
///
/// A copy shares the action types, and every destructor deletes them: this is wanted, and it means
/// that of a catalogue and its copies only one may ever be destroyed or read anew.
///
/// Several threads may read a catalogue once findActionType() has been called after the last
/// change, the assignment of an action type to another one included.
class ZELSTANDARD_API ActionTypeManager
{
public:
    /// As init() on an empty catalogue.
    explicit ActionTypeManager(const std::string& fileName);
    explicit ActionTypeManager(const ZelXmlTree& tree);
    ActionTypeManager(const ActionTypeManager& other);
    ActionTypeManager& operator=(const ActionTypeManager& other);
    ~ActionTypeManager();

    /// Replaces the contents by those of an action type file, plain or enciphered. Nothing is
    /// reported: a missing file keeps the contents; one that cannot be opened, deciphered or parsed
    /// leaves the catalogue empty.
    void init(const std::string& fileName);
    void init(const ZelXmlTree& tree);

    /// Appends a type, which the catalogue then owns. An identity may occur twice; the queries give
    /// the first.
    void addType(ActionType* type);

    /// The first type of that identity, or null. The catalogue keeps it.
    [[nodiscard]] ActionType* findActionType(ActionType::Id id) const;

    /// The first type of that identity, created at the end when missing. NONE is never created:
    /// null.
    ActionType* giveActionType(ActionType::Id id);

    /// Assigns the argument to the first type of its identity, which keeps its address.
    /// @return false, and nothing changes, when there is none. The argument stays the caller's.
    bool replaceActionType(const ActionType* type);

    [[nodiscard]] bool hasActionTypes() const { return !types_.empty(); }
    [[nodiscard]] const std::vector<ActionType*>& getActionTypes() const { return types_; }

    // Writing; see ActionTypeWriter for what a file cannot hold.

    void output(std::ostream& stream);
    void output(ZelXmlTree& tree);
    void output(const std::string& fileName);

private:
    ActionTypeManager() = default;
    void makeIndex() const;

    std::vector<ActionType*> types_;
    /// The first type of each identity, as it was when identities last changed.
    mutable std::array<ActionType*, 52> index_{};
    mutable bool isIndexed_ = false;
    mutable unsigned int indexedChanges_ = 0;
};

} // namespace Standard
