#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/simulator/SdkClient.h"

#include <QtTest>

/// The ways from a signal to a frame that people set up, from end to end.
class tst_TriggerChains : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void signalMakesOneFrameEach_data();
    void signalMakesOneFrameEach();
    void lineMakesOneFrameOnEachRisingEdge();
    void pulseWidthIsTheExposure();
    void strobeFollowsEveryExposure();
    void edgeStartsABurst();
    void edgeStartsALimitedAcquisition();
    void timerDelaysTheTrigger_data();
    void timerDelaysTheTrigger();
    void nothingComesBeforeTheTimersDelayIsOver();
    void triggerDelayPostponesTheFrame_data();
    void triggerDelayPostponesTheFrame();
    void counterPassesEveryThirdEdge_data();
    void counterPassesEveryThirdEdge();
    void counterDividesATrainThatIsFasterThanTheCamerasSteps();
    void pulseTrainTriggersFrames();

private:
    void switchTrigger(const char* source, const char* activation = "RisingEdge") const;
    void pulseLine0(int count = 1);

    std::unique_ptr<ZalSim::SimulatedCamera> m_camera;
    std::unique_ptr<SdkClient> m_client;
};

void tst_TriggerChains::init()
{
    std::string error;
    m_camera = ZalSim::SimulatedCamera::start({}, error);
    QVERIFY2(m_camera, error.c_str());
    m_camera->setInputLine(0, false);
    m_client = std::make_unique<SdkClient>();
    m_client->set("ExposureTime", 1000);
}

void tst_TriggerChains::cleanup()
{
    m_client.reset();
    m_camera.reset();
}

void tst_TriggerChains::switchTrigger(const char* source, const char* activation) const
{
    m_client->setFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    m_client->set("TriggerSource", source);
    m_client->set("TriggerActivation", activation);
}

void tst_TriggerChains::pulseLine0(int count)
{
    for (int i = 0; i < count; ++i) {
        m_camera->setInputLine(0, true);
        m_camera->setInputLine(0, false);
    }
}

void tst_TriggerChains::signalMakesOneFrameEach_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("Software") << 0 << QByteArray("TriggerSoftware");
    QTest::newRow("SoftwareSignal0") << 0 << QByteArray("SoftwareSignalPulse");
    QTest::newRow("SoftwareSignal1") << 1 << QByteArray("SoftwareSignalPulse");
    QTest::newRow("Action0") << 0 << QByteArray();
    QTest::newRow("Action1") << 1 << QByteArray();
}

void tst_TriggerChains::signalMakesOneFrameEach()
{
    QFETCH(int, selected);
    QFETCH(QByteArray, command);
    m_client->set("SoftwareSignalSelector", selected == 0 ? "SoftwareSignal0" : "SoftwareSignal1");
    m_client->set("ActionDeviceKey", 7);
    m_client->set("ActionSelector", selected);
    m_client->set("ActionGroupKey", 9);
    m_client->set("ActionGroupMask", 2);
    switchTrigger(QTest::currentDataTag());
    m_client->startAcquisition();
    for (int frame = 1; frame <= 3; ++frame) {
        if (command.isEmpty())
            m_camera->sendAction(7, 9, 2);
        else
            m_client->execute(command.constData());
        QVERIFY(m_client->getsExactly(frame));
    }
}

void tst_TriggerChains::lineMakesOneFrameOnEachRisingEdge()
{
    switchTrigger("Line0");
    m_client->startAcquisition();
    pulseLine0(4);
    QVERIFY(m_client->getsExactly(4));
}

void tst_TriggerChains::pulseWidthIsTheExposure()
{
    switchTrigger("Line0");
    m_client->set("ExposureMode", "TriggerWidth");
    m_client->setFor("LineSelector", "Line3", "LineSource", "ExposureActive");
    m_client->startAcquisition();
    m_camera->setInputLine(0, true);
    QTRY_COMPARE(m_client->number("LineStatus"), 1.0);
    QVERIFY(m_client->getsExactly(0));
    QCOMPARE(m_client->number("LineStatus"), 1.0);
    m_camera->setInputLine(0, false);
    QTRY_COMPARE(m_client->number("LineStatus"), 0.0);
    QVERIFY(m_client->getsExactly(1));
}

void tst_TriggerChains::strobeFollowsEveryExposure()
{
    m_client->setFor("LineSelector", "Line3", "LineSource", "ExposureActive");
    m_client->set("CounterEventSource", "Line3");
    switchTrigger("Line0");
    m_client->startAcquisition();
    pulseLine0(3);
    QVERIFY(m_client->getsExactly(3));
    QTRY_COMPARE(m_client->number("CounterValue"), 3.0);
}

void tst_TriggerChains::edgeStartsABurst()
{
    m_client->setFor("TriggerSelector", "FrameBurstStart", "TriggerMode", "On");
    m_client->set("TriggerSource", "Line0");
    m_client->set("AcquisitionBurstFrameCount", 5);
    m_client->startAcquisition();
    QVERIFY(m_client->getsExactly(0));
    pulseLine0();
    QVERIFY(m_client->getsExactly(5));
    pulseLine0();
    QVERIFY(m_client->getsExactly(10));
}

void tst_TriggerChains::edgeStartsALimitedAcquisition()
{
    m_client->set("AcquisitionMode", "MultiFrame");
    m_client->set("AcquisitionFrameCount", 4);
    m_client->setFor("TriggerSelector", "AcquisitionStart", "TriggerMode", "On");
    m_client->set("TriggerSource", "Line0");
    m_client->startAcquisition();
    QVERIFY(m_client->getsExactly(0));
    pulseLine0();
    QVERIFY(m_client->getsExactly(4));
    pulseLine0();
    QVERIFY(m_client->getsExactly(4));
}

void tst_TriggerChains::timerDelaysTheTrigger_data()
{
    QTest::addColumn<QByteArray>("activation");
    QTest::newRow("Timer0Start") << QByteArray("RisingEdge");
    QTest::newRow("Timer0End") << QByteArray("RisingEdge");
    QTest::newRow("Timer0Active") << QByteArray("FallingEdge");
}

void tst_TriggerChains::timerDelaysTheTrigger()
{
    QFETCH(QByteArray, activation);
    m_client->setFor("TimerSelector", "Timer0", "TimerTriggerSource", "Line0");
    m_client->set("TimerTriggerActivation", "RisingEdge");
    m_client->set("TimerDelay", 20000);
    m_client->set("TimerDuration", 5000);
    switchTrigger(QTest::currentDataTag(), activation.constData());
    m_client->startAcquisition();
    for (int frame = 1; frame <= 2; ++frame) {
        pulseLine0();
        QVERIFY(m_client->getsExactly(frame));
    }
}

void tst_TriggerChains::nothingComesBeforeTheTimersDelayIsOver()
{
    m_client->set("TimerTriggerSource", "Line0");
    m_client->set("TimerDelay", 1e8);
    switchTrigger("Timer0Start");
    m_client->startAcquisition();
    pulseLine0();
    QVERIFY(m_client->getsExactly(0));
    QCOMPARE(m_client->text("TimerStatus"), std::string("TimerTriggerWait"));
}

void tst_TriggerChains::triggerDelayPostponesTheFrame_data()
{
    QTest::addColumn<double>("delay");
    QTest::addColumn<int>("frames");
    QTest::newRow("short") << 30000.0 << 1;
    QTest::newRow("longer than anybody waits") << 1e7 << 0;
}

void tst_TriggerChains::triggerDelayPostponesTheFrame()
{
    QFETCH(double, delay);
    QFETCH(int, frames);
    switchTrigger("Line0");
    m_client->set("TriggerDelay", delay);
    m_client->startAcquisition();
    pulseLine0();
    QVERIFY(m_client->getsExactly(frames));
}

void tst_TriggerChains::counterPassesEveryThirdEdge_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("activation");
    QTest::newRow("end of the counter") << QByteArray("Counter0End") << QByteArray("RisingEdge");
    QTest::newRow("counter no longer active")
        << QByteArray("Counter0Active") << QByteArray("FallingEdge");
}

void tst_TriggerChains::counterPassesEveryThirdEdge()
{
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, activation);
    m_client->setFor("CounterSelector", "Counter0", "CounterEventSource", "Line0");
    m_client->set("CounterEventActivation", "RisingEdge");
    m_client->set("CounterDuration", 3);
    m_client->set("CounterResetSource", source.constData());
    m_client->set("CounterResetActivation", activation.constData());
    switchTrigger(source.constData(), activation.constData());
    m_client->startAcquisition();
    pulseLine0(2);
    QVERIFY(m_client->getsExactly(0));
    pulseLine0();
    QVERIFY(m_client->getsExactly(1));
    pulseLine0(7);
    QVERIFY(m_client->getsExactly(3));
    QTRY_COMPARE(m_client->number("CounterValue"), 1.0);
    QCOMPARE(m_client->number("CounterValueAtReset"), 3.0);
}

void tst_TriggerChains::counterDividesATrainThatIsFasterThanTheCamerasSteps()
{
    m_client->setFor("CounterSelector", "Counter1", "CounterEventSource", "Counter0End");
    m_client->set("CounterDuration", 20);
    m_client->setFor("CounterSelector", "Counter0", "CounterEventSource", "Timer0End");
    m_client->set("CounterDuration", 7);
    m_client->set("CounterResetSource", "Counter0End");
    m_client->setFor("TimerSelector", "Timer0", "TimerDuration", 50);
    m_client->set("TimerDelay", 50);
    m_client->set("TimerTriggerSource", "Timer0End");
    m_client->set("CounterSelector", "Counter1");
    QTRY_COMPARE(m_client->text("CounterStatus"), std::string("CounterCompleted"));
    QCOMPARE(m_client->number("CounterValue"), 20.0);
}

void tst_TriggerChains::pulseTrainTriggersFrames()
{
    m_client->set("TimerDuration", 20000);
    m_client->set("TimerDelay", 20000);
    m_client->set("TimerTriggerActivation", "FallingEdge");
    m_client->set("TimerTriggerSource", "Timer0Active");
    switchTrigger("Timer0Active");
    m_client->startAcquisition();
    QTRY_VERIFY(m_client->frames() >= 5);
    m_client->set("TimerTriggerSource", "Off");
    QTRY_COMPARE(m_client->text("TimerStatus"), std::string("TimerCompleted"));
    m_client->stopAcquisition();
    m_client->startAcquisition();
    QVERIFY(m_client->getsExactly(0));
}

QTEST_GUILESS_MAIN(tst_TriggerChains)
#include "tst_TriggerChains.moc"
