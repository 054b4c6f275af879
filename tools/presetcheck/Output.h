#pragma once

#include "tools/presetcheck/Findings.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace PresetCheck {

/// One line for each finding: "FILE:LINE:COLUMN: error|warning: MESSAGE [RULE]".
QByteArray asText(const std::vector<Report>& reports);

/// One JSON object; docs/presets.md lists its members. `camera` is empty without one.
QByteArray asJson(const std::vector<Report>& reports, const QString& camera);

/// A text from the file for use in a message: in quotes, short, and on one line.
QString quoted(const QString& text);

/// Whether a whole number, as written in a JSON file, has too many digits for a double, which then
/// holds another number. Fractions never count as lost: no camera can tell the difference.
bool isNumberLost(const QString& written);

} // namespace PresetCheck
