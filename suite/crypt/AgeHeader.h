#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#include "Primitives.h"

/// @file
/// The text at the head of an enciphered file. Of the age format (version 1) only files with a
/// single passphrase are read and written, whose header always has these four lines:
///
///     age-encryption.org/v1
///     -> scrypt <salt, 22 characters> <work factor>
///     <file key enciphered under the passphrase, 43 characters>
///     --- <MAC of all before it, 43 characters>
///
/// Lines end in LF. The format wraps the third kind of line at 64 columns and ends it with a line
/// that is shorter; 43 characters never fill one.

namespace FileCrypt::Age
{

/// The first line of every file, its line feed included.
inline constexpr std::string_view firstLine = "age-encryption.org/v1\n";

/// Reads the header and leaves the file at the byte after it. False when the header deviates from
/// the form above in any character, was altered, or the passphrase is another one.
bool readHeader(std::istream& file, const std::string& passphrase, FileKey& fileKey);

/// False when the key cannot be derived; the state of the stream is for the caller to check.
bool writeHeader(std::ostream& file, const std::string& passphrase, const FileKey& fileKey);

} // namespace FileCrypt::Age
