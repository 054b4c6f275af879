#pragma once

#include "sdk/bridge/ReadCache.h"

#include <arv.h>

#include <atomic>
#include <cstdint>
#include <memory>

namespace ZalCPP {

/// Stands between Aravis and one device: counts the register accesses, answers reads from the cache
/// where that is good enough, and checks who controls the camera when a write fails. What that
/// check sends is not counted. Any thread may read the numbers; the cache belongs to the thread
/// that accesses the device.
///
/// Aravis has no hook for this, so the access functions of the device's class are wrapped, once per
/// class; the wrappers find what is attached to the device that they are called for and then go on
/// to the original function. Devices with nothing attached are not affected. The heartbeat of a
/// GigE Vision connection does not pass through these functions. It notices a camera that nobody
/// controls any more, but takes another program's control for its own.
struct RegisterTap
{
    std::atomic<std::uint64_t> reads{0};  ///< Those that the cache did not answer.
    std::atomic<std::uint64_t> writes{0}; ///< Those passed on, whether answered or not.
    /// Another program controls the camera: what is written is refused, or left unanswered. From
    /// then on every write fails as on a connection that is closed.
    std::atomic<bool> isTakenOver{false};
    ReadCache cache; ///< Of this device.

    /// Works from now on and may outlive the device.
    static std::shared_ptr<RegisterTap> attach(ArvDevice* device);
};

} // namespace ZalCPP
