#pragma once

#include "sdk/bridge/AccessGuard.h"
#include "sdk/bridge/CameraWorker.h"
#include "sdk/bridge/Snapshot.h"

#include <ZalCPP/Feature.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace ZalCPP {

/// Tells observers about changed features, on a thread of its own. Only observed features cost
/// anything.
///
/// A write marks the features that it may have changed. When writes have been quiet for a short
/// while, each marked feature is read again and its observers are called if anything differs from
/// what was last known. So code that steps a selector through its entries and puts it back causes
/// no calls. What is known is read in the background after the first registration; a feature that
/// is written before that is reported once without comparison. Features with a polling time are
/// read at that rate.
///
/// Observers are called with no lock held. One whose call has begun may still be inside it after
/// UnregisterObserver returned on another thread; no further call begins.
class ChangeNotifier
{
public:
    /// The feature at a position of the description; null once the camera is gone.
    using FeatureProvider = std::function<FeaturePtr(std::size_t)>;
    /// See Camera::SetLostHandler().
    using LostHandler = std::function<void()>;

    /// Starts with start(), because the worker's hooks and the notifier need each other.
    ChangeNotifier(std::shared_ptr<const CameraDescription> description,
                   std::shared_ptr<AccessGuard> guard, FeatureProvider features);

    /// Starts the thread, which shares ownership of the notifier and the worker.
    static void start(const std::shared_ptr<ChangeNotifier>& notifier,
                      std::shared_ptr<CameraWorker> worker);
    /// Ends the calls and lets go of the observers. Waits for a call that is running, unless it is
    /// made from within that call.
    void stop();

    /// Shares ownership until removeObserver() or stop(). A second time changes nothing.
    void addObserver(std::size_t feature, const std::shared_ptr<IFeatureObserver>& observer);
    /// One that is not registered is no mistake.
    void removeObserver(std::size_t feature, const std::shared_ptr<IFeatureObserver>& observer);

    /// On the worker thread, after the camera was written.
    void written(const FeatureDescription& feature);
    /// As written(), for an operation that may change anything.
    void writtenAll();

    /// The camera answers again: every observed feature is reported.
    void recovered();
    /// The camera is lost for good: the handler is called, on the notifier's thread.
    void lost();
    /// Called on the notifier's thread; at once where the camera is lost already.
    void setLostHandler(LostHandler handler);

private:
    using Clock = std::chrono::steady_clock;
    using Lock = std::unique_lock<std::mutex>;

    template <typename Result> using Reader = ZalErrorType (*)(const FeatureDescription&, Result&);

    struct Watch
    {
        std::vector<std::shared_ptr<IFeatureObserver>> observers;
        std::optional<Snapshot> known; ///< What the observers were last told, or could see.
        bool marked = false;           ///< May have changed.
        bool mustReport = false;       ///< Has to be reported even if nothing differs.
        Clock::time_point nextPoll = Clock::time_point::max();
    };

    void run();
    void step(Lock& lock);
    void pause(Lock& lock);
    void reportLoss(Lock& lock);
    void readNext(Lock& lock);
    void pollNext(Lock& lock);
    template <typename Result>
    std::optional<Result> read(Lock& lock, std::size_t feature, Reader<Result> reader,
                               Clock::time_point earliest);
    void check(Lock& lock, std::size_t feature);
    void poll(Lock& lock, std::size_t feature);
    void schedulePoll(std::size_t feature, Watch& watch);
    void callObservers(Lock& lock, std::size_t feature);
    bool isObserving(std::size_t feature, const std::shared_ptr<IFeatureObserver>& observer) const;
    void noteWrite();

    const std::shared_ptr<const CameraDescription> m_description;
    const std::shared_ptr<AccessGuard> m_guard;
    const FeatureProvider m_features;
    std::shared_ptr<CameraWorker> m_worker;
    std::thread m_thread;

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::map<std::size_t, Watch> m_watches; ///< By position of the feature.
    std::uint64_t m_generation = 0;         ///< Counts writes.
    Clock::time_point m_quietAt;
    Clock::time_point m_changedAt; ///< What the camera answered before says nothing any more.
    LostHandler m_lostHandler;
    bool m_isLost = false;
    bool m_stopping = false;
};

} // namespace ZalCPP
