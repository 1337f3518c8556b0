#pragma once

#include <optional>
#include <string>
#include <vector>

/// @file
/// Other programs, started without a shell. All that depends on the system is in Process.cpp.

namespace command
{

struct Finished {
    int status = 0;
    std::string output; ///< of standard output; what stands on standard error is dropped
};

/// Runs a program of the path to its end. Its arguments reach it as they are.
/// @return nothing when there is no such program on the path, or it does not start
std::optional<Finished> runProgram(const std::string& program,
                                   const std::vector<std::string>& arguments);

} // namespace command
