// Codes of the camera SDK: status, data type, flags and visibility. All are plain numbers of a
// fixed width, so that they mean the same on both sides of a library boundary.
#pragma once

#include <ZalCPP/Export.h>

#include <cstdint>

/// Result of an SDK call: 0 is success, every failure is negative.
using ZalErrorType = std::int32_t;

constexpr ZalErrorType ZalErrorSuccess = 0;         ///< The call did what it says.
constexpr ZalErrorType ZalErrorUnknown = -1;        ///< Failed for a reason without its own code.
constexpr ZalErrorType ZalErrorNotImplemented = -2; ///< The feature does not offer this operation.
constexpr ZalErrorType ZalErrorNotFound = -3;       ///< Nothing found, e.g. an empty feature list.
constexpr ZalErrorType ZalErrorNotAvailable = -4;   ///< The feature is unavailable at the moment.
constexpr ZalErrorType ZalErrorNotOpen = -5;        ///< The device is not open, or is lost.
constexpr ZalErrorType ZalErrorWrongType = -6;      ///< The feature has another data type.
constexpr ZalErrorType ZalErrorBadParameter = -7; ///< An argument is unusable, e.g. an empty write.
constexpr ZalErrorType ZalErrorNotReadable = -8;  ///< The feature cannot be read now.
constexpr ZalErrorType ZalErrorNotWritable = -9;  ///< The feature cannot be written now.
constexpr ZalErrorType ZalErrorOutOfRange = -10;  ///< The value is outside range or increment.
constexpr ZalErrorType ZalErrorBufferTooSmall = -11; ///< The buffer cannot hold the data.
constexpr ZalErrorType ZalErrorTimeout = -12;        ///< The camera did not answer in time.
constexpr ZalErrorType ZalErrorTransport = -13;      ///< The connection reported a failure.
constexpr ZalErrorType ZalErrorOutOfResources = -14; ///< Memory or another resource ran out.

/// Data type of a feature.
using ZalFeatureDataType = std::uint32_t;

constexpr ZalFeatureDataType ZalFeatureUnknown = 0; ///< Not known; no camera's feature answers so.
constexpr ZalFeatureDataType ZalFeatureInteger = 1; ///< A signed 64-bit integer.
constexpr ZalFeatureDataType ZalFeatureFloat = 2;   ///< A floating-point number.
constexpr ZalFeatureDataType ZalFeatureEnum = 3;    ///< One of a list of named entries.
constexpr ZalFeatureDataType ZalFeatureString = 4;  ///< A text.
constexpr ZalFeatureDataType ZalFeatureBool = 5;    ///< On or off.
constexpr ZalFeatureDataType ZalFeatureCommand = 6; ///< An action without a value.
constexpr ZalFeatureDataType ZalFeatureRaw = 7;     ///< A register of bytes.
constexpr ZalFeatureDataType ZalFeatureNone = 8;    ///< No value, or none that the SDK knows.

/// What a feature allows in principle: any combination of the bits below.
using ZalFeatureFlagsType = std::uint32_t;

constexpr ZalFeatureFlagsType ZalFeatureFlagsNone = 0x00;     ///< Neither readable nor writable.
constexpr ZalFeatureFlagsType ZalFeatureFlagsRead = 0x01;     ///< Can be read in principle.
constexpr ZalFeatureFlagsType ZalFeatureFlagsWrite = 0x02;    ///< Can be written in principle.
constexpr ZalFeatureFlagsType ZalFeatureFlagsVolatile = 0x08; ///< Changes without being written.
constexpr ZalFeatureFlagsType ZalFeatureFlagsModifyWrite =
    0x10; ///< A write changes other features.

/// For whom a feature is meant (GenICam visibility).
using ZalFeatureVisibilityType = std::uint32_t;

/// The camera names one that is none of those below.
constexpr ZalFeatureVisibilityType ZalFeatureVisibilityUnknown = 0;
/// For everybody; also where the camera names none.
constexpr ZalFeatureVisibilityType ZalFeatureVisibilityBeginner = 1;
constexpr ZalFeatureVisibilityType ZalFeatureVisibilityExpert = 2;    ///< For experienced users.
constexpr ZalFeatureVisibilityType ZalFeatureVisibilityGuru = 3;      ///< For specialists.
constexpr ZalFeatureVisibilityType ZalFeatureVisibilityInvisible = 4; ///< For programs only.

namespace ZalCPP {

/// One English sentence for a status code; never null, static storage. Any thread.
ZALCPP_EXPORT const char* ErrorText(ZalErrorType status);

} // namespace ZalCPP
