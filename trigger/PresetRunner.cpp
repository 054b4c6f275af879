#include "trigger/PresetRunner.h"

#include "features/FeatureManager.h"

#include <cmath>

PresetRunner::PresetRunner(const FeatureManager& featureManager) : m_features(featureManager) {}

QString PresetRunner::run(const PresetFile::Plan& plan)
{
    m_selectorAstray = false;
    QString errors;
    for (const PresetFile::Step& step : plan.steps)
        errors += step.forEveryEntry ? runForEveryEntry(step) : runOnce(step);
    if (!plan.command.isEmpty() && !m_features.RunCommand(plan.command))
        errors += tr("  Executing '%1' failed.").arg(plan.command);
    return errors;
}

QString PresetRunner::runOnce(const PresetFile::Step& step)
{
    const Outcome outcome = write(step.feature, step.value);
    if (outcome.isLost() && !m_features.GetSelectedFeatures(step.feature).isEmpty())
        m_selectorAstray = true;
    return writeDependents(step, outcome.error);
}

QString PresetRunner::runForEveryEntry(const PresetFile::Step& step)
{
    const auto entries = m_features.askEnumEntries(step.feature);
    Answer<QString> lastEntry{step.lastEntry};
    if (!step.namesLastEntry)
        lastEntry = m_features.askStringValue(step.feature);
    // Without knowing the way back, leave the feature where it is.
    if (lastEntry.isMissing())
        return errorLine(step.feature, step.value);
    QString errors;
    if (entries.isMissing())
        errors = errorLine(step.feature, step.value);
    for (const OfferedEntry& entry : entries.value) {
        if (entry.available.isMissing())
            errors += errorLine(step.feature, entry.name);
        else if (entry.available.value)
            errors += writeDependents(step, SetFeatureValue(step.feature, entry.name));
    }
    return errors + putBack(step.feature, lastEntry.value);
}

/// A refusal is not reported again: stepping through the entries has shown it. A write that got
/// lost leaves an entry selected that nobody expects, and is worth another attempt.
QString PresetRunner::putBack(const QString& feature, const QString& entry)
{
    if (entry.isEmpty())
        return QString();
    if (!write(feature, entry).isLost())
        return QString();
    const Outcome outcome = write(feature, entry);
    if (!outcome.isLost())
        return QString();
    m_selectorAstray = true;
    return outcome.error;
}

/// Without the value, its dependents would be written under another one.
QString PresetRunner::writeDependents(const PresetFile::Step& step,
                                      const QString& errorOfValue) const
{
    if (!errorOfValue.isEmpty())
        return errorOfValue;
    QString errors;
    for (auto it = step.dependents.begin(); it != step.dependents.end(); ++it)
        errors += SetFeatureValue(it.key(), it.value());
    return errors;
}

QString PresetRunner::SetFeatureValue(const QString& feature, const QVariant& value) const
{
    return write(feature, value).error;
}

PresetRunner::Outcome PresetRunner::write(const QString& feature, const QVariant& value) const
{
    const Answer<bool> writable = m_features.askIsWritable(feature);
    if (writable.isMissing())
        return {errorLine(feature, value), true};
    if (!writable.value)
        return {};
    const Answer<ZalFeatureDataType> type = m_features.askDataType(feature);
    if (type.isMissing())
        return {errorLine(feature, value), true};
    switch (type.value) {
    case ZalFeatureBool:
        return compared({feature, value, value.toBool()},
                        m_features.trySetValue(feature, value.toBool() ? 1.0 : 0.0));
    case ZalFeatureInteger:
    case ZalFeatureFloat:
        return writeNumber(feature, value);
    default:
        return compared({feature, value, value}, m_features.trySetValue(feature, value.toString()));
    }
}

PresetRunner::Outcome PresetRunner::writeNumber(const QString& feature, const QVariant& value) const
{
    const Answer<FeatureRange> range = m_features.askRange(feature);
    if (range.isMissing())
        return {errorLine(feature, value), true};
    const double requested = withinRange(value, range.value);
    // "nan" in a file passes every limit, and cameras do not expect it.
    if (std::isnan(requested))
        return {errorLine(feature, value, m_features.GetValue(feature))};
    return compared({feature, value, requested}, m_features.trySetValue(feature, requested));
}

double PresetRunner::withinRange(const QVariant& value, const FeatureRange& range)
{
    if (value.toString() == PresetFile::Maximum)
        return range.max;
    if (value.toString() == PresetFile::Minimum)
        return range.min;
    const double number = value.toDouble();
    if (number < range.min)
        return range.min;
    return number > range.max ? range.max : number;
}

template <typename T>
PresetRunner::Outcome PresetRunner::compared(const Wish& wish, const Written<T>& written)
{
    const QVariant actual = written.value ? QVariant(*written.value) : QVariant();
    if (written.value && actual == wish.requested)
        return {QString(), written.unanswered};
    return {errorLine(wish.feature, wish.value, actual), written.unanswered};
}

QString PresetRunner::errorLine(const QString& feature, const QVariant& value,
                                const QVariant& current)
{
    return tr("  Failed to set %1 = %2, Current value: '%3'\n")
        .arg(feature, value.toString(), current.toString());
}
