#include "Nodes.h"

#include <new>

#include "XmlText.h"

namespace zelsuite::xml
{

namespace
{

/// The node itself or the first text behind it.
pugi::xml_node textFrom(pugi::xml_node node)
{
    for (; !isNull(node); node = node.next_sibling()) {
        const pugi::xml_node_type type = node.type();
        if (type == pugi::node_pcdata || type == pugi::node_cdata)
            break;
    }
    return node;
}

} // namespace

pugi::xml_node appendElement(pugi::xml_node parent, const char* name)
{
    if (!parent || !name || !isName(name))
        return {};
    pugi::xml_node element = parent.append_child(pugi::node_element);
    if (!element || !element.set_name(name)) {
        parent.remove_child(element);
        throw std::bad_alloc();
    }
    return element;
}

std::string_view textOf(pugi::xml_node element, std::string& joined)
{
    const auto isWhite = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    std::string_view text = element.value();
    for (pugi::xml_node node = textFrom(element.first_child()); !isNull(node);
         node = textFrom(node.next_sibling())) {
        if (text.empty()) {
            text = node.value();
            continue;
        }
        if (joined.empty())
            joined = text;
        text = joined += node.value();
    }
    while (!text.empty() && isWhite(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhite(text.back()))
        text.remove_suffix(1);
    return text;
}

void setText(pugi::xml_node element, std::string_view text)
{
    if (!element)
        return;
    const bool isInside = *element.value() != 0;
    if ((isInside || !text.empty()) && !element.text().set(text.data(), text.size()))
        throw std::bad_alloc();
    pugi::xml_node old = textFrom(element.first_child());
    if (!isInside && !text.empty())
        old = textFrom(old.next_sibling()); // the first one holds the new text
    while (old) {
        const pugi::xml_node next = textFrom(old.next_sibling());
        element.remove_child(old);
        old = next;
    }
}

} // namespace zelsuite::xml
