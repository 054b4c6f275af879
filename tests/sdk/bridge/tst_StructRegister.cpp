// Structure registers: several features that share one register, each with its own bits.
#include "tests/sdk/bridge/OnDescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::reg;

class tst_StructRegister : public QObject, protected OnDescribedCamera
{
    Q_OBJECT

private slots:
    void cleanup() { close(); }

    void entriesAreIntegers();
    void entryIsReadFromItsBits();
    void entryLeavesTheOtherBitsAlone();
    void entriesShareOneTransaction();
    void volatileStructureIsReadAnew_data();
    void volatileStructureIsReadAnew();
    void writeOfAnEntryReportsWhatDependsOnIt();
    void structureThatDependsOnAFeatureIsReportedByEntry_data();
    void structureThatDependsOnAFeatureIsReportedByEntry();
    void polledStructureIsReported();
    void featureImplementedByAnEntryFollowsIt();
    void unusableStructureIsListedWithoutAccess_data();
    void unusableStructureIsListedWithoutAccess();

private:
    void open(const QByteArray& structure, const QByteArray& nodes = {});
    void observe(const std::vector<std::string>& features);

    std::shared_ptr<Recorder> m_recorder;
};

namespace {

constexpr std::uint32_t Register = 0x4010;

// `Low` has the lowest byte, `High` the third one. In a register that begins with its highest byte,
// bits are counted from there.
QByteArray structure(const QByteArray& more, const QByteArray& moreOfLow = {},
                     const QByteArray& length = "4")
{
    return "<StructReg Comment=\"Both\"><Address>0x4010</Address><Length>" + length +
           "</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>" + more +
           "<Endianess>BigEndian</Endianess>"
           "<StructEntry Name=\"Low\">" +
           moreOfLow +
           "<LSB>31</LSB><MSB>24</MSB></StructEntry>"
           "<StructEntry Name=\"High\"><LSB>15</LSB><MSB>8</MSB></StructEntry></StructReg>\n";
}

} // namespace

void tst_StructRegister::open(const QByteArray& structure, const QByteArray& nodes)
{
    OnDescribedCamera::open({"Low", "High", "Above", "Gated", "Selector"}, structure + nodes);
}

// `Plain`, the last feature, is reported when all others are known.
void tst_StructRegister::observe(const std::vector<std::string>& features)
{
    m_recorder = std::make_shared<Recorder>();
    for (const auto& name : features)
        QCOMPARE(find(name)->RegisterObserver(m_recorder), ZalErrorSuccess);
    QCOMPARE(find("Plain")->RegisterObserver(m_recorder), ZalErrorSuccess);
    QCOMPARE(find("Plain")->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->calls(), std::vector<std::string>{"Plain"});
    m_recorder->clear();
}

void tst_StructRegister::entriesAreIntegers()
{
    open(structure({}));
    QCOMPARE(names(*m_camera->Features()), (std::vector<std::string>{"Low", "High", "Plain"}));
    for (const char* name : {"Low", "High"}) {
        QCOMPARE(ask<ZalFeatureDataType>(find(name), &Feature::GetDataType, ZalFeatureUnknown),
                 ZalFeatureInteger);
        QVERIFY(isReadable(find(name)));
        QVERIFY(isWritable(find(name)));
    }
}

void tst_StructRegister::entryIsReadFromItsBits()
{
    open(structure({}));
    m_server->setReg(Register, 0x12345678);
    QCOMPARE(integer(find("Low")), 0x78LL);
    QCOMPARE(integer(find("High")), 0x34LL);
}

void tst_StructRegister::entryLeavesTheOtherBitsAlone()
{
    open(structure({}));
    m_server->setReg(Register, 0x12345678);
    QCOMPARE(find("High")->SetIntegerValue(0xab), ZalErrorSuccess);
    QCOMPARE(m_server->reg(Register), 0x12ab5678U);
    QCOMPARE(find("Low")->SetIntegerValue(0xcd), ZalErrorSuccess);
    QCOMPARE(m_server->reg(Register), 0x12ab56cdU);
    QCOMPARE(integer(find("High")), 0xabLL);
}

void tst_StructRegister::entriesShareOneTransaction()
{
    open(structure({}));
    QElapsedTimer timer;
    timer.start();
    const auto before = m_camera->Counts().reads;
    QCOMPARE(integer(find("Low")), 0LL);
    QCOMPARE(integer(find("High")), 0LL);
    const auto reads = m_camera->Counts().reads - before;
    // Every window of 50 ms that begins costs one.
    QVERIFY(reads <= static_cast<std::uint64_t>(timer.elapsed() / 50 + 1));
}

void tst_StructRegister::volatileStructureIsReadAnew_data()
{
    QTest::addColumn<QByteArray>("structure");
    QTest::addColumn<QByteArray>("nodes");
    QTest::newRow("structure not to be cached")
        << structure("<Cachable>NoCache</Cachable>") << QByteArray();
    QTest::newRow("polled structure")
        << structure("<PollingTime>10000</PollingTime>") << QByteArray();
    QTest::newRow("entry not to be cached")
        << structure({}, "<Cachable>NoCache</Cachable>") << QByteArray();
    QTest::newRow("polled entry") << structure({}, "<PollingTime>10000</PollingTime>")
                                  << QByteArray();
    QTest::newRow("value of an entry not to be cached")
        << structure({})
        << QByteArray("<Integer Name=\"Above\"><pValue>Low</pValue><Cachable>NoCache</Cachable>"
                      "</Integer>");
}

void tst_StructRegister::volatileStructureIsReadAnew()
{
    QFETCH(QByteArray, structure);
    QFETCH(QByteArray, nodes);
    open(structure, nodes);
    for (unsigned value = 1; value <= 20; ++value) {
        m_server->setReg(Register, value);
        QCOMPARE(integer(find(nodes.isEmpty() ? "Low" : "Above")), static_cast<long long>(value));
    }
}

void tst_StructRegister::writeOfAnEntryReportsWhatDependsOnIt()
{
    open(structure({}), "<Integer Name=\"Above\"><pValue>Low</pValue></Integer>");
    observe({"Low", "High", "Above"});
    QCOMPARE(find("Low")->SetIntegerValue(5), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->calls(), (std::vector<std::string>{"Low", "Above"}));
    m_recorder->clear();
    QCOMPARE(find("Above")->SetIntegerValue(6), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->calls(), (std::vector<std::string>{"Low", "Above"}));
}

void tst_StructRegister::structureThatDependsOnAFeatureIsReportedByEntry_data()
{
    QTest::addColumn<QByteArray>("more");
    QTest::newRow("by its place") << QByteArray("<pIndex Offset=\"4\">Selector</pIndex>");
    QTest::newRow("by being invalidated") << QByteArray("<pInvalidator>Selector</pInvalidator>");
}

void tst_StructRegister::structureThatDependsOnAFeatureIsReportedByEntry()
{
    QFETCH(QByteArray, more);
    open(structure(more), reg("IntReg", "Selector", "0x4020", "4"));
    observe({"Low", "High"});
    m_server->setReg(Register, 0x00070008);
    m_server->setReg(Register + 4, 0x00070008);
    QCOMPARE(find("Selector")->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->calls(), (std::vector<std::string>{"Low", "High"}));
}

void tst_StructRegister::polledStructureIsReported()
{
    open(structure({}, "<PollingTime>50</PollingTime>"));
    observe({"Low"});
    m_server->setReg(Register, 9);
    QTRY_COMPARE(m_recorder->calls(), std::vector<std::string>{"Low"});
}

void tst_StructRegister::featureImplementedByAnEntryFollowsIt()
{
    open(structure({}),
         "<Integer Name=\"Gated\"><pIsImplemented>Low</pIsImplemented><Value>3</Value></Integer>");
    QVERIFY(find("Gated"));
    QVERIFY(!isReadable(find("Gated")));
    QCOMPARE(find("Low")->SetIntegerValue(1), ZalErrorSuccess);
    QCOMPARE(integer(find("Gated")), 3LL);
}

void tst_StructRegister::unusableStructureIsListedWithoutAccess_data()
{
    QTest::addColumn<QByteArray>("structure");
    QTest::newRow("its place is in itself") << structure("<pAddress>High</pAddress>");
    QTest::newRow("no length") << structure({}, {}, "0");
    QTest::newRow("longer than a number") << structure({}, {}, "9");
}

void tst_StructRegister::unusableStructureIsListedWithoutAccess()
{
    QFETCH(QByteArray, structure);
    open(structure);
    for (const char* name : {"Low", "High"}) {
        QVERIFY(find(name));
        QVERIFY(!isReadable(find(name)));
        QVERIFY(!isWritable(find(name)));
    }
    QCOMPARE(integer(find("Plain")), 0LL);
}

QTEST_GUILESS_MAIN(tst_StructRegister)
#include "tst_StructRegister.moc"
