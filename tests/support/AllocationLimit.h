#pragma once

#include <cstddef>

/// While it lives, an `operator new` of more than `bytes` fails as it does when memory runs out.
/// Add AllocationLimit.cpp to the test's sources: it replaces the program's allocation functions.
class AllocationLimit
{
public:
    explicit AllocationLimit(std::size_t bytes);
    ~AllocationLimit();
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;
};
