// What bound widgets show at first; line edits have a test of their own.
#include "tests/support/Rows.h"
#include "tests/trigger/PlainForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

class tst_FormBindingFirstValues : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void comboBoxOffersTheAvailableEntries();
    void doubleSpinBoxShowsRangeAndValueWithoutTheIncrement();
    void spinBoxTruncatesToInt_data();
    void spinBoxTruncatesToInt();
    void spinBoxIsEnabledBeforeItsRangeIsRead();
    void checkBoxIsCheckedUnlessZero_data();
    void checkBoxIsCheckedUnlessZero();
    void noButtonIsAutoDefault_data();
    void noButtonIsAutoDefault();
    void softwareTriggerButtonFollowsTheSource_data();
    void softwareTriggerButtonFollowsTheSource();

private:
    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<PlainForm> m_form;
};

void tst_FormBindingFirstValues::init()
{
    m_camera = std::make_unique<Fake::FakeCamera>();
    m_camera->addInteger("Known", 5);
    m_form = std::make_unique<PlainForm>(*m_camera);
}

void tst_FormBindingFirstValues::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_FormBindingFirstValues::comboBoxOffersTheAvailableEntries()
{
    auto mode = m_camera->addEnum("Mode", {"A", "B", "C"}, "C");
    mode->state().entries[1].available = false;
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& box = m_form->add<QComboBox>("cmbMode");
    box.addItem("from the form");
    m_form->bind();
    QCOMPARE(box.count(), 2);
    QCOMPARE(box.itemText(0), QString("A"));
    QCOMPARE(box.currentText(), QString("C"));
    QVERIFY(!box.itemData(0, Qt::ToolTipRole).isValid());
}

void tst_FormBindingFirstValues::doubleSpinBoxShowsRangeAndValueWithoutTheIncrement()
{
    auto feature = m_camera->addFloat("Delay", 2.5, -10.0, 1001.0);
    feature->state().incrementReal = 0.5;
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& box = m_form->add<QDoubleSpinBox>("spbDelay");
    box.setSingleStep(3.0);
    m_form->bind();
    QCOMPARE(box.minimum(), -10.0);
    QCOMPARE(box.maximum(), 1001.0);
    QCOMPARE(box.value(), 2.5);
    QCOMPARE(box.singleStep(), 3.0);
}

void tst_FormBindingFirstValues::spinBoxTruncatesToInt_data()
{
    columns<double, double, double, int, int, int>("value", "min", "max", "shown", "lowest",
                                                   "highest");
    const int intMin = std::numeric_limits<int>::min();
    const int intMax = std::numeric_limits<int>::max();
    row("fractions go", 7.9, -2.9, 99.9, 7, -2, 99);
    row("above int", 5e9, 0.0, 1e10, intMax, 0, intMax);
    row("below int", -5e9, -1e10, 0.0, intMin, intMin, 0);
}

void tst_FormBindingFirstValues::spinBoxTruncatesToInt()
{
    QFETCH(double, value);
    QFETCH(double, min);
    QFETCH(double, max);
    m_camera->addFloat("Number", value, min, max);
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& box = m_form->add<QSpinBox>("spbNumber");
    m_form->bind();
    QTEST(box.value(), "shown");
    QTEST(box.minimum(), "lowest");
    QTEST(box.maximum(), "highest");
}

void tst_FormBindingFirstValues::spinBoxIsEnabledBeforeItsRangeIsRead()
{
    m_camera->addFloat("Real", 1.0);
    m_form = std::make_unique<PlainForm>(*m_camera);
    m_form->add<QSpinBox>("spbKnown");
    m_form->add<QDoubleSpinBox>("spbReal");
    m_camera->clearLog();
    m_form->bind();
    const auto calls = m_camera->calls();
    const auto position = [&](const std::string& call) {
        return std::find(calls.begin(), calls.end(), call) - calls.begin();
    };
    QVERIFY(position("IsWritable Known") < position("GetIntegerRange Known"));
    QVERIFY(position("IsWritable Real") > position("GetFloatRange Real"));
    QVERIFY(position("IsWritable Real") < position("IsWritable Known"));
}

void tst_FormBindingFirstValues::checkBoxIsCheckedUnlessZero_data()
{
    columns<double, bool>("value", "checked");
    row("zero", 0.0, false);
    row("negative zero", -0.0, false);
    row("one", 1.0, true);
    row("fraction", 0.25, true);
    row("negative", -1.0, true);
    row("not a number", std::nan(""), true);
}

void tst_FormBindingFirstValues::checkBoxIsCheckedUnlessZero()
{
    QFETCH(double, value);
    m_camera->addFloat("Number", value);
    m_camera->addBool("Flag", value != 0.0);
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& number = m_form->add<QCheckBox>("chkNumber");
    auto& flag = m_form->add<QCheckBox>("chkFlag");
    flag.setChecked(true);
    m_form->bind();
    QTEST(number.isChecked(), "checked");
    QTEST(flag.isChecked(), "checked");
}

void tst_FormBindingFirstValues::noButtonIsAutoDefault_data()
{
    columns<QString>("objectName");
    row("available", "btnKnown");
    row("unavailable", "btnUnknown");
    row("exempt", "btnExempt");
    row("software trigger", "btnTriggerSoftware");
}

void tst_FormBindingFirstValues::noButtonIsAutoDefault()
{
    QFETCH(QString, objectName);
    auto& button = m_form->add<QPushButton>(objectName);
    m_form->exemptWidgets << "btnExempt";
    button.setAutoDefault(true);
    m_form->bind();
    QVERIFY(!button.autoDefault());
}

void tst_FormBindingFirstValues::softwareTriggerButtonFollowsTheSource_data()
{
    columns<QString, bool, bool, bool>("source", "hasCommand", "writable", "enabled");
    row("software", "Software", true, true, true);
    row("line", "Line0", true, true, false);
    row("other case", "software", true, true, false);
    row("locked command", "Software", true, false, true);
    row("no command", "Software", false, true, true);
}

void tst_FormBindingFirstValues::softwareTriggerButtonFollowsTheSource()
{
    QFETCH(QString, source);
    QFETCH(bool, hasCommand);
    QFETCH(bool, writable);
    m_camera->addEnum("TriggerSource", {"Software", "Line0", "software"}, source.toStdString());
    if (hasCommand)
        m_camera->addCommand("TriggerSoftware")->state().writable = writable;
    m_form = std::make_unique<PlainForm>(*m_camera);
    auto& button = m_form->add<QPushButton>("btnTriggerSoftware");
    m_form->bind();
    QTEST(button.isEnabled(), "enabled");
}

QTEST_MAIN(tst_FormBindingFirstValues)
#include "tst_FormBindingFirstValues.moc"
