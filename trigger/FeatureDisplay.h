// How a form shows what a camera has.
#pragma once

#include "features/FeatureManager.h"

#include <QString>
#include <QVariant>

#include <optional>

class QObject;
class QValidator;

/// Limits of a number and the step between its values; -1 for a feature that has none.
struct SteppedRange
{
    FeatureRange limits;
    double step = -1.0;
};

/// Value and limits of features as text, as number and as validator: all that forms and the table
/// of lines show of them but the entries of combo boxes. Reads only, and keeps nothing: each
/// question asks the camera.
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
    /// The value of a number, as spin boxes, check boxes and lamps show it; -1 for any other, and
    /// where it cannot be read.
    double number(const QString& feature) const;
    /// Whether a number checks a box or lights a lamp: anything but 0 does.
    static bool isOn(double number) { return number != 0.0; }
    /// The value as a line edit shows it, hexadecimal where the camera wants it so; nothing while
    /// the feature cannot be read.
    std::optional<QString> text(const QString& feature) const;

    /// All digits that tell the number from its neighbours, and no more: 4294967295, 0.1.
    static QString numberText(double value);

    // For numbers only: a text, or an entry, counts as a number whose limits are not known.

    /// The limits. Where the camera tells none, the minimum is -1, and so is the maximum unless an
    /// increment changes it.
    SteppedRange steppedRange(const QString& feature) const;
    /// The same for the widgets of a form, which step as the form says.
    FeatureRange range(const QString& feature) const;
    /// Whether a validator would let something be typed: limits that are not known do not, except
    /// where digits are hexadecimal.
    bool knowsLimits(const QString& feature) const;
    /// What limits the typing to what can be written; for that field, which owns it.
    QValidator* newValidator(const QString& feature, QObject* field) const;
    /// The same while the limits are not known.
    static QValidator* newOpenValidator(QObject* field);

private:
    bool isHexadecimal(const QString& feature) const;

    const FeatureManager& m_features;
};
