#include <ZalCPP/Camera.h>
#include <ZalCPP/ZalTypes.h>

// Marks a text for the translation tools. Whoever shows it to a person looks the translation up.
#define QT_TRANSLATE_NOOP(context, text) text

namespace ZalCPP {

const char* ErrorText(ZalErrorType status)
{
    switch (status) {
    case ZalErrorSuccess:
        return QT_TRANSLATE_NOOP("ZalCPP", "The operation succeeded.");
    case ZalErrorNotImplemented:
        return QT_TRANSLATE_NOOP("ZalCPP", "The feature does not offer this operation.");
    case ZalErrorNotFound:
        return QT_TRANSLATE_NOOP("ZalCPP", "Nothing was found.");
    case ZalErrorNotAvailable:
        return QT_TRANSLATE_NOOP("ZalCPP", "The feature is not available at the moment.");
    case ZalErrorNotOpen:
        return QT_TRANSLATE_NOOP("ZalCPP",
                                 "The camera is not open, or the connection to it is lost.");
    case ZalErrorWrongType:
        return QT_TRANSLATE_NOOP("ZalCPP", "The feature has another data type.");
    case ZalErrorBadParameter:
        return QT_TRANSLATE_NOOP("ZalCPP", "An argument of the call is unusable.");
    case ZalErrorNotReadable:
        return QT_TRANSLATE_NOOP("ZalCPP", "The feature cannot be read at the moment.");
    case ZalErrorNotWritable:
        return QT_TRANSLATE_NOOP("ZalCPP", "The feature cannot be written at the moment.");
    case ZalErrorOutOfRange:
        return QT_TRANSLATE_NOOP(
            "ZalCPP", "The value is outside the feature's range or not one of its steps.");
    case ZalErrorBufferTooSmall:
        return QT_TRANSLATE_NOOP("ZalCPP", "The buffer is too small for the data.");
    case ZalErrorTimeout:
        return QT_TRANSLATE_NOOP("ZalCPP", "The camera did not answer in time.");
    case ZalErrorTransport:
        return QT_TRANSLATE_NOOP("ZalCPP", "The connection to the camera reported a failure.");
    case ZalErrorOutOfResources:
        return QT_TRANSLATE_NOOP("ZalCPP", "Memory or another resource ran out.");
    default:
        return QT_TRANSLATE_NOOP("ZalCPP", "The operation failed.");
    }
}

const char* LossText(CameraLoss loss)
{
    if (loss == CameraLoss::ControlTaken)
        return QT_TRANSLATE_NOOP("ZalCPP", "Another program controls the camera.");
    return "";
}

} // namespace ZalCPP
