#pragma once

#include <ZalCPP/ZalTypes.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

// Array form of the SDK, seen from the answering side: a null buffer asks for the count.
namespace Fake {

template <typename T>
ZalErrorType deliver(const T* data, std::size_t size, T* buffer, std::uint32_t& count)
{
    const auto needed = static_cast<std::uint32_t>(size);
    if (buffer != nullptr) {
        if (count < needed)
            return ZalErrorBufferTooSmall;
        std::copy_n(data, size, buffer);
    }
    count = needed;
    return ZalErrorSuccess;
}

template <typename T>
ZalErrorType deliver(const std::vector<T>& data, T* buffer, std::uint32_t& count)
{
    return deliver(data.data(), data.size(), buffer, count);
}

inline ZalErrorType deliverText(const std::string& text, char* buffer, std::uint32_t& count)
{
    return deliver(text.c_str(), text.size() + 1, buffer, count);
}

} // namespace Fake
