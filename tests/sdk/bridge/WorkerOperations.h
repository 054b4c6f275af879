// Operations of a camera for the tests of its worker thread.
#pragma once

#include "sdk/bridge/CameraWorker.h"

#include <QElapsedTimer>
#include <QSemaphore>

#include <atomic>
#include <memory>

namespace WorkerOperations {

/// An operation that goes on until it is told its result.
class Operation
{
public:
    ZalCPP::CameraWorker::Work work()
    {
        return [shared = m_state] {
            shared->started.release();
            shared->ended.acquire();
            return shared->result.load();
        };
    }
    bool waitUntilStarted() { return m_state->started.tryAcquire(1, 5000); }
    void end(ZalErrorType result)
    {
        m_state->result = result;
        m_state->ended.release();
    }

private:
    struct State
    {
        QSemaphore started;
        QSemaphore ended;
        std::atomic<ZalErrorType> result{ZalErrorSuccess};
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

/// What a caller's thread may be blocked for, in milliseconds.
constexpr qint64 LongestBlock = 650;

/// Opens the breaker with an operation that does not end; says for how many milliseconds the caller
/// was blocked.
inline qint64 stall(ZalCPP::CameraWorker& worker, Operation& operation)
{
    QElapsedTimer timer;
    timer.start();
    if (worker.call(operation.work()) != ZalErrorTimeout)
        qFatal("The call did not time out");
    return timer.elapsed();
}

inline ZalErrorType succeed()
{
    return ZalErrorSuccess;
}

/// A camera that answers, but late.
inline ZalCPP::CameraWorker::Work lateAnswer(int afterMs)
{
    return [afterMs] {
        QSemaphore never;
        never.tryAcquire(1, afterMs);
        return ZalErrorSuccess;
    };
}

} // namespace WorkerOperations
