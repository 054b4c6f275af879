// The PWM calculator: frequency and duty cycle to the timer's two times, and back.
#include "tests/ui/DialogUnderTest.h"

#include <QDoubleValidator>
#include <QSignalSpy>

class tst_AdvTriggerDialogPwm : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void writesDurationThenDelay_data();
    void writesDurationThenDelay();
    void delayComesFromTheExactDuration();
    void fullDutyCycleLeavesNoDelayAtAnyFrequency();
    void unusableInputWritesNothing_data();
    void unusableInputWritesNothing();
    void failedWritesAreNotReported();
    void addressesTheSelectedTimer();
    void showsFrequencyAndDutyCycle_data();
    void showsFrequencyAndDutyCycle();
    void offTheSpinBoxesLeaveTheEditsUntouched();
    void onTheSpinBoxesAreFollowed_data();
    void onTheSpinBoxesAreFollowed();
    void switchingOnWithoutFrequencyFillsTheEditsFromTheTimer();
    void switchingOnWithAFrequencyPushesItToTheTimer();
    void switchingOnMakesTheTimerRetriggerItself();
    void switchingOnTurnsThePresetToCustom();
    void switchingOnWithoutThatEntryKeepsTheTrigger();
    void switchingOffEmptiesBothEditsAndKeepsTheTrigger();
    void switchedOffTheEditsCannotWrite();
    void switchingOnAgainListensToTheEdits();
    void refreshRecomputesTheEditsInSilence_data();
    void refreshRecomputesTheEditsInSilence();
    void refreshRestoresTheBlockingOfBefore();
    void typingFrequencyAndDutyCycleSetsTheTimer();
    void validatorLimits_data();
    void validatorLimits();
    void typing150PercentIsRefused();
    void typingAbove1000000HertzIsRefused();

private:
    QLineEdit& frequency() const { return *built->find<QLineEdit>("txtPWMFrequency"); }
    QLineEdit& dutyCycle() const { return *built->find<QLineEdit>("txtPWMDutyCycle"); }
    QDoubleSpinBox& duration() const { return *built->find<QDoubleSpinBox>("spbTimerDuration"); }
    QDoubleSpinBox& delay() const { return *built->find<QDoubleSpinBox>("spbTimerDelay"); }
    QGroupBox& group() const { return *built->find<QGroupBox>("grpPWM"); }
    QStringList timerWrites() const { return built->writes().filter("Value Timer"); }
    void showTimes(double high, double low) const;
    void checkSilently() const;
    void unfold() const;
    static void type(QLineEdit& edit, const char* text);

    PresetsFile presets{PresetsFile::fourPresets()};
    std::unique_ptr<DialogOnCamera> built;
};

void tst_AdvTriggerDialogPwm::init()
{
    // On the preset "Custom", which an edit then does not have to select.
    built = std::make_unique<DialogOnCamera>(cameraOfPresetFamily(), 0);
    for (const char* feature : {"TimerDuration", "TimerDelay"})
        for (const char* timer : {"Timer0", "Timer1"})
            built->feature(feature).stateFor(timer).maxReal = 1e8;
    built->showAndSettle();
}

void tst_AdvTriggerDialogPwm::cleanup()
{
    built.reset();
}

/// Has the camera report these times for the selected timer.
void tst_AdvTriggerDialogPwm::showTimes(double high, double low) const
{
    built->feature("TimerDuration").state().real = high;
    built->feature("TimerDelay").state().real = low;
    built->content->report({"TimerDuration", "TimerDelay"});
    built->camera->clearLog();
}

/// Switches PWM on without what the switch does.
void tst_AdvTriggerDialogPwm::checkSilently() const
{
    const QSignalBlocker silence(&group());
    group().setChecked(true);
}

/// Makes the fields reachable for the keyboard.
void tst_AdvTriggerDialogPwm::unfold() const
{
    built->find<QAbstractButton>("btnConfigureCounterTimer")->click();
    group().setChecked(true);
    built->camera->clearLog();
}

void tst_AdvTriggerDialogPwm::type(QLineEdit& edit, const char* text)
{
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
}

void tst_AdvTriggerDialogPwm::writesDurationThenDelay_data()
{
    QTest::addColumn<QString>("hertz");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<QString>("high");
    QTest::addColumn<QString>("low");
    const auto row = [](const char* hertz, const char* percent, const char* high, const char* low) {
        QTest::addRow("%s Hz, %s %%", hertz, percent)
            << QString(hertz) << QString(percent) << QString(high) << QString(low);
    };
    row("1000", "25", "250", "750");
    row("3", "50", "166667", "166667");
    row("100", "100", "10000", "0");
    row("150", "50", "3333.33", "3333.33");
    row("0.405", "50", "1234570", "1234570");
    row("1e3", "2.5e1", "250", "750");
    row("1000000", "50", "0.5", "0.5");
}

void tst_AdvTriggerDialogPwm::writesDurationThenDelay()
{
    QFETCH(QString, hertz);
    QFETCH(QString, percent);
    QFETCH(QString, high);
    QFETCH(QString, low);
    frequency().setText(hertz);
    dutyCycle().setText(percent);
    built->content->calculatePWM();
    QCOMPARE(built->writes(), (QStringList{"SetFloatValue TimerDuration=" + high,
                                           "SetFloatValue TimerDelay=" + low}));
}

void tst_AdvTriggerDialogPwm::fullDutyCycleLeavesNoDelayAtAnyFrequency()
{
    constexpr int highest = 2000;
    Fake::State& delayOfTimer = built->feature("TimerDelay").state();
    QStringList frequenciesWithDelay;
    dutyCycle().setText("100");
    for (int hertz = 1; hertz <= highest; ++hertz) {
        delayOfTimer.real = 5;
        frequency().setText(QString::number(hertz));
        built->content->calculatePWM();
        if (delayOfTimer.real != 0.0)
            frequenciesWithDelay.append(QString::number(hertz));
    }
    QCOMPARE(frequenciesWithDelay, QStringList());
}

void tst_AdvTriggerDialogPwm::delayComesFromTheExactDuration()
{
    frequency().setText("7");
    dutyCycle().setText("1");
    built->content->calculatePWM();
    // 99 times 1428.57 would be 141428.
    QCOMPARE(built->writes(), (QStringList{"SetFloatValue TimerDuration=1428.57",
                                           "SetFloatValue TimerDelay=141429"}));
}

void tst_AdvTriggerDialogPwm::unusableInputWritesNothing_data()
{
    QTest::addColumn<QString>("hertz");
    QTest::addColumn<QString>("percent");
    QTest::newRow("both empty") << ""
                                << "";
    QTest::newRow("no frequency") << ""
                                  << "25";
    QTest::newRow("no duty cycle") << "1000"
                                   << "";
    QTest::newRow("frequency zero") << "0"
                                    << "25";
    QTest::newRow("duty cycle zero") << "1000"
                                     << "0";
    QTest::newRow("negative frequency") << "-1000"
                                        << "25";
    QTest::newRow("negative duty cycle") << "1000"
                                         << "-25";
    QTest::newRow("frequency no number") << "fast"
                                         << "25";
    QTest::newRow("duty cycle no number") << "1000"
                                          << "half";
    QTest::newRow("group separators") << "1,000.0"
                                      << "25";
    QTest::newRow("not a number") << "nan"
                                  << "25";
    QTest::newRow("frequency beyond all numbers") << "1e400"
                                                  << "25";
    QTest::newRow("duty cycle beyond all numbers") << "1000"
                                                   << "1e400";
}

void tst_AdvTriggerDialogPwm::unusableInputWritesNothing()
{
    QFETCH(QString, hertz);
    QFETCH(QString, percent);
    frequency().setText(hertz);
    dutyCycle().setText(percent);
    built->content->calculatePWM();
    QVERIFY(built->camera->calls().empty());
}

void tst_AdvTriggerDialogPwm::failedWritesAreNotReported()
{
    built->camera->failCall("SetFloatValue", "TimerDuration");
    frequency().setText("1000");
    dutyCycle().setText("25");
    built->content->calculatePWM();
    QCOMPARE(timerWrites().last(), QString("SetFloatValue TimerDelay=750"));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void tst_AdvTriggerDialogPwm::addressesTheSelectedTimer()
{
    built->find<QComboBox>("cmbTimerSelector")->setCurrentText("Timer1");
    frequency().setText("1000");
    dutyCycle().setText("25");
    built->content->calculatePWM();
    QCOMPARE(built->feature("TimerDuration").stateFor("Timer1").real, 250.0);
    QCOMPARE(built->feature("TimerDelay").stateFor("Timer1").real, 750.0);
    QCOMPARE(built->feature("TimerDuration").stateFor("Timer0").real, 1000.0);
}

void tst_AdvTriggerDialogPwm::showsFrequencyAndDutyCycle_data()
{
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("low");
    QTest::addColumn<QString>("hertz");
    QTest::addColumn<QString>("percent");
    QTest::newRow("250 and 750") << 250.0 << 750.0 << "1000"
                                 << "25";
    QTest::newRow("both 0") << 0.0 << 0.0 << "0"
                            << "0";
    QTest::newRow("no delay") << 100.0 << 0.0 << "10000"
                              << "100";
    QTest::newRow("no duration") << 0.0 << 100.0 << "10000"
                                 << "0";
    QTest::newRow("six digits") << 100.0 << 200.0 << "3333.33"
                                << "33.3333";
    QTest::newRow("exponent") << 0.25 << 0.25 << "2e+06"
                              << "50";
    QTest::newRow("slow") << 5e7 << 5e7 << "0.01"
                          << "50";
}

void tst_AdvTriggerDialogPwm::showsFrequencyAndDutyCycle()
{
    QFETCH(double, high);
    QFETCH(double, low);
    QFETCH(QString, hertz);
    QFETCH(QString, percent);
    showTimes(high, low);
    checkSilently();
    built->content->reverseCalcPWM();
    QCOMPARE(frequency().text(), hertz);
    QCOMPARE(dutyCycle().text(), percent);
    QVERIFY(built->camera->calls().empty());
}

void tst_AdvTriggerDialogPwm::offTheSpinBoxesLeaveTheEditsUntouched()
{
    frequency().setText("12");
    dutyCycle().setText("34");
    duration().setValue(250.0);
    delay().setValue(750.0);
    built->content->reverseCalcPWM();
    QCOMPARE(frequency().text(), QString("12"));
    QCOMPARE(dutyCycle().text(), QString("34"));
}

void tst_AdvTriggerDialogPwm::onTheSpinBoxesAreFollowed_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("hertz");
    QTest::addColumn<QString>("percent");
    QTest::newRow("delay") << "spbTimerDelay" << 250.0 << "2000"
                           << "50";
    QTest::newRow("duration") << "spbTimerDuration" << 50.0 << "1250"
                              << "6.25";
}

void tst_AdvTriggerDialogPwm::onTheSpinBoxesAreFollowed()
{
    QFETCH(QString, box);
    QFETCH(double, value);
    QFETCH(QString, hertz);
    QFETCH(QString, percent);
    showTimes(250.0, 750.0);
    checkSilently();
    built->find<QDoubleSpinBox>(box)->setValue(value);
    QCOMPARE(frequency().text(), hertz);
    QCOMPARE(dutyCycle().text(), percent);
}

void tst_AdvTriggerDialogPwm::switchingOnWithoutFrequencyFillsTheEditsFromTheTimer()
{
    showTimes(250.0, 750.0);
    group().setChecked(true);
    QCOMPARE(frequency().text(), QString("1000"));
    QCOMPARE(dutyCycle().text(), QString("25"));
    QVERIFY(timerWrites().filter("Float").isEmpty());
}

void tst_AdvTriggerDialogPwm::switchingOnWithAFrequencyPushesItToTheTimer()
{
    frequency().setText("1000");
    dutyCycle().setText("25");
    group().setChecked(true);
    QCOMPARE(timerWrites(),
             (QStringList{"SetFloatValue TimerDuration=250", "SetFloatValue TimerDelay=750",
                          "SetStringValue TimerTriggerSource=Timer0Active",
                          "SetStringValue TimerTriggerActivation=FallingEdge"}));
}

void tst_AdvTriggerDialogPwm::switchingOnMakesTheTimerRetriggerItself()
{
    built->find<QComboBox>("cmbTimerSelector")->setCurrentText("Timer1");
    built->camera->clearLog();
    group().setChecked(true);
    QCOMPARE(built->writes(), (QStringList{"SetStringValue TimerTriggerSource=Timer1Active",
                                           "SetStringValue TimerTriggerActivation=FallingEdge"}));
}

void tst_AdvTriggerDialogPwm::switchingOnTurnsThePresetToCustom()
{
    auto* box = built->find<QComboBox>("cmbSelectPreset");
    box->setCurrentIndex(2);
    group().setChecked(true);
    QCOMPARE(box->currentText(), QString("Custom"));
}

void tst_AdvTriggerDialogPwm::switchingOnWithoutThatEntryKeepsTheTrigger()
{
    for (auto& entry : built->feature("TimerTriggerSource").state().entries)
        entry.available = entry.name != "Timer0Active";
    built->content->report({"TimerTriggerSource"});
    built->camera->clearLog();
    group().setChecked(true);
    QCOMPARE(built->find<QComboBox>("cmbTimerTriggerSource")->currentText(), QString("Off"));
    QVERIFY(built->writes().filter("TimerTriggerSource").isEmpty());
}

void tst_AdvTriggerDialogPwm::switchingOffEmptiesBothEditsAndKeepsTheTrigger()
{
    showTimes(250.0, 750.0);
    group().setChecked(true);
    built->camera->clearLog();
    group().setChecked(false);
    QCOMPARE(frequency().text(), QString());
    QCOMPARE(dutyCycle().text(), QString());
    QVERIFY(built->writes().isEmpty());
    QCOMPARE(built->feature("TimerTriggerSource").state().text, std::string("Timer0Active"));
    QCOMPARE(built->feature("TimerTriggerActivation").state().text, std::string("FallingEdge"));
}

void tst_AdvTriggerDialogPwm::switchedOffTheEditsCannotWrite()
{
    group().setChecked(true);
    group().setChecked(false);
    built->camera->clearLog();
    for (QLineEdit* edit : {&frequency(), &dutyCycle()}) {
        edit->setText("50");
        QVERIFY(QMetaObject::invokeMethod(edit, "editingFinished"));
    }
    QVERIFY(built->camera->calls().empty());
}

void tst_AdvTriggerDialogPwm::switchingOnAgainListensToTheEdits()
{
    for (const bool on : {true, false, true})
        group().setChecked(on);
    built->camera->clearLog();
    frequency().setText("1000");
    dutyCycle().setText("25");
    for (QLineEdit* edit : {&frequency(), &dutyCycle()}) {
        QVERIFY(QMetaObject::invokeMethod(edit, "editingFinished"));
        QCOMPARE(timerWrites().last(), QString("SetFloatValue TimerDelay=750"));
        built->camera->clearLog();
    }
}

void tst_AdvTriggerDialogPwm::refreshRecomputesTheEditsInSilence_data()
{
    QTest::addColumn<QString>("hertz");
    QTest::addColumn<QString>("percent");
    QTest::newRow("TimerDuration") << "800"
                                   << "40";
    QTest::newRow("TimerDelay") << "4000"
                                << "100";
    QTest::newRow("TimerStatus") << "1000"
                                 << "25";
}

void tst_AdvTriggerDialogPwm::refreshRecomputesTheEditsInSilence()
{
    QFETCH(QString, hertz);
    QFETCH(QString, percent);
    showTimes(250.0, 750.0);
    group().setChecked(true);
    built->camera->clearLog();
    QSignalSpy frequencySpy(&frequency(), SIGNAL(textChanged(QString)));
    QSignalSpy dutyCycleSpy(&dutyCycle(), SIGNAL(textChanged(QString)));
    built->feature("TimerDuration").state().real = 500.0;
    built->feature("TimerDelay").state().real = 0.0;
    built->content->report({QTest::currentDataTag()});
    QCOMPARE(frequency().text(), hertz);
    QCOMPARE(dutyCycle().text(), percent);
    QCOMPARE(frequencySpy.count() + dutyCycleSpy.count(), 0);
    QVERIFY(timerWrites().isEmpty());
    frequency().setText("1");
    QCOMPARE(frequencySpy.count(), 1);
}

void tst_AdvTriggerDialogPwm::refreshRestoresTheBlockingOfBefore()
{
    group().setChecked(true);
    group().setChecked(false);
    built->content->report({"TimerDuration", "TimerDelay"});
    QVERIFY(frequency().signalsBlocked());
    QVERIFY(dutyCycle().signalsBlocked());
    group().setChecked(true);
    built->content->report({"TimerDuration", "TimerDelay"});
    QVERIFY(!frequency().signalsBlocked());
    QVERIFY(!dutyCycle().signalsBlocked());
}

void tst_AdvTriggerDialogPwm::typingFrequencyAndDutyCycleSetsTheTimer()
{
    unfold();
    type(frequency(), "1000");
    type(dutyCycle(), "25");
    QCOMPARE(built->feature("TimerDuration").state().real, 250.0);
    QCOMPARE(built->feature("TimerDelay").state().real, 750.0);
}

void tst_AdvTriggerDialogPwm::validatorLimits_data()
{
    QTest::addColumn<double>("top");
    QTest::newRow("txtPWMDutyCycle") << 100.0;
    QTest::newRow("txtPWMFrequency") << 1000000.0;
}

void tst_AdvTriggerDialogPwm::validatorLimits()
{
    QFETCH(double, top);
    const auto* edit = built->find<QLineEdit>(QTest::currentDataTag());
    const auto* validator = qobject_cast<const QDoubleValidator*>(edit->validator());
    QVERIFY(validator != nullptr);
    QCOMPARE(validator->bottom(), 0.0);
    QCOMPARE(validator->top(), top);
    QCOMPARE(validator->decimals(), 2);
    QCOMPARE(validator->parent(), static_cast<QObject*>(built->content));
    // What it accepts is parsed in C notation.
    QCOMPARE(validator->locale().language(), QLocale::C);
}

void tst_AdvTriggerDialogPwm::typing150PercentIsRefused()
{
    unfold();
    type(dutyCycle(), "150");
    QVERIFY(!dutyCycle().hasAcceptableInput());
    QVERIFY(built->camera->calls().empty());
    // Leaving the field does not finish its editing either.
    frequency().setFocus();
    QVERIFY(built->camera->calls().empty());
}

void tst_AdvTriggerDialogPwm::typingAbove1000000HertzIsRefused()
{
    unfold();
    type(frequency(), "1000001");
    QVERIFY(!frequency().hasAcceptableInput());
    QVERIFY(built->camera->calls().empty());
    dutyCycle().setFocus();
    QVERIFY(built->camera->calls().empty());
    // Nor does finishing the other field write it.
    type(dutyCycle(), "50");
    QVERIFY(built->camera->calls().empty());
    type(frequency(), "1000");
    QCOMPARE(built->camera->callCount("SetFloatValue", "TimerDuration"), 1);
}

QTEST_MAIN(tst_AdvTriggerDialogPwm)
#include "tst_AdvTriggerDialogPwm.moc"
