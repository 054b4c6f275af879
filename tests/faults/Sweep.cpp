#include "tests/faults/Sweep.h"

#include "tests/support/ChildProcess.h"

#include <cstdio>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>

namespace Faults {
namespace {

const QString Begun = QStringLiteral("begin ");
const QString Played = QStringLiteral("done");
const QString Finding = QStringLiteral("finding ");
const QString Note = QStringLiteral("note ");

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
    Board(const QVector<Fault>& toPlay, const Sweep& running) : m_cases(toPlay), m_sweep(running) {}

    QStringList nextCases()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const int size = qMin(CasesPerProcess, m_cases.size() / m_sweep.jobs + 1);
        QStringList batch;
        for (; batch.size() < size && m_taken < m_cases.size(); ++m_taken)
            batch.append(toText(m_cases[m_taken]));
        return batch;
    }

    void add(Groups Report::*groups, const QString& text, const Fault& fault)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        Group& group = (report.*groups)[text];
        if (group.count++ > 0)
            return;
        group.first = fault;
        if (groups == &Report::findings && m_sweep.onNewFinding)
            m_sweep.onNewFinding(text, fault);
    }

    void countPlayed()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++report.played;
        if (m_sweep.onProgress)
            m_sweep.onProgress(report.played);
    }

    Report report;

private:
    const QVector<Fault>& m_cases;
    const Sweep& m_sweep;
    int m_taken = 0;
    std::mutex m_mutex;
};

/// One child process and what it is about to play.
class Batch
{
public:
    Batch(const Sweep& ownerSweep, Board& sharedBoard, const QStringList& toPlay)
        : m_sweep(ownerSweep), m_board(sharedBoard), m_left(toPlay)
    {
    }

    /// The cases that are left when the child is gone.
    QStringList play()
    {
        m_child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_child.start(m_sweep.program, m_sweep.arguments);
        m_child.write(m_left.join('\n').toUtf8() + '\n');
        m_child.closeWriteChannel();
        while (listen()) {
        }
        m_child.waitForFinished();
        if (!m_left.isEmpty())
            blame();
        return m_left;
    }

private:
    bool listen()
    {
        if (m_child.canReadLine() || m_child.waitForReadyRead(m_sweep.patienceMs)) {
            while (m_child.canReadLine())
                take(QString::fromUtf8(m_child.readLine()).trimmed());
            return true;
        }
        m_isHanging = m_child.state() != QProcess::NotRunning && !m_left.isEmpty();
        if (m_isHanging)
            m_child.kill();
        return false;
    }

    void take(const QString& line)
    {
        if (line.startsWith(Begun))
            m_current = qMax(0, m_left.indexOf(line.mid(Begun.size())));
        else if (line.startsWith(Finding))
            m_board.add(&Report::findings, line.mid(Finding.size()), currentFault());
        else if (line.startsWith(Note))
            m_board.add(&Report::notes, line.mid(Note.size()), currentFault());
        else if (line == Played)
            endCurrent();
    }

    Fault currentFault() const { return fromText(m_left[m_current]).value_or(Fault()); }

    void endCurrent()
    {
        m_left.removeAt(m_current);
        m_current = 0;
        m_board.countPlayed();
    }

    /// The child did not finish the session that it had begun.
    void blame()
    {
        const QString end = m_isHanging ? QStringLiteral("hang")
                            : m_child.exitStatus() == QProcess::CrashExit
                                ? QStringLiteral("crash, signal %1").arg(m_child.exitCode())
                                : QStringLiteral("exit with status %1").arg(m_child.exitCode());
        m_board.add(&Report::findings, end, currentFault());
        endCurrent();
    }

    const Sweep& m_sweep;
    Board& m_board;
    QStringList m_left; ///< What is not played yet, as it is written.
    int m_current = 0;  ///< Of those.
    ChildProcess m_child;
    bool m_isHanging = false;
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
    say(Begun + toText(fault));
}

void sayFinding(const QString& text)
{
    say(Finding + text);
}

void sayNote(const QString& text)
{
    say(Note + text);
}

void sayDone()
{
    say(Played);
}

} // namespace Faults
