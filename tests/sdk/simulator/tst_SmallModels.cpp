#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/simulator/SdkClient.h"

#include <QtTest>

/// The models that lack something, as a user of the SDK meets them.
class tst_SmallModels : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void modelLacks_data();
    void modelLacks();
    void tabsFeaturesAreThere_data();
    void tabsFeaturesAreThere();
    void triggersOfferOnlyWhatTheModelHas_data();
    void triggersOfferOnlyWhatTheModelHas();
    void basicHasNoSourceOnItsInputs();
    void basicOutputFollowsTheExposure();
    void aliasLinesAreCalledLikeTheirPins();
    void aliasLineCountsAndTriggers();

private:
    void Start(const char* model);

    std::unique_ptr<ZalSim::SimulatedCamera> camera;
    std::unique_ptr<SdkClient> client;
};

void tst_SmallModels::Start(const char* model)
{
    ZalSim::Options options;
    options.model = model;
    std::string error;
    camera = ZalSim::SimulatedCamera::Start(options, error);
    if (!camera)
        throw std::runtime_error(error);
    client = std::make_unique<SdkClient>();
}

void tst_SmallModels::cleanup()
{
    client.reset();
    camera.reset();
}

void tst_SmallModels::modelLacks_data()
{
    QTest::addColumn<QStringList>("missing");
    QTest::newRow("basic") << QStringList{
        "CounterSelector",        "TimerSelector", "ActionSelector",
        "SoftwareSignalSelector", "PtpEnable",     "CounterEventSource",
        "TimerTriggerSource",     "TimerDuration", "SoftwareSignalPulse"};
    QTest::newRow("aliaslines") << QStringList{"TimerSelector",  "TimerDuration",
                                               "TimerReset",     "TimerTriggerSource",
                                               "ActionSelector", "SoftwareSignalSelector"};
}

void tst_SmallModels::modelLacks()
{
    QFETCH(QStringList, missing);
    Start(QTest::currentDataTag());
    for (const QString& feature : missing)
        QVERIFY2(!client->Has(qPrintable(feature)), qPrintable(feature));
}

void tst_SmallModels::tabsFeaturesAreThere_data()
{
    QTest::addColumn<bool>("counters");
    QTest::newRow("basic") << false;
    QTest::newRow("aliaslines") << true;
}

void tst_SmallModels::tabsFeaturesAreThere()
{
    QFETCH(bool, counters);
    Start(QTest::currentDataTag());
    QCOMPARE(client->Text("DeviceVendorName"), std::string("Tarsel Imaging GmbH"));
    QCOMPARE(client->Text("DeviceFamilyName"), std::string("Basic Series"));
    for (const char* feature :
         {"TriggerSelector", "TriggerMode", "LineSelector", "LineMode", "LineInverter",
          "LineStatus", "LineDebounceMode", "LineDebounceDuration", "ExposureMode"})
        QVERIFY2(client->Has(feature), feature);
    QCOMPARE(client->Has("CounterSelector"), counters);
}

void tst_SmallModels::triggersOfferOnlyWhatTheModelHas_data()
{
    QTest::addColumn<QStringList>("sources");
    QTest::newRow("basic") << QStringList{"Software", "Line0", "Line1", "Line2", "Line3"};
    QTest::newRow("aliaslines") << QStringList{"Software",       "In1",           "In2",
                                               "InOut1",         "Out1",          "Counter0Active",
                                               "Counter1Active", "Counter0Start", "Counter1Start",
                                               "Counter0End",    "Counter1End"};
}

void tst_SmallModels::triggersOfferOnlyWhatTheModelHas()
{
    Start(QTest::currentDataTag());
    QTEST(client->AvailableEntries("TriggerSource"), "sources");
}

void tst_SmallModels::basicHasNoSourceOnItsInputs()
{
    Start("basic");
    const auto hasSource = [this](const char* line) {
        client->Set("LineSelector", line);
        return client->IsReadable("LineSource");
    };
    QVERIFY(!hasSource("Line0"));
    QVERIFY(!client->IsWritable("LineSource"));
    QVERIFY(!hasSource("Line1"));
    QVERIFY(hasSource("Line3"));
    QVERIFY(hasSource("Line2"));
    client->Set("LineMode", "Input");
    QVERIFY(!hasSource("Line2"));
}

void tst_SmallModels::basicOutputFollowsTheExposure()
{
    Start("basic");
    client->SetFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    client->SetFor("LineSelector", "Line3", "LineSource", "ExposureActive");
    client->Set("ExposureTime", 1e7);
    client->StartAcquisition();
    client->Execute("TriggerSoftware");
    QTRY_COMPARE(client->Number("LineStatus"), 1.0);
    client->Set("ExposureTime", 10);
    QTRY_COMPARE(client->Number("LineStatus"), 0.0);
    QVERIFY(client->GetsExactly(1));
}

void tst_SmallModels::aliasLinesAreCalledLikeTheirPins()
{
    Start("aliaslines");
    QCOMPARE(client->AvailableEntries("LineSelector"),
             (QStringList{"In1", "In2", "InOut1", "Out1"}));
    client->Set("LineSelector", "In1");
    QCOMPARE(client->AvailableEntries("LineMode"), QStringList{"Input"});
    client->Set("LineSelector", "Out1");
    QCOMPARE(client->AvailableEntries("LineMode"), QStringList{"Output"});
    QVERIFY_EXCEPTION_THROWN(client->Set("LineSelector", "Line0"), std::runtime_error);
    QCOMPARE(client->Text("LineSelector"), std::string("Out1"));
}

void tst_SmallModels::aliasLineCountsAndTriggers()
{
    Start("aliaslines");
    camera->SetInputLine(0, false);
    client->Set("CounterEventSource", "In1");
    client->SetFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    client->Set("TriggerSource", "In1");
    client->StartAcquisition();
    for (int round = 1; round <= 2; ++round) {
        camera->SetInputLine(0, true);
        camera->SetInputLine(0, false);
        QVERIFY(client->GetsExactly(round));
    }
    QTRY_COMPARE(client->Number("CounterValue"), 2.0);
}

QTEST_GUILESS_MAIN(tst_SmallModels)
#include "tst_SmallModels.moc"
