#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace command
{

/// Something in the text of a document that XML forbids although the library's parser lets it pass.
struct RawFault {
    enum class Kind {
        Bytes,       ///< no UTF-8
        Character,   ///< a character that no document may hold
        Reference,   ///< "&" without a known name behind it
        Attribute,   ///< "<" in a value, or a second attribute of one name
        Comment,     ///< "--" in a comment
        Section,     ///< "]]>" in text
        Declaration, ///< not at the begin, or of an encoding that the library does not know
    };
    Kind kind;
    std::size_t begin; ///< offset
    std::size_t end;
    std::string message;
    std::string hint; ///< empty for none
};

/// One pass over the text, which need be no document. No value is read.
std::vector<RawFault> findRawFaults(std::string_view text);

} // namespace command
