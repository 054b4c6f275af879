// What may be typed where a form asks for a number.
#pragma once

#include <QDoubleValidator>

class QDoubleSpinBox;
class QSpinBox;

/// Numbers are written with a comma before the decimals in half of the world, and that is how they
/// are typed, on a form that shows the point. A single comma or point therefore counts as the
/// decimal point, in any script, and blanks around the number are dropped. A paste that holds a
/// group separator or a second mark is refused whole: read either way, it might become another
/// number. A second mark that is typed stays in sight and keeps the text from being taken. Typed
/// blanks and apostrophes can only group the digits around them, and are passed over.
///
/// Nor does a number become another one for being too large or too small: it stays in sight as it
/// was typed. Only the minus sign is refused by a line edit that has no use for it. A line edit
/// does not accept it; a box corrects it to the nearest limit, if its camera told the limits.
/// Decimals beyond the last one of a field are refused. An exponent counts.
///
/// GUI thread only.
namespace NumberInput {

/// Both limits of a field whose camera did not tell them.
constexpr double UnknownLimit = -1.0;

/// Lets a line edit take numbers in C notation, as which they are parsed, or with a comma.
class Validator : public QDoubleValidator
{
public:
    Validator(double bottom, double top, int decimals, QObject* parent);

    State validate(QString& input, int& position) const override;

    /// Whether a text of the field holds a second mark, and so can be no number.
    bool hasSurplusMark(const QString& text) const;

    /// Whether a text is refused for more than its decimals: a field may show more of them than may
    /// be typed, and a field with a refused text refuses nothing by itself.
    bool refuses(const QString& text, int position) const;
};

/// Lets a box take what a line edit takes. A box shows numbers as its own locale does. Its line
/// edit's validator corrects texts; the box itself does not ask for that, see TypedText.
void limit(QDoubleSpinBox& box);
/// Lets a box take whole numbers only: a comma, a point or an exponent in it keeps the text from
/// being taken, so that the digits around it do not close up to another number.
void limit(QSpinBox& box);

} // namespace NumberInput
