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

bool isOfTable(const QString& widget)
{
    return widget == "tableWidget" || featureOf(widget).startsWith("Line");
}

bool wasNotFound(const Difference& difference, const FormLife& life)
{
    return difference.actual.endsWith("disabled") &&
           hasFailed(life.whileBuilt, featureOf(difference.widget), {"GetName"});
}

bool lacksLines(const Difference& difference, const FormLife& life)
{
    return isOfTable(difference.widget) &&
           hasFailed(life.whileBuilt, "LineSelector",
                     {"GetName", "GetEnumNames", "IsValueAvailable"});
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
        {"The table gets a row for each line that is available when it is made.", lacksLines},
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
