// The parts of the tab that are more than bound widgets: line table, presets, settings overview.
#include "tests/ui/PresetsFile.h"
#include "tests/ui/TabUnderTest.h"
#include "ui/SettingsTreeModel.h"
#include "widgets/CollapsingButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTreeView>

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

/// What the view paints in the value column of a setting of the first active branch.
QString paintedValue(const QTreeView& view, const QString& feature)
{
    const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, feature, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty())
        return QStringLiteral("no such row");
    const QVariant value = found.first().siblingAtColumn(1).data();
    return qobject_cast<QStyledItemDelegate*>(view.itemDelegate())
        ->displayText(value, QLocale(QLocale::German));
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
    Fake::FakeFeature& feature(const char* name) const { return (*shown->camera)[name]; }
    void showWith(std::unique_ptr<Fake::FakeCamera> camera)
    {
        shown = std::make_unique<TabOnCamera>(std::move(camera));
        shown->showAndSettle();
    }
    void unfold() const
    {
        shown->find<CollapsingButton>("btnTriggerFeaturesStatus")->click();
        const QWidget* frame = shown->find("frmTriggerFeaturesStatus");
        QTRY_VERIFY(frame->height() >= frame->sizeHint().height());
    }

    std::unique_ptr<TabOnCamera> shown;
};

void tst_AdvTriggerWidgetParts::init()
{
    auto camera = Fake::FakeCamera::standard();
    (*camera)["TriggerMode"].state().text = "On";
    showWith(std::move(camera));
}

void tst_AdvTriggerWidgetParts::firstShowTakesItsStepsInOrder()
{
    shown = std::make_unique<TabOnCamera>();
    shown->camera->clearLog();
    shown->tab.show();
    const QStringList calls = toList(shown->camera->calls());
    const int bound = positionOf(calls, "GetFloatRange TriggerDelay");
    const int table = positionOf(calls, "SetStringValue LineSelector=Line0");
    const int presets = positionOf(calls, "GetStringValue DeviceFamilyName");
    const int observed = positionOf(calls, "RegisterObserver TriggerMode");
    QVERIFY(bound < table);
    QVERIFY(table < presets);
    QVERIFY(presets < observed);
    // Before the overview is attached, which reads nothing any more.
    QCOMPARE(shown->camera->callCount("SetStringValue", "TriggerSelector"), 0);
}

void tst_AdvTriggerWidgetParts::tableHasARowForEachLine()
{
    const auto* table = shown->find<QTableWidget>("tableWidget");
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row)
        rows << table->verticalHeaderItem(row)->text();
    QCOMPARE(rows, (QStringList{"Line0", "Line1", "Line2", "Line3"}));
    QCOMPARE(shown->find<QComboBox>("cmbLine0_LineMode")->currentText(), QString("Input"));
    QCOMPARE(shown->find<QComboBox>("cmbLine3_LineMode")->currentText(), QString("Output"));
}

void tst_AdvTriggerWidgetParts::tableHasFourColumns()
{
    const auto* table = shown->find<QTableWidget>("tableWidget");
    QCOMPARE(table->columnCount(), 4);
    for (int column = 0; column < 4; ++column)
        QVERIFY(table->cellWidget(0, column) != nullptr);
    QVERIFY(!shown->tab.findChild<QWidget*>("cmbLine0_LineDebounceMode"));
}

void tst_AdvTriggerWidgetParts::lampsFollowTheLines()
{
    const QWidget* lamp = shown->find("lblLine1_LineStatus");
    QVERIFY(!lamp->isEnabled());
    feature("LineStatus").stateFor("Line1").boolean = true;
    shown->camera->notify("LineStatus");
    QTRY_VERIFY(shown->tab.m_changedFeatures->contains("LineStatus"));
    shown->tab.tick();
    QVERIFY(lamp->isEnabled());
    QVERIFY(!shown->find("lblLine0_LineStatus")->isEnabled());
}

void tst_AdvTriggerWidgetParts::cellEditReachesTheCamera()
{
    QTest::keyClick(shown->find("cmbLine2_LineSource"), Qt::Key_Down);
    QTest::keyClick(shown->find("chkLine2_LineInverter"), Qt::Key_Space);
    QCOMPARE(settingsWritten(*shown->camera),
             (QStringList{"SetStringValue LineSource=Line0", "SetBoolValue LineInverter=true"}));
    QVERIFY(feature("LineInverter").stateFor("Line2").boolean);
    QVERIFY(!feature("LineInverter").stateFor("Line3").boolean);
}

void tst_AdvTriggerWidgetParts::cellsAreRefreshedWithTheForm()
{
    feature("LineMode").stateFor("Line0").text = "Output";
    feature("LineInverter").stateFor("Line1").boolean = true;
    report(*shown, {"LineMode", "LineInverter"});
    QCOMPARE(shown->find<QComboBox>("cmbLine0_LineMode")->currentText(), QString("Output"));
    QVERIFY(shown->find<QCheckBox>("chkLine1_LineInverter")->isChecked());
    QCOMPARE(settingsWritten(*shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::tabKeyGoesThroughTheCellsAndOn()
{
    QStringList expected;
    for (const char* line : {"Line0", "Line1", "Line2", "Line3"})
        for (const char* cell : {"cmb%1_LineMode", "chk%1_LineInverter", "cmb%1_LineSource"})
            expected << QString(cell).arg(line);
    expected << "btnTriggerFeaturesStatus";
    // Into the table, which passes the focus on to its first cell.
    shown->find("btnAdvancedDialog")->setFocus();
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
    QCOMPARE(settingsWritten(*shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::firstShowAppliesNoPreset()
{
    const PresetsFile file(PresetsFile::fourPresets());
    shown = std::make_unique<TabOnCamera>(cameraOfPresetFamily());
    shown->show();
    const auto* presets = shown->find<QComboBox>("cmbSelectPreset");
    QCOMPARE(presets->count(), 4);
    QCOMPARE(presets->currentIndex(), -1);
    QCOMPARE(settingsWritten(*shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::pickedPresetIsApplied()
{
    const PresetsFile file(PresetsFile::fourPresets());
    showWith(cameraOfPresetFamily());
    auto* presets = shown->find<QComboBox>("cmbSelectPreset");
    QTest::keyClick(presets, Qt::Key_End);
    QCOMPARE(presets->currentText(), QString("Three Hundred"));
    QCOMPARE(settingsWritten(*shown->camera), QStringList{"SetFloatValue TriggerDelay=300"});
}

void tst_AdvTriggerWidgetParts::editInACellTurnsThePresetToCustom()
{
    const PresetsFile file(PresetsFile::fourPresets());
    showWith(cameraOfPresetFamily());
    const auto* presets = shown->find<QComboBox>("cmbSelectPreset");
    shown->find<QComboBox>("cmbSelectPreset")->setCurrentText("Hundred");
    QTest::keyClick(shown->find("chkLine2_LineInverter"), Qt::Key_Space);
    QCOMPARE(presets->currentText(), QString("Custom"));
}

void tst_AdvTriggerWidgetParts::editWithoutCustomPresetKeepsTheSelection()
{
    const PresetsFile file(R"({"#presets": ["Only"],
                               "Only": {"TriggerDelay": {"#value": 1}}})");
    showWith(cameraOfPresetFamily());
    auto* presets = shown->find<QComboBox>("cmbSelectPreset");
    presets->setCurrentText("Only");
    QTest::keyClick(shown->find("chkLine2_LineInverter"), Qt::Key_Space);
    QCOMPARE(presets->currentText(), QString("Only"));
    QCOMPARE(presets->count(), 1);
}

void tst_AdvTriggerWidgetParts::overviewShowsTheActiveTrigger()
{
    const auto* view = shown->find<QTreeView>("treeView");
    QCOMPARE(view->model(), shown->tab.m_settingsModel->model());
    QCOMPARE(branches(*shown),
             (QStringList{"Counter inactive", "Timer inactive", "Trigger FrameStart"}));
    QVERIFY(isExpandedThroughout(*view));
}

void tst_AdvTriggerWidgetParts::overviewFollowsTheForm()
{
    auto* view = shown->find<QTreeView>("treeView");
    feature("TriggerSource").state().text = "Line1";
    feature("TriggerDelay").state().real = 12.5;
    report(*shown, {"TriggerSource", "TriggerDelay"});
    QCOMPARE(paintedValue(*view, "TriggerSource"), QString("Line1"));
    QCOMPARE(paintedValue(*view, "TriggerDelay"), QString("12.5"));

    feature("TriggerMode").state().text = "Off";
    report(*shown, {"TriggerMode"});
    QCOMPARE(branches(*shown),
             (QStringList{"Counter inactive", "Timer inactive", "Trigger inactive"}));
    feature("TriggerMode").state().text = "On";
    report(*shown, {"TriggerMode"});
    QCOMPARE(branches(*shown).last(), QString("Trigger FrameStart"));
    QVERIFY(isExpandedThroughout(*view));
    QCOMPARE(settingsWritten(*shown->camera), QStringList());
}

void tst_AdvTriggerWidgetParts::overviewFollowsFeaturesWithoutWidget()
{
    feature("CounterEventSource").state().text = "Line1";
    report(*shown, {"CounterEventSource"});
    QCOMPARE(branches(*shown),
             (QStringList{"Timer inactive", "Trigger FrameStart", "Counter Counter0"}));
    feature("TimerSelector").state().text = "Timer1";
    feature("TimerTriggerSource").stateFor("Timer1").text = "Line0";
    report(*shown, {"TimerTriggerSource", "TimerSelector"});
    QCOMPARE(branches(*shown).last(), QString("Timer Timer1"));
}

void tst_AdvTriggerWidgetParts::laterShowsResetTheOverview()
{
    shown->tab.hide();
    feature("TriggerMode").stateFor("LineStart").text = "On";
    QSignalSpy removed(shown->tab.m_settingsModel->model(),
                       SIGNAL(rowsRemoved(QModelIndex, int, int)));
    shown->tab.show();
    QCOMPARE(removed.count(), 1);
    QCOMPARE(branches(*shown), (QStringList{"Counter inactive", "Timer inactive",
                                            "Trigger FrameStart", "Trigger LineStart"}));
}

void tst_AdvTriggerWidgetParts::laterShowsResetTheOverviewBeforeTheyObserve()
{
    shown->tab.hide();
    shown->camera->clearLog();
    shown->tab.show();
    const QStringList calls = toList(shown->camera->calls());
    const int putBack = calls.lastIndexOf("SetStringValue TriggerSelector=FrameStart");
    QVERIFY(putBack >= 0);
    QVERIFY(putBack < positionOf(calls, "RegisterObserver TriggerMode"));
}

void tst_AdvTriggerWidgetParts::appliedPresetResetsTheOverview()
{
    const PresetsFile file(PresetsFile::fourPresets());
    auto camera = cameraOfPresetFamily();
    (*camera)["TriggerMode"].stateFor("FrameStart").text = "On";
    showWith(std::move(camera));
    shown->find<QComboBox>("cmbSelectPreset")->setCurrentText("Two Hundred");
    QCOMPARE(paintedValue(*shown->find<QTreeView>("treeView"), "TriggerDelay"), QString("200"));
}

void tst_AdvTriggerWidgetParts::foldedOverviewIsOutOfReach()
{
    QVERIFY(!shown->find("treeView")->isVisible());
    unfold();
    QVERIFY(shown->find("treeView")->isVisible());
    shown->find<CollapsingButton>("btnTriggerFeaturesStatus")->click();
    QTRY_VERIFY(!shown->find("treeView")->isVisible());
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
    shown = std::make_unique<TabOnCamera>();
    feature("TriggerMode").state().text = "On";
    feature("TimerTriggerSource").stateFor("Timer0").text = "Line0";
    shown->tab.m_settingsModel->ResetData();
    shown->tab.resize(size);
    shown->showAndSettle();
    unfold();
    const auto* view = shown->find<QTreeView>("treeView");
    QTRY_COMPARE(view->verticalScrollBar()->maximum(), 0);
    // Its last row can be scrolled to.
    auto* area = shown->find<QScrollArea>("scrollArea");
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    QCOMPARE(view->visibleRegion().boundingRect().bottom(), view->rect().bottom());
}

void tst_AdvTriggerWidgetParts::unfoldedOverviewGrowsWithItsRows()
{
    unfold();
    const auto* view = shown->find<QTreeView>("treeView");
    const int before = view->height();
    feature("TimerTriggerSource").state().text = "Line0";
    report(*shown, {"TimerTriggerSource"});
    QTRY_VERIFY(view->height() > before);
    QTRY_COMPARE(view->verticalScrollBar()->maximum(), 0);
}

QTEST_MAIN(tst_AdvTriggerWidgetParts)
#include "tst_AdvTriggerWidgetParts.moc"
