#pragma once

#include <cstddef>
#include <cstring>

/// The place of a virtual function in its class's table, counted from 0. A destructor takes the two
/// places 0 and 1 when it is declared first. Itanium C++ ABI: a pointer to a virtual function holds
/// the offset of its place, on some processors plus one as a mark.
template <typename MemberFunction> std::size_t virtualSlot(MemberFunction function)
{
    static_assert(sizeof(function) == 2 * sizeof(std::ptrdiff_t), "unknown C++ ABI");
    std::size_t offset = 0;
    std::memcpy(&offset, &function, sizeof offset);
    return offset / sizeof(void*);
}
