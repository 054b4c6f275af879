// The parts of the tab that are more than bound widgets: line table, presets, settings overview.
#include "tests/ui/PaintedValue.h"
#include "tests/ui/PresetsFile.h"
#include "tests/ui/TabUnderTest.h"
#include "ui/SettingsTreeModel.h"
#include "widgets/CollapsingButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableWidget>

namespace {

QStringList branches(const TabOnCamera& shown)
{
    const QStandardItemModel& model = *shown.tab.m_settingsModel->model();
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row)
        list << model.item(row, 0)->text() + " " + model.item(row, 1)->text();
    return list;
}

void report(TabOnCamera& shown, const QStringList& features)
{
    *shown.tab.m_changedFeatures = features;
    shown.tab.tick();
}

bool isExpandedThroughout(const QTreeView& view)
{
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        const QModelIndex branch = view.model()->index(row, 0);
        if (view.model()->hasChildren(branch) && !view.isExpanded(branch))
            return false;
    }
    return true;
}

int positionOf(const QStringList& calls, const QString& call)
{
    const int position = calls.indexOf(call);
    if (position < 0)
        qFatal("no call %s", qPrintable(call));
    return position;
}

} // namespace

class tst_AdvTriggerWidgetParts : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void firstShowTakesItsStepsInOrder();

    void tableHasARowForEachLine();
    void tableHasFourColumns();
    void lampsFollowTheLines();
    void cellEditReachesTheCamera();
    void cellsAreRefreshedWithTheForm();
    void tabKeyGoesThroughTheCellsAndOn();

    void firstShowAppliesNoPreset();
    void pickedPresetIsApplied();
    void editInACellTurnsThePresetToCustom();
    void editWithoutCustomPresetKeepsTheSelection();

    void overviewShowsTheActiveTrigger();
    void overviewFitsItsColumnsAndShowsSixDigits();
    void overviewFollowsTheForm();
    void overviewFollowsFeaturesWithoutWidget();
    void laterShowsResetTheOverview();
    void laterShowsResetTheOverviewBeforeTheyObserve();
    void appliedPresetResetsTheOverview();
    void foldedOverviewIsOutOfReach();
    void unfoldedOverviewIsShownWhole_data();
    void unfoldedOverviewIsShownWhole();
    void unfoldedOverviewGrowsWithItsRows();

private:
    Fake::FakeFeature& feature(const char* name) const { return (*m_shown->camera)[name]; }
    void showWith(std::unique_ptr<Fake::FakeCamera> camera)
    {
        m_shown = std::make_unique<TabOnCamera>(std::move(camera));
        m_shown->showAndSettle();
    }
    void unfold() const
    {
        m_shown->find<CollapsingButton>("btnTriggerFeaturesStatus")->click();
        const QWidget* frame = m_shown->find("frmTriggerFeaturesStatus");
        QTRY_VERIFY(frame->height() >= frame->sizeHint().height());
    }

    std::unique_ptr<TabOnCamera> m_shown;
};

void tst_AdvTriggerWidgetParts::init()
{
    auto camera = Fake::FakeCamera::standard();
    (*camera)["TriggerMode"].state().text = "On";
    showWith(std::move(camera));
}

void tst_AdvTriggerWidgetParts::firstShowTakesItsStepsInOrder()
{
    m_shown = std::make_unique<TabOnCamera>();
    m_shown->camera->clearLog();
    m_shown->tab.show();
    const QStringList calls = toList(m_shown->camera->calls());
    const int bound = positionOf(calls, "GetFloatRange TriggerDelay");
    const int table = positionOf(calls, "SetStringValue LineSelector=Line0");
    const int presets = positionOf(calls, "GetStringValue DeviceFamilyName");
    const int observed = positionOf(calls, "RegisterObserver TriggerMode");
    QVERIFY(bound < table);
    QVERIFY(table < presets);
    QVERIFY(presets < observed);
    // Before the overview is attached, which reads nothing any more.
    QCOMPARE(m_shown->camera->callCount("SetStringValue", "TriggerSelector"), 0);
}

void tst_AdvTriggerWidgetParts::tableHasARowForEachLine()
{
    const auto* table = m_shown->find<QTableWidget>("tableWidget");
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row)
        rows << table->verticalHeaderItem(row)->text();
    QCOMPARE(rows, (QStringList{"Line0", "Line1", "Line2", "Line3"}));
    QCOMPARE(m_shown->find<QComboBox>("cmbLine0_LineMode")->currentText(), QString("Input"));
    QCOMPARE(m_shown->find<QComboBox>("cmbLine3_LineMode")->currentText(), QString("Output"));
}

void tst_AdvTriggerWidgetParts::tableHasFourColumns()
{
    const auto* table = m_shown->find<QTableWidget>("tableWidget");
    QCOMPARE(table->columnCount(), 4);
    for (int column = 0; column < 4; ++column)
        QVERIFY(table->cellWidget(0, column) != nullptr);
    QVERIFY(!m_shown->tab.findChild<QWidget*>("cmbLine0_LineDebounceMode"));
}

void tst_AdvTriggerWidgetParts::lampsFollowTheLines()
{
    const QWidget* lamp = m_shown->find("lblLine1_LineStatus");
    QVERIFY(!lamp->isEnabled());
    feature("LineStatus").stateFor("Line1").boolean = true;
    m_shown->camera->notify("LineStatus");
    QTRY_VERIFY(m_shown->tab.m_changedFeatures->contains("LineStatus"));
    m_shown->tab.tick();
    QVERIFY(lamp->isEnabled());
    QVERIFY(!m_shown->find("lblLine0_LineStatus")->isEnabled());
}

void tst_AdvTriggerWidgetParts::cellEditReachesTheCamera()
{
    QTest::keyClick(m_shown->find("cmbLine2_LineSource"), Qt::Key_Down);
    QTest::keyClick(m_shown->find("chkLine2_LineInverter"), Qt::Key_Space);
    QCOMPARE(settingsWritten(*m_shown->camera),
             (QStringList{"SetStringValue LineSource=Line0", "SetBoolValue LineInverter=true"}));
    QVERIFY(feature("LineInverter").stateFor("Line2").boolean);
    QVERIFY(!feature("LineInverter").stateFor("Line3").boolean);
}

void tst_AdvTriggerWidgetParts::cellsAreRefreshedWithTheForm()
{
    feature("LineMode").stateFor("Line0").text = "Output";
    feature("LineInverter").stateFor("Line1").boolean = true;
    report(*m_shown, {"LineMode", "LineInverter"});
    QCOMPARE(m_shown->find<QComboBox>("cmbLine0_LineMode")->currentText(), QString("Output"));
    QVERIFY(m_shown->find<QCheckBox>("chkLine1_LineInverter")->isChecked());
    QCOMPARE(settingsWritten(*m_shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::tabKeyGoesThroughTheCellsAndOn()
{
    QStringList expected;
    for (const char* line : {"Line0", "Line1", "Line2", "Line3"})
        for (const char* cell : {"cmb%1_LineMode", "chk%1_LineInverter", "cmb%1_LineSource"})
            expected << QString(cell).arg(line);
    expected << "btnTriggerFeaturesStatus";
    // Into the table, which passes the focus on to its first cell.
    m_shown->find("btnAdvancedDialog")->setFocus();
    QStringList visited;
    for (int i = 0; i < expected.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(visited, expected);

    QStringList back;
    for (int i = 0; i <= expected.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        back.prepend(QApplication::focusWidget()->objectName());
    }
    expected.removeLast();
    QCOMPARE(back, QStringList({"btnAdvancedDialog", "tableWidget"}) + expected);
    QCOMPARE(settingsWritten(*m_shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::firstShowAppliesNoPreset()
{
    const PresetsFile file(PresetsFile::fourPresets());
    m_shown = std::make_unique<TabOnCamera>(cameraOfPresetFamily());
    m_shown->show();
    const auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    QCOMPARE(presets->count(), 4);
    QCOMPARE(presets->currentIndex(), -1);
    QCOMPARE(settingsWritten(*m_shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::pickedPresetIsApplied()
{
    const PresetsFile file(PresetsFile::fourPresets());
    showWith(cameraOfPresetFamily());
    auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    QTest::keyClick(presets, Qt::Key_End);
    QCOMPARE(presets->currentText(), QString("Three Hundred"));
    QCOMPARE(settingsWritten(*m_shown->camera), QStringList{"SetFloatValue TriggerDelay=300"});
}

void tst_AdvTriggerWidgetParts::editInACellTurnsThePresetToCustom()
{
    const PresetsFile file(PresetsFile::fourPresets());
    showWith(cameraOfPresetFamily());
    const auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    m_shown->find<QComboBox>("cmbSelectPreset")->setCurrentText("Hundred");
    QTest::keyClick(m_shown->find("chkLine2_LineInverter"), Qt::Key_Space);
    QCOMPARE(presets->currentText(), QString("Custom"));
}

void tst_AdvTriggerWidgetParts::editWithoutCustomPresetKeepsTheSelection()
{
    const PresetsFile file(R"({"#presets": ["Only"],
                               "Only": {"TriggerDelay": {"#value": 1}}})");
    showWith(cameraOfPresetFamily());
    auto* presets = m_shown->find<QComboBox>("cmbSelectPreset");
    presets->setCurrentText("Only");
    QTest::keyClick(m_shown->find("chkLine2_LineInverter"), Qt::Key_Space);
    QCOMPARE(presets->currentText(), QString("Only"));
    QCOMPARE(presets->count(), 1);
}

void tst_AdvTriggerWidgetParts::overviewShowsTheActiveTrigger()
{
    const auto* view = m_shown->find<QTreeView>("treeView");
    QCOMPARE(view->model(), m_shown->tab.m_settingsModel->model());
    QCOMPARE(branches(*m_shown),
             (QStringList{"Counter inactive", "Timer inactive", "Trigger FrameStart"}));
    QVERIFY(isExpandedThroughout(*view));
}

void tst_AdvTriggerWidgetParts::overviewFitsItsColumnsAndShowsSixDigits()
{
    const auto* view = m_shown->find<QTreeView>("treeView");
    QCOMPARE(view->header()->sectionResizeMode(0), QHeaderView::ResizeToContents);
    QVERIFY(view->header()->stretchLastSection());
    feature("TriggerDelay").state().real = 1234.56789;
    report(*m_shown, {"TriggerDelay"});
    QCOMPARE(paintedValue(*view, "TriggerDelay"), QString("1234.57"));
}

void tst_AdvTriggerWidgetParts::overviewFollowsTheForm()
{
    auto* view = m_shown->find<QTreeView>("treeView");
    feature("TriggerSource").state().text = "Line1";
    feature("TriggerDelay").state().real = 12.5;
    report(*m_shown, {"TriggerSource", "TriggerDelay"});
    QCOMPARE(paintedValue(*view, "TriggerSource"), QString("Line1"));
    QCOMPARE(paintedValue(*view, "TriggerDelay"), QString("12.5"));

    feature("TriggerMode").state().text = "Off";
    report(*m_shown, {"TriggerMode"});
    QCOMPARE(branches(*m_shown),
             (QStringList{"Counter inactive", "Timer inactive", "Trigger inactive"}));
    feature("TriggerMode").state().text = "On";
    report(*m_shown, {"TriggerMode"});
    QCOMPARE(branches(*m_shown).last(), QString("Trigger FrameStart"));
    QVERIFY(isExpandedThroughout(*view));
    QCOMPARE(settingsWritten(*m_shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::overviewFollowsFeaturesWithoutWidget()
{
    feature("CounterEventSource").state().text = "Line1";
    report(*m_shown, {"CounterEventSource"});
    QCOMPARE(branches(*m_shown),
             (QStringList{"Timer inactive", "Trigger FrameStart", "Counter Counter0"}));
    feature("TimerSelector").state().text = "Timer1";
    feature("TimerTriggerSource").stateFor("Timer1").text = "Line0";
    report(*m_shown, {"TimerTriggerSource", "TimerSelector"});
    QCOMPARE(branches(*m_shown).last(), QString("Timer Timer1"));
}

void tst_AdvTriggerWidgetParts::laterShowsResetTheOverview()
{
    m_shown->tab.hide();
    feature("TriggerMode").stateFor("LineStart").text = "On";
    QSignalSpy removed(m_shown->tab.m_settingsModel->model(),
                       SIGNAL(rowsRemoved(QModelIndex, int, int)));
    m_shown->tab.show();
    QCOMPARE(removed.count(), 1);
    QCOMPARE(branches(*m_shown), (QStringList{"Counter inactive", "Timer inactive",
                                              "Trigger FrameStart", "Trigger LineStart"}));
}

void tst_AdvTriggerWidgetParts::laterShowsResetTheOverviewBeforeTheyObserve()
{
    m_shown->tab.hide();
    m_shown->camera->clearLog();
    m_shown->tab.show();
    const QStringList calls = toList(m_shown->camera->calls());
    const int putBack = calls.lastIndexOf("SetStringValue TriggerSelector=FrameStart");
    QVERIFY(putBack >= 0);
    QVERIFY(putBack < positionOf(calls, "RegisterObserver TriggerMode"));
}

void tst_AdvTriggerWidgetParts::appliedPresetResetsTheOverview()
{
    const PresetsFile m_file(PresetsFile::fourPresets());
    auto camera = cameraOfPresetFamily();
    (*camera)["TriggerMode"].stateFor("FrameStart").text = "On";
    showWith(std::move(camera));
    m_shown->find<QComboBox>("cmbSelectPreset")->setCurrentText("Two Hundred");
    QCOMPARE(paintedValue(*m_shown->find<QTreeView>("treeView"), "TriggerDelay"), QString("200"));
}

void tst_AdvTriggerWidgetParts::foldedOverviewIsOutOfReach()
{
    QVERIFY(!m_shown->find("treeView")->isVisible());
    unfold();
    QVERIFY(m_shown->find("treeView")->isVisible());
    m_shown->find<CollapsingButton>("btnTriggerFeaturesStatus")->click();
    QTRY_VERIFY(!m_shown->find("treeView")->isVisible());
}

void tst_AdvTriggerWidgetParts::unfoldedOverviewIsShownWhole_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("narrowest") << QSize(350, 400);
    QTest::newRow("initial") << QSize(517, 747);
    QTest::newRow("beside the image on a small screen") << QSize(540, 680);
    QTest::newRow("beside the image on a large screen") << QSize(540, 990);
}

void tst_AdvTriggerWidgetParts::unfoldedOverviewIsShownWhole()
{
    QFETCH(QSize, size);
    m_shown = std::make_unique<TabOnCamera>();
    feature("TriggerMode").state().text = "On";
    feature("TimerTriggerSource").stateFor("Timer0").text = "Line0";
    m_shown->tab.m_settingsModel->ResetData();
    m_shown->tab.resize(size);
    m_shown->showAndSettle();
    unfold();
    const auto* view = m_shown->find<QTreeView>("treeView");
    QTRY_COMPARE(view->verticalScrollBar()->maximum(), 0);
    // Its last row can be scrolled to.
    auto* area = m_shown->find<QScrollArea>("scrollArea");
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    QCOMPARE(view->visibleRegion().boundingRect().bottom(), view->rect().bottom());
}

void tst_AdvTriggerWidgetParts::unfoldedOverviewGrowsWithItsRows()
{
    unfold();
    const auto* view = m_shown->find<QTreeView>("treeView");
    const int before = view->height();
    feature("TimerTriggerSource").state().text = "Line0";
    report(*m_shown, {"TimerTriggerSource"});
    QTRY_VERIFY(view->height() > before);
    QTRY_COMPARE(view->verticalScrollBar()->maximum(), 0);
}

QTEST_MAIN(tst_AdvTriggerWidgetParts)
#include "tst_AdvTriggerWidgetParts.moc"
