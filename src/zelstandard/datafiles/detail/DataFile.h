#pragma once

#include <istream>
#include <memory>
#include <string>

namespace Standard
{

/// Opens a plain file for reading, shared with other readers and writers. A path that does not open
/// is tried once more in its short form.
/// @return never null; the caller asks the stream's state whether the file opened
[[nodiscard]] std::unique_ptr<std::istream> openInputFile(const std::string& path);

/// Opens a data file that may be enciphered with the library's data-file key; an enciphered one is
/// deciphered in memory.
/// @return null when no file of that name exists. Else a stream: in a bad state when the file does
///         not open, without any content when it cannot be deciphered.
[[nodiscard]] std::unique_ptr<std::istream> openDataFile(const std::string& path);

} // namespace Standard
