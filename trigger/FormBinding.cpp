#include "trigger/FormBinding.h"

#include "features/FeatureManager.h"
#include "features/NumberConversions.h"
#include "trigger/NumberInput.h"
#include "trigger/TypedText.h"
#include "widgets/FeatureComboBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>

#include <algorithm>

namespace {

/// Selectors first: what the others show depends on them.
QStringList inRefreshOrder(QStringList features)
{
    std::stable_partition(features.begin(), features.end(), [](const QString& feature) {
        return feature.contains(QLatin1String("Selector"));
    });
    return features;
}

QRegularExpression namesBoundTo(const QString& feature)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(
        QStringLiteral("[a-z]{3}") + QRegularExpression::escape(feature)));
}

} // namespace

FormBinding::FormBinding(const FeatureManager& features, BoundForm form)
    : m_features(features), m_display(features), m_form(std::move(form))
{
}

// Binding, one pass for each class of widget.

void FormBinding::bindAll(const QStringList& exemptWidgets) const
{
    bindComboBoxes(exemptWidgets);
    bindLineEdits(exemptWidgets);
    bindDoubleSpinBoxes(exemptWidgets);
    bindSpinBoxes(exemptWidgets);
    bindCheckBoxes(exemptWidgets);
    bindButtons(exemptWidgets);
}

bool FormBinding::disableUnlessAvailable(QWidget& widget, const QStringList& exemptWidgets) const
{
    const QString objectName = widget.objectName();
    const bool available = m_features.GetIsFeatureAvailable(boundFeatureName(objectName));
    if (!available && !exemptWidgets.contains(objectName))
        widget.setEnabled(false);
    return available;
}

void FormBinding::bindComboBoxes(const QStringList& exemptWidgets) const
{
    for (QComboBox* box : m_form.widget.findChildren<QComboBox*>()) {
        box->setFocusPolicy(Qt::StrongFocus);
        m_form.filterEventsOf(*box);
        if (disableUnlessAvailable(*box, exemptWidgets))
            bind(*box, boundFeatureName(box->objectName()));
    }
}

void FormBinding::bind(QComboBox& box, const QString& feature) const
{
    m_form.addFeature(feature);
    showFeatureInComboBox(m_features, feature, box, false);
    m_form.connectEdits(box, SIGNAL(currentTextChanged(const QString&)), m_form.editSlots.comboBox);
}

void FormBinding::bindLineEdits(const QStringList& exemptWidgets) const
{
    for (QLineEdit* edit : m_form.widget.findChildren<QLineEdit*>()) {
        if (edit->objectName() == QLatin1String("qt_spinbox_lineedit"))
            continue;
        m_form.filterEventsOf(*edit);
        if (disableUnlessAvailable(*edit, exemptWidgets))
            bind(*edit, boundFeatureName(edit->objectName()));
    }
}

void FormBinding::bind(QLineEdit& edit, const QString& feature) const
{
    m_form.addFeature(feature);
    const bool writable = m_features.GetIsWritable(feature);
    const QString text = m_display.text(feature).value_or(QString());
    if (writable && !m_display.isText(feature))
        edit.setValidator(m_display.newValidator(feature, &edit));
    edit.setText(text);
    edit.setEnabled(writable);
    m_form.connectEdits(edit, SIGNAL(editingFinished()), m_form.editSlots.lineEdit);
    TypedText::watch(edit);
}

void FormBinding::bindDoubleSpinBoxes(const QStringList& exemptWidgets) const
{
    for (QDoubleSpinBox* box : m_form.widget.findChildren<QDoubleSpinBox*>()) {
        if (disableUnlessAvailable(*box, exemptWidgets))
            bind(*box, boundFeatureName(box->objectName()));
    }
}

void FormBinding::bind(QDoubleSpinBox& box, const QString& feature) const
{
    box.setFocusPolicy(Qt::StrongFocus);
    m_form.filterEventsOf(box);
    m_form.addFeature(feature);
    show(box, feature);
    box.setEnabled(m_features.GetIsWritable(feature));
    m_form.connectEdits(box, SIGNAL(valueChanged(double)), m_form.editSlots.doubleSpinBox);
    NumberInput::limit(box);
    TypedText::watch(box);
}

void FormBinding::bindSpinBoxes(const QStringList& exemptWidgets) const
{
    for (QSpinBox* box : m_form.widget.findChildren<QSpinBox*>()) {
        if (disableUnlessAvailable(*box, exemptWidgets))
            bind(*box, boundFeatureName(box->objectName()));
    }
}

void FormBinding::bind(QSpinBox& box, const QString& feature) const
{
    box.setFocusPolicy(Qt::StrongFocus);
    m_form.filterEventsOf(box);
    m_form.addFeature(feature);
    // Asked first, unlike above, because the order of the camera calls is defined.
    box.setEnabled(m_features.GetIsWritable(feature));
    show(box, feature);
    m_form.connectEdits(box, SIGNAL(valueChanged(int)), m_form.editSlots.spinBox);
    NumberInput::limit(box);
    TypedText::watch(box);
}

void FormBinding::bindCheckBoxes(const QStringList& exemptWidgets) const
{
    for (QCheckBox* box : m_form.widget.findChildren<QCheckBox*>()) {
        m_form.filterEventsOf(*box);
        if (disableUnlessAvailable(*box, exemptWidgets))
            bind(*box, boundFeatureName(box->objectName()));
    }
}

void FormBinding::bind(QCheckBox& box, const QString& feature) const
{
    m_form.addFeature(feature);
    show(box, feature);
    box.setEnabled(m_features.GetIsWritable(feature));
    m_form.connectEdits(box, SIGNAL(stateChanged(int)), m_form.editSlots.checkBox);
}

void FormBinding::bindButtons(const QStringList& exemptWidgets) const
{
    for (QPushButton* button : m_form.widget.findChildren<QPushButton*>()) {
        const QString feature = boundFeatureName(button->objectName());
        m_form.filterEventsOf(*button);
        if (disableUnlessAvailable(*button, exemptWidgets)) {
            button->setEnabled(m_features.GetIsWritable(feature));
            QObject::connect(button, SIGNAL(clicked()), &m_form.widget, m_form.editSlots.command);
        }
        // Return in a field of a dialog finishes that field; it must not press a button as well.
        button->setAutoDefault(false);
        // By the source alone, whether or not the camera has the command or lets it run now.
        if (feature == QLatin1String("TriggerSoftware"))
            button->setEnabled(isSoftwareTriggered());
    }
}

// Showing values, for the first time and after every change.

double FormBinding::show(QDoubleSpinBox& box, const QString& feature) const
{
    const TypedText::Keeper typed(box);
    const FeatureRange range = m_display.range(feature);
    box.setRange(range.min, range.max);
    const double value = m_display.number(feature);
    box.setValue(value);
    return value;
}

double FormBinding::show(QSpinBox& box, const QString& feature) const
{
    const TypedText::Keeper typed(box);
    const FeatureRange range = m_display.range(feature);
    box.setRange(NumberConversions::toInt(range.min), NumberConversions::toInt(range.max));
    const double value = m_display.number(feature);
    box.setValue(NumberConversions::toInt(value));
    return value;
}

double FormBinding::show(QCheckBox& box, const QString& feature) const
{
    const double value = m_display.number(feature);
    box.setChecked(FeatureDisplay::isOn(value));
    return value;
}

bool FormBinding::isSoftwareTriggered() const
{
    return m_features.GetStringValue(QStringLiteral("TriggerSource")) == QLatin1String("Software");
}

void FormBinding::refresh(const QStringList& changedFeatures, const Report& report) const
{
    const QStringList changed = inRefreshOrder(changedFeatures);
    const bool sourceChanged = changed.contains(QLatin1String("TriggerSource"));
    for (const QString& feature : changed) {
        refreshFeature(feature, report);
        // After each one: a refresh of the button's own feature enables it by writability alone.
        if (sourceChanged)
            refreshSoftwareButton();
    }
}

void FormBinding::refreshSoftwareButton() const
{
    if (auto* button = m_form.widget.findChild<QPushButton*>(QStringLiteral("btnTriggerSoftware")))
        button->setEnabled(isSoftwareTriggered());
}

void FormBinding::refreshFeature(const QString& feature, const Report& report) const
{
    const auto widgets = m_form.widget.findChildren<QWidget*>(namesBoundTo(feature));
    for (QWidget* widget : widgets) {
        const QVariant value = refreshWidget(*widget, feature);
        if (value.isValid())
            report(feature, value);
    }
    // LineStatus differs from line to line; a value without its line would mislead.
    if (widgets.isEmpty() && feature != QLatin1String("LineStatus"))
        report(feature, m_display.value(feature));
}

/// The value shown; invalid where the widget shows none. Goes by the exact class: a subclass of a
/// form widget looks after itself.
QVariant FormBinding::refreshWidget(QWidget& widget, const QString& feature) const
{
    // Showing a value must not write it back to the camera.
    const QSignalBlocker silence(&widget);
    const QLatin1String className(widget.metaObject()->className());
    QVariant value;
    if (className == QLatin1String("QComboBox"))
        return refreshComboBox(static_cast<QComboBox&>(widget), feature);
    if (className == QLatin1String("QLineEdit"))
        value = refreshLineEdit(static_cast<QLineEdit&>(widget), feature);
    else if (className == QLatin1String("QSpinBox"))
        value = show(static_cast<QSpinBox&>(widget), feature);
    else if (className == QLatin1String("QDoubleSpinBox"))
        value = show(static_cast<QDoubleSpinBox&>(widget), feature);
    else if (className == QLatin1String("QCheckBox"))
        value = show(static_cast<QCheckBox&>(widget), feature);
    else if (className != QLatin1String("QPushButton"))
        return value;
    const bool writable = m_features.GetIsWritable(feature);
    TypedText::setEnabled(widget, writable);
    if (auto* edit = qobject_cast<QLineEdit*>(&widget); edit && writable)
        limitLate(*edit, feature);
    return value;
}

QVariant FormBinding::refreshComboBox(QComboBox& box, const QString& feature) const
{
    showFeatureInComboBox(m_features, feature, box, false);
    return box.currentText();
}

QVariant FormBinding::refreshLineEdit(QLineEdit& edit, const QString& feature) const
{
    const auto text = m_display.text(feature);
    if (!text)
        return QVariant();
    TypedText::show(edit, *text);
    return *text;
}

/// A camera that told no limits when the form was bound may tell them by now. Unknown limits, or
/// those of a text that was taken for a number, would let nothing be typed; without a validator, a
/// text that is no number would be written as 0.
void FormBinding::limitLate(QLineEdit& edit, const QString& feature) const
{
    const auto* limits = qobject_cast<const QDoubleValidator*>(edit.validator());
    if (edit.validator() && !(limits && limits->bottom() == NumberInput::UnknownLimit))
        return;
    const bool isText = m_display.isText(feature);
    if (!isText && !m_display.knowsLimits(feature)) {
        if (!limits)
            edit.setValidator(FeatureDisplay::newOpenValidator(&edit));
        return;
    }
    delete limits;
    if (!isText)
        edit.setValidator(m_display.newValidator(feature, &edit));
}

// Writing the user's changes to the camera and showing what the camera made of them.

double FormBinding::write(const QWidget& widget, double value) const
{
    return m_features.SetValue(boundFeatureName(widget.objectName()), value);
}

void FormBinding::editComboBox(QObject* sender, const QString& text) const
{
    editBoundWidget<QComboBox>(sender, [&](QComboBox& box) {
        box.setCurrentText(m_features.SetValue(boundFeatureName(box.objectName()), text));
    });
}

void FormBinding::editLine(QObject* sender) const
{
    editBoundWidget<QLineEdit>(sender, [&](QLineEdit& edit) {
        const QString feature = boundFeatureName(edit.objectName());
        // Always parsed as a decimal number: a hexadecimal entry, or a text, counts as 0.
        const double taken = m_features.SetValue(feature, edit.text().toDouble());
        if (m_features.GetIsReadable(feature))
            edit.setText(FeatureDisplay::numberText(taken));
    });
}

void FormBinding::editSpinBox(QObject* sender, int value) const
{
    editBoundWidget<QSpinBox>(
        sender, [&](QSpinBox& box) { box.setValue(NumberConversions::toInt(write(box, value))); });
}

void FormBinding::editDoubleSpinBox(QObject* sender, double value) const
{
    editBoundWidget<QDoubleSpinBox>(sender,
                                    [&](QDoubleSpinBox& box) { box.setValue(write(box, value)); });
}

void FormBinding::editCheckBox(QObject* sender, int state) const
{
    editBoundWidget<QCheckBox>(sender, [&](QCheckBox& box) {
        // The check state itself is written: a checked box writes 2, not 1.
        box.setChecked(FeatureDisplay::isOn(write(box, state)));
    });
}

void FormBinding::runCommand(const QObject* sender) const
{
    if (!sender)
        return;
    const QString feature = boundFeatureName(sender->objectName());
    if (!m_features.RunCommand(feature))
        qWarning("Error executing command '%s'", qUtf8Printable(feature));
}
