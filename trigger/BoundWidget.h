// What every slot and pass of the engine does with a widget of the form.
#pragma once

#include <QObject>
#include <QSignalBlocker>
#include <QString>

/// The feature that a widget of that object name belongs to: the name without the three letters in
/// front, whatever they are.
inline QString BoundFeatureName(const QString& objectName)
{
    constexpr int prefixLength = 3;
    return objectName.mid(prefixLength);
}

/// Lets `edit(Widget&)` write what the user changed and show what the camera took. The widget is
/// silent meanwhile, so that showing a value is not taken for the next change. A sender of another
/// class is logged and left alone; without a sender nothing happens.
template <class Widget, class Edit> void EditBoundWidget(QObject* sender, const Edit& edit)
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
