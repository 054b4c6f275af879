#pragma once

#include <arv.h>

#include <atomic>
#include <cstdint>
#include <memory>

namespace ZalCPP {

/// Counts the register accesses of one device. Any thread may read the numbers.
///
/// Aravis has no hook for this, so the access functions of the device's class are wrapped, once per
/// class; the wrappers find the counter of the device that they are called for and then go on to
/// the original function. Devices without a counter are not affected. The heartbeat of a GigE
/// Vision connection does not pass through these functions.
struct WireCounter
{
    std::atomic<std::uint64_t> reads{0};
    std::atomic<std::uint64_t> writes{0};

    /// A counter that counts from now on and may outlive the device.
    static std::shared_ptr<WireCounter> attach(ArvDevice* device);
};

} // namespace ZalCPP
