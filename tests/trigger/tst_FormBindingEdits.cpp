// From a user's edit to the camera, and the camera's answer back into the widget.
#include "tests/support/LogCapture.h"
#include "tests/trigger/TestEngine.h"

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

class tst_AdvTriggerEdits : public QObject
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
    void realKeysAndClicksReachTheCamera();
    void deletedWidgetLeavesTheOthersWorking();

    void commandRuns();
    void commandRunsForAnySender();
    void failedCommandIsLogged();

    void senderOfTheWrongClassIsLogged_data();
    void senderOfTheWrongClassIsLogged();
    void withoutSenderNothingHappens();

private:
    template <class Widget> Widget& bind(const QString& objectName)
    {
        engine = std::make_unique<TestEngine>(*camera);
        auto& widget = engine->add<Widget>(objectName);
        engine->InitBaseWidgets();
        camera->clearLog();
        return widget;
    }
    static void enter(QLineEdit& edit, const QString& text);
    static QStringList warnings(const LogCapture& log);

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TestEngine> engine;
};

void tst_AdvTriggerEdits::init()
{
    camera = acceptedCamera();
    camera->addEnum("Mode", {"Off", "On"}, "Off");
    camera->addInteger("Number", 5, 0, 1000);
    camera->addFloat("Real", 5.0, 0.0, 1000.0);
    camera->addBool("Flag", false);
    camera->addString("Name", "camera");
    camera->addCommand("Run");
}

void tst_AdvTriggerEdits::cleanup()
{
    engine.reset();
    camera.reset();
}

void tst_AdvTriggerEdits::enter(QLineEdit& edit, const QString& text)
{
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
}

QStringList tst_AdvTriggerEdits::warnings(const LogCapture& log)
{
    return log.lines().filter("/warning ");
}

void tst_AdvTriggerEdits::comboBoxWritesItsText()
{
    auto& box = bind<QComboBox>("cmbMode");
    box.setCurrentText("On");
    QCOMPARE(writesOf(*camera), QStringList("SetStringValue Mode=On"));
    QCOMPARE(box.currentText(), QString("On"));
}

void tst_AdvTriggerEdits::comboBoxShowsWhatTheCameraTook()
{
    camera->find("Mode")->onWrite = [](Fake::FakeFeature& mode) { mode.state().text = "Off"; };
    auto& box = bind<QComboBox>("cmbMode");
    box.setCurrentText("On");
    QCOMPARE(box.currentText(), QString("Off"));
    QCOMPARE(writesOf(*camera).size(), 1);
}

void tst_AdvTriggerEdits::comboBoxKeepsItsTextWhenTheCameraReadsNothing()
{
    auto& box = bind<QComboBox>("cmbMode");
    camera->failCall("GetStringValue", "Mode");
    box.setCurrentText("On");
    QCOMPARE(box.currentText(), QString("On"));
}

void tst_AdvTriggerEdits::spinBoxWritesAndShowsWhatTheCameraTook()
{
    camera->find("Number")->onWrite = [](Fake::FakeFeature& it) { it.state().integer = 8; };
    auto& box = bind<QSpinBox>("spbNumber");
    box.setValue(9);
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Number=9"));
    QCOMPARE(box.value(), 8);
}

void tst_AdvTriggerEdits::spinBoxTruncatesWhatTheCameraTook()
{
    camera->find("Real")->onWrite = [](Fake::FakeFeature& it) { it.state().real = 8.9; };
    auto& box = bind<QSpinBox>("spbReal");
    box.setValue(9);
    QCOMPARE(box.value(), 8);
}

void tst_AdvTriggerEdits::doubleSpinBoxWritesAndShowsWhatTheCameraTook()
{
    camera->find("Real")->onWrite = [](Fake::FakeFeature& it) { it.state().real = 8.25; };
    auto& box = bind<QDoubleSpinBox>("spbReal");
    box.setValue(9.5);
    QCOMPARE(writesOf(*camera), QStringList("SetFloatValue Real=9.5"));
    QCOMPARE(box.value(), 8.25);
}

void tst_AdvTriggerEdits::checkedBoxWritesTwo()
{
    camera->find("Number")->state().integer = 0;
    auto& box = bind<QCheckBox>("chkNumber");
    box.setChecked(true);
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Number=2"));
    QVERIFY(box.isChecked());
}

void tst_AdvTriggerEdits::uncheckedBoxWritesZero()
{
    auto& box = bind<QCheckBox>("chkReal");
    box.setChecked(false);
    QCOMPARE(writesOf(*camera), QStringList("SetFloatValue Real=0"));
    QVERIFY(!box.isChecked());
}

void tst_AdvTriggerEdits::checkBoxShowsWhatTheCameraTook()
{
    camera->find("Flag")->onWrite = [](Fake::FakeFeature& it) { it.state().boolean = false; };
    auto& box = bind<QCheckBox>("chkFlag");
    box.setChecked(true);
    QVERIFY(!box.isChecked());
    QCOMPARE(writesOf(*camera), QStringList("SetBoolValue Flag=true"));
}

void tst_AdvTriggerEdits::checkBoxOfABooleanFeature()
{
    auto& box = bind<QCheckBox>("chkFlag");
    box.setChecked(true);
    box.setChecked(false);
    QCOMPARE(writesOf(*camera), QStringList({"SetBoolValue Flag=true", "SetBoolValue Flag=false"}));
}

void tst_AdvTriggerEdits::lineEditWritesADecimalNumber()
{
    auto& edit = bind<QLineEdit>("txtReal");
    enter(edit, "12.5");
    QCOMPARE(writesOf(*camera), QStringList("SetFloatValue Real=12.5"));
    QCOMPARE(edit.text(), QString("12.5"));
}

void tst_AdvTriggerEdits::lineEditShowsEveryDigitTheCameraTook()
{
    camera->find("Number")->state().maxInteger = 4294967295LL;
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "4294967295");
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Number=4294967295"));
    QCOMPARE(edit.text(), QString("4294967295"));
}

void tst_AdvTriggerEdits::clearedLineEditWritesZero()
{
    camera->find("Number")->state().minInteger = 3;
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "");
    // 0 is below the feature's minimum.
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Number=3"));
    QCOMPARE(edit.text(), QString("3"));
}

void tst_AdvTriggerEdits::hexadecimalEntryCountsAsZero()
{
    camera->find("Number")->representation = "HexNumber";
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "0x1F");
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Number=0"));
    QCOMPARE(edit.text(), QString("0"));
}

void tst_AdvTriggerEdits::lineEditOfATextWritesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("letters") << "other"
                             << "0";
    QTest::newRow("number") << "12"
                            << "12";
}

void tst_AdvTriggerEdits::lineEditOfATextWritesNothing()
{
    QFETCH(QString, text);
    auto& edit = bind<QLineEdit>("txtName");
    enter(edit, text);
    QCOMPARE(writesOf(*camera), QStringList());
    QTEST(edit.text(), "shown");
}

void tst_AdvTriggerEdits::unreadableLineEditKeepsItsText()
{
    camera->find("Number")->state().readable = false;
    auto& edit = bind<QLineEdit>("txtNumber");
    enter(edit, "0012");
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Number=12"));
    QCOMPARE(edit.text(), QString("0012"));
}

void tst_AdvTriggerEdits::refusedWriteIsNoError()
{
    auto& box = bind<QSpinBox>("spbNumber");
    camera->failCall("SetIntegerValue", "Number");
    const LogCapture log;
    box.setValue(9);
    QCOMPARE(box.value(), 5);
    QCOMPARE(warnings(log), QStringList());
}

void tst_AdvTriggerEdits::answerCausesNoSecondChange()
{
    camera->find("Number")->onWrite = [](Fake::FakeFeature& it) { it.state().integer = 8; };
    auto& box = bind<QSpinBox>("spbNumber");
    const QSignalSpy changes(&box, SIGNAL(valueChanged(int)));
    box.setValue(9);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(writesOf(*camera).size(), 1);
}

void tst_AdvTriggerEdits::signalsFlowAgainAfterAnEdit()
{
    auto& box = bind<QSpinBox>("spbNumber");
    box.setValue(9);
    QVERIFY(!box.signalsBlocked());
    box.setValue(10);
    QCOMPARE(writesOf(*camera).size(), 2);
}

void tst_AdvTriggerEdits::everyEditSwitchesToTheCustomPreset()
{
    engine = std::make_unique<TestEngine>(*camera);
    auto& combo = engine->add<QComboBox>("cmbMode");
    auto& edit = engine->add<QLineEdit>("txtNumber");
    auto& real = engine->add<QDoubleSpinBox>("spbReal");
    auto& spin = engine->add<QSpinBox>("spbNumber");
    auto& check = engine->add<QCheckBox>("chkFlag");
    auto& button = engine->add<QPushButton>("btnRun");
    engine->InitBaseWidgets();
    combo.setCurrentText("On");
    QCOMPARE(engine->customPresets, 1);
    enter(edit, "7");
    QCOMPARE(engine->customPresets, 2);
    real.setValue(7.0);
    QCOMPARE(engine->customPresets, 3);
    spin.setValue(8);
    QCOMPARE(engine->customPresets, 4);
    check.click();
    QCOMPARE(engine->customPresets, 5);
    button.click();
    QCOMPARE(engine->customPresets, 5);
}

void tst_AdvTriggerEdits::customPresetFollowsTheWrite()
{
    auto& box = bind<QSpinBox>("spbNumber");
    int presetsAtWrite = -1;
    camera->find("Number")->onWrite = [&](Fake::FakeFeature&) {
        presetsAtWrite = engine->customPresets;
    };
    box.setValue(9);
    QCOMPARE(presetsAtWrite, 0);
    QCOMPARE(engine->customPresets, 1);
}

void tst_AdvTriggerEdits::realKeysAndClicksReachTheCamera()
{
    engine = std::make_unique<TestEngine>(*camera);
    auto& combo = engine->add<QComboBox>("cmbMode");
    auto& spin = engine->add<QSpinBox>("spbNumber");
    auto& check = engine->add<QCheckBox>("chkFlag");
    auto& button = engine->add<QPushButton>("btnRun");
    engine->InitBaseWidgets();
    camera->clearLog();
    QTest::keyClick(&combo, Qt::Key_Down);
    QTest::keyClick(&spin, Qt::Key_Up);
    QTest::mouseClick(&check, Qt::LeftButton, Qt::NoModifier, QPoint(5, check.height() / 2));
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(writesOf(*camera), QStringList({"SetStringValue Mode=On", "SetIntegerValue Number=6",
                                             "SetBoolValue Flag=true", "RunCommand Run"}));
}

void tst_AdvTriggerEdits::deletedWidgetLeavesTheOthersWorking()
{
    engine = std::make_unique<TestEngine>(*camera);
    auto* gone = &engine->add<QSpinBox>("spbNumber");
    auto& left = engine->add<QSpinBox>("spbNumber");
    engine->InitBaseWidgets();
    delete gone;
    camera->clearLog();
    left.setValue(9);
    QCOMPARE(writesOf(*camera), QStringList("SetIntegerValue Number=9"));
    camera->find("Number")->state().integer = 11;
    engine->refresh({"Number"});
    QCOMPARE(left.value(), 11);
}

void tst_AdvTriggerEdits::commandRuns()
{
    auto& button = bind<QPushButton>("btnRun");
    const LogCapture log;
    button.click();
    QCOMPARE(writesOf(*camera), QStringList("RunCommand Run"));
    QCOMPARE(warnings(log), QStringList());
}

void tst_AdvTriggerEdits::commandRunsForAnySender()
{
    auto& sender = bind<Impostor>("xyzRun");
    connect(&sender, SIGNAL(finished()), engine.get(), SLOT(OnExecuteCommandButton()));
    emit sender.finished();
    QCOMPARE(writesOf(*camera), QStringList("RunCommand Run"));
}

void tst_AdvTriggerEdits::failedCommandIsLogged()
{
    auto& button = bind<QPushButton>("btnRun");
    camera->failCall("RunCommand", "Run");
    const LogCapture log;
    button.click();
    QCOMPARE(warnings(log), QStringList("default/warning Error executing command 'Run'"));
}

void tst_AdvTriggerEdits::senderOfTheWrongClassIsLogged_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    const auto row = [](const char* name, const char* signal, const char* slot) {
        QTest::newRow(name) << QByteArray(signal) << QByteArray(slot);
    };
    row("combo box", SIGNAL(text(QString)), SLOT(OnChangeComboboxSelection(QString)));
    row("line edit", SIGNAL(finished()), SLOT(OnFinishLineEdit()));
    row("spin box", SIGNAL(number(int)), SLOT(OnChangeSpinbox(int)));
    row("double spin box", SIGNAL(real(double)), SLOT(OnChangeDoubleSpinbox(double)));
    row("check box", SIGNAL(number(int)), SLOT(OnChangeCheckbox(int)));
}

void tst_AdvTriggerEdits::senderOfTheWrongClassIsLogged()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    auto& sender = bind<Impostor>("xyzNumber");
    QVERIFY(connect(&sender, signal.constData(), engine.get(), slot.constData()));
    const LogCapture log;
    emit sender.text("On");
    emit sender.finished();
    emit sender.number(2);
    emit sender.real(2.0);
    QCOMPARE(warnings(log), QStringList("default/warning Error accessing widget 'xyzNumber'"));
    QVERIFY(camera->calls().empty());
}

void tst_AdvTriggerEdits::withoutSenderNothingHappens()
{
    bind<QComboBox>("cmbMode");
    const LogCapture log;
    const auto send = [this](const char* slot, QGenericArgument argument = QGenericArgument()) {
        return QMetaObject::invokeMethod(engine.get(), slot, argument);
    };
    QVERIFY(send("OnChangeComboboxSelection", Q_ARG(QString, QStringLiteral("On"))));
    QVERIFY(send("OnFinishLineEdit"));
    QVERIFY(send("OnChangeSpinbox", Q_ARG(int, 1)));
    QVERIFY(send("OnChangeDoubleSpinbox", Q_ARG(double, 1.0)));
    QVERIFY(send("OnChangeCheckbox", Q_ARG(int, 2)));
    QVERIFY(send("OnExecuteCommandButton"));
    QVERIFY(camera->calls().empty());
    QCOMPARE(warnings(log), QStringList());
}

QTEST_MAIN(tst_AdvTriggerEdits)
#include "tst_AdvTriggerEdits.moc"
