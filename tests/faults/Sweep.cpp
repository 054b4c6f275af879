#include "tests/faults/Sweep.h"

#include "tests/support/ChildProcess.h"

#include <cstdio>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>

namespace Faults {
namespace {

const QString begun = QStringLiteral("begin ");
const QString played = QStringLiteral("done");
const QString finding = QStringLiteral("finding ");
const QString note = QStringLiteral("note ");

/// The more sessions share what comes before their faults and the forms to compare with, the less
/// each of them costs; the fewer, the sooner one that hangs is played around.
constexpr int CasesPerProcess = 1000;

void say(const QString& line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

/// What the workers share.
class Board
{
public:
    Board(const QVector<Fault>& toPlay, const Sweep& running) : cases(toPlay), sweep(running) {}

    QStringList nextCases()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const int size = qMin(CasesPerProcess, cases.size() / sweep.jobs + 1);
        QStringList batch;
        for (; batch.size() < size && taken < cases.size(); ++taken)
            batch.append(toText(cases[taken]));
        return batch;
    }

    void add(Groups Report::*groups, const QString& text, const Fault& fault)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        Group& group = (report.*groups)[text];
        if (group.count++ > 0)
            return;
        group.first = fault;
        if (groups == &Report::findings && sweep.onNewFinding)
            sweep.onNewFinding(text, fault);
    }

    void countPlayed()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ++report.played;
        if (sweep.onProgress)
            sweep.onProgress(report.played);
    }

    Report report;

private:
    const QVector<Fault>& cases;
    const Sweep& sweep;
    int taken = 0;
    std::mutex mutex;
};

/// One child process and what it is about to play.
class Batch
{
public:
    Batch(const Sweep& ownerSweep, Board& sharedBoard, const QStringList& toPlay)
        : sweep(ownerSweep), board(sharedBoard), left(toPlay)
    {
    }

    /// The cases that are left when the child is gone.
    QStringList play()
    {
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(sweep.program, sweep.arguments);
        child.write(left.join('\n').toUtf8() + '\n');
        child.closeWriteChannel();
        while (listen()) {
        }
        child.waitForFinished();
        if (!left.isEmpty())
            blame();
        return left;
    }

private:
    bool listen()
    {
        if (child.canReadLine() || child.waitForReadyRead(sweep.patienceMs)) {
            while (child.canReadLine())
                take(QString::fromUtf8(child.readLine()).trimmed());
            return true;
        }
        isHanging = child.state() != QProcess::NotRunning && !left.isEmpty();
        if (isHanging)
            child.kill();
        return false;
    }

    void take(const QString& line)
    {
        if (line.startsWith(begun))
            current = qMax(0, left.indexOf(line.mid(begun.size())));
        else if (line.startsWith(finding))
            board.add(&Report::findings, line.mid(finding.size()), currentFault());
        else if (line.startsWith(note))
            board.add(&Report::notes, line.mid(note.size()), currentFault());
        else if (line == played)
            endCurrent();
    }

    Fault currentFault() const { return fromText(left[current]).value_or(Fault()); }

    void endCurrent()
    {
        left.removeAt(current);
        current = 0;
        board.countPlayed();
    }

    /// The child did not finish the session that it had begun.
    void blame()
    {
        const QString end = isHanging ? QStringLiteral("hang")
                            : child.exitStatus() == QProcess::CrashExit
                                ? QStringLiteral("crash, signal %1").arg(child.exitCode())
                                : QStringLiteral("exit with status %1").arg(child.exitCode());
        board.add(&Report::findings, end, currentFault());
        endCurrent();
    }

    const Sweep& sweep;
    Board& board;
    QStringList left; ///< What is not played yet, as it is written.
    int current = 0;  ///< Of those.
    ChildProcess child;
    bool isHanging = false;
};

} // namespace

Report Sweep::run(const QVector<Fault>& cases) const
{
    Board board(cases, *this);
    const auto work = [&] {
        for (QStringList batch = board.nextCases(); !batch.isEmpty(); batch = board.nextCases()) {
            while (!batch.isEmpty())
                batch = Batch(*this, board, batch).play();
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < jobs; ++i)
        workers.emplace_back(work);
    for (std::thread& worker : workers)
        worker.join();
    return board.report;
}

QVector<Fault> faultsFromStandardInput()
{
    QVector<Fault> faults;
    for (std::string line; std::getline(std::cin, line);) {
        if (const auto fault = fromText(QString::fromStdString(line)))
            faults.append(*fault);
    }
    return faults;
}

void sayBegin(const Fault& fault)
{
    say(begun + toText(fault));
}

void sayFinding(const QString& text)
{
    say(finding + text);
}

void sayNote(const QString& text)
{
    say(note + text);
}

void sayDone()
{
    say(played);
}

} // namespace Faults
