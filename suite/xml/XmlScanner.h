#pragma once

#include <cstddef>
#include <string_view>

/// @file
/// What makes a document well formed and pugixml does not look at.

namespace zelsuite::xml
{

/// Elements may nest this deep, the root being at depth 1.
inline constexpr int DeepestElement = 1000;

/// The XML declaration at the front of a document.
struct Declaration {
    bool valid = true;         ///< false for one that is begun and not well formed
    std::size_t length = 0;    ///< 0 when there is none
    std::string_view encoding; ///< as written; empty when it names none
};

/// Reads the XML declaration, of which all characters are ASCII.
Declaration readDeclaration(std::string_view document);

/// True when the UTF-8 document is well formed, but for what pugixml refuses as well: end tags of
/// another name. Attributes of one name are let through, and the declarations inside a document
/// type declaration are passed over. Only with such a declaration may there be references to other
/// entities than the five of XML.
bool isWellFormed(std::string_view document);

} // namespace zelsuite::xml
