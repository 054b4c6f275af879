// The worker thread and its circuit breaker, without a camera.
#include "tests/sdk/bridge/WorkerOperations.h"

#include <QtTest>

#include <atomic>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace WorkerOperations;
using ZalCPP::CameraWorker;

namespace {

// What a caller's thread may be blocked for.
constexpr qint64 LongestBlock = 650;

} // namespace

class tst_CameraWorker : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { worker.reset(); }

    void callReturnsTheStatusOfItsWork_data();
    void callReturnsTheStatusOfItsWork();
    void workRunsInOrderOnOneOtherThread();
    void overdueCallReturnsAndOpensTheBreaker();
    void callThatTakesOneRepetitionSucceeds();
    void openBreakerRefusesWithoutRunning();
    void breakerClosesWhenTheOperationEndsWell_data();
    void breakerClosesWhenTheOperationEndsWell();
    void abandonedCallsDoNotRunLater();
    void waitingCallersAreReleasedWhenTheBreakerOpens();
    void timedOutOperationIsFollowedByAProbe();
    void callThatNeverRanIsFollowedByAProbe_data();
    void callThatNeverRanIsFollowedByAProbe();
    void secondTimeOutMeansLost();
    void closedConnectionMeansLost();
    void lossReleasesWaitingCallers();
    void lossIsReportedOnce();
    void postedWorkRunsInItsTurnWhateverHappens();
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
    void workIsReleasedOnTheWorkerThread();
    void exceptionOfTheWorkIsAStatus();

private:
    qint64 open(Operation& operation);

    std::atomic<int> probes{0};
    std::atomic<int> recoveries{0};
    std::atomic<int> losses{0};
    std::atomic<ZalErrorType> probeResult{ZalErrorSuccess};
    std::function<void()> onRecovery;
    std::unique_ptr<CameraWorker> worker;
};

void tst_CameraWorker::init()
{
    probes = recoveries = losses = 0;
    probeResult = ZalErrorSuccess;
    CameraWorker::Hooks hooks;
    hooks.probe = [this] {
        ++probes;
        return probeResult.load();
    };
    onRecovery = [] {};
    hooks.recovered = [this] {
        ++recoveries;
        onRecovery();
    };
    hooks.lost = [this] { ++losses; };
    worker = std::make_unique<CameraWorker>(hooks);
}

// Opens the breaker with an operation that does not end; says how long the caller was blocked.
qint64 tst_CameraWorker::open(Operation& operation)
{
    QElapsedTimer timer;
    timer.start();
    if (worker->call(operation.work()) != ZalErrorTimeout)
        qFatal("The call did not time out");
    return timer.elapsed();
}

void tst_CameraWorker::callReturnsTheStatusOfItsWork_data()
{
    QTest::addColumn<ZalErrorType>("status");
    QTest::newRow("success") << ZalErrorSuccess;
    QTest::newRow("failure of the camera") << ZalErrorOutOfRange;
    QTest::newRow("failure of the connection") << ZalErrorTransport;
}

void tst_CameraWorker::callReturnsTheStatusOfItsWork()
{
    QFETCH(ZalErrorType, status);
    QCOMPARE(worker->call([status] { return status; }), status);
    QVERIFY(worker->isHealthy());
    QVERIFY(worker->isOpen());
}

void tst_CameraWorker::workRunsInOrderOnOneOtherThread()
{
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int i = 0; i < 3; ++i) {
        worker->post([&, i] {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
            return ZalErrorSuccess;
        });
    }
    QCOMPARE(worker->call(succeed), ZalErrorSuccess);
    QCOMPARE(order, (std::vector<int>{0, 1, 2}));
    QVERIFY(threads[0] != std::this_thread::get_id());
    QVERIFY(threads[0] == threads[1] && threads[1] == threads[2]);
}

void tst_CameraWorker::overdueCallReturnsAndOpensTheBreaker()
{
    Operation operation;
    QVERIFY(open(operation) <= LongestBlock);
    QVERIFY(!worker->isHealthy());
    QVERIFY(worker->isOpen());
    operation.end(ZalErrorSuccess);
}

// A datagram was lost, so that the question is put again after half a second.
void tst_CameraWorker::callThatTakesOneRepetitionSucceeds()
{
    QCOMPARE(worker->call(lateAnswer(510)), ZalErrorSuccess);
    QVERIFY(worker->isHealthy());
    QCOMPARE(recoveries, 0);
}

void tst_CameraWorker::openBreakerRefusesWithoutRunning()
{
    Operation operation;
    std::atomic<int> runs{0};
    open(operation);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 100; ++i) {
        const auto status = worker->call([&runs] {
            ++runs;
            return ZalErrorSuccess;
        });
        QCOMPARE(status, ZalErrorTimeout);
    }
    QVERIFY(timer.elapsed() <= LongestBlock);
    operation.end(ZalErrorSuccess);
    QTRY_VERIFY(worker->isHealthy());
    QCOMPARE(worker->call(succeed), ZalErrorSuccess);
    QCOMPARE(runs, 0);
}

void tst_CameraWorker::breakerClosesWhenTheOperationEndsWell_data()
{
    QTest::addColumn<ZalErrorType>("result");
    QTest::newRow("success") << ZalErrorSuccess;
    QTest::newRow("the camera refuses") << ZalErrorOutOfRange;
}

void tst_CameraWorker::breakerClosesWhenTheOperationEndsWell()
{
    QFETCH(ZalErrorType, result);
    Operation operation;
    open(operation);
    operation.end(result);
    QTRY_COMPARE(recoveries, 1);
    QVERIFY(worker->isHealthy());
    QCOMPARE(worker->call(succeed), ZalErrorSuccess);
    QCOMPARE(probes, 0);
    QCOMPARE(losses, 0);
}

void tst_CameraWorker::abandonedCallsDoNotRunLater()
{
    Operation operation;
    std::atomic<bool> ran{false};
    worker->post(operation.work());
    QVERIFY(operation.waitUntilStarted());
    const auto status = worker->call([&ran] {
        ran = true;
        return ZalErrorSuccess;
    });
    QCOMPARE(status, ZalErrorTimeout);
    operation.end(ZalErrorSuccess);
    QTRY_VERIFY(worker->isHealthy());
    QCOMPARE(worker->call(succeed), ZalErrorSuccess);
    QVERIFY(!ran);
}

void tst_CameraWorker::waitingCallersAreReleasedWhenTheBreakerOpens()
{
    Operation operation;
    ZalErrorType other = ZalErrorSuccess;
    std::thread caller([&] { open(operation); });
    QVERIFY(operation.waitUntilStarted());
    QElapsedTimer timer;
    timer.start();
    other = worker->call(succeed);
    QCOMPARE(other, ZalErrorTimeout);
    QVERIFY(timer.elapsed() <= LongestBlock);
    caller.join();
    operation.end(ZalErrorSuccess);
}

void tst_CameraWorker::timedOutOperationIsFollowedByAProbe()
{
    Operation operation;
    open(operation);
    operation.end(ZalErrorTimeout);
    QTRY_COMPARE(recoveries, 1);
    QCOMPARE(probes, 1);
    QCOMPARE(losses, 0);
    QCOMPARE(worker->call(succeed), ZalErrorSuccess);
}

void tst_CameraWorker::callThatNeverRanIsFollowedByAProbe_data()
{
    QTest::addColumn<ZalErrorType>("answer");
    QTest::addColumn<int>("recovered");
    QTest::addColumn<int>("lost");
    QTest::newRow("the camera answers") << ZalErrorSuccess << 2 << 0;
    QTest::newRow("the camera is silent") << ZalErrorTimeout << 1 << 1;
}

// The thread is held up between two operations until a call is overdue: nothing is outstanding
// then that could end and close the breaker.
void tst_CameraWorker::callThatNeverRanIsFollowedByAProbe()
{
    QFETCH(ZalErrorType, answer);
    QFETCH(int, recovered);
    QFETCH(int, lost);
    Operation operation;
    Operation holdUp;
    onRecovery = holdUp.work();
    open(operation);
    operation.end(ZalErrorSuccess);
    QVERIFY(holdUp.waitUntilStarted());
    probeResult = answer;
    std::atomic<bool> ran{false};
    const auto status = worker->call([&ran] {
        ran = true;
        return ZalErrorSuccess;
    });
    QCOMPARE(status, ZalErrorTimeout);
    QCOMPARE(probes, 0);
    // For this recovery and the next one.
    holdUp.end(ZalErrorSuccess);
    holdUp.end(ZalErrorSuccess);
    QTRY_COMPARE(recoveries + losses, recovered + lost);
    QCOMPARE(losses, lost);
    QVERIFY(probes > 0);
    QVERIFY(!ran);
}

void tst_CameraWorker::secondTimeOutMeansLost()
{
    Operation operation;
    probeResult = ZalErrorTimeout;
    open(operation);
    operation.end(ZalErrorTimeout);
    QTRY_COMPARE(losses, 1);
    QVERIFY(worker->isLost());
    QVERIFY(!worker->isOpen());
    QCOMPARE(recoveries, 0);
    QCOMPARE(worker->call(succeed), ZalErrorNotOpen);
}

void tst_CameraWorker::closedConnectionMeansLost()
{
    QCOMPARE(worker->call([] { return ZalErrorNotOpen; }), ZalErrorNotOpen);
    QTRY_COMPARE(losses, 1);
    QVERIFY(worker->isLost());
    QCOMPARE(probes, 0);
}

void tst_CameraWorker::lossReleasesWaitingCallers()
{
    Operation operation;
    ZalErrorType status = ZalErrorSuccess;
    std::thread caller([&] { status = worker->call(operation.work()); });
    QVERIFY(operation.waitUntilStarted());
    worker->declareLost();
    caller.join();
    QCOMPARE(status, ZalErrorNotOpen);
    operation.end(ZalErrorTimeout);
}

void tst_CameraWorker::lossIsReportedOnce()
{
    worker->declareLost();
    worker->declareLost();
    worker->post([] { return ZalErrorTimeout; });
    cleanup();
    QCOMPARE(losses, 1);
    QCOMPARE(probes, 0);
}

void tst_CameraWorker::postedWorkRunsInItsTurnWhateverHappens()
{
    Operation operation;
    std::atomic<int> runs{0};
    open(operation);
    const auto count = [&runs] {
        ++runs;
        return ZalErrorSuccess;
    };
    worker->post(count);
    operation.end(ZalErrorSuccess);
    QTRY_COMPARE(runs, 1);
    worker->declareLost();
    worker->post(count);
    QTRY_COMPARE(runs, 2);
}

void tst_CameraWorker::closingRunsTheLastWork()
{
    bool ran = false;
    worker->close([&ran] {
        ran = true;
        return ZalErrorSuccess;
    });
    QVERIFY(ran);
}

void tst_CameraWorker::closingDoesNotWaitForAnOverdueOperation()
{
    Operation operation;
    const auto last = std::make_shared<QSemaphore>();
    open(operation);
    QElapsedTimer timer;
    timer.start();
    worker->close([last] {
        last->release();
        return ZalErrorSuccess;
    });
    QVERIFY(timer.elapsed() <= LongestBlock);
    QVERIFY(!last->tryAcquire());
    operation.end(ZalErrorSuccess);
    QVERIFY(last->tryAcquire(1, 5000));
    QCOMPARE(recoveries, 0);
}

void tst_CameraWorker::closingALostCameraDoesNotWaitForItsOperation()
{
    Operation operation;
    const qint64 blocked = open(operation);
    worker->declareLost();
    QElapsedTimer timer;
    timer.start();
    worker->close(succeed);
    QVERIFY(blocked + timer.elapsed() <= LongestBlock);
    operation.end(ZalErrorTimeout);
}

void tst_CameraWorker::slowCallAndClosingTogetherBlockNoLongerThanOneStall()
{
    Operation stalled;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(worker->call(lateAnswer(400)), ZalErrorSuccess);
    worker->close(stalled.work());
    QVERIFY2(timer.elapsed() <= LongestBlock, qPrintable(QString::number(timer.elapsed())));
    stalled.end(ZalErrorSuccess);
}

void tst_CameraWorker::slowCallsThatFollowEachOtherAddUp()
{
    Operation stalled;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 4; ++i)
        QCOMPARE(worker->call(lateAnswer(100)), ZalErrorSuccess);
    worker->close(stalled.work());
    QVERIFY2(timer.elapsed() <= LongestBlock, qPrintable(QString::number(timer.elapsed())));
    stalled.end(ZalErrorSuccess);
}

void tst_CameraWorker::waitsThatLieFarApartDoNotAddUp_data()
{
    QTest::addColumn<int>("pauseMs");
    QTest::addColumn<bool>("waited");
    QTest::newRow("just before") << 0 << false;
    QTest::newRow("long before") << 1050 << true;
}

// Who has waited long before waits for the last work all the same.
void tst_CameraWorker::waitsThatLieFarApartDoNotAddUp()
{
    QFETCH(int, pauseMs);
    QCOMPARE(worker->call(lateAnswer(450)), ZalErrorSuccess);
    QTest::qWait(pauseMs);
    const auto done = std::make_shared<std::atomic<bool>>(false);
    worker->close([done, work = lateAnswer(400)] {
        work();
        *done = true;
        return ZalErrorSuccess;
    });
    QTEST(done->load(), "waited");
}

// Giving up control is such a work: left undone, the camera would be in use for a while.
void tst_CameraWorker::closingWaitsForOneRepetition()
{
    const auto done = std::make_shared<std::atomic<bool>>(false);
    worker->close([done, work = lateAnswer(510)] {
        work();
        *done = true;
        return ZalErrorSuccess;
    });
    QVERIFY(*done);
}

void tst_CameraWorker::noCallRunsAfterTheLastWork()
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
            while (worker->call(touch) == ZalErrorSuccess) {
            }
        });
        QVERIFY(started.tryAcquire(1, 5000));
        worker->close([&] {
            released = true;
            return ZalErrorSuccess;
        });
        caller.join();
        QCOMPARE(late, 0);
    }
}

void tst_CameraWorker::closedWorkerRefuses()
{
    worker->close(succeed);
    QCOMPARE(worker->call(succeed), ZalErrorNotOpen);
    QVERIFY(!worker->isOpen());
    QVERIFY(!worker->isLost());
}

void tst_CameraWorker::workIsReleasedOnTheWorkerThread()
{
    std::thread::id released;
    const auto note = [&released](int* held) {
        released = std::this_thread::get_id();
        delete held;
    };
    std::thread::id worked;
    auto held = std::shared_ptr<int>(new int(1), note);
    const auto status = worker->call([&worked, held = std::move(held)] {
        worked = std::this_thread::get_id();
        return *held == 1 ? ZalErrorSuccess : ZalErrorUnknown;
    });
    QCOMPARE(status, ZalErrorSuccess);
    QVERIFY(released == worked);
}

void tst_CameraWorker::exceptionOfTheWorkIsAStatus()
{
    QCOMPARE(worker->call([]() -> ZalErrorType { throw std::bad_alloc(); }),
             ZalErrorOutOfResources);
    QCOMPARE(worker->call([]() -> ZalErrorType { throw std::length_error("too long"); }),
             ZalErrorOutOfResources);
    QCOMPARE(worker->call([]() -> ZalErrorType { throw 1; }), ZalErrorUnknown);
    QVERIFY(worker->isHealthy());
    QCOMPARE(worker->call(succeed), ZalErrorSuccess);
}

QTEST_GUILESS_MAIN(tst_CameraWorker)
#include "tst_CameraWorker.moc"
