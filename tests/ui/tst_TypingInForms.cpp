// Numbers typed into the fields of tab and dialog: with a comma, on foreign desktops, and while the
// camera reports changes.
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/TabUnderTest.h"

#include <QClipboard>
#include <QDoubleValidator>
#include <QGuiApplication>
#include <QLocale>
#include <QSignalSpy>

namespace {

const QStringList Desktops = {"en_US", "de_DE", "fr_FR", "sv_SE", "de_CH", "ar_EG"};

QLineEdit& textOf(QWidget& field)
{
    auto* edit = qobject_cast<QLineEdit*>(&field);
    return edit ? *edit : *field.findChild<QLineEdit*>();
}

void type(QWidget& field, const QString& text)
{
    field.setFocus();
    textOf(field).selectAll();
    QTest::keyClicks(&field, text);
}

void paste(QWidget& field, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    field.setFocus();
    textOf(field).selectAll();
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

} // namespace

class tst_TypingInForms : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void commaActsAsThePointInTheTab_data() { everyDesktop(); }
    void commaActsAsThePointInTheTab();
    void commaActsAsThePointInTheDialog_data() { everyDesktop(); }
    void commaActsAsThePointInTheDialog();
    void commaIsWrittenAsThePoint_data() { everyDesktop(); }
    void commaIsWrittenAsThePoint();
    void wholeNumbersTakeNoComma_data() { everyDesktop(); }
    void wholeNumbersTakeNoComma();
    void groupsAreRefusedWhole_data() { everyDesktop(); }
    void groupsAreRefusedWhole();
    void numbersAreShownInEnglish_data() { everyDesktop(); }
    void numbersAreShownInEnglish();
    void pwmInputIsTheSameOnEveryDesktop_data() { everyDesktop(); }
    void pwmInputIsTheSameOnEveryDesktop();
    void refusedPasteLeavesLongDecimalsAlone_data();
    void refusedPasteLeavesLongDecimalsAlone();
    void longDecimalsCanBeEdited();
    void pwmIsSetByNumbersWithCommas_data() { everyDesktop(); }
    void pwmIsSetByNumbersWithCommas();

    void polledDelayCanBeTyped();
    void halfTypedPwmIsLeftAlone_data();
    void halfTypedPwmIsLeftAlone();
    void escapeShowsTheTimersPulse();
    void escapeClosesTheDialogOnceNothingIsTyped_data();
    void escapeClosesTheDialogOnceNothingIsTyped();

private:
    static void everyDesktop();
    /// On the desktop that the row is named after.
    static void goAbroad() { QLocale::setDefault(QLocale(QTest::currentDataTag())); }
    void openDialog();
    /// Has the timer run with a duty cycle of a third, which shows more decimals than may be typed.
    void showAThird();
    QWidget& field(const char* name) const { return *m_dialog->find(name); }

    PresetsFile m_presets{PresetsFile::fourPresets()};
    std::unique_ptr<DialogOnCamera> m_dialog;
};

void tst_TypingInForms::cleanup()
{
    m_dialog.reset();
    QLocale::setDefault(QLocale::c());
}

void tst_TypingInForms::everyDesktop()
{
    QTest::addColumn<bool>("unused");
    for (const QString& desktop : Desktops)
        QTest::newRow(qPrintable(desktop)) << true;
}

/// With every section open and PWM on, on the preset "Custom", which an edit does not have to
/// select.
void tst_TypingInForms::openDialog()
{
    m_dialog = std::make_unique<DialogOnCamera>(cameraOfPresetFamily(), 0);
    m_dialog->showAndSettle();
    for (QAbstractButton* button : m_dialog->content->findChildren<QAbstractButton*>())
        if (button->inherits("CollapsingButton"))
            button->click();
    m_dialog->find<QGroupBox>("grpPWM")->setChecked(true);
    m_dialog->camera->clearLog();
}

void tst_TypingInForms::commaActsAsThePointInTheTab()
{
    goAbroad();
    TabOnCamera shown;
    shown.showAndSettle();
    QWidget& delay = *shown.find("spbTriggerDelay");
    type(delay, "2,5");
    QCOMPARE(textOf(delay).text(), QString("2.5"));
    QTest::keyClick(&delay, Qt::Key_Return);
    QCOMPARE(settingsWritten(*shown.camera), QStringList("SetFloatValue TriggerDelay=2.5"));
    QCOMPARE(textOf(delay).text(), QString("2.50"));
}

void tst_TypingInForms::commaActsAsThePointInTheDialog()
{
    goAbroad();
    openDialog();
    for (const char* name :
         {"spbTriggerDelay", "spbCounterDuration", "spbCounterValue", "spbTimerDuration",
          "spbTimerDelay", "spbLine0_LineDebounceDuration", "spbLine3_LineDebounceDuration",
          "txtPWMFrequency", "txtPWMDutyCycle"}) {
        type(field(name), "2,5");
        QVERIFY2(field(name).hasFocus(), name);
        QVERIFY2(textOf(field(name)).text() == "2.5", name);
        QTest::keyClick(&field(name), Qt::Key_Escape);
    }
    QVERIFY(m_dialog->window.isVisible());
}

void tst_TypingInForms::commaIsWrittenAsThePoint()
{
    goAbroad();
    openDialog();
    type(field("spbTimerDelay"), "2,5");
    QTest::keyClick(&field("spbTimerDelay"), Qt::Key_Return);
    QCOMPARE(m_dialog->writes(), QStringList("SetFloatValue TimerDelay=2.5"));
}

void tst_TypingInForms::wholeNumbersTakeNoComma()
{
    goAbroad();
    openDialog();
    for (const char* name : {"spbAcquisitionFrameCount", "spbActionSelector"}) {
        const QString before = textOf(field(name)).text();
        for (const char* typed : {"2,5", "2.5", "1,000"}) {
            type(field(name), typed);
            QTest::keyClick(&field(name), Qt::Key_Return);
            QVERIFY2(textOf(field(name)).text() == before, name);
            paste(field(name), typed);
            QVERIFY2(textOf(field(name)).text() == before, name);
        }
    }
    QCOMPARE(m_dialog->writes(), QStringList());
}

void tst_TypingInForms::groupsAreRefusedWhole()
{
    goAbroad();
    openDialog();
    for (const char* name : {"spbTriggerDelay", "spbTimerDuration", "spbLine0_LineDebounceDuration",
                             "txtPWMFrequency", "txtPWMDutyCycle"}) {
        const QString before = textOf(field(name)).text();
        for (const char* groups : {"1,234.5", "1.234,5", "1 234", "1\u202f234", "1'234"}) {
            paste(field(name), QString::fromUtf8(groups));
            QVERIFY2(textOf(field(name)).text() == before, name);
        }
    }
}

void tst_TypingInForms::numbersAreShownInEnglish()
{
    goAbroad();
    openDialog();
    m_dialog->feature("TriggerDelay").state().real = 1234.5;
    m_dialog->feature("LineDebounceDuration").stateFor("Line0").real = 0.25;
    m_dialog->feature("TimerDuration").state().real = 1.0;
    m_dialog->feature("TimerDelay").state().real = 2.0;
    m_dialog->content->report(
        {"TriggerDelay", "LineDebounceDuration", "TimerDelay", "TimerDuration"});
    QCOMPARE(textOf(field("spbTriggerDelay")).text(), QString("1234.50"));
    QCOMPARE(textOf(field("spbLine0_LineDebounceDuration")).text(), QString("0.250000"));
    QCOMPARE(textOf(field("txtPWMFrequency")).text(), QString("333333"));
    QCOMPARE(textOf(field("txtPWMDutyCycle")).text(), QString("33.3333"));
}

void tst_TypingInForms::pwmInputIsTheSameOnEveryDesktop()
{
    goAbroad();
    openDialog();
    const QMap<QString, QValidator::State> judgements = {
        {"", QValidator::Intermediate},        {"2.5", QValidator::Acceptable},
        {"2,5", QValidator::Acceptable},       {"100", QValidator::Acceptable},
        {"2.555", QValidator::Invalid},        {"2,555", QValidator::Invalid},
        {"1,234.5", QValidator::Invalid},      {"1.234,5", QValidator::Invalid},
        {"1 000", QValidator::Invalid},        {"-1", QValidator::Invalid},
        {"1000001", QValidator::Intermediate}, {"1e2", QValidator::Acceptable}};
    for (const char* name : {"txtPWMFrequency", "txtPWMDutyCycle"}) {
        const QValidator* validator = textOf(field(name)).validator();
        for (auto it = judgements.begin(); it != judgements.end(); ++it) {
            QString text = it.key();
            int position = text.size();
            QVERIFY2(validator->validate(text, position) == it.value(),
                     qPrintable(name + QString(": ") + it.key()));
        }
    }
}

void tst_TypingInForms::showAThird()
{
    m_dialog->feature("TimerDuration").state().real = 1.0;
    m_dialog->feature("TimerDelay").state().real = 2.0;
    m_dialog->content->report({"TimerDelay", "TimerDuration"});
    QCOMPARE(textOf(field("txtPWMDutyCycle")).text(), QString("33.3333"));
    m_dialog->camera->clearLog();
}

void tst_TypingInForms::refusedPasteLeavesLongDecimalsAlone_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* pasted : {"1 234", "1,234.5", "1'234", "abc", "-5", "2 %"})
        QTest::newRow(pasted) << true;
}

void tst_TypingInForms::refusedPasteLeavesLongDecimalsAlone()
{
    openDialog();
    showAThird();
    QLineEdit& dutyCycle = textOf(field("txtPWMDutyCycle"));
    paste(dutyCycle, QTest::currentDataTag());
    QCOMPARE(dutyCycle.text(), QString("33.3333"));
    // Also beside what stands there.
    dutyCycle.end(false);
    dutyCycle.insert(QString(" ") + QTest::currentDataTag());
    QCOMPARE(dutyCycle.text(), QString("33.3333"));
    QTest::keyClick(&dutyCycle, Qt::Key_Return);
    QCOMPARE(m_dialog->writes(), QStringList());
}

void tst_TypingInForms::longDecimalsCanBeEdited()
{
    openDialog();
    showAThird();
    QLineEdit& dutyCycle = textOf(field("txtPWMDutyCycle"));
    dutyCycle.setFocus();
    dutyCycle.end(false);
    QTest::keyClick(&dutyCycle, Qt::Key_Backspace);
    QCOMPARE(dutyCycle.text(), QString("33.333"));
    QTest::keyClick(&dutyCycle, Qt::Key_Backspace);
    QTest::keyClick(&dutyCycle, Qt::Key_Return);
    QCOMPARE(m_dialog->writes().size(), 2);
    showAThird();
    paste(dutyCycle, "12,5");
    QCOMPARE(dutyCycle.text(), QString("12.5"));
}

void tst_TypingInForms::pwmIsSetByNumbersWithCommas()
{
    goAbroad();
    openDialog();
    type(field("txtPWMFrequency"), "2000,5");
    type(field("txtPWMDutyCycle"), "12,5");
    QTest::keyClick(&field("txtPWMDutyCycle"), Qt::Key_Return);
    QCOMPARE(m_dialog->feature("TimerDuration").state().real, 62.4844);
    QCOMPARE(m_dialog->feature("TimerDelay").state().real, 437.391);
}

void tst_TypingInForms::polledDelayCanBeTyped()
{
    TabOnCamera shown;
    shown.showAndSettle();
    QWidget& delay = *shown.find("spbTriggerDelay");
    delay.setFocus();
    textOf(delay).selectAll();
    double measured = 100.0;
    for (const char key : QByteArray("12,5")) {
        QTest::keyClick(&delay, key);
        (*shown.camera)["TriggerDelay"].state().real = ++measured;
        *shown.tab.m_changedFeatures = QStringList("TriggerDelay");
        shown.tab.tick();
    }
    QCOMPARE(textOf(delay).text(), QString("12.5"));
    shown.camera->clearLog();
    QTest::keyClick(&delay, Qt::Key_Return);
    QCOMPARE(settingsWritten(*shown.camera), QStringList("SetFloatValue TriggerDelay=12.5"));
}

void tst_TypingInForms::halfTypedPwmIsLeftAlone_data()
{
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("txtPWMFrequency")
        << "txtPWMDutyCycle"
        << "25"
        << QStringList{"SetFloatValue TimerDuration=10000", "SetFloatValue TimerDelay=30000"};
    QTest::newRow("txtPWMDutyCycle")
        << "txtPWMFrequency"
        << "1000" << QStringList{"SetFloatValue TimerDuration=250", "SetFloatValue TimerDelay=750"};
}

void tst_TypingInForms::halfTypedPwmIsLeftAlone()
{
    QFETCH(QString, other);
    const char* name = QTest::currentDataTag();
    openDialog();
    type(field(name), "2");
    m_dialog->feature("TimerDuration").state().real = 250.0;
    m_dialog->feature("TimerDelay").state().real = 750.0;
    m_dialog->content->report({"TimerDuration", "TimerDelay"});
    QCOMPARE(textOf(field(name)).text(), QString("2"));
    QTEST(textOf(*m_dialog->find(other)).text(), "shown");
    QTest::keyClicks(&field(name), "5");
    m_dialog->camera->clearLog();
    QTest::keyClick(&field(name), Qt::Key_Return);
    QTEST(m_dialog->writes(), "written");
}

void tst_TypingInForms::escapeShowsTheTimersPulse()
{
    openDialog();
    type(field("txtPWMFrequency"), "2");
    m_dialog->feature("TimerDuration").state().real = 250.0;
    m_dialog->feature("TimerDelay").state().real = 750.0;
    m_dialog->content->report({"TimerDuration", "TimerDelay"});
    m_dialog->camera->clearLog();
    QTest::keyClick(&field("txtPWMFrequency"), Qt::Key_Escape);
    QCOMPARE(textOf(field("txtPWMFrequency")).text(), QString("1000"));
    QCOMPARE(m_dialog->writes(), QStringList());
}

void tst_TypingInForms::escapeClosesTheDialogOnceNothingIsTyped_data()
{
    QTest::addColumn<bool>("unused");
    for (const char* name :
         {"spbTriggerDelay", "spbAcquisitionFrameCount", "spbLine0_LineDebounceDuration",
          "spbTimerDelay", "txtPWMFrequency", "txtPWMDutyCycle"})
        QTest::newRow(name) << true;
}

void tst_TypingInForms::escapeClosesTheDialogOnceNothingIsTyped()
{
    openDialog();
    QWidget& typed = field(QTest::currentDataTag());
    const QString before = textOf(typed).text();
    QSignalSpy closed(&m_dialog->window, SIGNAL(rejected()));
    type(typed, "12");
    QTest::keyClick(&typed, Qt::Key_Escape);
    QCOMPARE(closed.count(), 0);
    QCOMPARE(textOf(typed).text(), before);
    QVERIFY(typed.hasFocus());
    QCOMPARE(m_dialog->writes(), QStringList());
    QTest::keyClick(&typed, Qt::Key_Escape);
    QCOMPARE(closed.count(), 1);
}

QTEST_MAIN(tst_TypingInForms)
#include "tst_TypingInForms.moc"
