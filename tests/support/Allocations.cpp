#include "support/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::size_t> count = 0;
std::atomic<std::size_t> inUse = 0;
std::size_t failing = 0; // its number; 0 for none

} // namespace

void* support::allocate(std::size_t size)
{
    if (++count == failing)
        return nullptr;
    ++inUse;
    return std::malloc(size ? size : 1);
}

void support::release(void* memory)
{
    inUse -= memory ? 1 : 0;
    std::free(memory);
}

// noinline: compilers must not pair a visible malloc with a delete expression.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    if (void* memory = support::allocate(size))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept { support::release(memory); }

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    support::release(memory);
}

std::size_t support::allocations() { return count; }
std::size_t support::allocationsInUse() { return inUse; }

void support::failAfter(std::size_t others) { failing = count + others + 1; }

bool support::stopFailing()
{
    const bool failed = failing != 0 && count >= failing;
    failing = 0;
    return failed;
}
