#pragma once

#include <string>

/// @file
/// What the suite asks the operating system for itself.

namespace zelsuite::files
{

/// The characters that part the names of a path.
#if defined(_WIN32)
inline constexpr const char* separators = "/\\";
#else
inline constexpr const char* separators = "/";
#endif

/// The directory of the file that holds this code: the suite's shared library, or the program that
/// it is linked into. Absolute, and settled when that file is loaded, so that no later change of
/// the working directory changes it. Empty when the system does not tell.
const std::string& ownLibraryDirectory();

/// True when something of that name exists, the name taken as it is written.
bool exists(const std::string& path);

} // namespace zelsuite::files
