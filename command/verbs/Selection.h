#pragma once

#include <iosfwd>

#include <command/verbs/Data.h>

/// @file
/// What the settings in force select, as the library answers it, one line a fact.

namespace command
{

/// "active TEMPLATE TAG ...": the rules in force and the tags that the attribute or
/// StateAttributeValidator calls active.
void dumpActive(Data& data, std::ostream& out);

/// The tags that both call inactive, and those that only one of them does.
void dumpInactive(Data& data, std::ostream& out);

/// "CLASSIFICATION CODE: TEMPLATE MATERIAL ..., ...": the rules of all settings, those of values
/// without a word too.
void dumpTemplates(Data& data, std::ostream& out);

} // namespace command
