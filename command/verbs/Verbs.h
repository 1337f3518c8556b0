#pragma once

#include <command/verbs/Verb.h>

/// @file
/// What the verbs declare and answer; each in a file of its own.

namespace command
{

Question declareList(CLI::App& app);
Question declareFind(CLI::App& app);
Question declareWhere(CLI::App& app);
Question declareFactors(CLI::App& app);
Question declareTable(CLI::App& app);
Question declareExplain(CLI::App& app);
Question declareAttributes(CLI::App& app);
Question declareRules(CLI::App& app);
Question declareMaterial(CLI::App& app);
Question declareCheck(CLI::App& app);
Question declareSet(CLI::App& app);
Question declareFile(CLI::App& app);
Question declareCombine(CLI::App& app);
Question declareSources(CLI::App& app);
Question declareDiff(CLI::App& app);
Question declareReport(CLI::App& app);
Question declareSettings(CLI::App& app);
Question declareBatch(CLI::App& app);

} // namespace command
