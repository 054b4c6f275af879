// What the fault sweep lets pass: each exception in the situation of its rule, and in no other.
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
    void aPresetIsClampedToLimitsThatTheCameraRefuses_data();
    void aPresetIsClampedToLimitsThatTheCameraRefuses();
    void anOverviewOfTheDialogDiffersAfterItsOwnFailuresOnly_data();
    void anOverviewOfTheDialogDiffersAfterItsOwnFailuresOnly();
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
}

void tst_FaultRules::editsGoElsewhereOnlyWhereTheSelectorWasNotFound()
{
    QFETCH(QString, selector);
    QFETCH(QString, moment);
    QFETCH(bool, isPreset);
    QFETCH(bool, isPrescribed);
    const Failures missed = {{"GetName", "TimerSelector", QString(), ZalErrorTimeout}};
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
