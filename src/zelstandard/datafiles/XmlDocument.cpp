#include <zelstandard/datafiles/XmlDocument.h>

#include <cstring>

#include <zelstandard/vocabulary/Constants.h>

namespace Standard
{

using Constants::Label;

namespace
{

/// Removes the elements of that name below the parent which stand in front of the kept one.
/// @return true when the kept one was reached
bool removeInFrontOf(const ZelXmlData* kept, ZelXmlData* parent, const char* element)
{
    for (ZelXmlData* child = ZelXmlData::getFirstChild(parent); child;) {
        ZelXmlData* next = ZelXmlData::getNextSibling(child);
        if (child == kept)
            return true;
        if (std::strcmp(ZelXmlData::getName(child), element) == 0)
            ZelXmlData::removeChild(parent, child);
        else if (removeInFrontOf(kept, child, element))
            return true;
        child = next;
    }
    return false;
}

} // namespace

std::string nameOf(const ZelXmlData* element)
{
    return ZelXmlData::getAttributeString(element, Label::Name);
}

ZelXmlData* giveNamedChild(ZelXmlData* parent, const char* element, const std::string& name)
{
    for (ZelXmlData* child : ChildElements(parent)) {
        const auto* attribute = ZelXmlData::findAttribute(child, Label::Name);
        if (std::strcmp(ZelXmlData::getName(child), element) == 0 &&
            ZelXmlAttributeData::checkValue(attribute, name))
            return child;
    }
    ZelXmlData* made = ZelXmlData::addChild(parent, element);
    ZelXmlData::setAttribute(made, Label::Name, name);
    return made;
}

ZelXmlData* giveElement(ZelXmlTree& tree, std::initializer_list<const char*> path)
{
    const auto find = [&] { return ZelXmlData::findTree(tree.getRoot(), *(path.end() - 1), true); };
    if (ZelXmlData* found = find())
        return found;
    for (const char* name : path)
        tree.open(name, false);
    for (std::size_t i = 0; i < path.size(); ++i)
        tree.close();
    return find();
}

ZelXmlData* giveTree(ZelXmlData* parent, const char* element)
{
    ZelXmlData* child = ZelXmlData::openChild(parent, element, false);
    removeInFrontOf(child, parent, element);
    return child;
}

} // namespace Standard
