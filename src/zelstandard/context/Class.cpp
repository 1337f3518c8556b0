#include <zelstandard/context/Class.h>

namespace Standard
{

Class::Class(char name, const std::string& description) : name_(name), description_(description) {}

Class::Class(const Class& other) = default;
Class::Class(Class&& other) noexcept = default;
Class& Class::operator=(const Class& other) = default;
Class& Class::operator=(Class&& other) noexcept = default;
Class::~Class() = default;

std::string Class::getNameAndDescription() const { return name_ + (" " + description_); }

int Class::getNClas() const
{
    if (name_ >= 'A' && name_ <= 'F')
        return name_ - 'A' + 1;
    if (name_ >= 'a' && name_ <= 'f')
        return name_ - 'a' + 1;
    return 0;
}

} // namespace Standard
