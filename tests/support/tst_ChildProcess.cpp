// Signals to a process of the test reach that process, in all its threads, and nobody else.
#include "tests/support/ChildProcess.h"

#include <QtTest>

namespace {

volatile std::sig_atomic_t signalsToTheTest = 0;

void count(int)
{
    signalsToTheTest = signalsToTheTest + 1;
}

/// 'T' is a stopped process.
char stateOf(const QProcess& process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process.processId()));
    if (!file.open(QIODevice::ReadOnly))
        return '?';
    const QByteArray line = file.readAll();
    return line[line.lastIndexOf(')') + 2];
}

} // namespace

class tst_ChildProcess : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void stalledProcessHasStopped();
    void resumedProcessGoesOn();
    void processThatHasEndedCannotBeStalled();
    void signalToAProcessThatHasEndedReachesNobody();

private:
    std::unique_ptr<ChildProcess> m_process;
};

void tst_ChildProcess::init()
{
    m_process = std::make_unique<ChildProcess>();
    m_process->start(QStringLiteral("cat"), QStringList());
    QVERIFY(m_process->waitForStarted());
}

void tst_ChildProcess::cleanup()
{
    m_process->kill();
    m_process->waitForFinished();
}

void tst_ChildProcess::stalledProcessHasStopped()
{
    for (int round = 0; round < 50; ++round) {
        QVERIFY(m_process->stall());
        QCOMPARE(stateOf(*m_process), 'T');
        m_process->resume();
    }
}

void tst_ChildProcess::resumedProcessGoesOn()
{
    QVERIFY(m_process->stall());
    m_process->resume();
    m_process->write("x");
    QVERIFY(m_process->waitForReadyRead());
    m_process->closeWriteChannel();
    QVERIFY(m_process->waitForFinished());
    QCOMPARE(m_process->exitStatus(), QProcess::NormalExit);
}

void tst_ChildProcess::processThatHasEndedCannotBeStalled()
{
    m_process->kill();
    QVERIFY(m_process->waitForFinished());
    QVERIFY(!m_process->stall());
}

void tst_ChildProcess::signalToAProcessThatHasEndedReachesNobody()
{
    m_process->kill();
    QVERIFY(m_process->waitForFinished());
    const auto before = std::signal(SIGCONT, count);
    m_process->resume();
    std::signal(SIGCONT, before);
    QCOMPARE(int(signalsToTheTest), 0);
}

QTEST_GUILESS_MAIN(tst_ChildProcess)
#include "tst_ChildProcess.moc"
