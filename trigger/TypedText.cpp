#include "trigger/TypedText.h"

#include "trigger/NumberInput.h"

#include <QDoubleSpinBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

/// Return, and going anywhere but to the field's own menu. A box that is hidden takes its text
/// before it loses the focus.
bool finishes(const QEvent& event)
{
    if (event.type() == QEvent::Hide)
        return true;
    if (event.type() == QEvent::FocusOut)
        return static_cast<const QFocusEvent&>(event).reason() != Qt::PopupFocusReason;
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// A box gets mouse events on its buttons only; its text is a line edit of its own.
bool steps(const QEvent& event)
{
    if (event.type() == QEvent::MouseButtonPress)
        return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
    if (event.type() != QEvent::KeyPress)
        return event.type() == QEvent::Wheel;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

} // namespace

TypedText::TypedText(QWidget& field, QLineEdit& edit)
    : QObject(&field), m_field(field), m_edit(edit), m_shown(edit.text())
{
    field.installEventFilter(this);
    connect(&edit, SIGNAL(textEdited(const QString&)), SLOT(begin()));
    connect(&field, SIGNAL(editingFinished()), SLOT(end()));
}

void TypedText::watch(QLineEdit& field)
{
    auto* typed = new TypedText(field, field);
    typed->m_restore = [typed] { typed->m_edit.setText(typed->m_shown); };
}

/// A box knows the camera's value, whatever its text says.
template <class SpinBox> void TypedText::watchBox(SpinBox& box, const char* valueChanged)
{
    box.setKeyboardTracking(false);
    auto* edit = box.template findChild<QLineEdit*>(QStringLiteral("qt_spinbox_lineedit"));
    auto* typed = new TypedText(box, *edit);
    typed->m_restore = [&box] { box.setValue(box.value()); };
    typed->connect(&box, valueChanged, SLOT(end()));
}

void TypedText::watch(QDoubleSpinBox& field)
{
    watchBox(field, SIGNAL(valueChanged(double)));
}

void TypedText::watch(QSpinBox& field)
{
    watchBox(field, SIGNAL(valueChanged(int)));
}

TypedText* TypedText::of(const QWidget& field)
{
    return field.findChild<TypedText*>(QString(), Qt::FindDirectChildrenOnly);
}

void TypedText::show(QLineEdit& field, const QString& text)
{
    TypedText* typed = of(field);
    if (typed)
        typed->m_shown = text;
    if (!typed || !typed->isUnfinished())
        field.setText(text);
}

bool TypedText::isRefused(const QLineEdit& field)
{
    const TypedText* typed = of(field);
    return typed && typed->m_typed && field.text() != typed->m_shown && !field.hasAcceptableInput();
}

void TypedText::setEnabled(QWidget& field, bool enabled)
{
    TypedText* typed = of(field);
    if (typed && !enabled && typed->isUnfinished())
        typed->giveUp();
    field.setEnabled(enabled);
}

bool TypedText::isUnfinished() const
{
    return m_typed && m_field.hasFocus();
}

/// Without signals: the camera has the value that comes back.
void TypedText::giveUp()
{
    const QSignalBlocker silence(&m_field);
    m_typed = false;
    m_restore();
}

/// The validator's own refusal takes an edit back only where the text before was acceptable.
void TypedText::begin()
{
    const auto* numbers = numberValidator();
    const bool wasRefused = numbers && numbers->refuses(m_edit.text(), m_edit.cursorPosition());
    if (wasRefused && !numbers->refuses(m_shown, m_shown.size()))
        giveUp();
    else
        m_typed = true;
}

void TypedText::end()
{
    m_typed = false;
    m_shown = m_edit.text();
}

/// Null for a field that is no line edit for numbers.
const NumberInput::Validator* TypedText::numberValidator() const
{
    return dynamic_cast<const NumberInput::Validator*>(m_edit.validator());
}

/// A text that cannot be a number is given up where a number would be taken.
bool TypedText::isGivenUpBy(const QEvent& event) const
{
    const auto* numbers = numberValidator();
    return m_typed && finishes(event) && numbers && numbers->hasSurplusMark(m_edit.text());
}

/// A number beyond the limits of a box, which would refuse it, becomes the limit.
void TypedText::correct()
{
    if (m_edit.hasAcceptableInput())
        return;
    QString text = m_edit.text();
    m_edit.validator()->fixup(text);
    if (text != m_edit.text())
        m_edit.setText(text);
}

/// By itself a box takes the text only with a step that changes its value. Without room for a step,
/// the typed number is taken as it is.
void TypedText::step(QAbstractSpinBox& box, QEvent& event)
{
    const QPointer<TypedText> self(this);
    correct();
    static_cast<QObject&>(box).event(&event);
    if (self && m_typed)
        box.interpretText();
    if (self && m_typed)
        end();
}

/// Back from its context menu, a field goes on where it was. Otherwise a text is still being typed
/// if it could not be taken and no other one was shown meanwhile.
void TypedText::resume(const QFocusEvent& event)
{
    if (event.reason() != Qt::PopupFocusReason)
        m_typed = m_typed && m_edit.text() != m_shown;
}

bool TypedText::escape(QEvent& event)
{
    const bool isKey = event.type() == QEvent::KeyPress;
    if (!isKey && event.type() != QEvent::ShortcutOverride)
        return false;
    if (!isUnfinished() || !static_cast<QKeyEvent&>(event).matches(QKeySequence::Cancel))
        return false;
    if (isKey)
        giveUp();
    // Accepted, so that neither a shortcut nor the dialog takes it.
    event.accept();
    return true;
}

bool TypedText::eventFilter(QObject* /*watched*/, QEvent* event)
{
    // While it is destroyed a field still loses the focus, but is no more than a QWidget.
    if (m_field.metaObject() == &QWidget::staticMetaObject)
        return false;
    auto* box = qobject_cast<QAbstractSpinBox*>(&m_field);
    if (box && isUnfinished() && steps(*event)) {
        step(*box, *event);
        return true;
    }
    if (m_typed && (finishes(*event) || (box && event->type() == QEvent::FocusOut)))
        correct();
    if (isGivenUpBy(*event)) {
        // The field first, which does not finish its editing with such a text.
        static_cast<QObject&>(m_field).event(event);
        giveUp();
        return true;
    }
    if (event->type() == QEvent::FocusIn)
        resume(*static_cast<QFocusEvent*>(event));
    return escape(*event);
}

TypedText::Keeper::Keeper(const QWidget& field)
{
    const TypedText* typed = of(field);
    if (!typed || !typed->isUnfinished())
        return;
    m_edit = &typed->m_edit;
    m_text = m_edit->text();
    m_cursor = m_edit->cursorPosition();
    m_selectionStart = m_edit->selectionStart();
    m_selectionLength = m_edit->selectionLength();
}

TypedText::Keeper::~Keeper()
{
    if (!m_edit || m_edit->text() == m_text)
        return;
    m_edit->setText(m_text);
    m_edit->setCursorPosition(m_cursor);
    if (m_selectionStart == m_cursor)
        m_edit->setSelection(m_cursor + m_selectionLength, -m_selectionLength);
    else if (m_selectionStart >= 0)
        m_edit->setSelection(m_selectionStart, m_selectionLength);
}
