// The engine hands what the form and its line table hear on to its parts, and back.
#include "tests/support/LogCapture.h"
#include "tests/support/Rows.h"
#include "tests/trigger/PresetForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <QWheelEvent>

namespace {

class TableEngine : public TestEngine
{
public:
    using AdvTriggerBase::CreateIOTable;
    using AdvTriggerBase::SwitchLine_GetFeature;
    using AdvTriggerBase::UpdateInitTable;
    using TestEngine::TestEngine;
};

const QStringList Cells = {"cmbLine0_LineMode",         "chkLine0_LineInverter",
                           "cmbLine0_LineSource",       "lblLine0_LineStatus",
                           "cmbLine0_LineDebounceMode", "spbLine0_LineDebounceDuration"};

} // namespace

class tst_AdvTriggerSlots : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void cellsAreObservedAndNotKnown();
    void refreshShowsTheCellsThatChanged();
    void cellNameSelectsItsLine();
    void editsReachTheCamera_data();
    void editsReachTheCamera();
    void withoutSenderNothingHappens();
    void onlyAComboBoxCanSelectAPreset();
    void cameraSideChangeShowsAfterATick();
    void nothingChangedRefreshesNothing();
    void tooltipsTellAboutTheCellsFeature();
    void wheelDoesNotChangeAnUnfocusedCell();

private:
    template <class Widget> Widget& cell(const QString& name) const
    {
        return *m_engine->findChild<Widget*>(name);
    }

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TableEngine> m_engine;
    QTableWidget* m_table = nullptr;
};

void tst_AdvTriggerSlots::init()
{
    m_camera = acceptedCamera();
    m_camera->addEnum("LineSelector", {"Line0", "Line1"}, "Line0");
    m_camera->addEnum("LineMode", {"Input", "Output"}, "Input");
    m_camera->addBool("LineInverter", false);
    m_camera->addEnum("LineSource", {"Off", "ExposureActive"}, "Off");
    m_camera->addBool("LineStatus", false);
    m_camera->addEnum("LineDebounceMode", {"Off", "Debounce"}, "Off");
    m_camera->addFloat("LineDebounceDuration", 8.0, 0.0, 1000.0);
    m_camera->select("LineSelector", {"LineMode", "LineInverter", "LineSource", "LineStatus",
                                      "LineDebounceMode", "LineDebounceDuration"});
    m_camera->addEnum("Mode", {"Off", "On"}, "Off");
    m_camera->addInteger("Number", 5, 0, 1000);
    m_camera->addFloat("Real", 5.0, 0.0, 1000.0);
    m_camera->addBool("Flag", false);
    m_camera->addCommand("Run");
    m_engine = std::make_unique<TableEngine>(*m_camera);
    m_engine->add<QComboBox>("cmbMode");
    m_engine->add<QLineEdit>("txtNumber");
    m_engine->add<QSpinBox>("spbNumber");
    m_engine->add<QDoubleSpinBox>("spbReal");
    m_engine->add<QCheckBox>("chkFlag");
    m_engine->add<QPushButton>("btnRun");
    m_engine->InitBaseWidgets();
    m_table = &m_engine->add<QTableWidget>("tableWidget");
    m_table->setColumnCount(6);
    m_engine->CreateIOTable(m_table);
    m_camera->clearLog();
}

void tst_AdvTriggerSlots::cleanup()
{
    m_engine.reset();
    m_camera.reset();
}

void tst_AdvTriggerSlots::cellsAreObservedAndNotKnown()
{
    const QStringList cells = {"LineMode",   "LineInverter",     "LineSource",
                               "LineStatus", "LineDebounceMode", "LineDebounceDuration"};
    QCOMPARE(m_engine->m_observedFeatures.mid(m_engine->m_knownFeatures.size()), cells + cells);
    // They are not bound by name: no refresh of the form counts them as known.
    QVERIFY(m_engine->m_knownFeatures.filter("Line").isEmpty());
}

void tst_AdvTriggerSlots::refreshShowsTheCellsThatChanged()
{
    (*m_camera)["LineMode"].stateFor("Line0").text = "Output";
    (*m_camera)["LineSource"].stateFor("Line0").text = "ExposureActive";
    m_engine->m_changedFeatures->append("LineMode");
    m_engine->UpdateInitTable(m_table);
    QCOMPARE(cell<QComboBox>("cmbLine0_LineMode").currentText(), QString("Output"));
    QCOMPARE(cell<QComboBox>("cmbLine0_LineSource").currentText(), QString("Off"));
}

void tst_AdvTriggerSlots::cellNameSelectsItsLine()
{
    QCOMPARE(m_engine->SwitchLine_GetFeature("cmbLine0_LineMode"), QString("LineMode"));
    QCOMPARE(writesOf(*m_camera), QStringList("SetStringValue LineSelector=Line0"));
}

void tst_AdvTriggerSlots::editsReachTheCamera_data()
{
    columns<Qt::Key, QStringList, int>("key", "writes", "customPresets");
    const QString line = "SetStringValue LineSelector=Line0";
    row("cmbMode", Qt::Key_Down, QStringList("SetStringValue Mode=On"), 1);
    row("txtNumber", Qt::Key_Return, QStringList("SetIntegerValue Number=5"), 1);
    row("spbNumber", Qt::Key_Up, QStringList("SetIntegerValue Number=6"), 1);
    row("spbReal", Qt::Key_Up, QStringList("SetFloatValue Real=6"), 1);
    row("chkFlag", Qt::Key_Space, QStringList("SetBoolValue Flag=true"), 1);
    row("btnRun", Qt::Key_Space, QStringList("RunCommand Run"), 0);
    row("cmbLine0_LineMode", Qt::Key_Down, QStringList{line, "SetStringValue LineMode=Output"}, 1);
    row("chkLine0_LineInverter", Qt::Key_Space, QStringList{line, "SetBoolValue LineInverter=true"},
        1);
    row("spbLine0_LineDebounceDuration", Qt::Key_Up,
        QStringList{line, "SetFloatValue LineDebounceDuration=16"}, 1);
}

void tst_AdvTriggerSlots::editsReachTheCamera()
{
    QFETCH(Qt::Key, key);
    QTest::keyClick(m_engine->findChild<QWidget*>(QTest::currentDataTag()), key);
    QTEST(writesOf(*m_camera), "writes");
    QTEST(m_engine->customPresets, "customPresets");
}

void tst_AdvTriggerSlots::withoutSenderNothingHappens()
{
    const LogCapture log;
    const auto send = [this](const char* slot, QGenericArgument argument = QGenericArgument()) {
        return QMetaObject::invokeMethod(m_engine.get(), slot, argument);
    };
    for (const char* slot : {"OnChangeComboboxSelection", "OnChangeTableCombobox"})
        QVERIFY2(send(slot, Q_ARG(QString, QStringLiteral("On"))), slot);
    for (const char* slot : {"OnFinishLineEdit", "OnExecuteCommandButton"})
        QVERIFY2(send(slot), slot);
    for (const char* slot : {"OnChangeSpinbox", "OnChangeCheckbox", "OnChangeTableCheckbox"})
        QVERIFY2(send(slot, Q_ARG(int, 2)), slot);
    for (const char* slot : {"OnChangeDoubleSpinbox", "OnChangeTableSpinbox"})
        QVERIFY2(send(slot, Q_ARG(double, 1.0)), slot);
    QVERIFY(m_camera->calls().empty());
    QCOMPARE(log.lines(), QStringList());
}

void tst_AdvTriggerSlots::onlyAComboBoxCanSelectAPreset()
{
    const auto camera = lineCamera();
    PresetForm form(*camera, onePreset(R"({"LineMode": {"#value": "Output"}})"));
    QSpinBox other;
    connect(&other, SIGNAL(valueChanged(int)), &form, SLOT(OnSelectPreset(int)));
    other.setValue(1);
    form.OnSelectPreset(0);
    QCOMPARE(writesOf(*camera), QStringList());
    QCOMPARE(form.overviewResets, 0);
    form.select(QStringLiteral("P"));
    QCOMPARE(writesOf(*camera), QStringList("SetStringValue LineMode=Output"));
}

void tst_AdvTriggerSlots::cameraSideChangeShowsAfterATick()
{
    m_engine->show();
    m_engine->updateTimer();
    m_camera->find("Number")->state().integer = 77;
    m_camera->notify("Number");
    QTRY_VERIFY(m_engine->m_changedFeatures->contains("Number"));
    const QSignalSpy reports(m_engine.get(),
                             SIGNAL(FeatureChanged(const QString&, const QVariant&)));
    m_engine->updateTimer();
    QCOMPARE(cell<QSpinBox>("spbNumber").value(), 77);
    // Each of the two widgets of the name.
    QCOMPARE(reports.count(), 2);
    for (const QList<QVariant>& report : reports)
        QCOMPARE(report.first().toString(), QString("Number"));
}

void tst_AdvTriggerSlots::nothingChangedRefreshesNothing()
{
    const QSignalSpy reports(m_engine.get(),
                             SIGNAL(FeatureChanged(const QString&, const QVariant&)));
    m_engine->refresh({});
    QVERIFY(m_camera->calls().empty());
    QCOMPARE(reports.count(), 0);
}

void tst_AdvTriggerSlots::tooltipsTellAboutTheCellsFeature()
{
    m_engine->ActivateTooltips(Qt::Checked);
    for (const QString& name : Cells) {
        auto& widget = cell<QWidget>(name);
        QEvent event(QEvent::ToolTip);
        QApplication::sendEvent(&widget, &event);
        const QString line = "<b>Feature Name:</b> " + name.section('_', 1) + "<br/>";
        QVERIFY2(widget.toolTip().contains(line), qPrintable(name));
    }
}

void tst_AdvTriggerSlots::wheelDoesNotChangeAnUnfocusedCell()
{
    auto& box = cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration");
    QWheelEvent wheel(QPointF(1, 1), box.mapToGlobal(QPointF(1, 1).toPoint()), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &wheel);
    QCOMPARE(box.value(), 8.0);
    QCOMPARE(writesOf(*m_camera), QStringList());
}

QTEST_MAIN(tst_AdvTriggerSlots)
#include "tst_AdvTriggerSlots.moc"
