// A network that loses, repeats and delays datagrams: what a call gives back, and how long it
// takes.
#include "tests/sdk/bridge/OnNastyCamera.h"
#include "tests/support/GvcpProxy.h"

using namespace BridgeTest;

using Call = std::function<ZalErrorType()>;
using Direction = GvcpProxy::Direction;
using Fate = GvcpProxy::Fate;

Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(GvcpProxy::Direction)

namespace {

constexpr std::uint32_t LimitHighRegister = 0x4010;
constexpr std::uint32_t LimitStepRegister = 0x4014;
// Like that of the temperature never answered from a moment before.
constexpr std::uint32_t TicksRegister = 0x4704;

bool isHeartbeat(const GvcpProxy::Datagram& request)
{
    const GvcpProxy::Datagram readOfControlPrivilege{0, 0, 0x0a, 0};
    return request.size() == 12 && request[3] == 0x80 &&
           std::equal(readOfControlPrivilege.begin(), readOfControlPrivilege.end(),
                      request.begin() + 8);
}

/// The same fate for some datagrams of one direction, counted from `first`. The heartbeat, which
/// comes when it likes, is spared.
GvcpProxy::Judge judge(Direction direction, Fate fate, int first, int count = 1)
{
    return [=, seen = 0, spared = false](Direction asked,
                                         const GvcpProxy::Datagram& datagram) mutable {
        if (asked == Direction::ToCamera)
            spared = isHeartbeat(datagram);
        if (spared || asked != direction)
            return Fate::Pass;
        const int position = seen++;
        return position >= first && position < first + count ? fate : Fate::Pass;
    };
}

} // namespace

class tst_LostDatagrams : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase() { serve(); }
    void init();
    void cleanup();
    void cleanupTestCase() { endServing(); }

    void oneLostDatagramFailsNoCall_data();
    void oneLostDatagramFailsNoCall();
    void lossAmongManyTransactionsFailsNoCall_data();
    void lossAmongManyTransactionsFailsNoCall();
    void twoLostDatagramsAreAStallThatEnds();
    void closingGivesControlBack();
    void answerThatComesTwiceIsNoAnswerToTheNextQuestion_data();
    void answerThatComesTwiceIsNoAnswerToTheNextQuestion();
    void lateAnswerIsNoAnswerToTheNextQuestion();

private:
    void verifyAnswers() const;

    std::unique_ptr<GvcpProxy> m_proxy;
};

void tst_LostDatagrams::init()
{
    m_proxy = std::make_unique<GvcpProxy>();
    QVERIFY(m_proxy->isRunning());
    openAnew(GvcpProxy::Address);
    m_server->setReg(TemperatureRegister, 1);
    m_server->setReg(TicksRegister, 2);
}

void tst_LostDatagrams::cleanup()
{
    m_proxy->setJudge(nullptr);
    m_camera.reset();
    // Who has waited just before does not wait for this as well.
    QTRY_COMPARE(m_server->reg(ControlPrivilege), 0U);
    m_proxy.reset();
}

// Whoever got the answer to another question would have the other number.
void tst_LostDatagrams::verifyAnswers() const
{
    for (int i = 0; i < 100; ++i) {
        QCOMPARE(integer(find("Temperature")), 1LL);
        QCOMPARE(integer(find("Ticks")), 2LL);
    }
}

void tst_LostDatagrams::oneLostDatagramFailsNoCall_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<Direction>("direction");
    const auto rows = [](const char* name, const Call& call) {
        QTest::addRow("%s, request", name) << call << Direction::ToCamera;
        QTest::addRow("%s, answer", name) << call << Direction::ToClient;
    };
    rows("read", [this] {
        long long value = 0;
        return find("Temperature")->GetIntegerValue(value);
    });
    rows("write", [this] { return find("Plain")->SetIntegerValue(5); });
    rows("text", [this] { return find("Note")->SetStringValue("x"); });
    rows("command", [this] { return find("Reset")->RunCommand(); });
}

void tst_LostDatagrams::oneLostDatagramFailsNoCall()
{
    QFETCH(Call, call);
    QFETCH(Direction, direction);
    m_proxy->setJudge(judge(direction, Fate::Drop, 0));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(call(), ZalErrorSuccess);
    QVERIFY2(timer.elapsed() <= LongestBlock, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_proxy->counts().dropped, std::uint64_t(1));
}

void tst_LostDatagrams::lossAmongManyTransactionsFailsNoCall_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<int>("position");
    for (const int position : {0, 1, 2, 3}) {
        QTest::addRow("request %d", position) << Direction::ToCamera << position;
        QTest::addRow("answer %d", position) << Direction::ToClient << position;
    }
}

// One call that asks for the limits and the step before it writes.
void tst_LostDatagrams::lossAmongManyTransactionsFailsNoCall()
{
    QFETCH(Direction, direction);
    QFETCH(int, position);
    m_server->setReg(LimitHighRegister, 10);
    m_server->setReg(LimitStepRegister, 1);
    m_proxy->setJudge(judge(direction, Fate::Drop, position));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(find("Limited")->SetIntegerValue(5), ZalErrorSuccess);
    QVERIFY2(timer.elapsed() <= LongestBlock, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_proxy->counts().dropped, std::uint64_t(1));
}

void tst_LostDatagrams::twoLostDatagramsAreAStallThatEnds()
{
    QCOMPARE(find("Note")->RegisterObserver(m_recorder), ZalErrorSuccess);
    // The notifier reads in the background until it has reported this.
    QCOMPARE(find("Note")->SetStringValue("x"), ZalErrorSuccess);
    QTRY_COMPARE(m_recorder->count("Note"), 1);
    m_proxy->setJudge(judge(Direction::ToCamera, Fate::Drop, 0, 2));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorTimeout);
    QCOMPARE(find("Plain")->SetIntegerValue(6), ZalErrorTimeout);
    QVERIFY2(timer.elapsed() <= LongestBlock, qPrintable(QString::number(timer.elapsed())));
    QTRY_COMPARE(integer(find("Plain")), 5LL);
    QTRY_COMPARE(m_recorder->count("Note"), 2);
    QVERIFY(!m_camera->IsLost());
}

// A program that ends then would leave the camera in use for seconds.
void tst_LostDatagrams::closingGivesControlBack()
{
    QVERIFY(m_server->reg(ControlPrivilege) != 0U);
    m_proxy->setJudge(judge(Direction::ToCamera, Fate::Drop, 0));
    m_camera.reset();
    QCOMPARE(m_server->reg(ControlPrivilege), 0U);
    QCOMPARE(m_proxy->counts().dropped, std::uint64_t(1));
}

void tst_LostDatagrams::answerThatComesTwiceIsNoAnswerToTheNextQuestion_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::newRow("requests") << Direction::ToCamera;
    QTest::newRow("answers") << Direction::ToClient;
}

void tst_LostDatagrams::answerThatComesTwiceIsNoAnswerToTheNextQuestion()
{
    QFETCH(Direction, direction);
    m_proxy->setJudge(judge(direction, Fate::Duplicate, 0, 200));
    verifyAnswers();
    QCOMPARE(m_proxy->counts().duplicated, std::uint64_t(200));
}

// It arrives after the question was put and answered once more.
void tst_LostDatagrams::lateAnswerIsNoAnswerToTheNextQuestion()
{
    m_proxy->setDelay(530);
    m_proxy->setJudge(judge(Direction::ToClient, Fate::Delay, 0));
    QCOMPARE(integer(find("Temperature")), 1LL);
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 100)
        verifyAnswers();
    QCOMPARE(m_proxy->counts().delayed, std::uint64_t(1));
}

QTEST_GUILESS_MAIN(tst_LostDatagrams)
#include "tst_LostDatagrams.moc"
