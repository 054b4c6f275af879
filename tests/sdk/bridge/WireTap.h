#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

// NOLINTNEXTLINE(bugprone-reserved-identifier): named so by Aravis
using ArvDevice = struct _ArvDevice;

/// Comes between Aravis and the GigE cameras that this process opens: sees every access that really
/// goes out, and can leave it unanswered or refuse it. Make the first one before the first camera
/// is opened, and one at a time.
class WireTap
{
public:
    enum class Answer
    {
        TheCameras,
        TimeOut,
        NotConnected,
        Busy,
        Denied,
        Unknown, ///< A failure that is not one of those that Aravis has today.
    };

    struct Access
    {
        bool isWrite = false;
        std::uint64_t address = 0;
        std::vector<unsigned char> bytes; ///< What was written.
        std::uint32_t size = 0;
        std::chrono::steady_clock::time_point time;
    };

    /// Called before an access goes out, on the thread that makes it.
    using Hook = std::function<Answer(ArvDevice*, std::uint64_t address)>;

    WireTap();
    ~WireTap();
    WireTap(const WireTap&) = delete;
    WireTap& operator=(const WireTap&) = delete;

    /// Set it while no camera is accessed.
    void onRead(Hook hook);
    void onWrite(Hook hook);
    /// Since the tap was made, or since the last call.
    std::vector<Access> takeAccesses();
};
