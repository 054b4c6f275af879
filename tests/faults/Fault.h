#pragma once

#include <ZalCPP/ZalTypes.h>

#include <QString>
#include <QVector>

#include <optional>

namespace Faults {

/// Reads of names are counted apart: every look-up asks the features one after the other, and so
/// they are twenty times as many as all other calls together.
enum class Series
{
    Calls,
    Names
};

enum class Mode
{
    Once,    ///< One call fails.
    Lasting, ///< That call and every later one of either series fail until the recovery.
};

/// What goes wrong in a session: the n-th call of a series, counted from 1.
struct Fault
{
    Series series = Series::Calls;
    int call = 0;
    ZalErrorType status = ZalErrorSuccess;
    Mode mode = Mode::Once;
};

/// As on the command line: "17 -12 once", "name:230 -5 lasting".
QString toText(const Fault& fault);
/// Nothing for a text that names no fault.
std::optional<Fault> fromText(const QString& text);

/// Every status that a call can fail with.
const QVector<ZalErrorType>& failures();

} // namespace Faults
