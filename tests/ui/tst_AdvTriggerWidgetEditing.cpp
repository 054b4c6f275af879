// A user's edits, made with real events on the tab's widgets, and what the camera gets of them.
#include "tests/support/MouseChoice.h"
#include "tests/ui/TabUnderTest.h"

#include <QComboBox>
#include <QDoubleSpinBox>

class tst_AdvTriggerWidgetEditing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void keysInABoxWriteTheEntry_data();
    void keysInABoxWriteTheEntry();
    void clickInABoxsListWritesTheEntry();
    void boxShowsWhatTheCameraTook();
    void boxShowsTheOldEntryWhenTheWriteFails();
    void typedDelayIsWritten_data();
    void typedDelayIsWritten();
    void delayShowsWhatTheCameraTook();
    void delayStepsWithTheArrowKeys();
    void delayCannotLeaveTheCamerasRange();
    void clickRunsTheSoftwareTrigger();
    void softwareTriggerFollowsTheSource();
    void selectorShowsTheSelectedTriggersSettings();
    void everyEditTurnsThePresetToCustom_data();
    void everyEditTurnsThePresetToCustom();
    void softwareTriggerKeepsThePreset();
    void tooltipSwitchWritesNothing();
    void customPresetSelectsTheItemOfThatName();
    void customPresetWithoutSuchItemKeepsTheSelection();

private:
    QStringList writes() const { return toList(m_shown->camera->writes()); }
    Fake::FakeFeature& feature(const char* name) const { return (*m_shown->camera)[name]; }
    void type(const char* text) const;

    std::unique_ptr<TabOnCamera> m_shown;
};

void tst_AdvTriggerWidgetEditing::init()
{
    m_shown = std::make_unique<TabOnCamera>();
    m_shown->showAndSettle();
}

void tst_AdvTriggerWidgetEditing::cleanup()
{
    m_shown.reset();
}

/// Replaces the delay's text, key by key, and leaves the field.
void tst_AdvTriggerWidgetEditing::type(const char* text) const
{
    auto* delay = m_shown->find<QDoubleSpinBox>("spbTriggerDelay");
    delay->setFocus();
    delay->selectAll();
    QTest::keyClicks(delay, text);
    QTest::keyClick(delay, Qt::Key_Return);
}

void tst_AdvTriggerWidgetEditing::keysInABoxWriteTheEntry_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("write");
    QTest::newRow("cmbTriggerSelector")
        << int(Qt::Key_Up) << "SetStringValue TriggerSelector=AcquisitionStart";
    QTest::newRow("cmbTriggerMode") << int(Qt::Key_Down) << "SetStringValue TriggerMode=On";
    QTest::newRow("cmbTriggerSource") << int(Qt::Key_Down) << "SetStringValue TriggerSource=Line0";
    QTest::newRow("cmbTriggerActivation")
        << int(Qt::Key_Down) << "SetStringValue TriggerActivation=FallingEdge";
}

void tst_AdvTriggerWidgetEditing::keysInABoxWriteTheEntry()
{
    QFETCH(int, key);
    QFETCH(QString, write);
    auto* box = m_shown->find<QComboBox>(QTest::currentDataTag());
    box->setFocus();
    QTest::keyClick(box, static_cast<Qt::Key>(key));
    QCOMPARE(writes(), QStringList{write});
    QCOMPARE(box->currentText(), write.section('=', 1));
}

void tst_AdvTriggerWidgetEditing::clickInABoxsListWritesTheEntry()
{
    auto* box = m_shown->find<QComboBox>("cmbTriggerMode");
    chooseWithMouse(*box, "On");
    QCOMPARE(writes(), QStringList{"SetStringValue TriggerMode=On"});
    QCOMPARE(box->currentText(), QString("On"));
}

void tst_AdvTriggerWidgetEditing::boxShowsWhatTheCameraTook()
{
    feature("TriggerMode").onWrite = [](Fake::FakeFeature& mode) { mode.state().text = "Off"; };
    auto* box = m_shown->find<QComboBox>("cmbTriggerMode");
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentText(), QString("Off"));
    QCOMPARE(writes(), QStringList{"SetStringValue TriggerMode=On"});
}

void tst_AdvTriggerWidgetEditing::boxShowsTheOldEntryWhenTheWriteFails()
{
    m_shown->camera->failCall("SetStringValue", "TriggerMode");
    auto* box = m_shown->find<QComboBox>("cmbTriggerMode");
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentText(), QString("Off"));
}

void tst_AdvTriggerWidgetEditing::typedDelayIsWritten_data()
{
    QTest::addColumn<double>("delay");
    QTest::newRow("7") << 7.0;
    QTest::newRow("1500") << 1500.0;
    QTest::newRow("2.5") << 2.5;
    QTest::newRow("0.25") << 0.25;
}

void tst_AdvTriggerWidgetEditing::typedDelayIsWritten()
{
    QFETCH(double, delay);
    type(QTest::currentDataTag());
    QCOMPARE(writes(), QStringList{QString("SetFloatValue TriggerDelay=%1").arg(delay)});
    QCOMPARE(feature("TriggerDelay").state().real, delay);
    QCOMPARE(m_shown->find<QDoubleSpinBox>("spbTriggerDelay")->value(), delay);
}

void tst_AdvTriggerWidgetEditing::delayShowsWhatTheCameraTook()
{
    feature("TriggerDelay").onWrite = [](Fake::FakeFeature& delay) { delay.state().real = 8.0; };
    type("7");
    QCOMPARE(m_shown->find<QDoubleSpinBox>("spbTriggerDelay")->value(), 8.0);
    QCOMPARE(writes(), QStringList{"SetFloatValue TriggerDelay=7"});
}

void tst_AdvTriggerWidgetEditing::delayStepsWithTheArrowKeys()
{
    auto* delay = m_shown->find<QDoubleSpinBox>("spbTriggerDelay");
    QTest::keyClick(delay, Qt::Key_Up);
    QCOMPARE(writes(), QStringList{"SetFloatValue TriggerDelay=1"});
    QTest::keyClick(delay, Qt::Key_Down);
    QCOMPARE(delay->value(), 0.0);
}

void tst_AdvTriggerWidgetEditing::delayCannotLeaveTheCamerasRange()
{
    auto* delay = m_shown->find<QDoubleSpinBox>("spbTriggerDelay");
    QCOMPARE(delay->maximum(), 1000000.0);
    QTest::keyClick(delay, Qt::Key_Down);
    QCOMPARE(delay->value(), 0.0);
    QCOMPARE(writes(), QStringList());
}

void tst_AdvTriggerWidgetEditing::clickRunsTheSoftwareTrigger()
{
    int runs = 0;
    feature("TriggerSoftware").onRun = [&runs] { ++runs; };
    QTest::mouseClick(m_shown->find("btnTriggerSoftware"), Qt::LeftButton);
    QCOMPARE(runs, 1);
    QCOMPARE(writes(), QStringList{"RunCommand TriggerSoftware"});
}

void tst_AdvTriggerWidgetEditing::softwareTriggerFollowsTheSource()
{
    QTest::keyClick(m_shown->find("cmbTriggerSource"), Qt::Key_Down);
    m_shown->camera->notify("TriggerSource");
    QTRY_VERIFY(m_shown->tab.m_changedFeatures->contains("TriggerSource"));
    m_shown->tab.tick();
    QVERIFY(!m_shown->find("btnTriggerSoftware")->isEnabled());
    QTest::mouseClick(m_shown->find("btnTriggerSoftware"), Qt::LeftButton);
    QCOMPARE(settingsWritten(*m_shown->camera), QStringList{"SetStringValue TriggerSource=Line0"});
}

void tst_AdvTriggerWidgetEditing::selectorShowsTheSelectedTriggersSettings()
{
    feature("TriggerMode").stateFor("LineStart").text = "On";
    QTest::keyClick(m_shown->find("cmbTriggerSelector"), Qt::Key_Down);
    for (const char* name : {"TriggerSelector", "TriggerMode"})
        m_shown->camera->notify(name);
    QTRY_VERIFY(m_shown->tab.m_changedFeatures->contains("TriggerMode"));
    m_shown->tab.tick();
    QCOMPARE(m_shown->find<QComboBox>("cmbTriggerSelector")->currentText(), QString("LineStart"));
    QCOMPARE(m_shown->find<QComboBox>("cmbTriggerMode")->currentText(), QString("On"));
}

void tst_AdvTriggerWidgetEditing::everyEditTurnsThePresetToCustom_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("cmbTriggerSelector") << int(Qt::Key_Up);
    QTest::newRow("cmbTriggerMode") << int(Qt::Key_Down);
    QTest::newRow("cmbTriggerSource") << int(Qt::Key_Down);
    QTest::newRow("cmbTriggerActivation") << int(Qt::Key_Down);
    QTest::newRow("spbTriggerDelay") << int(Qt::Key_Up);
}

void tst_AdvTriggerWidgetEditing::everyEditTurnsThePresetToCustom()
{
    QFETCH(int, key);
    auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    presets->addItems({"Turn Off All", "Custom"});
    presets->setCurrentIndex(0);
    QTest::keyClick(m_shown->find(QTest::currentDataTag()), static_cast<Qt::Key>(key));
    QCOMPARE(presets->currentText(), QString("Custom"));
}

void tst_AdvTriggerWidgetEditing::softwareTriggerKeepsThePreset()
{
    auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    presets->addItems({"Turn Off All", "Custom"});
    presets->setCurrentIndex(0);
    QTest::mouseClick(m_shown->find("btnTriggerSoftware"), Qt::LeftButton);
    QCOMPARE(presets->currentIndex(), 0);
}

void tst_AdvTriggerWidgetEditing::tooltipSwitchWritesNothing()
{
    QTest::keyClick(m_shown->find("chkTooltips"), Qt::Key_Space);
    QCOMPARE(toList(m_shown->camera->calls()), QStringList());
}

void tst_AdvTriggerWidgetEditing::customPresetSelectsTheItemOfThatName()
{
    auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    presets->addItems({"Turn Off All", "custom", "Custom"});
    presets->setCurrentIndex(0);
    m_shown->tab.SetCustomPreset();
    QCOMPARE(presets->currentIndex(), 2);
}

void tst_AdvTriggerWidgetEditing::customPresetWithoutSuchItemKeepsTheSelection()
{
    auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    presets->addItems({"Turn Off All", "Reset All"});
    presets->setCurrentIndex(1);
    m_shown->find<QComboBox>("cmbTriggerMode")->setCurrentText("On");
    QCOMPARE(presets->currentIndex(), 1);
    QCOMPARE(presets->count(), 2);
}

QTEST_MAIN(tst_AdvTriggerWidgetEditing)
#include "tst_AdvTriggerWidgetEditing.moc"
