// The line table as the forms reach it: through the engine.
#include "tests/support/LogCapture.h"
#include "tests/trigger/TestEngine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
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

class tst_AdvTriggerTable : public QObject
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
    void tooltipsTellAboutTheCellsFeature();
    void wheelDoesNotChangeAnUnfocusedCell();

private:
    template <class Widget> Widget& cell(const QString& name) const
    {
        return *engine->findChild<Widget*>(name);
    }

    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TableEngine> engine;
    QTableWidget* table = nullptr;
};

void tst_AdvTriggerTable::init()
{
    camera = acceptedCamera();
    camera->addEnum("LineSelector", {"Line0", "Line1"}, "Line0");
    camera->addEnum("LineMode", {"Input", "Output"}, "Input");
    camera->addBool("LineInverter", false);
    camera->addEnum("LineSource", {"Off", "ExposureActive"}, "Off");
    camera->addBool("LineStatus", false);
    camera->addEnum("LineDebounceMode", {"Off", "Debounce"}, "Off");
    camera->addFloat("LineDebounceDuration", 8.0, 0.0, 1000.0);
    camera->select("LineSelector", {"LineMode", "LineInverter", "LineSource", "LineStatus",
                                    "LineDebounceMode", "LineDebounceDuration"});
    engine = std::make_unique<TableEngine>(*camera);
    table = &engine->add<QTableWidget>("tableWidget");
    table->setColumnCount(6);
    engine->CreateIOTable(table);
    camera->clearLog();
}

void tst_AdvTriggerTable::cleanup()
{
    engine.reset();
    camera.reset();
}

void tst_AdvTriggerTable::cellsAreObservedAndNotKnown()
{
    const QStringList row = {"LineMode",   "LineInverter",     "LineSource",
                             "LineStatus", "LineDebounceMode", "LineDebounceDuration"};
    QCOMPARE(engine->m_observedFeatures.mid(TestEngine::seedCount), row + row);
    // They are not bound by name: no refresh of the form counts them as known.
    QVERIFY(engine->boundFeatures().isEmpty());
}

void tst_AdvTriggerTable::refreshShowsTheCellsThatChanged()
{
    (*camera)["LineMode"].stateFor("Line0").text = "Output";
    (*camera)["LineSource"].stateFor("Line0").text = "ExposureActive";
    engine->m_changedFeatures->append("LineMode");
    engine->UpdateInitTable(table);
    QCOMPARE(cell<QComboBox>("cmbLine0_LineMode").currentText(), QString("Output"));
    QCOMPARE(cell<QComboBox>("cmbLine0_LineSource").currentText(), QString("Off"));
}

void tst_AdvTriggerTable::cellNameSelectsItsLine()
{
    QCOMPARE(engine->SwitchLine_GetFeature("cmbLine0_LineMode"), QString("LineMode"));
    QCOMPARE(writesOf(*camera), QStringList("SetStringValue LineSelector=Line0"));
}

void tst_AdvTriggerTable::editsReachTheCamera_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("write");
    QTest::newRow("combo box") << Cells[0] << Qt::Key_Down << "SetStringValue LineMode=Output";
    QTest::newRow("check box") << Cells[1] << Qt::Key_Space << "SetBoolValue LineInverter=true";
    QTest::newRow("spin box") << Cells[5] << Qt::Key_Up << "SetFloatValue LineDebounceDuration=16";
}

void tst_AdvTriggerTable::editsReachTheCamera()
{
    QFETCH(QString, cell);
    QFETCH(Qt::Key, key);
    QFETCH(QString, write);
    QTest::keyClick(engine->findChild<QWidget*>(cell), key);
    QCOMPARE(writesOf(*camera), QStringList({"SetStringValue LineSelector=Line0", write}));
    QCOMPARE(engine->customPresets, 1);
}

void tst_AdvTriggerTable::withoutSenderNothingHappens()
{
    const LogCapture log;
    QVERIFY(QMetaObject::invokeMethod(engine.get(), "OnChangeTableCombobox",
                                      Q_ARG(QString, QStringLiteral("Output"))));
    QVERIFY(QMetaObject::invokeMethod(engine.get(), "OnChangeTableCheckbox", Q_ARG(int, 2)));
    QVERIFY(QMetaObject::invokeMethod(engine.get(), "OnChangeTableSpinbox", Q_ARG(double, 1.0)));
    QCOMPARE(writesOf(*camera), QStringList());
    QCOMPARE(log.lines(), QStringList());
}

void tst_AdvTriggerTable::tooltipsTellAboutTheCellsFeature()
{
    engine->ActivateTooltips(Qt::Checked);
    for (const QString& name : Cells) {
        auto& widget = cell<QWidget>(name);
        QEvent event(QEvent::ToolTip);
        QApplication::sendEvent(&widget, &event);
        const QString line = "<b>Feature Name:</b> " + name.section('_', 1) + "<br/>";
        QVERIFY2(widget.toolTip().contains(line), qPrintable(name));
    }
}

void tst_AdvTriggerTable::wheelDoesNotChangeAnUnfocusedCell()
{
    auto& box = cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration");
    QWheelEvent wheel(QPointF(1, 1), box.mapToGlobal(QPointF(1, 1).toPoint()), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &wheel);
    QCOMPARE(box.value(), 8.0);
    QCOMPARE(writesOf(*camera), QStringList());
}

QTEST_MAIN(tst_AdvTriggerTable)
#include "tst_AdvTriggerTable.moc"
