#include "tools/presetcheck/Output.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace PresetCheck {

namespace {

/// Rises when a member changes its meaning or goes; new members do not count.
constexpr int FormatVersion = 1;

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

} // namespace PresetCheck
