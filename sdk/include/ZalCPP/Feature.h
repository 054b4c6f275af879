#pragma once

#include <ZalCPP/EnumEntry.h>
#include <ZalCPP/IFeatureObserver.h>
#include <ZalCPP/ZalTypes.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace ZalCPP {

class Feature;
using FeaturePtr = std::shared_ptr<Feature>;

/// A camera's complete feature list. A null list counts as an empty one.
using FeatureList = std::shared_ptr<std::vector<FeaturePtr>>;

/// One GenICam feature of an open camera.
///
/// Every operation returns a status and fills its output only on success. Operations may be called
/// from any thread and block until the camera answered, 600 ms at most.
///
/// Data of variable length has the array form `(T* buffer, std::uint32_t& count)`: with a null
/// buffer, `count` becomes the number of elements needed (for texts including the terminator);
/// with a buffer, `count` says how many elements fit and afterwards how many were filled.
class Feature
{
public:
    virtual ~Feature() = default;

    // What the feature is. These facts never change while the camera is open and cost no traffic.
    virtual ZalErrorType GetName(char* buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType GetDisplayName(char* buffer, std::uint32_t& count) const = 0;
    /// Path of categories below Root, separated by '/'.
    virtual ZalErrorType GetCategory(char* buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType GetUnit(char* buffer, std::uint32_t& count) const = 0;
    /// "Linear", "Logarithmic", "PureNumber", "HexNumber" ...; empty where the camera says nothing.
    virtual ZalErrorType GetRepresentation(char* buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType GetToolTip(char* buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType GetDescription(char* buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType GetDataType(ZalFeatureDataType& type) const = 0;
    virtual ZalErrorType GetFlags(ZalFeatureFlagsType& flags) const = 0;
    virtual ZalErrorType GetVisibility(ZalFeatureVisibilityType& visibility) const = 0;
    /// The features that this selector governs; none for a feature that is no selector.
    virtual ZalErrorType GetSelectedFeatures(FeaturePtr* buffer, std::uint32_t& count) const = 0;

    // What can be done with it at this moment (access mode, availability and lock combined).
    virtual ZalErrorType IsReadable(bool& readable) const = 0;
    virtual ZalErrorType IsWritable(bool& writable) const = 0;

    // Values. Each is for features of its own data type only.
    virtual ZalErrorType GetIntegerValue(long long& value) const = 0;
    virtual ZalErrorType GetFloatValue(double& value) const = 0;
    virtual ZalErrorType GetBoolValue(bool& value) const = 0;
    /// The text of a string feature, or the name of an enumeration's current entry.
    virtual ZalErrorType GetStringValue(char* buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType GetRawValue(unsigned char* buffer, std::uint32_t& count) const = 0;

    virtual ZalErrorType SetIntegerValue(long long value) = 0;
    virtual ZalErrorType SetFloatValue(double value) = 0;
    virtual ZalErrorType SetBoolValue(bool value) = 0;
    /// Sets a string feature, or an enumeration by entry name.
    virtual ZalErrorType SetStringValue(const char* value) = 0;
    virtual ZalErrorType SetRawValue(const unsigned char* data, std::uint32_t count) = 0;

    // Limits. A set of valid values is empty where the SDK knows of none.
    virtual ZalErrorType GetIntegerRange(long long& min, long long& max) const = 0;
    virtual ZalErrorType GetFloatRange(double& min, double& max) const = 0;
    virtual ZalErrorType HasIncrement(bool& hasIncrement) const = 0;
    virtual ZalErrorType GetIntegerIncrement(long long& increment) const = 0;
    virtual ZalErrorType GetFloatIncrement(double& increment) const = 0;
    virtual ZalErrorType GetValidValueSet(long long* buffer, std::uint32_t& count) const = 0;

    // Enumeration entries, in the description's order, whether available or not.
    virtual ZalErrorType GetEnumValues(long long* buffer, std::uint32_t& count) const = 0;
    /// The names stay valid as long as the feature does.
    virtual ZalErrorType GetEnumNames(const char** buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType GetEntry(EnumEntry& entry, const char* name) const = 0;
    virtual ZalErrorType GetEntries(EnumEntry* buffer, std::uint32_t& count) const = 0;
    virtual ZalErrorType IsValueAvailable(const char* name, bool& available) const = 0;
    virtual ZalErrorType IsValueAvailable(long long value, bool& available) const = 0;

    // Commands. Running one does not wait for it to complete.
    virtual ZalErrorType RunCommand() = 0;
    virtual ZalErrorType IsCommandDone(bool& done) const = 0;

    /// Shares ownership of the observer until it is unregistered. Registering it a second time
    /// succeeds and changes nothing.
    virtual ZalErrorType RegisterObserver(const std::shared_ptr<IFeatureObserver>& observer) = 0;
    /// Lets go of the observer in any case. A call of it that has begun on the notification thread
    /// may still be running afterwards; no further one begins.
    virtual ZalErrorType UnregisterObserver(const std::shared_ptr<IFeatureObserver>& observer) = 0;
};

} // namespace ZalCPP
