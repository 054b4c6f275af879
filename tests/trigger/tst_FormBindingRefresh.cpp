// What a change on the camera's side makes of the form.
#include "tests/trigger/PlainForm.h"
#include "tests/trigger/WidgetClasses.h"

#include <QSignalSpy>

#include <limits>

// Form classes that only derive from the ones the form knows.
class OwnComboBox : public QComboBox
{
    Q_OBJECT
public:
    using QComboBox::QComboBox;
};
class OwnSpinBox : public QSpinBox
{
    Q_OBJECT
public:
    using QSpinBox::QSpinBox;
};
class OwnLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;
};

class tst_FormBindingRefresh : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void selectorsAreRefreshedFirst_data();
    void selectorsAreRefreshedFirst();
    void widgetOfALongerNameIsNotTouched_data();
    void widgetOfALongerNameIsNotTouched();
    void prefixMustBeLowerCaseLetters_data();
    void prefixMustBeLowerCaseLetters();
    void everyWidgetOfTheNameIsRefreshed();
    void subclassesLookAfterThemselves_data();
    void subclassesLookAfterThemselves();

    void comboBoxShowsEntriesAndValue();
    void doubleSpinBoxShowsRangeAndValue();
    void spinBoxShowsRangeAndValueTruncated();
    void checkBoxShowsTheValue();
    void lineEditShowsTheText();
    void unreadableLineEditKeepsItsTextAndReportsNothing();
    void writabilityEnablesAndDisables_data() { everyBindableClass(); }
    void writabilityEnablesAndDisables();

    void softwareTriggerButtonFollowsTheSource();
    void softwareTriggerButtonIsLeftAloneWithoutSourceChange();
    void softwareTriggerRuleWinsOverItsWritability();

private:
    QStringList reportedNames() const;

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<PlainForm> m_form;
    std::unique_ptr<QSignalSpy> m_reports;
};

void tst_FormBindingRefresh::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_form = std::make_unique<PlainForm>(*m_camera);
    m_reports = std::make_unique<QSignalSpy>(
        m_form.get(), SIGNAL(FeatureChanged(const QString&, const QVariant&)));
}

void tst_FormBindingRefresh::cleanup()
{
    m_reports.reset();
    m_form.reset();
    m_camera.reset();
}

QStringList tst_FormBindingRefresh::reportedNames() const
{
    QStringList names;
    for (const QList<QVariant>& report : *m_reports)
        names.append(report.first().toString());
    return names;
}

void tst_FormBindingRefresh::selectorsAreRefreshedFirst_data()
{
    QTest::addColumn<QStringList>("changed");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("selectors last")
        << QStringList({"TriggerMode", "LineSelector", "TriggerSelector"})
        << QStringList({"LineSelector", "TriggerSelector", "TriggerMode"});
    QTest::newRow("both kinds keep their order")
        << QStringList({"TriggerSource", "TimerSelector", "TriggerMode", "CounterSelector"})
        << QStringList({"TimerSelector", "CounterSelector", "TriggerSource", "TriggerMode"});
    QTest::newRow("anywhere in the name") << QStringList({"TriggerMode", "MySelectorMode"})
                                          << QStringList({"MySelectorMode", "TriggerMode"});
    QTest::newRow("other case is no selector")
        << QStringList({"TriggerMode", "Myselector"}) << QStringList({"TriggerMode", "Myselector"});
}

void tst_FormBindingRefresh::selectorsAreRefreshedFirst()
{
    QFETCH(QStringList, changed);
    m_form->refresh(changed);
    QTEST(reportedNames(), "order");
}

void tst_FormBindingRefresh::widgetOfALongerNameIsNotTouched_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::newRow("longer") << "txtTriggerModeOld";
    QTest::newRow("part behind") << "txtTriggerMode_2";
    QTest::newRow("longer prefix") << "textTriggerMode";
    QTest::newRow("line feed behind") << "txtTriggerMode\n";
    QTest::newRow("other case") << "txttriggermode";
    QTest::newRow("cell of a line") << "cmbLine0_TriggerMode";
}

void tst_FormBindingRefresh::widgetOfALongerNameIsNotTouched()
{
    QFETCH(QString, objectName);
    auto& edit = m_form->add<QLineEdit>(objectName);
    edit.setText("untouched");
    m_form->refresh({"TriggerMode"});
    QCOMPARE(edit.text(), QString("untouched"));
    QCOMPARE(reportedNames(), QStringList("TriggerMode")); // as a feature without a widget
}

void tst_FormBindingRefresh::prefixMustBeLowerCaseLetters_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("text");
    QTest::newRow("usual") << "txtTriggerMode"
                           << "Off";
    QTest::newRow("any letters") << "xyzTriggerMode"
                                 << "Off";
    QTest::newRow("upper case") << "TxtTriggerMode"
                                << "untouched";
    QTest::newRow("digit") << "tx1TriggerMode"
                           << "untouched";
    QTest::newRow("umlaut") << QString::fromUtf8("t\xC3\xA4tTriggerMode") << "untouched";
}

void tst_FormBindingRefresh::prefixMustBeLowerCaseLetters()
{
    QFETCH(QString, objectName);
    auto& edit = m_form->add<QLineEdit>(objectName);
    edit.setText("untouched");
    m_form->refresh({"TriggerMode"});
    QTEST(edit.text(), "text");
}

void tst_FormBindingRefresh::everyWidgetOfTheNameIsRefreshed()
{
    auto& box = m_form->add<QComboBox>("cmbTriggerMode");
    auto& edit = m_form->add<QLineEdit>("txtTriggerMode");
    m_form->refresh({"TriggerMode"});
    QCOMPARE(box.currentText(), QString("Off"));
    QCOMPARE(edit.text(), QString("Off"));
    QCOMPARE(reportedNames(), QStringList({"TriggerMode", "TriggerMode"}));
}

void tst_FormBindingRefresh::subclassesLookAfterThemselves_data()
{
    QTest::addColumn<AddWidget>("add");
    QTest::newRow("combo box") << adder<OwnComboBox>();
    QTest::newRow("spin box") << adder<OwnSpinBox>();
    QTest::newRow("line edit") << adder<OwnLineEdit>();
}

void tst_FormBindingRefresh::subclassesLookAfterThemselves()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*m_form, "xxxTriggerDelay");
    m_camera->find("TriggerDelay")->state().writable = false;
    m_camera->clearLog();
    m_form->refresh({"TriggerDelay"});
    QVERIFY(widget->isEnabled());
    QVERIFY(m_camera->calls().empty());
    // It counts as a widget of the feature all the same.
    QCOMPARE(m_reports->count(), 0);
}

void tst_FormBindingRefresh::comboBoxShowsEntriesAndValue()
{
    auto& box = m_form->add<QComboBox>("cmbTriggerMode");
    m_form->bind();
    auto& mode = m_camera->find("TriggerMode")->state();
    mode.text = "On";
    mode.entries.push_back({"Auto", 7, true});
    m_form->refresh({"TriggerMode"});
    QCOMPARE(box.currentText(), QString("On"));
    QCOMPARE(box.count(), 3);
    QVERIFY(!box.itemData(0, Qt::ToolTipRole).isValid());
    QCOMPARE(m_reports->takeFirst(), QList<QVariant>({"TriggerMode", QString("On")}));
}

void tst_FormBindingRefresh::doubleSpinBoxShowsRangeAndValue()
{
    auto& box = m_form->add<QDoubleSpinBox>("spbTriggerDelay");
    m_form->bind();
    auto& delay = m_camera->find("TriggerDelay")->state();
    delay.minReal = 1.0;
    delay.maxReal = 20.0;
    delay.real = 12.3456;
    m_form->refresh({"TriggerDelay"});
    QCOMPARE(box.minimum(), 1.0);
    QCOMPARE(box.maximum(), 20.0);
    QCOMPARE(box.value(), 12.35); // two decimals
    QCOMPARE(m_reports->takeFirst(), QList<QVariant>({"TriggerDelay", 12.3456}));
}

void tst_FormBindingRefresh::spinBoxShowsRangeAndValueTruncated()
{
    auto& box = m_form->add<QSpinBox>("spbTriggerDelay");
    m_form->bind();
    auto& delay = m_camera->find("TriggerDelay")->state();
    delay.minReal = 1.9;
    delay.maxReal = 1e12;
    delay.real = 12.9;
    m_form->refresh({"TriggerDelay"});
    QCOMPARE(box.minimum(), 1);
    QCOMPARE(box.maximum(), std::numeric_limits<int>::max());
    QCOMPARE(box.value(), 12);
    QCOMPARE(m_reports->takeFirst(), QList<QVariant>({"TriggerDelay", 12.9}));
}

void tst_FormBindingRefresh::checkBoxShowsTheValue()
{
    auto& box = m_form->add<QCheckBox>("chkLineInverter");
    m_form->bind();
    QVERIFY(!box.isChecked());
    m_camera->find("LineInverter")->state().boolean = true;
    m_form->refresh({"LineInverter"});
    QVERIFY(box.isChecked());
    // As a number: a boolean would compare equal.
    QCOMPARE(m_reports->first().last().type(), QVariant::Double);
    QCOMPARE(m_reports->takeFirst(), QList<QVariant>({"LineInverter", 1.0}));
}

void tst_FormBindingRefresh::lineEditShowsTheText()
{
    auto& edit = m_form->add<QLineEdit>("txtActionGroupKey");
    m_form->bind();
    m_camera->find("ActionGroupKey")->state().integer = 0xabc;
    m_form->refresh({"ActionGroupKey"});
    QCOMPARE(edit.text(), QString("0xABC"));
    QCOMPARE(m_reports->takeFirst(), QList<QVariant>({"ActionGroupKey", QString("0xABC")}));
}

void tst_FormBindingRefresh::unreadableLineEditKeepsItsTextAndReportsNothing()
{
    auto& edit = m_form->add<QLineEdit>("txtActionDeviceKey");
    m_form->bind();
    edit.setText("0x1");
    m_form->refresh({"ActionDeviceKey"});
    QCOMPARE(edit.text(), QString("0x1"));
    QVERIFY(edit.isEnabled());
    QCOMPARE(m_reports->count(), 0);
    m_camera->find("ActionDeviceKey")->state().writable = false;
    m_form->refresh({"ActionDeviceKey"});
    QVERIFY(!edit.isEnabled());
}

void tst_FormBindingRefresh::writabilityEnablesAndDisables()
{
    QFETCH(AddWidget, add);
    QWidget* widget = add(*m_form, "xxxTriggerDelay");
    m_form->bind();
    m_camera->find("TriggerDelay")->state().writable = false;
    m_form->refresh({"TriggerDelay"});
    QVERIFY(!widget->isEnabled());
    m_camera->find("TriggerDelay")->state().writable = true;
    m_form->refresh({"TriggerDelay"});
    QVERIFY(widget->isEnabled());
}

void tst_FormBindingRefresh::softwareTriggerButtonFollowsTheSource()
{
    auto& button = m_form->add<QPushButton>("btnTriggerSoftware");
    m_form->bind();
    QVERIFY(button.isEnabled());
    m_camera->find("TriggerSource")->state().text = "Line0";
    m_form->refresh({"TriggerMode", "TriggerSource"});
    QVERIFY(!button.isEnabled());
    m_camera->find("TriggerSource")->state().text = "Software";
    m_form->refresh({"TriggerSource"});
    QVERIFY(button.isEnabled());
}

void tst_FormBindingRefresh::softwareTriggerButtonIsLeftAloneWithoutSourceChange()
{
    auto& button = m_form->add<QPushButton>("btnTriggerSoftware");
    m_form->bind();
    m_camera->find("TriggerSource")->state().text = "Line0";
    m_form->refresh({"TriggerMode"});
    QVERIFY(button.isEnabled());
}

void tst_FormBindingRefresh::softwareTriggerRuleWinsOverItsWritability()
{
    auto& button = m_form->add<QPushButton>("btnTriggerSoftware");
    m_form->bind();
    m_camera->find("TriggerSource")->state().text = "Line0";
    m_form->refresh({"TriggerSource", "TriggerSoftware"});
    QVERIFY(!button.isEnabled());
    m_form->refresh({"TriggerSoftware"});
    QVERIFY(button.isEnabled());
}

QTEST_MAIN(tst_FormBindingRefresh)
#include "tst_FormBindingRefresh.moc"
