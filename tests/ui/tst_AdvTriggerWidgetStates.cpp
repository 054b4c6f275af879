// State matrix: which control can be used in which state of the camera.
#include "tests/ui/TabUnderTest.h"

#include <QMap>

namespace {

using Fake::FakeCamera;

const char* const Features[] = {"TriggerSelector",   "TriggerMode",  "TriggerSource",
                                "TriggerActivation", "TriggerDelay", "TriggerSoftware"};

void lockFeatures(FakeCamera& camera)
{
    for (const char* feature : Features)
        camera[feature].state().writable = false;
}

void refreshAll(TabOnCamera& shown)
{
    for (const char* feature : Features)
        *shown.tab.m_changedFeatures << feature;
    shown.tab.tick();
}

/// Brings a tab into the state of that name.
std::unique_ptr<TabOnCamera> tabIn(const QString& state)
{
    auto camera = FakeCamera::standard();
    if (state == "read-only from the start")
        lockFeatures(*camera);
    if (state == "source is a line")
        (*camera)["TriggerSource"].state().text = "Line0";
    if (state == "features missing")
        for (const char* feature :
             {"TriggerMode", "TriggerActivation", "TriggerDelay", "TriggerSoftware"})
            camera->remove(feature);
    if (state == "source missing")
        camera->remove("TriggerSource");

    auto shown = std::make_unique<TabOnCamera>(std::move(camera));
    shown->showAndSettle();
    if (state == "streaming" || state == "streaming and locked")
        shown->tab.camIsStreaming(true);
    if (state == "streaming and locked" || state == "read-only later")
        lockFeatures(*shown->camera);
    if (state == "lost")
        shown->camera->failEverything();
    if (state == "streaming ended") {
        shown->tab.camIsStreaming(true);
        shown->tab.camIsStreaming(false);
    }
    refreshAll(*shown);
    return shown;
}

} // namespace

class tst_AdvTriggerWidgetStates : public QObject
{
    Q_OBJECT

private slots:
    void controlIsEnabled_data();
    void controlIsEnabled();
    void lostCameraKeepsTheTabResponsive();
    void cameraThatComesBackIsShownAgain();
};

void tst_AdvTriggerWidgetStates::controlIsEnabled_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("control");
    QTest::addColumn<bool>("enabled");

    const QStringList controls = {"cmbSelectPreset",          "chkTooltips",
                                  "cmbTriggerSelector",       "cmbTriggerMode",
                                  "cmbTriggerSource",         "cmbTriggerActivation",
                                  "spbTriggerDelay",          "btnTriggerSoftware",
                                  "btnAdvancedDialog",        "tableWidget",
                                  "btnTriggerFeaturesStatus", "treeView"};
    // One letter per control in the order above; a dash for a control that is disabled. The
    // software trigger goes by the source alone: its own feature's access is not asked after.
    const QMap<QString, QString> matrix = {{"idle", "ptsmoadxbiew"},
                                           {"streaming", "-tsmoadxbiew"},
                                           {"streaming and locked", "-t-----xbiew"},
                                           {"streaming ended", "ptsmoadxbiew"},
                                           {"read-only from the start", "pt-----xbiew"},
                                           {"read-only later", "pt-----xbiew"},
                                           {"source is a line", "ptsmoad-biew"},
                                           {"features missing", "pts-o--xbiew"},
                                           {"source missing", "ptsm-ad-biew"},
                                           {"lost", "pt------biew"}};
    for (auto row = matrix.begin(); row != matrix.end(); ++row)
        for (int i = 0; i < controls.size(); ++i)
            QTest::addRow("%s: %s", qPrintable(row.key()), qPrintable(controls[i]))
                << row.key() << controls[i] << (row.value()[i] != '-');
}

void tst_AdvTriggerWidgetStates::controlIsEnabled()
{
    QFETCH(QString, state);
    QFETCH(QString, control);
    QFETCH(bool, enabled);
    const auto shown = tabIn(state);
    QCOMPARE(shown->find(control)->isEnabled(), enabled);
}

void tst_AdvTriggerWidgetStates::lostCameraKeepsTheTabResponsive()
{
    TabOnCamera shown;
    shown.showAndSettle();
    shown.camera->failEverything();
    QTest::keyClick(shown.find("cmbTriggerMode"), Qt::Key_Down);
    QTest::keyClick(shown.find("spbTriggerDelay"), Qt::Key_Up);
    QTest::mouseClick(shown.find("btnTriggerSoftware"), Qt::LeftButton);
    refreshAll(shown);
    shown.tab.camIsStreaming(false);
    shown.tab.hide();
    shown.show();
    QVERIFY(shown.find("chkTooltips")->isEnabled());
    QVERIFY(!shown.find("cmbTriggerMode")->isEnabled());
}

void tst_AdvTriggerWidgetStates::cameraThatComesBackIsShownAgain()
{
    const auto shown = tabIn("lost");
    QVERIFY(!shown->find("cmbTriggerMode")->isEnabled());
    shown->camera->clearFailures();
    refreshAll(*shown);
    QVERIFY(shown->find("cmbTriggerMode")->isEnabled());
    QVERIFY(shown->find("btnTriggerSoftware")->isEnabled());
    QCOMPARE(settingsWritten(*shown->camera), QStringList());
}

QTEST_MAIN(tst_AdvTriggerWidgetStates)
#include "tst_AdvTriggerWidgetStates.moc"
