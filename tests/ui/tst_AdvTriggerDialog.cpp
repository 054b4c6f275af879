// The dialog's content on a scripted camera: construction, hints, presets, refreshes, streaming.
#include "plugin/TabExtensionException.h"
#include "tests/support/Rows.h"
#include "tests/ui/DialogUnderTest.h"

#include <QHelpEvent>
#include <QMetaMethod>
#include <QSignalSpy>

namespace {

const char* const HintNames[] = {"lbl_noActionCommandsHint", "lbl_noSoftwareSignalHint",
                                 "lbl_noCounterTimerHint"};

std::unique_ptr<Fake::FakeCamera> cameraWithout(const QStringList& features)
{
    auto camera = cameraOfPresetFamily();
    for (const QString& feature : features)
        camera->remove(feature.toStdString());
    return camera;
}

QMap<QString, bool> enabledStates(const QWidget& form)
{
    QMap<QString, bool> states;
    for (const QWidget* widget : form.findChildren<QWidget*>())
        states.insert(widget->objectName(), widget->isEnabled());
    return states;
}

} // namespace

class tst_AdvTriggerDialog : public QObject
{
    Q_OBJECT

private slots:
    void declaresItsSlotsInOrder();
    void hidesTheAcquisitionHint();
    void hintsAtMissingFeatures_data();
    void hintsAtMissingFeatures();
    void aCameraWithoutActionSelectorShowsTheHintAndKeepsTheWidgets();
    void aCameraWithCountersButWithoutTimersShowsTheHint();
    void exemptsItsFreeWidgetsInOrder();
    void bindsInItsConstructor();
    void fillsTableAndOverview();
    void startsWithThePresetOfTheTab_data();
    void startsWithThePresetOfTheTab();
    void presetIndex2ShowsTheThirdPresetWithoutApplyingIt();
    void choosingAPresetAppliesIt();
    void customPresetSelectsTheItemOfThatName();
    void customPresetWithoutSuchItemKeepsTheSelection();
    void anEditTurnsThePresetToCustom();
    void observesEveryBoundFeatureFromConstructionOn();
    void updateInitWithoutChangesDoesNothing();
    void aRefreshShowsFormAndTable();
    void aRefreshWritesNothingButTheLineSelector();
    void detectsPwm_data();
    void detectsPwm();
    void detectsPwmWhenOneOfItsFeaturesChanged_data();
    void detectsPwmWhenOneOfItsFeaturesChanged();
    void anotherTriggerLeavesPwmSwitchedOn_data();
    void anotherTriggerLeavesPwmSwitchedOn();
    void streamingDisablesOnlyThePresetBoxAndShowsTheHint();
    void tooltipsShowWhenSwitchedOn();
    void refusesACameraThatVanished();

private:
    PresetsFile m_presets{PresetsFile::fourPresets()};
};

void tst_AdvTriggerDialog::declaresItsSlotsInOrder()
{
    const QMetaObject& meta = AdvTriggerDialog::staticMetaObject;
    QStringList signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        signatures << QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(signatures, (QStringList{"SetCustomPreset()", "calculatePWM()", "reverseCalcPWM()",
                                      "enablePWM(bool)", "disableContents(bool)"}));
    QCOMPARE(meta.method(meta.methodCount() - 1).parameterNames().first(),
             QByteArray("streamingIsOn"));
    QCOMPARE(QString(meta.superClass()->className()), QString("AdvTriggerBase"));
}

void tst_AdvTriggerDialog::hidesTheAcquisitionHint()
{
    const DialogOnCamera built;
    QVERIFY(built.find("lbl_notAcquireHint")->isHidden());
}

void tst_AdvTriggerDialog::hintsAtMissingFeatures_data()
{
    columns<QStringList, QStringList>("missing", "hints");
    const QString action = HintNames[0];
    const QString signal = HintNames[1];
    const QString counterTimer = HintNames[2];
    row("nothing missing", QStringList(), QStringList());
    row("action", QStringList{"ActionSelector"}, QStringList{action});
    row("signal", QStringList{"SoftwareSignalSelector"}, QStringList{signal});
    row("counter", QStringList{"CounterSelector"}, QStringList{counterTimer});
    row("timer", QStringList{"TimerSelector"}, QStringList{counterTimer});
    row("all",
        QStringList{"ActionSelector", "SoftwareSignalSelector", "CounterSelector", "TimerSelector"},
        QStringList{action, signal, counterTimer});
}

void tst_AdvTriggerDialog::hintsAtMissingFeatures()
{
    QFETCH(QStringList, missing);
    QFETCH(QStringList, hints);
    DialogOnCamera built(cameraWithout(missing));
    built.showAndSettle();
    QStringList visible;
    for (const char* name : HintNames)
        if (built.find(name)->isVisible())
            visible << name;
    QCOMPARE(visible, hints);
}

void tst_AdvTriggerDialog::aCameraWithoutActionSelectorShowsTheHintAndKeepsTheWidgets()
{
    DialogOnCamera built(cameraWithout({"ActionSelector", "ActionDeviceKey", "ActionGroupKey",
                                        "ActionGroupMask", "ActionQueueSize"}));
    built.showAndSettle();
    const auto* hint = built.find<QLabel>("lbl_noActionCommandsHint");
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->text(), QString("Action Control features are not available in the camera."));
    QVERIFY(built.find("btnConfigureActionCommand")->isEnabled());
    for (const char* name : {"spbActionSelector", "txtActionDeviceKey", "txtActionGroupKey",
                             "txtActionGroupMask", "txtActionQueueSize"})
        QVERIFY2(!built.find(name)->isEnabled(), name);
    QVERIFY(built.find("chkPtpEnable")->isEnabled());
}

void tst_AdvTriggerDialog::aCameraWithCountersButWithoutTimersShowsTheHint()
{
    DialogOnCamera built(cameraWithout({"TimerSelector"}));
    built.showAndSettle();
    QVERIFY(built.find("lbl_noCounterTimerHint")->isVisible());
    QVERIFY(built.find("cmbCounterSelector")->isEnabled());
    QVERIFY(!built.find("cmbTimerSelector")->isEnabled());
}

void tst_AdvTriggerDialog::exemptsItsFreeWidgetsInOrder()
{
    const DialogOnCamera built;
    const QStringList expected = {"cmbSelectPreset",    "txtPWMFrequency", "txtPWMDutyCycle",
                                  "lbl_notAcquireHint", "chkTooltips",     HintNames[0]};
    QCOMPARE(built.content->m_exemptWidgets, expected);
    QVERIFY(built.find("cmbSelectPreset")->isEnabled());
    QVERIFY(built.find("chkTooltips")->isEnabled());
}

void tst_AdvTriggerDialog::bindsInItsConstructor()
{
    auto camera = cameraOfPresetFamily();
    (*camera)["ExposureMode"].state().text = "TriggerWidth";
    (*camera)["AcquisitionFrameCount"].state().integer = 12;
    (*camera)["CounterDuration"].stateFor("Counter0").integer = 33;
    const DialogOnCamera built(std::move(camera));
    QCOMPARE(built.find<QComboBox>("cmbExposureMode")->currentText(), QString("TriggerWidth"));
    QCOMPARE(built.find<QSpinBox>("spbAcquisitionFrameCount")->value(), 12);
    QCOMPARE(built.find<QDoubleSpinBox>("spbCounterDuration")->value(), 33.0);
    QCOMPARE(built.find<QLineEdit>("txtActionGroupKey")->text(), QString("0x11223344"));
    // Write-only, so there is nothing to show; it can be typed.
    QCOMPARE(built.find<QLineEdit>("txtActionDeviceKey")->text(), QString());
    QVERIFY(built.find("txtActionDeviceKey")->isEnabled());
    QVERIFY(!built.find("txtPtpStatus")->isEnabled());
}

void tst_AdvTriggerDialog::fillsTableAndOverview()
{
    const DialogOnCamera built;
    const auto* table = built.find<QTableWidget>("tableWidget");
    QCOMPARE(table->rowCount(), 4);
    QVERIFY(table->cellWidget(3, 5) != nullptr);
    const QAbstractItemModel* model = built.find<QTreeView>("treeView")->model();
    QVERIFY(model != nullptr);
    QCOMPARE(model->index(0, 0).data().toString(), QString("Counter"));
}

void tst_AdvTriggerDialog::startsWithThePresetOfTheTab_data()
{
    columns<int>("index");
    row("none", -1);
    row("first", 0);
    row("last", 3);
}

void tst_AdvTriggerDialog::startsWithThePresetOfTheTab()
{
    QFETCH(int, index);
    const DialogOnCamera built(cameraOfPresetFamily(), index);
    QCOMPARE(built.content->getCurrentPresetIndex(), index);
    QCOMPARE(built.find<QComboBox>("cmbSelectPreset")->currentIndex(), index);
}

void tst_AdvTriggerDialog::presetIndex2ShowsTheThirdPresetWithoutApplyingIt()
{
    DialogOnCamera built(cameraOfPresetFamily(), 2);
    QCOMPARE(built.find<QComboBox>("cmbSelectPreset")->currentText(), QString("Two Hundred"));
    built.window.show();
    built.content->tick();
    QVERIFY(!built.writes().contains("SetFloatValue TriggerDelay=200"));
    QCOMPARE(built.feature("TriggerDelay").state().real, 0.0);
}

void tst_AdvTriggerDialog::choosingAPresetAppliesIt()
{
    DialogOnCamera built;
    built.showAndSettle();
    built.find<QComboBox>("cmbSelectPreset")->setCurrentIndex(3);
    QCOMPARE(built.feature("TriggerDelay").state().real, 300.0);
    QCOMPARE(built.content->getCurrentPresetIndex(), 3);
}

void tst_AdvTriggerDialog::customPresetSelectsTheItemOfThatName()
{
    const DialogOnCamera built(cameraOfPresetFamily(), 2);
    built.content->SetCustomPreset();
    QCOMPARE(built.content->getCurrentPresetIndex(), 0);
}

void tst_AdvTriggerDialog::customPresetWithoutSuchItemKeepsTheSelection()
{
    const DialogOnCamera built(cameraOfPresetFamily(), 2);
    built.find<QComboBox>("cmbSelectPreset")->setItemText(0, "Another");
    built.content->SetCustomPreset();
    QCOMPARE(built.content->getCurrentPresetIndex(), 2);
}

void tst_AdvTriggerDialog::anEditTurnsThePresetToCustom()
{
    DialogOnCamera built(cameraOfPresetFamily(), 2);
    built.showAndSettle();
    built.find<QComboBox>("cmbAcquisitionMode")->setCurrentText("SingleFrame");
    QCOMPARE(built.writes().first(), QString("SetStringValue AcquisitionMode=SingleFrame"));
    QCOMPARE(built.find<QComboBox>("cmbSelectPreset")->currentText(), QString("Custom"));
}

void tst_AdvTriggerDialog::observesEveryBoundFeatureFromConstructionOn()
{
    const DialogOnCamera built;
    for (const char* feature : {"TriggerSelector", "ExposureMode", "ActionGroupKey", "PtpStatus",
                                "CounterValue", "TimerDuration", "LineStatus"})
        QVERIFY2(built.feature(feature).observerCount() == 1, feature);
    for (const char* feature : {"TimerReset", "DeviceModelName", "LineSelector"})
        QVERIFY2(built.feature(feature).observerCount() == 0, feature);
    QVERIFY(built.content->m_changedFeatures->isEmpty());
}

void tst_AdvTriggerDialog::updateInitWithoutChangesDoesNothing()
{
    DialogOnCamera built;
    built.showAndSettle();
    built.feature("ExposureMode").state().text = "TriggerWidth";
    built.content->updateInit();
    QVERIFY(built.camera->calls().empty());
    QCOMPARE(built.find<QComboBox>("cmbExposureMode")->currentText(), QString("Timed"));
}

void tst_AdvTriggerDialog::aRefreshShowsFormAndTable()
{
    DialogOnCamera built;
    built.showAndSettle();
    built.feature("ExposureMode").state().text = "TriggerWidth";
    built.feature("LineMode").stateFor("Line1").text = "Output";
    built.content->report({"ExposureMode", "LineMode"});
    QCOMPARE(built.find<QComboBox>("cmbExposureMode")->currentText(), QString("TriggerWidth"));
    QCOMPARE(built.find<QComboBox>("cmbLine1_LineMode")->currentText(), QString("Output"));
}

void tst_AdvTriggerDialog::aRefreshWritesNothingButTheLineSelector()
{
    DialogOnCamera built;
    built.showAndSettle();
    built.content->report(built.content->m_observedFeatures);
    for (const QString& write : built.writes())
        QVERIFY2(write.startsWith("SetStringValue LineSelector="), qPrintable(write));
}

void tst_AdvTriggerDialog::detectsPwm_data()
{
    columns<QString, QString, bool>("source", "activation", "detected");
    row("own signal, falling", "Timer1Active", "FallingEdge", true);
    row("own signal, rising", "Timer1Active", "RisingEdge", false);
    row("other timer, falling", "Timer0Active", "FallingEdge", false);
    row("off, falling", "Off", "FallingEdge", false);
}

void tst_AdvTriggerDialog::detectsPwm()
{
    QFETCH(QString, source);
    QFETCH(QString, activation);
    QFETCH(bool, detected);
    DialogOnCamera built;
    built.showAndSettle();
    built.feature("TimerSelector").state().text = "Timer1";
    built.feature("TimerTriggerSource").stateFor("Timer1").text = source.toStdString();
    built.feature("TimerTriggerActivation").stateFor("Timer1").text = activation.toStdString();
    built.feature("TimerDelay").stateFor("Timer1").real = 3000.0;
    built.content->report({"TimerTriggerSource", "TimerTriggerActivation", "TimerSelector",
                           "TimerDelay", "TimerDuration"});
    QCOMPARE(built.find<QGroupBox>("grpPWM")->isChecked(), detected);
    QCOMPARE(built.find<QLineEdit>("txtPWMFrequency")->text(), detected ? QString("250") : "");
    QCOMPARE(built.find<QLineEdit>("txtPWMDutyCycle")->text(), detected ? QString("25") : "");
    QVERIFY(built.writes().filter("Timer").isEmpty());
}

void tst_AdvTriggerDialog::detectsPwmWhenOneOfItsFeaturesChanged_data()
{
    columns<bool>("detected");
    row("TimerSelector", true);
    row("TimerTriggerSource", true);
    row("TimerTriggerActivation", true);
    row("TimerDuration", false);
    row("TimerStatus", false);
}

void tst_AdvTriggerDialog::detectsPwmWhenOneOfItsFeaturesChanged()
{
    QFETCH(bool, detected);
    auto camera = cameraOfPresetFamily();
    (*camera)["TimerTriggerSource"].stateFor("Timer0").text = "Timer0Active";
    (*camera)["TimerTriggerActivation"].stateFor("Timer0").text = "FallingEdge";
    const DialogOnCamera built(std::move(camera));
    QVERIFY(!built.find<QGroupBox>("grpPWM")->isChecked());
    built.content->report({QTest::currentDataTag()});
    QCOMPARE(built.find<QGroupBox>("grpPWM")->isChecked(), detected);
}

void tst_AdvTriggerDialog::anotherTriggerLeavesPwmSwitchedOn_data()
{
    columns<QString>("value");
    row("TimerTriggerSource", "Off");
    row("TimerTriggerActivation", "RisingEdge");
}

void tst_AdvTriggerDialog::anotherTriggerLeavesPwmSwitchedOn()
{
    QFETCH(QString, value);
    const QByteArray changed = QTest::currentDataTag();
    DialogOnCamera built;
    built.showAndSettle();
    built.find<QGroupBox>("grpPWM")->setChecked(true);
    built.feature(changed).state().text = value.toStdString();
    built.content->report({"TimerSelector", "TimerTriggerSource", "TimerTriggerActivation"});
    QCOMPARE(built.find<QComboBox>("cmb" + changed)->currentText(), value);
    QVERIFY(built.find<QGroupBox>("grpPWM")->isChecked());
}

void tst_AdvTriggerDialog::streamingDisablesOnlyThePresetBoxAndShowsTheHint()
{
    DialogOnCamera built;
    built.showAndSettle();
    const QMap<QString, bool> idle = enabledStates(*built.content);
    QMap<QString, bool> streaming = idle;
    streaming["cmbSelectPreset"] = false;

    built.content->disableContents(true);
    QCOMPARE(enabledStates(*built.content), streaming);
    QVERIFY(built.find("lbl_notAcquireHint")->isVisible());

    built.content->disableContents(false);
    QCOMPARE(enabledStates(*built.content), idle);
    QVERIFY(!built.find("lbl_notAcquireHint")->isVisible());
    QVERIFY(built.camera->calls().empty());
}

void tst_AdvTriggerDialog::tooltipsShowWhenSwitchedOn()
{
    DialogOnCamera built;
    built.showAndSettle();
    QWidget* box = built.find("cmbExposureMode");
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(box, &event);
    QCOMPARE(box->toolTip(), QString());
    built.find<QCheckBox>("chkTooltips")->setChecked(true);
    QApplication::sendEvent(box, &event);
    QVERIFY(box->toolTip().contains("ExposureMode"));
}

void tst_AdvTriggerDialog::refusesACameraThatVanished()
{
    const auto camera = cameraOfPresetFamily();
    camera->failEverything();
    QWidget parent;
    QVERIFY_EXCEPTION_THROWN(AdvTriggerDialog(camera->features(), -1, &parent), TENotSupported);
    QVERIFY(parent.children().isEmpty());
}

QTEST_MAIN(tst_AdvTriggerDialog)
#include "tst_AdvTriggerDialog.moc"
