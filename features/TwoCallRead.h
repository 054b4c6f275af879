#pragma once

#include <ZalCPP/ZalTypes.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <string>
#include <utility>
#include <vector>

/// Reads the SDK's data of variable length. `call` is the SDK's array form,
/// `ZalErrorType call(T* buffer, std::uint32_t& count)`: asked once without a buffer for the number
/// of elements, then with a zero-filled buffer of that size.
///
/// Both functions pass a failure of either call on unchanged and return ZalErrorOutOfResources when
/// the buffer cannot be had; the output is then untouched. No element is a success with an empty
/// output. Any thread; nothing throws.
namespace TwoCallRead {

namespace Detail {

template <typename Container> bool allocate(Container& buffer, std::uint32_t count)
{
    try {
        buffer = Container(count, typename Container::value_type());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

/// `buffer` gets the size asked for, `filled` what the second call reports.
template <typename Container, typename Call>
ZalErrorType fill(Call& call, Container& buffer, std::uint32_t& filled)
{
    std::uint32_t count = 0;
    const ZalErrorType status = call(nullptr, count);
    filled = count;
    if (status != ZalErrorSuccess || count == 0)
        return status;
    if (!allocate(buffer, count))
        return ZalErrorOutOfResources;
    return call(buffer.data(), filled);
}

} // namespace Detail

/// The elements that the second call reports, at most as many as the first one announced.
template <typename T, typename Call> ZalErrorType readArray(Call&& call, std::vector<T>& output)
{
    std::vector<T> buffer;
    std::uint32_t filled = 0;
    const ZalErrorType status = Detail::fill(call, buffer, filled);
    if (status != ZalErrorSuccess)
        return status;
    buffer.resize(std::min<std::size_t>(buffer.size(), filled));
    output = std::move(buffer);
    return ZalErrorSuccess;
}

/// The characters up to the terminator.
template <typename Call> ZalErrorType readText(Call&& call, std::string& output)
{
    std::string buffer;
    std::uint32_t filled = 0;
    const ZalErrorType status = Detail::fill(call, buffer, filled);
    if (status != ZalErrorSuccess)
        return status;
    buffer.resize(std::min(buffer.size(), buffer.find('\0')));
    output = std::move(buffer);
    return ZalErrorSuccess;
}

} // namespace TwoCallRead
