#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// A data file with positions. What the library reads is read, as the library reads it.

namespace command
{

class Document;

/// Counted from 1; columns count characters. Line 0: nowhere.
struct Position {
    std::size_t line = 0;
    std::size_t column = 0;
};

/// Offsets are those of bytes in Document::text().
struct Attribute {
    std::string_view name;
    std::string_view value; ///< with its references resolved
    std::size_t nameAt = 0;
    std::size_t valueAt = 0; ///< behind the quotation mark
};

struct Element {
    const Document* document = nullptr;
    const Element* parent = nullptr; ///< null for the root
    std::string_view name;
    std::vector<Attribute> attributes;
    std::vector<const Element*> children; ///< elements, in document order
    std::string text;                     ///< all character data joined, without blanks around
    std::size_t textAt = 0;               ///< where the text begins, else contentBegin

    std::size_t begin = 0;        ///< of "<"
    std::size_t contentBegin = 0; ///< behind the start tag
    std::size_t contentEnd = 0;   ///< of "</"; "<A/>" has no content: both are end
    std::size_t end = 0;          ///< behind the element

    /// The first attribute of the name; null for none.
    [[nodiscard]] const Attribute* attribute(std::string_view key) const;
    /// The attribute's value; empty when it is missing.
    [[nodiscard]] std::string_view get(std::string_view key) const;
    /// The first child of the name; null for none.
    [[nodiscard]] const Element* child(std::string_view key) const;
    /// The first element of the name at or below this one, depth first; null for none.
    [[nodiscard]] const Element* find(std::string_view key) const;
    /// Of the "<".
    [[nodiscard]] Position position() const;
    [[nodiscard]] Position textPosition() const;
    [[nodiscard]] bool isEmptyTag() const { return contentBegin == end; }
};

/// Why a document is none.
struct ParseFault {
    std::string message; ///< empty for none
    std::size_t offset = 0;
};

class Document
{
public:
    /// The largest file that is read, in bytes.
    static constexpr std::size_t largest = std::size_t{64} << 20U;

    /// Reads a file, plain or enciphered (with the given key, else with the library's data-file
    /// key). Throws Failure for a file that is missing, no regular file, too large, or cannot be
    /// opened or deciphered. One that is no document has no root, and a fault.
    static std::shared_ptr<const Document> read(const std::string& path,
                                                const std::string& key = {});
    /// @param path by which the document is called
    static std::shared_ptr<const Document> parse(std::string path, std::string bytes);

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document();

    [[nodiscard]] const std::string& path() const { return path_; }
    /// The last part of the path.
    [[nodiscard]] std::string fileName() const;
    /// The document as UTF-8.
    [[nodiscard]] const std::string& text() const { return text_; }
    /// False when the file is in another encoding, so that text() is not what it holds.
    [[nodiscard]] bool isUtf8() const { return isUtf8_; }
    [[nodiscard]] bool isEnciphered() const { return isEnciphered_; }

    /// Of which kind of data file it is: "settings", "action types" or "state attributes"; empty
    /// for what is none.
    [[nodiscard]] std::string_view kind() const;
    /// Null for what is no document.
    [[nodiscard]] const Element* root() const { return root_; }
    [[nodiscard]] const ParseFault& fault() const { return fault_; }
    /// This document; throws Failure when it has no root.
    const Document& orFail() const;

    /// All elements, in document order.
    [[nodiscard]] const std::deque<Element>& elements() const { return elements_; }
    /// All comments: offsets of their "<!--".
    [[nodiscard]] Position positionOf(std::size_t offset) const;
    /// Without its line end.
    [[nodiscard]] std::string_view lineText(std::size_t line) const;

private:
    Document() = default;
    void parse();
    void findExtents();

    struct Parsed;

    std::string path_;
    std::string text_;
    bool isUtf8_ = true;
    bool isEnciphered_ = false;
    std::unique_ptr<Parsed> parsed_;
    std::deque<Element> elements_;
    const Element* root_ = nullptr;
    ParseFault fault_;
    std::vector<std::size_t> lines_; ///< where each begins
};

/// The whole text as a number as the library reads it; false when it is none.
bool readNumber(std::string_view text, double& value);

/// The shortest text that reads back equal.
std::string numberText(double value);

/// Throws Failure for what is no regular file or too large: a pipe would be waited for.
/// @return false when there is none
bool checkFile(const std::string& path);

/// Throws Failure for a data file of another kind, which would be lost under what is written there.
/// @param kind of what is to be written; empty for no data file
void refuseToReplace(const std::string& path, std::string_view kind);

/// The bytes of a regular file. Throws Failure when they cannot be had.
std::string readFile(const std::string& path);

} // namespace command
