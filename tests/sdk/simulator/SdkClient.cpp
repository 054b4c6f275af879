#include "tests/sdk/simulator/SdkClient.h"

#include <ZalCPP/CameraSystem.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace {

constexpr std::chrono::seconds FrameTimeout(5);
// Longer than the slowest way from a trigger to its frame in these tests.
constexpr std::chrono::milliseconds OneMoreFrame(300);

void check(const char* feature, ZalErrorType status)
{
    if (status != ZalErrorSuccess)
        throw std::runtime_error(std::string(feature) + ": " + ZalCPP::ErrorText(status));
}

using TextCall = ZalErrorType (ZalCPP::Feature::*)(char*, std::uint32_t&) const;

std::string readText(const char* name, const ZalCPP::Feature& feature, TextCall call)
{
    // Room for every text: one that changes by itself may grow between asking for its size and it.
    std::array<char, 256> text{};
    std::uint32_t size = text.size();
    check(name, (feature.*call)(text.data(), size));
    return text.data();
}

} // namespace

SdkClient::SdkClient()
{
    std::string error;
    m_camera = ZalCPP::CameraSystem::Open("127.0.0.1", error);
    if (!m_camera)
        throw std::runtime_error(error);
}

SdkClient::~SdkClient() = default;

ZalCPP::FeaturePtr SdkClient::find(const char* feature) const
{
    auto found = m_camera->FindFeature(feature);
    if (!found)
        throw std::runtime_error(std::string(feature) + " does not exist");
    return found;
}

ZalFeatureDataType SdkClient::type(const char* feature) const
{
    ZalFeatureDataType type = ZalFeatureUnknown;
    check(feature, find(feature)->GetDataType(type));
    return type;
}

bool SdkClient::isReadable(const char* feature) const
{
    bool readable = false;
    check(feature, find(feature)->IsReadable(readable));
    return readable;
}

bool SdkClient::isWritable(const char* feature) const
{
    bool writable = false;
    check(feature, find(feature)->IsWritable(writable));
    return writable;
}

std::string SdkClient::unit(const char* feature) const
{
    return readText(feature, *find(feature), &ZalCPP::Feature::GetUnit);
}

std::pair<double, double> SdkClient::range(const char* feature) const
{
    std::pair<double, double> range;
    if (type(feature) == ZalFeatureFloat) {
        check(feature, find(feature)->GetFloatRange(range.first, range.second));
        return range;
    }
    long long min = 0;
    long long max = 0;
    check(feature, find(feature)->GetIntegerRange(min, max));
    return {double(min), double(max)};
}

QStringList SdkClient::entries(const char* feature) const
{
    std::uint32_t count = 0;
    check(feature, find(feature)->GetEnumNames(nullptr, count));
    std::vector<const char*> names(count);
    check(feature, find(feature)->GetEnumNames(names.data(), count));
    QStringList entries;
    for (const char* name : names)
        entries << name;
    return entries;
}

QStringList SdkClient::availableEntries(const char* feature) const
{
    QStringList names;
    for (const QString& name : entries(feature)) {
        bool available = false;
        check(feature, find(feature)->IsValueAvailable(qPrintable(name), available));
        if (available)
            names << name;
    }
    return names;
}

std::string SdkClient::text(const char* feature) const
{
    return readText(feature, *find(feature), &ZalCPP::Feature::GetStringValue);
}

double SdkClient::number(const char* feature) const
{
    double number = 0;
    bool truth = false;
    long long integer = 0;
    switch (type(feature)) {
    case ZalFeatureFloat:
        check(feature, find(feature)->GetFloatValue(number));
        return number;
    case ZalFeatureBool:
        check(feature, find(feature)->GetBoolValue(truth));
        return truth ? 1 : 0;
    default:
        check(feature, find(feature)->GetIntegerValue(integer));
        return double(integer);
    }
}

void SdkClient::set(const char* feature, const char* text) const
{
    check(feature, find(feature)->SetStringValue(text));
}

void SdkClient::set(const char* feature, double value) const
{
    switch (type(feature)) {
    case ZalFeatureFloat:
        return check(feature, find(feature)->SetFloatValue(value));
    case ZalFeatureBool:
        return check(feature, find(feature)->SetBoolValue(value != 0.0));
    default:
        return check(feature, find(feature)->SetIntegerValue(static_cast<long long>(value)));
    }
}

void SdkClient::execute(const char* command) const
{
    check(command, find(command)->RunCommand());
}

void SdkClient::startAcquisition()
{
    m_frames = 0;
    check("acquisition", m_camera->StartAcquisition([this](const ZalCPP::Frame&) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++m_frames;
        m_arrived.notify_all();
    }));
}

void SdkClient::stopAcquisition()
{
    check("acquisition", m_camera->StopAcquisition());
}

int SdkClient::frames() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_frames;
}

bool SdkClient::getsExactly(int count) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_arrived.wait_for(lock, FrameTimeout, [&] { return m_frames >= count; }))
        return false;
    return !m_arrived.wait_for(lock, OneMoreFrame, [&] { return m_frames > count; });
}
