#include "tools/presetcheck/Numbers.h"

#include <QLocale>

#include <algorithm>

namespace PresetCheck {

namespace {

/// A decimal number without what does not change its value: 0.digits * 10^exponent.
struct Decimal
{
    QString digits;
    long long exponent = 0;

    bool isWhole() const { return exponent >= digits.size(); }
    bool operator==(const Decimal& other) const
    {
        return digits == other.digits && exponent == other.exponent;
    }
};

bool isNoZero(QChar digit)
{
    return digit != QLatin1Char('0');
}

Decimal decimalOf(const QString& written)
{
    const QString number = written.toLower();
    const int exponentAt = number.indexOf(QLatin1Char('e'));
    QString digits = number.left(exponentAt);
    digits.remove(QLatin1Char('-'));
    const int pointAt = digits.indexOf(QLatin1Char('.'));
    digits.remove(QLatin1Char('.'));

    const auto first = std::find_if(digits.cbegin(), digits.cend(), isNoZero);
    const auto last = std::find_if(digits.crbegin(), digits.crend(), isNoZero).base();
    if (first == digits.cend())
        return {};
    Decimal decimal;
    decimal.exponent = (pointAt < 0 ? digits.size() : pointAt) - (first - digits.cbegin());
    if (exponentAt >= 0)
        decimal.exponent += number.midRef(exponentAt + 1).toLongLong();
    decimal.digits = QString(&*first, static_cast<int>(last - first));
    return decimal;
}

} // namespace

bool isNumberLost(const QString& written)
{
    const Decimal meant = decimalOf(written);
    if (!meant.isWhole())
        return false;
    // Either all digits that the double has, or the shortest text that leads to it, such as 1e23.
    const double value = written.toDouble();
    return !(meant == decimalOf(QString::number(value, 'f', 0))) &&
           !(meant == decimalOf(QString::number(value, 'g', QLocale::FloatingPointShortest)));
}

} // namespace PresetCheck
