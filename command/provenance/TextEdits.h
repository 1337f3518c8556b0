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
    /// Puts text behind all that the element holds, on a line of its own.
    void append(const Element& element, const std::string& text);

    /// The changed text, whole or from begin to end (of the text before the changes).
    [[nodiscard]] std::string apply() const;
    [[nodiscard]] std::string apply(std::size_t begin, std::size_t end) const;

private:
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
