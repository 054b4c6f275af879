// What a refresh tells the others, and that it tells the camera nothing.
#include "tests/trigger/PlainForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class tst_FormBindingReports : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void valuesAreReportedAfterTheirWidgetIsShown();
    void buttonReportsNothing();
    void labelReportsNothing();
    void featureWithoutWidgetIsReported_data();
    void featureWithoutWidgetIsReported();
    void lineStatusWithoutWidgetIsNotReported();
    void lineStatusWithWidgetIsReported();
    void refreshMakesNoWrite();
    void widgetsAreSilentDuringARefresh_data();
    void widgetsAreSilentDuringARefresh();
    void refreshLeavesTheBlockingStateAsItWas();
    void lineEditDisabledWhileTypingWritesNothing();
    void nothingChangedRefreshesNothing();

private:
    void bindStandardForm();
    QStringList reportedNames() const;

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<PlainForm> m_form;
    std::unique_ptr<QSignalSpy> m_reports;
};

void tst_FormBindingReports::init()
{
    m_camera = Fake::FakeCamera::standard();
    m_form = std::make_unique<PlainForm>(*m_camera);
    m_reports = std::make_unique<QSignalSpy>(
        m_form.get(), SIGNAL(FeatureChanged(const QString&, const QVariant&)));
}

void tst_FormBindingReports::cleanup()
{
    m_reports.reset();
    m_form.reset();
    m_camera.reset();
}

QStringList tst_FormBindingReports::reportedNames() const
{
    QStringList names;
    for (const QList<QVariant>& report : *m_reports)
        names.append(report.first().toString());
    return names;
}

void tst_FormBindingReports::bindStandardForm()
{
    for (const char* name : {"TriggerSelector", "TriggerMode", "TriggerSource", "LineSource"})
        m_form->add<QComboBox>(QString("cmb") + name);
    for (const char* name : {"ActionGroupKey", "DeviceModelName", "CounterValue"})
        m_form->add<QLineEdit>(QString("txt") + name);
    for (const char* name : {"TriggerDelay", "TimerDuration"})
        m_form->add<QDoubleSpinBox>(QString("spb") + name);
    for (const char* name : {"CounterDuration", "ActionSelector"})
        m_form->add<QSpinBox>(QString("spb") + name);
    m_form->add<QCheckBox>("chkLineInverter");
    m_form->add<QPushButton>("btnTriggerSoftware");
    m_form->bind();
}

void tst_FormBindingReports::valuesAreReportedAfterTheirWidgetIsShown()
{
    auto& box = m_form->add<QSpinBox>("spbCounterDuration");
    m_form->bind();
    m_camera->find("CounterDuration")->state().integer = 77;
    int shown = 0;
    bool silent = true;
    connect(m_form.get(), &PlainForm::FeatureChanged, &box, [&] {
        shown = box.value();
        silent = box.signalsBlocked();
    });
    m_form->refresh({"CounterDuration"});
    QCOMPARE(shown, 77);
    QVERIFY(!silent);
}

void tst_FormBindingReports::buttonReportsNothing()
{
    m_form->add<QPushButton>("btnCounterReset");
    m_form->refresh({"CounterReset"});
    QCOMPARE(m_reports->count(), 0);
}

void tst_FormBindingReports::labelReportsNothing()
{
    auto& label = m_form->add<QLabel>("lblTriggerMode");
    label.setText("Mode:");
    m_form->refresh({"TriggerMode"});
    QCOMPARE(label.text(), QString("Mode:"));
    // A label counts as a widget of its feature.
    QCOMPARE(m_reports->count(), 0);
}

void tst_FormBindingReports::featureWithoutWidgetIsReported_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("enumeration") << "TriggerMode" << QVariant(QString("Off"));
    QTest::newRow("text") << "DeviceModelName" << QVariant(QString("TX-2000"));
    QTest::newRow("integer") << "ActionQueueSize" << QVariant(8.0);
    QTest::newRow("float") << "TimerDuration" << QVariant(1000.0);
    QTest::newRow("boolean") << "LineInverter" << QVariant(0.0);
    QTest::newRow("command") << "TimerReset" << QVariant(-1.0);
    QTest::newRow("unknown") << "NoSuchFeature" << QVariant(-1.0);
}

void tst_FormBindingReports::featureWithoutWidgetIsReported()
{
    QFETCH(QString, feature);
    QFETCH(QVariant, value);
    m_form->refresh({feature});
    QCOMPARE(m_reports->count(), 1);
    QCOMPARE(m_reports->first(), QList<QVariant>({feature, value}));
    QCOMPARE(m_reports->first().last().type(), value.type());
}

void tst_FormBindingReports::lineStatusWithoutWidgetIsNotReported()
{
    m_form->refresh({"LineStatus"});
    QCOMPARE(m_reports->count(), 0);
}

void tst_FormBindingReports::lineStatusWithWidgetIsReported()
{
    m_form->add<QCheckBox>("chkLineStatus");
    m_form->refresh({"LineStatus"});
    QCOMPARE(reportedNames(), QStringList("LineStatus"));
}

void tst_FormBindingReports::refreshMakesNoWrite()
{
    bindStandardForm();
    m_camera->find("TriggerMode")->state().text = "On";
    m_camera->find("TriggerDelay")->state().real = 12.0;
    m_camera->find("TriggerDelay")->state().minReal = 11.0;
    m_camera->find("CounterDuration")->state().integer = 12;
    m_camera->find("CounterValue")->state().integer = 12;
    m_camera->find("LineInverter")->state().boolean = true;
    m_camera->find("ActionGroupKey")->state().writable = false;
    m_camera->clearLog();
    QStringList everything;
    for (const auto& feature : *m_camera->features())
        everything.append(
            QString::fromStdString(std::static_pointer_cast<Fake::FakeFeature>(feature)->name));
    m_form->refresh(everything);
    QCOMPARE(writesOf(*m_camera), QStringList());
    QCOMPARE(m_form->customPresets, 0);
    QVERIFY(m_reports->count() > 50);
    QCOMPARE(m_form->findChild<QSpinBox*>("spbCounterDuration")->value(), 12);
}

void tst_FormBindingReports::widgetsAreSilentDuringARefresh_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QByteArray>("signal");
    const auto row = [](const char* name, const char* signal) {
        QTest::newRow(name) << name << QByteArray(signal);
    };
    row("cmbTriggerMode", SIGNAL(currentTextChanged(QString)));
    row("txtCounterValue", SIGNAL(textChanged(QString)));
    row("spbTriggerDelay", SIGNAL(valueChanged(double)));
    row("spbCounterDuration", SIGNAL(valueChanged(int)));
    row("chkLineInverter", SIGNAL(stateChanged(int)));
}

void tst_FormBindingReports::widgetsAreSilentDuringARefresh()
{
    QFETCH(QString, objectName);
    QFETCH(QByteArray, signal);
    bindStandardForm();
    m_camera->find("TriggerMode")->state().text = "On";
    m_camera->find("CounterValue")->state().integer = 12;
    m_camera->find("TriggerDelay")->state().real = 12.0;
    m_camera->find("CounterDuration")->state().integer = 12;
    m_camera->find("LineInverter")->state().boolean = true;
    const QSignalSpy changes(m_form->findChild<QWidget*>(objectName), signal.constData());
    QVERIFY(changes.isValid());
    m_form->refresh({objectName.mid(3)});
    QCOMPARE(m_reports->count(), 1);
    QCOMPARE(changes.count(), 0);
}

void tst_FormBindingReports::refreshLeavesTheBlockingStateAsItWas()
{
    auto& open = m_form->add<QSpinBox>("spbCounterDuration");
    auto& silenced = m_form->add<QSpinBox>("spbCounterDuration");
    m_form->bind();
    silenced.blockSignals(true);
    m_form->refresh({"CounterDuration"});
    QVERIFY(!open.signalsBlocked());
    QVERIFY(silenced.signalsBlocked());
}

void tst_FormBindingReports::lineEditDisabledWhileTypingWritesNothing()
{
    auto& edit = m_form->add<QLineEdit>("txtCounterValue");
    m_form->bind();
    m_form->show();
    m_form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    edit.setFocus();
    QTest::keyClicks(&edit, "12");
    m_camera->find("CounterValue")->state().writable = false;
    m_camera->clearLog();
    m_form->refresh({"CounterValue"});
    QVERIFY(!edit.hasFocus());
    QCOMPARE(writesOf(*m_camera), QStringList());
}

void tst_FormBindingReports::nothingChangedRefreshesNothing()
{
    bindStandardForm();
    m_camera->clearLog();
    m_form->refresh({});
    QVERIFY(m_camera->calls().empty());
    QCOMPARE(m_reports->count(), 0);
}

QTEST_MAIN(tst_FormBindingReports)
#include "tst_FormBindingReports.moc"
