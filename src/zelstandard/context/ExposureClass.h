#pragma once

#include <string>
#include <utility>

#include <zelstandard/Export.h>

namespace Standard
{

/// An exposure class of concrete (EN 206-1 Table 1).
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API ExposureClass
{
public:
    ExposureClass(std::string name, std::string description, int group, int number)
        : name_(std::move(name)), description_(std::move(description)), group_(group),
          number_(number)
    {
    }

    /// "X0", "XC1" ...
    [[nodiscard]] const std::string& getName() const { return name_; }

    /// The same text as the name.
    [[nodiscard]] const std::string& getDescription() const { return description_; }

    /// 0: no risk, carbonation (X0, XC); 1: chlorides other than from sea water (XD);
    /// 2: chlorides from sea water (XS).
    [[nodiscard]] int getGroup() const { return group_; }

    /// 1 for X0; 1 to 4 for XC1 to XC4; 11 to 13 for XS1 to XS3; 21 to 23 for XD1 to XD3.
    [[nodiscard]] int getNumber() const { return number_; }

private:
    std::string name_;
    std::string description_;
    int group_;
    int number_;
};

} // namespace Standard
