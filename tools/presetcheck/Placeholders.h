#pragma once

#include <QString>

/// The texts that stand for a limit of a feature.
namespace PresetCheck::Placeholders {

inline const QString Min = QStringLiteral("<min>");
inline const QString Max = QStringLiteral("<max>");

inline bool isLimit(const QString& text)
{
    return text == Min || text == Max;
}

/// Looks like a placeholder, whether there is one of that name or not.
inline bool isBracketed(const QString& text)
{
    return text.startsWith(QLatin1Char('<')) && text.endsWith(QLatin1Char('>'));
}

} // namespace PresetCheck::Placeholders
