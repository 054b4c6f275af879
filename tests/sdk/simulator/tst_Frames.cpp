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
QString FirstDigit(const std::vector<unsigned char>& picture)
{
    constexpr std::size_t Left = 16;
    constexpr std::size_t Top = 16;
    constexpr std::size_t Cell = 6;
    constexpr std::size_t Width = 640;
    QString cells;
    for (std::size_t row = 0; row < 5; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            cells += picture[(Top + row * Cell) * Width + Left + column * Cell] == 255 ? '#' : '.';
        cells += ' ';
    }
    const unsigned char gapAfterSecond = picture[(Top + 1) * Width + Left + 7 * Cell];
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
    void SwitchTrigger(const char* source) const;

    std::unique_ptr<ZalSim::SimulatedCamera> camera;
    std::unique_ptr<Client> client;
};

void tst_Frames::init()
{
    std::string error;
    camera = ZalSim::SimulatedCamera::Start({}, error);
    QVERIFY2(camera, error.c_str());
    camera->SetInputLine(0, false);
    client = std::make_unique<Client>();
}

void tst_Frames::cleanup()
{
    client.reset();
    camera.reset();
}

void tst_Frames::SwitchTrigger(const char* source) const
{
    client->Set("TriggerSelector", "FrameStart");
    client->Set("TriggerMode", "On");
    client->Set("TriggerSource", source);
}

void tst_Frames::freeRunningCameraSendsFrames()
{
    client->StartAcquisition();
    QVERIFY(client->WaitForFrames(10));
    client->StopAcquisition();
    QCOMPARE(client->LastPicture().size(), std::size_t(640 * 480));
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
    client->Set("PixelFormat", format.constData());
    QCOMPARE(client->Integer("PayloadSize"), 640LL * 480 * bytes);
    client->StartAcquisition();
    QVERIFY(client->WaitForFrames(2));
    const auto picture = client->LastPicture();
    QCOMPARE(picture.size(), std::size_t(640 * 480 * bytes));
    // The grid's last lines are drawn in its own gray.
    const std::size_t pixel = std::size_t(448 * 640 + 600) * std::size_t(bytes);
    for (std::size_t i = 0; i < std::size_t(bytes); ++i)
        QCOMPARE(int(picture[pixel + i]), 200);
}

void tst_Frames::picturesChangeFromFrameToFrame()
{
    SwitchTrigger("Software");
    client->StartAcquisition();
    client->Execute("TriggerSoftware");
    QVERIFY(client->WaitForFrames(1));
    const auto first = client->LastPicture();
    client->Execute("TriggerSoftware");
    QVERIFY(client->WaitForFrames(2));
    QVERIFY(client->LastPicture() != first);
}

void tst_Frames::picturesAreNumberedFromOneInEachAcquisition()
{
    SwitchTrigger("Software");
    client->Set("LineSelector", "Line3");
    client->Set("LineSource", "AcquisitionActive");
    for (int i = 0; i < 2; ++i) {
        client->StartAcquisition();
        client->Execute("TriggerSoftware");
        QVERIFY(client->WaitForFrames(1));
        QCOMPARE(FirstDigit(client->LastPicture()), QString(".#. ##. .#. .#. ###"));
        client->Execute("TriggerSoftware");
        QVERIFY(client->WaitForFrames(2));
        QCOMPARE(FirstDigit(client->LastPicture()), QString("### ..# ### #.. ###"));
        client->StopAcquisition();
        QTRY_VERIFY(!client->IsTrue("LineStatus"));
    }
}

void tst_Frames::gainBrightensThePicture()
{
    const auto brightness = [this](int frame) {
        client->WaitForFrames(frame);
        const auto picture = client->LastPicture();
        return std::accumulate(picture.begin(), picture.end(), 0.0) / double(picture.size());
    };
    SwitchTrigger("Software");
    client->StartAcquisition();
    client->Execute("TriggerSoftware");
    const double dark = brightness(1);
    client->Set("Gain", 12.0);
    client->Execute("TriggerSoftware");
    QVERIFY(brightness(2) > dark * 1.2);
}

void tst_Frames::triggeredCameraSendsNothingByItself()
{
    SwitchTrigger("Software");
    client->StartAcquisition();
    QVERIFY(client->GetsExactly(0));
}

void tst_Frames::eachSoftwareTriggerMakesExactlyOneFrame()
{
    SwitchTrigger("Software");
    client->StartAcquisition();
    for (int frame = 1; frame <= 5; ++frame) {
        client->Execute("TriggerSoftware");
        QVERIFY(client->WaitForFrames(frame));
    }
    QVERIFY(client->GetsExactly(5));
}

void tst_Frames::quickSoftwareTriggersAllMakeTheirFrame()
{
    SwitchTrigger("Software");
    client->StartAcquisition();
    for (int i = 0; i < 5; ++i) {
        client->Execute("TriggerSoftware");
        // Taken by the camera, which is long before the frame.
        QTRY_COMPARE(camera->ReadRegister(SoftwareTriggerOfFrameStart), 0U);
    }
    QVERIFY(client->GetsExactly(5));
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
    SwitchTrigger("Line0");
    client->Set("TriggerActivation", activation.constData());
    client->StartAcquisition();
    camera->SetInputLine(0, true);
    QVERIFY(client->GetsExactly(afterRise));
    camera->SetInputLine(0, false);
    QVERIFY(client->GetsExactly(afterFall));
}

void tst_Frames::softwareSignalTriggersAFrame()
{
    SwitchTrigger("SoftwareSignal1");
    client->Set("SoftwareSignalSelector", "SoftwareSignal1");
    client->StartAcquisition();
    client->Execute("SoftwareSignalPulse");
    QVERIFY(client->GetsExactly(1));
}

void tst_Frames::actionTriggersAFrame()
{
    SwitchTrigger("Action1");
    client->Set("ActionDeviceKey", 0x1234);
    client->Set("ActionSelector", 1);
    client->Set("ActionGroupKey", 0x77);
    client->Set("ActionGroupMask", 0x2);
    client->StartAcquisition();
    camera->SendAction(0x1234, 0x77, 0x1);
    QVERIFY(client->GetsExactly(0));
    camera->SendAction(0x1234, 0x77, 0x3);
    QVERIFY(client->GetsExactly(1));
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
    client->Set("AcquisitionMode", mode.constData());
    client->Set("AcquisitionFrameCount", 3);
    client->StartAcquisition();
    QVERIFY(client->GetsExactly(frames));
}

void tst_Frames::acquisitionCanBeStartedAgain()
{
    SwitchTrigger("Software");
    for (int i = 0; i < 3; ++i) {
        client->StartAcquisition();
        client->Execute("TriggerSoftware");
        QVERIFY(client->GetsExactly(1));
        client->StopAcquisition();
    }
}

void tst_Frames::sizeChangesBetweenAcquisitions()
{
    client->StartAcquisition();
    QVERIFY(client->WaitForFrames(2));
    client->StopAcquisition();
    client->Set("Width", 320);
    client->Set("Height", 240);
    client->StartAcquisition();
    QVERIFY(client->WaitForFrames(2));
    const auto picture = client->LastPicture();
    QVERIFY(picture.size() >= std::size_t(320 * 240));
}

// A host that does not lock the format may change it while frames are under way.
void tst_Frames::sizeChangeWithoutLockIsRefused()
{
    client->StartAcquisition();
    QVERIFY(client->WaitForFrames(2));
    client->Set("Width", 1920);
    QTRY_COMPARE(client->Integer("Width"), 640LL);
    QVERIFY(client->WaitForFrames(client->Frames() + 3));
    QCOMPARE(client->LastPicture().size(), std::size_t(640 * 480));
}

void tst_Frames::framesAreCounted()
{
    client->Set("CounterSelector", "Counter1");
    client->Set("CounterEventSource", "FrameStart");
    SwitchTrigger("Software");
    client->StartAcquisition();
    for (int frame = 1; frame <= 3; ++frame) {
        client->Execute("TriggerSoftware");
        QVERIFY(client->WaitForFrames(frame));
    }
    QTRY_COMPARE(client->Integer("CounterValue"), 3LL);
    client->Execute("CounterReset");
    QTRY_COMPARE(client->Integer("CounterValueAtReset"), 3LL);
    QCOMPARE(client->Integer("CounterValue"), 0LL);
}

void tst_Frames::exposureReachesTheOutput()
{
    client->Set("LineSelector", "Line2");
    QCOMPARE(client->Text("LineSource"), std::string("ExposureActive"));
    client->Set("ExposureTime", 2e6);
    SwitchTrigger("Software");
    client->StartAcquisition();
    QVERIFY(!client->IsTrue("LineStatus"));
    client->Execute("TriggerSoftware");
    QTRY_VERIFY(client->IsTrue("LineStatus"));
    client->Set("ExposureTime", 10.0);
    QTRY_VERIFY(!client->IsTrue("LineStatus"));
    QVERIFY(client->GetsExactly(1));
}

QTEST_GUILESS_MAIN(tst_Frames)
#include "tst_Frames.moc"
