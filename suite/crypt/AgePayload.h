#pragma once

#include <istream>
#include <ostream>

#include "Primitives.h"

/// @file
/// The binary part of an enciphered file after its header: 16 random bytes, from which and the file
/// key the key of the payload follows, then the text in chunks of 64 KiB, each with a tag of its
/// own. The nonce of a chunk is its number (11 bytes, the highest first) and a byte that is 1 in
/// the last chunk and else 0, so that chunks cannot be exchanged and a cut is noticed. Only the
/// last chunk may be shorter, and only that of an empty text is empty.

namespace FileCrypt::Age
{

/// Reads from the present position to the end of the file, twice: the first time to prove every
/// chunk, the second to put out its text. Memory is that of one chunk, however long the file.
/// False with nothing put out when the payload is damaged or cut. The second reading proves each
/// chunk again, so a file that is changed between the two never puts out foreign text; it gives
/// false with the chunks before the change put out.
bool readPayload(std::istream& file, const FileKey& fileKey, std::ostream& plain);

/// Reads @p plain to its end. On false the file may hold a part, which lacks its last chunk and is
/// refused by readPayload().
bool writePayload(std::istream& plain, const FileKey& fileKey, std::ostream& file);

} // namespace FileCrypt::Age
