#include "tests/faults/Fault.h"

#include <QRegularExpression>

namespace Faults {

QString toText(const Fault& fault)
{
    return QStringLiteral("%1%2 %3 %4")
        .arg(fault.series == Series::Names ? "name:" : "")
        .arg(fault.call)
        .arg(fault.status)
        .arg(fault.mode == Mode::Once ? "once" : "lasting");
}

std::optional<Fault> fromText(const QString& text)
{
    static const QRegularExpression form("^(name:)?([1-9]\\d*) (-\\d+) (once|lasting)$");
    const auto match = form.match(text);
    const int status = match.captured(3).toInt();
    if (!match.hasMatch() || !failures().contains(status))
        return std::nullopt;
    return Fault{match.captured(1).isEmpty() ? Series::Calls : Series::Names,
                 match.captured(2).toInt(), status,
                 match.captured(4) == "once" ? Mode::Once : Mode::Lasting};
}

const QVector<ZalErrorType>& failures()
{
    static const QVector<ZalErrorType> all = {
        ZalErrorUnknown,     ZalErrorNotImplemented, ZalErrorNotFound,       ZalErrorNotAvailable,
        ZalErrorNotOpen,     ZalErrorWrongType,      ZalErrorBadParameter,   ZalErrorNotReadable,
        ZalErrorNotWritable, ZalErrorOutOfRange,     ZalErrorBufferTooSmall, ZalErrorTimeout,
        ZalErrorTransport,   ZalErrorOutOfResources};
    return all;
}

} // namespace Faults
