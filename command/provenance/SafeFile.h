#pragma once

#include <string>

namespace command
{

/// Replaces what a file holds, or makes it: by a temporary file beside it, which takes its name
/// when it is whole. The mode is kept, and a link stays one. Throws Failure, and the file is as it
/// was.
void replaceFile(const std::string& path, const std::string& bytes);

} // namespace command
