#pragma once

#include <QString>

/// Which camera to open.
struct CameraChoice
{
    enum class Kind
    {
        Simulated,
        FirstFound,
        ById
    };

    Kind kind = Kind::Simulated;
    QString model = QStringLiteral("full"); ///< Simulated: the model to start.
    QString id;                             ///< ById: the camera's id, serial number or address.
};
