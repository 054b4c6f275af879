#include "tests/support/AllocationLimit.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> limit{SIZE_MAX};

void* allocate(std::size_t size) noexcept
{
    return size > limit ? nullptr : std::malloc(size > 0 ? size : 1);
}

} // namespace

AllocationLimit::AllocationLimit(std::size_t bytes)
{
    limit = bytes;
}

AllocationLimit::~AllocationLimit()
{
    limit = SIZE_MAX;
}

// All unaligned forms together, so that no block goes through two different allocators.
void* operator new(std::size_t size)
{
    void* const memory = allocate(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
