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
    std::unique_ptr<ZalSim::SimulatedCamera> m_camera;
    std::unique_ptr<SdkClient> m_client;
};

void tst_FullCamera::init()
{
    std::string error;
    m_camera = ZalSim::SimulatedCamera::start({}, error);
    QVERIFY2(m_camera, error.c_str());
    m_client = std::make_unique<SdkClient>();
}

void tst_FullCamera::cleanup()
{
    m_client.reset();
    m_camera.reset();
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
    QTEST(m_client->type(feature), "type");
    QTEST(QByteArray::fromStdString(m_client->unit(feature)), "unit");
    QTEST(m_client->range(feature).first, "min");
    QTEST(m_client->range(feature).second, "max");
    QVERIFY(m_client->isWritable(feature));
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
    QTEST(m_client->availableEntries(QTest::currentDataTag()), "entries");
    QVERIFY(m_client->isWritable(QTest::currentDataTag()));
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
    QTEST(m_client->type(feature), "type");
    QVERIFY(m_client->isReadable(feature));
    QVERIFY(!m_client->isWritable(feature));
}

void tst_FullCamera::deviceKeyCanBeWrittenOnly()
{
    QVERIFY(!m_client->isReadable("ActionDeviceKey"));
    QVERIFY(m_client->isWritable("ActionDeviceKey"));
    m_client->set("ActionDeviceKey", 4294967295.0);
    QVERIFY_EXCEPTION_THROWN(m_client->number("ActionDeviceKey"), std::runtime_error);
}

void tst_FullCamera::actionsHaveKeysOfTheirOwn()
{
    for (const int action : {0, 1}) {
        m_client->set("ActionSelector", action);
        m_client->set("ActionGroupKey", 100 + action);
        m_client->set("ActionGroupMask", 200 + action);
    }
    m_client->set("ActionSelector", 0);
    QCOMPARE(m_client->number("ActionGroupKey"), 100.0);
    QCOMPARE(m_client->number("ActionGroupMask"), 200.0);
    QCOMPARE(m_client->number("ActionQueueSize"), 1.0);
}

void tst_FullCamera::acquisitionModeAndFrameCountAreLockedWhileAcquiring()
{
    m_client->startAcquisition();
    QVERIFY(!m_client->isWritable("AcquisitionMode"));
    QVERIFY(!m_client->isWritable("AcquisitionFrameCount"));
    QVERIFY(m_client->isWritable("ExposureMode"));
    m_client->stopAcquisition();
    QVERIFY(m_client->isWritable("AcquisitionMode"));
    QVERIFY(m_client->isWritable("AcquisitionFrameCount"));
}

void tst_FullCamera::triggerWidthNeedsTheFrameTrigger()
{
    m_client->setFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    QCOMPARE(m_client->availableEntries("ExposureMode"), (QStringList{"Timed", "TriggerWidth"}));
    m_client->set("TriggerMode", "Off");
    QCOMPARE(m_client->availableEntries("ExposureMode"), QStringList{"Timed"});
}

void tst_FullCamera::timestampIsLatched()
{
    QCOMPARE(m_client->number("TimestampLatchValue"), 0.0);
    m_client->execute("TimestampLatch");
    QTRY_VERIFY(m_client->number("TimestampLatchValue") > 0);
    const double first = m_client->number("TimestampLatchValue");
    QCOMPARE(m_client->number("TimestampLatchValue"), first);
    m_client->execute("TimestampLatch");
    QTRY_VERIFY(m_client->number("TimestampLatchValue") > first);
}

void tst_FullCamera::ptpSettlesAndIsLatched()
{
    QCOMPARE(m_client->text("PtpStatus"), std::string("Disabled"));
    m_client->set("PtpEnable", 1);
    QTRY_COMPARE(m_client->text("PtpStatus"), std::string("Slave"));
    QCOMPARE(m_client->text("PtpServoStatus"), std::string("Locked"));
    QCOMPARE(m_client->number("PtpGrandmasterClockID"), 0.0);
    QCOMPARE(m_client->text("PtpClockAccuracy"), std::string("Unknown"));
    m_client->execute("PtpDataSetLatch");
    QTRY_VERIFY(m_client->number("PtpGrandmasterClockID") != 0.0);
    QCOMPARE(m_client->number("PtpParentClockID"), m_client->number("PtpGrandmasterClockID"));
    QCOMPARE(m_client->text("PtpClockAccuracy"), std::string("Within1us"));
}

void tst_FullCamera::ptpMasterFollowsItself()
{
    m_client->set("PtpOperationMode", "Master");
    m_client->set("PtpEnable", 1);
    QTRY_COMPARE(m_client->text("PtpStatus"), std::string("Master"));
    m_client->execute("PtpDataSetLatch");
    QTRY_COMPARE(m_client->number("PtpParentClockID"), m_client->number("PtpClockID"));
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
    m_camera->setInputLine(0, false);
    m_client->set("ActionGroupMask", 1);
    m_client->setFor("CounterSelector", "Counter1", "CounterEventActivation",
                     activation.constData());
    m_client->set("CounterEventSource", QByteArray(QTest::currentDataTag()).trimmed().constData());
    m_client->setFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    m_client->set("TriggerSource", "Line0");
    m_client->startAcquisition();
    for (int round = 1; round <= 3; ++round) {
        m_camera->setInputLine(0, true);
        m_camera->setInputLine(0, false);
        m_client->execute("SoftwareSignalPulse");
        m_camera->sendAction(0, 0, 1);
        QVERIFY(m_client->getsExactly(round));
        QTRY_COMPARE(m_client->number("CounterValue"), round * perPulse);
    }
}

void tst_FullCamera::counterIsResetBySignalAndByCommand()
{
    m_client->set("CounterEventSource", "Timer0Start");
    m_client->set("CounterResetSource", "SoftwareSignal1");
    m_client->set("SoftwareSignalSelector", "SoftwareSignal1");
    m_client->execute("TimerReset");
    QTRY_COMPARE(m_client->number("CounterValue"), 1.0);
    m_client->execute("SoftwareSignalPulse");
    QTRY_COMPARE(m_client->number("CounterValue"), 0.0);
    QCOMPARE(m_client->number("CounterValueAtReset"), 1.0);
    m_client->set("CounterValue", 5);
    m_client->execute("CounterReset");
    QTRY_COMPARE(m_client->number("CounterValueAtReset"), 5.0);
    QCOMPARE(m_client->number("CounterValue"), 0.0);
}

void tst_FullCamera::counterValueCanBeSet()
{
    QCOMPARE(m_client->text("CounterStatus"), std::string("CounterIdle"));
    m_client->set("CounterValue", 41);
    QCOMPARE(m_client->number("CounterValue"), 41.0);
    m_client->set("CounterEventSource", "SoftwareSignal0");
    QTRY_COMPARE(m_client->text("CounterStatus"), std::string("CounterActive"));
    m_client->execute("SoftwareSignalPulse");
    QTRY_COMPARE(m_client->number("CounterValue"), 42.0);
}

void tst_FullCamera::countersKeepTheirOwnSettings()
{
    m_client->setFor("CounterSelector", "Counter1", "CounterDuration", 12);
    m_client->set("CounterTriggerSource", "Line1");
    m_client->set("CounterSelector", "Counter0");
    QCOMPARE(m_client->number("CounterDuration"), 1000.0);
    QCOMPARE(m_client->text("CounterTriggerSource"), std::string("Off"));
    m_client->set("CounterSelector", "Counter1");
    QCOMPARE(m_client->number("CounterDuration"), 12.0);
    QCOMPARE(m_client->text("CounterTriggerSource"), std::string("Line1"));
}

void tst_FullCamera::timerRunsOnceAfterAReset()
{
    QCOMPARE(m_client->text("TimerStatus"), std::string("TimerIdle"));
    m_client->set("TimerDuration", 1e8);
    m_client->execute("TimerReset");
    QTRY_COMPARE(m_client->text("TimerStatus"), std::string("TimerActive"));
    m_client->setFor("TimerSelector", "Timer1", "TimerDuration", 1000);
    QCOMPARE(m_client->text("TimerStatus"), std::string("TimerIdle"));
    m_client->execute("TimerReset");
    QTRY_COMPARE(m_client->text("TimerStatus"), std::string("TimerCompleted"));
}

void tst_FullCamera::softwareSignalStartsTheTimer()
{
    m_client->set("TimerTriggerSource", "SoftwareSignal0");
    QTRY_COMPARE(m_client->text("TimerStatus"), std::string("TimerTriggerWait"));
    m_client->execute("SoftwareSignalPulse");
    QTRY_COMPARE(m_client->text("TimerStatus"), std::string("TimerCompleted"));
}

void tst_FullCamera::everyTimerCanTriggerItself()
{
    const auto sources = m_client->availableEntries("TimerTriggerSource");
    const auto outputs = m_client->entries("LineSource");
    for (const QString& timer : m_client->entries("TimerSelector")) {
        QVERIFY2(sources.contains(timer + "Active"), qPrintable(timer));
        QVERIFY2(outputs.contains(timer + "Active"), qPrintable(timer));
    }
}

void tst_FullCamera::pulseTrainTogglesALine()
{
    m_client->setFor("LineSelector", "Line3", "LineSource", "Timer1Active");
    m_client->set("CounterEventSource", "Line3");
    // Levels that last much longer than the pause between two looks at them.
    m_client->setFor("TimerSelector", "Timer1", "TimerDuration", 400000);
    m_client->set("TimerDelay", 600000);
    m_client->set("TimerTriggerSource", "Timer1Active");
    m_client->set("TimerTriggerActivation", "FallingEdge");
    for (const double level : {1.0, 0.0, 1.0, 0.0})
        QTRY_COMPARE(m_client->number("LineStatus"), level);
    QTRY_VERIFY(m_client->number("CounterValue") >= 3);
}

void tst_FullCamera::pulseTrainIsCounted()
{
    m_client->set("CounterEventSource", "Timer0Active");
    m_client->set("CounterDuration", 200);
    m_client->set("TimerDuration", 500);
    m_client->set("TimerDelay", 500);
    m_client->set("TimerTriggerActivation", "FallingEdge");
    m_client->set("TimerTriggerSource", "Timer0Active");
    QTRY_COMPARE(m_client->text("CounterStatus"), std::string("CounterCompleted"));
    QCOMPARE(m_client->number("CounterValue"), 200.0);
}

void tst_FullCamera::inputsToggleByThemselves()
{
    m_client->set("LineSelector", "Line0");
    for (const double level : {1.0, 0.0})
        QTRY_COMPARE(m_client->number("LineStatus"), level);
}

QTEST_GUILESS_MAIN(tst_FullCamera)
#include "tst_FullCamera.moc"
