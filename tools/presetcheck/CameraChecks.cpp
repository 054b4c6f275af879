#include "tools/presetcheck/CameraChecks.h"

#include "features/FeatureManager.h"
#include "tools/presetcheck/Placeholders.h"
#include "tools/presetcheck/ValueChecks.h"

#include <algorithm>
#include <cstring>

namespace PresetCheck {

namespace {

/// The object itself where the two parsers differ: on half a surrogate pair, or on one key in two
/// notations.
const JsonNode& placeOf(const JsonNode& object, const QString& key)
{
    const JsonNode* member = object.member(key);
    return member ? *member : object;
}

const JsonNode& elementOf(const JsonNode& member, std::size_t element)
{
    const bool isInList = member.kind == JsonNode::Kind::Array && element < member.children.size();
    return isInList ? member.children[element] : member;
}

QString situationOf(const QString& selector, const QString& entry)
{
    return QStringLiteral(" with %1 at %2").arg(selector, entry);
}

/// "<all>" with the entry to end at is also how settings are written only on a camera that has the
/// feature: without entries there is no turn in which to write them.
bool isCondition(const PresetFile::Step& step)
{
    return step.forEveryEntry && !step.lastEntry.isEmpty();
}

/// A setting for every entry is meant for those that can take it.
bool isPassing(const Rule& rule)
{
    return std::strcmp(rule.id, Rules::NotWritableNow.id) == 0 ||
           std::strcmp(rule.id, Rules::UnavailableEntry.id) == 0;
}

/// What was found at all entries together: what passes counts only where no entry is without it.
void addCommon(const std::vector<Findings>& perEntry, Findings& out)
{
    for (const Findings& found : perEntry) {
        for (const Finding& finding : found.collected()) {
            const auto hasIt = [&](const Findings& other) {
                return other.contains(finding.rule, finding.offset);
            };
            if (!isPassing(finding.rule) || std::all_of(perEntry.begin(), perEntry.end(), hasIt))
                out.add(finding.rule, finding.offset, finding.message);
        }
    }
}

} // namespace

CameraChecks::CameraChecks(const FeatureManager& manager, Findings& collected)
    : camera(manager), findings(collected), selectors(manager)
{
}

bool CameraChecks::check(const PresetFile::Preset& preset, const JsonNode& node)
{
    isPrepared = false;
    const PresetFile::Plan plan = PresetFile::PlanOf(preset.members());
    std::size_t element = 0;
    const QString* previous = nullptr;
    for (const PresetFile::Step& step : plan.steps) {
        // The steps of a list follow each other.
        element = previous && *previous == step.feature ? element + 1 : 0;
        previous = &step.feature;
        const JsonNode& member = placeOf(node, step.feature);
        if (!step.feature.startsWith(QLatin1Char('#')))
            checkStep(step, member.keyAt, elementOf(member, element));
    }
    if (!plan.command.isEmpty())
        checkCommand(plan.command, placeOf(node, PresetFile::CommandKey));
    return selectors.putBack();
}

void CameraChecks::checkStep(const PresetFile::Step& step, std::size_t keyAt,
                             const JsonNode& object)
{
    const Placed placed{step, keyAt, object, placeOf(object, PresetFile::ValueKey)};
    if (step.forEveryEntry)
        checkForEveryEntry(placed);
    else
        checkOneValue(placed);
}

void CameraChecks::checkOneValue(const Placed& placed)
{
    const QString& feature = placed.step.feature;
    const bool isSettable =
        ValueChecks(camera, findings).checkFacts(feature, placed.value, placed.keyAt);
    if (isSettable && !selectors.isSelector(feature)) {
        checkSetting(feature, placed.value, QString(), findings);
        checkDependents(placed, QString(), findings);
    } else if (isSettable && moveSelector(feature, placed.value, QString(), findings)) {
        checkDependents(placed, situationOf(feature, placed.value.text), findings);
    } else {
        checkDependentFacts(placed);
    }
}

void CameraChecks::checkForEveryEntry(const Placed& placed)
{
    const QString& feature = placed.step.feature;
    ValueChecks values(camera, findings);
    if (!values.checkFeature(feature, placed.keyAt)) {
        checkDependentFacts(placed);
    } else if (camera.GetDataType(feature) != ZalFeatureEnum) {
        findings.add(Rules::AllNoEnumeration, placed.value.at,
                     QStringLiteral("%1 has no entries, so with \"<all>\" nothing is written")
                         .arg(quoted(feature)));
        checkDependentFacts(placed);
    } else {
        const QString& last = placed.step.lastEntry;
        const bool endsWell = last.isEmpty() || values.checkEntry(feature, last, placed.value.at);
        if (selectors.isSelector(feature))
            checkAtEveryEntry(placed);
        else
            checkWithoutSelector(placed);
        if (endsWell && !last.isEmpty())
            selectors.move(feature, last);
    }
}

void CameraChecks::checkAtEveryEntry(const Placed& placed)
{
    const QString& selector = placed.step.feature;
    const QString before = camera.GetStringValue(selector);
    const bool wasPrepared = isPrepared;
    bool becomesPrepared = isPrepared;
    std::vector<Findings> perEntry;
    const QStringList entries = camera.GetAvailableEnumEntries(selector);
    for (const QString& entry : entries) {
        if (!selectors.move(selector, entry))
            continue;
        isPrepared = wasPrepared;
        checkDependents(placed, situationOf(selector, entry), perEntry.emplace_back());
        becomesPrepared = becomesPrepared || isPrepared;
    }
    isPrepared = becomesPrepared;
    addCommon(perEntry, findings);
    selectors.move(selector, before);
}

void CameraChecks::checkWithoutSelector(const Placed& placed)
{
    const QString& feature = placed.step.feature;
    if (!isCondition(placed.step))
        findings.add(Rules::AllNoSelector, placed.value.at,
                     QStringLiteral("%1 selects nothing; \"<all>\" writes one entry after the "
                                    "other to it")
                         .arg(quoted(feature)));
    isPrepared = true;
    checkDependents(placed, QString(), findings);
}

bool CameraChecks::moveSelector(const QString& selector, const JsonNode& value,
                                const QString& situation, Findings& out)
{
    ValueChecks values(camera, out);
    if (isPrepared)
        values.checkLimits(selector, value, situation);
    else
        values.checkState(selector, value, situation);
    return selectors.move(selector, numberFor(selector, value.text));
}

void CameraChecks::checkDependents(const Placed& placed, const QString& situation, Findings& out)
{
    const QString& key = placed.step.feature;
    const bool needsSelected = selectors.isSelector(key) && !goesWithSelected(placed.step);
    const QStringList features = placed.step.dependents.keys();
    for (const QString& feature : features) {
        if (feature.startsWith(QLatin1Char('#')))
            continue;
        const JsonNode& node = placeOf(placed.object, feature);
        if (needsSelected && camera.GetIsFeatureAvailable(feature) && !governs(key, feature))
            out.add(
                Rules::NotSelected, node.keyAt,
                QStringLiteral("%1 is not selected by %2 and has one value for all of its entries")
                    .arg(quoted(feature), quoted(key)));
        checkDependent(feature, node, situation, out);
    }
}

void CameraChecks::checkDependent(const QString& feature, const JsonNode& value,
                                  const QString& situation, Findings& out)
{
    if (!ValueChecks(camera, out).checkFacts(feature, value, value.keyAt))
        return;
    if (selectors.isSelector(feature))
        moveSelector(feature, value, situation, out);
    else
        checkSetting(feature, value, situation, out);
}

void CameraChecks::checkDependentFacts(const Placed& placed)
{
    const QStringList features = placed.step.dependents.keys();
    for (const QString& feature : features) {
        const JsonNode& node = placeOf(placed.object, feature);
        if (!feature.startsWith(QLatin1Char('#')))
            ValueChecks(camera, findings).checkFacts(feature, node, node.keyAt);
    }
}

void CameraChecks::checkSetting(const QString& feature, const JsonNode& value,
                                const QString& situation, Findings& out)
{
    ValueChecks values(camera, out);
    if (isPrepared)
        values.checkLimits(feature, value, situation);
    else
        values.checkState(feature, value, situation);
    isPrepared = true;
}

void CameraChecks::checkCommand(const QString& command, const JsonNode& node)
{
    if (!camera.GetIsFeatureAvailable(command))
        findings.add(Rules::UnknownFeature, node.at,
                     QStringLiteral("The camera has no command %1").arg(quoted(command)));
    else if (camera.GetDataType(command) != ZalFeatureCommand)
        findings.add(
            Rules::ExecuteNoCommand, node.at,
            QStringLiteral("%1 is no command, so it cannot be executed").arg(quoted(command)));
}

QString CameraChecks::numberFor(const QString& feature, const QString& text) const
{
    if (!Placeholders::isLimit(text))
        return text;
    double min = 0.0;
    double max = 0.0;
    camera.GetValueRange(feature, &min, &max);
    return QString::number(text == Placeholders::Min ? min : max, 'f', 0);
}

/// A timer and the trigger that follows it are one thing: where the condition is about a selector
/// and sets something of its entries, the rest is meant to go with it.
bool CameraChecks::goesWithSelected(const PresetFile::Step& step) const
{
    const QStringList features = step.dependents.keys();
    return isCondition(step) &&
           std::any_of(features.begin(), features.end(),
                       [&](const QString& feature) { return governs(step.feature, feature); });
}

bool CameraChecks::governs(const QString& selector, const QString& feature) const
{
    QStringList reached = camera.GetSelectedFeatures(selector);
    for (int i = 0; i < reached.size() && !reached.contains(feature); ++i) {
        // Selectors may select selectors.
        const QStringList further = camera.GetSelectedFeatures(reached.at(i));
        for (const QString& name : further) {
            if (!reached.contains(name))
                reached.append(name);
        }
    }
    return reached.contains(feature);
}

} // namespace PresetCheck
