#pragma once

#include <span>
#include <string>
#include <string_view>

namespace FileCrypt::Age
{

/// The standard alphabet without padding, the only form that the age header knows.
std::string encodeBase64(std::span<const unsigned char> bytes);

/// Fills all of @p bytes. False when the text has another length than these bytes take, a character
/// outside the alphabet, or unused bits at its end that are not zero: one value has one spelling.
bool decodeBase64(std::string_view text, std::span<unsigned char> bytes);

} // namespace FileCrypt::Age
