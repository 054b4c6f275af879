#include "tests/faults/User.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace Faults {
namespace {

/// "cmbLine2_LineMode" is of line "Line2" and feature "LineMode"; other names have no line.
QString lineOf(const QString& name)
{
    return name.contains('_') ? name.mid(3).section('_', 0, 0) : QString();
}

QString featureOf(const QString& name)
{
    return name.contains('_') ? name.section('_', 1, 1) : name.mid(3);
}

/// Six significant digits, as the calculator writes them.
QString sixDigits(double value)
{
    return QString::number(value, 'g', 6);
}

} // namespace

template <class Widget> Widget* User::usable(const QString& name) const
{
    auto* widget = m_form.findChild<Widget*>(name);
    return widget && widget->isEnabled() && widget->isVisible() ? widget : nullptr;
}

QString User::shownText(const QString& widget) const
{
    if (const auto* box = m_form.findChild<QComboBox*>("cmb" + widget))
        return box->currentText();
    const auto* box = m_form.findChild<QAbstractSpinBox*>("spb" + widget);
    return box ? box->text() : QString();
}

/// A selector without a widget stands where the user cannot see it.
QString User::shownEntry(const QString& selector) const
{
    const QString shown = shownText(selector);
    return shown.isEmpty() ? m_camera.entryOf(selector) : shown;
}

void User::ask(const QString& feature, const QString& value)
{
    const QString selector = m_camera.selectorOf(feature);
    m_asks.push_back({feature, value, selector.isEmpty() ? QString() : shownEntry(selector)});
}

void User::askNumber(const QString& feature, const QString& text)
{
    if (m_camera.fake()[feature.toStdString()].type != ZalFeatureString)
        ask(feature, QString::number(text.toDouble()));
}

void User::askCell(const QString& line, const QString& feature, const QString& value)
{
    m_asks.push_back({"LineSelector", line, QString()});
    m_asks.push_back({feature, value, line});
}

void User::choose(const QString& name, const QString& entry)
{
    auto* box = usable<QComboBox>(name);
    const int index = box ? box->findText(entry) : -1;
    if (index < 0)
        return;
    const QString line = lineOf(name);
    if (line.isEmpty())
        ask(featureOf(name), entry);
    else
        askCell(line, featureOf(name), entry);
    box->setCurrentIndex(index);
}

void User::typeNumber(const QString& name, const QString& number)
{
    auto* box = usable<QAbstractSpinBox>(name);
    if (!box)
        return;
    ask(featureOf(name), number);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, number);
    QTest::keyClick(box, Qt::Key_Return);
}

void User::typeText(const QString& name, const QString& text)
{
    auto* edit = usable<QLineEdit>(name);
    if (!edit)
        return;
    askNumber(featureOf(name), text);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    edit->clearFocus();
}

void User::leave(const QString& name, const QString& expected)
{
    auto* edit = usable<QLineEdit>(name);
    if (!edit)
        return;
    askNumber(featureOf(name), expected);
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_Tab);
    if (auto* next = qobject_cast<QLineEdit*>(QApplication::focusWidget())) {
        askNumber(featureOf(next->objectName()), next->text());
        next->clearFocus();
    }
}

void User::check(const QString& name, bool on)
{
    auto* box = usable<QCheckBox>(name);
    if (!box || box->isChecked() == on)
        return;
    const QString value = on ? "true" : "false";
    const QString line = lineOf(name);
    if (line.isEmpty())
        ask(featureOf(name), value);
    else
        askCell(line, featureOf(name), value);
    QTest::keyClick(box, Qt::Key_Space);
}

void User::press(const QString& name)
{
    auto* button = usable<QPushButton>(name);
    if (!button)
        return;
    ask(featureOf(name), QString());
    button->click();
}

void User::stepDuration(const QString& line, bool up)
{
    auto* box = usable<QAbstractSpinBox>("spb" + line + "_LineDebounceDuration");
    if (!box)
        return;
    const double now = m_camera.fake()["LineDebounceDuration"].stateFor(line.toStdString()).real;
    askCell(line, "LineDebounceDuration", QString::number(up ? now * 2.0 : now * 0.5));
    box->setFocus();
    QTest::keyClick(box, up ? Qt::Key_Up : Qt::Key_Down);
}

void User::switchPwm(bool on)
{
    auto* group = usable<QGroupBox>("grpPWM");
    if (!group || group->isChecked() == on)
        return;
    if (on) {
        ask("TimerTriggerSource", shownEntry("TimerSelector") + "Active");
        ask("TimerTriggerActivation", "FallingEdge");
    }
    group->setChecked(on);
}

void User::typePwm(const QString& name, const QString& number)
{
    auto* edit = usable<QLineEdit>(name);
    if (!edit)
        return;
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, number);
    const double frequency = m_form.findChild<QLineEdit*>("txtPWMFrequency")->text().toDouble();
    const double dutyCycle = m_form.findChild<QLineEdit*>("txtPWMDutyCycle")->text().toDouble();
    if (frequency > 0.0 && dutyCycle > 0.0) {
        const double period = 1e6 / frequency;
        ask("TimerDuration", sixDigits(period * dutyCycle / 100.0));
        ask("TimerDelay", sixDigits(period * (100.0 - dutyCycle) / 100.0));
    }
    QTest::keyClick(edit, Qt::Key_Return);
    edit->clearFocus();
}

void User::unfoldSections()
{
    for (QToolButton* section : m_form.findChildren<QToolButton*>()) {
        if (section->isCheckable())
            section->setChecked(true);
    }
}

void User::hoverOver(const QString& name)
{
    if (auto* widget = m_form.findChild<QWidget*>(name)) {
        QHelpEvent hover(QEvent::ToolTip, QPoint(1, 1), widget->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(widget, &hover);
    }
}

} // namespace Faults
