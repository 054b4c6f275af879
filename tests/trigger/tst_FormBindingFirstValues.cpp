// What bound widgets show at first; line edits have a test of their own.
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
    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<PlainForm> form;
};

void tst_FormBindingFirstValues::init()
{
    camera = std::make_unique<Fake::FakeCamera>();
    camera->addInteger("Known", 5);
    form = std::make_unique<PlainForm>(*camera);
}

void tst_FormBindingFirstValues::cleanup()
{
    form.reset();
    camera.reset();
}

void tst_FormBindingFirstValues::comboBoxOffersTheAvailableEntries()
{
    auto mode = camera->addEnum("Mode", {"A", "B", "C"}, "C");
    mode->state().entries[1].available = false;
    form = std::make_unique<PlainForm>(*camera);
    auto& box = form->add<QComboBox>("cmbMode");
    box.addItem("from the form");
    form->bind();
    QCOMPARE(box.count(), 2);
    QCOMPARE(box.itemText(0), QString("A"));
    QCOMPARE(box.currentText(), QString("C"));
    QVERIFY(!box.itemData(0, Qt::ToolTipRole).isValid());
}

void tst_FormBindingFirstValues::doubleSpinBoxShowsRangeAndValueWithoutTheIncrement()
{
    auto feature = camera->addFloat("Delay", 2.5, -10.0, 1001.0);
    feature->state().incrementReal = 0.5;
    form = std::make_unique<PlainForm>(*camera);
    auto& box = form->add<QDoubleSpinBox>("spbDelay");
    box.setSingleStep(3.0);
    form->bind();
    QCOMPARE(box.minimum(), -10.0);
    QCOMPARE(box.maximum(), 1001.0);
    QCOMPARE(box.value(), 2.5);
    QCOMPARE(box.singleStep(), 3.0);
}

void tst_FormBindingFirstValues::spinBoxTruncatesToInt_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("highest");
    const int intMin = std::numeric_limits<int>::min();
    const int intMax = std::numeric_limits<int>::max();
    QTest::newRow("fractions go") << 7.9 << -2.9 << 99.9 << 7 << -2 << 99;
    QTest::newRow("above int") << 5e9 << 0.0 << 1e10 << intMax << 0 << intMax;
    QTest::newRow("below int") << -5e9 << -1e10 << 0.0 << intMin << intMin << 0;
}

void tst_FormBindingFirstValues::spinBoxTruncatesToInt()
{
    QFETCH(double, value);
    QFETCH(double, min);
    QFETCH(double, max);
    camera->addFloat("Number", value, min, max);
    form = std::make_unique<PlainForm>(*camera);
    auto& box = form->add<QSpinBox>("spbNumber");
    form->bind();
    QTEST(box.value(), "shown");
    QTEST(box.minimum(), "lowest");
    QTEST(box.maximum(), "highest");
}

void tst_FormBindingFirstValues::spinBoxIsEnabledBeforeItsRangeIsRead()
{
    camera->addFloat("Real", 1.0);
    form = std::make_unique<PlainForm>(*camera);
    form->add<QSpinBox>("spbKnown");
    form->add<QDoubleSpinBox>("spbReal");
    camera->clearLog();
    form->bind();
    const auto calls = camera->calls();
    const auto position = [&](const std::string& call) {
        return std::find(calls.begin(), calls.end(), call) - calls.begin();
    };
    QVERIFY(position("IsWritable Known") < position("GetIntegerRange Known"));
    QVERIFY(position("IsWritable Real") > position("GetFloatRange Real"));
    QVERIFY(position("IsWritable Real") < position("IsWritable Known"));
}

void tst_FormBindingFirstValues::checkBoxIsCheckedUnlessZero_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("checked");
    QTest::newRow("zero") << 0.0 << false;
    QTest::newRow("negative zero") << -0.0 << false;
    QTest::newRow("one") << 1.0 << true;
    QTest::newRow("fraction") << 0.25 << true;
    QTest::newRow("negative") << -1.0 << true;
    QTest::newRow("not a number") << std::nan("") << true;
}

void tst_FormBindingFirstValues::checkBoxIsCheckedUnlessZero()
{
    QFETCH(double, value);
    camera->addFloat("Number", value);
    camera->addBool("Flag", value != 0.0);
    form = std::make_unique<PlainForm>(*camera);
    auto& number = form->add<QCheckBox>("chkNumber");
    auto& flag = form->add<QCheckBox>("chkFlag");
    flag.setChecked(true);
    form->bind();
    QTEST(number.isChecked(), "checked");
    QTEST(flag.isChecked(), "checked");
}

void tst_FormBindingFirstValues::noButtonIsAutoDefault_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::newRow("available") << "btnKnown";
    QTest::newRow("unavailable") << "btnUnknown";
    QTest::newRow("exempt") << "btnExempt";
    QTest::newRow("software trigger") << "btnTriggerSoftware";
}

void tst_FormBindingFirstValues::noButtonIsAutoDefault()
{
    QFETCH(QString, objectName);
    auto& button = form->add<QPushButton>(objectName);
    form->exemptWidgets << "btnExempt";
    button.setAutoDefault(true);
    form->bind();
    QVERIFY(!button.autoDefault());
}

void tst_FormBindingFirstValues::softwareTriggerButtonFollowsTheSource_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("hasCommand");
    QTest::addColumn<bool>("writable");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("software") << "Software" << true << true << true;
    QTest::newRow("line") << "Line0" << true << true << false;
    QTest::newRow("other case") << "software" << true << true << false;
    QTest::newRow("locked command") << "Software" << true << false << true;
    QTest::newRow("no command") << "Software" << false << true << true;
}

void tst_FormBindingFirstValues::softwareTriggerButtonFollowsTheSource()
{
    QFETCH(QString, source);
    QFETCH(bool, hasCommand);
    QFETCH(bool, writable);
    camera->addEnum("TriggerSource", {"Software", "Line0", "software"}, source.toStdString());
    if (hasCommand)
        camera->addCommand("TriggerSoftware")->state().writable = writable;
    form = std::make_unique<PlainForm>(*camera);
    auto& button = form->add<QPushButton>("btnTriggerSoftware");
    form->bind();
    QTEST(button.isEnabled(), "enabled");
}

QTEST_MAIN(tst_FormBindingFirstValues)
#include "tst_FormBindingFirstValues.moc"
