// What is thrown where the worker thread asks whether a camera is back, and says so.
#include "tests/sdk/bridge/WorkerOperations.h"

#include <QtTest>

#include <atomic>
#include <new>

using namespace WorkerOperations;
using ZalCPP::CameraWorker;

class tst_ThrowingHooks : public QObject
{
    Q_OBJECT

private slots:
    void exceptionOfTheProbeMeansLost();
    void exceptionOfARecoveryIsNone();
};

void tst_ThrowingHooks::exceptionOfTheProbeMeansLost()
{
    std::atomic<int> losses{0};
    CameraWorker worker(
        {[]() -> ZalErrorType { throw std::bad_alloc(); }, [] {}, [&losses] { ++losses; }});
    Operation operation;
    QCOMPARE(worker.call(operation.work()), ZalErrorTimeout);
    operation.end(ZalErrorTimeout);
    QTRY_COMPARE(losses, 1);
    QCOMPARE(worker.call(succeed), ZalErrorNotOpen);
}

void tst_ThrowingHooks::exceptionOfARecoveryIsNone()
{
    std::atomic<int> recoveries{0};
    const auto recovered = [&recoveries] {
        ++recoveries;
        throw std::bad_alloc();
    };
    CameraWorker worker({succeed, recovered, [] {}});
    Operation operation;
    QCOMPARE(worker.call(operation.work()), ZalErrorTimeout);
    operation.end(ZalErrorSuccess);
    QTRY_COMPARE(recoveries, 1);
    QCOMPARE(worker.call(succeed), ZalErrorSuccess);
    QVERIFY(!worker.isLost());
}

QTEST_GUILESS_MAIN(tst_ThrowingHooks)
#include "tst_ThrowingHooks.moc"
