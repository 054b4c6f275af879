// The dialog's window: opened from the tab, closed in every way, again and again.
#include "tests/support/Rows.h"
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
        : m_type(eventType), m_record(std::move(recorded))
    {
        watched.installEventFilter(this);
    }

    QList<int> records;

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == m_type)
            records << m_record();
        return false;
    }

    QEvent::Type m_type;
    std::function<int()> m_record;
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
        clickOpen(m_shown->tab);
        if (dialogOf(m_shown->tab) == nullptr)
            qFatal("no dialog");
        return *dialogOf(m_shown->tab);
    }
    AdvTriggerDialog& contentOf(const QDialog& dialog) const
    {
        return *dialog.findChild<AdvTriggerDialog*>();
    }
    QComboBox& tabPresets() const { return *m_shown->find<QComboBox>("cmbSelectPreset"); }
    static QComboBox& presetsOf(const QDialog& dialog)
    {
        return *dialog.findChild<QComboBox*>("cmbSelectPreset");
    }
    void selectInTab(int index) const;

    PresetsFile m_presets{PresetsFile::fourPresets()};
    std::unique_ptr<TabOnCamera> m_shown;
};

void tst_AdvTriggerDialogWindow::init()
{
    m_shown = std::make_unique<TabOnCamera>(cameraOfPresetFamily());
    m_shown->showAndSettle();
}

void tst_AdvTriggerDialogWindow::cleanup()
{
    m_shown.reset();
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
    QSignalSpy displayed(&m_shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
    const QDialog& dialog = open();
    QCOMPARE(displayed.count(), 1);
    QCOMPARE(displayed.first().first().toBool(), true);
    QVERIFY(!m_shown->tab.isVisible());
    QVERIFY(dialog.isVisible());
    QVERIFY(QTest::qWaitForWindowActive(dialogOf(m_shown->tab)));
}

void tst_AdvTriggerDialogWindow::saysSoBetweenHidingTheTabAndShowingTheDialog()
{
    int heard = 0;
    connect(&m_shown->tab, &AdvTriggerWidget::dialogWindowDisplayed, this, [&] {
        ++heard;
        QVERIFY(m_shown->tab.isHidden());
        QVERIFY(dialogOf(m_shown->tab) != nullptr);
        QVERIFY(!dialogOf(m_shown->tab)->isVisible());
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
    QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(&m_shown->tab));
    QCOMPARE(dialog.windowType(), Qt::Dialog);
}

void tst_AdvTriggerDialogWindow::titleNamesModelAndSerialNumber_data()
{
    columns<QString, QString>("model", "title");
    row("plain", "TX-2000", "Advanced Trigger IO (TX-2000-SN004711)");
    row("empty", "", "Advanced Trigger IO (-SN004711)");
    row("percent sign", "TX%2", "Advanced Trigger IO (TX%2-SN004711)");
}

void tst_AdvTriggerDialogWindow::titleNamesModelAndSerialNumber()
{
    QFETCH(QString, model);
    QFETCH(QString, title);
    (*m_shown->camera)["DeviceModelName"].state().text = model.toStdString();
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
    QVERIFY(!wroteDelay(*m_shown->camera));
}

void tst_AdvTriggerDialogWindow::closingShowsTheTabAndSaysSo_data()
{
    columns<QString>("way");
    for (const char* way : {"title bar", "Esc", "close", "accept", "reject", "done 7"})
        row(way, QString(way));
}

void tst_AdvTriggerDialogWindow::closingShowsTheTabAndSaysSo()
{
    QFETCH(QString, way);
    QPointer<QDialog> dialog = &open();
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    QSignalSpy displayed(&m_shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
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
    QVERIFY(m_shown->tab.isVisible());
    deleteDeferred();
    QVERIFY(dialog.isNull());
}

void tst_AdvTriggerDialogWindow::takesThePresetThenShowsTheTabThenSaysSo()
{
    QDialog& dialog = open();
    presetsOf(dialog).setCurrentIndex(3);
    EventRecorder shows(m_shown->tab, QEvent::Show, [this] { return tabPresets().currentIndex(); });
    int heard = 0;
    connect(&m_shown->tab, &AdvTriggerWidget::dialogWindowDisplayed, this, [&] {
        ++heard;
        QVERIFY(m_shown->tab.isVisible());
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
    QCOMPARE((*m_shown->camera)["TriggerDelay"].state().real, 300.0);
    m_shown->camera->clearLog();
    dialog.reject();
    QCOMPARE(tabPresets().currentText(), QString("Three Hundred"));
    QVERIFY(!wroteDelay(*m_shown->camera));
    // The box works as before.
    tabPresets().setCurrentIndex(1);
    QCOMPARE((*m_shown->camera)["TriggerDelay"].state().real, 100.0);
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
    connect(&m_shown->tab, &AdvTriggerWidget::dialogWindowDisplayed, this,
            [&] { shapes << m_shown->tab.cursor().shape(); });
    QDialog& dialog = open();
    QCOMPARE(m_shown->tab.cursor().shape(), Qt::ArrowCursor);
    dialog.reject();
    QCOMPARE(m_shown->tab.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(shapes, (QList<Qt::CursorShape>{Qt::WaitCursor, Qt::WaitCursor}));
}

void tst_AdvTriggerDialogWindow::streamingReachesTheOpenDialog()
{
    const QDialog& dialog = open();
    const auto* hint = dialog.findChild<QLabel*>("lbl_notAcquireHint");
    for (const bool on : {true, false}) {
        emit m_shown->tab.CamStreamingOn(on);
        QCOMPARE(hint->isVisible(), on);
        QCOMPARE(presetsOf(dialog).isEnabled(), !on);
    }
}

void tst_AdvTriggerDialogWindow::startingAcquisitionWithTheDialogOpen()
{
    QDialog& dialog = open();
    m_shown->tab.camIsStreaming(true);
    QVERIFY(dialog.findChild<QLabel*>("lbl_notAcquireHint")->isVisible());
    QVERIFY(!presetsOf(dialog).isEnabled());
    dialog.reject();
    // The tab has heard of it as well.
    QVERIFY(!tabPresets().isEnabled());
    QVERIFY(m_shown->find("lbl_notAcquireHint")->isVisible());
    m_shown->tab.camIsStreaming(false);
    QVERIFY(tabPresets().isEnabled());
}

void tst_AdvTriggerDialogWindow::showTabWidgetWithoutAnyDialog()
{
    selectInTab(2);
    m_shown->tab.hide();
    QSignalSpy displayed(&m_shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
    m_shown->tab.showTabWidget(0);
    QVERIFY(m_shown->tab.isVisible());
    QCOMPARE(displayed.count(), 1);
    QCOMPARE(tabPresets().currentIndex(), 2);
}

void tst_AdvTriggerDialogWindow::aVanishedCameraGetsNoDialog()
{
    QSignalSpy displayed(&m_shown->tab, SIGNAL(dialogWindowDisplayed(bool)));
    m_shown->camera->failEverything();
    clickOpen(m_shown->tab);
    QVERIFY(dialogOf(m_shown->tab) == nullptr);
    QVERIFY(m_shown->tab.isVisible());
    QCOMPARE(m_shown->tab.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(displayed.count(), 0);
}

void tst_AdvTriggerDialogWindow::afterARefusalTheDialogOpensAgain()
{
    m_shown->camera->failEverything();
    clickOpen(m_shown->tab);
    m_shown->camera->clearFailures();
    QVERIFY(open().isVisible());
}

void tst_AdvTriggerDialogWindow::losingTheCameraWithTheDialogOpen()
{
    QDialog& dialog = open();
    m_shown->camera->failEverything();
    auto* delay = dialog.findChild<QDoubleSpinBox*>("spbTimerDelay");
    delay->setValue(12.0);
    QTimer* timer = contentOf(dialog).findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    QSignalSpy ticks(timer, SIGNAL(timeout()));
    QVERIFY(ticks.wait(3000));
    dialog.reject();
    QVERIFY(m_shown->tab.isVisible());
    deleteDeferred();
    clickOpen(m_shown->tab);
    QVERIFY(dialogOf(m_shown->tab) == nullptr);
}

void tst_AdvTriggerDialogWindow::bothEnginesFollowTheCameraInTheirTime()
{
    Fake::FakeFeature& mode = (*m_shown->camera)["TriggerMode"];
    QCOMPARE(mode.observerCount(), std::size_t(1));
    QDialog& dialog = open();
    // The dialog's; the hidden tab has taken its own away.
    QCOMPARE(mode.observerCount(), std::size_t(1));
    mode.state().text = "On";
    m_shown->camera->notify("TriggerMode");
    auto* box = dialog.findChild<QComboBox*>("cmbTriggerMode");
    QTRY_COMPARE(box->currentText(), QString("On"));
    QCOMPARE(m_shown->find<QComboBox>("cmbTriggerMode")->currentText(), QString("Off"));
    dialog.reject();
    deleteDeferred();
    QCOMPARE(mode.observerCount(), std::size_t(1));
    QTRY_COMPARE(m_shown->find<QComboBox>("cmbTriggerMode")->currentText(), QString("On"));
}

void tst_AdvTriggerDialogWindow::twoHundredTimesLeaveNothingBehind()
{
    constexpr int cycles = 200;
    m_shown->camera->setLogging(false);
    const int windows = QApplication::topLevelWidgets().size();
    const int children = m_shown->tab.findChildren<QObject*>().size();
    const std::size_t observers = registrations(*m_shown->camera);
    for (int cycle = 0; cycle < cycles; ++cycle) {
        QDialog& dialog = open();
        dialog.findChild<QDoubleSpinBox*>("spbTimerDelay")->setValue(cycle + 1.0);
        auto* source = dialog.findChild<QComboBox*>("cmbLine2_LineSource");
        source->setCurrentIndex(1 + cycle % 2);
        m_shown->camera->notify("TimerDelay");
        QCoreApplication::processEvents();
        QCOMPARE((*m_shown->camera)["TimerDelay"].state().real, cycle + 1.0);
        QCOMPARE(QString::fromStdString((*m_shown->camera)["LineSource"].stateFor("Line2").text),
                 source->currentText());
        dialog.close();
        deleteDeferred();
    }
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QCOMPARE(m_shown->tab.findChildren<QObject*>().size(), children);
    QCOMPARE(registrations(*m_shown->camera), observers);
    QVERIFY(m_shown->tab.isVisible());
}

QTEST_MAIN(tst_AdvTriggerDialogWindow)
#include "tst_AdvTriggerDialogWindow.moc"
