// What observers are told of a feature, for each kind of feature: its value, its limits, its
// access and its entries.
#include "tests/sdk/bridge/OnDescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::reg;

using Change = std::function<ZalErrorType(const FeaturePtr&)>;
Q_DECLARE_METATYPE(Change)

class tst_ReportedChanges : public QObject, protected OnDescribedCamera
{
    Q_OBJECT

private slots:
    void cleanup() { close(); }

    void valueIsReportedOnce_data();
    void valueIsReportedOnce();
    void limitIsReportedOnce_data();
    void limitIsReportedOnce();
    void notANumberIsNoChange();
    void unreadableValueIsNoChange();
    void featuresArePolledAtTheirOwnRates();

private:
    void open(const QByteArray& nodes);
    void observe(const std::string& name);
    void settle();

    std::shared_ptr<Recorder> m_recorder;
    int m_rounds = 0;
};

void tst_ReportedChanges::open(const QByteArray& nodes)
{
    OnDescribedCamera::open({"A", "B"}, nodes);
    m_recorder = std::make_shared<Recorder>();
}

// When `Plain`, the last feature, is reported, the others have been dealt with.
void tst_ReportedChanges::settle()
{
    const int before = m_recorder->count("Plain");
    QCOMPARE(find("Plain")->SetIntegerValue(++m_rounds), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->count("Plain"), before + 1);
}

void tst_ReportedChanges::observe(const std::string& name)
{
    for (const auto& observed : {name, std::string("Plain")})
        QCOMPARE(find(observed)->RegisterObserver(m_recorder), ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->count(name), 0);
}

void tst_ReportedChanges::valueIsReportedOnce_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::addColumn<Change>("change");
    const QByteArray place = reg("IntReg", "R", "0x4010", "4");
    QTest::newRow("whole number") << reg("IntReg", "A", "0x4010", "4")
                                  << Change([](auto& a) { return a->SetIntegerValue(5); });
    QTest::newRow("number") << reg("FloatReg", "A", "0x4010", "8")
                            << Change([](auto& a) { return a->SetFloatValue(0.5); });
    QTest::newRow("truth") << "<Boolean Name=\"A\"><pValue>R</pValue></Boolean>" + place
                           << Change([](auto& a) { return a->SetBoolValue(true); });
    QTest::newRow("text") << reg("StringReg", "A", "0x4010", "8")
                          << Change([](auto& a) { return a->SetStringValue("x"); });
    QTest::newRow("entry")
        << "<Enumeration Name=\"A\"><EnumEntry Name=\"Off\"><Value>0</Value></EnumEntry>"
           "<EnumEntry Name=\"On\"><Value>1</Value></EnumEntry><pValue>R</pValue></Enumeration>" +
               place
        << Change([](auto& a) { return a->SetStringValue("On"); });
    QTest::newRow("data") << reg("Register", "A", "0x4010", "2") << Change([](auto& a) {
        return a->SetRawValue(reinterpret_cast<const unsigned char*>("xy"), 2);
    });
}

void tst_ReportedChanges::valueIsReportedOnce()
{
    QFETCH(QByteArray, nodes);
    QFETCH(Change, change);
    open(nodes);
    observe("A");
    QCOMPARE(change(find("A")), ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->count("A"), 1);
    QCOMPARE(change(find("A")), ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->count("A"), 1);
}

void tst_ReportedChanges::limitIsReportedOnce_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("property");
    for (const char* kind : {"Integer", "Float"}) {
        for (const char* property :
             {"pMin", "pMax", "pInc", "pIsAvailable", "pIsLocked", "pIsImplemented"})
            QTest::addRow("%s of %s", property, kind) << QByteArray(kind) << QByteArray(property);
    }
}

void tst_ReportedChanges::limitIsReportedOnce()
{
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, property);
    open("<" + kind + " Name=\"A\"><Value>0</Value><" + property + ">B</" + property + "></" +
         kind + ">" +
         (kind == "Integer" ? reg("IntReg", "B", "0x4010", "4")
                            : "<Float Name=\"B\"><pValue>R</pValue></Float>" +
                                  reg("IntReg", "R", "0x4010", "4")));
    observe("A");
    const auto write = [&](int value) {
        return kind == "Integer" ? find("B")->SetIntegerValue(value)
                                 : find("B")->SetFloatValue(value);
    };
    QCOMPARE(write(3), ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->count("A"), 1);
}

// Not even after something that may change anything.
void tst_ReportedChanges::notANumberIsNoChange()
{
    open(reg("FloatReg", "A", "0x4010", "8"));
    m_server->setReg(0x4010, 0x7ff80000);
    observe("A");
    QVERIFY(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}) != ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->count("A"), 0);
}

void tst_ReportedChanges::unreadableValueIsNoChange()
{
    open("<Enumeration Name=\"A\"><EnumEntry Name=\"Off\"><Value>0</Value></EnumEntry>"
         "<pValue>R</pValue></Enumeration>" +
         reg("IntReg", "R", "0x4010", "4"));
    m_server->setReg(0x4010, 77);
    observe("A");
    QVERIFY(m_camera->StartAcquisition([](const ZalCPP::Frame&) {}) != ZalErrorSuccess);
    settle();
    QCOMPARE(m_recorder->count("A"), 0);
}

// The one that waits longest is the first of the description.
void tst_ReportedChanges::featuresArePolledAtTheirOwnRates()
{
    open(reg("IntReg", "A", "0x4010", "4", "<PollingTime>60000</PollingTime>") +
         reg("IntReg", "B", "0x4014", "4", "<PollingTime>20</PollingTime>"));
    QCOMPARE(find("B")->RegisterObserver(m_recorder), ZalErrorSuccess);
    observe("A");
    m_server->setReg(0x4010, 5);
    m_server->setReg(0x4014, 5);
    QTRY_COMPARE(m_recorder->count("B"), 1);
    QCOMPARE(m_recorder->count("A"), 0);
}

QTEST_GUILESS_MAIN(tst_ReportedChanges)
#include "tst_ReportedChanges.moc"
