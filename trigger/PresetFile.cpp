#include "trigger/PresetFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

using namespace PresetFile;

namespace {

constexpr int MostMegabytes = 16;
constexpr int MostBytes = MostMegabytes * 1024 * 1024;

bool isRegularFile(int descriptor)
{
    struct stat facts = {};
    return ::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode);
}

/// Unlike QJsonValue::toString(), takes numbers and booleans as well.
QString textOf(const QJsonValue& value)
{
    return value.toVariant().toString();
}

/// Appends, since replacing in place would move the rest of the text for every bracket.
QString escaped(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (character == QLatin1Char('<'))
            result += QLatin1String("&lt;");
        else if (character == QLatin1Char('>'))
            result += QLatin1String("&gt;");
        else
            result += character;
    }
    return result;
}

/// The lines of one setting. Lists and plain values arrive here without members and show nothing.
QString settingLines(const QString& feature, const QJsonObject& members)
{
    QString lines;
    for (auto it = members.begin(); it != members.end(); ++it) {
        const bool isValue = it.key() == ValueKey;
        const QString title = isValue ? QStringLiteral("<b>%1</b>").arg(feature) : it.key();
        lines += QStringLiteral("%1: %2<br>").arg(title, escaped(textOf(it.value())));
    }
    return lines;
}

QString commandLine(const QString& command)
{
    return QStringLiteral("<i> %1: %2</i><br>")
        .arg(QCoreApplication::translate("AdvTriggerBase", "Execute"), command);
}

QString settingsOf(const QJsonObject& members)
{
    QString settings;
    for (auto it = members.begin(); it != members.end(); ++it) {
        settings += it.key() == CommandKey ? commandLine(it.value().toString())
                                           : settingLines(it.key(), it.value().toObject());
    }
    return settings;
}

Step stepOf(const QString& feature, const QJsonObject& members)
{
    Step step;
    step.feature = feature;
    step.dependents = members.toVariantMap();
    step.value = step.dependents.take(ValueKey).toString();
    return step;
}

/// Only a step that stands alone can be for every entry; in a list the text is an ordinary value.
Step singleStepOf(const QString& feature, const QJsonObject& members)
{
    Step step = stepOf(feature, members);
    step.forEveryEntry = step.value.startsWith(EveryEntry);
    const int separator = step.forEveryEntry ? step.value.indexOf(QLatin1Char('_')) : -1;
    step.namesLastEntry = separator >= 0;
    if (step.namesLastEntry)
        step.lastEntry = step.value.mid(separator + 1);
    return step;
}

void appendSteps(QVector<Step>& steps, const QString& feature, const QJsonValue& value)
{
    if (!value.isArray()) {
        steps.append(singleStepOf(feature, value.toObject()));
        return;
    }
    const QJsonArray elements = value.toArray();
    for (const QJsonValue& element : elements)
        steps.append(stepOf(feature, element.toObject()));
}

} // namespace

QString PresetFile::pathFor(const QString& applicationDir, const QString& familyName)
{
    const QString folder = applicationDir + QStringLiteral("/plugins/");
    const QString family = QString(familyName).remove(QLatin1Char(' '));
    const QString familyFile = folder + QStringLiteral("AdvTrigger_%1_Presets.json").arg(family);
    // The name comes from the camera, which must not lead the search to another folder.
    const bool staysInFolder = !family.contains(QLatin1Char('/'));
    return staysInFolder && QFile::exists(familyFile)
               ? familyFile
               : folder + QStringLiteral("AdvTrigger_Presets.json");
}

PresetFile::Bytes PresetFile::read(const QString& path)
{
    const QString notRegular = QStringLiteral("Not a regular file");
    // Checked before opening, because opening alone makes some devices act.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return {QByteArray(), notRegular};
    // The path may lead elsewhere by now, so a pipe is opened without waiting and found out below.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QFile file;
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle))
        return {QByteArray(), qt_error_string(errno)};
    if (!isRegularFile(descriptor))
        return {QByteArray(), notRegular};
    const QByteArray content = file.read(MostBytes + 1);
    if (content.size() > MostBytes)
        return {QByteArray(), QStringLiteral("Larger than %1 MB").arg(MostMegabytes)};
    return {content, file.error() == QFile::NoError ? QString() : file.errorString()};
}

PresetFile::Content PresetFile::parse(const QByteArray& json)
{
    Content content;
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (document.isNull() || error.error != QJsonParseError::NoError)
        content.parseError = error.errorString();
    const QJsonObject root = document.object();
    const QJsonArray names = root.value(ListKey).toArray();
    for (const QJsonValue& element : names) {
        const QString name = element.toString();
        const QJsonValue preset = root.value(name);
        if (preset.isObject())
            content.presets.append({name, preset.toObject()});
    }
    return content;
}

QJsonObject Preset::members() const
{
    QJsonObject members = content;
    members.remove(ToolTipKey);
    return members;
}

QString Preset::toolTip() const
{
    QString toolTip = QStringLiteral("<b>%1</b><br>").arg(name);
    toolTip += textOf(content.value(ToolTipKey));
    const QString settings = settingsOf(members());
    if (!settings.isEmpty())
        toolTip += QStringLiteral("<br>%1:<blockquote>%2</blockquote>\n")
                       .arg(QCoreApplication::translate("AdvTriggerBase", "Settings"), settings);
    return toolTip;
}

PresetFile::Plan PresetFile::planOf(const QJsonObject& members)
{
    Plan plan;
    for (auto it = members.begin(); it != members.end(); ++it) {
        if (it.key() == CommandKey)
            plan.command = it.value().toString();
        else
            appendSteps(plan.steps, it.key(), it.value());
    }
    return plan;
}
