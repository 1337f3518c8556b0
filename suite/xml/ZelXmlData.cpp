#include <zelstandard/platform/ZelXml.h>

#include <array>
#include <charconv>
#include <cstring>
#include <new>

#include "Nodes.h"
#include "XmlText.h"

using namespace zelsuite::xml;

namespace
{

/// The node itself or the first element behind it.
pugi::xml_node elementFrom(pugi::xml_node node)
{
    while (!isNull(node) && node.type() != pugi::node_element)
        node = node.next_sibling();
    return node;
}

bool isElementNamed(const pugi::xml_node& node, const char* name)
{
    const char* const own = node.name(); // most names differ in their first letter
    return *own == *name && std::strcmp(own, name) == 0 && node.type() == pugi::node_element;
}

pugi::xml_attribute attributeNamed(const ZelXmlData* element, const char* name)
{
    return name ? toNode(element).attribute(name) : pugi::xml_attribute();
}

template <class Number> void setNumber(ZelXmlData* element, Number value)
{
    std::array<char, 32> text; // the longest double has 24 characters
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
    setText(toNode(element), {text.data(), written.ptr});
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
    pugi::xml_node node = toNode(element);
    while (!isNull(node) && !isElementNamed(node, name)) {
        pugi::xml_node next = node.first_child();
        while (isNull(next) && toElement(node) != element) {
            next = node.next_sibling();
            if (isNull(next))
                node = node.parent();
        }
        node = next;
    }
    return toElement(node);
}

ZelXmlData* ZelXmlData::findChild(const ZelXmlData* element, const char* name)
{
    if (!name)
        return nullptr;
    pugi::xml_node child = toNode(element).child(name);
    while (!isNull(child) && child.type() != pugi::node_element)
        child = child.next_sibling(name); // processing instructions have names, too
    return toElement(child);
}

ZelXmlData* ZelXmlData::openChild(ZelXmlData* element, const char* name, bool always)
{
    ZelXmlData* const existing = always ? nullptr : findChild(element, name);
    return existing ? existing : addChild(element, name);
}

ZelXmlData* ZelXmlData::addChild(ZelXmlData* element, const char* name)
{
    return toElement(appendElement(toNode(element), name));
}

void ZelXmlData::removeChild(ZelXmlData* element, ZelXmlData* child)
{
    const pugi::xml_node top = toNode(child);
    if (!element || top.parent() != toNode(element))
        return;
    // Leaves first: pugixml would call itself once for each level.
    for (pugi::xml_node node = top; node;) {
        while (const pugi::xml_node inner = node.first_child())
            node = inner;
        pugi::xml_node parent = node.parent();
        const bool isLast = node == top;
        parent.remove_child(node);
        node = isLast ? pugi::xml_node() : parent;
    }
}

void ZelXmlData::moveInFrontOf(ZelXmlData* element, ZelXmlData* child, ZelXmlData* other)
{
    const pugi::xml_node node = toNode(child);
    if (node.parent() == toNode(element))
        node.parent().insert_move_before(node, toNode(other));
}

const ZelXmlAttributeData* ZelXmlData::findAttribute(const ZelXmlData* element, const char* name)
{
    return toAttribute(attributeNamed(element, name));
}

std::string ZelXmlData::getAttributeString(const ZelXmlData* element, const char* name)
{
    return attributeNamed(element, name).value();
}

void ZelXmlData::setAttribute(ZelXmlData* element, const char* name, const std::string& value)
{
    if (!element || !name || !isName(name))
        return;
    std::string changed;
    const std::string_view text = toXmlText(value, changed);
    pugi::xml_node node = toNode(element);
    pugi::xml_attribute attribute = attributeNamed(element, name);
    const bool isNew = !attribute;
    if (isNew) {
        attribute = node.append_attribute("");
        attribute.set_name(name);
    }
    if (*attribute.name() && attribute.set_value(text.data(), text.size()))
        return;
    if (isNew)
        node.remove_attribute(attribute);
    throw std::bad_alloc();
}

std::string ZelXmlData::getData(const ZelXmlData* element)
{
    std::string joined;
    return std::string(textOf(toNode(element), joined));
}

void ZelXmlData::setData(ZelXmlData* element, const std::string& text)
{
    std::string changed;
    setText(toNode(element), toXmlText(text, changed));
}

void ZelXmlData::setData(ZelXmlData* element, int value) { setNumber(element, value); }

void ZelXmlData::setData(ZelXmlData* element, double value) { setNumber(element, value); }
