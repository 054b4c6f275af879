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
    void start(const char* model);

    std::unique_ptr<ZalSim::SimulatedCamera> m_camera;
    std::unique_ptr<SdkClient> m_client;
};

void tst_SmallModels::start(const char* model)
{
    ZalSim::Options options;
    options.model = model;
    std::string error;
    m_camera = ZalSim::SimulatedCamera::start(options, error);
    if (!m_camera)
        throw std::runtime_error(error);
    m_client = std::make_unique<SdkClient>();
}

void tst_SmallModels::cleanup()
{
    m_client.reset();
    m_camera.reset();
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
    start(QTest::currentDataTag());
    for (const QString& feature : missing)
        QVERIFY2(!m_client->has(qPrintable(feature)), qPrintable(feature));
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
    start(QTest::currentDataTag());
    QCOMPARE(m_client->text("DeviceVendorName"), std::string("Tarsel Imaging GmbH"));
    QCOMPARE(m_client->text("DeviceFamilyName"), std::string("Basic Series"));
    for (const char* feature :
         {"TriggerSelector", "TriggerMode", "LineSelector", "LineMode", "LineInverter",
          "LineStatus", "LineDebounceMode", "LineDebounceDuration", "ExposureMode"})
        QVERIFY2(m_client->has(feature), feature);
    QCOMPARE(m_client->has("CounterSelector"), counters);
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
    start(QTest::currentDataTag());
    QTEST(m_client->availableEntries("TriggerSource"), "sources");
}

void tst_SmallModels::basicHasNoSourceOnItsInputs()
{
    start("basic");
    const auto hasSource = [this](const char* line) {
        m_client->set("LineSelector", line);
        return m_client->isReadable("LineSource");
    };
    QVERIFY(!hasSource("Line0"));
    QVERIFY(!m_client->isWritable("LineSource"));
    QVERIFY(!hasSource("Line1"));
    QVERIFY(hasSource("Line3"));
    QVERIFY(hasSource("Line2"));
    m_client->set("LineMode", "Input");
    QVERIFY(!hasSource("Line2"));
}

void tst_SmallModels::basicOutputFollowsTheExposure()
{
    start("basic");
    m_client->setFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    m_client->setFor("LineSelector", "Line3", "LineSource", "ExposureActive");
    m_client->set("ExposureTime", 1e7);
    m_client->startAcquisition();
    m_client->execute("TriggerSoftware");
    QTRY_COMPARE(m_client->number("LineStatus"), 1.0);
    m_client->set("ExposureTime", 10);
    QTRY_COMPARE(m_client->number("LineStatus"), 0.0);
    QVERIFY(m_client->getsExactly(1));
}

void tst_SmallModels::aliasLinesAreCalledLikeTheirPins()
{
    start("aliaslines");
    QCOMPARE(m_client->availableEntries("LineSelector"),
             (QStringList{"In1", "In2", "InOut1", "Out1"}));
    m_client->set("LineSelector", "In1");
    QCOMPARE(m_client->availableEntries("LineMode"), QStringList{"Input"});
    m_client->set("LineSelector", "Out1");
    QCOMPARE(m_client->availableEntries("LineMode"), QStringList{"Output"});
    QVERIFY_EXCEPTION_THROWN(m_client->set("LineSelector", "Line0"), std::runtime_error);
    QCOMPARE(m_client->text("LineSelector"), std::string("Out1"));
}

void tst_SmallModels::aliasLineCountsAndTriggers()
{
    start("aliaslines");
    m_camera->setInputLine(0, false);
    m_client->set("CounterEventSource", "In1");
    m_client->setFor("TriggerSelector", "FrameStart", "TriggerMode", "On");
    m_client->set("TriggerSource", "In1");
    m_client->startAcquisition();
    for (int round = 1; round <= 2; ++round) {
        m_camera->setInputLine(0, true);
        m_camera->setInputLine(0, false);
        QVERIFY(m_client->getsExactly(round));
    }
    QTRY_COMPARE(m_client->number("CounterValue"), 2.0);
}

QTEST_GUILESS_MAIN(tst_SmallModels)
#include "tst_SmallModels.moc"
