#include <ZalCPP/ZalTypes.h>

namespace ZalCPP {

const char* ErrorText(ZalErrorType status)
{
    switch (status) {
    case ZalErrorSuccess:
        return "The operation succeeded.";
    case ZalErrorNotImplemented:
        return "The feature does not offer this operation.";
    case ZalErrorNotFound:
        return "Nothing was found.";
    case ZalErrorNotAvailable:
        return "The feature is not available at the moment.";
    case ZalErrorNotOpen:
        return "The camera is not open, or the connection to it is lost.";
    case ZalErrorWrongType:
        return "The feature has another data type.";
    case ZalErrorBadParameter:
        return "An argument of the call is unusable.";
    case ZalErrorNotReadable:
        return "The feature cannot be read at the moment.";
    case ZalErrorNotWritable:
        return "The feature cannot be written at the moment.";
    case ZalErrorOutOfRange:
        return "The value is outside the feature's range or not one of its steps.";
    case ZalErrorBufferTooSmall:
        return "The buffer is too small for the data.";
    case ZalErrorTimeout:
        return "The camera did not answer in time.";
    case ZalErrorTransport:
        return "The connection to the camera reported a failure.";
    case ZalErrorOutOfResources:
        return "Memory or another resource ran out.";
    default:
        return "The operation failed.";
    }
}

} // namespace ZalCPP
