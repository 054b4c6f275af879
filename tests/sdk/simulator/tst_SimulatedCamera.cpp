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
    std::unique_ptr<SimulatedCamera> start(const Options& options = {}) const;
};

namespace {

std::string startError(const Options& options)
{
    std::string error;
    return SimulatedCamera::start(options, error) ? "started" : error;
}

} // namespace

std::unique_ptr<SimulatedCamera> tst_SimulatedCamera::start(const Options& options) const
{
    std::string error;
    auto camera = SimulatedCamera::start(options, error);
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
    const auto camera = start(options);
    QCOMPARE(camera->cameraId(), std::string("127.0.0.1"));
    Client client;
    QTEST(QByteArray::fromStdString(client.text("DeviceVendorName")), "vendor");
    QTEST(QByteArray::fromStdString(client.text("DeviceFamilyName")), "family");
    QCOMPARE(client.text("DeviceSerialNumber"), std::string("S-77"));
    QVERIFY(!client.text("DeviceModelName").empty());
    client.startAcquisition();
    QVERIFY(client.waitForFrames(2));
}

void tst_SimulatedCamera::unknownModelIsRefusedWithTheKnownOnes()
{
    Options options;
    options.model = "fancy";
    QCOMPARE(startError(options), std::string("There is no camera model \"fancy\". Known models: "
                                              "full, basic, aliaslines, foreign, notrigger."));
    QCOMPARE(SimulatedCamera::models(),
             (std::vector<std::string>{"full", "basic", "aliaslines", "foreign", "notrigger"}));
}

void tst_SimulatedCamera::missingDescriptionIsRefused()
{
    Options options;
    options.descriptionFile = "/nowhere/camera.xml";
    QCOMPARE(startError(options),
             std::string("The camera description /nowhere/camera.xml does not exist."));
}

void tst_SimulatedCamera::modelFolderCanBeGiven()
{
    const QTemporaryDir folder;
    qputenv("ZALSIM_MODEL_DIR", folder.path().toLocal8Bit());
    const std::string file = folder.filePath("full.xml").toStdString();
    QCOMPARE(startError({}), "The camera description " + file + " does not exist.");
    QVERIFY(QFile::copy(QCoreApplication::applicationDirPath() + "/../bin/models/full.xml",
                        folder.filePath("full.xml")));
    QVERIFY(start());
}

void tst_SimulatedCamera::ownDescriptionIsServed()
{
    Options options;
    options.descriptionFile =
        (QCoreApplication::applicationDirPath() + "/../bin/models/notrigger.xml").toStdString();
    const auto camera = start(options);
    const Client client;
    QVERIFY(client.node("TriggerMode"));
    QVERIFY(!client.node("LineMode"));
}

void tst_SimulatedCamera::secondCameraOnTheSameAddressIsRefused()
{
    const auto first = start();
    QCOMPARE(startError({}),
             std::string("Another camera already listens on 127.0.0.1, UDP port 3956."));
    const Client client;
    QCOMPARE(client.text("DeviceSerialNumber"), std::string("SIM0001"));
}

void tst_SimulatedCamera::foreignAddressIsRefused()
{
    Options options;
    options.interface = "192.0.2.7";
    QCOMPARE(startError(options), std::string("A camera cannot listen on the address 192.0.2.7."));
}

void tst_SimulatedCamera::addressThatIsNoneIsRefused()
{
    Options options;
    options.interface = "nonsense";
    QCOMPARE(startError(options), std::string("A camera cannot listen on the address nonsense."));
}

void tst_SimulatedCamera::portIsFreeAgainAfterDestruction()
{
    for (int i = 0; i < 5; ++i) {
        const auto camera = start();
        const Client client;
        QCOMPARE(client.text("TriggerMode"), std::string("Off"));
    }
}

void tst_SimulatedCamera::cameraCanBeDestroyedWhileItSendsFrames()
{
    auto camera = start();
    Client client;
    client.startAcquisition();
    QVERIFY(client.waitForFrames(2));
    camera.reset();
    // Lives longer than the client, which would otherwise wait for answers while it says goodbye.
    camera = start();
}

void tst_SimulatedCamera::registersAreTheCamerasOwn()
{
    const auto camera = start();
    Client client;
    client.set("Width", 320);
    QCOMPARE(camera->readRegister(0x100), 320U);
    camera->writeRegister(0x100, 480);
    QCOMPARE(client.integer("Width"), 480LL);
}

void tst_SimulatedCamera::userIdIsEmptyUntilItIsSet()
{
    const auto camera = start();
    const Client client;
    QCOMPARE(client.text("DeviceUserID"), std::string());
    client.set("DeviceUserID", "left");
    QCOMPARE(client.text("DeviceUserID"), std::string("left"));
}

void tst_SimulatedCamera::drivenLineShowsAtOnce()
{
    const auto camera = start();
    const Client client;
    client.set("LineSelector", "Line1");
    for (const bool high : {true, false, true}) {
        camera->setInputLine(1, high);
        QCOMPARE(client.isTrue("LineStatus"), high);
    }
}

void tst_SimulatedCamera::selectorKeepsEachTriggersOwnSettings()
{
    const auto camera = start();
    const Client client;
    client.set("TriggerSelector", "FrameBurstStart");
    client.set("TriggerMode", "On");
    client.set("TriggerSource", "Timer1Active");
    client.set("TriggerActivation", "LevelLow");
    client.set("TriggerDelay", 250.0);
    client.set("TriggerSelector", "FrameStart");
    QCOMPARE(client.text("TriggerMode"), std::string("Off"));
    QCOMPARE(client.text("TriggerSource"), std::string("Software"));
    QCOMPARE(client.number("TriggerDelay"), 0.0);
    client.set("TriggerSelector", "FrameBurstStart");
    QCOMPARE(client.text("TriggerMode"), std::string("On"));
    QCOMPARE(client.text("TriggerSource"), std::string("Timer1Active"));
    QCOMPARE(client.text("TriggerActivation"), std::string("LevelLow"));
    QCOMPARE(client.number("TriggerDelay"), 250.0);
}

void tst_SimulatedCamera::directionOfALineIsLimited()
{
    const auto camera = start();
    const Client client;
    const auto modes = [&](const char* line) {
        client.set("LineSelector", line);
        return client.availableEntries("LineMode").size();
    };
    QCOMPARE(modes("Line0"), std::size_t(1));
    QCOMPARE(modes("Line2"), std::size_t(2));
    QCOMPARE(modes("Line3"), std::size_t(1));
    QCOMPARE(client.availableEntries("LineMode").front(), std::string("Output"));
}

void tst_SimulatedCamera::sourceIsLockedOnAnInput()
{
    const auto camera = start();
    const Client client;
    client.set("LineSelector", "Line2");
    QVERIFY(!client.isLocked("LineSource"));
    QVERIFY(client.isLocked("LineDebounceMode"));
    client.set("LineMode", "Input");
    QVERIFY(client.isLocked("LineSource"));
    QVERIFY(!client.isLocked("LineDebounceMode"));
}

void tst_SimulatedCamera::runningAcquisitionLocksTheImageFormat()
{
    const auto camera = start();
    const Client client;
    const auto locked = {"Width", "Height", "PixelFormat", "AcquisitionMode"};
    for (const char* feature : locked)
        QVERIFY2(!client.isLocked(feature), feature);
    client.set("TLParamsLocked", 1);
    for (const char* feature : locked)
        QVERIFY2(client.isLocked(feature), feature);
}

void tst_SimulatedCamera::triggerStaysWritableWhileLocked()
{
    const auto camera = start();
    const Client client;
    client.set("TLParamsLocked", 1);
    for (const char* feature : {"TriggerSelector", "TriggerMode", "TriggerSource",
                                "TriggerActivation", "TriggerDelay", "TriggerSoftware"})
        QVERIFY2(!client.isLocked(feature), feature);
}

void tst_SimulatedCamera::featuresBecomeAvailableWithTheirTrigger()
{
    const auto camera = start();
    const Client client;
    QVERIFY(!client.isAvailable("AcquisitionBurstFrameCount"));
    QCOMPARE(client.availableEntries("ExposureMode").size(), std::size_t(1));
    for (const char* trigger : {"FrameStart", "FrameBurstStart"}) {
        client.set("TriggerSelector", trigger);
        client.set("TriggerMode", "On");
    }
    QVERIFY(client.isAvailable("AcquisitionBurstFrameCount"));
    QCOMPARE(client.availableEntries("ExposureMode").size(), std::size_t(2));
}

void tst_SimulatedCamera::offsetLimitsTheWidth()
{
    const auto camera = start();
    const Client client;
    client.set("OffsetX", 320);
    QCOMPARE(client.integer("WidthMax"), 1600LL);
    QCOMPARE(client.integer("OffsetXMax"), 1280LL);
}

QTEST_GUILESS_MAIN(tst_SimulatedCamera)
#include "tst_SimulatedCamera.moc"
