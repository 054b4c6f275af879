#include "tests/support/FakeCamera.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace Fake {
namespace {

std::vector<std::string> entriesOf(const FakeFeature& selector)
{
    const State& state = selector.state();
    std::vector<std::string> result;
    for (const Entry& entry : state.entries)
        result.push_back(entry.name);
    if (selector.type == ZalFeatureInteger) {
        for (long long index = state.minInteger; index <= state.maxInteger; ++index)
            result.push_back(std::to_string(index));
    }
    return result;
}

} // namespace

FakeCamera::FakeCamera() : m_list(std::make_shared<std::vector<ZalCPP::FeaturePtr>>()) {}

FakeCamera::~FakeCamera() = default;

FakeFeaturePtr FakeCamera::add(const std::string& name, ZalFeatureDataType type)
{
    auto feature = std::make_shared<FakeFeature>(*this, name, type);
    feature->displayName = name;
    m_fakes.push_back(feature);
    m_list->push_back(feature);
    return feature;
}

FakeFeaturePtr FakeCamera::addInteger(const std::string& name, long long value, long long min,
                                      long long max, long long increment)
{
    auto feature = add(name, ZalFeatureInteger);
    State& state = feature->state();
    state.integer = value;
    state.minInteger = min;
    state.maxInteger = max;
    state.incrementInteger = increment;
    return feature;
}

FakeFeaturePtr FakeCamera::addFloat(const std::string& name, double value, double min, double max)
{
    auto feature = add(name, ZalFeatureFloat);
    State& state = feature->state();
    state.real = value;
    state.minReal = min;
    state.maxReal = max;
    return feature;
}

FakeFeaturePtr FakeCamera::addBool(const std::string& name, bool value)
{
    auto feature = add(name, ZalFeatureBool);
    feature->state().boolean = value;
    return feature;
}

FakeFeaturePtr FakeCamera::addString(const std::string& name, const std::string& value)
{
    auto feature = add(name, ZalFeatureString);
    feature->state().text = value;
    return feature;
}

FakeFeaturePtr FakeCamera::addEnum(const std::string& name, const std::vector<std::string>& entries,
                                   const std::string& value)
{
    auto feature = add(name, ZalFeatureEnum);
    State& state = feature->state();
    for (const std::string& entry : entries)
        state.entries.push_back({entry, static_cast<long long>(state.entries.size()), true});
    state.text = value;
    return feature;
}

FakeFeaturePtr FakeCamera::addCommand(const std::string& name)
{
    auto feature = add(name, ZalFeatureCommand);
    feature->flags = ZalFeatureFlagsWrite;
    return feature;
}

FakeFeaturePtr FakeCamera::addRaw(const std::string& name, const std::vector<unsigned char>& value)
{
    auto feature = add(name, ZalFeatureRaw);
    feature->state().raw = value;
    return feature;
}

void FakeCamera::remove(const std::string& name)
{
    const FakeFeaturePtr gone = find(name);
    if (!gone)
        return;
    for (const FakeFeaturePtr& feature : m_fakes) {
        if (feature->selector == gone.get())
            feature->selector = nullptr;
        auto& selected = feature->selectedFeatures;
        selected.erase(std::remove(selected.begin(), selected.end(), gone), selected.end());
    }
    m_fakes.erase(std::find(m_fakes.begin(), m_fakes.end(), gone));
    m_list->erase(std::find(m_list->begin(), m_list->end(), gone));
}

void FakeCamera::select(const std::string& selector, const std::vector<std::string>& selected)
{
    FakeFeature& governing = (*this)[selector];
    for (const std::string& name : selected) {
        const FakeFeaturePtr feature = (*this)[name].shared_from_this();
        for (const std::string& entry : entriesOf(governing))
            feature->stateFor(entry);
        feature->selector = &governing;
        governing.selectedFeatures.push_back(feature);
    }
}

FakeFeaturePtr FakeCamera::find(const std::string& name) const
{
    const auto it = std::find_if(m_fakes.begin(), m_fakes.end(),
                                 [&](const FakeFeaturePtr& fake) { return fake->name == name; });
    return it == m_fakes.end() ? nullptr : *it;
}

FakeFeature& FakeCamera::operator[](const std::string& name) const
{
    const FakeFeaturePtr feature = find(name);
    if (!feature) {
        std::fprintf(stderr, "The fake camera has no feature '%s'\n", name.c_str());
        std::abort();
    }
    return *feature;
}

ZalCPP::FeatureList FakeCamera::features() const
{
    return m_list;
}

void FakeCamera::failCall(const std::string& operation, const std::string& feature,
                          ZalErrorType status)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failing[{operation, feature}] = status;
}

void FakeCamera::failNthCall(int n, ZalErrorType status)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failCountdown = n;
    m_failCountdownStatus = status;
    m_failAfterCountdown = false;
}

void FakeCamera::failFromNthCall(int n, ZalErrorType status)
{
    failNthCall(n, status);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failAfterCountdown = true;
}

void FakeCamera::failEverything(ZalErrorType status)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failAll = status;
}

void FakeCamera::clearFailures()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failing.clear();
    m_failCountdown = 0;
    m_failAll = ZalErrorSuccess;
}

ZalErrorType FakeCamera::enter(const std::string& operation, const std::string& feature,
                               const std::string& value, bool write)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_logging) {
        const bool assigns = write && operation != "RunCommand";
        m_log.push_back({operation + " " + feature + (assigns ? "=" + value : ""), write});
    }
    if (onCall) {
        if (const ZalErrorType status = onCall(operation, feature))
            return status;
    }
    if (m_failAll)
        return m_failAll;
    if (m_failCountdown > 0 && --m_failCountdown == 0) {
        if (m_failAfterCountdown)
            m_failAll = m_failCountdownStatus;
        return m_failCountdownStatus;
    }
    if (m_failing.empty())
        return ZalErrorSuccess;
    const auto it = m_failing.find({operation, feature});
    return it == m_failing.end() ? ZalErrorSuccess : it->second;
}

std::vector<std::string> FakeCamera::calls() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> result;
    for (const Call& call : m_log)
        result.push_back(call.text);
    return result;
}

std::vector<std::string> FakeCamera::writes() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> result;
    for (const Call& call : m_log) {
        if (call.write)
            result.push_back(call.text);
    }
    return result;
}

int FakeCamera::callCount(const std::string& operation, const std::string& feature) const
{
    const std::string exact = operation + " " + feature;
    const std::string assigned = exact + "=";
    const auto matches = [&](const Call& call) {
        return call.text == exact || (call.write && call.text.rfind(assigned, 0) == 0);
    };
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(std::count_if(m_log.begin(), m_log.end(), matches));
}

void FakeCamera::clearLog()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_log.clear();
}

void FakeCamera::setLogging(bool on)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_logging = on;
}

void FakeCamera::notify(const std::string& feature)
{
    const auto changed = (*this)[feature].shared_from_this();
    std::thread notifier([&] {
        for (const auto& observer : changed->observers())
            observer->FeatureChanged(changed);
    });
    notifier.join();
}

} // namespace Fake
