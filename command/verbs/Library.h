#pragma once

#include <string>
#include <vector>

#include <command/verbs/Verb.h>

/// @file
/// The operations of the library as statements of a batch: reading, writing, setting and asking,
/// with the words and the fallbacks of the library itself, not those of people.

namespace command
{

using Words = std::vector<std::string>;

/// What a statement works on.
struct Statement {
    Words words;      ///< the first one names it
    std::string text; ///< of a here-document
    bool hasText = false;
};

/// Runs the statement. @return false when the library has no such statement
bool runLibraryStatement(const Statement& statement, const Context& context);

/// One line a statement, for the help.
std::string libraryStatements();

} // namespace command
