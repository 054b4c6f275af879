// What the fault sweep lets pass: each exception in the situation of its rule, and in no other, but
// for the stepping of selectors, which is judged by where they end.
#include "tests/faults/FormLife.h"
#include "tests/faults/Ledger.h"

#include <QtTest>

using namespace Faults;

class tst_FaultRules : public QObject
{
    Q_OBJECT

private slots:
    void anExceptionCountsInItsSituationOnly_data();
    void anExceptionCountsInItsSituationOnly();
    void editsGoElsewhereOnlyWhereTheSelectorWasNotFound_data();
    void editsGoElsewhereOnlyWhereTheSelectorWasNotFound();
    void aMissedSelectorExcusesUntilItIsFound_data();
    void aMissedSelectorExcusesUntilItIsFound();
    void aPresetIsClampedToLimitsThatTheCameraRefuses_data();
    void aPresetIsClampedToLimitsThatTheCameraRefuses();
    void aPresetTriesAgainWithMultipleWhereTheCameraRefuses_data();
    void aPresetTriesAgainWithMultipleWhereTheCameraRefuses();
    void aFailureUnderAnotherEntryExcusesNothing_data();
    void aFailureUnderAnotherEntryExcusesNothing();
    void aSelectorEndsElsewhereOnlyWhereItCouldNotBePutBack_data();
    void aSelectorEndsElsewhereOnlyWhereItCouldNotBePutBack();
    void aTableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly_data();
    void aTableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly();
    void anOverviewOfTheDialogDiffersAfterItsOwnFailuresOnly_data();
    void anOverviewOfTheDialogDiffersAfterItsOwnFailuresOnly();
    void aPresetGoesOnBeneathASelectorThatIsRefusedOnly_data();
    void aPresetGoesOnBeneathASelectorThatIsRefusedOnly();
    void aStepGoesDownFromADurationThatCouldNotBeReadOnly();
    void aFieldTakesOtherTextsWhereItsNotationWasMissedOnly();
    void pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly_data();
    void pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly();
};

void tst_FaultRules::anExceptionCountsInItsSituationOnly_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("selector");
    QTest::newRow("range") << "CounterDuration"
                           << "9"
                           << "-1"
                           << "GetIntegerRange"
                           << "";
    QTest::newRow("float range") << "TriggerDelay"
                                 << "9"
                                 << "-1"
                                 << "GetFloatRange"
                                 << "";
    QTest::newRow("second attempt") << "TimerDuration"
                                    << "7"
                                    << "40"
                                    << "SetFloatValue"
                                    << "";
    QTest::newRow("duration") << "LineDebounceDuration"
                              << "16"
                              << "0.01"
                              << "GetFloatValue"
                              << "";
    QTest::newRow("field") << "ActionQueueSize"
                           << "5"
                           << "-1"
                           << "GetIntegerValue"
                           << "";
    QTest::newRow("field again") << "ActionQueueSize"
                                 << "5"
                                 << "8"
                                 << "SetIntegerValue"
                                 << "";
    QTest::newRow("unbound selector") << "TimerDelay"
                                      << "80"
                                      << "80"
                                      << "GetName"
                                      << "TimerSelector";
}

void tst_FaultRules::anExceptionCountsInItsSituationOnly()
{
    QFETCH(QString, feature);
    QFETCH(QString, asked);
    QFETCH(QString, written);
    QFETCH(QString, failing);
    QFETCH(QString, selector);
    const bool isSelected = !selector.isEmpty();
    const QString entry = isSelected ? "Timer0" : "";
    const std::vector<Write> writes = {{feature, written, entry, written, selector}};
    Circumstances step;
    step.asks = {{feature, asked, isSelected ? "Timer1" : ""}};
    QCOMPARE(unaskedWrites(writes, step).size(), 1);
    Failures& situation = isSelected ? step.whileBound : step.failures;
    situation = {{failing, "ExposureMode", QString(), ZalErrorTimeout}};
    QCOMPARE(unaskedWrites(writes, step).size(), 1);
    situation = {{failing, isSelected ? selector : feature, QString(), ZalErrorTimeout}};
    QCOMPARE(unaskedWrites(writes, step), QStringList());
    const std::vector<Write> others = {{feature, "123", entry, written, selector}};
    QCOMPARE(unaskedWrites(others, step).size(), 1);
    step.asks.clear();
    QCOMPARE(unaskedWrites(writes, step).size(), 1);
}

void tst_FaultRules::editsGoElsewhereOnlyWhereTheSelectorWasNotFound_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<bool>("isPreset");
    QTest::addColumn<bool>("isPrescribed");
    const QString timers = "TimerSelector";
    QTest::newRow("not bound") << timers << "bound" << false << true;
    QTest::newRow("not written") << timers << "chosen" << false << true;
    QTest::newRow("missed at another moment") << timers << "other" << false << false;
    QTest::newRow("not bound, preset") << timers << "bound" << true << false;
    QTest::newRow("not written, preset") << timers << "chosen" << true << false;
    QTest::newRow("without a selector") << ""
                                        << "bound" << false << false;
    for (const char* moment : {"bound", "chosen"})
        QTest::addRow("line, %s", moment) << "LineSelector" << moment << false << false;
}

void tst_FaultRules::editsGoElsewhereOnlyWhereTheSelectorWasNotFound()
{
    QFETCH(QString, selector);
    QFETCH(QString, moment);
    QFETCH(bool, isPreset);
    QFETCH(bool, isPrescribed);
    const QString missedSelector = selector.isEmpty() ? "TimerSelector" : selector;
    // One whose type is not known when it is chosen is not written either.
    const QString question = moment == "chosen" ? "GetDataType" : "GetName";
    const Failures missed = {{question, missedSelector, QString(), ZalErrorTimeout}};
    Circumstances step;
    step.asks = {{"TimerDelay", "80", "Timer1"}};
    step.earlierFailures = missed;
    step.failures = missed;
    if (moment == "bound")
        step.whileBound = missed;
    else if (moment == "chosen")
        step.whileChosen = missed;
    step.appliesPreset = isPreset;
    QCOMPARE(unaskedWrites({{"TimerDelay", "80", "Timer0", QString(), selector}}, step).isEmpty(),
             isPrescribed);
}

void tst_FaultRules::aMissedSelectorExcusesUntilItIsFound_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<bool>("isPrescribed");
    QTest::newRow("tab") << "tab missed" << true;
    QTest::newRow("tab in several steps") << "tab missed, tab" << true;
    QTest::newRow("dialog") << "dialog missed" << true;
    QTest::newRow("dialog after tab") << "tab missed, dialog" << false;
    QTest::newRow("choice") << "choose missed" << true;
    QTest::newRow("choice of something else") << "other missed" << false;
    QTest::newRow("choice, then of something else") << "choose missed, other" << true;
    QTest::newRow("choice, then unasked failure") << "choose missed, none missed" << true;
    QTest::newRow("choice made good") << "choose missed, choose" << false;
    QTest::newRow("choice missed again") << "choose missed, choose missed" << true;
    // The box need not show what a preset selects.
    QTest::newRow("choice, then preset") << "choose missed, preset" << true;
    QTest::newRow("preset") << "preset missed" << false;
    QTest::newRow("choice in the tab, dialog") << "choose missed, dialog" << false;
}

void tst_FaultRules::aMissedSelectorExcusesUntilItIsFound()
{
    QFETCH(QString, steps);
    QFETCH(bool, isPrescribed);
    Circumstances step;
    for (const QString& text : steps.split(", ")) {
        const QString kind = text.section(' ', 0, 0);
        if (text.endsWith(" missed"))
            step.failures = {{"GetName", "TimerSelector", QString(), ZalErrorTimeout}};
        step.appliesPreset = kind == "preset";
        if (kind == "choose" || kind == "preset")
            step.asks = {{"TimerSelector", "Timer1", QString()}};
        else if (kind == "other")
            step.asks = {{"CounterSelector", "Counter1", QString()}};
        endStep(step, kind == "tab"      ? Binding::Tab
                      : kind == "dialog" ? Binding::Dialog
                                         : Binding::None);
    }
    step.asks = {{"TimerDelay", "80", "Timer1"}};
    const Write write = {"TimerDelay", "80", "Timer0", QString(), "TimerSelector"};
    QCOMPARE(unaskedWrites({write}, step).isEmpty(), isPrescribed);
}

void tst_FaultRules::aPresetIsClampedToLimitsThatTheCameraRefuses_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isPrescribed");
    for (const char* question : {"GetFloatRange", "GetIntegerRange", "GetDataType", "GetName"}) {
        QTest::addRow("%s refused", question) << question << int(ZalErrorNotReadable) << true;
        QTest::addRow("%s unknown", question) << question << int(ZalErrorUnknown) << true;
        QTest::addRow("%s timed out", question) << question << int(ZalErrorTimeout) << false;
        QTest::addRow("%s lost", question) << question << int(ZalErrorTransport) << false;
        QTest::addRow("%s not open", question) << question << int(ZalErrorNotOpen) << false;
    }
    QTest::newRow("another question") << "IsWritable" << int(ZalErrorNotReadable) << false;
}

void tst_FaultRules::aPresetIsClampedToLimitsThatTheCameraRefuses()
{
    QFETCH(QString, failing);
    QFETCH(int, status);
    QFETCH(bool, isPrescribed);
    const std::vector<Write> writes = {{"TimerDelay", "-1", "Timer0"}};
    Circumstances step;
    step.appliesPreset = true;
    step.asks = {{"TimerDelay", "60", "Timer0"}};
    step.failures = {{failing, "TimerDelay", "Timer0", status}};
    QCOMPARE(unaskedWrites(writes, step).isEmpty(), isPrescribed);
    step.failures.front().entry = "Timer1";
    QCOMPARE(unaskedWrites(writes, step).size(), 1);
}

void tst_FaultRules::aPresetTriesAgainWithMultipleWhereTheCameraRefuses_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isPreset");
    QTest::addColumn<bool>("isPrescribed");
    QTest::newRow("preset refused") << int(ZalErrorNotWritable) << true << true;
    QTest::newRow("preset unknown") << int(ZalErrorUnknown) << true << true;
    QTest::newRow("preset timed out") << int(ZalErrorTimeout) << true << false;
    QTest::newRow("preset lost") << int(ZalErrorTransport) << true << false;
    QTest::newRow("preset not open") << int(ZalErrorNotOpen) << true << false;
    // What an edit gets for an answer is all one to it.
    QTest::newRow("edit refused") << int(ZalErrorNotWritable) << false << true;
    QTest::newRow("edit timed out") << int(ZalErrorTimeout) << false << true;
}

void tst_FaultRules::aPresetTriesAgainWithMultipleWhereTheCameraRefuses()
{
    QFETCH(int, status);
    QFETCH(bool, isPreset);
    QFETCH(bool, isPrescribed);
    Circumstances step;
    step.appliesPreset = isPreset;
    step.asks = {{"TimerDuration", "40", "Timer0"}};
    step.failures = {{"SetFloatValue", "TimerDuration", "Timer0", status}};
    const Write write = {"TimerDuration", "10", "Timer0", "10", "TimerSelector"};
    QCOMPARE(unaskedWrites({write}, step).isEmpty(), isPrescribed);
}

void tst_FaultRules::aFailureUnderAnotherEntryExcusesNothing_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("failing");
    QTest::newRow("range") << "CounterDuration"
                           << "-1"
                           << "GetIntegerRange";
    QTest::newRow("float range") << "LineDebounceDuration"
                                 << "-1"
                                 << "GetFloatRange";
    QTest::newRow("second attempt") << "TimerDuration"
                                    << "10"
                                    << "SetFloatValue";
    QTest::newRow("duration") << "LineDebounceDuration"
                              << "0.01"
                              << "GetFloatValue";
}

void tst_FaultRules::aFailureUnderAnotherEntryExcusesNothing()
{
    QFETCH(QString, feature);
    QFETCH(QString, written);
    QFETCH(QString, failing);
    Circumstances step;
    step.asks = {{feature, "40", "first"}, {feature, "40", "second"}};
    step.failures = {{failing, feature, "first", ZalErrorTimeout}};
    QCOMPARE(unaskedWrites({{feature, written, "first", written}}, step), QStringList());
    QCOMPARE(unaskedWrites({{feature, written, "second", written}}, step).size(), 1);
}

void tst_FaultRules::aSelectorEndsElsewhereOnlyWhereItCouldNotBePutBack_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<bool>("isExcused");
    for (const QString selector : {"TimerSelector", "LineSelector"}) {
        for (const char* operation : {"GetName", "IsWritable", "GetStringValue", "SetStringValue"})
            QTest::addRow("%s, %s", qPrintable(selector), operation)
                << selector << operation << true;
        for (const char* operation : {"GetEnumNames", "IsValueAvailable"})
            QTest::addRow("%s, %s", qPrintable(selector), operation)
                << selector << operation << (selector == "LineSelector");
        QTest::addRow("%s, type", qPrintable(selector)) << selector << "GetDataType" << false;
    }
}

void tst_FaultRules::aSelectorEndsElsewhereOnlyWhereItCouldNotBePutBack()
{
    QFETCH(QString, selector);
    QFETCH(QString, failing);
    QFETCH(bool, isExcused);
    QCOMPARE(mayEndElsewhere(selector, {{failing, selector, QString(), ZalErrorTimeout}}),
             isExcused);
    QVERIFY(!mayEndElsewhere(selector, {{failing, "TriggerSelector", "", ZalErrorTimeout}}));
}

void tst_FaultRules::aTableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("isExplained");
    const QString rows = "Line0,Line2,Line3";
    const QString allRows = "Line0,Line1,Line2,Line3";
    const QString question = "IsValueAvailable LineSelector";
    const QString mode = "cmbLine%1_LineMode";
    QTest::newRow("table") << rows << question << "tableWidget" << rows + " without " << true;
    QTest::newRow("table's columns")
        << allRows << question << "tableWidget" << allRows + " without 2" << false;
    QTest::newRow("missing") << rows << question << mode.arg(1) << "missing" << true;
    QTest::newRow("missing with a row") << rows << question << mode.arg(2) << "missing" << false;
    QTest::newRow("before the last row") << rows << question << mode.arg(2) << "'Input'" << false;
    QTest::newRow("behind the last row") << rows << question << mode.arg(3) << "'Input'" << true;
    QTest::newRow("missing behind") << rows << question << mode.arg(3) << "missing" << false;
    QTest::newRow("behind, lamp") << rows << question << "lblLine3_LineStatus"
                                  << "there disabled" << true;
    QTest::newRow("all rows") << allRows << question << mode.arg(3) << "'Input'" << false;
    QTest::newRow("no row") << "" << question << mode.arg(0) << "missing" << true;
    QTest::newRow("no cell") << rows << question << "cmbTriggerMode"
                             << "missing" << false;
    for (const char* other : {"IsValueAvailable LineMode", "GetStringValue LineSelector"}) {
        QTest::addRow("table, %s", other)
            << rows << other << "tableWidget" << rows + " without " << false;
        QTest::addRow("missing, %s", other) << rows << other << mode.arg(1) << "missing" << false;
        QTest::addRow("behind, %s", other) << rows << other << mode.arg(3) << "'Input'" << false;
    }
}

void tst_FaultRules::aTableThatLacksLinesDiffersInThemAndBehindItsLastRowOnly()
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

void tst_FaultRules::anOverviewOfTheDialogDiffersAfterItsOwnFailuresOnly_data()
{
    QTest::addColumn<bool>("isDialog");
    QTest::addColumn<QString>("feature");
    QTest::addColumn<bool>("isSinceOverview");
    QTest::addColumn<bool>("isExplained");
    QTest::newRow("timer") << true << "TimerDelay" << true << true;
    QTest::newRow("selector") << true << "TriggerSelector" << true << true;
    QTest::newRow("line") << true << "LineInverter" << true << false;
    QTest::newRow("before it was read") << true << "TimerDelay" << false << false;
    QTest::newRow("tab") << false << "TimerDelay" << true << false;
}

void tst_FaultRules::anOverviewOfTheDialogDiffersAfterItsOwnFailuresOnly()
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

void tst_FaultRules::aPresetGoesOnBeneathASelectorThatIsRefusedOnly_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("feature");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isPreset");
    QTest::addColumn<bool>("isPrescribed");
    const QString name = "GetName";
    const QString selector = "TimerSelector";
    QTest::newRow("refused") << name << selector << int(ZalErrorNotReadable) << true << true;
    QTest::newRow("read-only") << "IsWritable" << selector << int(ZalErrorNotReadable) << true
                               << true;
    QTest::newRow("timed out") << name << selector << int(ZalErrorTimeout) << true << false;
    QTest::newRow("lost") << name << selector << int(ZalErrorTransport) << true << false;
    QTest::newRow("not open") << name << selector << int(ZalErrorNotOpen) << true << false;
    QTest::newRow("edit") << name << selector << int(ZalErrorNotReadable) << false << false;
    QTest::newRow("other selector")
        << name << "LineSelector" << int(ZalErrorNotReadable) << true << false;
    QTest::newRow("write refused")
        << "SetStringValue" << selector << int(ZalErrorNotReadable) << true << false;
}

void tst_FaultRules::aPresetGoesOnBeneathASelectorThatIsRefusedOnly()
{
    QFETCH(QString, operation);
    QFETCH(QString, feature);
    QFETCH(int, status);
    QFETCH(bool, isPreset);
    QFETCH(bool, isPrescribed);
    const QString selector = "TimerSelector";
    Circumstances step;
    step.appliesPreset = isPreset;
    step.asks = {{"TimerDelay", "80", "Timer1"}};
    step.failures = {{operation, feature, QString(), status}};
    QCOMPARE(unaskedWrites({{"TimerDelay", "80", "Timer0", "0", selector}}, step).isEmpty(),
             isPrescribed);
    QCOMPARE(unaskedWrites({{"TimerDelay", "81", "Timer0", "0", selector}}, step).size(), 1);
    // The command runs wherever the selector got stuck.
    step.asks = {{"TimerReset", "", "Timer1"}};
    QCOMPARE(unaskedWrites({{"TimerReset", "", "Timer0", "", selector}}, step).isEmpty(),
             isPreset && feature == selector);
}

void tst_FaultRules::aStepGoesDownFromADurationThatCouldNotBeReadOnly()
{
    const QString duration = "LineDebounceDuration";
    const Write halved = {duration, "4", "Line1", QString(), "LineSelector"};
    Circumstances step;
    step.asks = {{duration, "16", "Line1"}};
    QCOMPARE(unaskedWrites({halved}, step).size(), 1);
    step.earlierFailures = {{"GetFloatValue", duration, "Line0", ZalErrorTimeout},
                            {"SetFloatValue", duration, "Line1", ZalErrorTimeout}};
    QCOMPARE(unaskedWrites({halved}, step).size(), 1);
    step.earlierFailures = {{"GetFloatValue", duration, "Line1", ZalErrorTimeout}};
    QCOMPARE(unaskedWrites({halved}, step), QStringList());
    QCOMPARE(unaskedWrites({{duration, "2", "Line1", QString(), "LineSelector"}}, step).size(), 1);
}

void tst_FaultRules::aFieldTakesOtherTextsWhereItsNotationWasMissedOnly()
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

void tst_FaultRules::pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("feature");
    QTest::addColumn<bool>("isExplained");
    QTest::newRow("delay") << "txtPWMDutyCycle"
                           << "GetName"
                           << "TimerDelay" << true;
    QTest::newRow("duration") << "txtPWMFrequency"
                              << "GetName"
                              << "TimerDuration" << true;
    QTest::newRow("value") << "txtPWMFrequency"
                           << "GetFloatValue"
                           << "TimerDelay" << false;
    QTest::newRow("other feature") << "txtPWMFrequency"
                                   << "GetName"
                                   << "TimerStatus" << false;
    QTest::newRow("other field") << "txtActionQueueSize"
                                 << "GetName"
                                 << "TimerDelay" << false;
}

void tst_FaultRules::pwmFieldsAreUntrueBesideAnUnboundTimerBoxOnly()
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

QTEST_GUILESS_MAIN(tst_FaultRules)
#include "tst_FaultRules.moc"
