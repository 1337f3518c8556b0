#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <command/provenance/Document.h>

/// @file
/// What may stand where in a data file. A check compares with this; nothing is read by it.

namespace command
{

/// A kind of words: "design code", EC, DIN-1988 ...
struct WordKind {
    const char* name;
    std::vector<std::string> words;
    [[nodiscard]] bool has(std::string_view word) const;
};

struct AttributeForm {
    std::string_view name{};
    const WordKind* words = nullptr; ///< null for any text
    /// What the library reads in the place of one that is missing or unknown.
    std::string_view fallback{};
    bool isRequired = false;
};

struct Form {
    enum class Content {
        Elements,
        Word,
        Factor,  ///< a number from 0 up to 10
        Share,   ///< a number from 0 to 1
        Integer, ///< a whole number
        Any,     ///< not looked into
    };
    std::string_view name{};
    Content content = Content::Elements;
    const WordKind* words = nullptr;
    /// As in AttributeForm.
    std::string_view fallback{};
    std::string_view missing{}; ///< the same of a missing one, where that differs
    bool isRequired = false;
    /// May also be empty, and one of the words then is not needed.
    bool mayBeEmpty = false;
    /// The library reads a child of any name as the first of the children.
    bool takesAnyName = false;
    std::vector<AttributeForm> attributes{};
    std::vector<const Form*> children{};

    [[nodiscard]] const Form* child(std::string_view key) const;
    [[nodiscard]] const AttributeForm* attribute(std::string_view key) const;
    [[nodiscard]] bool isNumber() const
    {
        return content == Content::Factor || content == Content::Share;
    }
};

/// The whole document; its children are the parts that a file may hold.
const Form& documentForm();
/// Names of the factors of a set.
const WordKind& factorNames();
const WordKind& statuses();
/// The codes of annexes.
const WordKind& codeWords();

} // namespace command
