#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#include <sanitizer/allocator_interface.h>
#else
#include <malloc.h>
#endif

/// The bytes that the program has allocated and not given back, by whichever allocator it runs on.
inline std::size_t heapInUse()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 facts = mallinfo2();
    // Large blocks are mapped one by one and counted apart.
    return facts.uordblks + facts.hblkhd;
#endif
}
