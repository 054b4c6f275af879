#pragma once

#include "tests/support/FakeCamera.h"

#include <QStringList>

/// What was written to the camera since the log was cleared.
inline QStringList writesOf(const Fake::FakeCamera& camera)
{
    QStringList result;
    for (const std::string& write : camera.writes())
        result.append(QString::fromStdString(write));
    return result;
}
