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
    std::unique_ptr<ChildProcess> process;
};

void tst_ChildProcess::init()
{
    process = std::make_unique<ChildProcess>();
    process->start(QStringLiteral("cat"), QStringList());
    QVERIFY(process->waitForStarted());
}

void tst_ChildProcess::cleanup()
{
    process->kill();
    process->waitForFinished();
}

void tst_ChildProcess::stalledProcessHasStopped()
{
    for (int round = 0; round < 50; ++round) {
        QVERIFY(process->stall());
        QCOMPARE(stateOf(*process), 'T');
        process->resume();
    }
}

void tst_ChildProcess::resumedProcessGoesOn()
{
    QVERIFY(process->stall());
    process->resume();
    process->write("x");
    QVERIFY(process->waitForReadyRead());
    process->closeWriteChannel();
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
}

void tst_ChildProcess::processThatHasEndedCannotBeStalled()
{
    process->kill();
    QVERIFY(process->waitForFinished());
    QVERIFY(!process->stall());
}

void tst_ChildProcess::signalToAProcessThatHasEndedReachesNobody()
{
    process->kill();
    QVERIFY(process->waitForFinished());
    const auto before = std::signal(SIGCONT, count);
    process->resume();
    std::signal(SIGCONT, before);
    QCOMPARE(int(signalsToTheTest), 0);
}

QTEST_GUILESS_MAIN(tst_ChildProcess)
#include "tst_ChildProcess.moc"
