#pragma once

#include <zelstandard/Export.h>

namespace Standard
{

class StateAttribute;

/// Decides whether an attribute is usable under the settings in force.
///
/// Its rules for bridges differ from those of StateAttribute::isActive: it keeps PRESTRESS on
/// concrete and composite bridges, and has no more than the rules of concrete bridges for steel
/// girders with a concrete slab. Both sets of rules are wanted, for different callers; they are
/// never merged.
///
/// Several threads may ask while none changes the attribute or the settings.
class ZELSTANDARD_API StateAttributeValidator
{
public:
    StateAttributeValidator() = default;
    StateAttributeValidator(const StateAttributeValidator&) = default;
    StateAttributeValidator& operator=(const StateAttributeValidator&) { return *this; }
    StateAttributeValidator& operator=(StateAttributeValidator&&) noexcept { return *this; }

    /// False for null.
    [[nodiscard]] static bool isAttributeActive(const StateAttribute* attribute);

private:
    [[nodiscard]] static bool isAttributeValidForBridgeDesignType(const StateAttribute* attribute);
};

} // namespace Standard
