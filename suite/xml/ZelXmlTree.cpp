#include <zelstandard/platform/ZelXml.h>

#include <algorithm>
#include <cstring>
#include <istream>
#include <new>
#include <ostream>
#include <vector>

#include "Nodes.h"

using namespace zelsuite::xml;

struct ZelXmlTree::Document {
    pugi::xml_document content;
    /// The innermost open element at the end; null for one that could not be opened.
    std::vector<ZelXmlData*> open;
};

namespace
{

/// Elements may nest this deep, the root being at depth 1.
constexpr int deepestElement = 1000;

/// Gives memory back to pugixml's allocator.
struct PugiDelete {
    void operator()(char* memory) const { pugi::get_memory_deallocation_function()(memory); }
};

/// Memory that a document can take over.
using PugiMemory = std::unique_ptr<char, PugiDelete>;

PugiMemory allocate(std::size_t size)
{
    PugiMemory memory(static_cast<char*>(pugi::get_memory_allocation_function()(size)));
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

/// Reads a stream to its end and puts a NUL behind it.
/// @return null when the stream fails
PugiMemory readAll(std::istream& stream, std::size_t& size)
{
    if (!stream.good())
        return {};
    // What the stream says to have at hand is the whole of most files and string streams; one byte
    // more lets its end be seen without another buffer. It is only believed within limits.
    constexpr std::streamsize least = 1 << 12;
    constexpr std::streamsize most = 1 << 30;
    const std::streamsize atHand = std::clamp(stream.rdbuf()->in_avail(), least, most);
    std::size_t capacity = static_cast<std::size_t>(atHand) + 1;
    PugiMemory memory = allocate(capacity);
    size = 0;
    for (;;) {
        stream.read(memory.get() + size, static_cast<std::streamsize>(capacity - size));
        size += static_cast<std::size_t>(stream.gcount());
        if (stream.bad())
            return {};
        if (!stream.good()) {
            memory.get()[size++] = '\0';
            return memory;
        }
        capacity *= 2;
        PugiMemory larger = allocate(capacity);
        std::memcpy(larger.get(), memory.get(), size);
        memory = std::move(larger);
    }
}

/// Goes through a tree without recursion and stops at an element that is nested too deep.
struct DepthLimit : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node& node) override
    {
        return depth() < deepestElement || node.type() != pugi::node_element;
    }
};

/// Whether what pugixml took for a document has one root, no text beside it, and is not too deep.
bool isDocument(pugi::xml_document& content)
{
    int roots = 0;
    for (const pugi::xml_node& node : content.children()) {
        const pugi::xml_node_type type = node.type();
        if (type == pugi::node_pcdata || type == pugi::node_cdata)
            return false;
        roots += type == pugi::node_element ? 1 : 0;
    }
    DepthLimit limit;
    return roots == 1 && content.traverse(limit);
}

} // namespace

ZelXmlTree::ZelXmlTree() : document_(std::make_unique<Document>()) {}

ZelXmlTree::~ZelXmlTree() = default;

bool ZelXmlTree::buildOfStream(std::istream& stream)
{
    document_->open.clear();
    pugi::xml_document& content = document_->content;
    content.reset();
    std::size_t size = 0;
    PugiMemory memory = readAll(stream, size);
    if (!memory)
        return false;
    // Text beside the root is seen in a fragment only.
    const pugi::xml_parse_result result = content.load_buffer_inplace_own(
        memory.release(), size,
        pugi::parse_default | pugi::parse_comments | pugi::parse_pi | pugi::parse_fragment |
            pugi::parse_embed_pcdata);
    if (result && isDocument(content))
        return true;
    content.reset(); // pugixml keeps what stands before a fault
    if (result.status == pugi::status_out_of_memory)
        throw std::bad_alloc();
    return false;
}

ZelXmlData* ZelXmlTree::getRoot() const { return toElement(document_->content.document_element()); }

ZelXmlData* ZelXmlTree::open(const char* name, bool always)
{
    std::vector<ZelXmlData*>& open = document_->open;
    if (open.size() == open.capacity())
        open.reserve(2 * open.size() + 8); // so that nothing fails when the element is there
    ZelXmlData* const root = getRoot();
    ZelXmlData* const top = open.empty() ? root : open.back();
    const bool isRoot = root && name && std::strcmp(ZelXmlData::getName(root), name) == 0;

    ZelXmlData* element = nullptr;
    if (!root) {
        element = toElement(appendElement(document_->content, name));
    } else if (always) {
        element = ZelXmlData::addChild(top, name);
    } else if (open.empty() && isRoot) {
        element = root;
    } else {
        element = ZelXmlData::findChild(top, name);
        if (!element)
            element = top == root && isRoot ? root : ZelXmlData::addChild(top, name);
    }
    open.push_back(element);
    return element;
}

void ZelXmlTree::close()
{
    if (!document_->open.empty())
        document_->open.pop_back();
}

void ZelXmlTree::putToStream(std::ostream& stream, bool indented) const
{
    if (!getRoot() || !stream.good())
        return;
    stream << R"(<?xml version="1.0" encoding="UTF-8"?>)" << (indented ? "\n" : "");
    const unsigned int layout = indented ? pugi::format_indent : pugi::format_raw;
    document_->content.save(stream, "  ", layout | pugi::format_no_declaration,
                            pugi::encoding_utf8);
}
