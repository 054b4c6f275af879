#pragma once

#include "sdk/bridge/FeatureDescription.h"

namespace ZalCPP {

/// Reads the static facts of all implemented features reachable from Root, categories left out.
/// Which features are implemented may depend on registers, so this can cause traffic: call it when
/// the camera is opened, before its worker starts. Fails when such a register cannot be read,
/// because otherwise a feature would silently be missing.
ZalErrorType readDescription(ArvGc* genicam, CameraDescription& description);

} // namespace ZalCPP
