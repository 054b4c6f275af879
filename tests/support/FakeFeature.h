#pragma once

#include <ZalCPP/Feature.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace Fake {

class FakeCamera;

/// One entry of a fake enumeration.
struct Entry
{
    std::string name;
    long long value = 0;
    bool available = true;
};

/// What a fake feature answers. A feature under a selector has one state per selector entry.
struct State
{
    long long integer = 0;
    double real = 0.0;
    bool boolean = false;
    std::string text;
    std::vector<unsigned char> raw;

    bool hasRange = true; ///< false: the range cannot be read.
    long long minInteger = 0;
    long long maxInteger = 1000;
    double minReal = 0.0;
    double maxReal = 1000000.0;
    std::optional<long long> incrementInteger = 1; ///< empty: reading it fails.
    std::optional<double> incrementReal;           ///< empty: reading it fails.

    bool readable = true;
    bool writable = true;
    bool implemented = true; ///< false: even the name cannot be read while this state is selected.
    std::vector<Entry> entries;
};

/// A camera feature that does what a test tells it to. Make it with FakeCamera's add functions and
/// set the public fields before handing the camera to the code under test.
///
/// Each call checks, in this order: the camera's scripted failures, the data type, the current
/// state's implemented flag (ZalErrorNotAvailable), then access (ZalErrorNotReadable or
/// ZalErrorNotWritable) or the presence of range and increment (ZalErrorNotAvailable). A number
/// outside range or increment is refused with ZalErrorOutOfRange, an unknown or unavailable entry
/// with ZalErrorBadParameter. A refused write changes nothing.
class FakeFeature : public ZalCPP::Feature, public std::enable_shared_from_this<FakeFeature>
{
public:
    FakeFeature(FakeCamera& camera, std::string featureName, ZalFeatureDataType dataType);

    // Static facts; a missing one reads as empty.
    std::string name;
    std::string displayName;
    std::string category;
    std::string unit;
    std::string representation;
    std::string toolTip;
    std::string description;
    ZalFeatureDataType type;
    ZalFeatureFlagsType flags = ZalFeatureFlagsRead | ZalFeatureFlagsWrite;
    ZalFeatureVisibilityType visibility = ZalFeatureVisibilityBeginner;
    std::vector<long long> validValues;
    bool commandDone = true; ///< What IsCommandDone answers.

    /// The selector that governs this feature, or null. Set with FakeCamera::select.
    FakeFeature* selector = nullptr;
    std::vector<std::shared_ptr<FakeFeature>> selectedFeatures;

    /// Called after each successful write, with the camera unlocked: adjust values, or change
    /// others.
    std::function<void(FakeFeature&)> onWrite;
    /// Called when a command runs.
    std::function<void()> onRun;

    /// The state that is selected now. Changes made through it are not logged and not notified.
    State& state();
    const State& state() const;
    /// The state while the selector holds `entry`; made as a copy of the unselected one.
    State& stateFor(const std::string& entry);

    /// Observers registered at this moment.
    std::size_t observerCount() const;
    std::vector<std::shared_ptr<ZalCPP::IFeatureObserver>> observers() const;

    // ZalCPP::Feature
    ZalErrorType GetName(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDisplayName(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetCategory(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetUnit(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetRepresentation(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetToolTip(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDescription(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetDataType(ZalFeatureDataType& dataType) const override;
    ZalErrorType GetFlags(ZalFeatureFlagsType& accessFlags) const override;
    ZalErrorType GetVisibility(ZalFeatureVisibilityType& level) const override;
    ZalErrorType GetSelectedFeatures(ZalCPP::FeaturePtr* buffer,
                                     std::uint32_t& count) const override;
    ZalErrorType IsReadable(bool& readable) const override;
    ZalErrorType IsWritable(bool& writable) const override;
    ZalErrorType GetIntegerValue(long long& value) const override;
    ZalErrorType GetFloatValue(double& value) const override;
    ZalErrorType GetBoolValue(bool& value) const override;
    ZalErrorType GetStringValue(char* buffer, std::uint32_t& count) const override;
    ZalErrorType GetRawValue(unsigned char* buffer, std::uint32_t& count) const override;
    ZalErrorType SetIntegerValue(long long value) override;
    ZalErrorType SetFloatValue(double value) override;
    ZalErrorType SetBoolValue(bool value) override;
    ZalErrorType SetStringValue(const char* value) override;
    ZalErrorType SetRawValue(const unsigned char* data, std::uint32_t count) override;
    ZalErrorType GetIntegerRange(long long& min, long long& max) const override;
    ZalErrorType GetFloatRange(double& min, double& max) const override;
    ZalErrorType HasIncrement(bool& hasIncrement) const override;
    ZalErrorType GetIntegerIncrement(long long& increment) const override;
    ZalErrorType GetFloatIncrement(double& increment) const override;
    ZalErrorType GetValidValueSet(long long* buffer, std::uint32_t& count) const override;
    ZalErrorType GetEnumValues(long long* buffer, std::uint32_t& count) const override;
    ZalErrorType GetEnumNames(const char** buffer, std::uint32_t& count) const override;
    ZalErrorType GetEntry(ZalCPP::EnumEntry& entry, const char* entryName) const override;
    ZalErrorType GetEntries(ZalCPP::EnumEntry* buffer, std::uint32_t& count) const override;
    ZalErrorType IsValueAvailable(const char* entryName, bool& available) const override;
    ZalErrorType IsValueAvailable(long long value, bool& available) const override;
    ZalErrorType RunCommand() override;
    ZalErrorType IsCommandDone(bool& done) const override;
    ZalErrorType
    RegisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer) override;
    ZalErrorType
    UnregisterObserver(const std::shared_ptr<ZalCPP::IFeatureObserver>& observer) override;

private:
    ZalErrorType checkRead(const char* operation, ZalFeatureDataType wanted) const;
    ZalErrorType checkRange(const char* operation, ZalFeatureDataType wanted) const;
    ZalErrorType checkEnum(const char* operation) const;
    /// Logs the write and says whether the feature takes a value of that type now.
    ZalErrorType checkWrite(const char* operation, const std::string& value,
                            ZalFeatureDataType wanted);
    ZalErrorType giveFact(const char* operation, const std::string& fact, char* buffer,
                          std::uint32_t& count) const;
    ZalErrorType acceptEntry(const std::string& entryName);
    /// Tells the camera's listener what was just written.
    void reportAccepted() const;
    /// Calls onWrite, as the last step of each successful write.
    ZalErrorType written();
    std::string selectedEntry() const;

    FakeCamera& m_camera;
    State m_base;
    std::map<std::string, State> m_perEntry;
    std::string m_offered; ///< The value of the write that was checked last.
    std::vector<std::shared_ptr<ZalCPP::IFeatureObserver>> m_registered;
};

} // namespace Fake
