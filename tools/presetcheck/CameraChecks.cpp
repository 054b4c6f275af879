#include "tools/presetcheck/Checks.h"

#include "features/FeatureManager.h"
#include "tools/presetcheck/Output.h"

#include <algorithm>
#include <string_view>

namespace PresetCheck {

namespace {

/// The object itself where the plugin's parser has the member and ours has not: they differ on half
/// a surrogate pair, and on one key in two notations.
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

/// "<all>" with an entry to end at also serves as a condition: on a camera without the feature
/// there is no entry, so nothing is written.
bool isCondition(const PresetFile::Step& step)
{
    return step.forEveryEntry && !step.lastEntry.isEmpty();
}

/// A setting for every entry is meant for the entries that can take it, so these rules may be
/// broken at some of them.
bool isExcused(const Rule& rule)
{
    const std::string_view id = rule.id;
    return id == Rules::NotWritableNow.id || id == Rules::UnavailableEntry.id;
}

/// Joins what was found at each entry. What is excused counts only if it was found at every one.
void addCommon(const std::vector<Findings>& perEntry, Findings& out)
{
    for (const Findings& found : perEntry) {
        for (const Finding& finding : found.collected()) {
            const auto hasIt = [&](const Findings& other) {
                return other.contains(finding.rule, finding.offset);
            };
            if (!isExcused(finding.rule) || std::all_of(perEntry.begin(), perEntry.end(), hasIt))
                out.add(finding.rule, finding.offset, finding.message);
        }
    }
}

/// Goes through the steps of one preset.
class CameraChecks
{
public:
    CameraChecks(const FeatureManager& camera, Findings& findings)
        : m_camera(camera), m_findings(findings), m_selectors(camera)
    {
    }

    bool check(const PresetFile::Preset& preset, const JsonNode& node);

private:
    /// A step and its places in the file.
    struct Placed
    {
        const PresetFile::Step& step;
        std::size_t keyAt;
        const JsonNode& object;
        const JsonNode& value; ///< The object itself when it has no "#value".
    };

    void checkStep(const PresetFile::Step& step, std::size_t keyAt, const JsonNode& object);
    void checkOneValue(const Placed& placed);
    void checkForEveryEntry(const Placed& placed);
    void checkAtEveryEntry(const Placed& placed);
    void checkWithoutSelector(const Placed& placed);
    bool moveSelector(const QString& selector, const JsonNode& value, const QString& situation,
                      Findings& out);
    void checkDependents(const Placed& placed, const QString& situation, Findings& out);
    void checkDependent(const QString& feature, const JsonNode& value, const QString& situation,
                        Findings& out);
    void checkDependentFacts(const Placed& placed);
    void checkSetting(const QString& feature, const JsonNode& value, const QString& situation,
                      Findings& out);
    void checkCommand(const QString& command, const JsonNode& node);
    QString numberFor(const QString& feature, const QString& text) const;
    bool goesWithSelected(const PresetFile::Step& step) const;
    bool governs(const QString& selector, const QString& feature) const;

    const FeatureManager& m_camera;
    Findings& m_findings;
    SelectorSteps m_selectors;
    /// An earlier setting, other than a selector, may have prepared the camera for the next one.
    bool m_isPrepared = false;
};

bool CameraChecks::check(const PresetFile::Preset& preset, const JsonNode& node)
{
    const PresetFile::Plan plan = PresetFile::planOf(preset.members());
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
    return m_selectors.putBack();
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
        ValueChecks(m_camera, m_findings).checkFacts(feature, placed.value, placed.keyAt);
    if (isSettable && !m_selectors.isSelector(feature)) {
        checkSetting(feature, placed.value, QString(), m_findings);
        checkDependents(placed, QString(), m_findings);
    } else if (isSettable && moveSelector(feature, placed.value, QString(), m_findings)) {
        checkDependents(placed, situationOf(feature, placed.value.text), m_findings);
    } else {
        checkDependentFacts(placed);
    }
}

void CameraChecks::checkForEveryEntry(const Placed& placed)
{
    const QString& feature = placed.step.feature;
    ValueChecks values(m_camera, m_findings);
    if (!values.checkFeature(feature, placed.keyAt)) {
        checkDependentFacts(placed);
    } else if (m_camera.GetDataType(feature) != ZalFeatureEnum) {
        m_findings.add(Rules::AllNoEnumeration, placed.value.at,
                       QStringLiteral("%1 has no entries, so with \"<all>\" nothing is written")
                           .arg(quoted(feature)));
        checkDependentFacts(placed);
    } else {
        const QString& last = placed.step.lastEntry;
        const bool endsWell = last.isEmpty() || values.checkEntry(feature, last, placed.value.at);
        if (m_selectors.isSelector(feature))
            checkAtEveryEntry(placed);
        else
            checkWithoutSelector(placed);
        if (endsWell && !last.isEmpty())
            m_selectors.move(feature, last);
    }
}

void CameraChecks::checkAtEveryEntry(const Placed& placed)
{
    const QString& selector = placed.step.feature;
    const QString before = m_camera.GetStringValue(selector);
    const bool wasPrepared = m_isPrepared;
    bool becomesPrepared = m_isPrepared;
    std::vector<Findings> perEntry;
    const QStringList entries = m_camera.GetAvailableEnumEntries(selector);
    for (const QString& entry : entries) {
        if (!m_selectors.move(selector, entry))
            continue;
        m_isPrepared = wasPrepared;
        checkDependents(placed, situationOf(selector, entry), perEntry.emplace_back());
        becomesPrepared = becomesPrepared || m_isPrepared;
    }
    m_isPrepared = becomesPrepared;
    addCommon(perEntry, m_findings);
    m_selectors.move(selector, before);
}

void CameraChecks::checkWithoutSelector(const Placed& placed)
{
    const QString& feature = placed.step.feature;
    if (!isCondition(placed.step))
        m_findings.add(Rules::AllNoSelector, placed.value.at,
                       QStringLiteral("%1 selects nothing; \"<all>\" writes one entry after the "
                                      "other to it")
                           .arg(quoted(feature)));
    m_isPrepared = true;
    checkDependents(placed, QString(), m_findings);
}

bool CameraChecks::moveSelector(const QString& selector, const JsonNode& value,
                                const QString& situation, Findings& out)
{
    ValueChecks values(m_camera, out);
    if (m_isPrepared)
        values.checkLimits(selector, value, situation);
    else
        values.checkState(selector, value, situation);
    return m_selectors.move(selector, numberFor(selector, value.text));
}

void CameraChecks::checkDependents(const Placed& placed, const QString& situation, Findings& out)
{
    const QString& key = placed.step.feature;
    const bool needsSelected = m_selectors.isSelector(key) && !goesWithSelected(placed.step);
    const QStringList features = placed.step.dependents.keys();
    for (const QString& feature : features) {
        if (feature.startsWith(QLatin1Char('#')))
            continue;
        const JsonNode& node = placeOf(placed.object, feature);
        if (needsSelected && m_camera.GetIsFeatureAvailable(feature) && !governs(key, feature))
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
    if (!ValueChecks(m_camera, out).checkFacts(feature, value, value.keyAt))
        return;
    if (m_selectors.isSelector(feature))
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
            ValueChecks(m_camera, m_findings).checkFacts(feature, node, node.keyAt);
    }
}

void CameraChecks::checkSetting(const QString& feature, const JsonNode& value,
                                const QString& situation, Findings& out)
{
    ValueChecks values(m_camera, out);
    if (m_isPrepared)
        values.checkLimits(feature, value, situation);
    else
        values.checkState(feature, value, situation);
    m_isPrepared = true;
}

void CameraChecks::checkCommand(const QString& command, const JsonNode& node)
{
    if (!m_camera.GetIsFeatureAvailable(command))
        m_findings.add(Rules::UnknownFeature, node.at,
                       QStringLiteral("The camera has no command %1").arg(quoted(command)));
    else if (m_camera.GetDataType(command) != ZalFeatureCommand)
        m_findings.add(
            Rules::ExecuteNoCommand, node.at,
            QStringLiteral("%1 is no command, so it cannot be executed").arg(quoted(command)));
}

QString CameraChecks::numberFor(const QString& feature, const QString& text) const
{
    if (!isLimit(text))
        return text;
    double min = 0.0;
    double max = 0.0;
    m_camera.GetValueRange(feature, &min, &max);
    return QString::number(text == PresetFile::Minimum ? min : max, 'f', 0);
}

/// A timer and the trigger that follows it belong together: where a condition on a selector also
/// sets something that it selects, its other settings are meant to stand there as well.
bool CameraChecks::goesWithSelected(const PresetFile::Step& step) const
{
    const QStringList features = step.dependents.keys();
    return isCondition(step) &&
           std::any_of(features.begin(), features.end(),
                       [&](const QString& feature) { return governs(step.feature, feature); });
}

bool CameraChecks::governs(const QString& selector, const QString& feature) const
{
    QStringList reached = m_camera.GetSelectedFeatures(selector);
    for (int i = 0; i < reached.size() && !reached.contains(feature); ++i) {
        // Selectors may select selectors.
        const QStringList further = m_camera.GetSelectedFeatures(reached.at(i));
        for (const QString& name : further) {
            if (!reached.contains(name))
                reached.append(name);
        }
    }
    return reached.contains(feature);
}

} // namespace

bool checkOnCamera(const FeatureManager& camera, const PresetFile::Preset& preset,
                   const JsonNode& node, Findings& findings)
{
    return CameraChecks(camera, findings).check(preset, node);
}

SelectorSteps::SelectorSteps(const FeatureManager& camera) : m_camera(camera) {}

SelectorSteps::~SelectorSteps()
{
    putBack();
}

bool SelectorSteps::isSelector(const QString& feature) const
{
    return !m_camera.GetSelectedFeatures(feature).isEmpty();
}

bool SelectorSteps::move(const QString& selector, const QString& value)
{
    if (!isSelector(selector))
        return false;
    const QString before = valueOf(selector);
    if (before == value)
        return true;
    if (!m_camera.GetIsWritable(selector))
        return false;
    m_moves.push_back({selector, before});
    return write(selector, value);
}

bool SelectorSteps::putBack()
{
    bool done = true;
    for (; !m_moves.empty(); m_moves.pop_back())
        done = write(m_moves.back().selector, m_moves.back().before) && done;
    return done;
}

QString SelectorSteps::valueOf(const QString& selector) const
{
    return m_camera.GetDataType(selector) == ZalFeatureInteger
               ? QString::number(m_camera.GetValue(selector), 'f', 0)
               : m_camera.GetStringValue(selector);
}

bool SelectorSteps::write(const QString& selector, const QString& value) const
{
    if (m_camera.GetDataType(selector) == ZalFeatureInteger)
        return m_camera.SetValue(selector, value.toDouble()) == value.toDouble();
    return m_camera.SetValue(selector, value) == value;
}

} // namespace PresetCheck
