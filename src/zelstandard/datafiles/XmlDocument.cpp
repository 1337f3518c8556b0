#include <zelstandard/datafiles/detail/XmlDocument.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <sstream>

#include <zelstandard/datafiles/zelofstream.h>
#include <zelstandard/vocabulary/Constants.h>

namespace Standard
{

using Constants::Label;

namespace
{

constexpr auto byHash = &std::pair<std::size_t, ZelXmlData*>::first;

} // namespace

std::string nameOf(const ZelXmlData* element)
{
    return ZelXmlData::getAttributeString(element, Label::Name);
}

WrittenChildren::WrittenChildren(ZelXmlData* parent, const char* element)
    : parent_(parent), element_(element), hadChildren_(ZelXmlData::getFirstChild(parent) != nullptr)
{
    for (ZelXmlData* child : ChildElements(parent))
        if (std::strcmp(ZelXmlData::getName(child), element) == 0)
            children_.emplace_back(std::hash<std::string>()(nameOf(child)), child);
    std::ranges::stable_sort(children_, {}, byHash);
}

ZelXmlData* WrittenChildren::give(const std::string& name)
{
    const std::size_t hash = std::hash<std::string>()(name);
    ZelXmlData* child = nullptr;
    for (auto known = std::ranges::lower_bound(children_, hash, {}, byHash);
         !child && known != children_.end() && known->first == hash; ++known)
        child = nameOf(known->second) == name ? known->second : nullptr;
    if (!child) {
        child = ZelXmlData::addChild(parent_, element_);
        ZelXmlData::setAttribute(child, Label::Name, name);
    }
    if (hadChildren_)
        written_.insert(child);
    return child;
}

void WrittenChildren::moveToFront(ZelXmlData* child)
{
    for (ZelXmlData* first : ChildElements(parent_)) {
        if (first == child)
            return;
        if (written_.contains(first))
            return ZelXmlData::moveInFrontOf(parent_, child, first);
    }
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
    ZelXmlData* found = ZelXmlData::findTree(parent, element, true);
    return found ? found : ZelXmlData::addChild(parent, element);
}

void saveTree(const ZelXmlTree& tree, const std::string& fileName)
{
    std::ostringstream text;
    text.exceptions(std::ios::badbit); // set when there is no memory
    tree.putToStream(text, true);
    zelofstream file(fileName.c_str(), std::ios::out);
    file.stream() << text.view();
}

} // namespace Standard
