#pragma once

#include <zelstandard/context/Class.h>
#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// A requirement on a bridge, whose class follows from its type and from the bridge type.
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API Requirement : public Class
{
public:
    using Type = RequirementType;

    Requirement(char name, const std::string& description, Type type);
    Requirement(const Requirement& other);
    Requirement(Requirement&& other) noexcept;
    Requirement& operator=(const Requirement& other);
    Requirement& operator=(Requirement&& other) noexcept;
    ~Requirement() override;

    [[nodiscard]] Type getBridgeRequirement() const { return type_; }

    /// Sets the letter: 'D' for type 1; 'C' for type 2; 'B' for types 3 and 4 on a railway bridge,
    /// but 'C' on every other bridge, which is wanted.
    void updateNClas(BridgeType bridgeType);

private:
    Type type_;
};

/// The display text of a requirement type; empty for a value that is no member.
[[nodiscard]] ZELSTANDARD_API std::string GetBridgeRequirementText(Requirement::Type type);

} // namespace Standard
