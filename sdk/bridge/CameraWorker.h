#pragma once

#include <ZalCPP/ZalTypes.h>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace ZalCPP {

/// The one thread on which a camera is accessed, and the circuit breaker that keeps its callers
/// from waiting for a camera that does not answer.
///
/// A call that does not end in time opens the breaker: it and all further calls return
/// ZalErrorTimeout, without running, until the outstanding operation ends. If that ends well the
/// breaker closes; if it ended with a time-out the camera is probed once more, and declared lost if
/// it fails again. A lost or closed worker answers ZalErrorNotOpen.
///
/// All methods may be called from any thread but the worker's own.
class CameraWorker
{
public:
    /// Its status is what the caller gets.
    using Work = std::function<ZalErrorType()>;

    /// How long a caller waits. Aravis repeats a request after 500 ms, so that one lost datagram
    /// fails no call. It counts from the beginning of the call, however often the camera answers
    /// meanwhile: a user interface thread may be among the callers.
    static constexpr std::chrono::milliseconds CallTimeout{600};

    /// Called with no lock held.
    struct Hooks
    {
        Work probe;                      ///< A cheap read; on the worker thread.
        std::function<void()> recovered; ///< The breaker closed again; on the worker thread.
        std::function<void()> lost;      ///< Called once, on the thread that noticed.
    };

    /// Starts the thread.
    explicit CameraWorker(Hooks hooks);
    ~CameraWorker();
    CameraWorker(const CameraWorker&) = delete;
    CameraWorker& operator=(const CameraWorker&) = delete;

    /// Runs `work` on the worker thread and returns its status. `work` may go on after this
    /// returned with ZalErrorTimeout: it must own everything that it touches.
    ZalErrorType call(Work work);

    /// Runs `work` in its turn, whatever happens, without waiting for it.
    void post(Work work);

    /// For good: further calls are refused. Calls the hook, once at most.
    void declareLost();

    /// Refuses further calls, lets the posted work and then `last` run, and waits a moment for
    /// that, shortened by what callers have just waited, as when a slow camera was stopped first.
    /// If the camera does not answer, the thread is left behind to end by itself.
    void close(Work last);

    bool isHealthy() const; ///< Neither waiting for an overdue operation, nor lost, nor closed.
    bool isOpen() const;    ///< Neither lost nor closed.
    bool isLost() const;    ///< For good, and not closed since.

private:
    struct State;
    std::shared_ptr<State> m_state;
    std::thread m_thread;
};

} // namespace ZalCPP
