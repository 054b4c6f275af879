#pragma once

#include <QMap>
#include <QString>

#include <vector>

class QWidget;

namespace Faults {

/// What a form shows, widget by widget: texts, entries, limits, states, cells, overview. By object
/// name.
using Portrait = QMap<QString, QString>;

Portrait portraitOf(const QWidget& form);

/// A widget that does not show what it should.
struct Difference
{
    QString widget;
    QString actual; ///< "missing" where the form has no such widget.
    QString expected;
};

std::vector<Difference> differences(const Portrait& actual, const Portrait& expected);

} // namespace Faults
