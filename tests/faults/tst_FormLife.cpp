// Where a form that has lived through a failure may show something else than a new one: each reason
// in its situation, and in no other.
#include "tests/faults/FormLife.h"
#include "tests/support/Rows.h"

#include <QtTest>

using namespace Faults;

class tst_FormLife : public QObject
{
    Q_OBJECT

private slots:
    void tableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly_data();
    void tableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly();
    void overviewOfTheDialogDiffersAfterItsOwnFailuresOnly_data();
    void overviewOfTheDialogDiffersAfterItsOwnFailuresOnly();
    void fieldTakesOtherTextsWhereItsNotationWasMissedOnly();
    void pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly_data();
    void pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly();
};

void tst_FormLife::tableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly_data()
{
    columns<QString, QString, QString, QString, bool>("lines", "failing", "widget", "shown",
                                                      "isExplained");
    const QString rows = "Line0,Line2,Line3";
    const QString allRows = "Line0,Line1,Line2,Line3";
    const QString question = "IsValueAvailable LineSelector";
    const QString mode = "cmbLine%1_LineMode";
    const QString table = "tableWidget";
    row("table", rows, question, table, rows + " without ", true);
    row("table's columns", allRows, question, table, allRows + " without 2", false);
    row("missing", rows, question, mode.arg(1), "missing", true);
    row("missing with a row", rows, question, mode.arg(2), "missing", false);
    row("before the last row", rows, question, mode.arg(2), "'Input'", false);
    row("behind the last row", rows, question, mode.arg(3), "'Input'", true);
    row("missing behind", rows, question, mode.arg(3), "missing", false);
    row("behind, lamp", rows, question, "lblLine3_LineStatus", "there disabled", true);
    row("all rows", allRows, question, mode.arg(3), "'Input'", false);
    row("no row", "", question, mode.arg(0), "missing", true);
    row("no cell", rows, question, "cmbTriggerMode", "missing", false);
    for (const char* other : {"IsValueAvailable LineMode", "GetStringValue LineSelector"}) {
        row(QByteArray("table, ") + other, rows, other, table, rows + " without ", false);
        row(QByteArray("missing, ") + other, rows, other, mode.arg(1), "missing", false);
        row(QByteArray("behind, ") + other, rows, other, mode.arg(3), "'Input'", false);
    }
}

void tst_FormLife::tableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly()
{
    QFETCH(QString, lines);
    QFETCH(QString, failing);
    QFETCH(QString, widget);
    QFETCH(QString, shown);
    QFETCH(bool, isExplained);
    FormLife life;
    life.lines = lines.split(',', Qt::SkipEmptyParts);
    const QString feature = failing.section(' ', 1);
    life.whileBuilt = {{failing.section(' ', 0, 0), feature, QString(), ZalErrorTimeout}};
    const QString expected =
        widget == "tableWidget" ? "Line0,Line1,Line2,Line3 without " : "'Output'";
    QCOMPARE(unexplained({{widget, shown, expected}}, life).empty(), isExplained);
}

void tst_FormLife::overviewOfTheDialogDiffersAfterItsOwnFailuresOnly_data()
{
    columns<bool, QString, bool, bool>("isDialog", "feature", "isSinceOverview", "isExplained");
    row("timer", true, "TimerDelay", true, true);
    row("selector", true, "TriggerSelector", true, true);
    row("line", true, "LineInverter", true, false);
    row("before it was read", true, "TimerDelay", false, false);
    row("tab", false, "TimerDelay", true, false);
}

void tst_FormLife::overviewOfTheDialogDiffersAfterItsOwnFailuresOnly()
{
    QFETCH(bool, isDialog);
    QFETCH(QString, feature);
    QFETCH(bool, isSinceOverview);
    QFETCH(bool, isExplained);
    const Failures failures = {{"GetFloatValue", feature, QString(), ZalErrorTimeout}};
    FormLife life;
    life.isDialog = isDialog;
    life.sinceBuilt = failures;
    if (isSinceOverview)
        life.sinceOverview = failures;
    QCOMPARE(unexplained({{"treeView", "()", "(Timer)"}}, life).empty(), isExplained);
}

void tst_FormLife::fieldTakesOtherTextsWhereItsNotationWasMissedOnly()
{
    const Difference verdict = {"txtActionGroupKey", "'0x5' invalid enabled",
                                "'0x5' acceptable enabled"};
    FormLife life;
    life.whileBuilt = {{"GetRepresentation", "ActionGroupMask", QString(), ZalErrorTimeout},
                       {"GetIntegerRange", "ActionGroupKey", QString(), ZalErrorTimeout}};
    QCOMPARE(unexplained({verdict}, life).size(), std::size_t(1));
    life.whileBuilt = {{"GetRepresentation", "ActionGroupKey", QString(), ZalErrorTimeout}};
    QCOMPARE(unexplained({verdict}, life).size(), std::size_t(0));
    const Difference text = {"txtActionGroupKey", "'5' acceptable enabled",
                             "'0x5' acceptable enabled"};
    QCOMPARE(unexplained({text}, life).size(), std::size_t(1));
}

void tst_FormLife::pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly_data()
{
    columns<QString, QString, QString, bool>("widget", "operation", "feature", "isExplained");
    row("delay", "txtPWMDutyCycle", "GetName", "TimerDelay", true);
    row("duration", "txtPWMFrequency", "GetName", "TimerDuration", true);
    row("value", "txtPWMFrequency", "GetFloatValue", "TimerDelay", false);
    row("other feature", "txtPWMFrequency", "GetName", "TimerStatus", false);
    row("other field", "txtActionQueueSize", "GetName", "TimerDelay", false);
}

void tst_FormLife::pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly()
{
    QFETCH(QString, widget);
    QFETCH(QString, operation);
    QFETCH(QString, feature);
    QFETCH(bool, isExplained);
    FormLife life;
    life.isDialog = true;
    life.whileBuilt = {{operation, feature, QString(), ZalErrorTimeout}};
    const Difference difference = {widget, "'100' acceptable enabled", "'25' acceptable enabled"};
    QCOMPARE(unexplained({difference}, life).empty(), isExplained);
}

QTEST_GUILESS_MAIN(tst_FormLife)
#include "tst_FormLife.moc"
