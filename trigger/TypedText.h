// Text that the user is typing into a field of a form.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QAbstractSpinBox;
class QDoubleSpinBox;
class QFocusEvent;
class QLineEdit;
class QSpinBox;
class QWidget;

namespace NumberInput {
class Validator;
}

/// Watches what is typed into a field: from the first key until Return, a step (by arrow or page
/// key, wheel or button, even if it changes nothing), Esc or the loss of the focus, the field's
/// text is the user's and no refresh may touch it. Esc gives the text up for the camera's value,
/// and goes no further then; without such text it is left to others, so that it closes a dialog.
///
/// The context menu of a box counts as the loss of the focus, that of a line edit does not.
///
/// A line edit does not finish with a text that its validator does not accept: away from the focus
/// the text gives way to the next value shown, and until then Esc in the field gives it up. A box
/// takes a number beyond its limits as the nearest limit, see NumberInput.
///
/// The field owns its watcher. GUI thread only.
class TypedText : public QObject
{
    Q_OBJECT

public:
    /// Watches from now on. Call it after what reacts to the field's signals has been connected,
    /// because the text that a finished field shows is the one that Esc later brings back.
    static void watch(QLineEdit& field);
    /// Typing a number into a box becomes one edit, not one per key.
    static void watch(QDoubleSpinBox& field);
    static void watch(QSpinBox& field);

    /// Shows a text; where another one is being typed, Esc will show it.
    static void show(QLineEdit& field, const QString& text);
    /// Whether a text was typed into the field that its validator does not accept.
    static bool isRefused(const QLineEdit& field);
    /// Enables or disables a widget of any kind. A field that is disabled shows the camera's value.
    static void setEnabled(QWidget& field, bool enabled);

    /// Keeps the text in a spin box that is being typed, while range and value of the box change.
    class Keeper
    {
    public:
        explicit Keeper(const QWidget& field);
        ~Keeper();
        Keeper(const Keeper&) = delete;
        Keeper& operator=(const Keeper&) = delete;

    private:
        QLineEdit* m_edit = nullptr; ///< Null where nothing is to be kept.
        QString m_text;
        int m_cursor = 0;
        int m_selectionStart = -1;
        int m_selectionLength = 0;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void begin();
    void end();

private:
    TypedText(QWidget& field, QLineEdit& edit);
    template <class SpinBox> static void watchBox(SpinBox& box, const char* valueChanged);
    static TypedText* of(const QWidget& field);

    bool isUnfinished() const;
    const NumberInput::Validator* numberValidator() const;
    bool isGivenUpBy(const QEvent& event) const;
    void correct();
    void step(QAbstractSpinBox& box, QEvent& event);
    void giveUp();
    void resume(const QFocusEvent& event);
    bool escape(QEvent& event);

    QWidget& m_field;
    QLineEdit& m_edit;
    bool m_typed = false;
    /// The text to bring back into a line edit.
    QString m_shown;
    std::function<void()> m_restore;
};
