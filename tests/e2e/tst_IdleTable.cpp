// Refreshing the line table steps the line selector of the camera. That must not come back as
// changes: a tab would refresh for ever.
#include "features/PluginFeatureObserver.h"
#include "sdk/simulator/SimulatedCamera.h"
#include "tests/sdk/bridge/WireTap.h"
#include "ui/AdvTriggerWidget.h"

#include <ZalCPP/CameraSystem.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <set>

namespace {

constexpr int IdleTicks = 10;

class Tab : public AdvTriggerWidget
{
public:
    using AdvTriggerWidget::AdvTriggerWidget;
    using BaseTabPluginWidget::m_changedFeatures;
    using BaseTabPluginWidget::m_observer;
    using BaseTabPluginWidget::m_updateTimer;
};

std::set<std::uint64_t> addressesOf(const std::vector<WireTap::Access>& accesses)
{
    std::set<std::uint64_t> addresses;
    for (const WireTap::Access& access : accesses)
        addresses.insert(access.address);
    return addresses;
}

int writesIn(const std::vector<WireTap::Access>& accesses)
{
    return static_cast<int>(
        std::count_if(accesses.begin(), accesses.end(),
                      [](const WireTap::Access& access) { return access.isWrite; }));
}

} // namespace

class tst_IdleTable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void idleTabCausesNoReportsAndOnlyPolledTraffic();
    void changeOfASettingIsRefreshedOnceAndSettles();
    void editInACellSettles();
    void lampFollowsTheLineThatIsSelected();

private:
    void waitForTicks(int ticks);
    /// What is read when a polled feature of the table is.
    std::set<std::uint64_t> polledAddresses();
    template <class Widget> Widget& cell(const char* name) const
    {
        auto* widget = m_tab->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("the tab has no %s", name);
        return *widget;
    }

    std::unique_ptr<WireTap> m_tap;
    std::unique_ptr<ZalSim::SimulatedCamera> m_simulator;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    std::unique_ptr<Tab> m_tab;
};

void tst_IdleTable::initTestCase()
{
    m_tap = std::make_unique<WireTap>();
}

void tst_IdleTable::init()
{
    std::string error;
    m_simulator = ZalSim::SimulatedCamera::start(ZalSim::Options(), error);
    QVERIFY2(m_simulator, error.c_str());
    // Inputs that toggle by themselves would be something to report.
    for (unsigned line = 0; line < 2; ++line)
        m_simulator->setInputLine(line, false);
    m_camera = ZalCPP::CameraSystem::Open(m_simulator->cameraId(), error);
    QVERIFY2(m_camera, error.c_str());
    m_tab = std::make_unique<Tab>(m_camera->Features(), nullptr);
    m_tab->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_tab.get()));
    // The first tick refreshes everything; what it makes the camera report comes before the next.
    waitForTicks(2);
}

void tst_IdleTable::cleanup()
{
    m_tab.reset();
    m_camera.reset();
    m_simulator.reset();
}

void tst_IdleTable::waitForTicks(int ticks)
{
    QSignalSpy ticked(m_tab->m_updateTimer, SIGNAL(timeout()));
    while (ticked.count() < ticks)
        QVERIFY(ticked.wait());
}

std::set<std::uint64_t> tst_IdleTable::polledAddresses()
{
    // After a write nothing is answered from what was read a moment ago.
    m_camera->FindFeature("TriggerDelay")->SetFloatValue(0.0);
    m_tap->takeAccesses();
    bool level = false;
    m_camera->FindFeature("LineStatus")->GetBoolValue(level);
    return addressesOf(m_tap->takeAccesses());
}

void tst_IdleTable::idleTabCausesNoReportsAndOnlyPolledTraffic()
{
    QSignalSpy reports(m_tab->m_observer.get(),
                       SIGNAL(setChangedFeature(const QString&, const QString&)));
    m_tap->takeAccesses();
    waitForTicks(IdleTicks);
    const auto accesses = m_tap->takeAccesses();
    QCOMPARE(reports.count(), 0);
    QCOMPARE(writesIn(accesses), 0);
    QVERIFY(!accesses.empty());
    QCOMPARE(addressesOf(accesses), polledAddresses());
}

void tst_IdleTable::changeOfASettingIsRefreshedOnceAndSettles()
{
    QSignalSpy reports(m_tab->m_observer.get(),
                       SIGNAL(setChangedFeature(const QString&, const QString&)));
    QCOMPARE(m_camera->FindFeature("TriggerDelay")->SetFloatValue(25.0), 0);
    QTRY_COMPARE(reports.count(), 1);
    waitForTicks(1);
    m_tap->takeAccesses();
    waitForTicks(IdleTicks);
    QCOMPARE(reports.count(), 1);
    QCOMPARE(writesIn(m_tap->takeAccesses()), 0);
}

void tst_IdleTable::editInACellSettles()
{
    QVERIFY(cell<QComboBox>("cmbLine2_LineSource").isEnabled());
    cell<QComboBox>("cmbLine2_LineMode").setCurrentText("Input");
    // What the edit made the camera report is refreshed by then.
    waitForTicks(2);
    QVERIFY(!cell<QComboBox>("cmbLine2_LineSource").isEnabled());
    m_tap->takeAccesses();
    QSignalSpy reports(m_tab->m_observer.get(),
                       SIGNAL(setChangedFeature(const QString&, const QString&)));
    waitForTicks(IdleTicks);
    QCOMPARE(reports.count(), 0);
    QCOMPARE(writesIn(m_tap->takeAccesses()), 0);
}

void tst_IdleTable::lampFollowsTheLineThatIsSelected()
{
    auto& lamp = cell<QLabel>("lblLine1_LineStatus");
    QVERIFY(!lamp.isEnabled());
    // Selects the line, as every edit in its row does.
    cell<QCheckBox>("chkLine1_LineInverter").setChecked(true);
    QTRY_VERIFY(lamp.isEnabled());
    m_simulator->setInputLine(1, true);
    QTRY_VERIFY(!lamp.isEnabled());
    m_simulator->setInputLine(1, false);
    QTRY_VERIFY(lamp.isEnabled());
}

QTEST_MAIN(tst_IdleTable)
#include "tst_IdleTable.moc"
