#include "trigger/NumberInput.h"

#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>

#include <algorithm>

namespace {

/// C notation without group separators.
QLocale inputLocale()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    return locale;
}

/// Input methods and other scripts have marks, signs and digits of their own on the same keys.
bool isMark(QChar character)
{
    return QStringLiteral(u",.\u060c\u066b\u3001\u3002\uff0c\uff0e\uff61\uff64")
        .contains(character);
}

bool isMinus(QChar character)
{
    return QStringLiteral(u"-\u2212\u30fc\uff0d").contains(character);
}

bool isPlus(QChar character)
{
    return QStringLiteral(u"+\uff0b").contains(character);
}

/// As Qt's own validators read it; they refuse the digits of most scripts.
QChar plain(QChar character, QChar point)
{
    if (isMark(character))
        return point;
    if (isMinus(character))
        return QLatin1Char('-');
    if (isPlus(character))
        return QLatin1Char('+');
    if (character.isDigit())
        return QLatin1Char(static_cast<char>('0' + character.digitValue()));
    return character;
}

bool isPartOfNumber(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('-') ||
           character == QLatin1Char('+');
}

/// A text from another program comes with what stood around it, the end of a line for example.
void dropBlanksAround(QString& text, int& position)
{
    const QString number = text.trimmed();
    // A text of blanks stays, and is no number: dropping it would clear the field.
    if (number.isEmpty())
        return;
    position = std::clamp(position - text.indexOf(number), 0, number.size());
    text = number;
}

/// Writes a single decimal mark as `point`. False for texts that are no single number: what is
/// neither digit, letter, sign nor mark separates groups or numbers.
bool normalise(QString& text, int& position, QChar point)
{
    dropBlanksAround(text, position);
    int marks = 0;
    for (QChar& character : text) {
        character = plain(character, point);
        if (character == point)
            ++marks;
        else if (!isPartOfNumber(character))
            return false;
    }
    return marks <= 1;
}

bool takesDecimals(const QDoubleSpinBox&)
{
    return true;
}

bool takesDecimals(const QSpinBox&)
{
    return false;
}

/// Stands before a spin box's own validator, which swallows commas in large numbers.
template <class SpinBox> class BoxValidator : public QValidator
{
public:
    BoxValidator(const SpinBox& box, QLineEdit& edit)
        : QValidator(&edit), m_box(box), m_own(*edit.validator())
    {
    }

    State validate(QString& input, int& position) const override
    {
        const int front = input.startsWith(m_box.prefix()) ? m_box.prefix().size() : 0;
        const int back = input.endsWith(m_box.suffix()) ? m_box.suffix().size() : 0;
        QString number = input.mid(front, input.size() - front - back);
        int within = position - front;
        const QChar point = m_box.locale().decimalPoint();
        if (!normalise(number, within, point))
            return Invalid;
        input = input.left(front) + number + input.right(back);
        position = within + front;
        if (takesDecimals(m_box) || !number.contains(point))
            return m_own.validate(input, position);
        // Typed, it stays in sight and keeps the box from taking the digits before it.
        return number.endsWith(point) ? Intermediate : Invalid;
    }

    void fixup(QString& input) const override { m_own.fixup(input); }

private:
    const SpinBox& m_box;
    const QValidator& m_own;
};

template <class SpinBox> void limitText(SpinBox& box)
{
    auto* edit = box.template findChild<QLineEdit*>(QStringLiteral("qt_spinbox_lineedit"));
    edit->setValidator(new BoxValidator<SpinBox>(box, *edit));
}

} // namespace

NumberInput::Validator::Validator(double bottom, double top, int decimals, QObject* parent)
    : QDoubleValidator(bottom, top, decimals, parent)
{
    setLocale(inputLocale());
}

QValidator::State NumberInput::Validator::validate(QString& input, int& position) const
{
    if (!normalise(input, position, locale().decimalPoint()))
        return Invalid;
    return QDoubleValidator::validate(input, position);
}

void NumberInput::limit(QDoubleSpinBox& box)
{
    limitText(box);
}

void NumberInput::limit(QSpinBox& box)
{
    limitText(box);
}
