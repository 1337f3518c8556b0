#include "support/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{
std::atomic<std::size_t> count = 0;
}

// noinline: compilers must not pair a visible malloc with a delete expression.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++count;
    if (void* memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

std::size_t support::allocations() { return count; }
