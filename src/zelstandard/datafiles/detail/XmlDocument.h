#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include <zelstandard/platform/ZelXml.h>

/// @file
/// What the readers and writers of all documents share.

namespace Standard
{

/// Root element of the documents that the library writes; readers find their element anywhere.
inline constexpr const char* rootElement = "SMOD";

/// The child elements of an element, in document order, for a range-based for. The next one is
/// looked for before the present one is handed out, so that may be removed.
class ChildElements
{
public:
    explicit ChildElements(const ZelXmlData* parent) : first_(ZelXmlData::getFirstChild(parent)) {}

    class Iterator
    {
    public:
        explicit Iterator(ZelXmlData* element)
            : element_(element), next_(ZelXmlData::getNextSibling(element))
        {
        }
        ZelXmlData* operator*() const { return element_; }
        bool operator!=(const Iterator& other) const { return element_ != other.element_; }
        Iterator& operator++() { return *this = Iterator(next_); }

    private:
        ZelXmlData* element_;
        ZelXmlData* next_;
    };

    [[nodiscard]] Iterator begin() const { return Iterator(first_); }
    [[nodiscard]] static Iterator end() { return Iterator(nullptr); }

private:
    ZelXmlData* first_;
};

/// The value of the attribute "NAME"; empty when it is missing.
[[nodiscard]] std::string nameOf(const ZelXmlData* element);

/// The first child of each name, in one walk; null for one that is missing.
template <std::size_t count>
[[nodiscard]] std::array<const ZelXmlData*, count>
firstChildren(const ZelXmlData* parent, const std::array<const char*, count>& names)
{
    std::array<const ZelXmlData*, count> first{};
    std::size_t next = 0; // most documents hold the names in their order
    for (const ZelXmlData* child : ChildElements(parent)) {
        const char* const name = ZelXmlData::getName(child);
        for (std::size_t tried = 0; tried < count; ++tried) {
            const std::size_t at = next;
            next = (next + 1) % count;
            if (*name != *names[at] || std::strcmp(name, names[at]) != 0)
                continue;
            if (!first[at])
                first[at] = child;
            break;
        }
    }
    return first;
}

/// The children of one element that are written: each the first of its element name and "NAME",
/// created at the end when missing. Takes one walk over what the tree holds, however many are
/// written.
class WrittenChildren
{
public:
    WrittenChildren(ZelXmlData* parent, const char* element);

    /// The child of that name, which then counts as written; to be asked for once.
    ZelXmlData* give(const std::string& name);

    /// Moves a written child in front of the first written one.
    void moveToFront(ZelXmlData* child);

    /// Removes the children that a reader would take for one of the written ones.
    /// @param isRival asked with the value of the child's "NAME", or with the child
    template <class Test> void removeRivals(Test isRival)
    {
        if (!hadChildren_)
            return;
        for (ZelXmlData* child : ChildElements(parent_)) {
            if (written_.contains(child))
                continue;
            bool rival = false;
            if constexpr (std::is_invocable_v<Test, const ZelXmlData*>)
                rival = isRival(child);
            else
                rival = isRival(nameOf(child));
            if (rival)
                ZelXmlData::removeChild(parent_, child);
        }
    }

private:
    ZelXmlData* parent_;
    const char* element_;
    bool hadChildren_;
    /// By the hash of their "NAME"; those of one name in document order. Most are never asked for.
    std::vector<std::pair<std::size_t, ZelXmlData*>> children_;
    std::unordered_set<const ZelXmlData*> written_;
};

/// The objects that are written, each with its word: of several with one word the last, in the
/// place of the first. Null ones are left out.
template <class Object, class WordOf>
[[nodiscard]] std::vector<std::pair<const char*, const Object*>>
byWord(const std::vector<Object*>& objects, WordOf wordOf)
{
    std::vector<std::pair<const char*, const Object*>> result;
    for (const Object* object : objects) {
        if (!object)
            continue;
        const char* word = wordOf(*object);
        const auto known = std::ranges::find(result, word, [](const auto& o) { return o.first; });
        if (known == result.end())
            result.emplace_back(word, object);
        else
            known->second = object;
    }
    return result;
}

/// The element of the last name, the first in the document, as readers find it; else a new one,
/// each name inside the one before. No element is left open.
ZelXmlData* giveElement(ZelXmlTree& tree, std::initializer_list<const char*> path);

/// The first element of that name at or below the given one, as readers find it; else a new child.
ZelXmlData* giveTree(ZelXmlData* parent, const char* element);

/// Writes several tables, each into its first element at or below the parent, where readers find
/// it; else into a new child. A table may stand inside of what another one drops; then it is
/// written anew.
/// @param write called with the index of a name and the element
template <std::size_t count, class Write>
void writeTrees(ZelXmlData* parent, const std::array<const char*, count>& names, Write write)
{
    std::array<const ZelXmlData*, count> written{};
    for (std::size_t i = 0, whole = 0; whole < count; i = (i + 1) % count) {
        const ZelXmlData* found = ZelXmlData::findTree(parent, names[i], true);
        if (found && found == written[i]) {
            ++whole;
            continue;
        }
        ZelXmlData* element = giveTree(parent, names[i]);
        written[i] = element;
        write(i, element);
        whole = 1;
    }
}

/// Sets the text or number of the first child of that name, created when missing.
template <class Value> void setChild(ZelXmlData* parent, const char* element, const Value& value)
{
    if (ZelXmlData* child = ZelXmlData::openChild(parent, element, false))
        ZelXmlData::setData(child, value);
}

/// Writes the document to a file, by way of a temporary one. The text is whole before the file is
/// touched, so when memory ends the file stays as it was.
void saveTree(const ZelXmlTree& tree, const std::string& fileName);

} // namespace Standard
