#pragma once

#include <string>

#include <command/verbs/Library.h>

/// @file
/// The statements of a batch about what surrounds the library (installation, documents in memory,
/// enciphered files), about the flat interface, and for repetition.

namespace command
{

/// Runs the statement. @return false when there is no such one here
bool runProcessStatement(const Statement& statement, const Context& context);

/// One line a statement, for the help.
std::string processStatements();

} // namespace command
