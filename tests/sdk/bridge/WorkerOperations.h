// Operations of a camera for the tests of its worker thread.
#pragma once

#include "sdk/bridge/CameraWorker.h"

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
        return [shared = state] {
            shared->started.release();
            shared->ended.acquire();
            return shared->result.load();
        };
    }
    bool waitUntilStarted() { return state->started.tryAcquire(1, 5000); }
    void end(ZalErrorType result)
    {
        state->result = result;
        state->ended.release();
    }

private:
    struct State
    {
        QSemaphore started;
        QSemaphore ended;
        std::atomic<ZalErrorType> result{ZalErrorSuccess};
    };
    std::shared_ptr<State> state = std::make_shared<State>();
};

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
