#pragma once

#include <cstddef>

namespace support
{

/// Heap allocations by operator new, of the whole process, since it started. Link support's
/// Allocations.cpp.
std::size_t allocations();

} // namespace support
