// How long closing a camera waits for its worker thread.
#include "tests/sdk/bridge/WorkerOperations.h"

#include <QtTest>

#include <algorithm>
#include <thread>

using namespace WorkerOperations;
using ZalCPP::CameraWorker;

class tst_WorkerClosing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_worker.reset(); }

    void idleCameraIsClosedAtOnce();
    void lostCameraThatIsIdleDoesItsLastWork();
    void stallLongAgoIsWaitedForOnceAllTheSame();
    void closingRunsTheLastWork();
    void closingDoesNotWaitForAnOverdueOperation();
    void closingALostCameraDoesNotWaitForItsOperation();
    void slowCallAndClosingTogetherBlockNoLongerThanOneStall();
    void slowCallsThatFollowEachOtherAddUp();
    void waitsThatLieFarApartDoNotAddUp_data();
    void waitsThatLieFarApartDoNotAddUp();
    void closingWaitsForOneRepetition();
    void noCallRunsAfterTheLastWork();
    void closedWorkerRefuses();

private:
    std::atomic<int> m_recoveries{0};
    std::unique_ptr<CameraWorker> m_worker;
};

void tst_WorkerClosing::init()
{
    m_recoveries = 0;
    m_worker = std::make_unique<CameraWorker>(
        CameraWorker::Hooks{succeed, [this] { ++m_recoveries; }, [] {}});
}

// The best of several times, because the machine may have other things to do.
void tst_WorkerClosing::idleCameraIsClosedAtOnce()
{
    qint64 best = 1000;
    for (int round = 0; round < 5; ++round) {
        init();
        QElapsedTimer timer;
        timer.start();
        m_worker->close(succeed);
        best = std::min(best, timer.elapsed());
    }
    QVERIFY2(best < 300, qPrintable(QString::number(best)));
}

void tst_WorkerClosing::lostCameraThatIsIdleDoesItsLastWork()
{
    QCOMPARE(m_worker->call(succeed), ZalErrorSuccess);
    m_worker->declareLost();
    const auto done = std::make_shared<std::atomic<bool>>(false);
    m_worker->close([done, work = lateAnswer(100)] {
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
    QCOMPARE(m_worker->call(operation.work()), ZalErrorTimeout);
    QTest::qWait(1050);
    QElapsedTimer timer;
    timer.start();
    m_worker->close(succeed);
    QVERIFY2(timer.elapsed() < 300, qPrintable(QString::number(timer.elapsed())));
    operation.end(ZalErrorSuccess);
}

void tst_WorkerClosing::closingRunsTheLastWork()
{
    bool ran = false;
    m_worker->close([&ran] {
        ran = true;
        return ZalErrorSuccess;
    });
    QVERIFY(ran);
}

void tst_WorkerClosing::closingDoesNotWaitForAnOverdueOperation()
{
    Operation operation;
    const auto last = std::make_shared<QSemaphore>();
    stall(*m_worker, operation);
    QElapsedTimer timer;
    timer.start();
    m_worker->close([last] {
        last->release();
        return ZalErrorSuccess;
    });
    QVERIFY(timer.elapsed() <= LongestBlock);
    QVERIFY(!last->tryAcquire());
    operation.end(ZalErrorSuccess);
    QVERIFY(last->tryAcquire(1, 5000));
    QCOMPARE(m_recoveries, 0);
}

void tst_WorkerClosing::closingALostCameraDoesNotWaitForItsOperation()
{
    Operation operation;
    const qint64 blocked = stall(*m_worker, operation);
    m_worker->declareLost();
    QElapsedTimer timer;
    timer.start();
    m_worker->close(succeed);
    QVERIFY(blocked + timer.elapsed() <= LongestBlock);
    operation.end(ZalErrorTimeout);
}

void tst_WorkerClosing::slowCallAndClosingTogetherBlockNoLongerThanOneStall()
{
    Operation stalled;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(m_worker->call(lateAnswer(400)), ZalErrorSuccess);
    m_worker->close(stalled.work());
    QVERIFY2(timer.elapsed() <= LongestBlock, qPrintable(QString::number(timer.elapsed())));
    stalled.end(ZalErrorSuccess);
}

void tst_WorkerClosing::slowCallsThatFollowEachOtherAddUp()
{
    Operation stalled;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 4; ++i)
        QCOMPARE(m_worker->call(lateAnswer(100)), ZalErrorSuccess);
    m_worker->close(stalled.work());
    QVERIFY2(timer.elapsed() <= LongestBlock, qPrintable(QString::number(timer.elapsed())));
    stalled.end(ZalErrorSuccess);
}

void tst_WorkerClosing::waitsThatLieFarApartDoNotAddUp_data()
{
    QTest::addColumn<int>("pauseMs");
    QTest::addColumn<bool>("waited");
    QTest::newRow("just before") << 0 << false;
    QTest::newRow("long before") << 1050 << true;
}

// Whoever waited long before still waits for the last work.
void tst_WorkerClosing::waitsThatLieFarApartDoNotAddUp()
{
    QFETCH(int, pauseMs);
    QCOMPARE(m_worker->call(lateAnswer(450)), ZalErrorSuccess);
    QTest::qWait(pauseMs);
    const auto done = std::make_shared<std::atomic<bool>>(false);
    m_worker->close([done, work = lateAnswer(400)] {
        work();
        *done = true;
        return ZalErrorSuccess;
    });
    QTEST(done->load(), "waited");
}

// Giving up control is such a work: left undone, the camera would be in use for a while.
void tst_WorkerClosing::closingWaitsForOneRepetition()
{
    const auto done = std::make_shared<std::atomic<bool>>(false);
    m_worker->close([done, work = lateAnswer(510)] {
        work();
        *done = true;
        return ZalErrorSuccess;
    });
    QVERIFY(*done);
}

void tst_WorkerClosing::noCallRunsAfterTheLastWork()
{
    for (int round = 0; round < 500; ++round) {
        init();
        QSemaphore started;
        std::atomic<bool> released{false};
        std::atomic<int> late{0};
        const auto touch = [&] {
            late += released;
            started.release();
            return ZalErrorSuccess;
        };
        std::thread caller([&] {
            while (m_worker->call(touch) == ZalErrorSuccess) {
            }
        });
        QVERIFY(started.tryAcquire(1, 5000));
        m_worker->close([&] {
            released = true;
            return ZalErrorSuccess;
        });
        caller.join();
        QCOMPARE(late, 0);
    }
}

void tst_WorkerClosing::closedWorkerRefuses()
{
    m_worker->close(succeed);
    QCOMPARE(m_worker->call(succeed), ZalErrorNotOpen);
    QVERIFY(!m_worker->isOpen());
    QVERIFY(!m_worker->isLost());
}

QTEST_GUILESS_MAIN(tst_WorkerClosing)
#include "tst_WorkerClosing.moc"
