// Features that change without being written, wherever the description says so: on the feature, on
// the register, or on a node in between.
#include "tests/sdk/bridge/OnDescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::reg;

class tst_VolatileFeatures : public QObject, protected OnDescribedCamera
{
    Q_OBJECT

private slots:
    void cleanup() { close(); }

    void isAlwaysReadAnew_data();
    void isAlwaysReadAnew();
    void onlyWhatIsVolatileIsReadAnew();
    void volatileRegisterUnderASelectorIsReadAnew();
    void polledFormulaIsReported();
    void dataThatFollowsItsSizeIsWhatWasMeasured();
};

namespace {

constexpr std::uint32_t Source = 0x4010;
constexpr std::uint32_t Other = 0x4014;

const QByteArray NoCache = "<Cachable>NoCache</Cachable>";
const QByteArray Polled = "<PollingTime>10000</PollingTime>";
const QByteArray Plain = reg("IntReg", "R", "0x4010", "4");
const QByteArray Uncached = reg("IntReg", "R", "0x4010", "4", NoCache);

QByteArray formula(const QByteArray& kind, const QByteArray& name, const QByteArray& variable,
                   const QByteArray& more = {})
{
    return "<" + kind + " Name=\"" + name + "\"><pVariable Name=\"X\">" + variable +
           "</pVariable><Formula>X</Formula>" + more + "</" + kind + ">\n";
}

QByteArray integerOf(const QByteArray& name, const QByteArray& source, const QByteArray& more = {})
{
    return "<Integer Name=\"" + name + "\"><pValue>" + source + "</pValue>" + more + "</Integer>\n";
}

QByteArray converter(const QByteArray& more)
{
    return "<IntConverter Name=\"A\"><FormulaTo>FROM</FormulaTo><FormulaFrom>TO</FormulaFrom>"
           "<pValue>R</pValue>" +
           more + "</IntConverter>\n";
}

} // namespace

void tst_VolatileFeatures::isAlwaysReadAnew_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::newRow("formula not to be cached")
        << formula("IntSwissKnife", "A", "R", NoCache) + Plain;
    QTest::newRow("polled formula") << formula("IntSwissKnife", "A", "R", Polled) + Plain;
    QTest::newRow("formula over a register not to be cached")
        << formula("IntSwissKnife", "A", "R") + Uncached;
    QTest::newRow("formula over a formula not to be cached")
        << formula("IntSwissKnife", "A", "B") + formula("IntSwissKnife", "B", "R", NoCache) + Plain;
    QTest::newRow("value of a formula not to be cached")
        << integerOf("A", "B") + formula("IntSwissKnife", "B", "R", NoCache) + Plain;
    QTest::newRow("value not to be cached") << integerOf("A", "R", NoCache) + Plain;
    QTest::newRow("polled value") << integerOf("A", "R", Polled) + Plain;
    QTest::newRow("converter not to be cached") << converter(NoCache) + Plain;
    QTest::newRow("converted register not to be cached") << converter({}) + Uncached;
    QTest::newRow("one of several registers, not to be cached")
        << "<Integer Name=\"A\"><pIndex>Plain</pIndex><pValueIndexed Index=\"0\">B</pValueIndexed>"
           "<pValueDefault>Plain</pValueDefault>" +
               NoCache + "</Integer>" + integerOf("B", "R") + Plain;
}

void tst_VolatileFeatures::isAlwaysReadAnew()
{
    QFETCH(QByteArray, nodes);
    open({"A"}, nodes);
    for (unsigned value = 1; value <= 20; ++value) {
        m_server->setReg(Source, value);
        QCOMPARE(integer(find("A")), static_cast<long long>(value));
    }
}

// The feature next to it still comes from the cache.
void tst_VolatileFeatures::onlyWhatIsVolatileIsReadAnew()
{
    open({"A", "Cached"},
         formula("IntSwissKnife", "A", "R", NoCache) + Plain +
             reg("IntReg", "Cached", "0x4014", "4", "<Cachable>WriteThrough</Cachable>"));
    QElapsedTimer timer;
    long long volatileValue = 0;
    long long cachedValue = 0;
    do {
        m_server->setReg(Source, 1);
        m_server->setReg(Other, 1);
        timer.start();
        integer(find("A"));
        QCOMPARE(find("Cached")->SetIntegerValue(1), ZalErrorSuccess);
        QCOMPARE(integer(find("Cached")), 1LL);
        m_server->setReg(Source, 2);
        m_server->setReg(Other, 2);
        volatileValue = integer(find("A"));
        cachedValue = integer(find("Cached"));
    } while (timer.elapsed() >= 50);
    QCOMPARE(volatileValue, 2LL);
    QCOMPARE(cachedValue, 1LL);
}

void tst_VolatileFeatures::volatileRegisterUnderASelectorIsReadAnew()
{
    open({"Channel", "A"},
         reg("IntReg", "Channel", "0x4020", "4", "<pSelected>A</pSelected>") +
             reg("IntReg", "A", "0x4010", "4", "<pIndex Offset=\"4\">Channel</pIndex>" + NoCache));
    for (unsigned round = 1; round <= 10; ++round) {
        for (const unsigned channel : {0U, 1U}) {
            QCOMPARE(find("Channel")->SetIntegerValue(channel), ZalErrorSuccess);
            QVERIFY(integer(find("A")) >= 0);
            m_server->setReg(Source + 4 * channel, 10 * round + channel);
            QCOMPARE(integer(find("A")), 10LL * round + channel);
        }
    }
}

void tst_VolatileFeatures::polledFormulaIsReported()
{
    open({"A"}, formula("IntSwissKnife", "A", "R", "<PollingTime>50</PollingTime>") + Plain);
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(find("A")->RegisterObserver(recorder), ZalErrorSuccess);
    // The last feature is reported when all others are known.
    QCOMPARE(find("Plain")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Plain")->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(recorder->calls(), std::vector<std::string>{"Plain"});
    m_server->setReg(Source, 7);
    QTRY_COMPARE(recorder->count("A"), 1);
    QCOMPARE(integer(find("A")), 7LL);
}

// As with texts. Asked once more, the camera answers.
void tst_VolatileFeatures::dataThatFollowsItsSizeIsWhatWasMeasured()
{
    open({"A"}, reg("Register", "A", "0x4010", "4", NoCache));
    std::vector<unsigned char> bytes(4);
    std::uint32_t count = 4;
    QElapsedTimer timer;
    do {
        m_server->setReg(Source, 1);
        timer.start();
        QCOMPARE(find("A")->GetRawValue(nullptr, count), ZalErrorSuccess);
        m_server->setReg(Source, 2);
        QCOMPARE(find("A")->GetRawValue(bytes.data(), count), ZalErrorSuccess);
    } while (timer.elapsed() >= 50);
    QCOMPARE(static_cast<int>(bytes[3]), 1);
    QCOMPARE(find("A")->GetRawValue(bytes.data(), count), ZalErrorSuccess);
    QCOMPARE(static_cast<int>(bytes[3]), 2);
}

QTEST_GUILESS_MAIN(tst_VolatileFeatures)
#include "tst_VolatileFeatures.moc"
