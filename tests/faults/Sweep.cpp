#include "tests/faults/Sweep.h"

#include "tests/support/ChildProcess.h"

#include <cstdio>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>

namespace Faults {
namespace {

const QString played = QStringLiteral("done");
const QString finding = QStringLiteral("finding ");
const QString note = QStringLiteral("note ");

/// Each session leaves a little memory behind, as the plugin does by design.
constexpr int CasesPerProcess = 100;

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

    QVector<Fault> nextCases()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const QVector<Fault> batch =
            cases.mid(taken, qMin(CasesPerProcess, cases.size() / sweep.jobs + 1));
        taken += batch.size();
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
    Batch(const Sweep& ownerSweep, Board& sharedBoard, QVector<Fault> toPlay)
        : sweep(ownerSweep), board(sharedBoard), cases(std::move(toPlay))
    {
    }

    /// The cases that are left when the child is gone.
    QVector<Fault> play()
    {
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(sweep.program, sweep.arguments);
        for (const Fault& fault : cases)
            child.write(toText(fault).toUtf8() + '\n');
        child.closeWriteChannel();
        while (listen()) {
        }
        child.waitForFinished();
        if (done < cases.size())
            blame();
        return cases.mid(done);
    }

private:
    bool listen()
    {
        if (child.canReadLine() || child.waitForReadyRead(sweep.patienceMs)) {
            while (child.canReadLine())
                take(QString::fromUtf8(child.readLine()).trimmed());
            return true;
        }
        isHanging = child.state() != QProcess::NotRunning && done < cases.size();
        if (isHanging)
            child.kill();
        return false;
    }

    void take(const QString& line)
    {
        const Fault& fault = cases[qMin(done, cases.size() - 1)];
        if (line.startsWith(finding))
            board.add(&Report::findings, line.mid(finding.size()), fault);
        else if (line.startsWith(note))
            board.add(&Report::notes, line.mid(note.size()), fault);
        else if (line == played) {
            ++done;
            board.countPlayed();
        }
    }

    /// The child did not finish the session that it had begun.
    void blame()
    {
        const QString end = isHanging ? QStringLiteral("hang")
                            : child.exitStatus() == QProcess::CrashExit
                                ? QStringLiteral("crash, signal %1").arg(child.exitCode())
                                : QStringLiteral("exit with status %1").arg(child.exitCode());
        board.add(&Report::findings, end, cases[done++]);
        board.countPlayed();
    }

    const Sweep& sweep;
    Board& board;
    const QVector<Fault> cases;
    ChildProcess child;
    int done = 0;
    bool isHanging = false;
};

} // namespace

Report Sweep::run(const QVector<Fault>& cases) const
{
    Board board(cases, *this);
    const auto work = [&] {
        for (QVector<Fault> batch = board.nextCases(); !batch.isEmpty();
             batch = board.nextCases()) {
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

void playStandardInput(const std::function<void(const Fault&)>& play)
{
    for (std::string line; std::getline(std::cin, line);) {
        if (const auto fault = fromText(QString::fromStdString(line))) {
            play(*fault);
            say(played);
        }
    }
}

void sayFinding(const QString& text)
{
    say(finding + text);
}

void sayNote(const QString& text)
{
    say(note + text);
}

} // namespace Faults
