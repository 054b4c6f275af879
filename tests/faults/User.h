#pragma once

#include "tests/faults/Ledger.h"

#include <QWidget>

#include <vector>

namespace Faults {

/// Who sits before the tab or the dialog. Each action is one that the form lets a user do, and asks
/// for the writes that this user expects of it; a widget that is disabled or lacks the wanted entry
/// is left alone.
class User
{
public:
    User(QWidget& usedForm, std::vector<Ask>& askedFor, const FaultyCamera& usedCamera)
        : m_form(usedForm), m_asks(askedFor), m_camera(usedCamera)
    {
    }

    /// Chooses an entry of a combo box, of a form or of the table ("cmbLine2_LineMode").
    void choose(const QString& box, const QString& entry);
    /// Types a number into a spin box and presses Return.
    void typeNumber(const QString& box, const QString& number);
    /// Types into a line edit and presses Return.
    void typeText(const QString& edit, const QString& text);
    /// Goes into a line edit that should show `expected`, and leaves it and the next one by the tab
    /// key.
    void leave(const QString& edit, const QString& expected);
    void check(const QString& box, bool on);
    /// Runs the command of a push button.
    void press(const QString& button);
    /// One step of a line's debounce duration.
    void stepDuration(const QString& line, bool up);
    void switchPwm(bool on);
    /// Types into one of the fields of the calculator; the other one says the rest.
    void typePwm(const QString& edit, const QString& number);
    void unfoldSections();
    void hoverOver(const QString& widget);

private:
    /// Null when the form has none that can be used now.
    template <class Widget> Widget* usable(const QString& name) const;
    /// Asks for a value of a feature under the entry that the form shows for its selector.
    void ask(const QString& feature, const QString& value);
    /// Asks for what finishing a line edit writes: a text that is no decimal number counts as 0,
    /// and a feature with a text is not written.
    void askNumber(const QString& feature, const QString& text);
    void askCell(const QString& line, const QString& feature, const QString& value);
    QString shownEntry(const QString& selector) const;
    QString shownText(const QString& widget) const;

    QWidget& m_form;
    std::vector<Ask>& m_asks;
    const FaultyCamera& m_camera;
};

} // namespace Faults
