// Building the line table: its rows, cells and columns, and what is asked of the camera for them.
#include "tests/trigger/TableForm.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QTest>

#include <algorithm>

namespace {

struct Cell
{
    const char* name;
    int row;
    int column;
    const char* className;
};

const Cell SecondRow[] = {
    {"cmbLine1_LineMode", 1, 0, "QComboBox"},
    {"chkLine1_LineInverter", 1, 1, "QCheckBox"},
    {"cmbLine1_LineSource", 1, 2, "QComboBox"},
    {"lblLine1_LineStatus", 1, 3, "QLabel"},
    {"cmbLine1_LineDebounceMode", 1, 4, "QComboBox"},
    {"spbLine1_LineDebounceDuration", 1, 5, "QDoubleSpinBox"},
};

QStringList rowLabels(const QTableWidget& table)
{
    QStringList labels;
    for (int row = 0; row < table.rowCount(); ++row)
        labels.append(table.verticalHeaderItem(row)->text());
    return labels;
}

QStringList entriesOf(const QComboBox& box)
{
    QStringList entries;
    for (int i = 0; i < box.count(); ++i)
        entries.append(box.itemText(i));
    return entries;
}

/// The calls of the given operations, without repetitions in a row (a text takes two calls).
QStringList callsOf(const Fake::FakeCamera& camera, const QStringList& operations)
{
    QStringList list;
    for (const std::string& call : camera.calls()) {
        const QString text = QString::fromStdString(call);
        const bool wanted = operations.contains(text.section(QLatin1Char(' '), 0, 0));
        if (wanted && (list.isEmpty() || list.last() != text))
            list.append(text);
    }
    return list;
}

} // namespace

class tst_TableBuilding : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsAreTheAvailableLinesInOrder();
    void cameraWithoutLinesHasNoRows();
    void cellsHaveTheirPlaceNameAndClass_data();
    void cellsHaveTheirPlaceNameAndClass();
    void tableOfFourColumnsHasNoDebounceCells();
    void tableOfFiveColumnsHasBothDebounceCells();
    void cellsShowTheirOwnLine();
    void entriesHaveNoToolTipsOfTheirOwn_data();
    void entriesHaveNoToolTipsOfTheirOwn();
    void unwritableCellsAreDisabled();
    void editorsTakeTheFocusOfKeyboardAndClick_data();
    void editorsTakeTheFocusOfKeyboardAndClick();
    void reportsEachFeatureOncePerRow();
    void reportsNoSelector();
    void missingOnOneLineHidesTheColumn_data();
    void missingOnOneLineHidesTheColumn();
    void linesOfOtherNamesAreBuilt();
    void leavesTheSelectorAtTheLastLine();
    void writesTheSelectorOnly();
    void asksTheCameraInOrder();
    void headersFitTheirContents();
    void nothingCanBeTypedBehindTheCells();
    void formSeesTheEventsOfTheCells();

private:
    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TableForm> m_form;
};

void tst_TableBuilding::init()
{
    m_camera = tableCamera();
    m_form = std::make_unique<TableForm>(*m_camera);
}

void tst_TableBuilding::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_TableBuilding::rowsAreTheAvailableLinesInOrder()
{
    m_camera = tableCamera({"Line0", "Line1", "Line2", "Line3"});
    (*m_camera)["LineSelector"].state().entries[1].available = false;
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->table.setRowCount(9);
    m_form->build();
    QCOMPARE(rowLabels(m_form->table), (QStringList{"Line0", "Line2", "Line3"}));
    QCOMPARE(m_form->table.cellWidget(1, 0)->objectName(), QString("cmbLine2_LineMode"));
}

void tst_TableBuilding::cameraWithoutLinesHasNoRows()
{
    m_camera->remove("LineSelector");
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->table.setRowCount(2);
    m_form->build();
    QCOMPARE(m_form->table.rowCount(), 0);
    QVERIFY(!m_form->table.isColumnHidden(0));
}

void tst_TableBuilding::cellsHaveTheirPlaceNameAndClass_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(SecondRow)); ++i)
        QTest::newRow(SecondRow[i].name) << i;
}

void tst_TableBuilding::cellsHaveTheirPlaceNameAndClass()
{
    QFETCH(int, index);
    const Cell& expected = SecondRow[index];
    m_form->build();
    const auto& widget = m_form->cell<QWidget>(expected.name);
    QCOMPARE(widget.metaObject()->className(), expected.className);
    const QWidget* placed = m_form->table.cellWidget(expected.row, expected.column);
    QVERIFY(placed == &widget || placed == widget.parentWidget());
}

void tst_TableBuilding::tableOfFourColumnsHasNoDebounceCells()
{
    m_form = std::make_unique<TableForm>(*m_camera, 4);
    m_form->build();
    QVERIFY(m_form->table.cellWidget(0, 3) != nullptr);
    QVERIFY(!m_form->findChild<QWidget*>("cmbLine0_LineDebounceMode"));
    QVERIFY(!m_form->findChild<QWidget*>("spbLine0_LineDebounceDuration"));
    QVERIFY(!m_form->tableFeatures.contains("LineDebounceMode"));
}

void tst_TableBuilding::tableOfFiveColumnsHasBothDebounceCells()
{
    m_form = std::make_unique<TableForm>(*m_camera, 5);
    m_form->build();
    QVERIFY(m_form->table.cellWidget(0, 4) != nullptr);
    // There is no place for it, but it exists and is refreshed.
    QVERIFY(m_form->findChild<QWidget*>("spbLine0_LineDebounceDuration"));
}

void tst_TableBuilding::cellsShowTheirOwnLine()
{
    (*m_camera)["LineMode"].stateFor("Line1").text = "Output";
    (*m_camera)["LineInverter"].stateFor("Line1").boolean = true;
    (*m_camera)["LineSource"].stateFor("Line1").text = "ExposureActive";
    (*m_camera)["LineDebounceMode"].stateFor("Line1").text = "Debounce";
    (*m_camera)["LineDebounceDuration"].stateFor("Line1").real = 32.5;
    m_form->build();
    QCOMPARE(m_form->cell<QComboBox>("cmbLine0_LineMode").currentText(), QString("Input"));
    QCOMPARE(entriesOf(m_form->cell<QComboBox>("cmbLine0_LineMode")),
             (QStringList{"Input", "Output"}));
    QVERIFY(!m_form->cell<QCheckBox>("chkLine0_LineInverter").isChecked());
    QCOMPARE(m_form->cell<QComboBox>("cmbLine1_LineMode").currentText(), QString("Output"));
    QVERIFY(m_form->cell<QCheckBox>("chkLine1_LineInverter").isChecked());
    QCOMPARE(m_form->cell<QComboBox>("cmbLine1_LineSource").currentText(),
             QString("ExposureActive"));
    QCOMPARE(m_form->cell<QComboBox>("cmbLine1_LineDebounceMode").currentText(),
             QString("Debounce"));
    QCOMPARE(m_form->cell<QDoubleSpinBox>("spbLine1_LineDebounceDuration").value(), 32.5);
}

void tst_TableBuilding::entriesHaveNoToolTipsOfTheirOwn_data()
{
    QTest::addColumn<bool>("unused");
    for (const Cell& cell : SecondRow)
        if (qstrcmp(cell.className, "QComboBox") == 0)
            QTest::newRow(cell.name) << true;
}

void tst_TableBuilding::entriesHaveNoToolTipsOfTheirOwn()
{
    m_form->build();
    const auto& box = m_form->cell<QComboBox>(QTest::currentDataTag());
    QCOMPARE(box.count(), 2);
    QVERIFY(!box.itemData(0, Qt::ToolTipRole).isValid());
    m_form->refreshTable({box.objectName().section('_', 1)});
    QVERIFY(!box.itemData(0, Qt::ToolTipRole).isValid());
}

void tst_TableBuilding::unwritableCellsAreDisabled()
{
    for (const char* feature :
         {"LineMode", "LineInverter", "LineSource", "LineDebounceMode", "LineDebounceDuration"})
        (*m_camera)[feature].stateFor("Line1").writable = false;
    m_form->build();
    for (const Cell& cell : SecondRow) {
        const QString onFirstLine = QString(cell.name).replace("Line1", "Line0");
        QVERIFY2(!m_form->cell<QWidget>(cell.name).isEnabled(), cell.name);
        // The lamp goes by its value alone.
        QCOMPARE(m_form->cell<QWidget>(qPrintable(onFirstLine)).isEnabled(),
                 !onFirstLine.startsWith("lbl"));
    }
}

void tst_TableBuilding::editorsTakeTheFocusOfKeyboardAndClick_data()
{
    QTest::addColumn<bool>("unused");
    for (const Cell& cell : SecondRow)
        if (qstrcmp(cell.className, "QLabel") != 0)
            QTest::newRow(cell.name) << true;
}

void tst_TableBuilding::editorsTakeTheFocusOfKeyboardAndClick()
{
    m_form->build();
    QCOMPARE(m_form->cell<QWidget>(QTest::currentDataTag()).focusPolicy(), Qt::StrongFocus);
}

void tst_TableBuilding::reportsEachFeatureOncePerRow()
{
    m_form->build();
    const QStringList row = {"LineMode",   "LineInverter",     "LineSource",
                             "LineStatus", "LineDebounceMode", "LineDebounceDuration"};
    QCOMPARE(m_form->tableFeatures, row + row);
}

void tst_TableBuilding::reportsNoSelector()
{
    m_form->build();
    QVERIFY(!m_form->tableFeatures.contains("LineSelector"));
}

void tst_TableBuilding::missingOnOneLineHidesTheColumn_data()
{
    QTest::addColumn<QString>("cellName");
    for (const Cell& cell : SecondRow) {
        const QString feature = QString(cell.name).section('_', 1);
        QTest::addRow("second line lacks %s", qPrintable(feature)) << QString(cell.name);
    }
}

void tst_TableBuilding::missingOnOneLineHidesTheColumn()
{
    QFETCH(QString, cellName);
    const QString feature = cellName.section('_', 1);
    (*m_camera)[feature.toStdString()].stateFor("Line1").implemented = false;
    m_form->build();
    const auto* cell =
        std::find_if(std::begin(SecondRow), std::end(SecondRow),
                     [&](const Cell& candidate) { return candidate.name == cellName; });
    for (int column = 0; column < m_form->table.columnCount(); ++column)
        QCOMPARE(m_form->table.isColumnHidden(column), column == cell->column);
    QVERIFY(!m_form->findChild<QWidget*>(cellName));
    QCOMPARE(m_form->tableFeatures.count(feature), 1);
}

void tst_TableBuilding::linesOfOtherNamesAreBuilt()
{
    m_camera = tableCamera({"Opto In", "TTL%1"});
    m_form = std::make_unique<TableForm>(*m_camera);
    m_form->build();
    QCOMPARE(rowLabels(m_form->table), (QStringList{"Opto In", "TTL%1"}));
    QCOMPARE(m_form->cell<QComboBox>("cmbOpto In_LineMode").currentText(), QString("Input"));
    QCOMPARE(m_form->table.cellWidget(1, 2)->objectName(), QString("cmbTTL%1_LineSource"));
}

void tst_TableBuilding::leavesTheSelectorAtTheLastLine()
{
    m_form->build();
    QCOMPARE((*m_camera)["LineSelector"].state().text, std::string("Line1"));
}

void tst_TableBuilding::writesTheSelectorOnly()
{
    m_camera->clearLog();
    m_form->lineTable.build(m_form->table);
    QCOMPARE(tableWrites(*m_camera), (QStringList{"LineSelector=Line0", "LineSelector=Line1"}));
    QCOMPARE(m_form->customPresets, 0);
}

void tst_TableBuilding::asksTheCameraInOrder()
{
    m_camera = tableCamera({"Line0"});
    m_form = std::make_unique<TableForm>(*m_camera);
    m_camera->clearLog();
    m_form->lineTable.build(m_form->table);
    const QStringList calls =
        callsOf(*m_camera, {"SetStringValue", "GetStringValue", "GetBoolValue", "GetFloatValue",
                            "GetFloatRange", "GetFloatIncrement", "GetEnumNames", "IsWritable"});
    // A combo box is asked for by its filling and once more for its state.
    const auto comboBox = [](const QString& feature) {
        return QStringList{"GetStringValue " + feature, "GetEnumNames " + feature,
                           "IsWritable " + feature};
    };
    QStringList expected = {"GetEnumNames LineSelector", "SetStringValue LineSelector=Line0",
                            "GetStringValue LineSelector"};
    expected += comboBox("LineMode");
    expected += {"GetBoolValue LineInverter", "IsWritable LineInverter"};
    expected += comboBox("LineSource");
    expected += "GetBoolValue LineStatus";
    expected += comboBox("LineDebounceMode");
    const QString duration = "LineDebounceDuration";
    expected +=
        {"GetFloatValue " + duration, "GetFloatRange " + duration, "GetFloatIncrement " + duration,
         "GetFloatValue " + duration, "IsWritable " + duration};
    QCOMPARE(calls, expected);
    QCOMPARE(m_camera->callCount("IsWritable", "LineMode"), 2);
}

void tst_TableBuilding::headersFitTheirContents()
{
    m_form->build();
    for (const QHeaderView* header :
         {m_form->table.horizontalHeader(), m_form->table.verticalHeader()})
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::ResizeToContents);
    for (const Cell& cell : SecondRow) {
        const QWidget* placed = m_form->table.cellWidget(cell.row, cell.column);
        QVERIFY2(m_form->table.columnWidth(cell.column) >= placed->sizeHint().width(), cell.name);
        QVERIFY2(m_form->table.rowHeight(cell.row) >= placed->sizeHint().height(), cell.name);
    }
}

void tst_TableBuilding::nothingCanBeTypedBehindTheCells()
{
    m_form->build();
    QCOMPARE(m_form->table.editTriggers(), QAbstractItemView::NoEditTriggers);
}

void tst_TableBuilding::formSeesTheEventsOfTheCells()
{
    m_form->build();
    for (const Cell& cell : SecondRow) {
        auto& widget = m_form->cell<QWidget>(cell.name);
        QEvent event(QEvent::ToolTip);
        QApplication::sendEvent(&widget, &event);
        QVERIFY2(m_form->filtered.contains(&widget), cell.name);
    }
}

QTEST_MAIN(tst_TableBuilding)
#include "tst_TableBuilding.moc"
