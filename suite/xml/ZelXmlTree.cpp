#include <zelstandard/platform/ZelXml.h>

#include <new>
#include <ostream>
#include <vector>

#include "Handles.h"
#include "XmlCharacters.h"
#include "XmlScanner.h"
#include "XmlSource.h"

using namespace zelsuite::xml;

struct ZelXmlTree::Document {
    pugi::xml_document content;
    /// The innermost open element at the end; null for one that could not be opened.
    std::vector<ZelXmlData*> open;
};

ZelXmlTree::ZelXmlTree() : document_(std::make_unique<Document>()) {}

ZelXmlTree::~ZelXmlTree() = default;

bool ZelXmlTree::buildOfStream(std::istream& stream)
{
    document_->open.clear();
    document_->content.reset();
    Source source = readSource(stream);
    if (!source.memory || !isWellFormed(source.text()))
        return false;
    const pugi::xml_parse_result result = document_->content.load_buffer_inplace_own(
        source.memory.release(), source.size,
        pugi::parse_default | pugi::parse_comments | pugi::parse_pi, pugi::encoding_utf8);
    if (!result)
        document_->content.reset(); // pugixml keeps what stands before a fault
    if (result.status == pugi::status_out_of_memory)
        throw std::bad_alloc();
    return result;
}

ZelXmlData* ZelXmlTree::getRoot() const { return toElement(document_->content.document_element()); }

ZelXmlData* ZelXmlTree::open(const char* name, bool always)
{
    std::vector<ZelXmlData*>& open = document_->open;
    ZelXmlData* const root = getRoot();
    ZelXmlData* const top = open.empty() ? root : open.back();
    const bool isRoot = root && name && std::string_view(ZelXmlData::getName(root)) == name;

    ZelXmlData* element = nullptr;
    if (!root) {
        if (name && isName(name))
            element = toElement(document_->content.append_child(name));
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
