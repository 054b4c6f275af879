// The tab shown, refreshed and told about the camera's acquisition.
#include "tests/ui/PresetsFile.h"
#include "tests/ui/TabUnderTest.h"
#include "widgets/CollapsingButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHelpEvent>
#include <QRegularExpression>
#include <QSignalSpy>

namespace {

void requestToolTip(QWidget* widget)
{
    QHelpEvent event(QEvent::ToolTip, widget->rect().center(),
                     widget->mapToGlobal(widget->rect().center()));
    QApplication::sendEvent(widget, &event);
}

QStringList callsOf(const Fake::FakeCamera& camera, const char* operation)
{
    return toList(camera.calls()).filter(QRegularExpression(QString("^%1 ").arg(operation)));
}

/// What each bound widget shows, and whether it can be used.
QStringList stateOf(const TabOnCamera& shown)
{
    QStringList state;
    for (const char* name : {"cmbTriggerSelector", "cmbTriggerMode", "cmbTriggerSource",
                             "cmbTriggerActivation", "spbTriggerDelay", "btnTriggerSoftware"}) {
        const QWidget* widget = shown.find(name);
        const QVariant current = widget->property("currentText");
        const QString text = (current.isValid() ? current : widget->property("text")).toString();
        state << text + (widget->isEnabled() ? " true" : " false");
    }
    return state;
}

} // namespace

class tst_AdvTriggerWidgetShow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void firstShowBinds_data();
    void firstShowBinds();
    void firstShowLeavesNoPresetSelected();
    void firstShowWritesSelectorsOnly();
    void firstShowObservesEveryBoundFeature();
    void hidingDetachesAndShowingAttachesAgain();
    void laterShowsDoNotBindAgain();
    void laterShowsKeepThePresetChoice();
    void statusSectionFoldsItsFrame();
    void tooltipSwitchTurnsTooltipsOnAndOff();
    void updateInitWithoutChangesDoesNothing();
    void updateInitRefreshesWhatChanged();
    void firstTickAfterShowRefreshesEverything();
    void refreshWritesTheLineSelectorOnly();
    void idleTickMakesNoCall();
    void changeOnTheCameraShowsAfterTheTick();
    void whatFailedOnceIsShownAfterTheNextRefresh_data();
    void whatFailedOnceIsShownAfterTheNextRefresh();
    void streamingIsPassedOn();
    void streamingLocksThePresetBoxAndShowsTheHint();
    void streamingBeforeTheFirstShowOutlastsTheBinding();
    void streamingLeavesTheOtherWidgets();

private:
    QStringList m_healthyState;
};

void tst_AdvTriggerWidgetShow::initTestCase()
{
    TabOnCamera shown;
    shown.showAndSettle();
    m_healthyState = stateOf(shown);
    QCOMPARE(m_healthyState,
             (QStringList{"FrameStart true", "Off true", "Software true", "RisingEdge true",
                          "0.00 true", "Execute SW Trigger true"}));
}

void tst_AdvTriggerWidgetShow::firstShowBinds_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QString>("current");
    QTest::newRow("cmbTriggerSelector")
        << QStringList{"AcquisitionStart", "FrameStart", "LineStart"} << "FrameStart";
    QTest::newRow("cmbTriggerMode") << QStringList{"Off", "On"} << "On";
    QTest::newRow("cmbTriggerActivation") << QStringList() << "FallingEdge";
    QTest::newRow("cmbTriggerSource") << QStringList() << "Line1";
}

void tst_AdvTriggerWidgetShow::firstShowBinds()
{
    QFETCH(QStringList, entries);
    QFETCH(QString, current);
    TabOnCamera shown;
    (*shown.camera)["TriggerMode"].state().text = "On";
    (*shown.camera)["TriggerActivation"].state().text = "FallingEdge";
    (*shown.camera)["TriggerSource"].state().text = "Line1";
    shown.show();
    const auto* box = shown.find<QComboBox>(QTest::currentDataTag());
    QStringList shownEntries;
    for (int i = 0; i < box->count(); ++i)
        shownEntries << box->itemText(i);
    if (entries.isEmpty())
        for (const auto& entry :
             (*shown.camera)[box->objectName().mid(3).toStdString()].state().entries)
            entries << QString::fromStdString(entry.name);
    QCOMPARE(shownEntries, entries);
    QCOMPARE(box->currentText(), current);
}

void tst_AdvTriggerWidgetShow::firstShowLeavesNoPresetSelected()
{
    const PresetsFile m_file(PresetsFile::fourPresets());
    TabOnCamera shown(cameraOfPresetFamily());
    const auto* presets = shown.find<QComboBox>("cmbSelectPreset");
    shown.show();
    QCOMPARE(presets->count(), 4);
    QCOMPARE(presets->currentIndex(), -1);
    QCOMPARE(presets->currentText(), QString());
}

void tst_AdvTriggerWidgetShow::firstShowWritesSelectorsOnly()
{
    TabOnCamera shown;
    shown.show();
    QCOMPARE(settingsWritten(*shown.camera), QStringList());
}

void tst_AdvTriggerWidgetShow::firstShowObservesEveryBoundFeature()
{
    TabOnCamera shown;
    shown.show();
    for (const char* feature :
         {"TriggerSelector", "TriggerMode", "TriggerSource", "TriggerActivation", "TriggerDelay",
          "CounterSelector", "CounterEventSource", "TimerSelector", "TimerTriggerSource",
          "LineMode", "LineInverter", "LineSource", "LineStatus"})
        QVERIFY2((*shown.camera)[feature].observerCount() == 1, feature);
    for (const char* feature : {"TriggerSoftware", "LineSelector", "LineDebounceMode",
                                "LineDebounceDuration", "TimerDuration"})
        QVERIFY2((*shown.camera)[feature].observerCount() == 0, feature);
    // Once when binding, which marks nothing as changed, and once for this show, which does.
    QCOMPARE(shown.camera->callCount("RegisterObserver", "TriggerMode"), 2);
    QCOMPARE(shown.tab.m_changedFeatures->count("TriggerMode"), 1);
}

void tst_AdvTriggerWidgetShow::hidingDetachesAndShowingAttachesAgain()
{
    TabOnCamera shown;
    shown.show();
    const Fake::FakeFeature& mode = (*shown.camera)["TriggerMode"];
    shown.tab.hide();
    QCOMPARE(mode.observerCount(), std::size_t(0));
    QVERIFY(shown.tab.m_changedFeatures->isEmpty());
    shown.show();
    QCOMPARE(mode.observerCount(), std::size_t(1));
    QVERIFY(shown.tab.m_changedFeatures->contains("TriggerMode"));
}

void tst_AdvTriggerWidgetShow::laterShowsDoNotBindAgain()
{
    TabOnCamera shown;
    shown.showAndSettle();
    const QStringList observed = shown.tab.m_observedFeatures;
    shown.tab.hide();
    shown.camera->clearLog();
    shown.tab.show();
    // Only the overview is read anew: a box that were bound again would ask for its entries.
    for (const char* feature : {"TriggerMode", "TriggerSource", "LineMode", "LineSource"})
        QCOMPARE(shown.camera->callCount("GetEnumNames", feature), 0);
    QCOMPARE(shown.camera->callCount("SetStringValue", "LineSelector"), 0);
    QCOMPARE(shown.camera->callCount("GetStringValue", "DeviceFamilyName"), 0);
    QCOMPARE(settingsWritten(*shown.camera), QStringList());
    QCOMPARE(callsOf(*shown.camera, "RegisterObserver").count("RegisterObserver TriggerMode"), 1);
    QCOMPARE(shown.tab.m_observedFeatures, observed);

    shown.camera->clearLog();
    shown.find<QComboBox>("cmbTriggerMode")->setCurrentText("On");
    shown.find<QComboBox>("cmbLine2_LineMode")->setCurrentText("Input");
    QCOMPARE(toList(shown.camera->writes()),
             (QStringList{"SetStringValue TriggerMode=On", "SetStringValue LineSelector=Line2",
                          "SetStringValue LineMode=Input"}));
}

void tst_AdvTriggerWidgetShow::laterShowsKeepThePresetChoice()
{
    const PresetsFile m_file(PresetsFile::fourPresets());
    TabOnCamera shown(cameraOfPresetFamily());
    shown.show();
    auto* presets = shown.find<QComboBox>("cmbSelectPreset");
    presets->setCurrentText("Two Hundred");
    QCOMPARE((*shown.camera)["TriggerDelay"].state().real, 200.0);
    (*shown.camera)["TriggerDelay"].state().real = 7.0;
    shown.tab.hide();
    shown.show();
    QCOMPARE(presets->currentText(), QString("Two Hundred"));
    QCOMPARE((*shown.camera)["TriggerDelay"].state().real, 7.0);
}

void tst_AdvTriggerWidgetShow::statusSectionFoldsItsFrame()
{
    TabOnCamera shown;
    shown.show();
    const QWidget* frame = shown.find("frmTriggerFeaturesStatus");
    QCOMPARE(frame->maximumHeight(), 0);
    shown.find<CollapsingButton>("btnTriggerFeaturesStatus")->click();
    // Before it was folded, the frame was made as high as the tab.
    QTRY_COMPARE(frame->maximumHeight(), shown.tab.height() + 10);
}

void tst_AdvTriggerWidgetShow::tooltipSwitchTurnsTooltipsOnAndOff()
{
    TabOnCamera shown;
    shown.show();
    auto* mode = shown.find("cmbTriggerMode");
    requestToolTip(mode);
    QCOMPARE(mode->toolTip(), QString());

    auto* tooltips = shown.find<QCheckBox>("chkTooltips");
    QTest::keyClick(tooltips, Qt::Key_Space);
    QVERIFY(tooltips->isChecked());
    requestToolTip(mode);
    QVERIFY(mode->toolTip().contains("TriggerMode"));

    QTest::keyClick(tooltips, Qt::Key_Space);
    auto* source = shown.find("cmbTriggerSource");
    requestToolTip(source);
    QCOMPARE(source->toolTip(), QString());
}

void tst_AdvTriggerWidgetShow::updateInitWithoutChangesDoesNothing()
{
    TabOnCamera shown;
    shown.showAndSettle();
    QSignalSpy changes(&shown.tab, SIGNAL(FeatureChanged(const QString&, const QVariant&)));
    (*shown.camera)["TriggerMode"].state().text = "On";
    shown.tab.updateInit();
    QCOMPARE(toList(shown.camera->calls()), QStringList());
    QCOMPARE(shown.find<QComboBox>("cmbTriggerMode")->currentText(), QString("Off"));
    QCOMPARE(changes.count(), 0);
}

void tst_AdvTriggerWidgetShow::updateInitRefreshesWhatChanged()
{
    TabOnCamera shown;
    shown.showAndSettle();
    QSignalSpy changes(&shown.tab, SIGNAL(FeatureChanged(const QString&, const QVariant&)));
    (*shown.camera)["TriggerMode"].state().text = "On";
    *shown.tab.m_changedFeatures << "TriggerMode";
    shown.tab.updateInit();
    QCOMPARE(shown.find<QComboBox>("cmbTriggerMode")->currentText(), QString("On"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0], QList<QVariant>({QString("TriggerMode"), QString("On")}));
}

void tst_AdvTriggerWidgetShow::firstTickAfterShowRefreshesEverything()
{
    TabOnCamera shown;
    shown.show();
    (*shown.camera)["TriggerSource"].state().text = "Line1";
    (*shown.camera)["TriggerDelay"].state().real = 12.5;
    shown.tab.tick();
    QCOMPARE(shown.find<QComboBox>("cmbTriggerSource")->currentText(), QString("Line1"));
    QCOMPARE(shown.find<QDoubleSpinBox>("spbTriggerDelay")->value(), 12.5);
    QVERIFY(!shown.find("btnTriggerSoftware")->isEnabled());
    QVERIFY(shown.tab.m_changedFeatures->isEmpty());
}

void tst_AdvTriggerWidgetShow::refreshWritesTheLineSelectorOnly()
{
    TabOnCamera shown;
    shown.show();
    (*shown.camera)["TriggerMode"].state().text = "On";
    (*shown.camera)["TriggerDelay"].state().real = 99.0;
    shown.camera->clearLog();
    shown.tab.tick();
    QCOMPARE(shown.find<QDoubleSpinBox>("spbTriggerDelay")->value(), 99.0);
    // Each line once, and back to where the table was left when it was built.
    QStringList steps;
    for (const char* line : {"Line0", "Line1", "Line2", "Line3", "Line3"})
        steps << QString("SetStringValue LineSelector=%1").arg(line);
    QCOMPARE(toList(shown.camera->writes()), steps);
}

void tst_AdvTriggerWidgetShow::idleTickMakesNoCall()
{
    TabOnCamera shown;
    shown.showAndSettle();
    shown.tab.tick();
    QCOMPARE(toList(shown.camera->calls()), QStringList());
}

void tst_AdvTriggerWidgetShow::changeOnTheCameraShowsAfterTheTick()
{
    TabOnCamera shown;
    shown.showAndSettle();
    (*shown.camera)["TriggerActivation"].state().text = "FallingEdge";
    shown.camera->notify("TriggerActivation");
    QTRY_VERIFY(shown.tab.m_changedFeatures->contains("TriggerActivation"));
    shown.tab.tick();
    QCOMPARE(shown.find<QComboBox>("cmbTriggerActivation")->currentText(), QString("FallingEdge"));
    QCOMPARE(settingsWritten(*shown.camera), QStringList());
}

void tst_AdvTriggerWidgetShow::whatFailedOnceIsShownAfterTheNextRefresh_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("feature");
    TabOnCamera counted;
    counted.camera->clearLog();
    counted.tab.show();
    counted.tab.tick();
    QStringList calls = toList(counted.camera->calls());
    calls.removeDuplicates();
    // A feature whose name cannot be read counts as missing, and that for good.
    for (const QString& call : calls.filter(QRegularExpression("^(?!GetName )")))
        QTest::newRow(qPrintable(call)) << call.section(' ', 0, 0) << call.section(' ', 1);
}

void tst_AdvTriggerWidgetShow::whatFailedOnceIsShownAfterTheNextRefresh()
{
    QFETCH(QString, operation);
    QFETCH(QString, feature);
    TabOnCamera shown;
    shown.camera->failCall(operation.toStdString(), feature.toStdString());
    shown.tab.show();
    shown.tab.tick();
    shown.camera->clearFailures();
    *shown.tab.m_changedFeatures = shown.tab.m_observedFeatures;
    shown.tab.tick();
    QCOMPARE(stateOf(shown), m_healthyState);
    QCOMPARE(settingsWritten(*shown.camera), QStringList());
}

void tst_AdvTriggerWidgetShow::streamingIsPassedOn()
{
    TabOnCamera shown;
    QSignalSpy streaming(&shown.tab, SIGNAL(CamStreamingOn(bool)));
    const QWidget* presets = shown.find("cmbSelectPreset");
    QList<bool> presetsBefore;
    connect(&shown.tab, &AdvTriggerWidget::CamStreamingOn, this,
            [&] { presetsBefore << presets->isEnabled(); });
    QMetaObject::invokeMethod(&shown.tab, "camIsStreaming", Q_ARG(bool, true));
    QMetaObject::invokeMethod(&shown.tab, "camIsStreaming", Q_ARG(bool, false));
    QCOMPARE(streaming.count(), 2);
    QCOMPARE(streaming[0][0].toBool(), true);
    QCOMPARE(streaming[1][0].toBool(), false);
    QCOMPARE(presetsBefore, (QList<bool>{true, false}));
}

void tst_AdvTriggerWidgetShow::streamingLocksThePresetBoxAndShowsTheHint()
{
    TabOnCamera shown;
    shown.show();
    const QWidget* hint = shown.find("lbl_notAcquireHint");
    const QWidget* presets = shown.find("cmbSelectPreset");
    shown.tab.camIsStreaming(true);
    QVERIFY(hint->isVisible());
    QVERIFY(!presets->isEnabled());
    shown.tab.camIsStreaming(false);
    QVERIFY(!hint->isVisible());
    QVERIFY(presets->isEnabled());
}

void tst_AdvTriggerWidgetShow::streamingBeforeTheFirstShowOutlastsTheBinding()
{
    TabOnCamera shown;
    shown.tab.camIsStreaming(true);
    shown.showAndSettle();
    QVERIFY(shown.find("lbl_notAcquireHint")->isVisible());
    QVERIFY(!shown.find("cmbSelectPreset")->isEnabled());
}

void tst_AdvTriggerWidgetShow::streamingLeavesTheOtherWidgets()
{
    TabOnCamera shown;
    shown.showAndSettle();
    shown.tab.camIsStreaming(true);
    QVERIFY(shown.find("cmbTriggerMode")->isEnabled());
    QVERIFY(shown.find("btnTriggerSoftware")->isEnabled());
    QVERIFY(shown.find("chkTooltips")->isEnabled());
    QCOMPARE(toList(shown.camera->calls()), QStringList());
}

QTEST_MAIN(tst_AdvTriggerWidgetShow)
#include "tst_AdvTriggerWidgetShow.moc"
