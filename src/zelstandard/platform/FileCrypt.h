#pragma once

#include <ostream>
#include <string>

#include <zelstandard/Export.h>

/// @file
/// The suite's file-decryption library.

namespace FileCrypt::Clr
{

/// Reads enciphered data files.
class ZELSUITE_API KorvaneUtil
{
public:
    /// True when the file begins as an enciphered file does. Reads the first line only; the key
    /// plays no part. False for a file that cannot be opened.
    static bool isEncrypted(const std::string& path, const std::string& key);

    /// Writes the plain text of an enciphered file to the stream.
    /// @return true on success. On false (not enciphered, damaged, cut, another key) nothing was
    ///         written: the whole file is proved authentic before the first byte is put out.
    static bool decrypt(const std::string& path, std::ostream& plain, const std::string& key);
};

} // namespace FileCrypt::Clr
