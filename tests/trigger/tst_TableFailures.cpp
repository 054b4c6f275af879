// A line table on a camera that fails at any one call, or disappears: nothing breaks, nothing but
// what the user changed is written, and the next refresh shows the truth again.
#include "tests/trigger/TableForm.h"

#include <QRegularExpression>
#include <QTest>

namespace {

const QStringList Everything = {"LineMode",   "LineInverter",     "LineSource",
                                "LineStatus", "LineDebounceMode", "LineDebounceDuration"};

/// What a user of the table does: open it, see a change, edit.
void use(TableForm& form)
{
    form.lineTable.build(form.table);
    form.refreshTable(Everything);
    if (auto* mode = form.findChild<QComboBox*>("cmbLine0_LineMode"))
        mode->setCurrentText("Output");
    if (auto* inverter = form.findChild<QCheckBox*>("chkLine0_LineInverter"))
        inverter->setChecked(true);
    if (auto* duration = form.findChild<QDoubleSpinBox*>("spbLine0_LineDebounceDuration"))
        duration->stepUp();
}

int callsOfOneUse()
{
    const auto camera = tableCamera({"Line0"});
    TableForm form(*camera);
    camera->clearLog();
    use(form);
    return int(camera->calls().size());
}

/// Empty when the cells show what the camera has, else the cell that does not.
QString untrueCell(const TableForm& form, const Fake::FakeCamera& camera)
{
    const auto state = [&](const char* name) -> const Fake::State& { return camera[name].state(); };
    const auto* mode = form.findChild<QComboBox*>("cmbLine0_LineMode");
    if (mode && mode->currentText().toStdString() != state("LineMode").text)
        return mode->objectName();
    const auto* inverter = form.findChild<QCheckBox*>("chkLine0_LineInverter");
    if (inverter && inverter->isChecked() != state("LineInverter").boolean)
        return inverter->objectName();
    const auto* lamp = form.findChild<QLabel*>("lblLine0_LineStatus");
    if (lamp && lamp->isEnabled() != state("LineStatus").boolean)
        return lamp->objectName();
    const auto* duration = form.findChild<QDoubleSpinBox*>("spbLine0_LineDebounceDuration");
    if (duration && duration->value() != state("LineDebounceDuration").real)
        return duration->objectName();
    return QString();
}

} // namespace

class tst_TableFailures : public QObject
{
    Q_OBJECT

private slots:
    void anyOneFailingCallIsMendedByTheNextRefresh();
    void cameraThatDisappearsWithAnyWriteBreaksNothing();
    void refusedSelectorShowsTheOneLineAndDropsEdits();
    void lineWhoseSelectionGotLostIsSelectedAgainForItsNewRow();
    void lineWhoseSelectionGotLostKeepsItsRow_data();
    void lineWhoseSelectionGotLostKeepsItsRow();
};

void tst_TableFailures::anyOneFailingCallIsMendedByTheNextRefresh()
{
    const QRegularExpression notEdited("^(?!LineSelector=|LineMode=|LineInverter=|"
                                       "LineDebounceDuration=)");
    const int calls = callsOfOneUse();
    QVERIFY(calls > 100);
    for (int n = 1; n <= calls; ++n) {
        const auto camera = tableCamera({"Line0"});
        (*camera)["LineDebounceDuration"].state().incrementReal = 1.0;
        TableForm form(*camera);
        camera->clearLog();
        camera->failNthCall(n);
        use(form);
        camera->clearFailures();
        form.refreshTable(Everything);
        const QString untrue = untrueCell(form, *camera);
        QVERIFY2(untrue.isEmpty(), qPrintable(QString("%1 after call %2").arg(untrue).arg(n)));
        QCOMPARE(tableWrites(*camera).filter(notEdited), QStringList());
    }
}

void tst_TableFailures::cameraThatDisappearsWithAnyWriteBreaksNothing()
{
    const auto healthy = tableCamera({"Line0"});
    TableForm counted(*healthy);
    healthy->clearLog();
    use(counted);
    const int writes = int(healthy->writes().size());
    QVERIFY(writes > 6);
    for (int n = 1; n <= writes; ++n) {
        const auto camera = tableCamera({"Line0"});
        TableForm form(*camera);
        int left = n;
        for (const char* feature :
             {"LineSelector", "LineMode", "LineInverter", "LineDebounceDuration"})
            (*camera)[feature].onWrite = [&](Fake::FakeFeature&) {
                if (--left == 0)
                    camera->failEverything();
            };
        use(form);
        form.refreshTable(Everything);
        QCOMPARE(left, 0);
        for (const QWidget* editor : form.table.findChildren<QComboBox*>())
            QVERIFY2(!editor->isEnabled(), qPrintable(editor->objectName()));
    }
}

void tst_TableFailures::refusedSelectorShowsTheOneLineAndDropsEdits()
{
    const auto camera = tableCamera();
    (*camera)["LineMode"].stateFor("Line1").text = "Output";
    camera->failCall("SetStringValue", "LineSelector");
    TableForm form(*camera);
    form.build();
    // Every row shows the line that the camera has selected; edits are dropped.
    QCOMPARE(form.cell<QComboBox>("cmbLine1_LineMode").currentText(), QString("Input"));
    form.cell<QComboBox>("cmbLine1_LineMode").setCurrentText("Output");
    QCOMPARE(tableWrites(*camera), QStringList{"LineSelector=Line1"});
}

void tst_TableFailures::lineWhoseSelectionGotLostIsSelectedAgainForItsNewRow()
{
    const auto camera = tableCamera();
    (*camera)["LineDebounceDuration"].stateFor("Line1").real = 64.0;
    TableForm form(*camera);
    int selections = 0;
    camera->onCall = [&](const std::string& operation, const std::string& feature) {
        const bool isSelection = operation == "SetStringValue" && feature == "LineSelector";
        return isSelection && ++selections == 2 ? ZalErrorTimeout : ZalErrorSuccess;
    };
    form.lineTable.build(form.table);
    QCOMPARE(selections, 3);
    QCOMPARE(form.cell<QDoubleSpinBox>("spbLine1_LineDebounceDuration").value(), 64.0);
}

/// Filled with the values of another line, a row would show what nobody set, and the next key in
/// its debounce box would go the wrong way.
void tst_TableFailures::lineWhoseSelectionGotLostKeepsItsRow_data()
{
    QTest::addColumn<int>("lost");
    QTest::newRow("the write") << 1;
    QTest::newRow("and what was to tell of it") << 2;
}

void tst_TableFailures::lineWhoseSelectionGotLostKeepsItsRow()
{
    QFETCH(int, lost);
    const auto camera = tableCamera();
    (*camera)["LineDebounceDuration"].stateFor("Line0").real = 2.0;
    (*camera)["LineDebounceDuration"].stateFor("Line1").real = 64.0;
    TableForm form(*camera);
    form.build();
    int selections = 0;
    int failures = 0;
    camera->onCall = [&](const std::string& operation, const std::string& feature) {
        if (operation == "SetStringValue" && feature == "LineSelector")
            ++selections;
        const bool isLost = selections == 2 && operation != "GetName" && failures < lost;
        failures += isLost ? 1 : 0;
        return isLost ? ZalErrorTimeout : ZalErrorSuccess;
    };
    form.refreshTable(Everything);
    auto& duration = form.cell<QDoubleSpinBox>("spbLine1_LineDebounceDuration");
    QCOMPARE(failures, lost);
    QCOMPARE(duration.value(), 64.0);
    duration.stepDown();
    QCOMPARE((*camera)["LineDebounceDuration"].stateFor("Line1").real, 32.0);
}

QTEST_MAIN(tst_TableFailures)
#include "tst_TableFailures.moc"
