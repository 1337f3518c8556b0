#include <zelstandard/context/RequirementClass.h>

namespace Standard
{

RequirementClass::RequirementClass(char name, const std::string& description, double crackWidth)
    : Class(name, description), crackWidth_(crackWidth)
{
}

RequirementClass::RequirementClass(const RequirementClass& other) = default;
RequirementClass::RequirementClass(RequirementClass&& other) noexcept = default;
RequirementClass& RequirementClass::operator=(const RequirementClass& other) = default;
RequirementClass& RequirementClass::operator=(RequirementClass&& other) noexcept = default;
RequirementClass::~RequirementClass() = default;

} // namespace Standard
