// What the fault sweep lets pass: each exception in the situation of its rule, and in no other, but
// for the stepping of selectors, which is judged by where they end.
#include "tests/faults/Ledger.h"
#include "tests/support/Rows.h"

#include <QtTest>

using namespace Faults;

namespace {

/// Where a session stands after these steps, in those of which that are told as missed the call
/// failed.
Circumstances after(const QString& steps, const FailedCall& missed)
{
    static const QMap<QString, Binding> bindings = {{"tab", Binding::Tab},
                                                    {"dialog", Binding::Dialog}};
    Circumstances step;
    for (const QString& text : steps.split(", ")) {
        const QString kind = text.section(' ', 0, 0);
        if (text.endsWith(" missed"))
            step.failures = {missed};
        step.appliesPreset = kind == "preset";
        if (kind == "choose" || kind == "preset")
            step.asks = {{"TimerSelector", "Timer1", QString()}};
        else if (kind == "other")
            step.asks = {{"CounterSelector", "Counter1", QString()}};
        endStep(step, bindings.value(kind, Binding::None));
    }
    return step;
}

} // namespace

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
    void aFieldIsFinishedWithWhatTheDialogCouldNotReadOnly_data();
    void aFieldIsFinishedWithWhatTheDialogCouldNotReadOnly();
    void aPresetIsClampedToLimitsThatTheCameraRefuses_data();
    void aPresetIsClampedToLimitsThatTheCameraRefuses();
    void aPresetTriesAgainWithMultipleWhereTheCameraRefuses_data();
    void aPresetTriesAgainWithMultipleWhereTheCameraRefuses();
    void aFailureUnderAnotherEntryExcusesNothing_data();
    void aFailureUnderAnotherEntryExcusesNothing();
    void aSelectorEndsElsewhereOnlyWhereItCouldNotBePutBack_data();
    void aSelectorEndsElsewhereOnlyWhereItCouldNotBePutBack();
    void aPresetGoesOnBeneathASelectorThatIsRefusedOnly_data();
    void aPresetGoesOnBeneathASelectorThatIsRefusedOnly();
    void aStepGoesDownFromADurationThatCouldNotBeReadOnly();
};

void tst_FaultRules::anExceptionCountsInItsSituationOnly_data()
{
    columns<QString, QString, QString, QString, QString>("feature", "asked", "written", "failing",
                                                         "selector");
    row("range", "CounterDuration", "9", "-1", "GetIntegerRange", "");
    row("float range", "TriggerDelay", "9", "-1", "GetFloatRange", "");
    row("second attempt", "TimerDuration", "7", "40", "SetFloatValue", "");
    row("duration", "LineDebounceDuration", "16", "0.01", "GetFloatValue", "");
    row("field", "ActionQueueSize", "5", "-1", "GetIntegerValue", "");
    row("field again", "ActionQueueSize", "5", "8", "SetIntegerValue", "");
    row("unbound selector", "TimerDelay", "80", "80", "GetName", "TimerSelector");
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
    columns<QString, QString, bool, bool>("selector", "moment", "isPreset", "isPrescribed");
    const QString timers = "TimerSelector";
    row("not bound", timers, "bound", false, true);
    row("not written", timers, "chosen", false, true);
    row("missed at another moment", timers, "other", false, false);
    row("not bound, preset", timers, "bound", true, false);
    row("not written, preset", timers, "chosen", true, false);
    row("without a selector", "", "bound", false, false);
    for (const char* moment : {"bound", "chosen"})
        row(QByteArray("line, ") + moment, "LineSelector", moment, false, false);
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
    columns<QString, bool>("steps", "isPrescribed");
    row("tab", "tab missed", true);
    row("tab in several steps", "tab missed, tab", true);
    row("dialog", "dialog missed", true);
    row("dialog after tab", "tab missed, dialog", false);
    row("choice", "choose missed", true);
    row("choice of something else", "other missed", false);
    row("choice, then of something else", "choose missed, other", true);
    row("choice, then unasked failure", "choose missed, none missed", true);
    row("choice made good", "choose missed, choose", false);
    row("choice missed again", "choose missed, choose missed", true);
    // The box need not show what a preset selects.
    row("choice, then preset", "choose missed, preset", true);
    row("preset", "preset missed", false);
    row("choice in the tab, dialog", "choose missed, dialog", false);
}

void tst_FaultRules::aMissedSelectorExcusesUntilItIsFound()
{
    QFETCH(QString, steps);
    QFETCH(bool, isPrescribed);
    Circumstances step = after(steps, {"GetName", "TimerSelector", QString(), ZalErrorTimeout});
    step.asks = {{"TimerDelay", "80", "Timer1"}};
    const Write write = {"TimerDelay", "80", "Timer0", QString(), "TimerSelector"};
    QCOMPARE(unaskedWrites({write}, step).isEmpty(), isPrescribed);
}

void tst_FaultRules::aFieldIsFinishedWithWhatTheDialogCouldNotReadOnly_data()
{
    columns<QString, bool>("steps", "isPrescribed");
    row("while it was bound", "dialog missed", true);
    row("later", "dialog, none missed", true);
    row("later, then read", "dialog missed, none", true);
    row("in the tab", "tab missed", false);
    row("in the tab, then bound", "tab missed, dialog", false);
    row("beside the tab, then bound", "tab, none missed, dialog, none", false);
    row("in both", "tab missed, dialog missed", true);
}

void tst_FaultRules::aFieldIsFinishedWithWhatTheDialogCouldNotReadOnly()
{
    QFETCH(QString, steps);
    QFETCH(bool, isPrescribed);
    for (const char* read : {"GetName", "GetDataType", "GetIntegerValue"}) {
        Circumstances step = after(steps, {read, "ActionQueueSize", QString(), ZalErrorTimeout});
        step.asks = {{"ActionQueueSize", "5", QString()}};
        const Write write = {"ActionQueueSize", "-1", QString()};
        QCOMPARE(unaskedWrites({write}, step).isEmpty(), isPrescribed);
    }
}

void tst_FaultRules::aPresetIsClampedToLimitsThatTheCameraRefuses_data()
{
    columns<QString, int, bool>("failing", "status", "isPrescribed");
    for (const char* question : {"GetFloatRange", "GetIntegerRange", "GetDataType", "GetName"}) {
        row(QByteArray(question) + " refused", question, int(ZalErrorNotReadable), true);
        row(QByteArray(question) + " unknown", question, int(ZalErrorUnknown), true);
        row(QByteArray(question) + " timed out", question, int(ZalErrorTimeout), false);
        row(QByteArray(question) + " lost", question, int(ZalErrorTransport), false);
        row(QByteArray(question) + " not open", question, int(ZalErrorNotOpen), false);
    }
    row("another question", "IsWritable", int(ZalErrorNotReadable), false);
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
    columns<int, bool, bool>("status", "isPreset", "isPrescribed");
    row("preset refused", int(ZalErrorNotWritable), true, true);
    row("preset unknown", int(ZalErrorUnknown), true, true);
    row("preset timed out", int(ZalErrorTimeout), true, false);
    row("preset lost", int(ZalErrorTransport), true, false);
    row("preset not open", int(ZalErrorNotOpen), true, false);
    // What an edit gets for an answer is all one to it.
    row("edit refused", int(ZalErrorNotWritable), false, true);
    row("edit timed out", int(ZalErrorTimeout), false, true);
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
    columns<QString, QString, QString>("feature", "written", "failing");
    row("range", "CounterDuration", "-1", "GetIntegerRange");
    row("float range", "LineDebounceDuration", "-1", "GetFloatRange");
    row("second attempt", "TimerDuration", "10", "SetFloatValue");
    row("duration", "LineDebounceDuration", "0.01", "GetFloatValue");
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
            row(selector.toLatin1() + ", " + operation, selector, operation, true);
        for (const char* operation : {"GetEnumNames", "IsValueAvailable"})
            row(selector.toLatin1() + ", " + operation, selector, operation,
                selector == "LineSelector");
        row(selector.toLatin1() + ", type", selector, "GetDataType", false);
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

void tst_FaultRules::aPresetGoesOnBeneathASelectorThatIsRefusedOnly_data()
{
    columns<QString, QString, int, bool, bool>("operation", "feature", "status", "isPreset",
                                               "isPrescribed");
    const QString name = "GetName";
    const QString selector = "TimerSelector";
    row("refused", name, selector, int(ZalErrorNotReadable), true, true);
    row("read-only", "IsWritable", selector, int(ZalErrorNotReadable), true, true);
    row("timed out", name, selector, int(ZalErrorTimeout), true, false);
    row("lost", name, selector, int(ZalErrorTransport), true, false);
    row("not open", name, selector, int(ZalErrorNotOpen), true, false);
    row("edit", name, selector, int(ZalErrorNotReadable), false, false);
    row("other selector", name, "LineSelector", int(ZalErrorNotReadable), true, false);
    row("write refused", "SetStringValue", selector, int(ZalErrorNotReadable), true, false);
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

QTEST_GUILESS_MAIN(tst_FaultRules)
#include "tst_FaultRules.moc"
