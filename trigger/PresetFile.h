#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QVariantMap>
#include <QVector>

/// The presets file, free of widgets and cameras: where it lies, what it offers, what the tooltip
/// of a preset says and what applying it does, step by step. The code that shows, applies and
/// checks presets shares this reading of the file. What cannot be understood is left out; only a
/// file that cannot be read is a failure.
///
/// All functions may be called from any thread.
namespace PresetFile {

/// The members of a file that are not names of presets or features.
inline const QString ListKey = QStringLiteral("#presets");
inline const QString ToolTipKey = QStringLiteral("#tooltip");
inline const QString CommandKey = QStringLiteral("#execute");
inline const QString ValueKey = QStringLiteral("#value");
/// What a value begins with that stands for every entry of a selector.
inline const QString EveryEntry = QStringLiteral("<all>");
/// The values that stand for a number's limits, as they are when the value is written.
inline const QString Minimum = QStringLiteral("<min>");
inline const QString Maximum = QStringLiteral("<max>");

/// Names of the presets that have a meaning of their own.
inline const QString CustomPreset = QStringLiteral("Custom");
inline const QString TurnOffPreset = QStringLiteral("Turn Off All");
inline const QString ResetPreset = QStringLiteral("Reset All");

/// A preset that the file offers. Cheap to copy: all copies, and all listings of one name, share
/// the content, and what is derived from it is only made when asked for.
struct Preset
{
    QString name;
    /// The preset as the file has it.
    QJsonObject content;

    /// The preset's members without "#tooltip".
    QJsonObject members() const;
    /// HTML: the bold name, the author's text, the settings. As the file has it: show it through
    /// RichText::forToolTip().
    QString toolTip() const;
};

/// What a file offers.
struct Content
{
    /// In the order of the file's "#presets".
    QVector<Preset> presets;
    /// What the JSON parser complained about, in its own words; empty for well-formed files.
    QString parseError;
};

/// One feature that gets a value, and what is written while it holds that value.
struct Step
{
    QString feature;
    /// The "#value" as text, for example "Line0", "true" or "<all>_Line1".
    QString value;
    /// "<all>": the step is done once for every entry that the feature offers.
    bool forEveryEntry = false;
    /// With forEveryEntry: `value` names the entry at which the feature is left. Otherwise the
    /// feature goes back to the entry that it had.
    bool namesLastEntry = false;
    /// That entry, possibly empty.
    QString lastEntry;
    /// Written in key order, each a plain value: text, number or bool.
    QVariantMap dependents;
};

/// What applying a preset does.
struct Plan
{
    QVector<Step> steps;
    /// The command that runs after all steps; empty for none.
    QString command;
};

/// The path of the presets file for a camera: that of its family if it exists, otherwise the
/// generic one, which may be missing. A family name with a "/" has no file.
QString pathFor(const QString& applicationDir, const QString& familyName);

/// What a file holds, or why it cannot be read.
struct Bytes
{
    QByteArray content;
    /// For example "No such file or directory"; empty for a file that was read.
    QString error;
};

/// Reads a regular file of at most 16 MB; anything else counts as a file that cannot be opened.
/// Never waits for the other end of a pipe.
Bytes read(const QString& path);

/// Reads the content of a file.
Content parse(const QByteArray& json);

/// The steps of a preset in the order in which they are done.
Plan planOf(const QJsonObject& members);

} // namespace PresetFile
