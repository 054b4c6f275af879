// The advanced dialog in the built viewer: opened, worked in with mouse and keyboard, closed, and
// what the camera has of it.
#include "tests/e2e/RunningViewer.h"
#include "tests/e2e/SimulatorProcess.h"
#include "tests/support/MouseChoice.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <QtTest>

namespace {

const QString Presets = QStringLiteral("AdvTrigger_SimSeries_Presets.json");

Cameras::Source simulated()
{
    return {Cameras::Source::Kind::Simulated, "full"};
}

double numberOf(const RunningViewer& viewer, const char* feature)
{
    double value = -1.0;
    viewer.feature(feature)->GetFloatValue(value);
    return value;
}

QString textOf(const RunningViewer& viewer, const char* feature)
{
    char text[128] = {};
    std::uint32_t size = sizeof text;
    viewer.feature(feature)->GetStringValue(text, size);
    return QString::fromUtf8(text);
}

QDialog* dialogOf(const RunningViewer& viewer)
{
    return viewer.tab()->findChild<QDialog*>();
}

/// The dialog as a user works in it.
class Dialog
{
public:
    /// Opens it from the tab with a click.
    explicit Dialog(const RunningViewer& viewer)
    {
        viewer.click("btnAdvancedDialog");
        window = dialogOf(viewer);
        if (!window || !QTest::qWaitForWindowActive(window))
            qFatal("the dialog did not open");
    }

    template <class Widget> Widget& find(const char* name) const
    {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("The dialog has no %s", name);
        return *widget;
    }

    void click(const char* button) const
    {
        QTest::mouseClick(&find<QAbstractButton>(button), Qt::LeftButton, Qt::NoModifier,
                          QPoint(10, 10));
    }

    /// Replaces a field's text, key by key, and finishes it with Return.
    void type(const char* name, const char* text) const
    {
        auto& edit = find<QLineEdit>(name);
        QTest::mouseClick(&edit, Qt::LeftButton);
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromLatin1(text));
        QTest::keyClick(&edit, Qt::Key_Return);
    }

    QString text(const char* lineEdit) const { return find<QLineEdit>(lineEdit).text(); }

    QPointer<QDialog> window;
};

/// Switches PWM on or off with the keyboard.
void togglePwm(const Dialog& dialog)
{
    auto& group = dialog.find<QGroupBox>("grpPWM");
    group.setFocus();
    QTest::keyClick(&group, Qt::Key_Space);
}

} // namespace

class tst_AdvancedDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void openingHidesTheTabAndShowsTheNotice();
    void everySectionUnfoldsWithAClick();
    void pwmReachesTheCameraAndComesBack();
    void aPickedPresetIsAppliedOnceAndTakenBackByTheTab_data();
    void aPickedPresetIsAppliedOnceAndTakenBackByTheTab();
    void theDialogTakesThePresetOfTheTabWithoutApplyingIt();
    void startingAcquisitionReachesTheOpenDialog();
    void theViewerClosesWithTheDialogOpen();
    void aVanishedCameraLeavesADialogThatCloses();

private:
    static void close(const Dialog& dialog, const QString& way);
    static QString presetsFile()
    {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/plugins/") + Presets;
    }
};

// The presets are looked for beside the running program, which here is this test.
void tst_AdvancedDialog::initTestCase()
{
    QDir(QCoreApplication::applicationDirPath()).mkpath(QStringLiteral("plugins"));
    QFile::remove(presetsFile());
    QVERIFY(QFile::copy(QStringLiteral(PLUGIN_FOLDER "/") + Presets, presetsFile()));
}

void tst_AdvancedDialog::cleanupTestCase()
{
    QFile::remove(presetsFile());
}

void tst_AdvancedDialog::close(const Dialog& dialog, const QString& way)
{
    if (way == QLatin1String("title bar")) {
        // What the window system sends when its button is pressed.
        QCloseEvent event;
        QCoreApplication::sendEvent(dialog.window->windowHandle(), &event);
    } else if (way == QLatin1String("Esc")) {
        QTest::keyClick(dialog.window, Qt::Key_Escape);
    } else {
        dialog.window->close();
    }
}

void tst_AdvancedDialog::openingHidesTheTabAndShowsTheNotice()
{
    RunningViewer viewer(simulated());
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const Dialog dialog(viewer);
    QVERIFY(!viewer.tab()->isVisible());
    QCOMPARE(dialog.window->windowTitle(),
             QStringLiteral("Advanced Trigger IO (%1-%2)")
                 .arg(textOf(viewer, "DeviceModelName"), textOf(viewer, "DeviceSerialNumber")));
    const QList<QLabel*> labels =
        viewer.tab()->parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(labels.size(), 1);
    QVERIFY(labels.first()->isVisible());
    QCOMPARE(labels.first()->text(), QStringLiteral("Please use the Advanced Trigger Dialog."));
    dialog.window->close();
    QVERIFY(!labels.first()->isVisible());
    QVERIFY(viewer.tab()->isVisible());
}

void tst_AdvancedDialog::everySectionUnfoldsWithAClick()
{
    RunningViewer viewer(simulated());
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const Dialog dialog(viewer);
    const QMap<const char*, const char*> sections = {
        {"btnConfigureTriggerSources", "btnTriggerSoftware"},
        {"btnConfigureInputOutput", "cmbLine0_LineMode"},
        {"btnConfigureAcquisitionMode", "cmbExposureMode"},
        {"btnConfigureActionCommand", "txtTimestampLatchValue"},
        {"btnConfigureSoftwareSignal", "btnSoftwareSignalPulse"},
        {"btnConfigureCounterTimer", "txtPWMDutyCycle"}};
    for (auto section = sections.cbegin(); section != sections.cend(); ++section) {
        const auto& inside = dialog.find<QWidget>(section.value());
        QVERIFY(!inside.isVisible());
        dialog.click(section.key());
        QTRY_VERIFY(inside.isVisible());
        const QWidget* around = inside.parentWidget();
        QTRY_VERIFY(around->height() >= around->minimumSizeHint().height());
    }
}

void tst_AdvancedDialog::pwmReachesTheCameraAndComesBack()
{
    RunningViewer viewer(simulated());
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const Dialog dialog(viewer);
    dialog.click("btnConfigureCounterTimer");
    togglePwm(dialog);
    QCOMPARE(textOf(viewer, "TimerTriggerSource"), QStringLiteral("Timer0Active"));
    QCOMPARE(textOf(viewer, "TimerTriggerActivation"), QStringLiteral("FallingEdge"));

    dialog.type("txtPWMFrequency", "1000");
    dialog.type("txtPWMDutyCycle", "25");
    QCOMPARE(numberOf(viewer, "TimerDuration"), 250.0);
    QCOMPARE(numberOf(viewer, "TimerDelay"), 750.0);
    QTRY_COMPARE(dialog.find<QDoubleSpinBox>("spbTimerDuration").value(), 250.0);
    QTRY_COMPARE(dialog.find<QDoubleSpinBox>("spbTimerDelay").value(), 750.0);

    togglePwm(dialog);
    QCOMPARE(dialog.text("txtPWMFrequency"), QString());
    QCOMPARE(dialog.text("txtPWMDutyCycle"), QString());
    QCOMPARE(numberOf(viewer, "TimerDuration"), 250.0);
    QCOMPARE(textOf(viewer, "TimerTriggerSource"), QStringLiteral("Timer0Active"));

    togglePwm(dialog);
    QCOMPARE(dialog.text("txtPWMFrequency"), QStringLiteral("1000"));
    QCOMPARE(dialog.text("txtPWMDutyCycle"), QStringLiteral("25"));
    QCOMPARE(numberOf(viewer, "TimerDelay"), 750.0);
}

void tst_AdvancedDialog::aPickedPresetIsAppliedOnceAndTakenBackByTheTab_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"title bar", "Esc", "code"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_AdvancedDialog::aPickedPresetIsAppliedOnceAndTakenBackByTheTab()
{
    QFETCH(QString, way);
    RunningViewer viewer(simulated());
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const Dialog dialog(viewer);
    const QString preset = QStringLiteral("Software Trigger");
    chooseWithMouse(dialog.find<QComboBox>("cmbSelectPreset"), preset);
    QCOMPARE(textOf(viewer, "TriggerMode"), QStringLiteral("On"));
    QTRY_COMPARE(dialog.find<QComboBox>("cmbTriggerMode").currentText(), QStringLiteral("On"));

    // Applied once more, the preset would switch the trigger on again.
    QCOMPARE(viewer.feature("TriggerMode")->SetStringValue("Off"), ZalErrorSuccess);
    close(dialog, way);
    QVERIFY(viewer.tab()->isVisible());
    QCOMPARE(viewer.control<QComboBox>("cmbSelectPreset")->currentText(), preset);
    viewer.waitForTicks(2);
    QCOMPARE(textOf(viewer, "TriggerMode"), QStringLiteral("Off"));
    QCOMPARE(viewer.control<QComboBox>("cmbTriggerMode")->currentText(), QStringLiteral("Off"));
    QVERIFY(dialog.window.isNull());
}

void tst_AdvancedDialog::theDialogTakesThePresetOfTheTabWithoutApplyingIt()
{
    RunningViewer viewer(simulated());
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const QString preset = QStringLiteral("Software Trigger");
    viewer.choose("cmbSelectPreset", preset);
    QCOMPARE(textOf(viewer, "TriggerMode"), QStringLiteral("On"));
    QCOMPARE(viewer.feature("TriggerMode")->SetStringValue("Off"), ZalErrorSuccess);
    const Dialog dialog(viewer);
    QCOMPARE(dialog.find<QComboBox>("cmbSelectPreset").currentText(), preset);
    QCOMPARE(textOf(viewer, "TriggerMode"), QStringLiteral("Off"));
    QCOMPARE(dialog.find<QComboBox>("cmbTriggerMode").currentText(), QStringLiteral("Off"));
}

void tst_AdvancedDialog::startingAcquisitionReachesTheOpenDialog()
{
    RunningViewer viewer(simulated());
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const Dialog dialog(viewer);
    const auto& hint = dialog.find<QLabel>("lbl_notAcquireHint");
    QVERIFY(!hint.isVisible());
    viewer.clickAcquire();
    QTRY_VERIFY(hint.isVisible());
    QVERIFY(!dialog.find<QComboBox>("cmbSelectPreset").isEnabled());
    QTRY_VERIFY(viewer.frames() > 2);
    viewer.clickAcquire();
    QTRY_VERIFY(!hint.isVisible());
    QVERIFY(dialog.find<QComboBox>("cmbSelectPreset").isEnabled());
}

void tst_AdvancedDialog::theViewerClosesWithTheDialogOpen()
{
    RunningViewer viewer(simulated());
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const Dialog dialog(viewer);
    dialog.click("btnConfigureCounterTimer");
    dialog.find<QDoubleSpinBox>("spbTimerDelay").setFocus();
    viewer.close();
    QVERIFY(dialog.window.isNull());
}

void tst_AdvancedDialog::aVanishedCameraLeavesADialogThatCloses()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.isRunning());
    RunningViewer viewer({Cameras::Source::Kind::Found, simulator.address().toStdString()});
    QVERIFY2(viewer.window(), qPrintable(viewer.problem));
    const Dialog dialog(viewer);
    simulator.kill();
    dialog.click("btnConfigureAcquisitionMode");
    auto& box = dialog.find<QComboBox>("cmbExposureMode");
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(dialog.window, Qt::Key_Escape);
    QVERIFY(viewer.tab()->isVisible());
    // The connection notices the loss after some missed heartbeats only.
    QTRY_VERIFY_WITH_TIMEOUT(!viewer.notice().isEmpty(), 30000);
    viewer.click("btnAdvancedDialog");
    QVERIFY(!dialogOf(viewer));
    QVERIFY(viewer.tab()->isVisible());
}

QTEST_MAIN(tst_AdvancedDialog)
#include "tst_AdvancedDialog.moc"
