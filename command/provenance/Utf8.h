#pragma once

#include <string>
#include <string_view>

namespace command
{

/// The document as UTF-8: UTF-16 and UTF-32 are known by their first bytes, ISO-8859-1 by the
/// declaration, as the library knows them; all else is taken as it stands.
std::string toUtf8(std::string bytes);

/// Appends a character.
void appendUtf8(std::string& text, char32_t character);

} // namespace command
