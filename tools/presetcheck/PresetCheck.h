#pragma once

#include "tools/presetcheck/Findings.h"

#include <QStringList>

class FeatureManager;

namespace PresetCheck {

/// What there is to say about one presets file.
struct Report
{
    QString file;
    /// The presets that the plugin puts into its box, in that order.
    QStringList offered;
    /// In the file's order.
    std::vector<Finding> findings;
    /// Findings beyond the limit.
    int omitted = 0;
    /// The camera's selectors are where they were.
    bool cameraFollowed = true;
};

/// Checks the content of a presets file, and what it asks of `camera` unless that is null. The
/// camera's selectors are moved and put back; nothing else is written to it.
Report checkPresets(const QByteArray& content, const FeatureManager* camera = nullptr);

} // namespace PresetCheck
