#include "trigger/NumberInput.h"

#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QSpinBox>

#include <algorithm>
#include <cmath>
#include <optional>

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

constexpr QChar WideExponent(0xff45);

/// As Qt's own validators read it; they refuse the digits of most scripts.
QChar plain(QChar character, QChar point)
{
    if (isMark(character))
        return point;
    if (isMinus(character))
        return QLatin1Char('-');
    if (isPlus(character))
        return QLatin1Char('+');
    if (character == WideExponent)
        return QLatin1Char('e');
    if (character.isDigit())
        return QLatin1Char(static_cast<char>('0' + character.digitValue()));
    return character;
}

bool isPartOfNumber(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('-') ||
           character == QLatin1Char('+');
}

/// A text from another program brings along what surrounded it, such as the end of a line.
void dropBlanksAround(QString& text, int& position)
{
    const QString number = text.trimmed();
    // A text of blanks stays, and is no number: dropping it would clear the field.
    if (number.isEmpty())
        return;
    position = std::clamp(position - text.indexOf(number), 0, number.size());
    text = number;
}

/// Writes decimal marks as `point` and counts them. Nothing for a text that is not one number:
/// what is neither digit, letter, sign nor mark separates groups or numbers.
std::optional<int> normalise(QString& text, int& position, QChar point)
{
    dropBlanksAround(text, position);
    int marks = 0;
    for (QChar& character : text) {
        character = plain(character, point);
        if (character == point)
            ++marks;
        else if (!isPartOfNumber(character))
            return std::nullopt;
    }
    return marks;
}

/// For a text with one mark too many. While the mark is what was typed last, it stays in sight and
/// keeps the field from taking the digits around it; a paste ends with digits.
QValidator::State judgeSurplusMark(const QString& text, int position, QChar point)
{
    const bool isTyped = position > 0 && text.at(position - 1) == point;
    return isTyped ? QValidator::Intermediate : QValidator::Invalid;
}

constexpr int marksIn(const QDoubleSpinBox& /*box*/)
{
    return 1;
}

constexpr int marksIn(const QSpinBox& /*box*/)
{
    return 0;
}

std::optional<double> numberIn(const QDoubleSpinBox& box, const QString& text)
{
    bool isNumber = false;
    const double number = box.locale().toDouble(text, &isNumber);
    return isNumber && std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
}

std::optional<double> numberIn(const QSpinBox& box, const QString& text)
{
    bool isNumber = false;
    const qlonglong number = box.locale().toLongLong(text, &isNumber);
    return isNumber ? std::optional<double>(number) : std::nullopt;
}

QString textOf(const QDoubleSpinBox& box, double number)
{
    return box.textFromValue(number);
}

QString textOf(const QSpinBox& /*box*/, double number)
{
    return QString::number(number, 'f', 0);
}

/// Only the minimum tells: an unknown maximum changes when it is fitted to an increment. Between
/// equal limits there is nothing to choose.
template <class SpinBox> bool hasKnownLimits(const SpinBox& box)
{
    return box.minimum() != NumberInput::UnknownLimit && box.minimum() != box.maximum();
}

bool hasExponent(const QString& text)
{
    return text.contains(QLatin1Char('e'), Qt::CaseInsensitive);
}

/// A sign, or a number up to its exponent: "1e", "1e-". A mark after an exponent begins nothing,
/// but dropping it would join the digits around it.
template <class SpinBox> bool beginsNumber(const SpinBox& box, QString text)
{
    if (text.endsWith(box.locale().decimalPoint()))
        return hasExponent(text);
    if (text.endsWith(QLatin1Char('-')) || text.endsWith(QLatin1Char('+')))
        text.chop(1);
    if (!text.endsWith(QLatin1Char('e'), Qt::CaseInsensitive))
        return text.isEmpty();
    text.chop(1);
    return numberIn(box, text).has_value();
}

/// For a text that the box refuses. Beyond the limits, and on the way to an exponent, it stays in
/// sight: without the last key it would be a number of another size. The decimals of a number with
/// an exponent are not those of the box.
template <class SpinBox> bool staysInSight(const SpinBox& box, const QString& text)
{
    const auto number = numberIn(box, text);
    if (!number)
        return beginsNumber(box, text);
    return *number < box.minimum() || *number > box.maximum() || hasExponent(text);
}

/// What a box shows: a number between its prefix and its suffix, which may have been deleted.
struct BoxText
{
    template <class SpinBox>
    BoxText(const SpinBox& box, const QString& text)
        : front(text.startsWith(box.prefix()) ? box.prefix() : QString()),
          back(text.endsWith(box.suffix()) ? box.suffix() : QString()),
          number(text.mid(front.size(), text.size() - front.size() - back.size()))
    {
    }

    QString whole() const { return front + number + back; }

    QString front;
    QString back;
    QString number;
};

/// Comes before a spin box's own validator, which refuses digits beyond the limits and swallows
/// commas in large numbers.
template <class SpinBox> class BoxValidator : public QValidator
{
public:
    BoxValidator(const SpinBox& box, QLineEdit& edit)
        : QValidator(&edit), m_box(box), m_own(*edit.validator())
    {
    }

    State validate(QString& input, int& position) const override
    {
        BoxText text(m_box, input);
        int within = position - text.front.size();
        const QChar point = m_box.locale().decimalPoint();
        const auto marks = normalise(text.number, within, point);
        if (!marks)
            return Invalid;
        input = text.whole();
        position = within + text.front.size();
        if (*marks > marksIn(m_box))
            return judgeSurplusMark(text.number, within, point);
        const State state = m_own.validate(input, position);
        return state == Invalid && staysInSight(m_box, text.number) ? Intermediate : state;
    }

    void fixup(QString& input) const override
    {
        BoxText text(m_box, input);
        const auto number = numberIn(m_box, text.number);
        if (!number || !hasKnownLimits(m_box))
            return;
        text.number = textOf(m_box, std::clamp<double>(*number, m_box.minimum(), m_box.maximum()));
        input = text.whole();
    }

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
    const QChar point = locale().decimalPoint();
    const auto marks = normalise(input, position, point);
    if (!marks)
        return Invalid;
    if (*marks > 1)
        return judgeSurplusMark(input, position, point);
    return QDoubleValidator::validate(input, position);
}

bool NumberInput::Validator::hasSurplusMark(const QString& text) const
{
    return text.count(locale().decimalPoint()) > 1;
}

bool NumberInput::Validator::refuses(const QString& text, int position) const
{
    const QRegularExpression surplus(QStringLiteral("(\\.\\d{%1})\\d+").arg(decimals()));
    QString asTyped = text;
    QString cut = QString(text).replace(surplus, QStringLiteral("\\1"));
    int cutPosition = std::min(position, cut.size());
    return validate(asTyped, position) == Invalid && validate(cut, cutPosition) == Invalid;
}

void NumberInput::limit(QDoubleSpinBox& box)
{
    limitText(box);
}

void NumberInput::limit(QSpinBox& box)
{
    limitText(box);
}
