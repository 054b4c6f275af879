#pragma once

#include "trigger/PresetFile.h"

#include <QCoreApplication>
#include <QString>
#include <QVariant>

class FeatureManager;
struct FeatureRange;
template <typename T> struct Written;

/// Applies the plan of a preset to a camera, without a form and without a message: what went wrong
/// is the result. A setting that fails stops nothing but what depends on it.
///
/// GUI thread only, like the features.
class PresetRunner
{
    // The catalogues know the engine's texts by the name of its class, whichever part shows them.
    Q_DECLARE_TR_FUNCTIONS(AdvTriggerBase)

public:
    /// The features must outlive the runner.
    explicit PresetRunner(const FeatureManager& featureManager);

    /// Does the steps in their order, then the command. Returns the error text, one line for each
    /// setting that the camera did not take; empty when there is none.
    QString run(const PresetFile::Plan& plan);

    /// Whether the last run left a selector at another entry than the plan says, since the camera
    /// did not answer. No preset that starts from there may follow.
    bool leftSelectorAstray() const { return m_selectorAstray; }

    /// The line about one setting. Without a current value where the camera left a question
    /// unanswered.
    static QString errorLine(const QString& feature, const QVariant& value,
                             const QVariant& current = QVariant());

    /// Writes one feature and compares what the camera then has. Numbers are clamped to the
    /// feature's range; "<min>" and "<max>" stand for its limits. Returns a line of error text, or
    /// nothing on success and where the camera lacks the feature or does not let it be written. A
    /// question that the camera left unanswered is a line as well, without a current value, and
    /// then nothing is written that rests on it.
    QString SetFeatureValue(const QString& feature, const QVariant& value) const;

private:
    /// What became of one setting.
    struct Outcome
    {
        QString error;           ///< Empty for none.
        bool unanswered = false; ///< The camera left a question or the write unanswered.

        bool isLost() const { return unanswered && !error.isEmpty(); }
    };
    struct Wish
    {
        QString feature;
        QVariant value;     ///< As the preset says it.
        QVariant requested; ///< As it was sent to the camera.
    };

    QString runOnce(const PresetFile::Step& step);
    QString runForEveryEntry(const PresetFile::Step& step);
    QString writeDependents(const PresetFile::Step& step, const QString& errorOfValue) const;
    QString putBack(const QString& feature, const QString& entry);
    Outcome write(const QString& feature, const QVariant& value) const;
    Outcome writeNumber(const QString& feature, const QVariant& value) const;
    static double withinRange(const QVariant& value, const FeatureRange& range);
    template <typename T> static Outcome compared(const Wish& wish, const Written<T>& written);

    const FeatureManager& m_features;
    bool m_selectorAstray = false;
};
