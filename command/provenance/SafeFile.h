#pragma once

#include <string>

namespace command
{

/// Replaces what a file holds, or makes it: the bytes go into a temporary file beside it, are
/// flushed to the disk, and the file takes the name. So the old file or the new one is there, never
/// half of one. The mode is kept, and a link stays one. Throws Failure, and the file is as it was;
/// so it does for a file that is read-only.
void replaceFile(const std::string& path, const std::string& bytes);

/// Whether two paths lead to one file; false when one of them is missing.
bool isSameFile(const std::string& path, const std::string& other);

} // namespace command
