// The built plugin, loaded like a host loads it, in a host of a few lines.
#include "plugin/TabExtensionInterface.h"
#include "sdk/simulator/SimulatedCamera.h"
#include "tests/e2e/WireLedger.h"
#include "tests/sdk/bridge/WireTap.h"
#include "tests/support/FakeCamera.h"

#include <ZalCPP/CameraSystem.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPluginLoader>
#include <QTimer>
#include <QtTest>

namespace {

/// A host's window: the parent of the container, and the source of the streaming signal.
class FakeHost : public QWidget
{
    Q_OBJECT

public:
    explicit FakeHost(TabExtensionInterface& plugin, const ZalCPP::FeatureList& features)
        : container(new QWidget(this))
    {
        QMap<QString, QVariant> options{{QStringLiteral("connectWidgetToSignal"),
                                         QString::fromLatin1(SIGNAL(streaming(bool)))}};
        result = plugin.get(features, *container, &options);
    }

    QWidget* tab() const
    {
        return container->findChild<QWidget*>(QStringLiteral("AdvTriggerWidget"));
    }

    QTimer* refreshTimer() const
    {
        return tab()->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    }

    QWidget* container;
    int result = -1;

signals:
    void streaming(bool on);
};

struct SimulatedDevice
{
    explicit SimulatedDevice(const std::string& model)
    {
        ZalSim::Options options;
        options.model = model;
        simulator = ZalSim::SimulatedCamera::start(options, error);
        if (simulator)
            camera = ZalCPP::CameraSystem::Open(simulator->cameraId(), error);
    }

    std::string error;
    std::unique_ptr<ZalSim::SimulatedCamera> simulator;
    std::unique_ptr<ZalCPP::Camera> camera;
};

} // namespace

class tst_PluginInHost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void streamingReachesTheTabThroughTheHostsSignal();
    void aFullRefreshWritesTheLineSelectorOnlyAndPutsItBack();
    void anIdleTickMakesNoCall();
    void refreshingASimulatedCameraLeavesItAsItWas();
    void refreshingTheTableDoesNotMakeTheCameraReportChanges();
    void anIdleCameraHasNoTrafficButItsPolledFeatures();
    void aCameraThatDoesNotQualifyGivesFourAndLeavesTheContainerUntouched_data();
    void aCameraThatDoesNotQualifyGivesFourAndLeavesTheContainerUntouched();

private:
    TabExtensionInterface* m_plugin = nullptr;
    std::unique_ptr<WireTap> m_tap;
};

void tst_PluginInHost::initTestCase()
{
    QPluginLoader loader(QStringLiteral(PLUGIN_FILE));
    m_plugin = qobject_cast<TabExtensionInterface*>(loader.instance());
    QVERIFY2(m_plugin, qPrintable(loader.errorString()));
    m_tap = std::make_unique<WireTap>();
}

void tst_PluginInHost::streamingReachesTheTabThroughTheHostsSignal()
{
    const auto camera = Fake::FakeCamera::standard();
    FakeHost host(*m_plugin, camera->features());
    QCOMPARE(host.result, 0);
    host.show();
    auto* hint = host.tab()->findChild<QLabel*>(QStringLiteral("lbl_notAcquireHint"));
    emit host.streaming(true);
    QVERIFY(hint->isVisible());
    emit host.streaming(false);
    QVERIFY(!hint->isVisible());
}

/// The table's settings can only be read line by line.
void tst_PluginInHost::aFullRefreshWritesTheLineSelectorOnlyAndPutsItBack()
{
    const auto camera = Fake::FakeCamera::standard();
    FakeHost host(*m_plugin, camera->features());
    host.show();
    const auto selector = camera->find("LineSelector");
    const std::string before = selector->state().text;
    camera->clearLog();
    QSignalSpy ticks(host.refreshTimer(), &QTimer::timeout);
    QTRY_COMPARE(ticks.count(), 1);
    QVERIFY(!camera->calls().empty());
    for (const std::string& write : camera->writes())
        QVERIFY2(write.find("LineSelector") != std::string::npos, write.c_str());
    QCOMPARE(selector->state().text, before);
}

void tst_PluginInHost::anIdleTickMakesNoCall()
{
    const auto camera = Fake::FakeCamera::standard();
    FakeHost host(*m_plugin, camera->features());
    host.show();
    QSignalSpy ticks(host.refreshTimer(), &QTimer::timeout);
    QTRY_COMPARE(ticks.count(), 1);
    camera->clearLog();
    QTRY_COMPARE(ticks.count(), 3);
    QCOMPARE(camera->calls().size(), std::size_t(0));
}

void tst_PluginInHost::refreshingASimulatedCameraLeavesItAsItWas()
{
    const SimulatedDevice device("full");
    QVERIFY2(device.camera, device.error.c_str());
    FakeHost host(*m_plugin, device.camera->Features());
    QCOMPARE(host.result, 0);
    host.show();
    QSignalSpy ticks(host.refreshTimer(), &QTimer::timeout);
    const RegisterImage before(*device.simulator);
    m_tap->takeAccesses();
    QTRY_COMPARE(ticks.count(), 1);
    const WireLedger refresh(m_tap->takeAccesses(), before);
    QVERIFY(refresh.reads() > 0);
    QVERIFY(refresh.leavesEverythingAsItWas());
}

/// Otherwise one refresh would cause the next, for ever.
void tst_PluginInHost::refreshingTheTableDoesNotMakeTheCameraReportChanges()
{
    const SimulatedDevice device("full");
    QVERIFY2(device.camera, device.error.c_str());
    FakeHost host(*m_plugin, device.camera->Features());
    host.show();
    // What follows is the same at any rate of refreshing that leaves the camera its quiet window.
    host.refreshTimer()->setInterval(200);
    QSignalSpy ticks(host.refreshTimer(), &QTimer::timeout);
    QTRY_COMPARE(ticks.count(), 2);
    const ZalCPP::WireCounts before = device.camera->Counts();
    QTRY_COMPARE(ticks.count(), 12);
    QCOMPARE(device.camera->Counts().writes, before.writes);
}

/// Polled is the level of the line that the selector shows.
void tst_PluginInHost::anIdleCameraHasNoTrafficButItsPolledFeatures()
{
    const SimulatedDevice device("full");
    QVERIFY2(device.camera, device.error.c_str());
    FakeHost host(*m_plugin, device.camera->Features());
    host.show();
    QSignalSpy ticks(host.refreshTimer(), &QTimer::timeout);
    QTRY_COMPARE(ticks.count(), 2);
    const RegisterImage now(*device.simulator);
    m_tap->takeAccesses();
    QTRY_COMPARE(ticks.count(), 5);
    const WireLedger idle(m_tap->takeAccesses(), now);
    // After a write nothing is answered from what was read a moment ago.
    QCOMPARE(device.camera->FindFeature("TriggerDelay")->SetFloatValue(0.0), ZalErrorSuccess);
    m_tap->takeAccesses();
    bool level = false;
    QCOMPARE(device.camera->FindFeature("LineStatus")->GetBoolValue(level), ZalErrorSuccess);
    const WireLedger poll(m_tap->takeAccesses(), now);
    QCOMPARE(idle.writes(), std::size_t(0));
    QCOMPARE(idle.readAddresses(), poll.readAddresses());
}

void tst_PluginInHost::aCameraThatDoesNotQualifyGivesFourAndLeavesTheContainerUntouched_data()
{
    QTest::addColumn<QString>("model");
    QTest::newRow("foreign") << QStringLiteral("foreign");
    QTest::newRow("notrigger") << QStringLiteral("notrigger");
}

void tst_PluginInHost::aCameraThatDoesNotQualifyGivesFourAndLeavesTheContainerUntouched()
{
    QFETCH(QString, model);
    const SimulatedDevice device(model.toStdString());
    QVERIFY2(device.camera, device.error.c_str());
    FakeHost host(*m_plugin, device.camera->Features());
    QCOMPARE(host.result, 4);
    QVERIFY(host.container->children().isEmpty());
    QVERIFY(!host.container->layout());
    QCOMPARE(host.container->accessibleName(), QString());
}

QTEST_MAIN(tst_PluginInHost)
#include "tst_PluginInHost.moc"
