// Features that a camera has at one time and not at another, such as a trigger's mode that one
// trigger has and another has not.
#include "tests/sdk/bridge/OnDescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::reg;

class tst_SometimesImplemented : public QObject, protected OnDescribedCamera
{
    Q_OBJECT

private slots:
    void cleanup() { close(); }

    void isListedWhateverTheSelectorSays_data();
    void isListedWhateverTheSelectorSays();
    void accessFollowsTheSelector();
    void movingTheSelectorReportsTheFeature();
    void onlySuchFeaturesAreAskedEachTime();
    void whatCanChangeIsListed_data();
    void whatCanChangeIsListed();
    void whatCannotChangeIsDecidedAtOpening_data();
    void whatCannotChangeIsDecidedAtOpening();

private:
    void open(int channel);
};

void tst_SometimesImplemented::open(int channel)
{
    m_server = std::make_unique<NastyCamera>();
    m_server->reset();
    m_server->setReg(0x4404, static_cast<std::uint32_t>(channel));
    m_camera = openCamera();
}

void tst_SometimesImplemented::isListedWhateverTheSelectorSays_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<bool>("implemented");
    QTest::newRow("absent at first") << 0 << false;
    QTest::newRow("present at first") << 2 << true;
}

void tst_SometimesImplemented::isListedWhateverTheSelectorSays()
{
    QFETCH(int, channel);
    QFETCH(bool, implemented);
    open(channel);
    const auto boost = find("ChannelBoost");
    QVERIFY(boost);
    QCOMPARE(isReadable(boost), implemented);
    QCOMPARE(isWritable(boost), implemented);
}

void tst_SometimesImplemented::accessFollowsTheSelector()
{
    open(2);
    const auto boost = find("ChannelBoost");
    const auto selector = find("ChannelSelector");
    QCOMPARE(boost->SetIntegerValue(5), ZalErrorSuccess);
    QCOMPARE(selector->SetIntegerValue(1), ZalErrorSuccess);
    long long value = 77;
    QCOMPARE(boost->GetIntegerValue(value), ZalErrorNotAvailable);
    QCOMPARE(value, 77LL);
    QCOMPARE(boost->SetIntegerValue(6), ZalErrorNotAvailable);
    QCOMPARE(m_server->reg(0x4584), 0U);
    QCOMPARE(selector->SetIntegerValue(2), ZalErrorSuccess);
    QCOMPARE(integer(boost), 5LL);
}

void tst_SometimesImplemented::movingTheSelectorReportsTheFeature()
{
    open(0);
    const auto recorder = std::make_shared<Recorder>();
    for (const char* name : {"ChannelBoost", "Plain"})
        QCOMPARE(find(name)->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Constant")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Constant")->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(recorder->calls(), std::vector<std::string>{"Constant"});
    recorder->clear();
    QCOMPARE(find("ChannelSelector")->SetIntegerValue(3), ZalErrorSuccess);
    QTRY_COMPARE(recorder->calls(), std::vector<std::string>{"ChannelBoost"});
    QCOMPARE(find("ChannelSelector")->SetIntegerValue(0), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count("ChannelBoost"), 2);
}

void tst_SometimesImplemented::onlySuchFeaturesAreAskedEachTime()
{
    open(2);
    QCOMPARE(integer(find("PresentByRegister")), 1LL);
    QCOMPARE(m_camera->Counts().reads, std::uint64_t(0));
    QCOMPARE(integer(find("ChannelBoost")), 0LL);
    // The selector, which says whether and where, and the value.
    QCOMPARE(m_camera->Counts().reads, std::uint64_t(2));
}

namespace {

const QByteArray Condition = "<Integer Name=\"A\"><pIsImplemented>C</pIsImplemented>"
                             "<Value>1</Value></Integer>";

QByteArray readOnly(const QByteArray& name, const QByteArray& more = {})
{
    return reg("IntReg", name, "0x4010", "4", more).replace(">RW<", ">RO<");
}

} // namespace

void tst_SometimesImplemented::whatCanChangeIsListed_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::newRow("writable register") << reg("IntReg", "C", "0x4010", "4");
    QTest::newRow("polled register") << readOnly("C", "<PollingTime>500</PollingTime>");
    QTest::newRow("register not to be cached") << readOnly("C", "<Cachable>NoCache</Cachable>");
    QTest::newRow("invalidated register") << readOnly("C", "<pInvalidator>Plain</pInvalidator>");
    QTest::newRow("register of the selected one")
        << readOnly("C", "<pIndex Offset=\"4\">Plain</pIndex>");
    QTest::newRow("register that a selector selects")
        << readOnly("C") + "<Integer Name=\"W\"><pValue>Plain</pValue><pSelected>C</pSelected>"
                           "</Integer>";
    QTest::newRow("register behind what a selector selects")
        << readOnly("D") + "<Integer Name=\"C\"><pValue>D</pValue></Integer>"
                           "<Integer Name=\"E\"><pValue>D</pValue></Integer>"
                           "<Integer Name=\"W\"><pValue>Plain</pValue><pSelected>E</pSelected>"
                           "</Integer>";
    QTest::newRow("formula over a writable register")
        << QByteArray("<SwissKnife Name=\"C\"><pVariable Name=\"X\">Plain</pVariable>"
                      "<Formula>X &gt; 0</Formula></SwissKnife>");
    QTest::newRow("value that a feature writes")
        << QByteArray("<Integer Name=\"C\"><pValue>D</pValue></Integer>"
                      "<Integer Name=\"D\"><Value>0</Value></Integer>"
                      "<Integer Name=\"W\"><pValue>D</pValue></Integer>");
    QTest::newRow("value that a feature writes but does not read")
        << QByteArray("<Integer Name=\"C\"><pValue>D</pValue></Integer>"
                      "<Integer Name=\"D\"><Value>0</Value></Integer>"
                      "<Integer Name=\"W\"><ImposedAccessMode>WO</ImposedAccessMode>"
                      "<pValue>D</pValue></Integer>");
    QTest::newRow("value of a feature") << QByteArray("<Integer Name=\"C\"><pValue>W</pValue>"
                                                      "</Integer><Integer Name=\"W\">"
                                                      "<Value>0</Value></Integer>");
}

void tst_SometimesImplemented::whatCanChangeIsListed()
{
    QFETCH(QByteArray, nodes);
    OnDescribedCamera::open({"A", "W"}, Condition + nodes);
    QVERIFY(find("A"));
    QVERIFY(!isReadable(find("A")));
    QVERIFY(!isWritable(find("A")));
}

void tst_SometimesImplemented::whatCannotChangeIsDecidedAtOpening_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::addColumn<bool>("listed");
    QTest::newRow("zero") << QByteArray("<Integer Name=\"C\"><Value>0</Value></Integer>") << false;
    QTest::newRow("one") << QByteArray("<Integer Name=\"C\"><Value>1</Value></Integer>") << true;
    QTest::newRow("formula over values")
        << QByteArray("<IntSwissKnife Name=\"C\"><pVariable Name=\"X\">D</pVariable>"
                      "<Formula>X - 1</Formula></IntSwissKnife>"
                      "<Integer Name=\"D\"><Value>1</Value></Integer>")
        << false;
    QTest::newRow("register that is only read") << readOnly("C") << false;
    QTest::newRow("value that a feature only reads")
        << QByteArray("<Integer Name=\"C\"><ImposedAccessMode>RO</ImposedAccessMode>"
                      "<pValue>D</pValue></Integer><Integer Name=\"D\"><Value>0</Value></Integer>"
                      "<Integer Name=\"W\"><ImposedAccessMode>RO</ImposedAccessMode>"
                      "<pValue>D</pValue></Integer>")
        << false;
    QTest::newRow("missing node") << QByteArray() << false;
}

void tst_SometimesImplemented::whatCannotChangeIsDecidedAtOpening()
{
    QFETCH(QByteArray, nodes);
    QFETCH(bool, listed);
    OnDescribedCamera::open({"A", "W"}, Condition + nodes);
    QCOMPARE(find("A") != nullptr, listed);
    if (listed)
        QCOMPARE(integer(find("A")), 1LL);
    QCOMPARE(m_camera->Counts().reads, std::uint64_t(0));
}

QTEST_GUILESS_MAIN(tst_SometimesImplemented)
#include "tst_SometimesImplemented.moc"
