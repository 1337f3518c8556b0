#pragma once

#include <string>

#include <zelstandard/Export.h>

/// @file
/// The suite's tools library, as far as the design standards need it. Several threads may call all
/// of it while none changes the installation directory.

namespace Tools
{

/// Compares candidates with one searched text.
class ZELSUITE_API StringCompare
{
public:
    /// @param text the searched text
    /// @param mode 0: equal bytes; 1: equal without regard to ASCII letter case and to blanks
    ///        around the text. Any other mode compares as mode 0.
    StringCompare(const std::string& text, int mode);

    /// True when the candidate matches the searched text.
    [[nodiscard]] bool operator()(const std::string& candidate) const;

private:
    std::string text_;
    int mode_;
};

/// Questions about files.
class ZELSUITE_API File
{
public:
    /// True when something of that name exists, the name taken as it is written.
    static bool exists(const std::string& path);
};

/// The directory that holds the suite's shared data, without a separator at its end.
/// @param withSeparator true appends one "/"
ZELSUITE_API std::string getInstallationDirectory(bool withSeparator);

} // namespace Tools
