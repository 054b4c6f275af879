#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/simulator/DescribedRegisters.h"
#include "tests/sdk/simulator/Description.h"

#include <QtTest>

namespace {

constexpr const char* Models[] = {"full", "basic", "aliaslines", "foreign", "notrigger"};

struct Range
{
    quint64 begin;
    quint64 end;
    QString name;
};

int instanceCount(const Description& description, const QString& indexRegister)
{
    for (const DescriptionNode& node : description.nodes()) {
        if (node.text("pValue") != indexRegister || node.elements.count("pSelected") == 0)
            continue;
        return node.entries.isEmpty() ? node.text("Max").toInt() + 1 : node.entries.size();
    }
    return 1;
}

// The memory that a register takes, once for each entry of its selector.
QVector<Range> rangesOf(const Description& description, const QString& name)
{
    const DescriptionNode node = description.node(name);
    QVector<Range> ranges;
    const int count = instanceCount(description, node.text("pIndex"));
    for (int i = 0; i < count; ++i) {
        const quint64 begin = node.text("Address").toULongLong(nullptr, 0) +
                              node.indexOffset.toULongLong(nullptr, 0) * quint64(i);
        ranges << Range{begin, begin + node.text("Length").toULongLong(nullptr, 0), name};
    }
    return ranges;
}

QVector<Range> allRanges(const Description& description)
{
    // Second views of TriggerModeReg, for what depends on one trigger whatever is selected.
    const QStringList views = {"FrameTriggerModeReg", "BurstTriggerModeReg"};
    QVector<Range> ranges;
    for (const QString& name : description.nodes().keys()) {
        if (description.node(name).elements.contains("Address") && !views.contains(name))
            ranges << rangesOf(description, name);
    }
    std::sort(ranges.begin(), ranges.end(),
              [](const Range& a, const Range& b) { return a.begin < b.begin; });
    return ranges;
}

} // namespace

class tst_Descriptions : public QObject
{
    Q_OBJECT

private slots:
    void isWellFormed_data() { addModels(); }
    void isWellFormed();
    void everyReferenceLeadsSomewhere_data() { addModels(); }
    void everyReferenceLeadsSomewhere();
    void everyFeatureDescribesItself_data() { addModels(); }
    void everyFeatureDescribesItself();
    void everyFeatureIsListedOnce_data() { addModels(); }
    void everyFeatureIsListedOnce();
    void registersDoNotOverlap_data() { addModels(); }
    void registersDoNotOverlap();
    void registersLieWithinTheMemory_data() { addModels(); }
    void registersLieWithinTheMemory();
    void registersLieWhereTheCameraHasThem_data() { addModels(); }
    void registersLieWhereTheCameraHasThem();
    void fullDescribesEveryRegister();
    void everyModelHasADescription();
    void fullHasEveryFeatureOfTheForms_data();
    void fullHasEveryFeatureOfTheForms();
    void selectorSelects_data();
    void selectorSelects();
    void entriesAreOffered_data();
    void entriesAreOffered();
    void valuesThatChangeByThemselvesArePolled_data();
    void valuesThatChangeByThemselvesArePolled();
    void keysAndIdentitiesAreHexadecimal_data();
    void keysAndIdentitiesAreHexadecimal();
    void commandsAndTheDeviceKeyAreWriteOnly_data();
    void commandsAndTheDeviceKeyAreWriteOnly();
    void smallModelsHaveWhatTheirStoryNeeds();

private:
    void addModels() const;
    const Description m_full{"full"};
};

void tst_Descriptions::addModels() const
{
    QTest::addColumn<QString>("model");
    for (const char* model : Models)
        QTest::newRow(model) << QString(model);
}

void tst_Descriptions::isWellFormed()
{
    QFETCH(QString, model);
    const Description description(model);
    QCOMPARE(description.error(), QString());
    QCOMPARE(description.duplicates(), QStringList());
    QCOMPARE(description.node("Device").kind, QString("Port"));
}

void tst_Descriptions::everyReferenceLeadsSomewhere()
{
    QFETCH(QString, model);
    const Description description(model);
    const QRegularExpression reference("^p[A-Z]");
    for (const DescriptionNode& node : description.nodes()) {
        for (auto i = node.elements.begin(); i != node.elements.end(); ++i) {
            if (reference.match(i.key()).hasMatch())
                QVERIFY2(description.nodes().contains(i.value()), qPrintable(i.value()));
        }
    }
}

void tst_Descriptions::everyFeatureDescribesItself()
{
    QFETCH(QString, model);
    const Description description(model);
    const QStringList visibilities = {"Beginner", "Expert", "Guru", "Invisible"};
    for (const QString& name : description.features()) {
        const DescriptionNode node = description.node(name);
        QVERIFY2(node.text("Description").endsWith('.'), qPrintable(name));
        QVERIFY2(node.text("ToolTip").endsWith('.'), qPrintable(name));
        QVERIFY2(!node.text("DisplayName").isEmpty(), qPrintable(name));
        QVERIFY2(visibilities.contains(node.text("Visibility")), qPrintable(name));
    }
}

void tst_Descriptions::everyFeatureIsListedOnce()
{
    QFETCH(QString, model);
    const Description description(model);
    QStringList features = description.features();
    QVERIFY(!features.isEmpty());
    QCOMPARE(features.removeDuplicates(), 0);
}

void tst_Descriptions::registersDoNotOverlap()
{
    QFETCH(QString, model);
    const QVector<Range> ranges = allRanges(Description(model));
    for (int i = 1; i < ranges.size(); ++i)
        QVERIFY2(ranges[i - 1].end <= ranges[i].begin,
                 qPrintable(ranges[i - 1].name + " " + ranges[i].name));
}

void tst_Descriptions::registersLieWithinTheMemory()
{
    QFETCH(QString, model);
    for (const Range& range : allRanges(Description(model)))
        QVERIFY2(range.end <= 0x10000, qPrintable(range.name));
}

// Left out are registers that hold what a host writes, and nobody in the camera looks at.
void tst_Descriptions::registersLieWhereTheCameraHasThem()
{
    QFETCH(QString, model);
    const QStringList memory = {"LineSelectorReg",        "CounterSelectorReg",
                                "TimerSelectorReg",       "ActionSelectorReg",
                                "UserOutputSelectorReg",  "SoftwareSignalSelectorReg",
                                "DeviceSerialNumber",     "DeviceUserID",
                                "GevCurrentIPAddressReg", "GevHeartbeatTimeoutReg"};
    const Description description(model);
    for (const QString& name : description.nodes().keys()) {
        const DescriptionNode node = description.node(name);
        if (!node.elements.contains("Address") || memory.contains(name))
            continue;
        QVERIFY2(describedRegisters().contains(name), qPrintable(name));
        const DescribedRegister expected = describedRegisters().value(name);
        QVERIFY2(node.text("Address").toULongLong(nullptr, 0) == expected.address,
                 qPrintable(name));
        QVERIFY2(node.indexOffset.toULongLong(nullptr, 0) == expected.step, qPrintable(name));
    }
}

void tst_Descriptions::fullDescribesEveryRegister()
{
    for (const QString& name : describedRegisters().keys())
        QVERIFY2(m_full.nodes().contains(name), qPrintable(name));
}

void tst_Descriptions::everyModelHasADescription()
{
    QCOMPARE(ZalSim::SimulatedCamera::models(),
             std::vector<std::string>(std::begin(Models), std::end(Models)));
}

void tst_Descriptions::fullHasEveryFeatureOfTheForms_data()
{
    QTest::addColumn<QString>("kind");
    const QMap<QString, QStringList> features = {
        {"Enumeration",
         QString("TriggerSelector TriggerMode TriggerSource TriggerActivation LineSelector "
                 "LineMode LineSource LineDebounceMode AcquisitionMode ExposureMode "
                 "PtpOperationMode PtpStatus PtpServoStatus PtpClockAccuracy "
                 "SoftwareSignalSelector CounterSelector CounterEventSource "
                 "CounterEventActivation CounterTriggerSource CounterTriggerActivation "
                 "CounterResetSource CounterResetActivation CounterStatus TimerSelector "
                 "TimerTriggerSource TimerTriggerActivation TimerStatus")
             .split(' ')},
        {"Integer",
         {"AcquisitionFrameCount", "ActionSelector", "ActionDeviceKey", "ActionGroupKey",
          "ActionGroupMask", "ActionQueueSize", "PtpClockID", "PtpParentClockID",
          "PtpGrandmasterClockID", "PtpOffsetFromMaster", "TimestampLatchValue", "CounterDuration",
          "CounterValue", "CounterValueAtReset"}},
        {"Float", {"TriggerDelay", "LineDebounceDuration", "TimerDuration", "TimerDelay"}},
        {"Boolean", {"LineInverter", "LineStatus", "PtpEnable"}},
        {"Command",
         {"TriggerSoftware", "PtpDataSetLatch", "TimestampLatch", "SoftwareSignalPulse",
          "CounterReset", "TimerReset"}},
        {"StringReg",
         {"DeviceVendorName", "DeviceModelName", "DeviceSerialNumber", "DeviceFamilyName"}}};
    for (auto i = features.begin(); i != features.end(); ++i) {
        for (const QString& name : i.value())
            QTest::newRow(qPrintable(name)) << i.key();
    }
}

void tst_Descriptions::fullHasEveryFeatureOfTheForms()
{
    const QString name = QTest::currentDataTag();
    QVERIFY(m_full.features().contains(name));
    QTEST(m_full.node(name).kind, "kind");
}

void tst_Descriptions::selectorSelects_data()
{
    QTest::addColumn<QStringList>("selected");
    QTest::newRow("TriggerSelector") << QStringList{
        "TriggerMode", "TriggerSoftware", "TriggerSource", "TriggerActivation", "TriggerDelay"};
    QTest::newRow("LineSelector") << QStringList{
        "LineMode",   "LineInverter",     "LineStatus",          "LineSource",
        "LineFormat", "LineDebounceMode", "LineDebounceDuration"};
    QTest::newRow("CounterSelector")
        << QStringList{"CounterEventSource",   "CounterEventActivation",
                       "CounterTriggerSource", "CounterTriggerActivation",
                       "CounterResetSource",   "CounterResetActivation",
                       "CounterReset",         "CounterValue",
                       "CounterValueAtReset",  "CounterDuration",
                       "CounterStatus"};
    QTest::newRow("TimerSelector") << QStringList{"TimerDuration",
                                                  "TimerDelay",
                                                  "TimerReset",
                                                  "TimerValue",
                                                  "TimerStatus",
                                                  "TimerTriggerSource",
                                                  "TimerTriggerActivation"};
    QTest::newRow("SoftwareSignalSelector") << QStringList{"SoftwareSignalPulse"};
    QTest::newRow("ActionSelector") << QStringList{"ActionGroupKey", "ActionGroupMask"};
    QTest::newRow("UserOutputSelector") << QStringList{"UserOutputValue"};
}

// Each selected feature must have a value of its own for each entry.
void tst_Descriptions::selectorSelects()
{
    QFETCH(QStringList, selected);
    const DescriptionNode selector = m_full.node(QTest::currentDataTag());
    QStringList found = selector.elements.values("pSelected");
    found.sort();
    selected.sort();
    QCOMPARE(found, selected);
    for (const QString& name : selected) {
        const DescriptionNode value = m_full.node(m_full.node(name).text("pValue"));
        QVERIFY2(value.text("pIndex") == selector.text("pValue"), qPrintable(name));
    }
}

void tst_Descriptions::entriesAreOffered_data()
{
    QTest::addColumn<QStringList>("entries");
    const QStringList edges = {"RisingEdge", "FallingEdge", "AnyEdge"};
    const QStringList lines = {"Line0", "Line1", "Line2", "Line3"};
    const QStringList internal =
        lines + QStringList{"Counter0Active",  "Counter1Active",  "Counter0Start", "Counter1Start",
                            "Counter0End",     "Counter1End",     "Timer0Active",  "Timer1Active",
                            "Timer0Start",     "Timer1Start",     "Timer0End",     "Timer1End",
                            "SoftwareSignal0", "SoftwareSignal1", "Action0",       "Action1"};
    QTest::newRow("TriggerSelector")
        << QStringList{"AcquisitionStart", "FrameStart", "FrameBurstStart"};
    QTest::newRow("TriggerMode") << QStringList{"Off", "On"};
    QTest::newRow("TriggerSource") << QStringList{"Software"} + internal;
    QTest::newRow("TriggerActivation") << edges + QStringList{"LevelHigh", "LevelLow"};
    QTest::newRow("LineSelector") << lines;
    QTest::newRow("LineMode") << QStringList{"Input", "Output"};
    QTest::newRow("LineSource")
        << QStringList{"Off",         "ExposureActive", "AcquisitionActive", "FrameTriggerWait",
                       "UserOutput0", "UserOutput1"} +
               QStringList{"Counter0Active", "Counter1Active",  "Timer0Active",
                           "Timer1Active",   "SoftwareSignal0", "SoftwareSignal1"};
    QTest::newRow("TimerTriggerSource") << QStringList{"Off",      "FrameTrigger",  "FrameStart",
                                                       "FrameEnd", "ExposureStart", "ExposureEnd"} +
                                               internal;
    QTest::newRow("TimerTriggerActivation") << edges;
    QTest::newRow("CounterSelector") << QStringList{"Counter0", "Counter1"};
    QTest::newRow("TimerSelector") << QStringList{"Timer0", "Timer1"};
    QTest::newRow("AcquisitionMode") << QStringList{"Continuous", "SingleFrame", "MultiFrame"};
}

void tst_Descriptions::entriesAreOffered()
{
    QTEST(m_full.node(QTest::currentDataTag()).entries, "entries");
}

void tst_Descriptions::valuesThatChangeByThemselvesArePolled_data()
{
    QTest::addColumn<QString>("pollingTime");
    for (const char* feature :
         {"LineStatus", "LineStatusAll", "CounterValue", "CounterValueAtReset", "CounterStatus",
          "TimerValue", "TimerStatus", "PtpStatus", "PtpServoStatus"})
        QTest::newRow(feature) << QString("500");
}

void tst_Descriptions::valuesThatChangeByThemselvesArePolled()
{
    const DescriptionNode value = m_full.node(m_full.node(QTest::currentDataTag()).text("pValue"));
    QTEST(value.text("PollingTime"), "pollingTime");
    QCOMPARE(value.text("Cachable"), QString("NoCache"));
}

void tst_Descriptions::keysAndIdentitiesAreHexadecimal_data()
{
    QTest::addColumn<QString>("length");
    for (const char* feature : {"ActionDeviceKey", "ActionGroupKey", "ActionGroupMask"})
        QTest::newRow(feature) << QString("4");
    for (const char* feature : {"PtpClockID", "PtpParentClockID", "PtpGrandmasterClockID"})
        QTest::newRow(feature) << QString("8");
}

void tst_Descriptions::keysAndIdentitiesAreHexadecimal()
{
    const DescriptionNode node = m_full.node(QTest::currentDataTag());
    QCOMPARE(node.text("Representation"), QString("HexNumber"));
    QTEST(m_full.node(node.text("pValue")).text("Length"), "length");
}

void tst_Descriptions::commandsAndTheDeviceKeyAreWriteOnly_data()
{
    QTest::addColumn<QString>("value");
    for (const QString& name : m_full.features()) {
        if (m_full.node(name).kind == "Command" || name == "ActionDeviceKey")
            QTest::newRow(qPrintable(name)) << m_full.node(name).text("pValue");
    }
}

void tst_Descriptions::commandsAndTheDeviceKeyAreWriteOnly()
{
    QFETCH(QString, value);
    QCOMPARE(m_full.node(value).text("AccessMode"), QString("WO"));
}

void tst_Descriptions::smallModelsHaveWhatTheirStoryNeeds()
{
    const QStringList foreign = Description("foreign").features();
    const QStringList noTrigger = Description("notrigger").features();
    for (const char* name : {"DeviceVendorName", "TriggerSelector", "LineSelector"}) {
        QVERIFY2(foreign.contains(name), name);
        QVERIFY2(noTrigger.contains(name), name);
    }
    QVERIFY(foreign.contains("LineMode"));
    QVERIFY(!noTrigger.contains("LineMode"));
    for (const char* name : {"CounterSelector", "TimerSelector", "SoftwareSignalSelector"})
        QVERIFY2(!foreign.contains(name), name);
}

QTEST_GUILESS_MAIN(tst_Descriptions)
#include "tst_Descriptions.moc"
