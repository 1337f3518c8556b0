#pragma once

#include <span>

/// @file
/// The texts of all languages, compiled in from texts/*.tsv by cmake/texts.py.

namespace zelsuite::text
{

/// One text in UTF-8: its short form for the screen and its whole wording for printed output.
struct TextRow {
    unsigned int id;
    const char* display;
    const char* report;
};

/// The texts of one language, in the order of their ids, each id once.
struct TextTable {
    const char* language; ///< the name of its file without ".tsv": "en", "de"
    std::span<const TextRow> rows;
};

/// All languages; the first one is in force at the start.
std::span<const TextTable> textTables();

} // namespace zelsuite::text
