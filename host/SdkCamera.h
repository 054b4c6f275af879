#pragma once

#include "host/CameraChoice.h"
#include "host/CameraDevice.h"

#include <memory>

/// Opens the chosen camera through the SDK, after starting it in this process when it is a
/// simulated one. On failure returns null and sets `error` to a sentence for the user.
std::unique_ptr<CameraDevice> openCamera(const CameraChoice& choice, QString& error);
