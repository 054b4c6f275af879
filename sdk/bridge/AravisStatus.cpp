#include "sdk/bridge/AravisStatus.h"

#include <arv.h>

#include <algorithm>
#include <iterator>

namespace ZalCPP {
namespace {

struct Translation
{
    int code;
    ZalErrorType status;
};

// Plain arrays, because a camera's remains may still ask while the program ends.
constexpr Translation DescriptionErrors[] = {
    {ARV_GC_ERROR_PROPERTY_NOT_DEFINED, ZalErrorNotImplemented},
    {ARV_GC_ERROR_PVALUE_NOT_DEFINED, ZalErrorNotImplemented},
    {ARV_GC_ERROR_INVALID_PVALUE, ZalErrorNotImplemented},
    {ARV_GC_ERROR_EMPTY_ENUMERATION, ZalErrorNotFound},
    {ARV_GC_ERROR_OUT_OF_RANGE, ZalErrorOutOfRange},
    {ARV_GC_ERROR_NO_DEVICE_SET, ZalErrorNotOpen},
    {ARV_GC_ERROR_NODE_NOT_FOUND, ZalErrorNotFound},
    {ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND, ZalErrorNotFound},
    {ARV_GC_ERROR_INVALID_LENGTH, ZalErrorBadParameter},
    {ARV_GC_ERROR_READ_ONLY, ZalErrorNotWritable},
};

constexpr Translation DeviceErrors[] = {
    {ARV_DEVICE_ERROR_WRONG_FEATURE, ZalErrorWrongType},
    {ARV_DEVICE_ERROR_FEATURE_NOT_FOUND, ZalErrorNotFound},
    {ARV_DEVICE_ERROR_NOT_CONNECTED, ZalErrorNotOpen},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR, ZalErrorTransport},
    {ARV_DEVICE_ERROR_TRANSFER_ERROR, ZalErrorTransport},
    {ARV_DEVICE_ERROR_TIMEOUT, ZalErrorTimeout},
    {ARV_DEVICE_ERROR_NOT_FOUND, ZalErrorNotFound},
    {ARV_DEVICE_ERROR_INVALID_PARAMETER, ZalErrorBadParameter},
    {ARV_DEVICE_ERROR_GENICAM_NOT_FOUND, ZalErrorNotFound},
    {ARV_DEVICE_ERROR_NO_STREAM_CHANNEL, ZalErrorNotImplemented},
    {ARV_DEVICE_ERROR_NOT_CONTROLLER, ZalErrorTransport},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED, ZalErrorNotImplemented},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER, ZalErrorBadParameter},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS, ZalErrorTransport},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT, ZalErrorNotWritable},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT, ZalErrorTransport},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED, ZalErrorNotWritable},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY, ZalErrorTransport},
};

template <std::size_t Size> ZalErrorType lookUp(const Translation (&table)[Size], int code)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [code](const Translation& t) { return t.code == code; });
    return found == std::end(table) ? ZalErrorUnknown : found->status;
}

} // namespace

ZalErrorType statusOf(const GError* error)
{
    if (!error)
        return ZalErrorSuccess;
    if (error->domain == ARV_GC_ERROR)
        return lookUp(DescriptionErrors, error->code);
    if (error->domain == ARV_DEVICE_ERROR)
        return lookUp(DeviceErrors, error->code);
    if (error->domain == G_IO_ERROR)
        return ZalErrorTransport;
    return ZalErrorUnknown;
}

bool AravisError::isUndefinedProperty() const
{
    return g_error_matches(m_error, ARV_GC_ERROR, ARV_GC_ERROR_PROPERTY_NOT_DEFINED);
}

bool AravisError::isUnreadableDescription() const
{
    return g_error_matches(m_error, ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_GENICAM_NOT_FOUND);
}

} // namespace ZalCPP
