#include <zelstandard/platform/ZelXml.h>

#include <array>
#include <charconv>
#include <cstring>

#include "Handles.h"
#include "XmlCharacters.h"

using zelsuite::xml::isName;
using zelsuite::xml::toAttribute;
using zelsuite::xml::toElement;
using zelsuite::xml::toNode;
using zelsuite::xml::toPugi;
using zelsuite::xml::toXmlText;

namespace
{

bool isElement(const pugi::xml_node& node) { return node.type() == pugi::node_element; }

bool isText(const pugi::xml_node& node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

bool isNamed(const pugi::xml_node& node, const char* name)
{
    return isElement(node) && std::strcmp(node.name(), name) == 0;
}

/// The node itself or the first element behind it.
pugi::xml_node elementFrom(pugi::xml_node node)
{
    while (node && !isElement(node))
        node = node.next_sibling();
    return node;
}

pugi::xml_node childNamed(const pugi::xml_node& parent, const char* name)
{
    for (pugi::xml_node child = parent.first_child(); name && child; child = child.next_sibling()) {
        if (isNamed(child, name))
            return child;
    }
    return {};
}

pugi::xml_attribute attributeNamed(const pugi::xml_node& node, const char* name)
{
    pugi::xml_attribute attribute = node.first_attribute();
    while (attribute && (!name || std::strcmp(attribute.name(), name) != 0))
        attribute = attribute.next_attribute();
    return attribute;
}

/// The next node in document order within the tree below @p top; null at the end.
pugi::xml_node nextInDocument(pugi::xml_node node, const pugi::xml_node& top)
{
    if (const pugi::xml_node child = node.first_child())
        return child;
    while (node != top && !node.next_sibling())
        node = node.parent();
    return node == top ? pugi::xml_node() : node.next_sibling();
}

template <class Number> void setNumber(ZelXmlData* element, Number value)
{
    std::array<char, 32> text; // the longest double has 24 characters
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
    ZelXmlData::setData(element, std::string(text.data(), written.ptr));
}

} // namespace

bool ZelXmlAttributeData::checkValue(const ZelXmlAttributeData* attribute, const std::string& text)
{
    return attribute && text == toPugi(attribute).value();
}

const char* ZelXmlData::getName(const ZelXmlData* element) { return toNode(element).name(); }

ZelXmlData* ZelXmlData::getFirstChild(const ZelXmlData* element)
{
    return toElement(elementFrom(toNode(element).first_child()));
}

ZelXmlData* ZelXmlData::getNextSibling(const ZelXmlData* element)
{
    return toElement(elementFrom(toNode(element).next_sibling()));
}

ZelXmlData* ZelXmlData::findTree(const ZelXmlData* element, const char* name, bool recursive)
{
    if (!recursive || !name)
        return findChild(element, name);
    const pugi::xml_node top = toNode(element);
    pugi::xml_node node = top;
    while (node && !isNamed(node, name))
        node = nextInDocument(node, top);
    return toElement(node);
}

ZelXmlData* ZelXmlData::findChild(const ZelXmlData* element, const char* name)
{
    return toElement(childNamed(toNode(element), name));
}

ZelXmlData* ZelXmlData::openChild(ZelXmlData* element, const char* name, bool always)
{
    ZelXmlData* const existing = always ? nullptr : findChild(element, name);
    return existing ? existing : addChild(element, name);
}

ZelXmlData* ZelXmlData::addChild(ZelXmlData* element, const char* name)
{
    if (!name || !isName(name))
        return nullptr;
    return toElement(toNode(element).append_child(name));
}

void ZelXmlData::removeChild(ZelXmlData* element, ZelXmlData* child)
{
    toNode(element).remove_child(toNode(child));
}

void ZelXmlData::moveToFront(ZelXmlData* element, ZelXmlData* child)
{
    pugi::xml_node parent = toNode(element);
    const pugi::xml_node node = toNode(child);
    const pugi::xml_node first = elementFrom(parent.first_child());
    if (node && node.parent() == parent && node != first)
        parent.insert_move_before(node, first);
}

const ZelXmlAttributeData* ZelXmlData::findAttribute(const ZelXmlData* element, const char* name)
{
    return toAttribute(attributeNamed(toNode(element), name));
}

std::string ZelXmlData::getAttributeString(const ZelXmlData* element, const char* name)
{
    return attributeNamed(toNode(element), name).value();
}

void ZelXmlData::setAttribute(ZelXmlData* element, const char* name, const std::string& value)
{
    if (!name || !isName(name))
        return;
    pugi::xml_node node = toNode(element);
    pugi::xml_attribute attribute = attributeNamed(node, name);
    if (!attribute)
        attribute = node.append_attribute(name);
    attribute.set_value(toXmlText(value).c_str());
}

std::string ZelXmlData::getData(const ZelXmlData* element)
{
    constexpr const char* White = " \t\r\n";
    std::string text;
    for (pugi::xml_node child = toNode(element).first_child(); child;
         child = child.next_sibling()) {
        if (isText(child))
            text += child.value();
    }
    text.erase(text.find_last_not_of(White) + 1);
    text.erase(0, text.find_first_not_of(White));
    return text;
}

void ZelXmlData::setData(ZelXmlData* element, const std::string& text)
{
    pugi::xml_node node = toNode(element);
    // The new text takes the place of the first one there was.
    pugi::xml_node place = node.first_child();
    while (place && !isText(place))
        place = place.next_sibling();
    if (!text.empty()) {
        pugi::xml_node created = place ? node.insert_child_before(pugi::node_pcdata, place)
                                       : node.prepend_child(pugi::node_pcdata);
        created.set_value(toXmlText(text).c_str());
    }
    while (place) {
        const pugi::xml_node next = place.next_sibling();
        if (isText(place))
            node.remove_child(place);
        place = next;
    }
}

void ZelXmlData::setData(ZelXmlData* element, int value) { setNumber(element, value); }

void ZelXmlData::setData(ZelXmlData* element, double value) { setNumber(element, value); }
