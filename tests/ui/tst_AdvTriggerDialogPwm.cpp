// The PWM calculator: frequency and duty cycle to the timer's two times, and back.
#include "tests/support/Rows.h"
#include "tests/ui/DialogUnderTest.h"

#include <QDoubleValidator>
#include <QSignalSpy>

class tst_AdvTriggerDialogPwm : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        // On the preset "Custom", which an edit then does not have to select.
        m_built = std::make_unique<DialogOnCamera>(cameraOfPresetFamily(), 0);
        for (const char* feature : {"TimerDuration", "TimerDelay"})
            for (const char* timer : {"Timer0", "Timer1"})
                m_built->feature(feature).stateFor(timer).maxReal = 1e8;
        m_built->showAndSettle();
    }
    void cleanup() { m_built.reset(); }
    void writesDurationThenDelay_data();
    void writesDurationThenDelay();
    void fullDutyCycleLeavesNoDelayAtAnyFrequency();
    void unusableInputWritesNothing_data();
    void unusableInputWritesNothing();
    void failedWritesAreNotReported();
    void addressesTheSelectedTimer();
    void showsFrequencyAndDutyCycle_data();
    void showsFrequencyAndDutyCycle();
    void offTheSpinBoxesLeaveTheEditsUntouched();
    void onTheSpinBoxesAreFollowed_data()
    {
        columns<QString, double, QStringList>("box", "value", "expected");
        row("delay", "spbTimerDelay", 250.0, QStringList{"2000", "50"});
        row("duration", "spbTimerDuration", 50.0, QStringList{"1250", "6.25"});
    }
    void onTheSpinBoxesAreFollowed();
    void switchingOnWithoutFrequencyFillsTheEditsFromTheTimer();
    void switchingOnWithAFrequencyPushesItToTheTimer();
    void switchingOnMakesTheTimerRetriggerItself();
    void switchingOnTurnsThePresetToCustom();
    void switchingOnWithoutThatEntryKeepsTheTrigger();
    void switchingOffEmptiesBothEditsAndKeepsTheTrigger();
    void switchedOffTheEditsCannotWrite();
    void switchingOnAgainListensToTheEdits();
    void refreshRecomputesTheEditsInSilence_data()
    {
        columns<QStringList>("expected");
        row("TimerDuration", QStringList{"800", "40"});
        row("TimerDelay", QStringList{"4000", "100"});
        row("TimerStatus", QStringList{"1000", "25"});
    }
    void refreshRecomputesTheEditsInSilence();
    void refreshRestoresTheBlockingOfBefore();
    void typingFrequencyAndDutyCycleSetsTheTimer();
    void validatorLimits_data()
    {
        columns<double>("top");
        row("txtPWMDutyCycle", 100.0);
        row("txtPWMFrequency", 1000000.0);
    }
    void validatorLimits();
    void numberTypedBeyondTheTopIsRefused_data()
    {
        columns<QString, QString>("beyond", "usual");
        row("txtPWMDutyCycle", "150", "25");
        row("txtPWMFrequency", "1000001", "1000");
    }
    void numberTypedBeyondTheTopIsRefused();

private:
    QLineEdit& frequency() const { return *m_built->find<QLineEdit>("txtPWMFrequency"); }
    QLineEdit& dutyCycle() const { return *m_built->find<QLineEdit>("txtPWMDutyCycle"); }
    QGroupBox& group() const { return *m_built->find<QGroupBox>("grpPWM"); }
    QStringList timerWrites() const { return m_built->writes().filter("Value Timer"); }
    QStringList entered() const { return {frequency().text(), dutyCycle().text()}; }
    void enter(const QString& hertz, const QString& percent) const
    {
        frequency().setText(hertz);
        dutyCycle().setText(percent);
    }
    void calculate(const QString& hertz, const QString& percent) const
    {
        enter(hertz, percent);
        m_built->content->calculatePWM();
    }
    /// Has the camera report these times for the selected timer.
    void showTimes(double high, double low) const
    {
        m_built->feature("TimerDuration").state().real = high;
        m_built->feature("TimerDelay").state().real = low;
        m_built->content->report({"TimerDuration", "TimerDelay"});
        m_built->camera->clearLog();
    }
    /// Switches PWM on without what the switch does.
    void checkSilently() const
    {
        const QSignalBlocker silence(&group());
        group().setChecked(true);
    }
    /// Makes the fields reachable for the keyboard.
    void unfold() const
    {
        m_built->find<QAbstractButton>("btnConfigureCounterTimer")->click();
        group().setChecked(true);
        m_built->camera->clearLog();
    }
    static void type(QLineEdit& edit, const QString& text)
    {
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
    }

    PresetsFile m_presets{PresetsFile::fourPresets()};
    std::unique_ptr<DialogOnCamera> m_built;
};

void tst_AdvTriggerDialogPwm::writesDurationThenDelay_data()
{
    columns<QString, QString, QString, QString>("hertz", "percent", "high", "low");
    row("1000 Hz, 25 %", "1000", "25", "250", "750");
    row("3 Hz, 50 %", "3", "50", "166667", "166667");
    row("100 Hz, 100 %", "100", "100", "10000", "0");
    row("150 Hz, 50 %", "150", "50", "3333.33", "3333.33");
    row("0.405 Hz, 50 %", "0.405", "50", "1234570", "1234570");
    row("1e3 Hz, 2.5e1 %", "1e3", "2.5e1", "250", "750");
    // From the exact duration: 99 times 1428.57 would be 141428.
    row("7 Hz, 1 %", "7", "1", "1428.57", "141429");
    row("1000000 Hz, 50 %", "1000000", "50", "0.5", "0.5");
}

void tst_AdvTriggerDialogPwm::writesDurationThenDelay()
{
    QFETCH(QString, hertz);
    QFETCH(QString, percent);
    QFETCH(QString, high);
    QFETCH(QString, low);
    calculate(hertz, percent);
    QCOMPARE(m_built->writes(), (QStringList{"SetFloatValue TimerDuration=" + high,
                                             "SetFloatValue TimerDelay=" + low}));
}

void tst_AdvTriggerDialogPwm::fullDutyCycleLeavesNoDelayAtAnyFrequency()
{
    Fake::State& delayOfTimer = m_built->feature("TimerDelay").state();
    QStringList frequenciesWithDelay;
    for (int hertz = 1; hertz <= 2000; ++hertz) {
        delayOfTimer.real = 5;
        calculate(QString::number(hertz), "100");
        if (delayOfTimer.real != 0.0)
            frequenciesWithDelay.append(QString::number(hertz));
    }
    QCOMPARE(frequenciesWithDelay, QStringList());
}

void tst_AdvTriggerDialogPwm::unusableInputWritesNothing_data()
{
    columns<QString, QString>("hertz", "percent");
    row("both empty", "", "");
    row("no frequency", "", "25");
    row("no duty cycle", "1000", "");
    row("frequency zero", "0", "25");
    row("duty cycle zero", "1000", "0");
    row("negative frequency", "-1000", "25");
    row("negative duty cycle", "1000", "-25");
    row("frequency no number", "fast", "25");
    row("duty cycle no number", "1000", "half");
    row("group separators", "1,000.0", "25");
    row("not a number", "nan", "25");
    row("frequency beyond all numbers", "1e400", "25");
    row("duty cycle beyond all numbers", "1000", "1e400");
}

void tst_AdvTriggerDialogPwm::unusableInputWritesNothing()
{
    QFETCH(QString, hertz);
    QFETCH(QString, percent);
    calculate(hertz, percent);
    QVERIFY(m_built->camera->calls().empty());
}

void tst_AdvTriggerDialogPwm::failedWritesAreNotReported()
{
    m_built->camera->failCall("SetFloatValue", "TimerDuration");
    calculate("1000", "25");
    QCOMPARE(timerWrites().last(), QString("SetFloatValue TimerDelay=750"));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void tst_AdvTriggerDialogPwm::addressesTheSelectedTimer()
{
    m_built->find<QComboBox>("cmbTimerSelector")->setCurrentText("Timer1");
    calculate("1000", "25");
    QCOMPARE(m_built->feature("TimerDuration").stateFor("Timer1").real, 250.0);
    QCOMPARE(m_built->feature("TimerDelay").stateFor("Timer1").real, 750.0);
    QCOMPARE(m_built->feature("TimerDuration").stateFor("Timer0").real, 1000.0);
}

void tst_AdvTriggerDialogPwm::showsFrequencyAndDutyCycle_data()
{
    columns<double, double, QStringList>("high", "low", "expected");
    row("250 and 750", 250.0, 750.0, QStringList{"1000", "25"});
    row("both 0", 0.0, 0.0, QStringList{"0", "0"});
    row("no delay", 100.0, 0.0, QStringList{"10000", "100"});
    row("no duration", 0.0, 100.0, QStringList{"10000", "0"});
    row("six digits", 100.0, 200.0, QStringList{"3333.33", "33.3333"});
    row("exponent", 0.25, 0.25, QStringList{"2e+06", "50"});
    row("slow", 5e7, 5e7, QStringList{"0.01", "50"});
}

void tst_AdvTriggerDialogPwm::showsFrequencyAndDutyCycle()
{
    QFETCH(double, high);
    QFETCH(double, low);
    showTimes(high, low);
    checkSilently();
    m_built->content->reverseCalcPWM();
    QTEST(entered(), "expected");
    QVERIFY(m_built->camera->calls().empty());
}

void tst_AdvTriggerDialogPwm::offTheSpinBoxesLeaveTheEditsUntouched()
{
    enter("12", "34");
    m_built->find<QDoubleSpinBox>("spbTimerDuration")->setValue(250.0);
    m_built->find<QDoubleSpinBox>("spbTimerDelay")->setValue(750.0);
    m_built->content->reverseCalcPWM();
    QCOMPARE(entered(), QStringList({"12", "34"}));
}

void tst_AdvTriggerDialogPwm::onTheSpinBoxesAreFollowed()
{
    QFETCH(QString, box);
    QFETCH(double, value);
    showTimes(250.0, 750.0);
    checkSilently();
    m_built->find<QDoubleSpinBox>(box)->setValue(value);
    QTEST(entered(), "expected");
}

void tst_AdvTriggerDialogPwm::switchingOnWithoutFrequencyFillsTheEditsFromTheTimer()
{
    showTimes(250.0, 750.0);
    group().setChecked(true);
    QCOMPARE(entered(), QStringList({"1000", "25"}));
    QVERIFY(timerWrites().filter("Float").isEmpty());
}

void tst_AdvTriggerDialogPwm::switchingOnWithAFrequencyPushesItToTheTimer()
{
    enter("1000", "25");
    group().setChecked(true);
    QCOMPARE(timerWrites(),
             (QStringList{"SetFloatValue TimerDuration=250", "SetFloatValue TimerDelay=750",
                          "SetStringValue TimerTriggerSource=Timer0Active",
                          "SetStringValue TimerTriggerActivation=FallingEdge"}));
}

void tst_AdvTriggerDialogPwm::switchingOnMakesTheTimerRetriggerItself()
{
    m_built->find<QComboBox>("cmbTimerSelector")->setCurrentText("Timer1");
    m_built->camera->clearLog();
    group().setChecked(true);
    QCOMPARE(m_built->writes(), (QStringList{"SetStringValue TimerTriggerSource=Timer1Active",
                                             "SetStringValue TimerTriggerActivation=FallingEdge"}));
}

void tst_AdvTriggerDialogPwm::switchingOnTurnsThePresetToCustom()
{
    auto* box = m_built->find<QComboBox>("cmbSelectPreset");
    box->setCurrentIndex(2);
    group().setChecked(true);
    QCOMPARE(box->currentText(), QString("Custom"));
}

void tst_AdvTriggerDialogPwm::switchingOnWithoutThatEntryKeepsTheTrigger()
{
    for (auto& entry : m_built->feature("TimerTriggerSource").state().entries)
        entry.available = entry.name != "Timer0Active";
    m_built->content->report({"TimerTriggerSource"});
    m_built->camera->clearLog();
    group().setChecked(true);
    QCOMPARE(m_built->find<QComboBox>("cmbTimerTriggerSource")->currentText(), QString("Off"));
    QVERIFY(m_built->writes().filter("TimerTriggerSource").isEmpty());
}

void tst_AdvTriggerDialogPwm::switchingOffEmptiesBothEditsAndKeepsTheTrigger()
{
    showTimes(250.0, 750.0);
    group().setChecked(true);
    m_built->camera->clearLog();
    group().setChecked(false);
    QCOMPARE(entered(), QStringList({"", ""}));
    QVERIFY(m_built->writes().isEmpty());
    QCOMPARE(m_built->feature("TimerTriggerSource").state().text, std::string("Timer0Active"));
    QCOMPARE(m_built->feature("TimerTriggerActivation").state().text, std::string("FallingEdge"));
}

void tst_AdvTriggerDialogPwm::switchedOffTheEditsCannotWrite()
{
    group().setChecked(true);
    group().setChecked(false);
    m_built->camera->clearLog();
    for (QLineEdit* edit : {&frequency(), &dutyCycle()}) {
        edit->setText("50");
        QVERIFY(QMetaObject::invokeMethod(edit, "editingFinished"));
    }
    QVERIFY(m_built->camera->calls().empty());
}

void tst_AdvTriggerDialogPwm::switchingOnAgainListensToTheEdits()
{
    for (const bool on : {true, false, true})
        group().setChecked(on);
    m_built->camera->clearLog();
    enter("1000", "25");
    for (QLineEdit* edit : {&frequency(), &dutyCycle()}) {
        QVERIFY(QMetaObject::invokeMethod(edit, "editingFinished"));
        QCOMPARE(timerWrites().last(), QString("SetFloatValue TimerDelay=750"));
        m_built->camera->clearLog();
    }
}

void tst_AdvTriggerDialogPwm::refreshRecomputesTheEditsInSilence()
{
    showTimes(250.0, 750.0);
    group().setChecked(true);
    m_built->camera->clearLog();
    QSignalSpy frequencySpy(&frequency(), SIGNAL(textChanged(QString)));
    QSignalSpy dutyCycleSpy(&dutyCycle(), SIGNAL(textChanged(QString)));
    m_built->feature("TimerDuration").state().real = 500.0;
    m_built->feature("TimerDelay").state().real = 0.0;
    m_built->content->report({QTest::currentDataTag()});
    QTEST(entered(), "expected");
    QCOMPARE(frequencySpy.count() + dutyCycleSpy.count(), 0);
    QVERIFY(timerWrites().isEmpty());
    frequency().setText("1");
    QCOMPARE(frequencySpy.count(), 1);
}

void tst_AdvTriggerDialogPwm::refreshRestoresTheBlockingOfBefore()
{
    group().setChecked(true);
    for (const bool on : {false, true}) {
        group().setChecked(on);
        m_built->content->report({"TimerDuration", "TimerDelay"});
        QCOMPARE(frequency().signalsBlocked(), !on);
        QCOMPARE(dutyCycle().signalsBlocked(), !on);
    }
}

void tst_AdvTriggerDialogPwm::typingFrequencyAndDutyCycleSetsTheTimer()
{
    unfold();
    type(frequency(), "1000");
    type(dutyCycle(), "25");
    QCOMPARE(m_built->feature("TimerDuration").state().real, 250.0);
    QCOMPARE(m_built->feature("TimerDelay").state().real, 750.0);
}

void tst_AdvTriggerDialogPwm::validatorLimits()
{
    QFETCH(double, top);
    const auto* edit = m_built->find<QLineEdit>(QTest::currentDataTag());
    const auto* validator = qobject_cast<const QDoubleValidator*>(edit->validator());
    QVERIFY(validator != nullptr);
    QCOMPARE(validator->bottom(), 0.0);
    QCOMPARE(validator->top(), top);
    QCOMPARE(validator->decimals(), 2);
    QCOMPARE(validator->parent(), static_cast<QObject*>(m_built->content));
    // What it accepts is parsed in C notation.
    QCOMPARE(validator->locale().language(), QLocale::C);
}

void tst_AdvTriggerDialogPwm::numberTypedBeyondTheTopIsRefused()
{
    QFETCH(QString, beyond);
    QFETCH(QString, usual);
    auto& edit = *m_built->find<QLineEdit>(QTest::currentDataTag());
    QLineEdit& other = &edit == &frequency() ? dutyCycle() : frequency();
    unfold();
    type(edit, beyond);
    QVERIFY(!edit.hasAcceptableInput());
    QVERIFY(m_built->camera->calls().empty());
    // Leaving the field does not finish its editing either.
    other.setFocus();
    QVERIFY(m_built->camera->calls().empty());
    // Nor does finishing the other field write it.
    type(other, "50");
    QVERIFY(m_built->camera->calls().empty());
    type(edit, usual);
    QCOMPARE(m_built->camera->callCount("SetFloatValue", "TimerDuration"), 1);
}

QTEST_MAIN(tst_AdvTriggerDialogPwm)
#include "tst_AdvTriggerDialogPwm.moc"
