#pragma once

#include <cstddef>
#include <string>

#include <zelstandard/Export.h>
#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// A family of actions that are combined together.
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API ActionGroup
{
public:
    using Type = ActionGroupType;

    explicit ActionGroup(Type type) : id_(type) {}
    ActionGroup(const ActionGroup& other);
    ActionGroup& operator=(const ActionGroup& other);

    [[nodiscard]] Type getId() const { return id_; }

    /// Text of the display name; 0 for NONE and any value that is no member.
    [[nodiscard]] unsigned int getTextID() const;

    /// The display name; "-" for a group without a text.
    [[nodiscard]] std::string getName() const;

    /// All groups but NONE, in the order of their values; getNumberOfTypes() entries.
    [[nodiscard]] static const Type* getTypes();
    [[nodiscard]] static std::size_t getNumberOfTypes();

private:
    Type id_;
};

} // namespace Standard
