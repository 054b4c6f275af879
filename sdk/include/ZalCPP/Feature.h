#pragma once

#include <ZalCPP/EnumEntry.h>
#include <ZalCPP/IFeatureObserver.h>
#include <ZalCPP/ZalTypes.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace ZalCPP {

class Feature;

/// A feature, shared. It may outlive its camera: what it is and its entries can still be asked
/// then, and whatever needs the camera fails with ZalErrorNotOpen.
using FeaturePtr = std::shared_ptr<Feature>;

/// A camera's complete feature list. A null list counts as an empty one.
using FeatureList = std::shared_ptr<std::vector<FeaturePtr>>;

/// One GenICam feature of an open camera.
///
/// Every operation returns a status and fills its output only on success. Operations may be called
/// from any thread. Those that ask the camera block until it answered, 600 ms at most.
///
/// Each operation names the failures that are its own. Besides, these occur:
/// - ZalErrorWrongType from an operation that is for another data type.
/// - ZalErrorBadParameter for an argument that is null, unless it is the buffer of an array form.
/// - ZalErrorTimeout from what asks the camera, as long as it does not answer, and ZalErrorNotOpen
///   once it is closed or lost.
/// - ZalErrorOutOfResources from what asks the camera, when memory runs out, and where the camera
///   gives a register the length 0 or a longer one than the SDK accepts for its kind.
/// - From what asks the camera, whatever code fits the failure that the camera or the connection
///   reports or that the description leads to: ZalErrorTransport, ZalErrorNotImplemented and
///   others, and ZalErrorUnknown where none fits.
///
/// Data of variable length has the array form `(T* buffer, std::uint32_t& count)`: with a null
/// buffer, `count` becomes the number of elements needed (for texts including the terminator);
/// with a buffer, `count` says how many elements fit and afterwards how many were filled. A buffer
/// that is too small fails with ZalErrorBufferTooSmall.
class Feature
{
public:
    virtual ~Feature() = default;

    // What the feature is. These facts never change while the camera is open and cost no traffic.

    /// The GenICam name, by which the feature is found.
    virtual ZalErrorType GetName(char* buffer, std::uint32_t& count) const = 0;
    /// The name meant for people.
    virtual ZalErrorType GetDisplayName(char* buffer, std::uint32_t& count) const = 0;
    /// Path of categories below Root, separated by '/'.
    virtual ZalErrorType GetCategory(char* buffer, std::uint32_t& count) const = 0;
    /// The physical unit of the value and its limits; empty where the camera says nothing.
    virtual ZalErrorType GetUnit(char* buffer, std::uint32_t& count) const = 0;
    /// "Linear", "Logarithmic", "PureNumber", "HexNumber" ...; empty where the camera says nothing.
    virtual ZalErrorType GetRepresentation(char* buffer, std::uint32_t& count) const = 0;
    /// One sentence for the user; empty where the camera says nothing.
    virtual ZalErrorType GetToolTip(char* buffer, std::uint32_t& count) const = 0;
    /// As GetToolTip(), at length.
    virtual ZalErrorType GetDescription(char* buffer, std::uint32_t& count) const = 0;
    /// Which of the value operations below are for this feature.
    virtual ZalErrorType GetDataType(ZalFeatureDataType& type) const = 0;
    /// What the description allows in principle; IsReadable() and IsWritable() say what holds now.
    virtual ZalErrorType GetFlags(ZalFeatureFlagsType& flags) const = 0;
    /// For whom the feature is meant.
    virtual ZalErrorType GetVisibility(ZalFeatureVisibilityType& visibility) const = 0;
    /// The features that this selector governs; none for a feature that is no selector.
    virtual ZalErrorType GetSelectedFeatures(FeaturePtr* buffer, std::uint32_t& count) const = 0;

    // What can be done with it at this moment.

    /// Whether the value can be read: access mode and availability combined.
    virtual ZalErrorType IsReadable(bool& readable) const = 0;
    /// Whether the value can be written: access mode, availability and lock combined.
    virtual ZalErrorType IsWritable(bool& writable) const = 0;

    // Values, each for features of its own data type only. A read fails with ZalErrorNotReadable or
    // ZalErrorNotAvailable where the feature cannot be read, a write with ZalErrorNotWritable or
    // ZalErrorNotAvailable where it cannot be written.

    /// The integer, in the feature's unit.
    virtual ZalErrorType GetIntegerValue(long long& value) const = 0;
    /// The floating-point number, in the feature's unit.
    virtual ZalErrorType GetFloatValue(double& value) const = 0;
    /// True while the feature holds the value that the description gives for on; any other is off.
    virtual ZalErrorType GetBoolValue(bool& value) const = 0;
    /// The text of a string feature, or the name of an enumeration's current entry; for that,
    /// ZalErrorNotFound where no entry has the current value.
    virtual ZalErrorType GetStringValue(char* buffer, std::uint32_t& count) const = 0;
    /// The bytes of a register, in the camera's own order.
    virtual ZalErrorType GetRawValue(unsigned char* buffer, std::uint32_t& count) const = 0;

    /// Fails with ZalErrorOutOfRange, and writes nothing, outside the range or between two steps.
    virtual ZalErrorType SetIntegerValue(long long value) = 0;
    /// Fails with ZalErrorOutOfRange, and writes nothing, outside the range.
    virtual ZalErrorType SetFloatValue(double value) = 0;
    /// Writes the value that the description gives for on, or for off.
    virtual ZalErrorType SetBoolValue(bool value) = 0;
    /// Sets a string feature, or an enumeration by entry name: ZalErrorNotFound where there is no
    /// such entry, ZalErrorNotAvailable where it cannot be chosen now.
    virtual ZalErrorType SetStringValue(const char* value) = 0;
    /// Writes the register as a whole; `data` is copied. Fails with ZalErrorBadParameter for any
    /// other number of bytes than the register has.
    virtual ZalErrorType SetRawValue(const unsigned char* data, std::uint32_t count) = 0;

    // Limits, in the feature's unit. They may be asked whether or not the value can be read. They
    // fail with ZalErrorNotReadable where the feature's description leads in a circle, or further
    // than the SDK follows it.

    /// Smallest and largest value at this moment, both included.
    virtual ZalErrorType GetIntegerRange(long long& min, long long& max) const = 0;
    /// As GetIntegerRange(), for a float.
    virtual ZalErrorType GetFloatRange(double& min, double& max) const = 0;
    /// Whether values keep to steps; false for what is no number.
    virtual ZalErrorType HasIncrement(bool& hasIncrement) const = 0;
    /// The step, counted from the minimum; 1 where the camera names none or a negative one. It is 0
    /// where the camera names that, and then restricts values no more than 1 does.
    virtual ZalErrorType GetIntegerIncrement(long long& increment) const = 0;
    /// The step, counted from the minimum. Fails with ZalErrorNotImplemented where there is none.
    virtual ZalErrorType GetFloatIncrement(double& increment) const = 0;
    /// The values that an integer may have; empty where the SDK knows of no such set.
    virtual ZalErrorType GetValidValueSet(long long* buffer, std::uint32_t& count) const = 0;

    // Enumeration entries, in the description's order, whether available or not. Only their
    // availability costs traffic; asking for it fails with ZalErrorNotReadable where limits would.

    /// The entries' integer values.
    virtual ZalErrorType GetEnumValues(long long* buffer, std::uint32_t& count) const = 0;
    /// The names stay valid as long as the feature does.
    virtual ZalErrorType GetEnumNames(const char** buffer, std::uint32_t& count) const = 0;
    /// Copies the entry of that name. Fails with ZalErrorNotFound where there is none.
    virtual ZalErrorType GetEntry(EnumEntry& entry, const char* name) const = 0;
    /// Fills the buffer with copies of all entries, which stay valid without the feature.
    virtual ZalErrorType GetEntries(EnumEntry* buffer, std::uint32_t& count) const = 0;
    /// Whether the entry can be chosen now. Fails with ZalErrorNotFound where there is none.
    virtual ZalErrorType IsValueAvailable(const char* name, bool& available) const = 0;
    /// As above, by the entry's integer value.
    virtual ZalErrorType IsValueAvailable(long long value, bool& available) const = 0;

    // Commands.

    /// Starts the command and does not wait for it to complete. Fails as a write does.
    virtual ZalErrorType RunCommand() = 0;
    /// Whether it has completed; always true for a command that does not say so.
    virtual ZalErrorType IsCommandDone(bool& done) const = 0;

    /// Shares ownership of the observer until it is unregistered or the camera is closed.
    /// Registering it a second time succeeds and changes nothing. Fails with ZalErrorBadParameter
    /// for null, and with ZalErrorNotOpen once the camera is closed or lost.
    virtual ZalErrorType RegisterObserver(const std::shared_ptr<IFeatureObserver>& observer) = 0;
    /// Lets go of the observer, also where it fails with ZalErrorNotOpen. A call of it that has
    /// begun on the notification thread may still be running afterwards; no further one begins.
    /// Fails with ZalErrorBadParameter for null.
    virtual ZalErrorType UnregisterObserver(const std::shared_ptr<IFeatureObserver>& observer) = 0;
};

} // namespace ZalCPP
