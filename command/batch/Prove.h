#pragma once

#include <iosfwd>

#include <command/verbs/Verb.h>

namespace command
{

/// Compares every value that is derived from the documents with what the library answers: each
/// action, code, structure and factor, and each material table. Says how many, and which differ.
/// @return 0 when all agree, else 1
int prove(const Context& context, std::ostream& out);

} // namespace command
