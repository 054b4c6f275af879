// Refreshing the form after the camera reported changes.
#include "features/FeatureManager.h"
#include "trigger/AdvTriggerBase.h"
#include "trigger/TypedText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>

namespace {

/// Selectors first: what the others show depends on them.
QStringList InRefreshOrder(QStringList features)
{
    std::stable_partition(features.begin(), features.end(), [](const QString& feature) {
        return feature.contains(QLatin1String("Selector"));
    });
    return features;
}

QRegularExpression NamesBoundTo(const QString& feature)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(
        QStringLiteral("[a-z]{3}") + QRegularExpression::escape(feature)));
}

} // namespace

void AdvTriggerBase::UpdateInitBase()
{
    const QStringList changed = InRefreshOrder(*m_changedFeatures);
    const bool sourceChanged = changed.contains(QLatin1String("TriggerSource"));
    for (const QString& feature : changed) {
        RefreshFeature(feature);
        // After each one: a refresh of the button's own feature enables it by writability alone.
        if (sourceChanged)
            RefreshSoftwareButton();
    }
}

void AdvTriggerBase::RefreshSoftwareButton()
{
    if (auto* button = findChild<QPushButton*>(QStringLiteral("btnTriggerSoftware")))
        button->setEnabled(IsSoftwareTriggered());
}

void AdvTriggerBase::RefreshFeature(const QString& feature)
{
    const auto widgets = findChildren<QWidget*>(NamesBoundTo(feature));
    for (QWidget* widget : widgets) {
        const QVariant value = RefreshWidget(*widget, feature);
        if (value.isValid())
            emit FeatureChanged(feature, value);
    }
    // LineStatus differs from line to line; a value without its line would mislead.
    if (widgets.isEmpty() && feature != QLatin1String("LineStatus"))
        emit FeatureChanged(feature, ReadFeature(feature));
}

QVariant AdvTriggerBase::ReadFeature(const QString& feature) const
{
    if (IsTextFeature(feature))
        return m_featureManager->GetStringValue(feature);
    return m_featureManager->GetValue(feature);
}

QVariant AdvTriggerBase::RefreshComboBox(QComboBox& box, const QString& feature)
{
    updateComboBox(feature, &box, false);
    return box.currentText();
}

QVariant AdvTriggerBase::RefreshLineEdit(QLineEdit& edit, const QString& feature)
{
    const auto text = ReadableText(feature);
    if (!text)
        return QVariant();
    TypedText::show(edit, *text);
    return *text;
}

/// The value shown; invalid where the widget shows none. Goes by the exact class: a subclass of a
/// form widget looks after itself.
QVariant AdvTriggerBase::RefreshWidget(QWidget& widget, const QString& feature)
{
    // Showing a value must not write it back to the camera.
    const QSignalBlocker silence(&widget);
    const QLatin1String className(widget.metaObject()->className());
    QVariant value;
    if (className == QLatin1String("QComboBox"))
        return RefreshComboBox(static_cast<QComboBox&>(widget), feature);
    if (className == QLatin1String("QLineEdit"))
        value = RefreshLineEdit(static_cast<QLineEdit&>(widget), feature);
    else if (className == QLatin1String("QSpinBox"))
        value = ShowValue(static_cast<QSpinBox&>(widget), feature);
    else if (className == QLatin1String("QDoubleSpinBox"))
        value = ShowValue(static_cast<QDoubleSpinBox&>(widget), feature);
    else if (className == QLatin1String("QCheckBox"))
        value = ShowValue(static_cast<QCheckBox&>(widget), feature);
    else if (className != QLatin1String("QPushButton"))
        return value;
    const bool writable = m_featureManager->GetIsWritable(feature);
    TypedText::setEnabled(widget, writable);
    if (auto* edit = qobject_cast<QLineEdit*>(&widget); edit && writable)
        LimitInputLate(*edit, feature);
    return value;
}
