#pragma once

#include <ZalCPP/ZalTypes.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace ZalCPP {

/// Answers a call in the SDK's array form: the number of elements for a null buffer, otherwise the
/// elements and how many there are. `count` keeps its value when the buffer is too small.
template <typename Iterator, typename Element>
ZalErrorType copyOut(Iterator first, std::size_t size, Element* buffer, std::uint32_t& count)
{
    if (buffer && count < size)
        return ZalErrorBufferTooSmall;
    if (buffer)
        std::copy_n(first, size, buffer);
    count = static_cast<std::uint32_t>(size);
    return ZalErrorSuccess;
}

/// As above, all elements of a vector.
template <typename Element>
ZalErrorType copyOut(const std::vector<Element>& elements, Element* buffer, std::uint32_t& count)
{
    return copyOut(elements.begin(), elements.size(), buffer, count);
}

/// Texts go out with their terminator.
inline ZalErrorType copyOut(const std::string& text, char* buffer, std::uint32_t& count)
{
    return copyOut(text.c_str(), text.size() + 1, buffer, count);
}

} // namespace ZalCPP
