#pragma once

#include <cmath>
#include <limits>

/// Conversions between numbers that the language leaves undefined outside the target's range, with
/// one defined result for every input. No state; any thread.
namespace NumberConversions {

namespace Detail {

constexpr double TwoTo64 = 18446744073709551616.0;

/// `upperBound` is the smallest double above T's range: T's maximum itself has none for 64 bits.
template <typename T> constexpr T saturate(double value, double upperBound)
{
    if (value >= upperBound)
        return std::numeric_limits<T>::max();
    if (value <= -upperBound)
        return std::numeric_limits<T>::min();
    return value == value ? static_cast<T>(value) : T(0); // not equal to itself: not a number
}

} // namespace Detail

/// Truncates toward zero; saturates outside the range of 64 bits; NaN gives 0.
constexpr long long toInt64(double value)
{
    return Detail::saturate<long long>(value, 9223372036854775808.0);
}

/// Truncates toward zero; saturates outside the range of int; NaN gives 0.
constexpr int toInt(double value)
{
    return Detail::saturate<int>(value, 2147483648.0);
}

/// A quotient truncated through an unsigned 64-bit integer: the fraction goes, and a negative
/// quotient -n wraps around to 2^64 - n. |quotient| < 1 and NaN give 0. A quotient that no such
/// integer holds, from 2^64 up, stays as it is.
inline double truncateUnsigned(double quotient)
{
    if (quotient >= Detail::TwoTo64)
        return quotient;
    if (quotient <= -1.0)
        return Detail::TwoTo64 + std::trunc(quotient);
    return quotient >= 1.0 ? std::trunc(quotient) : 0.0;
}

/// `value` reduced to a multiple of `step`, counted from zero. The wrap-around of truncateUnsigned
/// is meant: a negative value comes back as a very large positive one.
inline double reduceToMultiple(double value, double step)
{
    return step * truncateUnsigned(value / step);
}

} // namespace NumberConversions
