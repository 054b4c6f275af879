// The dialog with a host around its tab: the notice beside the hidden tab, and hosts that take the
// tab down while the dialog is open.
#include "plugin/TabExtensionPlugin.h"
#include "tests/plugin/HostWindow.h"
#include "tests/ui/OpenedDialog.h"
#include "tests/ui/PresetsFile.h"
#include "ui/AdvTriggerWidget.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QToolButton>

namespace {

/// A window with the tab, which the host takes down as soon as the tab reports the given status.
class DroppingHost : public QObject
{
public:
    DroppingHost(const Fake::FakeCamera& camera, bool droppedAt)
    {
        TabExtensionPlugin plugin;
        if (plugin.get(camera.features(), *host.container, nullptr) != 0)
            qFatal("no tab");
        host.show();
        container = host.container;
        tab = host.container->findChild<AdvTriggerWidget*>();
        connect(tab, &AdvTriggerWidget::dialogWindowDisplayed, this, [this, droppedAt](bool now) {
            if (now == droppedAt)
                delete container;
        });
    }

    HostWindow host;
    QPointer<QWidget> container;
    QPointer<AdvTriggerWidget> tab;
};

} // namespace

class tst_AdvTriggerDialogInHost : public QObject
{
    Q_OBJECT

private slots:
    void noticeShowsWhileTheDialogIsOpen();
    void deletingTheContainerWithTheDialogOpen_data();
    void deletingTheContainerWithTheDialogOpen();
    void aHostThatDropsTheTabWhenTheDialogOpens_data();
    void aHostThatDropsTheTabWhenTheDialogOpens();
    void aHostThatDropsTheTabWhenItComesBack();

private:
    PresetsFile m_presets{PresetsFile::fourPresets()};
    std::unique_ptr<Fake::FakeCamera> m_camera = cameraOfPresetFamily();
};

void tst_AdvTriggerDialogInHost::noticeShowsWhileTheDialogIsOpen()
{
    TabExtensionPlugin plugin;
    HostWindow host;
    QCOMPARE(plugin.get(m_camera->features(), *host.container, nullptr), 0);
    host.show();
    const auto* notice = host.container->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    auto* tab = host.container->findChild<AdvTriggerWidget*>();
    QCOMPARE(notice->text(), QString("Please use the Advanced Trigger Dialog."));
    QVERIFY(!notice->isVisible());
    clickOpen(*tab);
    QVERIFY(notice->isVisible());
    QVERIFY(!tab->isVisible());
    dialogOf(*tab)->reject();
    QVERIFY(!notice->isVisible());
    QVERIFY(tab->isVisible());
}

void tst_AdvTriggerDialogInHost::deletingTheContainerWithTheDialogOpen_data()
{
    QTest::addColumn<QString>("focused");
    QTest::newRow("nothing touched") << QString();
    // Losing the focus finishes its editing, in the middle of the end.
    QTest::newRow("editing a field") << "txtActionGroupKey";
    QTest::newRow("editing a number") << "spbTimerDelay";
}

void tst_AdvTriggerDialogInHost::deletingTheContainerWithTheDialogOpen()
{
    QFETCH(QString, focused);
    const std::size_t before = registrations(*m_camera);
    TabExtensionPlugin plugin;
    auto host = std::make_unique<HostWindow>();
    QCOMPARE(plugin.get(m_camera->features(), *host->container, nullptr), 0);
    host->show();
    auto* tab = host->container->findChild<AdvTriggerWidget*>();
    clickOpen(*tab);
    const QPointer<QDialog> dialog = dialogOf(*tab);
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    for (auto* section : dialog->findChildren<QToolButton*>())
        section->setChecked(true);
    if (!focused.isEmpty())
        dialog->findChild<QWidget*>(focused)->setFocus();
    delete host->container;
    QVERIFY(dialog.isNull());
    deleteDeferred();
    QCOMPARE(registrations(*m_camera), before);
}

void tst_AdvTriggerDialogInHost::aHostThatDropsTheTabWhenTheDialogOpens_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("slot") << false;
    QTest::newRow("click") << true;
}

void tst_AdvTriggerDialogInHost::aHostThatDropsTheTabWhenTheDialogOpens()
{
    QFETCH(bool, byMouse);
    const int windows = QApplication::topLevelWidgets().size();
    {
        DroppingHost dropping(*m_camera, true);
        if (byMouse)
            clickOpen(*dropping.tab);
        else
            dropping.tab->OnClickAdvancedDialog();
        QVERIFY(dropping.container.isNull());
        QVERIFY(dropping.tab.isNull());
        // The dialog is gone with the tab and not shown on its own.
        QCOMPARE(QApplication::topLevelWidgets().size(), windows + 1);
    }
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
}

void tst_AdvTriggerDialogInHost::aHostThatDropsTheTabWhenItComesBack()
{
    const DroppingHost dropping(*m_camera, false);
    dropping.tab->hide();
    dropping.tab->showTabWidget(0);
    QVERIFY(dropping.container.isNull());
    QVERIFY(dropping.tab.isNull());
}

QTEST_MAIN(tst_AdvTriggerDialogInHost)
#include "tst_AdvTriggerDialogInHost.moc"
