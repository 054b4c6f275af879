#pragma once

#include <QString>

namespace PresetCheck {

/// Whether a whole number, as written in a JSON file, comes out of a double as another one because
/// it has too many digits. Fractions are fine: what they lose no camera can tell.
bool isNumberLost(const QString& written);

} // namespace PresetCheck
