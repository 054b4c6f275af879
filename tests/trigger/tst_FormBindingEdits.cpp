// From a user's edit to the camera, and the camera's answer back into the widget.
#include "tests/support/LogCapture.h"
#include "tests/trigger/PlainForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

/// Sends what form widgets send without being of any of their classes.
class Impostor : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
signals:
    void text(const QString& text);
    void finished();
    void number(int value);
    void real(double value);
};

class tst_FormBindingEdits : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void comboBoxWritesItsText();
    void comboBoxShowsWhatTheCameraTook();
    void comboBoxKeepsItsTextWhenTheCameraReadsNothing();
    void spinBoxWritesAndShowsWhatTheCameraTook();
    void spinBoxTruncatesWhatTheCameraTook();
    void doubleSpinBoxWritesAndShowsWhatTheCameraTook();
    void checkedBoxWritesTwo();
    void uncheckedBoxWritesZero();
    void checkBoxShowsWhatTheCameraTook();
    void checkBoxOfABooleanFeature();
    void lineEditWritesADecimalNumber();
    void lineEditShowsEveryDigitTheCameraTook();
    void clearedLineEditWritesZero();
    void hexadecimalEntryCountsAsZero();
    void lineEditOfATextWritesNothing_data();
    void lineEditOfATextWritesNothing();
    void unreadableLineEditKeepsItsText();
    void refusedWriteIsNoError();

    void answerCausesNoSecondChange();
    void signalsFlowAgainAfterAnEdit();
    void everyEditSwitchesToTheCustomPreset();
    void customPresetFollowsTheWrite();
    void deletedWidgetLeavesTheOthersWorking();

    void commandRuns();
    void commandRunsForAnySender();
    void failedCommandIsLogged();

    void senderOfTheWrongClassIsLogged_data();
    void senderOfTheWrongClassIsLogged();

private:
    template <class Widget> Widget& bind(const QString& objectName)
    {
        m_form = std::make_unique<PlainForm>(*m_camera);
        auto& widget = m_form->add<Widget>(objectName);
        m_form->bind();
        m_camera->clearLog();
        return widget;
    }
    static void enter(QLineEdit& edit, const QString& text);
    static QStringList warnings(const LogCapture& log);

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<PlainForm> m_form;
};

void tst_FormBindingEdits::init()
{
    m_camera = std::make_unique<Fake::FakeCamera>();
    m_camera->addEnum("Mode", {"Off", "On"}, "Off");
    m_camera->addInteger("Number", 5, 0, 1000);
    m_camera->addFloat("Real", 5.0, 0.0, 1000.0);
    m_camera->addBool("Flag", false);
    m_camera->addString("Name", "camera");
    m_camera->addCommand("Run");
}

void tst_FormBindingEdits::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_FormBindingEdits::enter(QLineEdit& edit, const QString& text)
{
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
}

QStringList tst_FormBindingEdits::warnings(const LogCapture& log)
{
    return log.lines().filter("/warning ");
}

void tst_FormBindingEdits::comboBoxWritesItsText()
{
    auto& box = bind<QComboBox>("cmbMode");
    box.setCurrentText("On");
    QCOMPARE(writesOf(*m_camera), QStringList("SetStringValue Mode=On"));
    QCOMPARE(box.currentText(), QString("On"));
}

void tst_FormBindingEdits::comboBoxShowsWhatTheCameraTook()
{
    m_camera->find("Mode")->onWrite = [](Fake::FakeFeature& mode) { mode.state().text = "Off"; };
    auto& box = bind<QComboBox>("cmbMode");
    box.setCurrentText("On");
    QCOMPARE(box.currentText(), QString("Off"));
    QCOMPARE(writesOf(*m_camera).size(), 1);
}

void tst_FormBindingEdits::comboBoxKeepsItsTextWhenTheCameraReadsNothing()
{
    auto& box = bind<QComboBox>("cmbMode");
    m_camera->failCall("GetStringValue", "Mode");
    box.setCurrentText("On");
    QCOMPARE(box.currentText(), QString("On"));
}

void tst_FormBindingEdits::spinBoxWritesAndShowsWhatTheCameraTook()
{
    m_camera->find("Number")->onWrite = [](Fake::FakeFeature& it) { it.state().integer = 8; };
    auto& box = bind<QSpinBox>("spbNumber");
    box.setValue(9);
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=9"));
    QCOMPARE(box.value(), 8);
}

void tst_FormBindingEdits::spinBoxTruncatesWhatTheCameraTook()
{
    m_camera->find("Real")->onWrite = [](Fake::FakeFeature& it) { it.state().real = 8.9; };
    auto& box = bind<QSpinBox>("spbReal");
    box.setValue(9);
    QCOMPARE(box.value(), 8);
}

void tst_FormBindingEdits::doubleSpinBoxWritesAndShowsWhatTheCameraTook()
{
    m_camera->find("Real")->onWrite = [](Fake::FakeFeature& it) { it.state().real = 8.25; };
    auto& box = bind<QDoubleSpinBox>("spbReal");
    box.setValue(9.5);
    QCOMPARE(writesOf(*m_camera), QStringList("SetFloatValue Real=9.5"));
    QCOMPARE(box.value(), 8.25);
}

void tst_FormBindingEdits::checkedBoxWritesTwo()
{
    m_camera->find("Number")->state().integer = 0;
    auto& box = bind<QCheckBox>("chkNumber");
    box.setChecked(true);
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=2"));
    QVERIFY(box.isChecked());
}

void tst_FormBindingEdits::uncheckedBoxWritesZero()
{
    auto& box = bind<QCheckBox>("chkReal");
    box.setChecked(false);
    QCOMPARE(writesOf(*m_camera), QStringList("SetFloatValue Real=0"));
    QVERIFY(!box.isChecked());
}

void tst_FormBindingEdits::checkBoxShowsWhatTheCameraTook()
{
    m_camera->find("Flag")->onWrite = [](Fake::FakeFeature& it) { it.state().boolean = false; };
    auto& box = bind<QCheckBox>("chkFlag");
    box.setChecked(true);
    QVERIFY(!box.isChecked());
    QCOMPARE(writesOf(*m_camera), QStringList("SetBoolValue Flag=true"));
}

void tst_FormBindingEdits::checkBoxOfABooleanFeature()
{
    auto& box = bind<QCheckBox>("chkFlag");
    box.setChecked(true);
    box.setChecked(false);
    QCOMPARE(writesOf(*m_camera),
             QStringList({"SetBoolValue Flag=true", "SetBoolValue Flag=false"}));
}

void tst_FormBindingEdits::lineEditWritesADecimalNumber()
{
    auto& edit = bind<QLineEdit>("txtReal");
    enter(edit, "12.5");
    QCOMPARE(writesOf(*m_camera), QStringList("SetFloatValue Real=12.5"));
    QCOMPARE(edit.text(), QString("12.5"));
}

void tst_FormBindingEdits::lineEditShowsEveryDigitTheCameraTook()
{
    m_camera->find("Number")->state().maxInteger = 4294967295LL;
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "4294967295");
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=4294967295"));
    QCOMPARE(edit.text(), QString("4294967295"));
}

void tst_FormBindingEdits::clearedLineEditWritesZero()
{
    m_camera->find("Number")->state().minInteger = 3;
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "");
    // 0 is below the feature's minimum.
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=3"));
    QCOMPARE(edit.text(), QString("3"));
}

void tst_FormBindingEdits::hexadecimalEntryCountsAsZero()
{
    m_camera->find("Number")->representation = "HexNumber";
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "0x1F");
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=0"));
    QCOMPARE(edit.text(), QString("0"));
}

void tst_FormBindingEdits::lineEditOfATextWritesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("letters") << "other"
                             << "0";
    QTest::newRow("number") << "12"
                            << "12";
}

void tst_FormBindingEdits::lineEditOfATextWritesNothing()
{
    QFETCH(QString, text);
    auto& edit = bind<QLineEdit>("txtName");
    enter(edit, text);
    QCOMPARE(writesOf(*m_camera), QStringList());
    QTEST(edit.text(), "shown");
}

void tst_FormBindingEdits::unreadableLineEditKeepsItsText()
{
    m_camera->find("Number")->state().readable = false;
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "0012");
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=12"));
    QCOMPARE(edit.text(), QString("0012"));
}

void tst_FormBindingEdits::refusedWriteIsNoError()
{
    auto& box = bind<QSpinBox>("spbNumber");
    m_camera->failCall("SetIntegerValue", "Number");
    const LogCapture log;
    box.setValue(9);
    QCOMPARE(box.value(), 5);
    QCOMPARE(warnings(log), QStringList());
}

void tst_FormBindingEdits::answerCausesNoSecondChange()
{
    m_camera->find("Number")->onWrite = [](Fake::FakeFeature& it) { it.state().integer = 8; };
    auto& box = bind<QSpinBox>("spbNumber");
    const QSignalSpy changes(&box, SIGNAL(valueChanged(int)));
    box.setValue(9);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(writesOf(*m_camera).size(), 1);
}

void tst_FormBindingEdits::signalsFlowAgainAfterAnEdit()
{
    auto& box = bind<QSpinBox>("spbNumber");
    box.setValue(9);
    QVERIFY(!box.signalsBlocked());
    box.setValue(10);
    QCOMPARE(writesOf(*m_camera).size(), 2);
}

void tst_FormBindingEdits::everyEditSwitchesToTheCustomPreset()
{
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& combo = m_form->add<QComboBox>("cmbMode");
    auto& edit = m_form->add<QLineEdit>("txtNumber");
    auto& real = m_form->add<QDoubleSpinBox>("spbReal");
    auto& spin = m_form->add<QSpinBox>("spbNumber");
    auto& check = m_form->add<QCheckBox>("chkFlag");
    auto& button = m_form->add<QPushButton>("btnRun");
    m_form->bind();
    combo.setCurrentText("On");
    QCOMPARE(m_form->customPresets, 1);
    enter(edit, "7");
    QCOMPARE(m_form->customPresets, 2);
    real.setValue(7.0);
    QCOMPARE(m_form->customPresets, 3);
    spin.setValue(8);
    QCOMPARE(m_form->customPresets, 4);
    check.click();
    QCOMPARE(m_form->customPresets, 5);
    button.click();
    QCOMPARE(m_form->customPresets, 5);
}

void tst_FormBindingEdits::customPresetFollowsTheWrite()
{
    auto& box = bind<QSpinBox>("spbNumber");
    int presetsAtWrite = -1;
    m_camera->find("Number")->onWrite = [&](Fake::FakeFeature&) {
        presetsAtWrite = m_form->customPresets;
    };
    box.setValue(9);
    QCOMPARE(presetsAtWrite, 0);
    QCOMPARE(m_form->customPresets, 1);
}

void tst_FormBindingEdits::deletedWidgetLeavesTheOthersWorking()
{
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto* gone = &m_form->add<QSpinBox>("spbNumber");
    auto& left = m_form->add<QSpinBox>("spbNumber");
    m_form->bind();
    delete gone;
    m_camera->clearLog();
    left.setValue(9);
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=9"));
    m_camera->find("Number")->state().integer = 11;
    m_form->refresh({"Number"});
    QCOMPARE(left.value(), 11);
}

void tst_FormBindingEdits::commandRuns()
{
    auto& button = bind<QPushButton>("btnRun");
    const LogCapture log;
    button.click();
    QCOMPARE(writesOf(*m_camera), QStringList("RunCommand Run"));
    QCOMPARE(warnings(log), QStringList());
}

void tst_FormBindingEdits::commandRunsForAnySender()
{
    auto& sender = bind<Impostor>("xyzRun");
    connect(&sender, SIGNAL(finished()), m_form.get(), SLOT(buttonClicked()));
    emit sender.finished();
    QCOMPARE(writesOf(*m_camera), QStringList("RunCommand Run"));
}

void tst_FormBindingEdits::failedCommandIsLogged()
{
    auto& button = bind<QPushButton>("btnRun");
    m_camera->failCall("RunCommand", "Run");
    const LogCapture log;
    button.click();
    QCOMPARE(warnings(log), QStringList("default/warning Error executing command 'Run'"));
}

void tst_FormBindingEdits::senderOfTheWrongClassIsLogged_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    const auto row = [](const char* name, const char* signal, const char* slot) {
        QTest::newRow(name) << QByteArray(signal) << QByteArray(slot);
    };
    row("combo box", SIGNAL(text(QString)), SLOT(comboBoxEdited(QString)));
    row("line edit", SIGNAL(finished()), SLOT(lineEdited()));
    row("spin box", SIGNAL(number(int)), SLOT(spinBoxEdited(int)));
    row("double spin box", SIGNAL(real(double)), SLOT(doubleSpinBoxEdited(double)));
    row("check box", SIGNAL(number(int)), SLOT(checkBoxEdited(int)));
}

void tst_FormBindingEdits::senderOfTheWrongClassIsLogged()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    auto& sender = bind<Impostor>("xyzNumber");
    QVERIFY(connect(&sender, signal.constData(), m_form.get(), slot.constData()));
    const LogCapture log;
    emit sender.text("On");
    emit sender.finished();
    emit sender.number(2);
    emit sender.real(2.0);
    QCOMPARE(warnings(log), QStringList("default/warning Error accessing widget 'xyzNumber'"));
    QVERIFY(m_camera->calls().empty());
}

QTEST_MAIN(tst_FormBindingEdits)
#include "tst_FormBindingEdits.moc"
