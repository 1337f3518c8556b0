#include <command/provenance/Document.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include <pugixml.hpp>
#include <zelstandard/datafiles/DataFileKey.h>
#include <zelstandard/platform/FileCrypt.h>

#include <command/provenance/Utf8.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

/// As the library: elements may nest this deep, the root being at depth 1.
constexpr int deepestElement = 1000;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view withoutBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

/// The tree that pugixml made, in a copy of the text: names and values are views of that.
struct Document::Parsed {
    pugi::xml_document tree;
    std::string buffer;

    std::size_t offset(const char* place) const
    {
        return static_cast<std::size_t>(place - buffer.data());
    }
};

const Attribute* Element::attribute(std::string_view key) const
{
    const auto found = std::ranges::find(attributes, key, &Attribute::name);
    return found == attributes.end() ? nullptr : &*found;
}

std::string_view Element::get(std::string_view key) const
{
    const Attribute* found = attribute(key);
    return found ? found->value : std::string_view();
}

const Element* Element::child(std::string_view key) const
{
    const auto found = std::ranges::find(children, key, &Element::name);
    return found == children.end() ? nullptr : *found;
}

const Element* Element::find(std::string_view key) const
{
    // Elements lie in document order, and those below this one follow it.
    const std::deque<Element>& all = document->elements();
    auto at = std::ranges::lower_bound(all, begin, {}, &Element::begin);
    for (; at != all.end() && at->begin < end; ++at)
        if (at->name == key)
            return &*at;
    return nullptr;
}

Position Element::position() const { return document->positionOf(begin); }
Position Element::textPosition() const { return document->positionOf(textAt); }

bool checkFile(const std::string& path)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found)
        return false;
    if (status.type() == fs::file_type::none)
        throw Failure("cannot read \"" + path + "\": " + error.message());
    if (status.type() == fs::file_type::directory)
        throw Failure("\"" + path + "\" is a folder; name a file in it");
    if (status.type() != fs::file_type::regular)
        throw Failure("\"" + path + "\" is no regular file");
    if (fs::file_size(path, error) > Document::largest)
        throw Failure("\"" + path + "\" is larger than 64 MiB; no data file is");
    return true;
}

void refuseToReplace(const std::string& path, std::string_view kind)
{
    if (!checkFile(path))
        return;
    std::shared_ptr<const Document> there;
    try {
        there = Document::read(path);
    } catch (const Failure&) { // unreadable, or enciphered with another key: nothing is known of it
        return;
    }
    if (!there->kind().empty() && there->kind() != kind)
        throw Failure("\"" + path + "\" holds " + std::string(there->kind()) +
                      ", which would be lost; name another file");
}

std::string readFile(const std::string& path)
{
    if (!checkFile(path))
        throw Failure("no file \"" + path + "\"");
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    // An empty file gives the stream nothing, which it takes for a failure.
    if (file && file.peek() != std::ifstream::traits_type::eof())
        bytes << file.rdbuf();
    if (!file.is_open() || file.bad())
        throw Failure("cannot read \"" + path + "\": " + std::strerror(errno));
    return bytes.str();
}

std::shared_ptr<const Document> Document::read(const std::string& path, const std::string& key)
{
    std::string bytes = readFile(path);
    const std::string usedKey = key.empty() ? Standard::getDataFileKey() : key;
    using FileCrypt::Clr::KorvaneUtil;
    const bool enciphered = KorvaneUtil::isEncrypted(path, usedKey);
    if (enciphered) {
        std::ostringstream plain;
        if (!KorvaneUtil::decrypt(path, plain, usedKey))
            throw Failure("\"" + path + "\" is enciphered and does not open with " +
                          (key.empty() ? "the data-file key" : "the given key") +
                          ": another key, or damaged");
        bytes = plain.str();
    }
    auto document = std::const_pointer_cast<Document>(parse(path, std::move(bytes)));
    document->isEnciphered_ = enciphered;
    return document;
}

std::shared_ptr<const Document> Document::parse(std::string path, std::string bytes)
{
    std::shared_ptr<Document> document(new Document);
    document->path_ = std::move(path);
    const std::size_t size = bytes.size();
    const std::size_t hash = std::hash<std::string>()(bytes);
    document->text_ = toUtf8(std::move(bytes));
    document->isUtf8_ =
        document->text_.size() == size && std::hash<std::string>()(document->text_) == hash;
    document->parse();
    return document;
}

Document::~Document() = default;

std::string_view Document::kind() const
{
    if (!root_)
        return {};
    for (const char* part : {"SETTINGS", "COEFFICIENTS", "STRESSBLOCK", "STATEINSTRUCTIONS"})
        if (root_->find(part))
            return "settings";
    return root_->find("ACTIONTYPES")       ? "action types"
           : root_->find("STATEATTRIBUTES") ? "state attributes"
                                            : "";
}

std::string Document::fileName() const { return path_.substr(path_.find_last_of("/\\") + 1); }

void Document::parse()
{
    lines_ = {0};
    for (std::size_t at = 0; (at = text_.find('\n', at)) != std::string::npos;)
        lines_.push_back(++at);

    parsed_ = std::make_unique<Parsed>();
    parsed_->buffer = text_;
    parsed_->buffer += '\0';
    pugi::xml_document& tree = parsed_->tree;
    const pugi::xml_parse_result result = tree.load_buffer_inplace(
        parsed_->buffer.data(), parsed_->buffer.size(),
        pugi::parse_default | pugi::parse_comments | pugi::parse_pi | pugi::parse_fragment,
        pugi::encoding_utf8);
    if (!result) {
        fault_ = {result.description(), static_cast<std::size_t>(result.offset)};
        return;
    }

    const auto fail = [&](const char* message, std::size_t offset) { fault_ = {message, offset}; };
    bool hasRoot = false;
    for (const pugi::xml_node& node : tree.children()) {
        const auto offset =
            static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0));
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            return fail("text beside the root element", offset);
        if (node.type() == pugi::node_element && std::exchange(hasRoot, true))
            return fail("a second element beside the root", offset - 1);
    }
    if (!hasRoot)
        return fail("no element", 0);

    // Depth first without recursion; the parents of the node at hand lie on a stack.
    std::vector<Element*> open;
    for (pugi::xml_node node = tree.document_element(); node;) {
        if (node.type() == pugi::node_element) {
            Element& element = elements_.emplace_back();
            element.document = this;
            element.parent = open.empty() ? nullptr : open.back();
            element.name = node.name();
            element.begin = static_cast<std::size_t>(node.offset_debug()) - 1;
            for (const pugi::xml_attribute& attribute : node.attributes())
                element.attributes.push_back({attribute.name(), attribute.value(),
                                              parsed_->offset(attribute.name()),
                                              parsed_->offset(attribute.value())});
            for (const pugi::xml_node& text : node.children())
                if (text.type() == pugi::node_pcdata || text.type() == pugi::node_cdata) {
                    if (element.text.empty())
                        element.textAt = static_cast<std::size_t>(text.offset_debug());
                    element.text += text.value();
                }
            if (open.size() == deepestElement) {
                elements_.clear();
                return fail("elements nest deeper than 1000",
                            static_cast<std::size_t>(node.offset_debug()));
            }
            if (!open.empty())
                open.back()->children.push_back(&element);
            if (node.first_child()) {
                open.push_back(&element);
                node = node.first_child();
                continue;
            }
        }
        while (node && !node.next_sibling()) {
            node = node.parent();
            if (open.empty())
                break;
            open.pop_back();
        }
        node = open.empty() ? pugi::xml_node() : node.next_sibling();
    }
    root_ = &elements_.front();
    findExtents();
    for (Element& element : elements_) {
        const std::string trimmed(withoutBlanks(element.text));
        element.text = trimmed;
        if (trimmed.empty())
            element.textAt = element.contentBegin;
        while (element.textAt < element.contentEnd && isBlank(text_[element.textAt]))
            ++element.textAt;
    }
}

/// Goes over the text that pugixml has accepted and finds where tags begin and end.
void Document::findExtents()
{
    std::vector<Element*> open;
    auto next = elements_.begin();
    const auto behind = [&](const char* closing, std::size_t at) {
        const std::size_t found = text_.find(closing, at);
        return found == std::string::npos ? text_.size() : found + std::strlen(closing);
    };
    for (std::size_t at = text_.find('<'); at != std::string::npos; at = text_.find('<', at)) {
        if (text_.compare(at, 4, "<!--") == 0) {
            at = behind("-->", at);
        } else if (text_.compare(at, 9, "<![CDATA[") == 0) {
            at = behind("]]>", at);
        } else if (text_.compare(at, 2, "<?") == 0) {
            at = behind("?>", at);
        } else if (text_.compare(at, 2, "</") == 0) {
            const std::size_t end = behind(">", at);
            if (!open.empty()) {
                open.back()->contentEnd = at;
                open.back()->end = end;
                open.pop_back();
            }
            at = end;
        } else if (next != elements_.end() && next->begin == at) {
            char quote = 0;
            std::size_t close = at;
            for (; close < text_.size() && (quote || text_[close] != '>'); ++close)
                if (const char c = text_[close]; quote ? c == quote : c == '"' || c == '\'')
                    quote = quote ? '\0' : c;
            next->contentBegin = next->contentEnd = next->end = std::min(close + 1, text_.size());
            if (text_[close - 1] != '/')
                open.push_back(&*next);
            ++next;
            at = close;
        } else {
            ++at; // inside of a document type declaration
        }
    }
}

const Document& Document::orFail() const
{
    if (root_)
        return *this;
    const Position place = positionOf(fault_.offset);
    throw Failure(path_ + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) +
                  ": the library reads nothing of this file: " + fault_.message);
}

Position Document::positionOf(std::size_t offset) const
{
    offset = std::min(offset, text_.size());
    const auto next = std::ranges::upper_bound(lines_, offset);
    const std::size_t begin = *(next - 1);
    const auto characters =
        std::count_if(text_.begin() + static_cast<std::ptrdiff_t>(begin),
                      text_.begin() + static_cast<std::ptrdiff_t>(offset),
                      [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; });
    const bool hasMark = begin == 0 && offset > 0 && text_.starts_with("\xEF\xBB\xBF");
    return {static_cast<std::size_t>(next - lines_.begin()),
            static_cast<std::size_t>(characters) + (hasMark ? 0 : 1)};
}

std::string_view Document::lineText(std::size_t line) const
{
    if (line == 0 || line > lines_.size())
        return {};
    const std::size_t begin = lines_[line - 1];
    const std::size_t end = line < lines_.size() ? lines_[line] : text_.size();
    std::string_view text = std::string_view(text_).substr(begin, end - begin);
    while (text.ends_with('\n') || text.ends_with('\r'))
        text.remove_suffix(1);
    return text;
}

std::string numberText(double value)
{
    char text[400];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr;
    return {text, end};
}

bool readNumber(std::string_view text, double& value)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc{} || read.ptr != end || !std::isfinite(number))
        return false;
    value = number;
    return true;
}

} // namespace command
