#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/simulator/Client.h"

#include <QtTest>

using ZalSim::Options;
using ZalSim::SimulatedCamera;

class tst_SimulatedCamera : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void everyModelStartsAndTellsWhoItIs_data();
    void everyModelStartsAndTellsWhoItIs();
    void unknownModelIsRefusedWithTheKnownOnes();
    void missingDescriptionIsRefused();
    void modelFolderCanBeGiven();
    void ownDescriptionIsServed();
    void secondCameraOnTheSameAddressIsRefused();
    void foreignAddressIsRefused();
    void addressThatIsNoneIsRefused();
    void portIsFreeAgainAfterDestruction();
    void cameraCanBeDestroyedWhileItSendsFrames();
    void registersAreTheCamerasOwn();
    void userIdIsEmptyUntilItIsSet();
    void drivenLineShowsAtOnce();
    void selectorKeepsEachTriggersOwnSettings();
    void directionOfALineIsLimited();
    void sourceIsLockedOnAnInput();
    void runningAcquisitionLocksTheImageFormat();
    void triggerStaysWritableWhileLocked();
    void featuresBecomeAvailableWithTheirTrigger();
    void offsetLimitsTheWidth();

private:
    std::unique_ptr<SimulatedCamera> Start(const Options& options = {}) const;
};

namespace {

std::string StartError(const Options& options)
{
    std::string error;
    return SimulatedCamera::Start(options, error) ? "started" : error;
}

} // namespace

std::unique_ptr<SimulatedCamera> tst_SimulatedCamera::Start(const Options& options) const
{
    std::string error;
    auto camera = SimulatedCamera::Start(options, error);
    if (!camera)
        throw std::runtime_error(error);
    return camera;
}

void tst_SimulatedCamera::cleanup()
{
    qunsetenv("ZALSIM_MODEL_DIR");
}

void tst_SimulatedCamera::everyModelStartsAndTellsWhoItIs_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<QByteArray>("vendor");
    QTest::addColumn<QByteArray>("family");
    QTest::newRow("full") << QByteArray("full") << QByteArray("Tarsel Imaging GmbH")
                          << QByteArray("Sim Series");
    QTest::newRow("basic") << QByteArray("basic") << QByteArray("Tarsel Imaging GmbH")
                           << QByteArray("Basic Series");
    QTest::newRow("aliaslines") << QByteArray("aliaslines") << QByteArray("Tarsel Imaging GmbH")
                                << QByteArray("Basic Series");
    QTest::newRow("foreign") << QByteArray("foreign") << QByteArray("Nordlicht Optik AS")
                             << QByteArray("NX");
    QTest::newRow("notrigger") << QByteArray("notrigger") << QByteArray("Tarsel Imaging GmbH")
                               << QByteArray("Sim Series");
}

void tst_SimulatedCamera::everyModelStartsAndTellsWhoItIs()
{
    QFETCH(QByteArray, model);
    Options options;
    options.model = model.toStdString();
    options.serial = "S-77";
    const auto camera = Start(options);
    QCOMPARE(camera->CameraId(), std::string("127.0.0.1"));
    Client client;
    QTEST(QByteArray::fromStdString(client.Text("DeviceVendorName")), "vendor");
    QTEST(QByteArray::fromStdString(client.Text("DeviceFamilyName")), "family");
    QCOMPARE(client.Text("DeviceSerialNumber"), std::string("S-77"));
    QVERIFY(!client.Text("DeviceModelName").empty());
    client.StartAcquisition();
    QVERIFY(client.WaitForFrames(2));
}

void tst_SimulatedCamera::unknownModelIsRefusedWithTheKnownOnes()
{
    Options options;
    options.model = "fancy";
    QCOMPARE(StartError(options), std::string("There is no camera model \"fancy\". Known models: "
                                              "full, basic, aliaslines, foreign, notrigger."));
    QCOMPARE(SimulatedCamera::Models(),
             (std::vector<std::string>{"full", "basic", "aliaslines", "foreign", "notrigger"}));
}

void tst_SimulatedCamera::missingDescriptionIsRefused()
{
    Options options;
    options.descriptionFile = "/nowhere/camera.xml";
    QCOMPARE(StartError(options),
             std::string("The camera description /nowhere/camera.xml does not exist."));
}

void tst_SimulatedCamera::modelFolderCanBeGiven()
{
    const QTemporaryDir folder;
    qputenv("ZALSIM_MODEL_DIR", folder.path().toLocal8Bit());
    const std::string file = folder.filePath("full.xml").toStdString();
    QCOMPARE(StartError({}), "The camera description " + file + " does not exist.");
    QVERIFY(QFile::copy(QCoreApplication::applicationDirPath() + "/../bin/models/full.xml",
                        folder.filePath("full.xml")));
    QVERIFY(Start());
}

void tst_SimulatedCamera::ownDescriptionIsServed()
{
    Options options;
    options.descriptionFile =
        (QCoreApplication::applicationDirPath() + "/../bin/models/notrigger.xml").toStdString();
    const auto camera = Start(options);
    const Client client;
    QVERIFY(client.Node("TriggerMode"));
    QVERIFY(!client.Node("LineMode"));
}

void tst_SimulatedCamera::secondCameraOnTheSameAddressIsRefused()
{
    const auto first = Start();
    QCOMPARE(StartError({}),
             std::string("Another camera already listens on 127.0.0.1, UDP port 3956."));
    const Client client;
    QCOMPARE(client.Text("DeviceSerialNumber"), std::string("SIM0001"));
}

void tst_SimulatedCamera::foreignAddressIsRefused()
{
    Options options;
    options.interface = "192.0.2.7";
    QCOMPARE(StartError(options), std::string("A camera cannot listen on the address 192.0.2.7."));
}

void tst_SimulatedCamera::addressThatIsNoneIsRefused()
{
    Options options;
    options.interface = "nonsense";
    QCOMPARE(StartError(options), std::string("A camera cannot listen on the address nonsense."));
}

void tst_SimulatedCamera::portIsFreeAgainAfterDestruction()
{
    for (int i = 0; i < 5; ++i) {
        const auto camera = Start();
        const Client client;
        QCOMPARE(client.Text("TriggerMode"), std::string("Off"));
    }
}

void tst_SimulatedCamera::cameraCanBeDestroyedWhileItSendsFrames()
{
    auto camera = Start();
    Client client;
    client.StartAcquisition();
    QVERIFY(client.WaitForFrames(2));
    camera.reset();
    // Lives longer than the client, which would otherwise wait for answers while it says goodbye.
    camera = Start();
}

void tst_SimulatedCamera::registersAreTheCamerasOwn()
{
    const auto camera = Start();
    Client client;
    client.Set("Width", 320);
    QCOMPARE(camera->ReadRegister(0x100), 320U);
    camera->WriteRegister(0x100, 480);
    QCOMPARE(client.Integer("Width"), 480LL);
}

void tst_SimulatedCamera::userIdIsEmptyUntilItIsSet()
{
    const auto camera = Start();
    const Client client;
    QCOMPARE(client.Text("DeviceUserID"), std::string());
    client.Set("DeviceUserID", "left");
    QCOMPARE(client.Text("DeviceUserID"), std::string("left"));
}

void tst_SimulatedCamera::drivenLineShowsAtOnce()
{
    const auto camera = Start();
    const Client client;
    client.Set("LineSelector", "Line1");
    for (const bool high : {true, false, true}) {
        camera->SetInputLine(1, high);
        QCOMPARE(client.IsTrue("LineStatus"), high);
    }
}

void tst_SimulatedCamera::selectorKeepsEachTriggersOwnSettings()
{
    const auto camera = Start();
    const Client client;
    client.Set("TriggerSelector", "FrameBurstStart");
    client.Set("TriggerMode", "On");
    client.Set("TriggerSource", "Timer1Active");
    client.Set("TriggerActivation", "LevelLow");
    client.Set("TriggerDelay", 250.0);
    client.Set("TriggerSelector", "FrameStart");
    QCOMPARE(client.Text("TriggerMode"), std::string("Off"));
    QCOMPARE(client.Text("TriggerSource"), std::string("Software"));
    QCOMPARE(client.Number("TriggerDelay"), 0.0);
    client.Set("TriggerSelector", "FrameBurstStart");
    QCOMPARE(client.Text("TriggerMode"), std::string("On"));
    QCOMPARE(client.Text("TriggerSource"), std::string("Timer1Active"));
    QCOMPARE(client.Text("TriggerActivation"), std::string("LevelLow"));
    QCOMPARE(client.Number("TriggerDelay"), 250.0);
}

void tst_SimulatedCamera::directionOfALineIsLimited()
{
    const auto camera = Start();
    const Client client;
    const auto modes = [&](const char* line) {
        client.Set("LineSelector", line);
        return client.AvailableEntries("LineMode").size();
    };
    QCOMPARE(modes("Line0"), std::size_t(1));
    QCOMPARE(modes("Line2"), std::size_t(2));
    QCOMPARE(modes("Line3"), std::size_t(1));
    QCOMPARE(client.AvailableEntries("LineMode").front(), std::string("Output"));
}

void tst_SimulatedCamera::sourceIsLockedOnAnInput()
{
    const auto camera = Start();
    const Client client;
    client.Set("LineSelector", "Line2");
    QVERIFY(!client.IsLocked("LineSource"));
    QVERIFY(client.IsLocked("LineDebounceMode"));
    client.Set("LineMode", "Input");
    QVERIFY(client.IsLocked("LineSource"));
    QVERIFY(!client.IsLocked("LineDebounceMode"));
}

void tst_SimulatedCamera::runningAcquisitionLocksTheImageFormat()
{
    const auto camera = Start();
    const Client client;
    const auto locked = {"Width", "Height", "PixelFormat", "AcquisitionMode"};
    for (const char* feature : locked)
        QVERIFY2(!client.IsLocked(feature), feature);
    client.Set("TLParamsLocked", 1);
    for (const char* feature : locked)
        QVERIFY2(client.IsLocked(feature), feature);
}

void tst_SimulatedCamera::triggerStaysWritableWhileLocked()
{
    const auto camera = Start();
    const Client client;
    client.Set("TLParamsLocked", 1);
    for (const char* feature : {"TriggerSelector", "TriggerMode", "TriggerSource",
                                "TriggerActivation", "TriggerDelay", "TriggerSoftware"})
        QVERIFY2(!client.IsLocked(feature), feature);
}

void tst_SimulatedCamera::featuresBecomeAvailableWithTheirTrigger()
{
    const auto camera = Start();
    const Client client;
    QVERIFY(!client.IsAvailable("AcquisitionBurstFrameCount"));
    QCOMPARE(client.AvailableEntries("ExposureMode").size(), std::size_t(1));
    for (const char* trigger : {"FrameStart", "FrameBurstStart"}) {
        client.Set("TriggerSelector", trigger);
        client.Set("TriggerMode", "On");
    }
    QVERIFY(client.IsAvailable("AcquisitionBurstFrameCount"));
    QCOMPARE(client.AvailableEntries("ExposureMode").size(), std::size_t(2));
}

void tst_SimulatedCamera::offsetLimitsTheWidth()
{
    const auto camera = Start();
    const Client client;
    client.Set("OffsetX", 320);
    QCOMPARE(client.Integer("WidthMax"), 1600LL);
    QCOMPARE(client.Integer("OffsetXMax"), 1280LL);
}

QTEST_GUILESS_MAIN(tst_SimulatedCamera)
#include "tst_SimulatedCamera.moc"
