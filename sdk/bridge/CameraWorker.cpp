#include "sdk/bridge/CameraWorker.h"

#include "sdk/bridge/Guarded.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace ZalCPP {
namespace {

using Clock = std::chrono::steady_clock;

// How long closing waits, including what callers have just waited: long enough for one repetition,
// because a camera that was not told of the end stays ours for seconds, and is in use for whoever
// opens it again.
constexpr std::chrono::milliseconds CloseTimeout = CameraWorker::CallTimeout;
// Shorter waits do not count.
constexpr std::chrono::milliseconds NoticeableWait{50};
// Waits that lie further apart do not add up.
constexpr std::chrono::milliseconds JustBefore{1000};

enum class Health
{
    Good,
    Overdue,
    Lost,
    Closed
};

struct Task
{
    CameraWorker::Work work;
    bool posted = false;
    bool done = false;
    ZalErrorType result = ZalErrorUnknown;
};

using TaskPtr = std::shared_ptr<Task>;

TaskPtr makeTask(CameraWorker::Work work, bool posted = false)
{
    auto task = std::make_shared<Task>();
    task->work = std::move(work);
    task->posted = posted;
    return task;
}

ZalErrorType refusal(Health health)
{
    return health == Health::Overdue ? ZalErrorTimeout : ZalErrorNotOpen;
}

} // namespace

/// What the thread and the callers share. The thread shares ownership, because it may outlive the
/// worker object.
struct CameraWorker::State
{
    explicit State(Hooks workerHooks) : hooks(std::move(workerHooks)) {}

    const Hooks hooks;
    mutable std::mutex mutex;
    std::condition_variable wake;    ///< For the thread: there is work.
    std::condition_variable changed; ///< For the callers: a task is done, or the health changed.
    std::deque<TaskPtr> queue;
    Health health = Health::Good;
    bool busy = false; ///< The thread is inside an operation.
    bool finished = false;
    Clock::duration waited{}; ///< By callers, in waits that followed each other.
    Clock::time_point waitedUntil;

    void run();
    TaskPtr next();
    void finish(const TaskPtr& task, ZalErrorType result);
    void settle(ZalErrorType result);
    void recover();
    bool has(Health wanted) const;
    bool isUnanswered() const;
    bool worsen(Health newHealth);
    bool worsenLocked(Health newHealth);
    void refuseQueuedCalls();
    void noteWait(Clock::time_point begun);
    Clock::duration waitedJustBefore(Clock::time_point now) const;
    Clock::duration patienceForClosing() const;
};

void CameraWorker::State::run()
{
    while (const TaskPtr task = next()) {
        const ZalErrorType result = guarded(task->work);
        finish(task, result);
        settle(result);
    }
    const std::lock_guard<std::mutex> lock(mutex);
    finished = true;
    changed.notify_all();
}

TaskPtr CameraWorker::State::next()
{
    std::unique_lock<std::mutex> lock(mutex);
    busy = false;
    const auto due = [this] { return health == Health::Overdue || health == Health::Closed; };
    wake.wait(lock, [&] { return !queue.empty() || due(); });
    busy = true;
    if (!queue.empty()) {
        TaskPtr task = queue.front();
        queue.pop_front();
        return task;
    }
    // A call may become overdue before this thread got to run it. Nothing is outstanding then, so
    // only the camera can say whether the breaker may close.
    return health == Health::Overdue ? makeTask(hooks.probe) : nullptr;
}

void CameraWorker::State::finish(const TaskPtr& task, ZalErrorType result)
{
    // What the work owns is released here, on the thread that used it.
    task->work = nullptr;
    const std::lock_guard<std::mutex> lock(mutex);
    task->result = result;
    task->done = true;
    // After a time-out the camera is asked once more.
    busy = result == ZalErrorTimeout;
    changed.notify_all();
}

// After each operation: does the camera still answer?
void CameraWorker::State::settle(ZalErrorType result)
{
    if (result == ZalErrorTimeout) {
        worsen(Health::Overdue);
        const bool answers = has(Health::Overdue) && guarded(hooks.probe) == ZalErrorSuccess;
        result = answers ? ZalErrorSuccess : ZalErrorNotOpen;
    }
    if (result != ZalErrorNotOpen)
        recover();
    else if (worsen(Health::Lost))
        endsWell(hooks.lost);
}

void CameraWorker::State::recover()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (health != Health::Overdue)
            return;
        health = Health::Good;
    }
    endsWell(hooks.recovered);
}

bool CameraWorker::State::has(Health wanted) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return health == wanted;
}

// With the lock held. A loss does not end the operation that was outstanding.
bool CameraWorker::State::isUnanswered() const
{
    return health == Health::Overdue || (health == Health::Lost && busy);
}

// True when the health was better before.
bool CameraWorker::State::worsen(Health newHealth)
{
    const std::lock_guard<std::mutex> lock(mutex);
    return worsenLocked(newHealth);
}

bool CameraWorker::State::worsenLocked(Health newHealth)
{
    if (newHealth <= health)
        return false;
    health = newHealth;
    refuseQueuedCalls();
    wake.notify_all();
    changed.notify_all();
    return true;
}

// Nobody waits for these any more: they must not reach the camera later.
void CameraWorker::State::refuseQueuedCalls()
{
    std::deque<TaskPtr> kept;
    for (const TaskPtr& task : queue) {
        if (task->posted)
            kept.push_back(task);
        task->result = refusal(health);
        task->done = !task->posted;
    }
    queue = std::move(kept);
}

// With the lock held, like the next two.
void CameraWorker::State::noteWait(Clock::time_point begun)
{
    const auto now = Clock::now();
    if (now - begun < NoticeableWait)
        return;
    waited = waitedJustBefore(begun) + (now - begun);
    waitedUntil = now;
}

Clock::duration CameraWorker::State::waitedJustBefore(Clock::time_point now) const
{
    return now - waitedUntil < JustBefore ? waited : Clock::duration::zero();
}

// Somebody has already waited for this stall, and once per stall is enough.
Clock::duration CameraWorker::State::patienceForClosing() const
{
    if (isUnanswered())
        return Clock::duration::zero();
    const Clock::duration left = CloseTimeout - waitedJustBefore(Clock::now());
    return std::max(left, Clock::duration::zero());
}

CameraWorker::CameraWorker(Hooks hooks)
    : m_state(std::make_shared<State>(std::move(hooks))),
      m_thread([shared = m_state] { shared->run(); })
{
}

CameraWorker::~CameraWorker()
{
    close([] { return ZalErrorSuccess; });
}

ZalErrorType CameraWorker::call(Work work)
{
    const TaskPtr task = makeTask(std::move(work));
    std::unique_lock<std::mutex> lock(m_state->mutex);
    if (m_state->health != Health::Good)
        return refusal(m_state->health);
    m_state->queue.push_back(task);
    m_state->wake.notify_all();
    const auto begun = Clock::now();
    const auto ended = [&] { return task->done || m_state->health != Health::Good; };
    if (!m_state->changed.wait_for(lock, CallTimeout, ended))
        m_state->worsenLocked(Health::Overdue);
    m_state->noteWait(begun);
    return task->done ? task->result : refusal(m_state->health);
}

void CameraWorker::post(Work work)
{
    const TaskPtr task = makeTask(std::move(work), true);
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    m_state->queue.push_back(task);
    m_state->wake.notify_all();
}

void CameraWorker::declareLost()
{
    if (m_state->worsen(Health::Lost))
        m_state->hooks.lost();
}

void CameraWorker::close(Work last)
{
    if (!m_thread.joinable())
        return;
    std::unique_lock<std::mutex> lock(m_state->mutex);
    const auto patience = m_state->patienceForClosing();
    // Both under one lock, so that no call is queued behind the last work.
    m_state->queue.push_back(makeTask(std::move(last), true));
    m_state->worsenLocked(Health::Closed);
    const bool finished =
        m_state->changed.wait_for(lock, patience, [this] { return m_state->finished; });
    lock.unlock();
    if (finished)
        m_thread.join();
    else
        m_thread.detach();
}

bool CameraWorker::isHealthy() const
{
    return m_state->has(Health::Good);
}

bool CameraWorker::isOpen() const
{
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    return m_state->health < Health::Lost;
}

bool CameraWorker::isLost() const
{
    return m_state->has(Health::Lost);
}

} // namespace ZalCPP
