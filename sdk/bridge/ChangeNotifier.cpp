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

ChangeNotifier::ChangeNotifier(std::shared_ptr<const CameraDescription> description,
                               std::shared_ptr<AccessGuard> guard, FeatureProvider features)
    : m_description(std::move(description)), m_guard(std::move(guard)),
      m_features(std::move(features))
{
}

void ChangeNotifier::start(const std::shared_ptr<ChangeNotifier>& notifier,
                           std::shared_ptr<CameraWorker> worker)
{
    notifier->m_worker = std::move(worker);
    // The thread shares ownership: it may be inside the call that destroys the camera.
    notifier->m_thread = std::thread([notifier] { notifier->run(); });
}

void ChangeNotifier::stop()
{
    std::map<std::size_t, Watch> released;
    LostHandler releasedHandler;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        released.swap(m_watches);
        releasedHandler.swap(m_lostHandler);
        m_wake.notify_all();
    }
    if (!m_thread.joinable())
        return;
    if (m_thread.get_id() == std::this_thread::get_id())
        m_thread.detach();
    else
        m_thread.join();
}

void ChangeNotifier::addObserver(std::size_t feature,
                                 const std::shared_ptr<IFeatureObserver>& observer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_stopping || isObserving(feature, observer))
        return;
    Watch& watch = m_watches[feature];
    watch.observers.push_back(observer);
    schedulePoll(feature, watch);
    m_wake.notify_all();
}

void ChangeNotifier::removeObserver(std::size_t feature,
                                    const std::shared_ptr<IFeatureObserver>& observer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_watches.find(feature);
    if (found == m_watches.end())
        return;
    auto& observers = found->second.observers;
    observers.erase(std::remove(observers.begin(), observers.end(), observer), observers.end());
    if (observers.empty())
        m_watches.erase(found);
}

bool ChangeNotifier::isObserving(std::size_t feature,
                                 const std::shared_ptr<IFeatureObserver>& observer) const
{
    const auto found = m_watches.find(feature);
    if (found == m_watches.end())
        return false;
    const auto& observers = found->second.observers;
    return std::find(observers.begin(), observers.end(), observer) != observers.end();
}

void ChangeNotifier::written(const FeatureDescription& feature)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (const std::size_t affected : feature.affected) {
        const auto found = m_watches.find(affected);
        if (found != m_watches.end())
            found->second.marked = true;
    }
    noteWrite();
}

void ChangeNotifier::writtenAll()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& [position, watch] : m_watches)
        watch.marked = true;
    noteWrite();
}

void ChangeNotifier::noteWrite()
{
    ++m_generation;
    m_quietAt = m_changedAt = Clock::now() + QuietWindow;
    m_wake.notify_all();
}

void ChangeNotifier::recovered()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& [position, watch] : m_watches)
        watch.marked = watch.mustReport = true;
    m_changedAt = std::max(m_changedAt, Clock::now());
    m_wake.notify_all();
}

void ChangeNotifier::lost()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isLost = true;
    m_wake.notify_all();
}

void ChangeNotifier::setLostHandler(LostHandler handler)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_lostHandler.swap(handler);
    m_wake.notify_all();
}

void ChangeNotifier::run()
{
    Lock lock(m_mutex);
    while (!m_stopping) {
        if (!endsWell([&] { step(lock); }))
            pause(lock);
    }
}

// What went wrong, as when memory runs out, would go wrong again at once.
void ChangeNotifier::pause(Lock& lock)
{
    if (!lock.owns_lock())
        lock.lock();
    m_wake.wait_for(lock, PauseAfterFailure, [this] { return m_stopping || m_isLost; });
}

// Does the one thing that is due, or waits for the next one.
void ChangeNotifier::step(Lock& lock)
{
    if (m_isLost)
        reportLoss(lock);
    else if (!m_worker->isHealthy())
        m_wake.wait(lock);
    else if (Clock::now() < m_quietAt)
        m_wake.wait_until(lock, Clock::time_point(m_quietAt));
    else
        readNext(lock);
}

void ChangeNotifier::reportLoss(Lock& lock)
{
    if (!m_lostHandler) {
        m_wake.wait(lock);
        return;
    }
    LostHandler handler = std::exchange(m_lostHandler, nullptr);
    lock.unlock();
    endsWell(handler);
    handler = nullptr;
    lock.lock();
}

// What is not known yet comes first: only a comparison can tell a change.
void ChangeNotifier::readNext(Lock& lock)
{
    const auto find = [this](auto condition) {
        return std::find_if(m_watches.begin(), m_watches.end(),
                            [&](const auto& item) { return condition(item.second); });
    };
    const auto unknown = find([](const Watch& watch) { return !watch.known && !watch.marked; });
    if (unknown != m_watches.end())
        return check(lock, unknown->first);
    const auto marked = find([](const Watch& watch) { return watch.marked; });
    if (marked != m_watches.end())
        return check(lock, marked->first);
    pollNext(lock);
}

void ChangeNotifier::pollNext(Lock& lock)
{
    const auto due =
        std::min_element(m_watches.begin(), m_watches.end(), [](const auto& a, const auto& b) {
            return a.second.nextPoll < b.second.nextPoll;
        });
    if (due == m_watches.end() || due->second.nextPoll == Clock::time_point::max())
        m_wake.wait(lock);
    else if (due->second.nextPoll > Clock::now())
        m_wake.wait_until(lock, Clock::time_point(due->second.nextPoll));
    else
        poll(lock, due->first);
}

// Reads through the worker with the lock released. Empty when the camera was written meanwhile, or
// does not answer, or nobody observes the feature any more: then the result says nothing.
template <typename Result>
std::optional<Result> ChangeNotifier::read(Lock& lock, std::size_t feature, Reader<Result> reader,
                                           Clock::time_point earliest)
{
    const auto before = m_generation;
    const auto result = std::make_shared<Result>();
    const auto access = [reader, result](const FeatureDescription& facts) {
        return reader(facts, *result);
    };
    lock.unlock();
    ZalErrorType status = ZalErrorSuccess;
    if (m_guard->hasGivenUpReading(feature))
        setUnanswered(*result);
    else
        status = m_worker->call([guard = m_guard, feature, access, earliest] {
            return guard->read(feature, access, {earliest});
        });
    lock.lock();
    if (status != ZalErrorSuccess && !isSilent(status))
        pause(lock);
    const bool meaningful = status == ZalErrorSuccess && m_generation == before &&
                            m_watches.find(feature) != m_watches.end();
    return meaningful ? std::optional<Result>(std::move(*result)) : std::nullopt;
}

void ChangeNotifier::check(Lock& lock, std::size_t feature)
{
    const auto snapshot = read<Snapshot>(lock, feature, readSnapshot, m_changedAt);
    if (!snapshot)
        return;
    Watch& watch = m_watches.at(feature);
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
    Watch& watch = m_watches.at(feature);
    schedulePoll(feature, watch);
    if (!watch.known || watch.known->value == *value)
        return;
    watch.marked = true;
    m_changedAt = std::max(m_changedAt, begun);
}

void ChangeNotifier::schedulePoll(std::size_t feature, Watch& watch)
{
    const auto pollingTime = m_description->features[feature].pollingTime;
    if (pollingTime.count() > 0)
        watch.nextPoll = Clock::now() + pollingTime;
}

// An observer that was unregistered meanwhile may be destroyed here, without the lock held.
void ChangeNotifier::callObservers(Lock& lock, std::size_t feature)
{
    auto observers = m_watches.at(feature).observers;
    for (auto& observer : observers) {
        const bool wanted = isObserving(feature, observer);
        lock.unlock();
        // Observers are the application's: if one throws, the others are still called.
        endsWell([&] {
            if (const FeaturePtr changed = wanted ? m_features(feature) : nullptr)
                observer->FeatureChanged(changed);
        });
        observer.reset();
        lock.lock();
    }
}

} // namespace ZalCPP
