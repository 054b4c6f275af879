// Feeds arbitrary bytes to the reading of presets files and checks what must hold for all of them.
#include "trigger/PresetFile.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

int entriesIn(const QJsonValue& setting)
{
    return setting.isArray() ? setting.toArray().size() : 1;
}

void checkStep(const PresetFile::Step& step)
{
    require(step.feature != QLatin1String("#execute"), "a command is no step");
    require(!step.dependents.contains(QStringLiteral("#value")),
            "a value does not depend on itself");
    if (step.namesLastEntry)
        require(step.forEveryEntry && step.value.endsWith(QLatin1Char('_') + step.lastEntry),
                "the last entry stands at the end of the value");
    else
        require(step.lastEntry.isEmpty(), "only a step that names its last entry has one");
    if (step.forEveryEntry)
        require(step.value.startsWith(QLatin1String("<all>")), "every entry is asked for");
}

void checkPlan(const QJsonObject& members)
{
    const PresetFile::Plan plan = PresetFile::planOf(members);
    int expected = 0;
    for (auto it = members.begin(); it != members.end(); ++it)
        expected += it.key() == QLatin1String("#execute") ? 0 : entriesIn(it.value());
    require(plan.steps.size() == expected, "a step for every object, none for anything else");
    require(plan.command.isEmpty() || members.contains(QStringLiteral("#execute")),
            "a command comes from the preset");
    for (const PresetFile::Step& step : plan.steps)
        checkStep(step);
    for (int i = 1; i < plan.steps.size(); ++i)
        require(!(plan.steps[i].feature < plan.steps[i - 1].feature), "steps are in key order");
}

void checkPreset(const PresetFile::Preset& preset, const QJsonObject& root)
{
    QJsonObject expected = root.value(preset.name).toObject();
    expected.remove(QStringLiteral("#tooltip"));
    require(preset.members() == expected, "the members are the file's, without the tooltip");
    require(
        preset.toolTip().startsWith(QLatin1String("<b>") + preset.name + QLatin1String("</b><br>")),
        "the tooltip begins with the name");
    // Presets travel through the combo box as a map.
    const QJsonObject back = QJsonObject::fromVariantMap(preset.members().toVariantMap());
    require(PresetFile::planOf(back).steps.size() ==
                PresetFile::planOf(preset.members()).steps.size(),
            "the combo box keeps every step");
    checkPlan(preset.members());
}

/// What is listed without being a text counts as an empty name.
bool isListed(const QJsonArray& names, const QString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const QJsonValue& listed) { return listed.toString() == name; });
}

void checkContent(const QByteArray& json)
{
    const PresetFile::Content content = PresetFile::parse(json);
    QJsonParseError error{};
    const QJsonObject root = QJsonDocument::fromJson(json, &error).object();
    require(content.parseError.isEmpty() == (error.error == QJsonParseError::NoError),
            "errors are those of the parser");
    require(content.parseError.isEmpty() || content.presets.isEmpty(),
            "a file with an error offers nothing");
    const QJsonArray names = root.value(QStringLiteral("#presets")).toArray();
    require(content.presets.size() <= names.size(), "only listed presets are offered");
    for (const PresetFile::Preset& preset : content.presets) {
        require(isListed(names, preset.name), "only listed presets are offered");
        checkPreset(preset, root);
    }
}

/// The same content, written in another way, offers the same.
void checkRewritten(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return;
    const PresetFile::Content once = PresetFile::parse(json);
    const PresetFile::Content again = PresetFile::parse(document.toJson(QJsonDocument::Compact));
    require(once.presets.size() == again.presets.size(), "rewriting keeps the presets");
    for (int i = 0; i < once.presets.size(); ++i)
        require(once.presets[i].name == again.presets[i].name, "rewriting keeps the names");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(data), static_cast<int>(size));
    checkContent(json);
    checkRewritten(json);
    return 0;
}
