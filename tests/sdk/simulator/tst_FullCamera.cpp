#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/simulator/SdkClient.h"

#include <QtTest>

/// Model full as a user of the SDK meets it: what the features are, and that they do what they say.
class tst_FullCamera : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void numberHasUnitAndRange_data();
    void numberHasUnitAndRange();
    void choiceOffersItsEntries_data();
    void choiceOffersItsEntries();
    void readOnlyFeatureCannotBeWritten_data();
    void readOnlyFeatureCannotBeWritten();
    void deviceKeyCanBeWrittenOnly();
    void actionsHaveKeysOfTheirOwn();
    void acquisitionModeAndFrameCountAreLockedWhileAcquiring();
    void triggerWidthNeedsTheFrameTrigger();
    void timestampIsLatched();
    void ptpSettlesAndIsLatched();
    void ptpMasterFollowsItself();
    void counterCountsItsSource_data();
    void counterCountsItsSource();
    void counterIsResetBySignalAndByCommand();
    void counterValueCanBeSet();
    void countersKeepTheirOwnSettings();
    void timerRunsOnceAfterAReset();
    void softwareSignalStartsTheTimer();
    void everyTimerCanTriggerItself();
    void pulseTrainTogglesALine();
    void pulseTrainIsCounted();
    void inputsToggleByThemselves();

private:
    std::unique_ptr<ZalSim::SimulatedCamera> camera;
    std::unique_ptr<SdkClient> client;
};

void tst_FullCamera::init()
{
    std::string error;
    camera = ZalSim::SimulatedCamera::Start({}, error);
    QVERIFY2(camera, error.c_str());
    client = std::make_unique<SdkClient>();
}

void tst_FullCamera::cleanup()
{
    client.reset();
    camera.reset();
}

void tst_FullCamera::numberHasUnitAndRange_data()
{
    QTest::addColumn<unsigned>("type");
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    const auto row = [](const char* name, ZalFeatureDataType type, const char* unit, double min,
                        double max) {
        QTest::newRow(name) << unsigned(type) << QByteArray(unit) << min << max;
    };
    row("TriggerDelay", ZalFeatureFloat, "us", 0, 1e7);
    row("LineDebounceDuration", ZalFeatureFloat, "us", 0, 5e6);
    row("ExposureTime", ZalFeatureFloat, "us", 10, 1e7);
    row("TimerDuration", ZalFeatureFloat, "us", 0, 1e8);
    row("TimerDelay", ZalFeatureFloat, "us", 0, 1e8);
    row("AcquisitionFrameCount", ZalFeatureInteger, "", 1, 65535);
    row("ActionSelector", ZalFeatureInteger, "", 0, 1);
    row("ActionDeviceKey", ZalFeatureInteger, "", 0, 4294967295.0);
    row("ActionGroupKey", ZalFeatureInteger, "", 0, 4294967295.0);
    row("ActionGroupMask", ZalFeatureInteger, "", 0, 4294967295.0);
    row("CounterDuration", ZalFeatureInteger, "", 1, 4294967295.0);
    row("CounterValue", ZalFeatureInteger, "", 0, 9223372036854775807.0);
}

void tst_FullCamera::numberHasUnitAndRange()
{
    const char* feature = QTest::currentDataTag();
    QTEST(client->Type(feature), "type");
    QTEST(QByteArray::fromStdString(client->Unit(feature)), "unit");
    QTEST(client->Range(feature).first, "min");
    QTEST(client->Range(feature).second, "max");
    QVERIFY(client->IsWritable(feature));
}

void tst_FullCamera::choiceOffersItsEntries_data()
{
    QTest::addColumn<QStringList>("entries");
    const QStringList edges = {"RisingEdge", "FallingEdge", "AnyEdge"};
    QTest::newRow("AcquisitionMode") << QStringList{"Continuous", "SingleFrame", "MultiFrame"};
    QTest::newRow("ExposureMode") << QStringList{"Timed"};
    QTest::newRow("PtpOperationMode") << QStringList{"Auto", "Slave", "Master"};
    QTest::newRow("SoftwareSignalSelector") << QStringList{"SoftwareSignal0", "SoftwareSignal1"};
    QTest::newRow("CounterSelector") << QStringList{"Counter0", "Counter1"};
    QTest::newRow("CounterEventActivation") << edges;
    QTest::newRow("CounterTriggerActivation") << edges;
    QTest::newRow("CounterResetActivation") << edges;
    QTest::newRow("TimerSelector") << QStringList{"Timer0", "Timer1"};
    QTest::newRow("TimerTriggerActivation") << edges;
}

void tst_FullCamera::choiceOffersItsEntries()
{
    QTEST(client->AvailableEntries(QTest::currentDataTag()), "entries");
    QVERIFY(client->IsWritable(QTest::currentDataTag()));
}

void tst_FullCamera::readOnlyFeatureCannotBeWritten_data()
{
    QTest::addColumn<unsigned>("type");
    for (const char* name :
         {"ActionQueueSize", "PtpClockID", "PtpParentClockID", "PtpGrandmasterClockID",
          "PtpOffsetFromMaster", "TimestampLatchValue", "CounterValueAtReset"})
        QTest::newRow(name) << unsigned(ZalFeatureInteger);
    for (const char* name :
         {"PtpStatus", "PtpServoStatus", "PtpClockAccuracy", "CounterStatus", "TimerStatus"})
        QTest::newRow(name) << unsigned(ZalFeatureEnum);
    QTest::newRow("LineStatus") << unsigned(ZalFeatureBool);
}

void tst_FullCamera::readOnlyFeatureCannotBeWritten()
{
    const char* feature = QTest::currentDataTag();
    QTEST(client->Type(feature), "type");
    QVERIFY(client->IsReadable(feature));
    QVERIFY(!client->IsWritable(feature));
}

void tst_FullCamera::deviceKeyCanBeWrittenOnly()
{
    QVERIFY(!client->IsReadable("ActionDeviceKey"));
    QVERIFY(client->IsWritable("ActionDeviceKey"));
    client->Set("ActionDeviceKey", 4294967295.0);
    QVERIFY_EXCEPTION_THROWN(client->Number("ActionDeviceKey"), std::runtime_error);
}

void tst_FullCamera::actionsHaveKeysOfTheirOwn()
{
    for (const int action : {0, 1}) {
        client->Set("ActionSelector", action);
        client->Set("ActionGroupKey", 100 + action);
        client->Set("ActionGroupMask", 200 + action);
    }
    client->Set("ActionSelector", 0);
    QCOMPARE(client->Number("ActionGroupKey"), 100.0);
    QCOMPARE(client->Number("ActionGroupMask"), 200.0);
    QCOMPARE(client->Number("ActionQueueSize"), 1.0);
}

void tst_FullCamera::acquisitionModeAndFrameCountAreLockedWhileAcquiring()
{
    client->StartAcquisition();
    QVERIFY(!client->IsWritable("AcquisitionMode"));
    QVERIFY(!client->IsWritable("AcquisitionFrameCount"));
    QVERIFY(client->IsWritable("ExposureMode"));
    client->StopAcquisition();
    QVERIFY(client->IsWritable("AcquisitionMode"));
    QVERIFY(client->IsWritable("AcquisitionFrameCount"));
}

void tst_FullCamera::triggerWidthNeedsTheFrameTrigger()
{
    client->SetFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    QCOMPARE(client->AvailableEntries("ExposureMode"), (QStringList{"Timed", "TriggerWidth"}));
    client->Set("TriggerMode", "Off");
    QCOMPARE(client->AvailableEntries("ExposureMode"), QStringList{"Timed"});
}

void tst_FullCamera::timestampIsLatched()
{
    QCOMPARE(client->Number("TimestampLatchValue"), 0.0);
    client->Execute("TimestampLatch");
    QTRY_VERIFY(client->Number("TimestampLatchValue") > 0);
    const double first = client->Number("TimestampLatchValue");
    QCOMPARE(client->Number("TimestampLatchValue"), first);
    client->Execute("TimestampLatch");
    QTRY_VERIFY(client->Number("TimestampLatchValue") > first);
}

void tst_FullCamera::ptpSettlesAndIsLatched()
{
    QCOMPARE(client->Text("PtpStatus"), std::string("Disabled"));
    client->Set("PtpEnable", 1);
    QTRY_COMPARE(client->Text("PtpStatus"), std::string("Slave"));
    QCOMPARE(client->Text("PtpServoStatus"), std::string("Locked"));
    QCOMPARE(client->Number("PtpGrandmasterClockID"), 0.0);
    QCOMPARE(client->Text("PtpClockAccuracy"), std::string("Unknown"));
    client->Execute("PtpDataSetLatch");
    QTRY_VERIFY(client->Number("PtpGrandmasterClockID") != 0.0);
    QCOMPARE(client->Number("PtpParentClockID"), client->Number("PtpGrandmasterClockID"));
    QCOMPARE(client->Text("PtpClockAccuracy"), std::string("Within1us"));
}

void tst_FullCamera::ptpMasterFollowsItself()
{
    client->Set("PtpOperationMode", "Master");
    client->Set("PtpEnable", 1);
    QTRY_COMPARE(client->Text("PtpStatus"), std::string("Master"));
    client->Execute("PtpDataSetLatch");
    QTRY_COMPARE(client->Number("PtpParentClockID"), client->Number("PtpClockID"));
}

void tst_FullCamera::counterCountsItsSource_data()
{
    QTest::addColumn<QByteArray>("activation");
    QTest::addColumn<double>("perPulse");
    for (const char* source : {"Line0", "SoftwareSignal0", "Action0", "FrameTrigger", "FrameStart",
                               "FrameEnd", "ExposureStart", "ExposureEnd"})
        QTest::newRow(source) << QByteArray("RisingEdge") << 1.0;
    QTest::newRow("Line0 ") << QByteArray("AnyEdge") << 2.0;
}

// One round gives every source one pulse: the line triggers a frame.
void tst_FullCamera::counterCountsItsSource()
{
    QFETCH(QByteArray, activation);
    QFETCH(double, perPulse);
    camera->SetInputLine(0, false);
    client->Set("ActionGroupMask", 1);
    client->SetFor("CounterSelector", "Counter1", "CounterEventActivation", activation.constData());
    client->Set("CounterEventSource", QByteArray(QTest::currentDataTag()).trimmed().constData());
    client->SetFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    client->Set("TriggerSource", "Line0");
    client->StartAcquisition();
    for (int round = 1; round <= 3; ++round) {
        camera->SetInputLine(0, true);
        camera->SetInputLine(0, false);
        client->Execute("SoftwareSignalPulse");
        camera->SendAction(0, 0, 1);
        QVERIFY(client->GetsExactly(round));
        QTRY_COMPARE(client->Number("CounterValue"), round * perPulse);
    }
}

void tst_FullCamera::counterIsResetBySignalAndByCommand()
{
    client->Set("CounterEventSource", "Timer0Start");
    client->Set("CounterResetSource", "SoftwareSignal1");
    client->Set("SoftwareSignalSelector", "SoftwareSignal1");
    client->Execute("TimerReset");
    QTRY_COMPARE(client->Number("CounterValue"), 1.0);
    client->Execute("SoftwareSignalPulse");
    QTRY_COMPARE(client->Number("CounterValue"), 0.0);
    QCOMPARE(client->Number("CounterValueAtReset"), 1.0);
    client->Set("CounterValue", 5);
    client->Execute("CounterReset");
    QTRY_COMPARE(client->Number("CounterValueAtReset"), 5.0);
    QCOMPARE(client->Number("CounterValue"), 0.0);
}

void tst_FullCamera::counterValueCanBeSet()
{
    QCOMPARE(client->Text("CounterStatus"), std::string("CounterIdle"));
    client->Set("CounterValue", 41);
    QCOMPARE(client->Number("CounterValue"), 41.0);
    client->Set("CounterEventSource", "SoftwareSignal0");
    QTRY_COMPARE(client->Text("CounterStatus"), std::string("CounterActive"));
    client->Execute("SoftwareSignalPulse");
    QTRY_COMPARE(client->Number("CounterValue"), 42.0);
}

void tst_FullCamera::countersKeepTheirOwnSettings()
{
    client->SetFor("CounterSelector", "Counter1", "CounterDuration", 12);
    client->Set("CounterTriggerSource", "Line1");
    client->Set("CounterSelector", "Counter0");
    QCOMPARE(client->Number("CounterDuration"), 1000.0);
    QCOMPARE(client->Text("CounterTriggerSource"), std::string("Off"));
    client->Set("CounterSelector", "Counter1");
    QCOMPARE(client->Number("CounterDuration"), 12.0);
    QCOMPARE(client->Text("CounterTriggerSource"), std::string("Line1"));
}

void tst_FullCamera::timerRunsOnceAfterAReset()
{
    QCOMPARE(client->Text("TimerStatus"), std::string("TimerIdle"));
    client->Set("TimerDuration", 1e8);
    client->Execute("TimerReset");
    QTRY_COMPARE(client->Text("TimerStatus"), std::string("TimerActive"));
    client->SetFor("TimerSelector", "Timer1", "TimerDuration", 1000);
    QCOMPARE(client->Text("TimerStatus"), std::string("TimerIdle"));
    client->Execute("TimerReset");
    QTRY_COMPARE(client->Text("TimerStatus"), std::string("TimerCompleted"));
}

void tst_FullCamera::softwareSignalStartsTheTimer()
{
    client->Set("TimerTriggerSource", "SoftwareSignal0");
    QTRY_COMPARE(client->Text("TimerStatus"), std::string("TimerTriggerWait"));
    client->Execute("SoftwareSignalPulse");
    QTRY_COMPARE(client->Text("TimerStatus"), std::string("TimerCompleted"));
}

void tst_FullCamera::everyTimerCanTriggerItself()
{
    const auto sources = client->AvailableEntries("TimerTriggerSource");
    const auto outputs = client->Entries("LineSource");
    for (const QString& timer : client->Entries("TimerSelector")) {
        QVERIFY2(sources.contains(timer + "Active"), qPrintable(timer));
        QVERIFY2(outputs.contains(timer + "Active"), qPrintable(timer));
    }
}

void tst_FullCamera::pulseTrainTogglesALine()
{
    client->SetFor("LineSelector", "Line3", "LineSource", "Timer1Active");
    client->Set("CounterEventSource", "Line3");
    // Levels that last much longer than the pause between two looks at them.
    client->SetFor("TimerSelector", "Timer1", "TimerDuration", 400000);
    client->Set("TimerDelay", 600000);
    client->Set("TimerTriggerSource", "Timer1Active");
    client->Set("TimerTriggerActivation", "FallingEdge");
    for (const double level : {1.0, 0.0, 1.0, 0.0})
        QTRY_COMPARE(client->Number("LineStatus"), level);
    QTRY_VERIFY(client->Number("CounterValue") >= 3);
}

void tst_FullCamera::pulseTrainIsCounted()
{
    client->Set("CounterEventSource", "Timer0Active");
    client->Set("CounterDuration", 200);
    client->Set("TimerDuration", 500);
    client->Set("TimerDelay", 500);
    client->Set("TimerTriggerActivation", "FallingEdge");
    client->Set("TimerTriggerSource", "Timer0Active");
    QTRY_COMPARE(client->Text("CounterStatus"), std::string("CounterCompleted"));
    QCOMPARE(client->Number("CounterValue"), 200.0);
}

void tst_FullCamera::inputsToggleByThemselves()
{
    client->Set("LineSelector", "Line0");
    for (const double level : {1.0, 0.0})
        QTRY_COMPARE(client->Number("LineStatus"), level);
}

QTEST_GUILESS_MAIN(tst_FullCamera)
#include "tst_FullCamera.moc"
