// The dialog's window: opened from the tab, closed in every way, again and again.
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/OpenedDialog.h"
#include "tests/ui/TabUnderTest.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>

#include <functional>

namespace {

/// Records something each time an object gets an event of one type.
class EventRecorder : public QObject
{
public:
    EventRecorder(QObject& watched, QEvent::Type eventType, std::function<int()> recorded)
        : type(eventType), record(std::move(recorded))
    {
        watched.installEventFilter(this);
    }

    QList<int> records;

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == type)
            records << record();
        return false;
    }

    QEvent::Type type;
    std::function<int()> record;
};

bool wroteDelay(const Fake::FakeCamera& camera)
{
    return !toList(camera.writes()).filter("TriggerDelay").isEmpty();
}

} // namespace

class tst_AdvTriggerDialogWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void openingHidesTheTabAndSaysSo();
    void saysSoBetweenHidingTheTabAndShowingTheDialog();
    void dialogIsModelessAndDeletesItself();
    void titleNamesModelAndSerialNumber_data();
    void titleNamesModelAndSerialNumber();
    void contentFillsTheWindow();
    void windowFitsTheScreen();
    void opensWithThePresetOfTheTabWithoutApplyingIt();
    void closingShowsTheTabAndSaysSo_data();
    void closingShowsTheTabAndSaysSo();
    void takesThePresetThenShowsTheTabThenSaysSo();
    void tabTakesThePresetOfTheDialogWithoutApplyingIt();
    void takingThePresetKeepsTheBlockingOfBefore();
    void waitCursorShowsWhileOpeningAndClosing();
    void streamingReachesTheOpenDialog();
    void startingAcquisitionWithTheDialogOpen();
    void showTabWidgetWithoutAnyDialog();
    void aVanishedCameraGetsNoDialog();
    void afterARefusalTheDialogOpensAgain();
    void losingTheCameraWithTheDialogOpen();
    void bothEnginesFollowTheCameraInTheirTime();
    void twoHundredTimesLeaveNothingBehind();

private:
    QDialog& open() const
    {
        clickOpen(shown->tab);
        if (dialogOf(shown->tab) == nullptr)
            qFatal("no dialog");
        return *dialogOf(shown->tab);
    }
    AdvTriggerDialog& contentOf(const QDialog& dialog) const
    {
        return *dialog.findChild<AdvTriggerDialog*>();
    }
    QComboBox& tabPresets() const { return *shown->find<QComboBox>("cmbSelectPreset"); }
    static QComboBox& presetsOf(const QDialog& dialog)
    {
        return *dialog.findChild<QComboBox*>("cmbSelectPreset");
    }
    void selectInTab(int index) const;

    PresetsFile presets{PresetsFile::fourPresets()};
    std::unique_ptr<TabOnCamera> shown;
};

void tst_AdvTriggerDialogWindow::init()
{
    shown = std::make_unique<TabOnCamera>(cameraOfPresetFamily());
    shown->showAndSettle();
}

void tst_AdvTriggerDialogWindow::cleanup()
{
    shown.reset();
    deleteDeferred();
}

/// Shows a preset as chosen, without applying it.
void tst_AdvTriggerDialogWindow::selectInTab(int index) const
{
    const QSignalBlocker silence(&tabPresets());
    tabPresets().setCurrentIndex(index);
}

void tst_AdvTriggerDialogWindow::openingHidesTheTabAndSaysSo()
{
    QSignalSpy displayed(&shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
    const QDialog& dialog = open();
    QCOMPARE(displayed.count(), 1);
    QCOMPARE(displayed.first().first().toBool(), true);
    QVERIFY(!shown->tab.isVisible());
    QVERIFY(dialog.isVisible());
    QVERIFY(QTest::qWaitForWindowActive(dialogOf(shown->tab)));
}

void tst_AdvTriggerDialogWindow::saysSoBetweenHidingTheTabAndShowingTheDialog()
{
    int heard = 0;
    connect(&shown->tab, &AdvTriggerWidget::dialogWindowDisplayed, this, [&] {
        ++heard;
        QVERIFY(shown->tab.isHidden());
        QVERIFY(dialogOf(shown->tab) != nullptr);
        QVERIFY(!dialogOf(shown->tab)->isVisible());
    });
    QVERIFY(open().isVisible());
    QCOMPARE(heard, 1);
}

void tst_AdvTriggerDialogWindow::dialogIsModelessAndDeletesItself()
{
    const QDialog& dialog = open();
    QVERIFY(!dialog.isModal());
    QVERIFY(dialog.testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(&shown->tab));
    QCOMPARE(dialog.windowType(), Qt::Dialog);
}

void tst_AdvTriggerDialogWindow::titleNamesModelAndSerialNumber_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("title");
    QTest::newRow("plain") << "TX-2000"
                           << "Advanced Trigger IO (TX-2000-SN004711)";
    QTest::newRow("empty") << ""
                           << "Advanced Trigger IO (-SN004711)";
    QTest::newRow("percent sign") << "TX%2"
                                  << "Advanced Trigger IO (TX%2-SN004711)";
}

void tst_AdvTriggerDialogWindow::titleNamesModelAndSerialNumber()
{
    QFETCH(QString, model);
    QFETCH(QString, title);
    (*shown->camera)["DeviceModelName"].state().text = model.toStdString();
    QCOMPARE(open().windowTitle(), title);
}

void tst_AdvTriggerDialogWindow::contentFillsTheWindow()
{
    const QDialog& dialog = open();
    QVERIFY(qobject_cast<QVBoxLayout*>(dialog.layout()) != nullptr);
    QCOMPARE(dialog.layout()->count(), 1);
    QCOMPARE(dialog.layout()->itemAt(0)->widget(), static_cast<QWidget*>(&contentOf(dialog)));
}

void tst_AdvTriggerDialogWindow::windowFitsTheScreen()
{
    const QDialog& dialog = open();
    const QSize available = dialog.screen()->availableSize();
    QVERIFY(dialog.width() <= available.width());
    QVERIFY(dialog.height() <= available.height());
    QVERIFY(dialog.width() >= 700);
    QVERIFY(dialog.height() >= 500);
}

void tst_AdvTriggerDialogWindow::opensWithThePresetOfTheTabWithoutApplyingIt()
{
    selectInTab(2);
    const QDialog& dialog = open();
    QCOMPARE(presetsOf(dialog).currentText(), QString("Two Hundred"));
    QVERIFY(!wroteDelay(*shown->camera));
}

void tst_AdvTriggerDialogWindow::closingShowsTheTabAndSaysSo_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"title bar", "Esc", "close", "accept", "reject", "done 7"})
        QTest::newRow(way) << QString(way);
}

void tst_AdvTriggerDialogWindow::closingShowsTheTabAndSaysSo()
{
    QFETCH(QString, way);
    QPointer<QDialog> dialog = &open();
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    QSignalSpy displayed(&shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
    if (way == "title bar") {
        // What the window system sends when its button is pressed.
        QCloseEvent event;
        QCoreApplication::sendEvent(dialog->windowHandle(), &event);
    } else if (way == "Esc") {
        QTest::keyClick(dialog, Qt::Key_Escape);
    } else if (way == "done 7") {
        dialog->done(7);
    } else {
        QVERIFY(QMetaObject::invokeMethod(dialog, way.toLatin1().constData()));
    }
    QCOMPARE(displayed.count(), 1);
    QCOMPARE(displayed.first().first().toBool(), false);
    QVERIFY(shown->tab.isVisible());
    deleteDeferred();
    QVERIFY(dialog.isNull());
}

void tst_AdvTriggerDialogWindow::takesThePresetThenShowsTheTabThenSaysSo()
{
    QDialog& dialog = open();
    presetsOf(dialog).setCurrentIndex(3);
    EventRecorder shows(shown->tab, QEvent::Show, [this] { return tabPresets().currentIndex(); });
    int heard = 0;
    connect(&shown->tab, &AdvTriggerWidget::dialogWindowDisplayed, this, [&] {
        ++heard;
        QVERIFY(shown->tab.isVisible());
        QCOMPARE(shows.records, QList<int>{3});
    });
    dialog.reject();
    QCOMPARE(heard, 1);
}

void tst_AdvTriggerDialogWindow::tabTakesThePresetOfTheDialogWithoutApplyingIt()
{
    selectInTab(1);
    QDialog& dialog = open();
    presetsOf(dialog).setCurrentIndex(3);
    QCOMPARE((*shown->camera)["TriggerDelay"].state().real, 300.0);
    shown->camera->clearLog();
    dialog.reject();
    QCOMPARE(tabPresets().currentText(), QString("Three Hundred"));
    QVERIFY(!wroteDelay(*shown->camera));
    // The box works as before.
    tabPresets().setCurrentIndex(1);
    QCOMPARE((*shown->camera)["TriggerDelay"].state().real, 100.0);
}

void tst_AdvTriggerDialogWindow::takingThePresetKeepsTheBlockingOfBefore()
{
    open().reject();
    QVERIFY(!tabPresets().signalsBlocked());
    tabPresets().blockSignals(true);
    open().reject();
    QVERIFY(tabPresets().signalsBlocked());
}

void tst_AdvTriggerDialogWindow::waitCursorShowsWhileOpeningAndClosing()
{
    QList<Qt::CursorShape> shapes;
    connect(&shown->tab, &AdvTriggerWidget::dialogWindowDisplayed, this,
            [&] { shapes << shown->tab.cursor().shape(); });
    QDialog& dialog = open();
    QCOMPARE(shown->tab.cursor().shape(), Qt::ArrowCursor);
    dialog.reject();
    QCOMPARE(shown->tab.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(shapes, (QList<Qt::CursorShape>{Qt::WaitCursor, Qt::WaitCursor}));
}

void tst_AdvTriggerDialogWindow::streamingReachesTheOpenDialog()
{
    const QDialog& dialog = open();
    const auto* hint = dialog.findChild<QLabel*>("lbl_notAcquireHint");
    for (const bool on : {true, false}) {
        emit shown->tab.CamStreamingOn(on);
        QCOMPARE(hint->isVisible(), on);
        QCOMPARE(presetsOf(dialog).isEnabled(), !on);
    }
}

void tst_AdvTriggerDialogWindow::startingAcquisitionWithTheDialogOpen()
{
    QDialog& dialog = open();
    shown->tab.camIsStreaming(true);
    QVERIFY(dialog.findChild<QLabel*>("lbl_notAcquireHint")->isVisible());
    QVERIFY(!presetsOf(dialog).isEnabled());
    dialog.reject();
    // The tab has heard of it as well.
    QVERIFY(!tabPresets().isEnabled());
    QVERIFY(shown->find("lbl_notAcquireHint")->isVisible());
    shown->tab.camIsStreaming(false);
    QVERIFY(tabPresets().isEnabled());
}

void tst_AdvTriggerDialogWindow::showTabWidgetWithoutAnyDialog()
{
    selectInTab(2);
    shown->tab.hide();
    QSignalSpy displayed(&shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
    shown->tab.showTabWidget(0);
    QVERIFY(shown->tab.isVisible());
    QCOMPARE(displayed.count(), 1);
    QCOMPARE(tabPresets().currentIndex(), 2);
}

void tst_AdvTriggerDialogWindow::aVanishedCameraGetsNoDialog()
{
    QSignalSpy displayed(&shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
    shown->camera->failEverything();
    clickOpen(shown->tab);
    QVERIFY(dialogOf(shown->tab) == nullptr);
    QVERIFY(shown->tab.isVisible());
    QCOMPARE(shown->tab.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(displayed.count(), 0);
}

void tst_AdvTriggerDialogWindow::afterARefusalTheDialogOpensAgain()
{
    shown->camera->failEverything();
    clickOpen(shown->tab);
    shown->camera->clearFailures();
    QVERIFY(open().isVisible());
}

void tst_AdvTriggerDialogWindow::losingTheCameraWithTheDialogOpen()
{
    QDialog& dialog = open();
    shown->camera->failEverything();
    auto* delay = dialog.findChild<QDoubleSpinBox*>("spbTimerDelay");
    delay->setValue(12.0);
    QTimer* timer = contentOf(dialog).findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    QSignalSpy ticks(timer, SIGNAL(timeout()));
    QVERIFY(ticks.wait(3000));
    dialog.reject();
    QVERIFY(shown->tab.isVisible());
    deleteDeferred();
    clickOpen(shown->tab);
    QVERIFY(dialogOf(shown->tab) == nullptr);
}

void tst_AdvTriggerDialogWindow::bothEnginesFollowTheCameraInTheirTime()
{
    Fake::FakeFeature& mode = (*shown->camera)["TriggerMode"];
    QCOMPARE(mode.observerCount(), std::size_t(1));
    QDialog& dialog = open();
    // The dialog's; the hidden tab has taken its own away.
    QCOMPARE(mode.observerCount(), std::size_t(1));
    mode.state().text = "On";
    shown->camera->notify("TriggerMode");
    auto* box = dialog.findChild<QComboBox*>("cmbTriggerMode");
    QTRY_COMPARE(box->currentText(), QString("On"));
    QCOMPARE(shown->find<QComboBox>("cmbTriggerMode")->currentText(), QString("Off"));
    dialog.reject();
    deleteDeferred();
    QCOMPARE(mode.observerCount(), std::size_t(1));
    QTRY_COMPARE(shown->find<QComboBox>("cmbTriggerMode")->currentText(), QString("On"));
}

void tst_AdvTriggerDialogWindow::twoHundredTimesLeaveNothingBehind()
{
    constexpr int cycles = 200;
    shown->camera->setLogging(false);
    const int windows = QApplication::topLevelWidgets().size();
    const int children = shown->tab.findChildren<QObject*>().size();
    const std::size_t observers = registrations(*shown->camera);
    for (int cycle = 0; cycle < cycles; ++cycle) {
        QDialog& dialog = open();
        dialog.findChild<QDoubleSpinBox*>("spbTimerDelay")->setValue(cycle + 1.0);
        auto* source = dialog.findChild<QComboBox*>("cmbLine2_LineSource");
        source->setCurrentIndex(1 + cycle % 2);
        shown->camera->notify("TimerDelay");
        QCoreApplication::processEvents();
        QCOMPARE((*shown->camera)["TimerDelay"].state().real, cycle + 1.0);
        QCOMPARE(QString::fromStdString((*shown->camera)["LineSource"].stateFor("Line2").text),
                 source->currentText());
        dialog.close();
        deleteDeferred();
    }
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QCOMPARE(shown->tab.findChildren<QObject*>().size(), children);
    QCOMPARE(registrations(*shown->camera), observers);
    QVERIFY(shown->tab.isVisible());
}

QTEST_MAIN(tst_AdvTriggerDialogWindow)
#include "tst_AdvTriggerDialogWindow.moc"
