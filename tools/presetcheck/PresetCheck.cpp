#include "tools/presetcheck/PresetCheck.h"

#include "tools/presetcheck/Checks.h"

#include <QJsonDocument>
#include <QSet>

namespace PresetCheck {

namespace {

/// Where the plugin's parser gave up.
std::size_t pluginErrorAt(const QByteArray& text)
{
    QJsonParseError error = {};
    QJsonDocument::fromJson(text, &error);
    return static_cast<std::size_t>(error.offset);
}

/// The plugin's parser decides what is an error; ours says more precisely where and why.
void checkSyntax(const QByteArray& text, const JsonTree& tree, const QString& pluginError,
                 Findings& findings)
{
    const bool isJson = tree.error.isEmpty();
    if (!pluginError.isEmpty())
        findings.add(Rules::ParseError, isJson ? pluginErrorAt(text) : tree.errorAt,
                     QStringLiteral("Cannot be parsed, so no preset is offered: %1")
                         .arg(isJson ? pluginError : tree.error));
    else if (!isJson)
        findings.add(Rules::StrictJson, tree.errorAt,
                     QStringLiteral("Only the plugin can parse this, other programs cannot, and "
                                    "nothing else was checked: %1")
                         .arg(tree.error));
}

bool checkAgainst(const FeatureManager& camera, const QVector<PresetFile::Preset>& presets,
                  const RootMembers& members, Findings& findings)
{
    bool followed = true;
    QSet<QString> done;
    for (const PresetFile::Preset& preset : presets) {
        const JsonNode* node = members.value(preset.name);
        if (node && !done.contains(preset.name))
            followed = checkOnCamera(camera, preset, *node, findings) && followed;
        done.insert(preset.name);
    }
    return followed;
}

} // namespace

Report checkPresets(const QByteArray& content, const FeatureManager* camera)
{
    const PresetFile::Content plugin = PresetFile::parse(content);
    const JsonTree tree = readJson(content);
    Report report;
    for (const PresetFile::Preset& preset : plugin.presets)
        report.offered.append(preset.name);

    Findings findings;
    checkSyntax(content, tree, plugin.parseError, findings);
    if (findings.collected().empty()) {
        const RootMembers members = checkFile(tree.root, findings);
        if (camera)
            report.cameraFollowed = checkAgainst(*camera, plugin.presets, members, findings);
    }
    report.findings = findings.located(content);
    report.omitted = findings.omitted();
    return report;
}

} // namespace PresetCheck
