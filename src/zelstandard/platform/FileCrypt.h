#pragma once

#include <ostream>
#include <string>

#include <zelstandard/Export.h>

/// @file
/// The suite's file-decryption library. Several threads may call all of it.

namespace FileCrypt::Clr
{

/// Reads enciphered data files.
class ZELSUITE_API KorvaneUtil
{
public:
    /// True when the file begins as an enciphered file does, of whatever version. Reads from the
    /// first line only; the key plays no part. False for a file that cannot be opened.
    static bool isEncrypted(const std::string& path, const std::string& key);

    /// Writes the plain text of an enciphered file to the stream.
    /// @return true on success. On false (not enciphered or in an unknown version, damaged, cut,
    ///         continued, another key) nothing was written: the text is put out in one piece when
    ///         the whole file is proved authentic.
    static bool decrypt(const std::string& path, std::ostream& plain, const std::string& key);
};

} // namespace FileCrypt::Clr
