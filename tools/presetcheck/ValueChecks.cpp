#include "tools/presetcheck/Checks.h"

#include "features/FeatureManager.h"
#include "tools/presetcheck/Output.h"

#include <algorithm>
#include <cmath>

namespace PresetCheck {

namespace {

using Kind = JsonNode::Kind;

bool isKnownToBeWrong(const JsonNode& value)
{
    return !value.isPlain() || value.text.startsWith(PresetFile::EveryEntry) ||
           isUnknownPlaceholder(value.text);
}

bool isNumber(const JsonNode& value)
{
    bool ok = false;
    const double number = value.text.toDouble(&ok);
    return value.kind != Kind::Bool && ok && std::isfinite(number);
}

/// The plugin takes every other text for true.
bool isBool(const JsonNode& value)
{
    static const QStringList texts = {QStringLiteral("true"), QStringLiteral("false"),
                                      QStringLiteral("1"), QStringLiteral("0")};
    return value.kind != Kind::Text || texts.contains(value.text.toLower());
}

bool isMultiple(double value, double step)
{
    const double steps = value / step;
    return std::abs(steps - std::round(steps)) < 1e-9 * std::max(1.0, std::abs(steps));
}

/// A number as text, without the digits that come from rounding.
QString shown(double value)
{
    return QString::number(value, 'g', 15);
}

} // namespace

ValueChecks::ValueChecks(const FeatureManager& camera, Findings& findings)
    : m_camera(camera), m_findings(findings)
{
}

bool ValueChecks::checkFacts(const QString& feature, const JsonNode& value, std::size_t featureAt)
{
    return checkFeature(feature, featureAt) && !isKnownToBeWrong(value) &&
           checkType(feature, value);
}

bool ValueChecks::checkFeature(const QString& feature, std::size_t at)
{
    const ZalFeatureWrapperPtr wrapper = m_camera.GetFeatureByName(feature);
    if (!wrapper) {
        m_findings.add(Rules::UnknownFeature, at,
                       QStringLiteral("The camera has no feature %1; the plugin skips it")
                           .arg(quoted(feature)));
        return false;
    }
    ZalFeatureFlagsType flags = ZalFeatureFlagsNone;
    wrapper->GetFlags(flags);
    if (FeatureManager::GetDataType(wrapper) == ZalFeatureCommand) {
        m_findings.add(Rules::NotSettable, at,
                       QStringLiteral("%1 is a command and takes no value; \"#execute\" runs one")
                           .arg(quoted(feature)));
        return false;
    }
    if ((flags & ZalFeatureFlagsWrite) == 0) {
        m_findings.add(
            Rules::ReadOnly, at,
            QStringLiteral("%1 can only be read; the plugin skips it").arg(quoted(feature)));
        return false;
    }
    return true;
}

bool ValueChecks::checkType(const QString& feature, const JsonNode& value)
{
    const bool isText = value.kind == Kind::Text && !isLimit(value.text);
    switch (m_camera.GetDataType(feature)) {
    case ZalFeatureInteger:
    case ZalFeatureFloat:
        return expect(isNumber(value) || isLimit(value.text), feature, value,
                      QStringLiteral("a number, \"<min>\" or \"<max>\""));
    case ZalFeatureBool:
        return expect(isBool(value), feature, value, QStringLiteral("true or false"));
    case ZalFeatureEnum:
        return expect(isText, feature, value, QStringLiteral("the name of an entry")) &&
               checkEntry(feature, value.text, value.at);
    case ZalFeatureString:
        return expect(isText, feature, value, QStringLiteral("a text"));
    default:
        m_findings.add(
            Rules::NotSettable, value.at,
            QStringLiteral("%1 is of a kind that presets cannot set").arg(quoted(feature)));
        return false;
    }
}

bool ValueChecks::expect(bool fits, const QString& feature, const JsonNode& value,
                         const QString& wanted)
{
    if (!fits)
        m_findings.add(Rules::WrongType, value.at,
                       QStringLiteral("%1 takes %2, not %3")
                           .arg(quoted(feature), wanted,
                                value.kind == Kind::Text ? quoted(value.text) : value.text));
    return fits;
}

bool ValueChecks::checkEntry(const QString& feature, const QString& entry, std::size_t at)
{
    const ZalFeatureWrapperPtr wrapper = m_camera.GetFeatureByName(feature);
    const QStringList entries = wrapper ? FeatureManager::GetEnumEntries(wrapper) : QStringList();
    if (entries.contains(entry))
        return true;
    m_findings.add(Rules::UnknownEntry, at,
                   QStringLiteral("%1 has no entry %2; it has %3")
                       .arg(quoted(feature), quoted(entry), entries.join(QStringLiteral(", "))));
    return false;
}

void ValueChecks::checkState(const QString& feature, const JsonNode& value,
                             const QString& situation)
{
    if (!m_camera.GetIsWritable(feature)) {
        m_findings.add(
            Rules::NotWritableNow, value.at,
            QStringLiteral("%1 cannot be written at the moment%2; the plugin would skip it")
                .arg(quoted(feature), situation));
        return;
    }
    if (m_camera.GetDataType(feature) == ZalFeatureEnum &&
        !m_camera.GetIsFeatureValueAvailable(feature, value.text))
        m_findings.add(Rules::UnavailableEntry, value.at,
                       QStringLiteral("%1 does not take %2 at the moment%3")
                           .arg(quoted(feature), quoted(value.text), situation));
    checkLimits(feature, value, situation);
}

void ValueChecks::checkLimits(const QString& feature, const JsonNode& value,
                              const QString& situation)
{
    const ZalFeatureDataType type = m_camera.GetDataType(feature);
    const bool isNumeric = type == ZalFeatureInteger || type == ZalFeatureFloat;
    if (isNumeric && isNumber(value) && m_camera.GetIsWritable(feature))
        checkNumber(feature, value, situation);
}

void ValueChecks::checkNumber(const QString& feature, const JsonNode& value,
                              const QString& situation)
{
    double min = 0.0;
    double max = 0.0;
    double step = 0.0;
    m_camera.GetValueRangeIncrement(feature, &min, &max, &step);
    const double number = value.text.toDouble();
    if (number < min || number > max) {
        m_findings.add(Rules::OutOfRange, value.at,
                       QStringLiteral("%1 takes %2 to %3%4; the plugin would write %5")
                           .arg(quoted(feature), shown(min), shown(max), situation,
                                shown(number < min ? min : max)));
        return;
    }
    // A float without an increment takes any number; the manager makes one up for spin boxes.
    const bool isInteger = m_camera.GetDataType(feature) == ZalFeatureInteger;
    if (!isInteger && m_camera.GetIncrement(feature) <= 0.0)
        return;
    // The plugin counts an integer's steps from zero, the camera from its minimum.
    const bool fits = isMultiple(number - min, step) && (!isInteger || isMultiple(number, step));
    if (!fits)
        m_findings.add(Rules::OffIncrement, value.at,
                       QStringLiteral("%1 takes steps of %2%3, which %4 is not on")
                           .arg(quoted(feature), shown(step), situation, shown(number)));
}

} // namespace PresetCheck
