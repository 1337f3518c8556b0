#pragma once

#include <string>

#include <command/answer/Answer.h>
#include <command/provenance/ActionValues.h>
#include <command/provenance/MaterialValues.h>

/// @file
/// What differs between two readings of the values, in terms of the domain: equal actions in one
/// row, equal codes and structures in one table.

namespace command
{

/// The factors of two codes of a file.
/// @param isMachineRead one row a value, instead of rows for people
/// @return true when anything differs
bool addDifferences(Answer& answer, const ActionFile& file, Mode from, Mode to,
                    const std::vector<Structure>& among, bool isMachineRead);

/// The factors of two files, in the given codes and structures. Where the numbers are equal it
/// still counts other sources and statuses; these alone are no difference.
bool addDifferences(Answer& answer, const ActionFile& from, const ActionFile& to,
                    const std::vector<Mode>& codes, const std::vector<Structure>& among,
                    bool isMachineRead);
/// In all codes and structures, for people.
bool addDifferences(Answer& answer, const ActionFile& from, const ActionFile& to);

/// The state attributes of two files, each field of them.
bool addAttributeDifferences(Answer& answer, const Document& from, const Document& to);
/// The settings and superposition rules of two files: of each rule the operators of its tags.
bool addRuleDifferences(Answer& answer, const Document& from, const Document& to);

/// The material factors and control values of two files.
bool addDifferences(Answer& answer, const MaterialFile& from, const MaterialFile& to,
                    const std::vector<Mode>& codes);

} // namespace command
