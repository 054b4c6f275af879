// Building the line table: its rows, cells and columns, and what is asked of the camera for them.
#include "tests/trigger/TableForm.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QLayout>
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

const Cell secondRow[] = {
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

/// A form on a screen with four pixels in the place of one.
class DenseForm : public TableForm
{
public:
    using TableForm::TableForm;

protected:
    int metric(PaintDeviceMetric property) const override
    {
        constexpr qreal ratio = 2.0;
        if (property == PdmDevicePixelRatio)
            return int(ratio);
        return property == PdmDevicePixelRatioScaled ? int(ratio * devicePixelRatioFScale())
                                                     : TableForm::metric(property);
    }
};

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
    void checkBoxIsCentredWithoutMargins();
    void lampShowsItsImageInTheMiddle();
    void lampIsCrispOnADenseScreen();
    void lampIsLitWhileTheLineIsHigh();
    void disabledLampIsDrawnGrey();
    void durationKeepsSixDecimalsAndTheStepOfTheCamera();
    void durationWithoutIncrementStepsByAHundredth();
    void typedDurationCountsOnceComplete();
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
    std::unique_ptr<Fake::FakeCamera> camera;
    std::unique_ptr<TableForm> form;
};

void tst_TableBuilding::init()
{
    camera = tableCamera();
    form = std::make_unique<TableForm>(*camera);
}

void tst_TableBuilding::cleanup()
{
    form.reset();
    camera.reset();
}

void tst_TableBuilding::rowsAreTheAvailableLinesInOrder()
{
    camera = tableCamera({"Line0", "Line1", "Line2", "Line3"});
    (*camera)["LineSelector"].state().entries[1].available = false;
    form = std::make_unique<TableForm>(*camera);
    form->table.setRowCount(9);
    form->build();
    QCOMPARE(rowLabels(form->table), (QStringList{"Line0", "Line2", "Line3"}));
    QCOMPARE(form->table.cellWidget(1, 0)->objectName(), QString("cmbLine2_LineMode"));
}

void tst_TableBuilding::cameraWithoutLinesHasNoRows()
{
    camera->remove("LineSelector");
    form = std::make_unique<TableForm>(*camera);
    form->table.setRowCount(2);
    form->build();
    QCOMPARE(form->table.rowCount(), 0);
    QVERIFY(!form->table.isColumnHidden(0));
}

void tst_TableBuilding::cellsHaveTheirPlaceNameAndClass_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(secondRow)); ++i)
        QTest::newRow(secondRow[i].name) << i;
}

void tst_TableBuilding::cellsHaveTheirPlaceNameAndClass()
{
    QFETCH(int, index);
    const Cell& expected = secondRow[index];
    form->build();
    const auto& widget = form->cell<QWidget>(expected.name);
    QCOMPARE(widget.metaObject()->className(), expected.className);
    const QWidget* placed = form->table.cellWidget(expected.row, expected.column);
    QVERIFY(placed == &widget || placed == widget.parentWidget());
}

void tst_TableBuilding::tableOfFourColumnsHasNoDebounceCells()
{
    form = std::make_unique<TableForm>(*camera, 4);
    form->build();
    QVERIFY(form->table.cellWidget(0, 3) != nullptr);
    QVERIFY(!form->findChild<QWidget*>("cmbLine0_LineDebounceMode"));
    QVERIFY(!form->findChild<QWidget*>("spbLine0_LineDebounceDuration"));
    QVERIFY(!form->tableFeatures.contains("LineDebounceMode"));
}

void tst_TableBuilding::tableOfFiveColumnsHasBothDebounceCells()
{
    form = std::make_unique<TableForm>(*camera, 5);
    form->build();
    QVERIFY(form->table.cellWidget(0, 4) != nullptr);
    // There is no place for it, but it exists and is refreshed.
    QVERIFY(form->findChild<QWidget*>("spbLine0_LineDebounceDuration"));
}

void tst_TableBuilding::cellsShowTheirOwnLine()
{
    (*camera)["LineMode"].stateFor("Line1").text = "Output";
    (*camera)["LineInverter"].stateFor("Line1").boolean = true;
    (*camera)["LineSource"].stateFor("Line1").text = "ExposureActive";
    (*camera)["LineDebounceMode"].stateFor("Line1").text = "Debounce";
    (*camera)["LineDebounceDuration"].stateFor("Line1").real = 32.5;
    form->build();
    QCOMPARE(form->cell<QComboBox>("cmbLine0_LineMode").currentText(), QString("Input"));
    QCOMPARE(entriesOf(form->cell<QComboBox>("cmbLine0_LineMode")),
             (QStringList{"Input", "Output"}));
    QVERIFY(!form->cell<QCheckBox>("chkLine0_LineInverter").isChecked());
    QCOMPARE(form->cell<QComboBox>("cmbLine1_LineMode").currentText(), QString("Output"));
    QVERIFY(form->cell<QCheckBox>("chkLine1_LineInverter").isChecked());
    QCOMPARE(form->cell<QComboBox>("cmbLine1_LineSource").currentText(), QString("ExposureActive"));
    QCOMPARE(form->cell<QComboBox>("cmbLine1_LineDebounceMode").currentText(), QString("Debounce"));
    QCOMPARE(form->cell<QDoubleSpinBox>("spbLine1_LineDebounceDuration").value(), 32.5);
}

void tst_TableBuilding::entriesHaveNoToolTipsOfTheirOwn_data()
{
    QTest::addColumn<bool>("unused");
    for (const Cell& cell : secondRow)
        if (qstrcmp(cell.className, "QComboBox") == 0)
            QTest::newRow(cell.name) << true;
}

void tst_TableBuilding::entriesHaveNoToolTipsOfTheirOwn()
{
    form->build();
    const auto& box = form->cell<QComboBox>(QTest::currentDataTag());
    QCOMPARE(box.count(), 2);
    QVERIFY(!box.itemData(0, Qt::ToolTipRole).isValid());
    form->refreshTable({box.objectName().section('_', 1)});
    QVERIFY(!box.itemData(0, Qt::ToolTipRole).isValid());
}

void tst_TableBuilding::unwritableCellsAreDisabled()
{
    for (const char* feature :
         {"LineMode", "LineInverter", "LineSource", "LineDebounceMode", "LineDebounceDuration"})
        (*camera)[feature].stateFor("Line1").writable = false;
    form->build();
    for (const Cell& cell : secondRow) {
        const QString onFirstLine = QString(cell.name).replace("Line1", "Line0");
        QVERIFY2(!form->cell<QWidget>(cell.name).isEnabled(), cell.name);
        // The lamp goes by its value alone.
        QCOMPARE(form->cell<QWidget>(qPrintable(onFirstLine)).isEnabled(),
                 !onFirstLine.startsWith("lbl"));
    }
}

void tst_TableBuilding::editorsTakeTheFocusOfKeyboardAndClick_data()
{
    QTest::addColumn<bool>("unused");
    for (const Cell& cell : secondRow)
        if (qstrcmp(cell.className, "QLabel") != 0)
            QTest::newRow(cell.name) << true;
}

void tst_TableBuilding::editorsTakeTheFocusOfKeyboardAndClick()
{
    form->build();
    QCOMPARE(form->cell<QWidget>(QTest::currentDataTag()).focusPolicy(), Qt::StrongFocus);
}

void tst_TableBuilding::checkBoxIsCentredWithoutMargins()
{
    form->build();
    const auto& box = form->cell<QCheckBox>("chkLine0_LineInverter");
    const QWidget* container = form->table.cellWidget(0, 1);
    QCOMPARE(box.parentWidget(), container);
    QCOMPARE(container->metaObject()->className(), "QWidget");
    QCOMPARE(container->contentsMargins(), QMargins());
    QCOMPARE(container->layout()->metaObject()->className(), "QHBoxLayout");
    QCOMPARE(container->layout()->contentsMargins(), QMargins());
    QCOMPARE(container->layout()->itemAt(0)->alignment(), Qt::AlignCenter);
}

void tst_TableBuilding::lampShowsItsImageInTheMiddle()
{
    form->build();
    const auto& lamp = form->cell<QLabel>("lblLine0_LineStatus");
    QCOMPARE(lamp.alignment(), Qt::AlignCenter);
    const QPixmap image(":/AdvTriggerWidget/ledon.png");
    QVERIFY(!image.isNull());
    QCOMPARE(image.size(), QSize(16, 16));
    QCOMPARE(lamp.pixmap(Qt::ReturnByValue).toImage(), image.toImage());
}

void tst_TableBuilding::lampIsCrispOnADenseScreen()
{
    DenseForm dense(*camera);
    dense.build();
    const QPixmap image = dense.cell<QLabel>("lblLine0_LineStatus").pixmap(Qt::ReturnByValue);
    // The same size to the eye.
    QCOMPARE(image.size(), QSize(32, 32));
    QCOMPARE(image.devicePixelRatio(), 2.0);
    QCOMPARE(image.toImage(), QPixmap(":/AdvTriggerWidget/ledon@2x.png").toImage());
}

void tst_TableBuilding::lampIsLitWhileTheLineIsHigh()
{
    (*camera)["LineStatus"].stateFor("Line1").boolean = true;
    form->build();
    QVERIFY(!form->cell<QLabel>("lblLine0_LineStatus").isEnabled());
    QVERIFY(form->cell<QLabel>("lblLine1_LineStatus").isEnabled());
}

void tst_TableBuilding::disabledLampIsDrawnGrey()
{
    (*camera)["LineStatus"].stateFor("Line1").boolean = true;
    form->build();
    const auto saturation = [&](const char* name) {
        auto& lamp = form->cell<QLabel>(name);
        lamp.resize(16, 16);
        return lamp.grab().toImage().pixelColor(lamp.width() / 2, lamp.height() / 2).saturation();
    };
    QVERIFY(saturation("lblLine1_LineStatus") > 150);
    QVERIFY(saturation("lblLine0_LineStatus") < 30);
}

void tst_TableBuilding::durationKeepsSixDecimalsAndTheStepOfTheCamera()
{
    Fake::State& state = (*camera)["LineDebounceDuration"].stateFor("Line0");
    state.real = 0.000125;
    state.minReal = 0.000001;
    state.maxReal = 0.5;
    state.incrementReal = 0.000125;
    form->build();
    const auto& box = form->cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration");
    QCOMPARE(box.decimals(), 6);
    QCOMPARE(box.minimum(), 0.000001);
    QCOMPARE(box.maximum(), 0.5);
    QCOMPARE(box.singleStep(), 0.000125);
    QCOMPARE(box.value(), 0.000125);
}

void tst_TableBuilding::durationWithoutIncrementStepsByAHundredth()
{
    form->build();
    QCOMPARE(form->cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration").singleStep(), 0.01);
}

void tst_TableBuilding::typedDurationCountsOnceComplete()
{
    form->build();
    QVERIFY(!form->cell<QDoubleSpinBox>("spbLine0_LineDebounceDuration").keyboardTracking());
}

void tst_TableBuilding::reportsEachFeatureOncePerRow()
{
    form->build();
    const QStringList row = {"LineMode",   "LineInverter",     "LineSource",
                             "LineStatus", "LineDebounceMode", "LineDebounceDuration"};
    QCOMPARE(form->tableFeatures, row + row);
    // The features are not bound by name: no refresh of the form counts them as known.
    QVERIFY(form->boundFeatures.isEmpty());
}

void tst_TableBuilding::reportsNoSelector()
{
    form->build();
    QVERIFY(!form->tableFeatures.contains("LineSelector"));
}

void tst_TableBuilding::missingOnOneLineHidesTheColumn_data()
{
    QTest::addColumn<QString>("cellName");
    for (const Cell& cell : secondRow) {
        const QString feature = QString(cell.name).section('_', 1);
        QTest::addRow("second line lacks %s", qPrintable(feature)) << QString(cell.name);
    }
}

void tst_TableBuilding::missingOnOneLineHidesTheColumn()
{
    QFETCH(QString, cellName);
    const QString feature = cellName.section('_', 1);
    (*camera)[feature.toStdString()].stateFor("Line1").implemented = false;
    form->build();
    const auto* cell =
        std::find_if(std::begin(secondRow), std::end(secondRow),
                     [&](const Cell& candidate) { return candidate.name == cellName; });
    for (int column = 0; column < form->table.columnCount(); ++column)
        QCOMPARE(form->table.isColumnHidden(column), column == cell->column);
    QVERIFY(!form->findChild<QWidget*>(cellName));
    QCOMPARE(form->tableFeatures.count(feature), 1);
}

void tst_TableBuilding::linesOfOtherNamesAreBuilt()
{
    camera = tableCamera({"Opto In", "TTL%1"});
    form = std::make_unique<TableForm>(*camera);
    form->build();
    QCOMPARE(rowLabels(form->table), (QStringList{"Opto In", "TTL%1"}));
    QCOMPARE(form->cell<QComboBox>("cmbOpto In_LineMode").currentText(), QString("Input"));
    QCOMPARE(form->table.cellWidget(1, 2)->objectName(), QString("cmbTTL%1_LineSource"));
}

void tst_TableBuilding::leavesTheSelectorAtTheLastLine()
{
    form->build();
    QCOMPARE((*camera)["LineSelector"].state().text, std::string("Line1"));
}

void tst_TableBuilding::writesTheSelectorOnly()
{
    camera->clearLog();
    form->lineTable.build(form->table);
    QCOMPARE(tableWrites(*camera), (QStringList{"LineSelector=Line0", "LineSelector=Line1"}));
    QCOMPARE(form->customPresets, 0);
}

void tst_TableBuilding::asksTheCameraInOrder()
{
    camera = tableCamera({"Line0"});
    form = std::make_unique<TableForm>(*camera);
    camera->clearLog();
    form->lineTable.build(form->table);
    const QStringList calls =
        callsOf(*camera, {"SetStringValue", "GetStringValue", "GetBoolValue", "GetFloatValue",
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
    QCOMPARE(camera->callCount("IsWritable", "LineMode"), 2);
}

void tst_TableBuilding::headersFitTheirContents()
{
    form->build();
    for (const QHeaderView* header : {form->table.horizontalHeader(), form->table.verticalHeader()})
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::ResizeToContents);
    for (const Cell& cell : secondRow) {
        const QWidget* placed = form->table.cellWidget(cell.row, cell.column);
        QVERIFY2(form->table.columnWidth(cell.column) >= placed->sizeHint().width(), cell.name);
        QVERIFY2(form->table.rowHeight(cell.row) >= placed->sizeHint().height(), cell.name);
    }
}

void tst_TableBuilding::nothingCanBeTypedBehindTheCells()
{
    form->build();
    QCOMPARE(form->table.editTriggers(), QAbstractItemView::NoEditTriggers);
}

void tst_TableBuilding::formSeesTheEventsOfTheCells()
{
    form->build();
    for (const Cell& cell : secondRow) {
        auto& widget = form->cell<QWidget>(cell.name);
        QEvent event(QEvent::ToolTip);
        QApplication::sendEvent(&widget, &event);
        QVERIFY2(form->filtered.contains(&widget), cell.name);
    }
}

QTEST_MAIN(tst_TableBuilding)
#include "tst_TableBuilding.moc"
