// The camera that the plugin accepts: every feature that the forms name, with plausible values.
#include "tests/support/FakeCamera.h"

#include <cctype>

namespace Fake {
namespace {

using Names = std::vector<std::string>;

constexpr long long MaxUnsigned32 = 0xFFFFFFFFLL;
constexpr long long MaxSigned64 = 0x7FFFFFFFFFFFFFFFLL;

const Names Lines = {"Line0", "Line1", "Line2", "Line3"};
const Names Activations = {"RisingEdge", "FallingEdge", "AnyEdge", "LevelHigh", "LevelLow"};
const Names SignalSources = {"Off",          "Line0",          "Line1",       "ExposureActive",
                             "Timer0Active", "Timer1Active",   "Counter0End", "Counter1End",
                             "Action0",      "SoftwareSignal0"};

/// "TriggerDelay" becomes "Trigger Delay".
std::string spaced(const std::string& name)
{
    std::string result;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto isUpper = [&](std::size_t at) {
            return std::isupper(static_cast<unsigned char>(name[at])) != 0;
        };
        if (i > 0 && isUpper(i) && !isUpper(i - 1))
            result += ' ';
        result += name[i];
    }
    return result;
}

/// Adds the features of one category and describes them.
class Section
{
public:
    Section(FakeCamera& targetCamera, std::string categoryName)
        : m_camera(targetCamera), m_category(std::move(categoryName))
    {
    }

    FakeFeaturePtr describe(const FakeFeaturePtr& feature) const
    {
        feature->category = m_category;
        feature->displayName = spaced(feature->name);
        feature->toolTip = feature->displayName + " of the camera";
        feature->description = "Controls " + feature->name + ". Belongs to " + m_category + ".";
        return feature;
    }

    FakeFeaturePtr enumeration(const std::string& name, const Names& entries) const
    {
        return describe(m_camera.addEnum(name, entries, entries.front()));
    }

    FakeFeaturePtr integer(const std::string& name, long long value, long long max) const
    {
        return describe(m_camera.addInteger(name, value, 0, max));
    }

    FakeFeaturePtr hexNumber(const std::string& name, long long value, long long max) const
    {
        FakeFeaturePtr feature = integer(name, value, max);
        feature->representation = "HexNumber";
        return feature;
    }

    FakeFeaturePtr microseconds(const std::string& name, double value) const
    {
        FakeFeaturePtr feature = describe(m_camera.addFloat(name, value));
        feature->unit = "us";
        return feature;
    }

    FakeFeaturePtr text(const std::string& name, const std::string& value) const
    {
        return readOnly(describe(m_camera.addString(name, value)));
    }

    FakeFeaturePtr boolean(const std::string& name) const
    {
        return describe(m_camera.addBool(name, false));
    }

    FakeFeaturePtr command(const std::string& name) const
    {
        return describe(m_camera.addCommand(name));
    }

    static FakeFeaturePtr readOnly(const FakeFeaturePtr& feature)
    {
        feature->flags = ZalFeatureFlagsRead;
        feature->state().writable = false;
        return feature;
    }

private:
    FakeCamera& m_camera;
    std::string m_category;
};

void addDevice(FakeCamera& camera)
{
    const Section section(camera, "DeviceControl");
    section.text("DeviceVendorName", "Tarsel Imaging GmbH");
    section.text("DeviceModelName", "TX-2000");
    section.text("DeviceSerialNumber", "SN004711");
    section.text("DeviceFamilyName", "Tarsel X");
    section.command("TimestampLatch");
    Section::readOnly(section.integer("TimestampLatchValue", 0, MaxSigned64));
}

void addAcquisition(FakeCamera& camera)
{
    const Section section(camera, "AcquisitionControl");
    section.enumeration("AcquisitionMode", {"Continuous", "SingleFrame", "MultiFrame"});
    section.describe(camera.addInteger("AcquisitionFrameCount", 1, 1, 65535));
    section.enumeration("ExposureMode", {"Timed", "TriggerWidth"});
}

void addTrigger(FakeCamera& camera)
{
    const Section section(camera, "AcquisitionControl/TriggerControl");
    section.enumeration("TriggerSelector", {"AcquisitionStart", "FrameStart", "LineStart"});
    section.enumeration("TriggerMode", {"Off", "On"});
    Names sources = SignalSources;
    sources.front() = "Software";
    section.enumeration("TriggerSource", sources);
    section.enumeration("TriggerActivation", Activations);
    section.microseconds("TriggerDelay", 0.0);
    section.command("TriggerSoftware");
    camera.select("TriggerSelector", {"TriggerMode", "TriggerSource", "TriggerActivation",
                                      "TriggerDelay", "TriggerSoftware"});
    camera["TriggerSelector"].state().text = "FrameStart";
}

void addLines(FakeCamera& camera)
{
    const Section section(camera, "DigitalIOControl");
    section.enumeration("LineSelector", Lines);
    section.enumeration("LineMode", {"Input", "Output"});
    section.boolean("LineInverter");
    section.enumeration("LineSource", SignalSources);
    Section::readOnly(section.boolean("LineStatus"));
    section.enumeration("LineDebounceMode", {"Off", "Debounce", "Deglitch"});
    section.microseconds("LineDebounceDuration", 0.0);
    camera.select("LineSelector", {"LineMode", "LineInverter", "LineSource", "LineStatus",
                                   "LineDebounceMode", "LineDebounceDuration"});
    for (const char* output : {"Line2", "Line3"})
        camera["LineMode"].stateFor(output).text = "Output";
}

void addActions(FakeCamera& camera)
{
    const Section section(camera, "ActionControl");
    section.integer("ActionSelector", 0, 3);
    const auto deviceKey = section.hexNumber("ActionDeviceKey", 0, MaxUnsigned32);
    deviceKey->flags = ZalFeatureFlagsWrite;
    deviceKey->state().readable = false;
    section.hexNumber("ActionGroupKey", 0x11223344, MaxUnsigned32);
    section.hexNumber("ActionGroupMask", MaxUnsigned32, MaxUnsigned32);
    Section::readOnly(section.integer("ActionQueueSize", 8, 8));
    camera.select("ActionSelector", {"ActionGroupKey", "ActionGroupMask"});
}

void addPtp(FakeCamera& camera)
{
    const Section section(camera, "TransportLayerControl/PtpControl");
    section.boolean("PtpEnable");
    section.enumeration("PtpOperationMode", {"Auto", "SlaveOnly"});
    section.command("PtpDataSetLatch");
    Section::readOnly(section.enumeration(
        "PtpStatus", {"Disabled", "Initializing", "Listening", "Master", "Slave", "Faulty"}));
    Section::readOnly(section.enumeration("PtpServoStatus", {"Unknown", "Locked"}));
    Section::readOnly(section.enumeration("PtpClockAccuracy", {"Unknown", "Within1us"}));
    for (const char* name : {"PtpClockID", "PtpParentClockID", "PtpGrandmasterClockID"})
        Section::readOnly(section.hexNumber(name, 0x0011223344556677, MaxSigned64));
    const auto offset = Section::readOnly(section.integer("PtpOffsetFromMaster", -42, MaxSigned64));
    offset->state().minInteger = -MaxSigned64;
    offset->unit = "ns";
}

void addSoftwareSignals(FakeCamera& camera)
{
    const Section section(camera, "SoftwareSignalControl");
    section.enumeration("SoftwareSignalSelector", {"SoftwareSignal0", "SoftwareSignal1"});
    section.command("SoftwareSignalPulse");
    camera.select("SoftwareSignalSelector", {"SoftwareSignalPulse"});
}

void addCounters(FakeCamera& camera)
{
    const Section section(camera, "CounterAndTimerControl");
    section.enumeration("CounterSelector", {"Counter0", "Counter1"});
    section.enumeration("CounterEventSource", SignalSources);
    section.enumeration("CounterEventActivation", Activations);
    section.integer("CounterDuration", 1, 65535);
    section.integer("CounterValue", 0, 65535);
    section.enumeration("CounterTriggerSource", SignalSources);
    section.enumeration("CounterTriggerActivation", Activations);
    section.enumeration("CounterResetSource", SignalSources);
    section.enumeration("CounterResetActivation", Activations);
    Section::readOnly(
        section.enumeration("CounterStatus", {"CounterIdle", "CounterTriggerWait", "CounterActive",
                                              "CounterCompleted", "CounterOverflow"}));
    Section::readOnly(section.integer("CounterValueAtReset", 0, 65535));
    section.command("CounterReset");
    camera.select("CounterSelector",
                  {"CounterEventSource", "CounterEventActivation", "CounterDuration",
                   "CounterValue", "CounterTriggerSource", "CounterTriggerActivation",
                   "CounterResetSource", "CounterResetActivation", "CounterStatus",
                   "CounterValueAtReset", "CounterReset"});
}

void addTimers(FakeCamera& camera)
{
    const Section section(camera, "CounterAndTimerControl");
    section.enumeration("TimerSelector", {"Timer0", "Timer1"});
    section.microseconds("TimerDuration", 1000.0);
    section.microseconds("TimerDelay", 0.0);
    section.enumeration("TimerTriggerSource", SignalSources);
    section.enumeration("TimerTriggerActivation", Activations);
    Section::readOnly(section.enumeration(
        "TimerStatus", {"TimerIdle", "TimerTriggerWait", "TimerActive", "TimerCompleted"}));
    section.command("TimerReset");
    camera.select("TimerSelector", {"TimerDuration", "TimerDelay", "TimerTriggerSource",
                                    "TimerTriggerActivation", "TimerStatus", "TimerReset"});
}

} // namespace

std::unique_ptr<FakeCamera> FakeCamera::standard()
{
    auto camera = std::make_unique<FakeCamera>();
    addDevice(*camera);
    addAcquisition(*camera);
    addTrigger(*camera);
    addLines(*camera);
    addActions(*camera);
    addPtp(*camera);
    addSoftwareSignals(*camera);
    addCounters(*camera);
    addTimers(*camera);
    return camera;
}

} // namespace Fake
