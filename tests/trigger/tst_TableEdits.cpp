// Edits in the cells of the line table: the line is selected first, then the setting is written.
#include "tests/support/LogCapture.h"
#include "tests/trigger/TableForm.h"

#include <QTest>
#include <QtMath>

/// Sends what cells send, without being one.
class NoWidget : public QObject
{
    Q_OBJECT

public:
    void sendAll()
    {
        emit text(QStringLiteral("Output"));
        emit state(Qt::Checked);
        emit number(50.0);
    }

signals:
    void text(const QString& value);
    void state(int value);
    void number(double value);
};

class tst_TableEdits : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void comboBoxWritesTheTextOnItsLine();
    void comboBoxShowsWhatTheCameraTook();
    void checkBoxWritesOnItsLine();
    void checkedBoxWritesTwo();
    void checkBoxShowsWhatTheCameraTook();
    void checkBoxWithoutAReadableAnswerCountsAsChecked();
    void durationStepsByDoublingAndHalving_data();
    void durationStepsByDoublingAndHalving();
    void durationGoesByTheCamerasValue();
    void typedDurationOnlyDecidesTheDirection_data();
    void typedDurationOnlyDecidesTheDirection();
    void durationShowsWhatTheCameraTook();
    void everyEditMakesTheSettingsCustom();
    void editsAreWrittenOnce();
    void lineThatIsNotTakenDropsTheEdit_data();
    void lineThatIsNotTakenDropsTheEdit();

    void nameIsSplitIntoLineAndFeature_data();
    void nameIsSplitIntoLineAndFeature();
    void nameWithoutUnderscoreIsLoggedAndWritesNothing();
    void cellWithoutUnderscoreWritesNothing();
    void callWithoutSenderDoesNothing();
    void senderOfAnotherClassIsLogged_data();
    void senderOfAnotherClassIsLogged();
    void blockedSignalsStayBlocked();

private:
    Fake::State& duration(const char* line)
    {
        return (*m_camera)["LineDebounceDuration"].stateFor(line);
    }
    QDoubleSpinBox& durationBox()
    {
        return m_form->cell<QDoubleSpinBox>("spbLine1_LineDebounceDuration");
    }

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TableForm> m_form;
};

void tst_TableEdits::init()
{
    m_camera = tableCamera();
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->build();
    (*m_camera)["LineSelector"].state().text = "Line0";
}

void tst_TableEdits::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_TableEdits::comboBoxWritesTheTextOnItsLine()
{
    m_form->cell<QComboBox>("cmbLine1_LineSource").setCurrentText("ExposureActive");
    QCOMPARE(tableWrites(*m_camera),
             (QStringList{"LineSelector=Line1", "LineSource=ExposureActive"}));
    QCOMPARE((*m_camera)["LineSource"].stateFor("Line1").text, std::string("ExposureActive"));
    QCOMPARE((*m_camera)["LineSource"].stateFor("Line0").text, std::string("Off"));
}

void tst_TableEdits::comboBoxShowsWhatTheCameraTook()
{
    m_camera->failCall("SetStringValue", "LineMode");
    auto& mode = m_form->cell<QComboBox>("cmbLine1_LineMode");
    mode.setCurrentText("Output");
    QCOMPARE(tableWrites(*m_camera), (QStringList{"LineSelector=Line1", "LineMode=Output"}));
    QCOMPARE(mode.currentText(), QString("Input"));
    QVERIFY(!mode.signalsBlocked());
}

void tst_TableEdits::checkBoxWritesOnItsLine()
{
    auto& inverter = m_form->cell<QCheckBox>("chkLine1_LineInverter");
    inverter.setChecked(true);
    QVERIFY((*m_camera)["LineInverter"].stateFor("Line1").boolean);
    QVERIFY(!(*m_camera)["LineInverter"].stateFor("Line0").boolean);
    inverter.setChecked(false);
    QVERIFY(!(*m_camera)["LineInverter"].stateFor("Line1").boolean);
}

void tst_TableEdits::checkedBoxWritesTwo()
{
    m_camera->remove("LineInverter");
    const auto number = m_camera->addInteger("LineInverter", 0);
    m_camera->select("LineSelector", {"LineInverter"});
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->build();
    m_form->cell<QCheckBox>("chkLine0_LineInverter").setChecked(true);
    QCOMPARE(number->stateFor("Line0").integer, 2LL);
}

void tst_TableEdits::checkBoxShowsWhatTheCameraTook()
{
    m_camera->failCall("SetBoolValue", "LineInverter");
    auto& inverter = m_form->cell<QCheckBox>("chkLine1_LineInverter");
    inverter.setChecked(true);
    QCOMPARE(tableWrites(*m_camera).size(), 2);
    QVERIFY(!inverter.isChecked());
}

void tst_TableEdits::checkBoxWithoutAReadableAnswerCountsAsChecked()
{
    // A float may be no number at all: that is not zero.
    m_camera->remove("LineInverter");
    const auto value = m_camera->addFloat("LineInverter", 2.0);
    m_camera->select("LineSelector", {"LineInverter"});
    value->onWrite = [](Fake::FakeFeature& feature) { feature.state().real = qQNaN(); };
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->build();
    auto& inverter = m_form->cell<QCheckBox>("chkLine0_LineInverter");
    QVERIFY(inverter.isChecked());
    inverter.setChecked(false);
    QVERIFY(inverter.isChecked());
}

void tst_TableEdits::durationStepsByDoublingAndHalving_data()
{
    QTest::addColumn<double>("before");
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("after");
    QTest::newRow("up on 0 writes the single step") << 0.0 << int(Qt::Key_Up) << 0.01;
    QTest::newRow("up on 8 writes 16") << 8.0 << int(Qt::Key_Up) << 16.0;
    QTest::newRow("down on 8 writes 4") << 8.0 << int(Qt::Key_Down) << 4.0;
    QTest::newRow("a page up doubles as well") << 8.0 << int(Qt::Key_PageUp) << 16.0;
    QTest::newRow("below the maximum it stops there") << 900.0 << int(Qt::Key_Up) << 1000.0;
}

void tst_TableEdits::durationStepsByDoublingAndHalving()
{
    QFETCH(double, before);
    QFETCH(int, key);
    QFETCH(double, after);
    duration("Line1").real = before;
    m_form->refreshTable({"LineDebounceDuration"});
    QTest::keyClick(&durationBox(), Qt::Key(key));
    QCOMPARE(duration("Line1").real, after);
    QCOMPARE(durationBox().value(), after);
    QCOMPARE(duration("Line0").real, 8.0);
}

void tst_TableEdits::durationGoesByTheCamerasValue()
{
    // Changed on the camera meanwhile: what the box showed does not count.
    duration("Line1").real = 100.0;
    QTest::keyClick(&durationBox(), Qt::Key_Up);
    QCOMPARE(duration("Line1").real, 50.0);
    QCOMPARE(durationBox().value(), 50.0);

    // No more than the camera has: downwards, though the arrow pointed up.
    duration("Line1").real = 50.01;
    QTest::keyClick(&durationBox(), Qt::Key_Up);
    QCOMPARE(duration("Line1").real, 25.005);

    duration("Line1").real = -4.0;
    duration("Line1").minReal = -10.0;
    QTest::keyClick(&durationBox(), Qt::Key_Up);
    QCOMPARE(duration("Line1").real, 0.01);
}

void tst_TableEdits::typedDurationOnlyDecidesTheDirection_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("after");
    QTest::newRow("more") << "500" << 16.0;
    QTest::newRow("hardly more") << "8.000001" << 16.0;
    QTest::newRow("less") << "7" << 4.0;
}

void tst_TableEdits::typedDurationOnlyDecidesTheDirection()
{
    QFETCH(QString, typed);
    QFETCH(double, after);
    durationBox().selectAll();
    QTest::keyClicks(&durationBox(), typed);
    QCOMPARE(tableWrites(*m_camera), QStringList());
    QTest::keyClick(&durationBox(), Qt::Key_Return);
    QCOMPARE(duration("Line1").real, after);
    QCOMPARE(durationBox().value(), after);
}

void tst_TableEdits::durationShowsWhatTheCameraTook()
{
    (*m_camera)["LineDebounceDuration"].onWrite = [](Fake::FakeFeature& feature) {
        feature.state().real = 12.0;
    };
    QTest::keyClick(&durationBox(), Qt::Key_Up);
    QCOMPARE(durationBox().value(), 12.0);
}

void tst_TableEdits::everyEditMakesTheSettingsCustom()
{
    m_form->cell<QComboBox>("cmbLine1_LineMode").setCurrentText("Output");
    QCOMPARE(m_form->customPresets, 1);
    m_form->cell<QCheckBox>("chkLine1_LineInverter").setChecked(true);
    QCOMPARE(m_form->customPresets, 2);
    m_form->cell<QComboBox>("cmbLine1_LineSource").setCurrentText("ExposureActive");
    QCOMPARE(m_form->customPresets, 3);
    m_form->cell<QComboBox>("cmbLine1_LineDebounceMode").setCurrentText("Debounce");
    QCOMPARE(m_form->customPresets, 4);
    QTest::keyClick(&durationBox(), Qt::Key_Up);
    QCOMPARE(m_form->customPresets, 5);
}

void tst_TableEdits::editsAreWrittenOnce()
{
    QTest::keyClick(&durationBox(), Qt::Key_Up);
    QCOMPARE(tableWrites(*m_camera).size(), 2);
    QCOMPARE(m_camera->callCount("SetFloatValue", "LineDebounceDuration"), 1);
}

void tst_TableEdits::lineThatIsNotTakenDropsTheEdit_data()
{
    QTest::addColumn<QString>("cell");
    for (const char* cell : {"cmbLine1_LineMode", "chkLine1_LineInverter", "cmbLine1_LineSource",
                             "cmbLine1_LineDebounceMode", "spbLine1_LineDebounceDuration"})
        QTest::newRow(cell) << cell;
}

void tst_TableEdits::lineThatIsNotTakenDropsTheEdit()
{
    QFETCH(QString, cell);
    m_camera->failCall("SetStringValue", "LineSelector");
    auto& widget = m_form->cell<QWidget>(qPrintable(cell));
    const LogCapture log;
    if (cell.startsWith("chk"))
        QTest::keyClick(&widget, Qt::Key_Space);
    else
        QTest::keyClick(&widget, cell.startsWith("spb") ? Qt::Key_Up : Qt::Key_Down);
    QCOMPARE(tableWrites(*m_camera), QStringList{"LineSelector=Line1"});
    QCOMPARE(log.lines(), QStringList());
}

void tst_TableEdits::nameIsSplitIntoLineAndFeature_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("feature");
    QTest::newRow("a cell") << "cmbLine1_LineMode"
                            << "Line1"
                            << "LineMode";
    QTest::newRow("the prefix does not count") << "abcLine1_LineMode"
                                               << "Line1"
                                               << "LineMode";
    QTest::newRow("three parts") << "cmbLine1_LineMode_Old"
                                 << "Line1"
                                 << "LineMode";
    QTest::newRow("empty feature") << "cmbLine1_"
                                   << "Line1"
                                   << "";
    QTest::newRow("no such line") << "cmbLine9_LineMode"
                                  << "Line9"
                                  << "";
    QTest::newRow("another case") << "cmbline1_LineMode"
                                  << "line1"
                                  << "";
    QTest::newRow("empty line") << "cmb_LineMode"
                                << ""
                                << "";
    QTest::newRow("underscore in the line's name") << "cmbGpio_1_LineMode"
                                                   << "Gpio"
                                                   << "";
    QTest::newRow("shorter than a prefix") << "a_LineMode"
                                           << ""
                                           << "";
}

void tst_TableEdits::nameIsSplitIntoLineAndFeature()
{
    QFETCH(QString, name);
    QFETCH(QString, written);
    QFETCH(QString, feature);
    QCOMPARE(m_form->lineTable.selectLineOf(name), feature);
    QCOMPARE(tableWrites(*m_camera), QStringList{"LineSelector=" + written});
}

void tst_TableEdits::nameWithoutUnderscoreIsLoggedAndWritesNothing()
{
    const LogCapture log;
    QCOMPARE(m_form->lineTable.selectLineOf("cmbLineMode"), QString());
    QCOMPARE(
        log.lines(),
        QStringList{"default/warning Error: cannot parse object name of a table cell widget."});
    QCOMPARE(tableWrites(*m_camera), QStringList());
}

void tst_TableEdits::cellWithoutUnderscoreWritesNothing()
{
    auto& box = m_form->cell<QComboBox>("cmbLine1_LineMode");
    box.setObjectName("cmbLineMode");
    box.setCurrentText("Output");
    QCOMPARE(tableWrites(*m_camera), QStringList());
    QCOMPARE(box.currentText(), QString("Output"));
}

void tst_TableEdits::callWithoutSenderDoesNothing()
{
    const LogCapture log;
    m_form->tableComboBoxEdited("Output");
    m_form->tableCheckBoxEdited(2);
    m_form->tableSpinBoxEdited(1.0);
    QCOMPARE(tableWrites(*m_camera), QStringList());
    QCOMPARE(log.lines(), QStringList());
}

void tst_TableEdits::senderOfAnotherClassIsLogged_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    QTest::newRow("combo box") << QByteArray(SIGNAL(text(QString)))
                               << QByteArray(SLOT(tableComboBoxEdited(QString)));
    QTest::newRow("check box") << QByteArray(SIGNAL(state(int)))
                               << QByteArray(SLOT(tableCheckBoxEdited(int)));
    QTest::newRow("spin box") << QByteArray(SIGNAL(number(double)))
                              << QByteArray(SLOT(tableSpinBoxEdited(double)));
}

void tst_TableEdits::senderOfAnotherClassIsLogged()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    NoWidget sender;
    sender.setObjectName("cmbLine1_LineMode");
    QVERIFY(connect(&sender, signal.constData(), m_form.get(), slot.constData()));
    const LogCapture log;
    sender.sendAll();
    QCOMPARE(log.lines(),
             QStringList{"default/warning Error accessing widget 'cmbLine1_LineMode'"});
    // The line is selected before the sender's class is looked at.
    QCOMPARE(tableWrites(*m_camera), QStringList{"LineSelector=Line1"});
}

void tst_TableEdits::blockedSignalsStayBlocked()
{
    auto& mode = m_form->cell<QComboBox>("cmbLine1_LineMode");
    bool blockedDuringWrite = false;
    (*m_camera)["LineMode"].onWrite = [&](Fake::FakeFeature&) {
        blockedDuringWrite = mode.signalsBlocked();
    };
    mode.setCurrentText("Output");
    QVERIFY(blockedDuringWrite);
    QVERIFY(!mode.signalsBlocked());
}

QTEST_MAIN(tst_TableEdits)
#include "tst_TableEdits.moc"
