#pragma once

#include <ZalCPP/ZalTypes.h>

#include <exception>
#include <new>
#include <stdexcept>

namespace ZalCPP {

/// Runs `work` on a thread that no exception may leave: one becomes a status.
template <typename Work> ZalErrorType guarded(Work&& work) noexcept
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return ZalErrorOutOfResources;
    } catch (const std::length_error&) {
        return ZalErrorOutOfResources;
    } catch (...) {
        return ZalErrorUnknown;
    }
}

/// As guarded(), for work that has no status. False when it ended with an exception.
template <typename Work> bool endsWell(Work&& work) noexcept
{
    return guarded([&] {
               work();
               return ZalErrorSuccess;
           }) == ZalErrorSuccess;
}

} // namespace ZalCPP
