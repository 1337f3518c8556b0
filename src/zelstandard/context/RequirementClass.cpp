#include <zelstandard/context/RequirementClass.h>

namespace Standard
{

RequirementClass::RequirementClass(char name, const std::string& description, double crackWidth)
    : Class(name, description), crackWidth_(crackWidth)
{
}

RequirementClass::~RequirementClass() = default;

} // namespace Standard
