#pragma once

#include <string>
#include <vector>

#include <command/provenance/Document.h>

namespace command
{

/// Changes of a document's text that leave every other byte as it is.
class TextEdits
{
public:
    explicit TextEdits(const Document& document) : document_(document) {}

    /// Replaces bytes of the text; nothing is replaced twice.
    void replace(std::size_t begin, std::size_t end, std::string text);
    /// Replaces an attribute's value by a text that is escaped already.
    void replaceValue(const Attribute& attribute, std::string text);
    /// Takes an attribute away, with the blanks in front of it.
    void remove(const Attribute& attribute);
    /// Puts text behind all that the element holds, on a line of its own.
    void append(const Element& element, const std::string& text);

    /// The changed text, whole or from begin to end (of the text before the changes).
    [[nodiscard]] std::string apply() const;
    [[nodiscard]] std::string apply(std::size_t begin, std::size_t end) const;

private:
    [[nodiscard]] std::size_t endOf(const Attribute& attribute) const;
    void appendLines(const Element& element, const std::string& text);

    struct Edit {
        std::size_t begin;
        std::size_t end;
        std::string text;
    };

    const Document& document_;
    std::vector<Edit> edits_;
};

} // namespace command
