#include "tests/faults/FaultyCamera.h"

#include <QCryptographicHash>

#include <algorithm>
#include <sstream>
#include <thread>

namespace Faults {
namespace {

constexpr double Lowest = -100000.0;

/// Under each entry of its selector.
std::vector<Fake::State*> statesOf(Fake::FakeFeature& feature)
{
    if (feature.selector == nullptr)
        return {&feature.state()};
    std::vector<Fake::State*> states;
    const Fake::State& selector = feature.selector->state();
    for (const Fake::Entry& entry : selector.entries)
        states.push_back(&feature.stateFor(entry.name));
    for (long long i = 0; feature.selector->type == ZalFeatureInteger && i <= selector.maxInteger;
         ++i)
        states.push_back(&feature.stateFor(std::to_string(i)));
    return states;
}

/// Numbers below zero are welcome, so that none is refused for being one.
void widen(Fake::FakeFeature& feature)
{
    for (Fake::State* state : statesOf(feature)) {
        state->minReal = Lowest;
        state->minInteger = static_cast<long long>(Lowest);
    }
}

std::string digestOf(const Fake::State& state)
{
    std::ostringstream digest;
    digest.precision(17);
    digest << state.integer << ' ' << state.real << ' ' << state.boolean << ' ' << state.text << ' '
           << state.minInteger << ' ' << state.maxInteger << ' ' << state.minReal << ' '
           << state.maxReal << ' ' << state.readable << state.writable << state.implemented;
    return digest.str();
}

QString qt(const std::string& text)
{
    return QString::fromStdString(text);
}

/// What the standard camera lacks for a session with an edit of each kind: a line edit with a
/// decimal number, one with a text, and a float with an increment.
std::unique_ptr<Fake::FakeCamera> sessionCamera()
{
    auto camera = Fake::FakeCamera::standard();
    for (const char* name :
         {"TriggerDelay", "LineDebounceDuration", "CounterDuration", "CounterValue",
          "TimerDuration", "TimerDelay", "AcquisitionFrameCount", "ActionGroupKey",
          "ActionGroupMask", "ActionDeviceKey", "ActionQueueSize"})
        widen((*camera)[name]);
    for (const char* timer : {"Timer0", "Timer1"})
        (*camera)["TimerDuration"].stateFor(timer).incrementReal = FaultyCamera::TimerIncrement;
    (*camera)["TriggerSource"].stateFor("LineStart").text = "Line0";
    (*camera)["ActionQueueSize"].state().writable = true;
    Fake::FakeFeature& accuracy = (*camera)["PtpClockAccuracy"];
    accuracy.type = ZalFeatureString;
    accuracy.state().writable = true;
    accuracy.state().text = "Within 1 us";
    for (const char* line : {"Line0", "Line1", "Line2", "Line3"})
        (*camera)["LineDebounceDuration"].stateFor(line).real = 8.0;
    (*camera)["DeviceFamilyName"].state().text = "Fault Sweep";
    camera->setLogging(false);
    return camera;
}

} // namespace

bool hasFailed(const Failures& failures, const QString& feature, const QStringList& operations)
{
    return std::any_of(failures.begin(), failures.end(), [&](const FailedCall& failed) {
        return failed.feature == feature && operations.contains(failed.operation);
    });
}

FaultyCamera::FaultyCamera() : m_camera(sessionCamera())
{
    m_camera->onCall = [this](const std::string& operation, const std::string& feature) {
        return onCall(operation, feature);
    };
    m_camera->onAccepted = [this](const Fake::Accepted& write) { onAccepted(write); };
    reportChanges();
}

ZalErrorType FaultyCamera::onCall(const std::string& operation, const std::string& feature)
{
    if (m_aside)
        return ZalErrorSuccess;
    if (operation == "GetName") {
        countName(feature);
        if (onCount)
            onCount(Series::Names, m_names);
        return judge(operation, feature,
                     m_fault.series == Series::Names && m_names == m_fault.call);
    }
    endWalk();
    ++m_calls;
    if (onCount)
        onCount(Series::Calls, m_calls);
    m_list.append(QStringLiteral("%1: %2 %3").arg(m_step, qt(operation), qt(feature)));
    return judge(operation, feature, m_fault.series == Series::Calls && m_calls == m_fault.call);
}

ZalErrorType FaultyCamera::judge(const std::string& operation, const std::string& feature,
                                 bool isTarget)
{
    if (isTarget) {
        m_struck = true;
        m_failing = m_fault.mode == Mode::Lasting;
    }
    if (!isTarget && !m_failing)
        return ZalErrorSuccess;
    const QString name = qt(feature);
    m_failures.push_back({qt(operation), name, entryOf(selectorOf(name)), m_fault.status});
    return m_fault.status;
}

/// A walk through the features starts at the first one, and each name is read in two calls.
void FaultyCamera::countName(const std::string& feature)
{
    static const std::string first = "DeviceVendorName";
    if (feature == first && (m_lastName != first || m_lastReads.size() == 2))
        endWalk();
    if (feature != m_lastName)
        m_lastReads.clear();
    m_lastName = feature;
    m_lastReads.append(++m_names);
}

void FaultyCamera::endWalk()
{
    m_decisive += m_lastReads;
    m_lastReads.clear();
    m_lastName.clear();
}

void FaultyCamera::beginStep(const QString& name)
{
    m_step = name;
    for (const char* timer : {"Timer0", "Timer1"})
        m_before[QString("TimerDuration") + timer] =
            QString::number((*m_camera)["TimerDuration"].stateFor(timer).real);
    m_before["ActionQueueSize"] = QString::number((*m_camera)["ActionQueueSize"].state().integer);
}

void FaultyCamera::onAccepted(const Fake::Accepted& write)
{
    if (m_aside)
        return;
    const QString entry = qt(write.entry);
    const QString feature = qt(write.feature);
    m_writes.push_back(
        {feature, qt(write.value), entry, m_before.value(feature + entry), selectorOf(feature)});
}

QString FaultyCamera::entryOf(const QString& selector) const
{
    const auto feature = m_camera->find(selector.toStdString());
    if (!feature)
        return QString();
    const Fake::State& state = feature->state();
    return feature->type == ZalFeatureInteger ? QString::number(state.integer) : qt(state.text);
}

QString FaultyCamera::selectorOf(const QString& feature) const
{
    const auto found = m_camera->find(feature.toStdString());
    return found && found->selector ? qt(found->selector->name) : QString();
}

QByteArray FaultyCamera::digest() const
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const ZalCPP::FeaturePtr& listed : *m_camera->features()) {
        for (const Fake::State* state : statesOf(static_cast<Fake::FakeFeature&>(*listed))) {
            const std::string text = digestOf(*state) + '\n';
            hash.addData(text.data(), static_cast<int>(text.size()));
        }
    }
    return hash.result().toHex();
}

void FaultyCamera::reportChanges()
{
    std::vector<std::shared_ptr<Fake::FakeFeature>> changed;
    for (const ZalCPP::FeaturePtr& listed : *m_camera->features()) {
        const auto feature = std::static_pointer_cast<Fake::FakeFeature>(listed);
        std::string digest = digestOf(feature->state());
        std::string& known = m_reported[feature.get()];
        if (digest != known && feature->observerCount() > 0)
            changed.push_back(feature);
        known = std::move(digest);
    }
    if (changed.empty())
        return;
    std::thread notifier([&] {
        for (const auto& feature : changed) {
            for (const auto& observer : feature->observers())
                observer->FeatureChanged(feature);
        }
    });
    notifier.join();
}

} // namespace Faults
