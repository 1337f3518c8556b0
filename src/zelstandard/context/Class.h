#pragma once

#include <string>

#include <zelstandard/Export.h>

namespace Standard
{

/// A durability class of concrete design: a letter, 'A' to 'F', and its text.
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API Class
{
public:
    Class(char name, const std::string& description);
    Class(const Class& other);
    Class(Class&& other) noexcept;
    Class& operator=(const Class& other);
    Class& operator=(Class&& other) noexcept;
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
