#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include <zelstandard/platform/ZelXml.h>

/// @file
/// What the readers and writers of all documents share.

namespace Standard
{

/// Root element of the documents that the library writes; readers find their element anywhere.
inline constexpr const char* rootElement = "SMOD";

/// The child elements of an element, in document order, for a range-based for.
class ChildElements
{
public:
    explicit ChildElements(const ZelXmlData* parent) : first_(ZelXmlData::getFirstChild(parent)) {}

    class Iterator
    {
    public:
        explicit Iterator(ZelXmlData* element) : element_(element) {}
        ZelXmlData* operator*() const { return element_; }
        bool operator!=(const Iterator& other) const { return element_ != other.element_; }
        Iterator& operator++()
        {
            element_ = ZelXmlData::getNextSibling(element_);
            return *this;
        }

    private:
        ZelXmlData* element_;
    };

    [[nodiscard]] Iterator begin() const { return Iterator(first_); }
    [[nodiscard]] static Iterator end() { return Iterator(nullptr); }

private:
    ZelXmlData* first_;
};

/// The value of the attribute "NAME"; empty when it is missing.
[[nodiscard]] std::string nameOf(const ZelXmlData* element);

/// The first child of that element name whose "NAME" has the value; created at the end when
/// missing.
ZelXmlData* giveNamedChild(ZelXmlData* parent, const char* element, const std::string& name);

/// /// The element of the last name, the first in the document, as readers find it; else a new one,
/// each name inside the one before. No element is left open.
ZelXmlData* giveElement(ZelXmlTree& tree, std::initializer_list<const char*> path);

/// The first child of that name, created at the end when missing. Readers look for it at any depth,
/// so elements of that name that stand in front of it below other children are removed.
ZelXmlData* giveTree(ZelXmlData* parent, const char* element);

/// Sets the text or number of the first child of that name, created when missing.
template <class Value> void setChild(ZelXmlData* parent, const char* element, const Value& value)
{
    if (ZelXmlData* child = ZelXmlData::openChild(parent, element, false))
        ZelXmlData::setData(child, value);
}

/// Removes the child elements for which the test is true.
template <class Test> void removeChildren(ZelXmlData* parent, Test isStale)
{
    for (ZelXmlData* child = ZelXmlData::getFirstChild(parent); child;) {
        ZelXmlData* next = ZelXmlData::getNextSibling(child);
        if (isStale(child))
            ZelXmlData::removeChild(parent, child);
        child = next;
    }
}

/// Removes the children that a reader would take for one of the written ones.
/// @param isRival asked with the value of the child's "NAME"
template <class Test>
void removeRivals(ZelXmlData* parent, const std::vector<ZelXmlData*>& written, Test isRival)
{
    removeChildren(parent, [&](const ZelXmlData* child) {
        return std::ranges::find(written, child) == written.end() && isRival(nameOf(child));
    });
}

} // namespace Standard
