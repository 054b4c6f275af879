#include "sdk/bridge/ChangeNotifier.h"

#include "sdk/bridge/AravisStatus.h"
#include "sdk/bridge/Guarded.h"

#include <algorithm>
#include <utility>

namespace ZalCPP {
namespace {

// Writes that follow each other this closely belong together. An answer in the cache is no older.
constexpr auto QuietWindow = ReadCache::Window;

constexpr std::chrono::milliseconds PauseAfterFailure{1000};

// What is known of a feature that was given up. It never changes.
void setUnanswered(SnapshotValue& value)
{
    value = ZalErrorTimeout;
}

void setUnanswered(Snapshot& snapshot)
{
    setUnanswered(snapshot.value);
}

} // namespace

ChangeNotifier::ChangeNotifier(std::shared_ptr<const CameraDescription> cameraDescription,
                               std::shared_ptr<AccessGuard> accessGuard, FeatureProvider provider)
    : description(std::move(cameraDescription)), guard(std::move(accessGuard)),
      features(std::move(provider))
{
}

void ChangeNotifier::start(const std::shared_ptr<ChangeNotifier>& notifier,
                           std::shared_ptr<CameraWorker> cameraWorker)
{
    notifier->worker = std::move(cameraWorker);
    // The thread shares ownership: it may be inside the call that destroys the camera.
    notifier->thread = std::thread([notifier] { notifier->run(); });
}

void ChangeNotifier::stop()
{
    std::map<std::size_t, Watch> released;
    LostHandler releasedHandler;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        stopping = true;
        released.swap(watches);
        releasedHandler.swap(lostHandler);
        wake.notify_all();
    }
    if (!thread.joinable())
        return;
    if (thread.get_id() == std::this_thread::get_id())
        thread.detach();
    else
        thread.join();
}

void ChangeNotifier::addObserver(std::size_t feature,
                                 const std::shared_ptr<IFeatureObserver>& observer)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (stopping || isObserving(feature, observer))
        return;
    Watch& watch = watches[feature];
    watch.observers.push_back(observer);
    schedulePoll(feature, watch);
    wake.notify_all();
}

void ChangeNotifier::removeObserver(std::size_t feature,
                                    const std::shared_ptr<IFeatureObserver>& observer)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto found = watches.find(feature);
    if (found == watches.end())
        return;
    auto& observers = found->second.observers;
    observers.erase(std::remove(observers.begin(), observers.end(), observer), observers.end());
    if (observers.empty())
        watches.erase(found);
}

bool ChangeNotifier::isObserving(std::size_t feature,
                                 const std::shared_ptr<IFeatureObserver>& observer) const
{
    const auto found = watches.find(feature);
    if (found == watches.end())
        return false;
    const auto& observers = found->second.observers;
    return std::find(observers.begin(), observers.end(), observer) != observers.end();
}

void ChangeNotifier::written(const FeatureDescription& feature)
{
    const std::lock_guard<std::mutex> lock(mutex);
    for (const std::size_t affected : feature.affected) {
        const auto found = watches.find(affected);
        if (found != watches.end())
            found->second.marked = true;
    }
    noteWrite();
}

void ChangeNotifier::writtenAll()
{
    const std::lock_guard<std::mutex> lock(mutex);
    for (auto& [position, watch] : watches)
        watch.marked = true;
    noteWrite();
}

void ChangeNotifier::noteWrite()
{
    ++generation;
    quietAt = changedAt = Clock::now() + QuietWindow;
    wake.notify_all();
}

void ChangeNotifier::recovered()
{
    const std::lock_guard<std::mutex> lock(mutex);
    for (auto& [position, watch] : watches)
        watch.marked = watch.mustReport = true;
    changedAt = std::max(changedAt, Clock::now());
    wake.notify_all();
}

void ChangeNotifier::lost()
{
    const std::lock_guard<std::mutex> lock(mutex);
    isLost = true;
    wake.notify_all();
}

void ChangeNotifier::setLostHandler(LostHandler handler)
{
    const std::lock_guard<std::mutex> lock(mutex);
    lostHandler.swap(handler);
    wake.notify_all();
}

void ChangeNotifier::run()
{
    Lock lock(mutex);
    while (!stopping) {
        if (!endsWell([&] { step(lock); }))
            pause(lock);
    }
}

// What went wrong, as when memory runs out, would go wrong again at once.
void ChangeNotifier::pause(Lock& lock)
{
    if (!lock.owns_lock())
        lock.lock();
    wake.wait_for(lock, PauseAfterFailure, [this] { return stopping || isLost; });
}

// Does the one thing that is due, or waits for the next one.
void ChangeNotifier::step(Lock& lock)
{
    if (isLost)
        reportLoss(lock);
    else if (!worker->isHealthy())
        wake.wait(lock);
    else if (Clock::now() < quietAt)
        wake.wait_until(lock, Clock::time_point(quietAt));
    else
        readNext(lock);
}

void ChangeNotifier::reportLoss(Lock& lock)
{
    if (!lostHandler) {
        wake.wait(lock);
        return;
    }
    LostHandler handler = std::exchange(lostHandler, nullptr);
    lock.unlock();
    endsWell(handler);
    handler = nullptr;
    lock.lock();
}

// What is not known yet comes first: a change can only be told by comparison.
void ChangeNotifier::readNext(Lock& lock)
{
    const auto find = [this](auto condition) {
        return std::find_if(watches.begin(), watches.end(),
                            [&](const auto& item) { return condition(item.second); });
    };
    const auto unknown = find([](const Watch& watch) { return !watch.known && !watch.marked; });
    if (unknown != watches.end())
        return check(lock, unknown->first);
    const auto marked = find([](const Watch& watch) { return watch.marked; });
    if (marked != watches.end())
        return check(lock, marked->first);
    pollNext(lock);
}

void ChangeNotifier::pollNext(Lock& lock)
{
    const auto due =
        std::min_element(watches.begin(), watches.end(), [](const auto& a, const auto& b) {
            return a.second.nextPoll < b.second.nextPoll;
        });
    if (due == watches.end() || due->second.nextPoll == Clock::time_point::max())
        wake.wait(lock);
    else if (due->second.nextPoll > Clock::now())
        wake.wait_until(lock, Clock::time_point(due->second.nextPoll));
    else
        poll(lock, due->first);
}

// Reads through the worker with the lock released. Empty when the camera was written meanwhile, or
// does not answer, or nobody observes the feature any more: then the result says nothing.
template <typename Result>
std::optional<Result> ChangeNotifier::read(Lock& lock, std::size_t feature, Reader<Result> reader,
                                           Clock::time_point earliest)
{
    const auto before = generation;
    const auto result = std::make_shared<Result>();
    const auto access = [reader, result](const FeatureDescription& facts) {
        return reader(facts, *result);
    };
    lock.unlock();
    ZalErrorType status = ZalErrorSuccess;
    if (guard->hasGivenUpReading(feature))
        setUnanswered(*result);
    else
        status = worker->call([guard = guard, feature, access, earliest] {
            return guard->read(feature, access, {earliest});
        });
    lock.lock();
    if (status != ZalErrorSuccess && !isSilent(status))
        pause(lock);
    const bool meaningful =
        status == ZalErrorSuccess && generation == before && watches.find(feature) != watches.end();
    return meaningful ? std::optional<Result>(std::move(*result)) : std::nullopt;
}

void ChangeNotifier::check(Lock& lock, std::size_t feature)
{
    const auto snapshot = read<Snapshot>(lock, feature, readSnapshot, changedAt);
    if (!snapshot)
        return;
    Watch& watch = watches.at(feature);
    const bool changed = watch.known ? !(*watch.known == *snapshot) : watch.marked;
    const bool mustReport = watch.mustReport;
    watch.known = snapshot;
    watch.marked = watch.mustReport = false;
    if (changed || mustReport)
        callObservers(lock, feature);
}

// Only the value is read while it stays what it was: one access to the camera.
void ChangeNotifier::poll(Lock& lock, std::size_t feature)
{
    const auto begun = Clock::now();
    const auto value = read<SnapshotValue>(lock, feature, readSnapshotValue, begun);
    if (!value)
        return;
    Watch& watch = watches.at(feature);
    schedulePoll(feature, watch);
    if (!watch.known || watch.known->value == *value)
        return;
    watch.marked = true;
    changedAt = std::max(changedAt, begun);
}

void ChangeNotifier::schedulePoll(std::size_t feature, Watch& watch)
{
    const auto pollingTime = description->features[feature].pollingTime;
    if (pollingTime.count() > 0)
        watch.nextPoll = Clock::now() + pollingTime;
}

// An observer that was unregistered meanwhile may die here, and does so without the lock.
void ChangeNotifier::callObservers(Lock& lock, std::size_t feature)
{
    auto observers = watches.at(feature).observers;
    for (auto& observer : observers) {
        const bool wanted = isObserving(feature, observer);
        lock.unlock();
        // An observer that throws is one of the application's, and the others are still called.
        endsWell([&] {
            if (const FeaturePtr changed = wanted ? features(feature) : nullptr)
                observer->FeatureChanged(changed);
        });
        observer.reset();
        lock.lock();
    }
}

} // namespace ZalCPP
