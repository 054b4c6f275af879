#include "sdk/simulator/Registers.h"
#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/simulator/Client.h"

#include <QtTest>

namespace {
constexpr std::uint32_t SoftwareTriggerOfFrameStart = ZalSim::Registers::Trigger +
                                                      ZalSim::Registers::BlockSize +
                                                      ZalSim::Registers::TriggerBlock::Software;

// The first digit of the number in the upper left corner, as rows of three cells; "+" follows when
// there is a second digit.
QString firstDigit(const std::vector<unsigned char>& picture)
{
    constexpr std::size_t left = 16;
    constexpr std::size_t top = 16;
    constexpr std::size_t cell = 6;
    constexpr std::size_t width = 640;
    QString cells;
    for (std::size_t row = 0; row < 5; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            cells += picture[(top + row * cell) * width + left + column * cell] == 255 ? '#' : '.';
        cells += ' ';
    }
    const unsigned char gapAfterSecond = picture[(top + 1) * width + left + 7 * cell];
    return cells.trimmed() + (gapAfterSecond == 0 ? "+" : "");
}

} // namespace

/// Frames that really cross the network.
class tst_Frames : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void freeRunningCameraSendsFrames();
    void everyFormatFillsTheWholePicture_data();
    void everyFormatFillsTheWholePicture();
    void picturesChangeFromFrameToFrame();
    void picturesAreNumberedFromOneInEachAcquisition();
    void gainBrightensThePicture();
    void triggeredCameraSendsNothingByItself();
    void eachSoftwareTriggerMakesExactlyOneFrame();
    void quickSoftwareTriggersAllMakeTheirFrame();
    void lineTriggersFrames_data();
    void lineTriggersFrames();
    void softwareSignalTriggersAFrame();
    void actionTriggersAFrame();
    void acquisitionModeLimitsTheFrames_data();
    void acquisitionModeLimitsTheFrames();
    void acquisitionCanBeStartedAgain();
    void sizeChangesBetweenAcquisitions();
    void sizeChangeWithoutLockIsRefused();
    void framesAreCounted();
    void exposureReachesTheOutput();

private:
    void switchTrigger(const char* source) const;

    std::unique_ptr<ZalSim::SimulatedCamera> m_camera;
    std::unique_ptr<Client> m_client;
};

void tst_Frames::init()
{
    std::string error;
    m_camera = ZalSim::SimulatedCamera::start({}, error);
    QVERIFY2(m_camera, error.c_str());
    m_camera->setInputLine(0, false);
    m_client = std::make_unique<Client>();
}

void tst_Frames::cleanup()
{
    m_client.reset();
    m_camera.reset();
}

void tst_Frames::switchTrigger(const char* source) const
{
    m_client->set("TriggerSelector", "FrameStart");
    m_client->set("TriggerMode", "On");
    m_client->set("TriggerSource", source);
}

void tst_Frames::freeRunningCameraSendsFrames()
{
    m_client->startAcquisition();
    QVERIFY(m_client->waitForFrames(10));
    m_client->stopAcquisition();
    QCOMPARE(m_client->lastPicture().size(), std::size_t(640 * 480));
}

void tst_Frames::everyFormatFillsTheWholePicture_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("bytes");
    QTest::newRow("Mono8") << QByteArray("Mono8") << 1;
    QTest::newRow("Mono16") << QByteArray("Mono16") << 2;
    QTest::newRow("RGB8") << QByteArray("RGB8") << 3;
}

void tst_Frames::everyFormatFillsTheWholePicture()
{
    QFETCH(QByteArray, format);
    QFETCH(int, bytes);
    m_client->set("PixelFormat", format.constData());
    QCOMPARE(m_client->integer("PayloadSize"), 640LL * 480 * bytes);
    m_client->startAcquisition();
    QVERIFY(m_client->waitForFrames(2));
    const auto picture = m_client->lastPicture();
    QCOMPARE(picture.size(), std::size_t(640 * 480 * bytes));
    // The grid's last lines are drawn in its own gray.
    const std::size_t pixel = std::size_t(448 * 640 + 600) * std::size_t(bytes);
    for (std::size_t i = 0; i < std::size_t(bytes); ++i)
        QCOMPARE(int(picture[pixel + i]), 200);
}

void tst_Frames::picturesChangeFromFrameToFrame()
{
    switchTrigger("Software");
    m_client->startAcquisition();
    m_client->execute("TriggerSoftware");
    QVERIFY(m_client->waitForFrames(1));
    const auto first = m_client->lastPicture();
    m_client->execute("TriggerSoftware");
    QVERIFY(m_client->waitForFrames(2));
    QVERIFY(m_client->lastPicture() != first);
}

void tst_Frames::picturesAreNumberedFromOneInEachAcquisition()
{
    switchTrigger("Software");
    m_client->set("LineSelector", "Line3");
    m_client->set("LineSource", "AcquisitionActive");
    for (int i = 0; i < 2; ++i) {
        m_client->startAcquisition();
        m_client->execute("TriggerSoftware");
        QVERIFY(m_client->waitForFrames(1));
        QCOMPARE(firstDigit(m_client->lastPicture()), QString(".#. ##. .#. .#. ###"));
        m_client->execute("TriggerSoftware");
        QVERIFY(m_client->waitForFrames(2));
        QCOMPARE(firstDigit(m_client->lastPicture()), QString("### ..# ### #.. ###"));
        m_client->stopAcquisition();
        QTRY_VERIFY(!m_client->isTrue("LineStatus"));
    }
}

void tst_Frames::gainBrightensThePicture()
{
    const auto brightness = [this](int frame) {
        m_client->waitForFrames(frame);
        const auto picture = m_client->lastPicture();
        return std::accumulate(picture.begin(), picture.end(), 0.0) / double(picture.size());
    };
    switchTrigger("Software");
    m_client->startAcquisition();
    m_client->execute("TriggerSoftware");
    const double dark = brightness(1);
    m_client->set("Gain", 12.0);
    m_client->execute("TriggerSoftware");
    QVERIFY(brightness(2) > dark * 1.2);
}

void tst_Frames::triggeredCameraSendsNothingByItself()
{
    switchTrigger("Software");
    m_client->startAcquisition();
    QVERIFY(m_client->getsExactly(0));
}

void tst_Frames::eachSoftwareTriggerMakesExactlyOneFrame()
{
    switchTrigger("Software");
    m_client->startAcquisition();
    for (int frame = 1; frame <= 5; ++frame) {
        m_client->execute("TriggerSoftware");
        QVERIFY(m_client->waitForFrames(frame));
    }
    QVERIFY(m_client->getsExactly(5));
}

void tst_Frames::quickSoftwareTriggersAllMakeTheirFrame()
{
    switchTrigger("Software");
    m_client->startAcquisition();
    for (int i = 0; i < 5; ++i) {
        m_client->execute("TriggerSoftware");
        // Taken by the camera, which is long before the frame.
        QTRY_COMPARE(m_camera->readRegister(SoftwareTriggerOfFrameStart), 0U);
    }
    QVERIFY(m_client->getsExactly(5));
}

void tst_Frames::lineTriggersFrames_data()
{
    QTest::addColumn<QByteArray>("activation");
    QTest::addColumn<int>("afterRise");
    QTest::addColumn<int>("afterFall");
    QTest::newRow("rising") << QByteArray("RisingEdge") << 1 << 1;
    QTest::newRow("falling") << QByteArray("FallingEdge") << 0 << 1;
    QTest::newRow("any") << QByteArray("AnyEdge") << 1 << 2;
}

void tst_Frames::lineTriggersFrames()
{
    QFETCH(QByteArray, activation);
    QFETCH(int, afterRise);
    QFETCH(int, afterFall);
    switchTrigger("Line0");
    m_client->set("TriggerActivation", activation.constData());
    m_client->startAcquisition();
    m_camera->setInputLine(0, true);
    QVERIFY(m_client->getsExactly(afterRise));
    m_camera->setInputLine(0, false);
    QVERIFY(m_client->getsExactly(afterFall));
}

void tst_Frames::softwareSignalTriggersAFrame()
{
    switchTrigger("SoftwareSignal1");
    m_client->set("SoftwareSignalSelector", "SoftwareSignal1");
    m_client->startAcquisition();
    m_client->execute("SoftwareSignalPulse");
    QVERIFY(m_client->getsExactly(1));
}

void tst_Frames::actionTriggersAFrame()
{
    switchTrigger("Action1");
    m_client->set("ActionDeviceKey", 0x1234);
    m_client->set("ActionSelector", 1);
    m_client->set("ActionGroupKey", 0x77);
    m_client->set("ActionGroupMask", 0x2);
    m_client->startAcquisition();
    m_camera->sendAction(0x1234, 0x77, 0x1);
    QVERIFY(m_client->getsExactly(0));
    m_camera->sendAction(0x1234, 0x77, 0x3);
    QVERIFY(m_client->getsExactly(1));
}

void tst_Frames::acquisitionModeLimitsTheFrames_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<int>("frames");
    QTest::newRow("SingleFrame") << QByteArray("SingleFrame") << 1;
    QTest::newRow("MultiFrame") << QByteArray("MultiFrame") << 3;
}

void tst_Frames::acquisitionModeLimitsTheFrames()
{
    QFETCH(QByteArray, mode);
    QFETCH(int, frames);
    m_client->set("AcquisitionMode", mode.constData());
    m_client->set("AcquisitionFrameCount", 3);
    m_client->startAcquisition();
    QVERIFY(m_client->getsExactly(frames));
}

void tst_Frames::acquisitionCanBeStartedAgain()
{
    switchTrigger("Software");
    for (int i = 0; i < 3; ++i) {
        m_client->startAcquisition();
        m_client->execute("TriggerSoftware");
        QVERIFY(m_client->getsExactly(1));
        m_client->stopAcquisition();
    }
}

void tst_Frames::sizeChangesBetweenAcquisitions()
{
    m_client->startAcquisition();
    QVERIFY(m_client->waitForFrames(2));
    m_client->stopAcquisition();
    m_client->set("Width", 320);
    m_client->set("Height", 240);
    m_client->startAcquisition();
    QVERIFY(m_client->waitForFrames(2));
    const auto picture = m_client->lastPicture();
    QVERIFY(picture.size() >= std::size_t(320 * 240));
}

// A host that does not lock the format may change it while frames are under way.
void tst_Frames::sizeChangeWithoutLockIsRefused()
{
    m_client->startAcquisition();
    QVERIFY(m_client->waitForFrames(2));
    m_client->set("Width", 1920);
    QTRY_COMPARE(m_client->integer("Width"), 640LL);
    QVERIFY(m_client->waitForFrames(m_client->frames() + 3));
    QCOMPARE(m_client->lastPicture().size(), std::size_t(640 * 480));
}

void tst_Frames::framesAreCounted()
{
    m_client->set("CounterSelector", "Counter1");
    m_client->set("CounterEventSource", "FrameStart");
    switchTrigger("Software");
    m_client->startAcquisition();
    for (int frame = 1; frame <= 3; ++frame) {
        m_client->execute("TriggerSoftware");
        QVERIFY(m_client->waitForFrames(frame));
    }
    QTRY_COMPARE(m_client->integer("CounterValue"), 3LL);
    m_client->execute("CounterReset");
    QTRY_COMPARE(m_client->integer("CounterValueAtReset"), 3LL);
    QCOMPARE(m_client->integer("CounterValue"), 0LL);
}

void tst_Frames::exposureReachesTheOutput()
{
    m_client->set("LineSelector", "Line2");
    QCOMPARE(m_client->text("LineSource"), std::string("ExposureActive"));
    m_client->set("ExposureTime", 2e6);
    switchTrigger("Software");
    m_client->startAcquisition();
    QVERIFY(!m_client->isTrue("LineStatus"));
    m_client->execute("TriggerSoftware");
    QTRY_VERIFY(m_client->isTrue("LineStatus"));
    m_client->set("ExposureTime", 10.0);
    QTRY_VERIFY(!m_client->isTrue("LineStatus"));
    QVERIFY(m_client->getsExactly(1));
}

QTEST_GUILESS_MAIN(tst_Frames)
#include "tst_Frames.moc"
