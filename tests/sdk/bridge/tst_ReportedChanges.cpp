// What observers are told of a feature, for each kind of feature: its value, its limits, its
// access and its entries.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/DescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::describe;
using DescribedCamera::reg;

using Change = std::function<ZalErrorType(const FeaturePtr&)>;
Q_DECLARE_METATYPE(Change)

class tst_ReportedChanges : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

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
    FeaturePtr find(const std::string& name) const { return camera->FindFeature(name); }

    std::unique_ptr<NastyCamera> server;
    std::unique_ptr<ZalCPP::Camera> camera;
    std::shared_ptr<Recorder> recorder;
    int rounds = 0;
};

void tst_ReportedChanges::cleanup()
{
    camera.reset();
    server.reset();
}

void tst_ReportedChanges::open(const QByteArray& nodes)
{
    server = DescribedCamera::serve(describe({"A", "B"}, nodes));
    camera = openCamera();
    recorder = std::make_shared<Recorder>();
}

// When `Plain`, the last feature, is reported, the others have been dealt with.
void tst_ReportedChanges::settle()
{
    const int before = recorder->count("Plain");
    QCOMPARE(find("Plain")->SetIntegerValue(++rounds), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count("Plain"), before + 1);
}

void tst_ReportedChanges::observe(const std::string& name)
{
    for (const auto& observed : {name, std::string("Plain")})
        QCOMPARE(find(observed)->RegisterObserver(recorder), ZalErrorSuccess);
    settle();
    QCOMPARE(recorder->count(name), 0);
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
    QCOMPARE(recorder->count("A"), 1);
    QCOMPARE(change(find("A")), ZalErrorSuccess);
    settle();
    QCOMPARE(recorder->count("A"), 1);
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
    QCOMPARE(recorder->count("A"), 1);
}

// Not even after something that may change anything.
void tst_ReportedChanges::notANumberIsNoChange()
{
    open(reg("FloatReg", "A", "0x4010", "8"));
    server->setReg(0x4010, 0x7ff80000);
    observe("A");
    QVERIFY(camera->StartAcquisition([](const ZalCPP::Frame&) {}) != ZalErrorSuccess);
    settle();
    QCOMPARE(recorder->count("A"), 0);
}

void tst_ReportedChanges::unreadableValueIsNoChange()
{
    open("<Enumeration Name=\"A\"><EnumEntry Name=\"Off\"><Value>0</Value></EnumEntry>"
         "<pValue>R</pValue></Enumeration>" +
         reg("IntReg", "R", "0x4010", "4"));
    server->setReg(0x4010, 77);
    observe("A");
    QVERIFY(camera->StartAcquisition([](const ZalCPP::Frame&) {}) != ZalErrorSuccess);
    settle();
    QCOMPARE(recorder->count("A"), 0);
}

// The one that waits longest is the first of the description.
void tst_ReportedChanges::featuresArePolledAtTheirOwnRates()
{
    open(reg("IntReg", "A", "0x4010", "4", "<PollingTime>60000</PollingTime>") +
         reg("IntReg", "B", "0x4014", "4", "<PollingTime>20</PollingTime>"));
    QCOMPARE(find("B")->RegisterObserver(recorder), ZalErrorSuccess);
    observe("A");
    server->setReg(0x4010, 5);
    server->setReg(0x4014, 5);
    QTRY_COMPARE(recorder->count("B"), 1);
    QCOMPARE(recorder->count("A"), 0);
}

QTEST_GUILESS_MAIN(tst_ReportedChanges)
#include "tst_ReportedChanges.moc"
