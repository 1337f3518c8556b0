#pragma once

#include <string>

namespace command
{

/// Puts a file in the place of another one, or where there is none: the bytes go into a temporary
/// file beside it, are flushed to the disk, and the file is renamed. So the old file or the new one
/// is there, never half of one. The mode of the old file is kept, and a symbolic link stays one.
/// Throws Failure, and nothing has changed, for a file that is read-only or no regular file, and
/// when the new one cannot be written.
void replaceFile(const std::string& path, const std::string& bytes);

} // namespace command
