#include "tools/presetcheck/Output.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>

namespace PresetCheck {

namespace {

/// Rises when a member goes or changes its meaning; new members do not count.
constexpr int FormatVersion = 1;

constexpr int LongestQuote = 60;

QString nameOf(Severity severity)
{
    return severity == Severity::Error ? QStringLiteral("error") : QStringLiteral("warning");
}

QString lineOf(const QString& file, const Finding& finding)
{
    return QStringLiteral("%1:%2:%3: %4: %5 [%6]\n")
        .arg(file, QString::number(finding.line), QString::number(finding.column),
             nameOf(finding.rule.severity), finding.message, QString::fromLatin1(finding.rule.id));
}

QJsonObject objectOf(const Finding& finding)
{
    return {{QStringLiteral("line"), finding.line},
            {QStringLiteral("column"), finding.column},
            {QStringLiteral("severity"), nameOf(finding.rule.severity)},
            {QStringLiteral("rule"), QString::fromLatin1(finding.rule.id)},
            {QStringLiteral("message"), finding.message}};
}

QJsonObject objectOf(const Report& report)
{
    QJsonArray findings;
    for (const Finding& finding : report.findings)
        findings.append(objectOf(finding));
    return {{QStringLiteral("file"), report.file},
            {QStringLiteral("offered"), QJsonArray::fromStringList(report.offered)},
            {QStringLiteral("findings"), findings},
            {QStringLiteral("omitted"), report.omitted}};
}

int countOf(const std::vector<Report>& reports, Severity severity)
{
    std::ptrdiff_t count = 0;
    for (const Report& report : reports)
        count += std::count_if(
            report.findings.begin(), report.findings.end(),
            [&](const Finding& finding) { return finding.rule.severity == severity; });
    return static_cast<int>(count);
}

/// A number as 0.digits * 10^exponent, without leading and trailing zeros and without the sign.
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

QByteArray asText(const std::vector<Report>& reports)
{
    QString text;
    for (const Report& report : reports) {
        for (const Finding& finding : report.findings)
            text += lineOf(report.file, finding);
        if (report.omitted > 0)
            text += QStringLiteral("%1: %2 more\n").arg(report.file).arg(report.omitted);
    }
    return text.toUtf8();
}

QByteArray asJson(const std::vector<Report>& reports, const QString& camera)
{
    QJsonArray files;
    for (const Report& report : reports)
        files.append(objectOf(report));
    const QJsonObject all{
        {QStringLiteral("format"), FormatVersion},
        {QStringLiteral("camera"), camera.isEmpty() ? QJsonValue() : QJsonValue(camera)},
        {QStringLiteral("files"), files},
        {QStringLiteral("errors"), countOf(reports, Severity::Error)},
        {QStringLiteral("warnings"), countOf(reports, Severity::Warning)}};
    return QJsonDocument(all).toJson();
}

QString quoted(const QString& text)
{
    QString shown =
        text.size() > LongestQuote ? text.left(LongestQuote) + QStringLiteral("...") : text;
    for (QChar& character : shown) {
        if (!character.isPrint() && !character.isSurrogate())
            character = QChar::ReplacementCharacter;
    }
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

bool isNumberLost(const QString& written)
{
    const Decimal meant = decimalOf(written);
    if (!meant.isWhole())
        return false;
    // A number counts as held if it is written with all digits of the double, or as the shortest
    // text that leads to it, such as 1e23.
    const double value = written.toDouble();
    return !(meant == decimalOf(QString::number(value, 'f', 0))) &&
           !(meant == decimalOf(QString::number(value, 'g', QLocale::FloatingPointShortest)));
}

} // namespace PresetCheck
