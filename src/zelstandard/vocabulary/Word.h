#pragma once

/// @file
/// Rows of constant tables, for any thread.

namespace Standard
{

/// One row of a table of words: a value as files spell it.
template <class Enumeration> struct Word {
    Enumeration value;
    const char* word;
};

/// One row of a table of words with texts.
template <class Enumeration> struct NamedWord {
    Enumeration value;
    const char* word;
    unsigned int textId; ///< display name; 0: none
};

} // namespace Standard
