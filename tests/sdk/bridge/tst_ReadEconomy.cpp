// Which reads reach the camera: a register is asked once per moment, and never answered from before
// a write, from longer ago, or where it changes by itself.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

using namespace BridgeTest;

using Write = std::function<ZalErrorType()>;
Q_DECLARE_METATYPE(Write)

class tst_ReadEconomy : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_server = std::make_unique<NastyCamera>(); }
    void init();
    void cleanup() { m_camera.reset(); }
    void cleanupTestCase() { m_server.reset(); }

    void sizeAndTextAreOneTransaction_data();
    void sizeAndTextAreOneTransaction();
    void textThatFollowsItsSizeIsTheOneThatWasMeasured();
    void textThatFollowsNoSizeIsReadAnew_data();
    void textThatFollowsNoSizeIsReadAnew();
    void repeatedReadIsOneTransaction();
    void featuresShareTheRegistersTheyDependOn();
    void writtenValueIsNeverStale();
    void anyWriteHasEverythingReadAgain_data();
    void anyWriteHasEverythingReadAgain();
    void selectedValueFollowsItsSelector();
    void changeInTheCameraShowsAfterAMoment();
    void featureThatChangesByItselfIsAlwaysReadAnew_data();
    void featureThatChangesByItselfIsAlwaysReadAnew();
    void endOfACommandShowsAtOnce();
    void writeLooksAtTheCameraNotAtTheCache();
    void changesAreLookedForInTheCameraNotInTheCache();

private:
    FeaturePtr find(const std::string& name) const { return m_camera->FindFeature(name); }
    void readsOneRegister(const std::function<void()>& action) const;

    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
};

void tst_ReadEconomy::init()
{
    m_server->reset();
    m_camera = openCamera();
}

// On a machine that takes its time, every window of 50 ms that begins costs one transaction.
void tst_ReadEconomy::readsOneRegister(const std::function<void()>& action) const
{
    QElapsedTimer timer;
    timer.start();
    const auto before = m_camera->Counts().reads;
    action();
    const auto reads = m_camera->Counts().reads - before;
    QVERIFY(reads >= 1);
    QVERIFY(reads <= static_cast<std::uint64_t>(timer.elapsed() / 50 + 1));
}

void tst_ReadEconomy::sizeAndTextAreOneTransaction_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("enumeration") << "Mode"
                                 << "Off";
    QTest::newRow("text") << "Note"
                          << "";
}

void tst_ReadEconomy::sizeAndTextAreOneTransaction()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    std::string read;
    readsOneRegister([&] { read = text(find(name.toStdString())); });
    QCOMPARE(QString::fromStdString(read), value);
}

namespace {

constexpr std::uint32_t MessageRegister = 0x4720;

// Null asks for the size.
std::string readMessage(const FeaturePtr& message, char* buffer)
{
    std::uint32_t count = 16;
    const ZalErrorType status = message->GetStringValue(buffer, count);
    return status == ZalErrorSuccess && buffer ? buffer : std::string();
}

} // namespace

// The camera changes the text between the two calls. A moment later it is read anew all the same.
void tst_ReadEconomy::textThatFollowsItsSizeIsTheOneThatWasMeasured()
{
    char buffer[16] = {};
    QElapsedTimer timer;
    do {
        m_server->setText(MessageRegister, "short");
        timer.start();
        readMessage(find("Message"), nullptr);
        m_server->setText(MessageRegister, "longer text");
        readMessage(find("Message"), buffer);
    } while (timer.elapsed() >= 50);
    QCOMPARE(buffer, "short");
}

void tst_ReadEconomy::textThatFollowsNoSizeIsReadAnew_data()
{
    QTest::addColumn<bool>("bySize");
    QTest::newRow("second text after one size") << false;
    QTest::newRow("size after a size") << true;
}

void tst_ReadEconomy::textThatFollowsNoSizeIsReadAnew()
{
    QFETCH(bool, bySize);
    char buffer[16] = {};
    m_server->setText(MessageRegister, "first");
    readMessage(find("Message"), nullptr);
    if (!bySize)
        readMessage(find("Message"), buffer);
    m_server->setText(MessageRegister, "second");
    if (bySize)
        readMessage(find("Message"), nullptr);
    QCOMPARE(readMessage(find("Message"), buffer), std::string("second"));
}

void tst_ReadEconomy::repeatedReadIsOneTransaction()
{
    QCOMPARE(find("Plain")->SetIntegerValue(5), ZalErrorSuccess);
    readsOneRegister([this] {
        for (int i = 0; i < 10; ++i)
            QCOMPARE(integer(find("Plain")), 5LL);
    });
}

void tst_ReadEconomy::featuresShareTheRegistersTheyDependOn()
{
    readsOneRegister([this] {
        QCOMPARE(integer(find("Plain")), 0LL);
        QCOMPARE(integer(find("Doubled")), 0LL);
    });
}

void tst_ReadEconomy::writtenValueIsNeverStale()
{
    for (int value = 1; value <= 100; ++value) {
        QCOMPARE(find("Plain")->SetIntegerValue(value), ZalErrorSuccess);
        QCOMPARE(integer(find("Plain")), static_cast<long long>(value));
        QCOMPARE(integer(find("Doubled")), 2LL * value);
    }
}

void tst_ReadEconomy::anyWriteHasEverythingReadAgain_data()
{
    QTest::addColumn<Write>("write");
    QTest::newRow("value") << Write([this] { return find("Lock")->SetIntegerValue(0); });
    QTest::newRow("text") << Write([this] { return find("Note")->SetStringValue("x"); });
    QTest::newRow("command") << Write([this] { return find("Reset")->RunCommand(); });
    QTest::newRow("acquisition") << Write([this] {
        const ZalErrorType status = m_camera->StartAcquisition([](const ZalCPP::Frame&) {});
        return status == ZalErrorSuccess ? m_camera->StopAcquisition() : status;
    });
}

void tst_ReadEconomy::anyWriteHasEverythingReadAgain()
{
    QFETCH(Write, write);
    QCOMPARE(integer(find("Plain")), 0LL);
    m_server->setReg(0x4000, 5);
    QCOMPARE(write(), ZalErrorSuccess);
    QCOMPARE(integer(find("Plain")), 5LL);
}

void tst_ReadEconomy::selectedValueFollowsItsSelector()
{
    for (std::uint32_t channel = 0; channel < 4; ++channel)
        m_server->setReg(0x4440 + 4 * channel, 10 + channel);
    for (int round = 0; round < 3; ++round) {
        for (int channel = 0; channel < 4; ++channel) {
            QCOMPARE(find("ChannelSelector")->SetIntegerValue(channel), ZalErrorSuccess);
            QCOMPARE(integer(find("ChannelLevel")), 10LL + channel);
        }
    }
}

void tst_ReadEconomy::changeInTheCameraShowsAfterAMoment()
{
    QCOMPARE(integer(find("Plain")), 0LL);
    QElapsedTimer sinceChange;
    sinceChange.start();
    m_server->setReg(0x4000, 5);
    while (integer(find("Plain")) == 0 && sinceChange.elapsed() < 50) {
    }
    QCOMPARE(integer(find("Plain")), 5LL);
}

void tst_ReadEconomy::featureThatChangesByItselfIsAlwaysReadAnew_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned>("address");
    QTest::newRow("with a polling time") << "Temperature" << 0x4700U;
    QTest::newRow("not to be cached") << "Ticks" << 0x4704U;
}

void tst_ReadEconomy::featureThatChangesByItselfIsAlwaysReadAnew()
{
    QFETCH(QString, name);
    QFETCH(unsigned, address);
    for (unsigned value = 1; value <= 100; ++value) {
        m_server->setReg(address, value);
        QCOMPARE(integer(find(name.toStdString())), static_cast<long long>(value));
    }
}

void tst_ReadEconomy::endOfACommandShowsAtOnce()
{
    QCOMPARE(find("Reset")->RunCommand(), ZalErrorSuccess);
    QCOMPARE(ask<bool>(find("Reset"), &Feature::IsCommandDone, true), false);
    m_server->setReg(0x4800, 0);
    QCOMPARE(ask<bool>(find("Reset"), &Feature::IsCommandDone, false), true);
}

void tst_ReadEconomy::writeLooksAtTheCameraNotAtTheCache()
{
    QVERIFY(isWritable(find("Lockable")));
    m_server->setReg(0x4100, 1);
    QCOMPARE(find("Lockable")->SetIntegerValue(5), ZalErrorNotWritable);
    QCOMPARE(m_server->reg(0x4104), 0U);
}

// The camera needs a while for what a write causes. Somebody looks too early, but late enough for
// what was seen then to be in the cache when changes are looked for.
void tst_ReadEconomy::changesAreLookedForInTheCameraNotInTheCache()
{
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(find("Limited")->RegisterObserver(recorder), ZalErrorSuccess);
    // The last feature is reported when all others are known.
    QCOMPARE(find("Constant")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Constant")->SetIntegerValue(1), ZalErrorSuccess);
    QTRY_COMPARE(recorder->calls(), std::vector<std::string>{"Constant"});
    QCOMPARE(find("LimitLow")->SetIntegerValue(0), ZalErrorSuccess);
    QTest::qWait(25);
    QCOMPARE(integer(find("Limited")), 0LL);
    m_server->setReg(0x4008, 5);
    QTRY_COMPARE(recorder->count("Limited"), 1);
    QCOMPARE(integer(find("Limited")), 5LL);
}

QTEST_GUILESS_MAIN(tst_ReadEconomy)
#include "tst_ReadEconomy.moc"
