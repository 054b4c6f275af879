// A form and its widgets, as the parts of the engine know them.
#pragma once

#include <QObject>
#include <QSignalBlocker>
#include <QString>
#include <QWidget>

#include <functional>

/// The feature that a widget of that object name belongs to: the name without the three letters in
/// front, whatever they are.
inline QString boundFeatureName(const QString& objectName)
{
    constexpr int prefixLength = 3;
    return objectName.mid(prefixLength);
}

/// The slots by which a form hears of its user's edits, each as SLOT() writes it. The parts connect
/// to them and know no other name of theirs.
struct EditSlots
{
    const char* comboBox = nullptr;      ///< Takes the text: const QString&.
    const char* lineEdit = nullptr;      ///< Takes nothing; the editing is finished.
    const char* spinBox = nullptr;       ///< Takes the value: int.
    const char* doubleSpinBox = nullptr; ///< Takes the value: double.
    const char* checkBox = nullptr;      ///< Takes the check state: int.
    const char* command = nullptr;       ///< Takes nothing; a button was clicked.
    const char* tableComboBox = nullptr; ///< As above, for the cells of the I/O table.
    const char* tableCheckBox = nullptr;
    const char* tableSpinBox = nullptr; ///< Takes the value: double.
    const char* anyEdit = nullptr;      ///< Takes nothing; after each of the others but `command`.
};

/// The form that a part works for: holds the widgets, sees their events first and hears of the
/// user's edits by its slots.
struct BoundForm
{
    QWidget& widget;
    EditSlots editSlots;
    /// Told of a feature that one of the form's widgets shows from now on.
    std::function<void(const QString& feature)> addFeature;

    void filterEventsOf(QObject& child) const { child.installEventFilter(&widget); }

    /// Each edit goes to the slot, one of `editSlots`, and then to `editSlots.anyEdit`.
    void connectEdits(const QObject& child, const char* signal, const char* slot) const
    {
        QObject::connect(&child, signal, &widget, slot);
        QObject::connect(&child, signal, &widget, editSlots.anyEdit);
    }
};

/// Lets `edit(Widget&)` write what the user changed and show what the camera took. The widget is
/// silent meanwhile, so that showing a value is not taken for the next change. A sender of another
/// class is logged and left alone; without a sender nothing happens.
template <class Widget, class Edit> void editBoundWidget(QObject* sender, const Edit& edit)
{
    if (!sender)
        return;
    auto* widget = qobject_cast<Widget*>(sender);
    if (!widget) {
        qWarning("Error accessing widget '%s'", qUtf8Printable(sender->objectName()));
        return;
    }
    const QSignalBlocker silence(widget);
    edit(*widget);
}
