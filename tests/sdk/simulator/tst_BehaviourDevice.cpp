#include "sdk/simulator/BehaviourDevice.h"
#include "tests/sdk/simulator/Bench.h"

#include <QtTest>

#include <limits>

using namespace ZalSim;
using namespace ZalSim::Registers;

class tst_BehaviourDevice : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void imageIsSmallerThanTheSensor();
    void textsFillTheirFields();
    void longTextIsCutWithItsTerminator();
    void exposureAndGainReachTheServer();
    void formatIsKeptWhileAcquiring();
    void numbersThatAreNoneCountAsZero();
    void commandIsTakenOnce();

private:
    std::unique_ptr<Bench> bench;
    std::unique_ptr<BehaviourDevice> device;
};

void tst_BehaviourDevice::init()
{
    bench = std::make_unique<Bench>();
    device = std::make_unique<BehaviourDevice>(*FindModel("full"));
    device->SwitchOn(bench->Registers());
}

void tst_BehaviourDevice::imageIsSmallerThanTheSensor()
{
    Memory& memory = bench->Registers();
    QCOMPARE(memory.Read(Width), 640U);
    QCOMPARE(memory.Read(Height), 480U);
    QVERIFY(memory.Read(SensorWidth) > 640);
    QVERIFY(memory.Read(SensorHeight) > 480);
    QCOMPARE(memory.Read(PixelFormat), 0x01080001U);
}

void tst_BehaviourDevice::textsFillTheirFields()
{
    // "Tars" in the order of the wire.
    QCOMPARE(bench->Registers().Read(VendorName), 0x54617273U);
    QCOMPARE(bench->Registers().Read(FamilyName), 0x53696d20U);
}

void tst_BehaviourDevice::longTextIsCutWithItsTerminator()
{
    bench->Registers().WriteText(FirmwareVersion, "1234567890", 8);
    QCOMPARE(bench->Registers().Read(FirmwareVersion), 0x31323334U);
    QCOMPARE(bench->Registers().Read(FirmwareVersion + 4), 0x35363700U);
}

void tst_BehaviourDevice::exposureAndGainReachTheServer()
{
    bench->Registers().WriteDouble(ExposureTime, 1234.6);
    bench->Registers().WriteDouble(Gain, 6.5);
    bench->Step(*device);
    QCOMPARE(bench->Registers().Read(AravisExposureUs), 1235U);
    QCOMPARE(bench->Registers().Read(AravisGain), 65U);
}

void tst_BehaviourDevice::formatIsKeptWhileAcquiring()
{
    Memory& memory = bench->Registers();
    memory.Write(Width, 320);
    bench->Step(*device);
    QCOMPARE(memory.Read(Width), 320U);
    memory.Write(Acquisition, 1);
    memory.Write(Width, 1920);
    memory.Write(PixelFormat, 0x02180014);
    bench->Step(*device);
    QCOMPARE(memory.Read(Width), 320U);
    QCOMPARE(memory.Read(PixelFormat), 0x01080001U);
    memory.Write(Acquisition, 0);
    memory.Write(Width, 1920);
    bench->Step(*device);
    QCOMPARE(memory.Read(Width), 1920U);
}

void tst_BehaviourDevice::numbersThatAreNoneCountAsZero()
{
    bench->Registers().WriteDouble(Gain, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(bench->Registers().ReadDouble(Gain), 0.0);
    bench->Registers().WriteDouble(Gain, std::numeric_limits<double>::infinity());
    QCOMPARE(bench->Registers().ReadDouble(Gain), 0.0);
}

void tst_BehaviourDevice::commandIsTakenOnce()
{
    bench->Registers().Write(TimestampLatch, 1);
    QVERIFY(bench->Registers().TakeCommand(TimestampLatch));
    QVERIFY(!bench->Registers().TakeCommand(TimestampLatch));
}

QTEST_GUILESS_MAIN(tst_BehaviourDevice)
#include "tst_BehaviourDevice.moc"
