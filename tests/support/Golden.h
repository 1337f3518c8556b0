#pragma once

#include <string>

namespace support
{

/// Compares text with a golden file below tests/golden. A difference fails the test and prints the
/// command that refreshes the file; with ZELSTANDARD_REFRESH_GOLDEN=1 in the environment the file
/// is written instead, and the test fails once so that no one takes it for a check.
void expectGolden(const std::string& name, const std::string& text);

} // namespace support
