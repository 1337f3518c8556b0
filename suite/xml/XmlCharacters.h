#pragma once

#include <string>
#include <string_view>

/// @file
/// Which characters XML 1.0 can hold, in text and in names. Texts are UTF-8.

namespace zelsuite::xml
{

/// What readCharacter gives for bytes that are not UTF-8.
inline constexpr char32_t InvalidCharacter = 0xFFFFFFFF;

/// Takes one character off the front of a text that is not empty; of bytes that are not strict
/// UTF-8 (overlong forms, surrogates, beyond U+10FFFF) it takes one byte.
char32_t readCharacter(std::string_view& text);

/// Appends one character in UTF-8.
void appendCharacter(std::string& text, char32_t character);

/// True for a character that a document may hold; false for InvalidCharacter.
bool isXmlCharacter(char32_t character);

/// True when the text is strict UTF-8 and all of it is characters that a document may hold.
bool isXmlText(std::string_view text);

/// The text with U+FFFD for every character, and every byte that is not UTF-8, that a document
/// cannot hold.
std::string toXmlText(std::string_view text);

/// The length of the name at the front of the text, 0 when there is none.
std::size_t nameLength(std::string_view text);

/// True when the whole text is a name that elements and attributes may have.
inline bool isName(std::string_view text)
{
    return !text.empty() && nameLength(text) == text.size();
}

} // namespace zelsuite::xml
