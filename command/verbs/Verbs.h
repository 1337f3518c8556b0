#pragma once

#include <command/verbs/Verb.h>

/// @file
/// What the verbs declare and answer; each in a file of its own.

namespace command
{

Question declareFactors(CLI::App& app);

} // namespace command
