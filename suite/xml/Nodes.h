#pragma once

#include <bit>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include <zelstandard/platform/ZelXml.h>

/// @file
/// What the classes of ZelXml.h do with the nodes of pugixml. The handles are pugixml's own
/// pointers under another type, so that no object is kept for each element.

namespace zelsuite::xml
{

// A node of pugixml is a pointer and no more. To make one, to ask for its pointer and to compare it
// are calls into pugixml; taken for a pointer, it needs none.

inline pugi::xml_node toNode(const ZelXmlData* element)
{
    return std::bit_cast<pugi::xml_node>(element);
}

inline ZelXmlData* toElement(pugi::xml_node node) { return std::bit_cast<ZelXmlData*>(node); }

inline bool isNull(pugi::xml_node node) { return toElement(node) == nullptr; }

inline pugi::xml_attribute toPugi(const ZelXmlAttributeData* attribute)
{
    return std::bit_cast<pugi::xml_attribute>(attribute);
}

inline const ZelXmlAttributeData* toAttribute(pugi::xml_attribute attribute)
{
    return std::bit_cast<const ZelXmlAttributeData*>(attribute);
}

/// Appends an element. Null for a null parent and for a name that XML does not allow.
/// @throws std::bad_alloc and nothing is appended
pugi::xml_node appendElement(pugi::xml_node parent, const char* name);

// A text that comes first in an element is kept in the element itself, any other one in a node.

/// The character data of an element without the white space around it.
/// @param joined holds the result when it is not one text of the tree
std::string_view textOf(pugi::xml_node element, std::string& joined);

/// Puts a text in the place of the element's character data; one that is empty leaves none.
/// @param text is written as it is, so XML must be able to hold it
/// @throws std::bad_alloc and the former text stays
void setText(pugi::xml_node element, std::string_view text);

} // namespace zelsuite::xml
