#pragma once

#include "tools/presetcheck/Findings.h"

class FeatureManager;

namespace PresetCheck {

/// Checks the content of a presets file, and what it asks of `camera` unless that is null. The
/// camera's selectors are moved and put back; nothing else is written to it.
Report checkPresets(const QByteArray& content, const FeatureManager* camera = nullptr);

} // namespace PresetCheck
