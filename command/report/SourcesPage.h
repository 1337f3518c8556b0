#pragma once

#include <string>
#include <vector>

#include <command/provenance/ActionValues.h>
#include <command/provenance/MaterialValues.h>
#include <command/provenance/Ticks.h>

/// @file
/// The page of sources: what each code decides itself, with source, status and the reviewers'
/// ticks.

namespace command
{

/// A value that has no source or no status, or the mark of a copy of EC without being one.
struct SourceFault {
    const Element* element = nullptr;
    std::string what;
};

/// What the page is made of; the office's values are no part of it.
struct SourcesOf {
    const ActionFile& actions;
    const MaterialFile& materials;
    const Ticks& ticks;
};

/// The page in Markdown, lines parted by "\n".
std::string sourcesPage(const SourcesOf& data);

/// Why the page cannot be made.
std::vector<SourceFault> sourceFaults(const SourcesOf& data);

} // namespace command
