// How a form shows what a camera has.
#pragma once

#include <QString>
#include <QVariant>

#include <optional>

class FeatureManager;
class QObject;
class QValidator;
struct FeatureRange;

/// Value and limits of features as text, as number and as validator. Reads only, and keeps nothing:
/// each question asks the camera.
///
/// GUI thread only, like the features.
class FeatureDisplay
{
public:
    /// The features must outlive this object.
    explicit FeatureDisplay(const FeatureManager& features);

    /// Whether the feature has a text, or an entry, for a value; all others have a number.
    bool isText(const QString& feature) const;

    /// The value as the camera has it: a text or a number.
    QVariant value(const QString& feature) const;
    /// The value as a line edit shows it, hexadecimal where the camera wants it so; nothing while
    /// the feature cannot be read.
    std::optional<QString> text(const QString& feature) const;

    /// All digits that tell the number from its neighbours, and no more: 4294967295, 0.1.
    static QString numberText(double value);

    /// The limits of a number; -1 where the camera tells none. Without the increment: the steps of
    /// a spin box stay the form's.
    FeatureRange range(const QString& feature) const;
    /// Whether a validator would let something be typed: limits that are not known do not.
    bool knowsLimits(const QString& feature) const;
    /// What limits the typing of a number to what can be written; for that field, which owns it.
    QValidator* newValidator(const QString& feature, QObject* field) const;
    /// The same for a number whose limits are not known.
    static QValidator* newOpenValidator(QObject* field);

private:
    bool isHexadecimal(const QString& feature) const;

    const FeatureManager& m_features;
};
