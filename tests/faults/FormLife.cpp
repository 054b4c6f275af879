#include "tests/faults/FormLife.h"

#include <QRegularExpression>

#include <algorithm>

namespace Faults {
namespace {

/// "cmbLine2_LineMode" shows LineMode, "cmbTriggerMode" TriggerMode.
QString featureOf(const QString& widget)
{
    return widget.contains('_') ? widget.section('_', 1, 1) : widget.mid(3);
}

/// Empty for a widget that is not a cell's.
QString lineOf(const QString& widget)
{
    const QString line = widget.mid(3).section('_', 0, 0);
    return widget.contains('_') && line.startsWith("Line") ? line : QString();
}

/// Of the portrait of a table.
QString rowsOf(const QString& table)
{
    return table.section(" without ", 0, 0);
}

bool hasMissedLines(const FormLife& life)
{
    return hasFailed(life.whileBuilt, "LineSelector",
                     {"GetName", "GetEnumNames", "IsValueAvailable"});
}

bool wasNotFound(const Difference& difference, const FormLife& life)
{
    return difference.actual.endsWith("disabled") &&
           hasFailed(life.whileBuilt, featureOf(difference.widget), {"GetName"});
}

bool lacksLines(const Difference& difference, const FormLife& life)
{
    const QString line = lineOf(difference.widget);
    const bool isMissing =
        difference.widget == "tableWidget"
            ? rowsOf(difference.actual) != rowsOf(difference.expected)
            : difference.actual == "missing" && !line.isEmpty() && !life.lines.contains(line);
    return isMissing && hasMissedLines(life);
}

/// With three rows, a refresh does not come to Line3, whichever lines they are of.
bool liesBehindLastRow(const Difference& difference, const FormLife& life)
{
    const QString line = lineOf(difference.widget);
    return difference.actual != "missing" && !line.isEmpty() &&
           line.mid(4).toInt() >= life.lines.size() && hasMissedLines(life);
}

bool lacksColumn(const Difference& difference, const FormLife& life)
{
    static const QStringList columns = {"LineMode",   "LineInverter",     "LineSource",
                                        "LineStatus", "LineDebounceMode", "LineDebounceDuration"};
    const auto isMissing = [&](const QString& feature) {
        const bool isShown =
            difference.widget == "tableWidget" ||
            (difference.actual == "missing" && featureOf(difference.widget) == feature);
        return isShown && hasFailed(life.whileBuilt, feature, {"GetName"});
    };
    return std::any_of(columns.begin(), columns.end(), isMissing);
}

bool lacksPresets(const Difference& difference, const FormLife& life)
{
    return difference.widget == "cmbSelectPreset" &&
           hasFailed(life.whileBuilt, "DeviceFamilyName", {"GetName", "GetStringValue"});
}

bool overviewOfDialog(const Difference& difference, const FormLife& life)
{
    static const QRegularExpression shown("^(Counter|Timer|Trigger)");
    const auto isOfOverview = [](const FailedCall& failed) {
        return failed.feature.contains(shown);
    };
    return life.isDialog && difference.widget == "treeView" &&
           std::any_of(life.sinceOverview.begin(), life.sinceOverview.end(), isOfOverview);
}

bool calculatesFromUnboundBox(const Difference& difference, const FormLife& life)
{
    return difference.widget.startsWith("txtPWM") &&
           (hasFailed(life.whileBuilt, "TimerDelay", {"GetName"}) ||
            hasFailed(life.whileBuilt, "TimerDuration", {"GetName"}));
}

/// "'' acceptable enabled": the text and the state of a field, without what its validator says.
QString withoutVerdict(const QString& field)
{
    QStringList parts = field.split(' ');
    if (parts.size() > 1)
        parts.removeAt(parts.size() - 2);
    return parts.join(' ');
}

bool missesNotation(const Difference& difference, const FormLife& life)
{
    return difference.widget.startsWith("txt") &&
           withoutVerdict(difference.actual) == withoutVerdict(difference.expected) &&
           hasFailed(life.whileBuilt, featureOf(difference.widget),
                     {"GetName", "GetRepresentation"});
}

} // namespace

const std::vector<Remnant>& remnants()
{
    static const std::vector<Remnant> all = {
        {"A widget whose feature is not found when the form is bound is disabled, and nothing else "
         "is done for it.",
         wasNotFound},
        {"The fields of the PWM calculator say what the two timer boxes show, also where one of "
         "these "
         "is such a widget.",
         calculatesFromUnboundBox},
        {"A field is for hexadecimal numbers if the camera says so when the form is bound, else "
         "for "
         "decimal ones.",
         missesNotation},
        {"The table gets a row for each line that is available when it is made.", lacksLines},
        {"A refresh takes the rows to be of Line0, Line1 and so on, as many as there are.",
         liesBehindLastRow},
        {"A column is hidden for the whole table as soon as its feature is missing for any line.",
         lacksColumn},
        {"The presets are read once, and without the family's name they are those for any camera.",
         lacksPresets},
        {"The dialog's overview follows the selected entries; it reads all of them again only when "
         "a preset is applied.",
         overviewOfDialog},
    };
    return all;
}

std::vector<Difference> unexplained(const std::vector<Difference>& differences,
                                    const FormLife& life)
{
    std::vector<Difference> rest;
    std::copy_if(differences.begin(), differences.end(), std::back_inserter(rest),
                 [&](const Difference& difference) {
                     const auto covers = [&](const Remnant& rule) {
                         return rule.covers(difference, life);
                     };
                     return std::none_of(remnants().begin(), remnants().end(), covers);
                 });
    return rest;
}

} // namespace Faults
