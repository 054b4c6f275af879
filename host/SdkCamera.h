#pragma once

#include "host/CameraDevice.h"
#include "sdk/cameras/Cameras.h"

#include <memory>

/// Opens the camera through the SDK, after starting it in this process when it is a simulated one.
/// On failure returns null and sets `error` to a sentence for the user.
std::unique_ptr<CameraDevice> openCamera(const Cameras::Source& source, QString& error);
