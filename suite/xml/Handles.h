#pragma once

#include <zelstandard/platform/ZelXml.h>

#include "Pugi.h"

/// @file
/// The handles of ZelXml.h are pugixml's own node and attribute pointers under another type, so
/// that no object has to be kept for each element.

namespace zelsuite::xml
{

inline pugi::xml_node toNode(const ZelXmlData* element)
{
    return pugi::xml_node(
        reinterpret_cast<pugi::xml_node_struct*>(const_cast<ZelXmlData*>(element)));
}

inline ZelXmlData* toElement(const pugi::xml_node& node)
{
    return reinterpret_cast<ZelXmlData*>(node.internal_object());
}

inline pugi::xml_attribute toPugi(const ZelXmlAttributeData* attribute)
{
    return pugi::xml_attribute(
        reinterpret_cast<pugi::xml_attribute_struct*>(const_cast<ZelXmlAttributeData*>(attribute)));
}

inline const ZelXmlAttributeData* toAttribute(const pugi::xml_attribute& attribute)
{
    return reinterpret_cast<const ZelXmlAttributeData*>(attribute.internal_object());
}

} // namespace zelsuite::xml
