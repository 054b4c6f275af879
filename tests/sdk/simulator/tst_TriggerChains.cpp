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
    void SwitchTrigger(const char* source, const char* activation = "RisingEdge") const;
    void PulseLine0(int count = 1);

    std::unique_ptr<ZalSim::SimulatedCamera> camera;
    std::unique_ptr<SdkClient> client;
};

void tst_TriggerChains::init()
{
    std::string error;
    camera = ZalSim::SimulatedCamera::Start({}, error);
    QVERIFY2(camera, error.c_str());
    camera->SetInputLine(0, false);
    client = std::make_unique<SdkClient>();
    client->Set("ExposureTime", 1000);
}

void tst_TriggerChains::cleanup()
{
    client.reset();
    camera.reset();
}

void tst_TriggerChains::SwitchTrigger(const char* source, const char* activation) const
{
    client->SetFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    client->Set("TriggerSource", source);
    client->Set("TriggerActivation", activation);
}

void tst_TriggerChains::PulseLine0(int count)
{
    for (int i = 0; i < count; ++i) {
        camera->SetInputLine(0, true);
        camera->SetInputLine(0, false);
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
    client->Set("SoftwareSignalSelector", selected == 0 ? "SoftwareSignal0" : "SoftwareSignal1");
    client->Set("ActionDeviceKey", 7);
    client->Set("ActionSelector", selected);
    client->Set("ActionGroupKey", 9);
    client->Set("ActionGroupMask", 2);
    SwitchTrigger(QTest::currentDataTag());
    client->StartAcquisition();
    for (int frame = 1; frame <= 3; ++frame) {
        if (command.isEmpty())
            camera->SendAction(7, 9, 2);
        else
            client->Execute(command.constData());
        QVERIFY(client->GetsExactly(frame));
    }
}

void tst_TriggerChains::lineMakesOneFrameOnEachRisingEdge()
{
    SwitchTrigger("Line0");
    client->StartAcquisition();
    PulseLine0(4);
    QVERIFY(client->GetsExactly(4));
}

void tst_TriggerChains::pulseWidthIsTheExposure()
{
    SwitchTrigger("Line0");
    client->Set("ExposureMode", "TriggerWidth");
    client->SetFor("LineSelector", "Line3", "LineSource", "ExposureActive");
    client->StartAcquisition();
    camera->SetInputLine(0, true);
    QTRY_COMPARE(client->Number("LineStatus"), 1.0);
    QVERIFY(client->GetsExactly(0));
    QCOMPARE(client->Number("LineStatus"), 1.0);
    camera->SetInputLine(0, false);
    QTRY_COMPARE(client->Number("LineStatus"), 0.0);
    QVERIFY(client->GetsExactly(1));
}

void tst_TriggerChains::strobeFollowsEveryExposure()
{
    client->SetFor("LineSelector", "Line3", "LineSource", "ExposureActive");
    client->Set("CounterEventSource", "Line3");
    SwitchTrigger("Line0");
    client->StartAcquisition();
    PulseLine0(3);
    QVERIFY(client->GetsExactly(3));
    QTRY_COMPARE(client->Number("CounterValue"), 3.0);
}

void tst_TriggerChains::edgeStartsABurst()
{
    client->SetFor("TriggerSelector", "FrameBurstStart", "TriggerMode", "On");
    client->Set("TriggerSource", "Line0");
    client->Set("AcquisitionBurstFrameCount", 5);
    client->StartAcquisition();
    QVERIFY(client->GetsExactly(0));
    PulseLine0();
    QVERIFY(client->GetsExactly(5));
    PulseLine0();
    QVERIFY(client->GetsExactly(10));
}

void tst_TriggerChains::edgeStartsALimitedAcquisition()
{
    client->Set("AcquisitionMode", "MultiFrame");
    client->Set("AcquisitionFrameCount", 4);
    client->SetFor("TriggerSelector", "AcquisitionStart", "TriggerMode", "On");
    client->Set("TriggerSource", "Line0");
    client->StartAcquisition();
    QVERIFY(client->GetsExactly(0));
    PulseLine0();
    QVERIFY(client->GetsExactly(4));
    PulseLine0();
    QVERIFY(client->GetsExactly(4));
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
    client->SetFor("TimerSelector", "Timer0", "TimerTriggerSource", "Line0");
    client->Set("TimerTriggerActivation", "RisingEdge");
    client->Set("TimerDelay", 20000);
    client->Set("TimerDuration", 5000);
    SwitchTrigger(QTest::currentDataTag(), activation.constData());
    client->StartAcquisition();
    for (int frame = 1; frame <= 2; ++frame) {
        PulseLine0();
        QVERIFY(client->GetsExactly(frame));
    }
}

void tst_TriggerChains::nothingComesBeforeTheTimersDelayIsOver()
{
    client->Set("TimerTriggerSource", "Line0");
    client->Set("TimerDelay", 1e8);
    SwitchTrigger("Timer0Start");
    client->StartAcquisition();
    PulseLine0();
    QVERIFY(client->GetsExactly(0));
    QCOMPARE(client->Text("TimerStatus"), std::string("TimerTriggerWait"));
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
    SwitchTrigger("Line0");
    client->Set("TriggerDelay", delay);
    client->StartAcquisition();
    PulseLine0();
    QVERIFY(client->GetsExactly(frames));
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
    client->SetFor("CounterSelector", "Counter0", "CounterEventSource", "Line0");
    client->Set("CounterEventActivation", "RisingEdge");
    client->Set("CounterDuration", 3);
    client->Set("CounterResetSource", source.constData());
    client->Set("CounterResetActivation", activation.constData());
    SwitchTrigger(source.constData(), activation.constData());
    client->StartAcquisition();
    PulseLine0(2);
    QVERIFY(client->GetsExactly(0));
    PulseLine0();
    QVERIFY(client->GetsExactly(1));
    PulseLine0(7);
    QVERIFY(client->GetsExactly(3));
    QTRY_COMPARE(client->Number("CounterValue"), 1.0);
    QCOMPARE(client->Number("CounterValueAtReset"), 3.0);
}

void tst_TriggerChains::counterDividesATrainThatIsFasterThanTheCamerasSteps()
{
    client->SetFor("CounterSelector", "Counter1", "CounterEventSource", "Counter0End");
    client->Set("CounterDuration", 20);
    client->SetFor("CounterSelector", "Counter0", "CounterEventSource", "Timer0End");
    client->Set("CounterDuration", 7);
    client->Set("CounterResetSource", "Counter0End");
    client->SetFor("TimerSelector", "Timer0", "TimerDuration", 50);
    client->Set("TimerDelay", 50);
    client->Set("TimerTriggerSource", "Timer0End");
    client->Set("CounterSelector", "Counter1");
    QTRY_COMPARE(client->Text("CounterStatus"), std::string("CounterCompleted"));
    QCOMPARE(client->Number("CounterValue"), 20.0);
}

void tst_TriggerChains::pulseTrainTriggersFrames()
{
    client->Set("TimerDuration", 20000);
    client->Set("TimerDelay", 20000);
    client->Set("TimerTriggerActivation", "FallingEdge");
    client->Set("TimerTriggerSource", "Timer0Active");
    SwitchTrigger("Timer0Active");
    client->StartAcquisition();
    QTRY_VERIFY(client->Frames() >= 5);
    client->Set("TimerTriggerSource", "Off");
    QTRY_COMPARE(client->Text("TimerStatus"), std::string("TimerCompleted"));
    client->StopAcquisition();
    client->StartAcquisition();
    QVERIFY(client->GetsExactly(0));
}

QTEST_GUILESS_MAIN(tst_TriggerChains)
#include "tst_TriggerChains.moc"
