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
    std::unique_ptr<Bench> m_bench;
    std::unique_ptr<BehaviourDevice> m_device;
};

void tst_BehaviourDevice::init()
{
    m_bench = std::make_unique<Bench>();
    m_device = std::make_unique<BehaviourDevice>(*findModel("full"));
    m_device->switchOn(m_bench->registers());
}

void tst_BehaviourDevice::imageIsSmallerThanTheSensor()
{
    Memory& memory = m_bench->registers();
    QCOMPARE(memory.read(Width), 640U);
    QCOMPARE(memory.read(Height), 480U);
    QVERIFY(memory.read(SensorWidth) > 640);
    QVERIFY(memory.read(SensorHeight) > 480);
    QCOMPARE(memory.read(PixelFormat), 0x01080001U);
}

void tst_BehaviourDevice::textsFillTheirFields()
{
    // "Tars" in the order of the wire.
    QCOMPARE(m_bench->registers().read(VendorName), 0x54617273U);
    QCOMPARE(m_bench->registers().read(FamilyName), 0x53696d20U);
}

void tst_BehaviourDevice::longTextIsCutWithItsTerminator()
{
    m_bench->registers().writeText(FirmwareVersion, "1234567890", 8);
    QCOMPARE(m_bench->registers().read(FirmwareVersion), 0x31323334U);
    QCOMPARE(m_bench->registers().read(FirmwareVersion + 4), 0x35363700U);
}

void tst_BehaviourDevice::exposureAndGainReachTheServer()
{
    m_bench->registers().writeDouble(ExposureTime, 1234.6);
    m_bench->registers().writeDouble(Gain, 6.5);
    m_bench->step(*m_device);
    QCOMPARE(m_bench->registers().read(AravisExposureUs), 1235U);
    QCOMPARE(m_bench->registers().read(AravisGain), 65U);
}

void tst_BehaviourDevice::formatIsKeptWhileAcquiring()
{
    Memory& memory = m_bench->registers();
    memory.write(Width, 320);
    m_bench->step(*m_device);
    QCOMPARE(memory.read(Width), 320U);
    memory.write(Acquisition, 1);
    memory.write(Width, 1920);
    memory.write(PixelFormat, 0x02180014);
    m_bench->step(*m_device);
    QCOMPARE(memory.read(Width), 320U);
    QCOMPARE(memory.read(PixelFormat), 0x01080001U);
    memory.write(Acquisition, 0);
    memory.write(Width, 1920);
    m_bench->step(*m_device);
    QCOMPARE(memory.read(Width), 1920U);
}

void tst_BehaviourDevice::numbersThatAreNoneCountAsZero()
{
    m_bench->registers().writeDouble(Gain, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(m_bench->registers().readDouble(Gain), 0.0);
    m_bench->registers().writeDouble(Gain, std::numeric_limits<double>::infinity());
    QCOMPARE(m_bench->registers().readDouble(Gain), 0.0);
}

void tst_BehaviourDevice::commandIsTakenOnce()
{
    m_bench->registers().write(TimestampLatch, 1);
    QVERIFY(m_bench->registers().takeCommand(TimestampLatch));
    QVERIFY(!m_bench->registers().takeCommand(TimestampLatch));
}

QTEST_GUILESS_MAIN(tst_BehaviourDevice)
#include "tst_BehaviourDevice.moc"
