#pragma once

#include "plugin/TabExtensionInterface.h"

#include <QString>

/// Why a tab refuses to be built. Thrown by value out of widget constructors; a plain record.
struct TabExtensionException
{
    TabExtensionException(const QString& refusingClass, const QString& reason, qint32 status)
        : className(refusingClass), message(reason), code(status)
    {
    }

    QString className; ///< Class of the widget that refused.
    QString message;   ///< Reason, for people.
    qint32 code;       ///< What TabExtensionInterface::get() returns to the host.
};

/// The camera does not qualify for the tab.
struct TENotSupported : TabExtensionException
{
    TENotSupported(const QString& refusingClass, const QString& reason)
        : TabExtensionException(refusingClass, reason, TabExtensionInterface::CameraNotSupported)
    {
    }
};
