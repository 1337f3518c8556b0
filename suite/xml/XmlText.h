#pragma once

#include <string>
#include <string_view>

/// @file
/// Names and texts that are handed in, made safe for writing. What was read is kept as it stands.

namespace zelsuite::xml
{

/// True for a name that can be written: an ASCII letter, "_", ":" or a character beyond ASCII, then
/// also digits, "-" and ".".
bool isName(std::string_view text);

/// The text with U+FFFD for each character that XML cannot hold and each byte that is not UTF-8.
/// @param changed holds the result when it is not the text itself
std::string_view toXmlText(std::string_view text, std::string& changed);

} // namespace zelsuite::xml
