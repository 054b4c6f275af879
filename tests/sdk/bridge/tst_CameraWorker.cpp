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

class tst_CameraWorker : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_worker.reset(); }

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
    void workIsReleasedOnTheWorkerThread();
    void exceptionOfTheWorkIsAStatus();

private:
    std::atomic<int> m_probes{0};
    std::atomic<int> m_recoveries{0};
    std::atomic<int> m_losses{0};
    std::atomic<ZalErrorType> m_probeResult{ZalErrorSuccess};
    std::function<void()> m_onRecovery;
    std::unique_ptr<CameraWorker> m_worker;
};

void tst_CameraWorker::init()
{
    m_probes = m_recoveries = m_losses = 0;
    m_probeResult = ZalErrorSuccess;
    CameraWorker::Hooks hooks;
    hooks.probe = [this] {
        ++m_probes;
        return m_probeResult.load();
    };
    m_onRecovery = [] {};
    hooks.recovered = [this] {
        ++m_recoveries;
        m_onRecovery();
    };
    hooks.lost = [this] { ++m_losses; };
    m_worker = std::make_unique<CameraWorker>(hooks);
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
    QCOMPARE(m_worker->call([status] { return status; }), status);
    QVERIFY(m_worker->isHealthy());
    QVERIFY(m_worker->isOpen());
}

void tst_CameraWorker::workRunsInOrderOnOneOtherThread()
{
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int i = 0; i < 3; ++i) {
        m_worker->post([&, i] {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
            return ZalErrorSuccess;
        });
    }
    QCOMPARE(m_worker->call(succeed), ZalErrorSuccess);
    QCOMPARE(order, (std::vector<int>{0, 1, 2}));
    QVERIFY(threads[0] != std::this_thread::get_id());
    QVERIFY(threads[0] == threads[1] && threads[1] == threads[2]);
}

void tst_CameraWorker::overdueCallReturnsAndOpensTheBreaker()
{
    Operation operation;
    QVERIFY(stall(*m_worker, operation) <= LongestBlock);
    QVERIFY(!m_worker->isHealthy());
    QVERIFY(m_worker->isOpen());
    operation.end(ZalErrorSuccess);
}

// As when a datagram was lost and the question is put again after half a second.
void tst_CameraWorker::callThatTakesOneRepetitionSucceeds()
{
    QCOMPARE(m_worker->call(lateAnswer(510)), ZalErrorSuccess);
    QVERIFY(m_worker->isHealthy());
    QCOMPARE(m_recoveries, 0);
}

void tst_CameraWorker::openBreakerRefusesWithoutRunning()
{
    Operation operation;
    std::atomic<int> runs{0};
    stall(*m_worker, operation);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 100; ++i) {
        const auto status = m_worker->call([&runs] {
            ++runs;
            return ZalErrorSuccess;
        });
        QCOMPARE(status, ZalErrorTimeout);
    }
    QVERIFY(timer.elapsed() <= LongestBlock);
    operation.end(ZalErrorSuccess);
    QTRY_VERIFY(m_worker->isHealthy());
    QCOMPARE(m_worker->call(succeed), ZalErrorSuccess);
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
    stall(*m_worker, operation);
    operation.end(result);
    QTRY_COMPARE(m_recoveries, 1);
    QVERIFY(m_worker->isHealthy());
    QCOMPARE(m_worker->call(succeed), ZalErrorSuccess);
    QCOMPARE(m_probes, 0);
    QCOMPARE(m_losses, 0);
}

void tst_CameraWorker::abandonedCallsDoNotRunLater()
{
    Operation operation;
    std::atomic<bool> ran{false};
    m_worker->post(operation.work());
    QVERIFY(operation.waitUntilStarted());
    const auto status = m_worker->call([&ran] {
        ran = true;
        return ZalErrorSuccess;
    });
    QCOMPARE(status, ZalErrorTimeout);
    operation.end(ZalErrorSuccess);
    QTRY_VERIFY(m_worker->isHealthy());
    QCOMPARE(m_worker->call(succeed), ZalErrorSuccess);
    QVERIFY(!ran);
}

void tst_CameraWorker::waitingCallersAreReleasedWhenTheBreakerOpens()
{
    Operation operation;
    ZalErrorType other = ZalErrorSuccess;
    std::thread caller([&] { stall(*m_worker, operation); });
    QVERIFY(operation.waitUntilStarted());
    QElapsedTimer timer;
    timer.start();
    other = m_worker->call(succeed);
    QCOMPARE(other, ZalErrorTimeout);
    QVERIFY(timer.elapsed() <= LongestBlock);
    caller.join();
    operation.end(ZalErrorSuccess);
}

void tst_CameraWorker::timedOutOperationIsFollowedByAProbe()
{
    Operation operation;
    stall(*m_worker, operation);
    operation.end(ZalErrorTimeout);
    QTRY_COMPARE(m_recoveries, 1);
    QCOMPARE(m_probes, 1);
    QCOMPARE(m_losses, 0);
    QCOMPARE(m_worker->call(succeed), ZalErrorSuccess);
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
    m_onRecovery = holdUp.work();
    stall(*m_worker, operation);
    operation.end(ZalErrorSuccess);
    QVERIFY(holdUp.waitUntilStarted());
    m_probeResult = answer;
    std::atomic<bool> ran{false};
    const auto status = m_worker->call([&ran] {
        ran = true;
        return ZalErrorSuccess;
    });
    QCOMPARE(status, ZalErrorTimeout);
    QCOMPARE(m_probes, 0);
    // For this recovery and the next one.
    holdUp.end(ZalErrorSuccess);
    holdUp.end(ZalErrorSuccess);
    QTRY_COMPARE(m_recoveries + m_losses, recovered + lost);
    QCOMPARE(m_losses, lost);
    QVERIFY(m_probes > 0);
    QVERIFY(!ran);
}

void tst_CameraWorker::secondTimeOutMeansLost()
{
    Operation operation;
    m_probeResult = ZalErrorTimeout;
    stall(*m_worker, operation);
    operation.end(ZalErrorTimeout);
    QTRY_COMPARE(m_losses, 1);
    QVERIFY(m_worker->isLost());
    QVERIFY(!m_worker->isOpen());
    QCOMPARE(m_recoveries, 0);
    QCOMPARE(m_worker->call(succeed), ZalErrorNotOpen);
}

void tst_CameraWorker::closedConnectionMeansLost()
{
    QCOMPARE(m_worker->call([] { return ZalErrorNotOpen; }), ZalErrorNotOpen);
    QTRY_COMPARE(m_losses, 1);
    QVERIFY(m_worker->isLost());
    QCOMPARE(m_probes, 0);
}

void tst_CameraWorker::lossReleasesWaitingCallers()
{
    Operation operation;
    ZalErrorType status = ZalErrorSuccess;
    std::thread caller([&] { status = m_worker->call(operation.work()); });
    QVERIFY(operation.waitUntilStarted());
    m_worker->declareLost();
    caller.join();
    QCOMPARE(status, ZalErrorNotOpen);
    operation.end(ZalErrorTimeout);
}

void tst_CameraWorker::lossIsReportedOnce()
{
    m_worker->declareLost();
    m_worker->declareLost();
    m_worker->post([] { return ZalErrorTimeout; });
    cleanup();
    QCOMPARE(m_losses, 1);
    QCOMPARE(m_probes, 0);
}

void tst_CameraWorker::postedWorkRunsInItsTurnWhateverHappens()
{
    Operation operation;
    std::atomic<int> runs{0};
    stall(*m_worker, operation);
    const auto count = [&runs] {
        ++runs;
        return ZalErrorSuccess;
    };
    m_worker->post(count);
    operation.end(ZalErrorSuccess);
    QTRY_COMPARE(runs, 1);
    m_worker->declareLost();
    m_worker->post(count);
    QTRY_COMPARE(runs, 2);
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
    const auto status = m_worker->call([&worked, held = std::move(held)] {
        worked = std::this_thread::get_id();
        return *held == 1 ? ZalErrorSuccess : ZalErrorUnknown;
    });
    QCOMPARE(status, ZalErrorSuccess);
    QVERIFY(released == worked);
}

void tst_CameraWorker::exceptionOfTheWorkIsAStatus()
{
    QCOMPARE(m_worker->call([]() -> ZalErrorType { throw std::bad_alloc(); }),
             ZalErrorOutOfResources);
    QCOMPARE(m_worker->call([]() -> ZalErrorType { throw std::length_error("too long"); }),
             ZalErrorOutOfResources);
    QCOMPARE(m_worker->call([]() -> ZalErrorType { throw 1; }), ZalErrorUnknown);
    QVERIFY(m_worker->isHealthy());
    QCOMPARE(m_worker->call(succeed), ZalErrorSuccess);
}

QTEST_GUILESS_MAIN(tst_CameraWorker)
#include "tst_CameraWorker.moc"
