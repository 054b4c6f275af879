// What a refresh tells the others, and that it tells the camera nothing.
#include "tests/trigger/TestEngine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class tst_AdvTriggerReports : public QObject
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
    void cameraSideChangeShowsAfterATick();
    void nothingChangedRefreshesNothing();

private:
    void bindStandardForm();
    QStringList reportedNames() const;

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TestEngine> engine;
    std::unique_ptr<QSignalSpy> reports;
};

void tst_AdvTriggerReports::init()
{
    camera = Fake::FakeCamera::standard();
    engine = std::make_unique<TestEngine>(*camera);
    reports = std::make_unique<QSignalSpy>(engine.get(),
                                           SIGNAL(FeatureChanged(const QString&, const QVariant&)));
}

void tst_AdvTriggerReports::cleanup()
{
    reports.reset();
    engine.reset();
    camera.reset();
}

QStringList tst_AdvTriggerReports::reportedNames() const
{
    QStringList names;
    for (const QList<QVariant>& report : *reports)
        names.append(report.first().toString());
    return names;
}

void tst_AdvTriggerReports::bindStandardForm()
{
    for (const char* name : {"TriggerSelector", "TriggerMode", "TriggerSource", "LineSource"})
        engine->add<QComboBox>(QString("cmb") + name);
    for (const char* name : {"ActionGroupKey", "DeviceModelName", "CounterValue"})
        engine->add<QLineEdit>(QString("txt") + name);
    for (const char* name : {"TriggerDelay", "TimerDuration"})
        engine->add<QDoubleSpinBox>(QString("spb") + name);
    for (const char* name : {"CounterDuration", "ActionSelector"})
        engine->add<QSpinBox>(QString("spb") + name);
    engine->add<QCheckBox>("chkLineInverter");
    engine->add<QPushButton>("btnTriggerSoftware");
    engine->InitBaseWidgets();
}

void tst_AdvTriggerReports::valuesAreReportedAfterTheirWidgetIsShown()
{
    auto& box = engine->add<QSpinBox>("spbCounterDuration");
    engine->InitBaseWidgets();
    camera->find("CounterDuration")->state().integer = 77;
    int shown = 0;
    bool silent = true;
    connect(engine.get(), &AdvTriggerBase::FeatureChanged, &box, [&] {
        shown = box.value();
        silent = box.signalsBlocked();
    });
    engine->refresh({"CounterDuration"});
    QCOMPARE(shown, 77);
    QVERIFY(!silent);
}

void tst_AdvTriggerReports::buttonReportsNothing()
{
    engine->add<QPushButton>("btnCounterReset");
    engine->refresh({"CounterReset"});
    QCOMPARE(reports->count(), 0);
}

void tst_AdvTriggerReports::labelReportsNothing()
{
    auto& label = engine->add<QLabel>("lblTriggerMode");
    label.setText("Mode:");
    engine->refresh({"TriggerMode"});
    QCOMPARE(label.text(), QString("Mode:"));
    // A label counts as a widget of its feature.
    QCOMPARE(reports->count(), 0);
}

void tst_AdvTriggerReports::featureWithoutWidgetIsReported_data()
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

void tst_AdvTriggerReports::featureWithoutWidgetIsReported()
{
    QFETCH(QString, feature);
    QFETCH(QVariant, value);
    engine->refresh({feature});
    QCOMPARE(reports->count(), 1);
    QCOMPARE(reports->first(), QList<QVariant>({feature, value}));
    QCOMPARE(reports->first().last().type(), value.type());
}

void tst_AdvTriggerReports::lineStatusWithoutWidgetIsNotReported()
{
    engine->refresh({"LineStatus"});
    QCOMPARE(reports->count(), 0);
}

void tst_AdvTriggerReports::lineStatusWithWidgetIsReported()
{
    engine->add<QCheckBox>("chkLineStatus");
    engine->refresh({"LineStatus"});
    QCOMPARE(reportedNames(), QStringList("LineStatus"));
}

void tst_AdvTriggerReports::refreshMakesNoWrite()
{
    bindStandardForm();
    camera->find("TriggerMode")->state().text = "On";
    camera->find("TriggerDelay")->state().real = 12.0;
    camera->find("TriggerDelay")->state().minReal = 11.0;
    camera->find("CounterDuration")->state().integer = 12;
    camera->find("CounterValue")->state().integer = 12;
    camera->find("LineInverter")->state().boolean = true;
    camera->find("ActionGroupKey")->state().writable = false;
    camera->clearLog();
    QStringList everything;
    for (const auto& feature : *camera->features())
        everything.append(
            QString::fromStdString(std::static_pointer_cast<Fake::FakeFeature>(feature)->name));
    engine->refresh(everything);
    QCOMPARE(writesOf(*camera), QStringList());
    QCOMPARE(engine->customPresets, 0);
    QVERIFY(reports->count() > 50);
    QCOMPARE(engine->findChild<QSpinBox*>("spbCounterDuration")->value(), 12);
}

void tst_AdvTriggerReports::widgetsAreSilentDuringARefresh_data()
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

void tst_AdvTriggerReports::widgetsAreSilentDuringARefresh()
{
    QFETCH(QString, objectName);
    QFETCH(QByteArray, signal);
    bindStandardForm();
    camera->find("TriggerMode")->state().text = "On";
    camera->find("CounterValue")->state().integer = 12;
    camera->find("TriggerDelay")->state().real = 12.0;
    camera->find("CounterDuration")->state().integer = 12;
    camera->find("LineInverter")->state().boolean = true;
    const QSignalSpy changes(engine->findChild<QWidget*>(objectName), signal.constData());
    QVERIFY(changes.isValid());
    engine->refresh({objectName.mid(3)});
    QCOMPARE(reports->count(), 1);
    QCOMPARE(changes.count(), 0);
}

void tst_AdvTriggerReports::refreshLeavesTheBlockingStateAsItWas()
{
    auto& open = engine->add<QSpinBox>("spbCounterDuration");
    auto& silenced = engine->add<QSpinBox>("spbCounterDuration");
    engine->InitBaseWidgets();
    silenced.blockSignals(true);
    engine->refresh({"CounterDuration"});
    QVERIFY(!open.signalsBlocked());
    QVERIFY(silenced.signalsBlocked());
}

void tst_AdvTriggerReports::lineEditDisabledWhileTypingWritesNothing()
{
    auto& edit = engine->add<QLineEdit>("txtCounterValue");
    engine->InitBaseWidgets();
    engine->show();
    engine->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(engine.get()));
    edit.setFocus();
    QTest::keyClicks(&edit, "12");
    camera->find("CounterValue")->state().writable = false;
    camera->clearLog();
    engine->refresh({"CounterValue"});
    QVERIFY(!edit.hasFocus());
    QCOMPARE(writesOf(*camera), QStringList());
}

void tst_AdvTriggerReports::cameraSideChangeShowsAfterATick()
{
    bindStandardForm();
    engine->show();
    engine->updateTimer();
    camera->find("CounterDuration")->state().integer = 77;
    camera->notify("CounterDuration");
    QTRY_VERIFY(engine->m_changedFeatures->contains("CounterDuration"));
    reports->clear();
    engine->updateTimer();
    QCOMPARE(engine->findChild<QSpinBox*>("spbCounterDuration")->value(), 77);
    QCOMPARE(reportedNames(), QStringList("CounterDuration"));
}

void tst_AdvTriggerReports::nothingChangedRefreshesNothing()
{
    bindStandardForm();
    camera->clearLog();
    engine->refresh({});
    QVERIFY(camera->calls().empty());
    QCOMPARE(reports->count(), 0);
}

QTEST_MAIN(tst_AdvTriggerReports)
#include "tst_AdvTriggerReports.moc"
