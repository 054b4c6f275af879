#pragma once

#include "tests/faults/Fault.h"

#include <QMap>
#include <QStringList>

#include <functional>

namespace Faults {

/// What many cases have in common, with the first of them to see it again.
struct Group
{
    int count = 0;
    Fault first;
};
using Groups = QMap<QString, Group>;

struct Report
{
    int played = 0;
    Groups findings; ///< Promises broken: unasked writes, untrue widgets, crashes, hangs.
    Groups notes;
};

/// Plays sessions in child processes, so that one that crashes or hangs is known by its fault and
/// ends no other.
class Sweep
{
public:
    /// The program that plays what it is told on its standard input, and its arguments.
    QString program;
    QStringList arguments;
    int jobs = 1;
    int patienceMs = 120000; ///< A session that is silent for so long counts as hanging.
    /// Called by the workers, one at a time.
    std::function<void(int played)> onProgress;
    std::function<void(const QString& text, const Fault& fault)> onNewFinding;

    /// Blocks until all are played.
    Report run(const QVector<Fault>& cases) const;
};

/// The other side: what is to be played stands on the standard input, a fault a line, and what is
/// found goes to the standard output, between the begin and the end of its session.
QVector<Fault> faultsFromStandardInput();
void sayBegin(const Fault& fault);
void sayFinding(const QString& text);
void sayNote(const QString& text);
void sayDone();

} // namespace Faults
