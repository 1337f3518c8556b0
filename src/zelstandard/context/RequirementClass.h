#pragma once

#include <zelstandard/context/Class.h>

namespace Standard
{

/// A requirement class: the letter and the crack width that it permits.
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API RequirementClass : public Class
{
public:
    /// @param crackWidth permissible crack width in metres
    RequirementClass(char name, const std::string& description, double crackWidth);
    RequirementClass(const RequirementClass& other);
    RequirementClass(RequirementClass&& other) noexcept;
    RequirementClass& operator=(const RequirementClass& other);
    RequirementClass& operator=(RequirementClass&& other) noexcept;
    ~RequirementClass() override;

    /// Permissible crack width in metres (0.0002 is 0.2 mm).
    [[nodiscard]] double getCrackWidth() const { return crackWidth_; }

private:
    double crackWidth_;
};

} // namespace Standard
