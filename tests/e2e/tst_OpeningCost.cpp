// What opening the tab and its dialog costs on the wire, against the reads that cannot be avoided.
#include "bench/CallLog.h"
#include "bench/CountedFeature.h"
#include "plugin/TabExtensionInterface.h"
#include "sdk/simulator/SimulatedCamera.h"
#include "tests/e2e/WireLedger.h"
#include "tests/sdk/bridge/WireTap.h"

#include <ZalCPP/CameraSystem.h>

#include <QAbstractButton>
#include <QDialog>
#include <QPluginLoader>
#include <QtTest>

class tst_OpeningCost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void openingTheTabCostsHardlyMoreThanItsDistinctReads();
    void openingTheDialogCostsHardlyMoreThanItsDistinctReads();
    void openingTheDialogLeavesTheCameraAsTheTabLeftIt();

private:
    void open();
    void openDialog();
    WireLedger costOf(const std::function<void()>& operation);
    static void verifyEconomy(const WireLedger& cost);

    TabExtensionInterface* m_plugin = nullptr;
    std::unique_ptr<WireTap> m_tap;
    std::unique_ptr<ZalSim::SimulatedCamera> m_simulator;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    Bench::CallLog m_log;
    std::unique_ptr<QWidget> m_container;
};

void tst_OpeningCost::initTestCase()
{
    QPluginLoader loader(QStringLiteral(PLUGIN_FILE));
    m_plugin = qobject_cast<TabExtensionInterface*>(loader.instance());
    QVERIFY2(m_plugin, qPrintable(loader.errorString()));
    m_tap = std::make_unique<WireTap>();
}

void tst_OpeningCost::init()
{
    std::string error;
    m_simulator = ZalSim::SimulatedCamera::start(ZalSim::Options(), error);
    QVERIFY2(m_simulator, error.c_str());
    m_camera = ZalCPP::CameraSystem::Open(m_simulator->cameraId(), error);
    QVERIFY2(m_camera, error.c_str());
    m_container = std::make_unique<QWidget>();
}

void tst_OpeningCost::cleanup()
{
    m_container.reset();
    m_camera.reset();
    m_simulator.reset();
}

// The tab's observers are kept from the camera: what is read in the background for their sake comes
// at times that nobody can foretell.
void tst_OpeningCost::open()
{
    const auto features = std::make_shared<std::vector<ZalCPP::FeaturePtr>>();
    for (const ZalCPP::FeaturePtr& feature : *m_camera->Features())
        features->push_back(std::make_shared<Bench::CountedFeature>(feature, m_log));
    QCOMPARE(m_plugin->get(features, *m_container, nullptr), 0);
    m_container->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_container.get()));
}

void tst_OpeningCost::openDialog()
{
    m_container->findChild<QAbstractButton*>(QStringLiteral("btnAdvancedDialog"))->click();
    auto* dialog = m_container->findChild<QDialog*>();
    QVERIFY(dialog);
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
}

WireLedger tst_OpeningCost::costOf(const std::function<void()>& operation)
{
    const RegisterImage before(*m_simulator);
    m_tap->takeAccesses();
    operation();
    return {m_tap->takeAccesses(), before};
}

void tst_OpeningCost::verifyEconomy(const WireLedger& cost)
{
    QVERIFY(cost.neededReads() > 0);
    const QString figures = QStringLiteral("%1 reads, %2 writes, %3 needed reads")
                                .arg(cost.reads())
                                .arg(cost.writes())
                                .arg(cost.neededReads());
    QVERIFY2(2 * cost.transactions() <= 3 * cost.neededReads(), qPrintable(figures));
}

void tst_OpeningCost::openingTheTabCostsHardlyMoreThanItsDistinctReads()
{
    verifyEconomy(costOf([this] { open(); }));
}

void tst_OpeningCost::openingTheDialogCostsHardlyMoreThanItsDistinctReads()
{
    open();
    verifyEconomy(costOf([this] { openDialog(); }));
}

// Both leave the line selector at the last line.
void tst_OpeningCost::openingTheDialogLeavesTheCameraAsTheTabLeftIt()
{
    open();
    const WireLedger cost = costOf([this] { openDialog(); });
    QVERIFY(cost.writes() > 0);
    QVERIFY(cost.leavesEverythingAsItWas());
}

QTEST_MAIN(tst_OpeningCost)
#include "tst_OpeningCost.moc"
