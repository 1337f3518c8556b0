#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string_view>

/// @file
/// The bytes of a document, from a stream into memory that pugixml can take over.

namespace zelsuite::xml
{

/// Gives memory back to pugixml's allocator.
struct PugiDelete {
    void operator()(char* memory) const;
};

/// Bytes in memory of pugixml's allocator; without memory when there is no document to be had.
struct Source {
    std::unique_ptr<char, PugiDelete> memory;
    std::size_t size = 0;

    [[nodiscard]] std::string_view text() const { return {memory.get(), size}; }
};

/// Reads the stream to its end and brings what it holds to UTF-8 without a byte order mark. UTF-8
/// stays in the one buffer that it was read into; for other encodings there are two for a moment.
/// Without memory when the stream is bad, or its bytes are not of their encoding, which is UTF-8,
/// UTF-16 with a byte order mark or declared, or ISO-8859-1 or US-ASCII as declared. Characters
/// that XML forbids are not looked for.
Source readSource(std::istream& stream);

} // namespace zelsuite::xml
