// How long closing a camera waits for its worker thread.
#include "tests/sdk/bridge/WorkerOperations.h"

#include <QtTest>

#include <algorithm>

using namespace WorkerOperations;
using ZalCPP::CameraWorker;

class tst_WorkerClosing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { worker.reset(); }

    void idleCameraIsClosedAtOnce();
    void lostCameraThatIsIdleDoesItsLastWork();
    void stallLongAgoIsWaitedForOnceAllTheSame();

private:
    std::unique_ptr<CameraWorker> worker;
};

void tst_WorkerClosing::init()
{
    worker = std::make_unique<CameraWorker>(CameraWorker::Hooks{succeed, [] {}, [] {}});
}

// The best of several times, because the machine may have other things to do.
void tst_WorkerClosing::idleCameraIsClosedAtOnce()
{
    qint64 best = 1000;
    for (int round = 0; round < 5; ++round) {
        init();
        QElapsedTimer timer;
        timer.start();
        worker->close(succeed);
        best = std::min(best, timer.elapsed());
    }
    QVERIFY2(best < 300, qPrintable(QString::number(best)));
}

void tst_WorkerClosing::lostCameraThatIsIdleDoesItsLastWork()
{
    QCOMPARE(worker->call(succeed), ZalErrorSuccess);
    worker->declareLost();
    const auto done = std::make_shared<std::atomic<bool>>(false);
    worker->close([done, work = lateAnswer(100)] {
        work();
        *done = true;
        return ZalErrorSuccess;
    });
    QVERIFY(*done);
}

// The operation of that stall still goes on.
void tst_WorkerClosing::stallLongAgoIsWaitedForOnceAllTheSame()
{
    Operation operation;
    QCOMPARE(worker->call(operation.work()), ZalErrorTimeout);
    QTest::qWait(1050);
    QElapsedTimer timer;
    timer.start();
    worker->close(succeed);
    QVERIFY2(timer.elapsed() < 300, qPrintable(QString::number(timer.elapsed())));
    operation.end(ZalErrorSuccess);
}

QTEST_GUILESS_MAIN(tst_WorkerClosing)
#include "tst_WorkerClosing.moc"
