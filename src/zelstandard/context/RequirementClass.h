#pragma once

#include <zelstandard/context/Class.h>

namespace Standard
{

/// A requirement class: the letter and the crack width that it permits.
class ZELSTANDARD_API RequirementClass : public Class
{
public:
    /// @param crackWidth permissible crack width in metres
    RequirementClass(char name, const std::string& description, double crackWidth);
    RequirementClass(const RequirementClass&) = default;
    RequirementClass(RequirementClass&&) = default;
    RequirementClass& operator=(const RequirementClass&) = default;
    RequirementClass& operator=(RequirementClass&&) = default;
    ~RequirementClass() override;

    /// Permissible crack width in metres (0.0002 is 0.2 mm).
    [[nodiscard]] double getCrackWidth() const { return crackWidth_; }

private:
    double crackWidth_;
};

} // namespace Standard
