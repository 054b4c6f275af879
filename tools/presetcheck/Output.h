#pragma once

#include "tools/presetcheck/PresetCheck.h"

#include <QByteArray>
#include <QString>

namespace PresetCheck {

/// One line for each finding: "FILE:LINE:COLUMN: error|warning: MESSAGE [RULE]".
QByteArray asText(const std::vector<Report>& reports);

/// One JSON object; docs/presets.md lists its members. `camera` is empty without one.
QByteArray asJson(const std::vector<Report>& reports, const QString& camera);

} // namespace PresetCheck
