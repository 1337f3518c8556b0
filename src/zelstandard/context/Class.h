#pragma once

#include <string>

#include <zelstandard/Export.h>

namespace Standard
{

/// A durability class of concrete design: a letter, 'A' to 'F', and its text.
class ZELSTANDARD_API Class
{
public:
    Class(char name, const std::string& description);
    Class(const Class&) = default;
    Class& operator=(const Class&) = default;
    virtual ~Class();

    [[nodiscard]] char getName() const { return name_; }
    void setName(char name) { name_ = name; }

    /// The display text.
    [[nodiscard]] const std::string& getDescription() const { return description_; }

    /// The letter, one blank, the display text.
    [[nodiscard]] std::string getNameAndDescription() const;

    /// 1 to 6 for 'A' to 'F' of either case; 0 for any other letter.
    [[nodiscard]] int getNClas() const;

private:
    char name_;
    std::string description_;
};

} // namespace Standard
