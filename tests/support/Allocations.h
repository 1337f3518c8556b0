#pragma once

#include <cstddef>

namespace support
{

/// Heap allocations by operator new, of the whole process, since it started. Link support's
/// Allocations.cpp.
std::size_t allocations();

/// How many of them are not freed.
std::size_t allocationsInUse();

/// What operator new and delete call, for other libraries' functions; null on failure.
void* allocate(std::size_t size);
void release(void* memory);

/// Lets one allocation fail: the one that so many others precede.
void failAfter(std::size_t others);
/// Ends that. @return true when an allocation has failed
bool stopFailing();

} // namespace support
