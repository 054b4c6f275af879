#include "tests/faults/Ledger.h"

#include "features/Answer.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace Faults {
namespace {

bool isAsked(const std::vector<Ask>& asks, const Write& write)
{
    return std::any_of(asks.begin(), asks.end(), [&](const Ask& ask) {
        return ask.feature == write.feature && ask.entry == write.entry &&
               isSameValue(ask.value, write.value);
    });
}

/// Whether the user asked for some other value of that feature under that entry.
bool isMeant(const std::vector<Ask>& asks, const Write& write)
{
    return std::any_of(asks.begin(), asks.end(), [&](const Ask& ask) {
        return ask.feature == write.feature && ask.entry == write.entry;
    });
}

/// Those of these operations that failed in the step on what the write is of, under its entry.
Failures failuresThere(const Write& write, const Circumstances& step, const QStringList& operations)
{
    Failures there;
    std::copy_if(step.failures.begin(), step.failures.end(), std::back_inserter(there),
                 [&](const FailedCall& failed) {
                     return failed.feature == write.feature && failed.entry == write.entry &&
                            operations.contains(failed.operation);
                 });
    return there;
}

bool hasFailedThere(const Write& write, const Circumstances& step, const QStringList& operations)
{
    return !failuresThere(write, step, operations).empty();
}

/// A question that is left unanswered is not refused.
bool isRefusedThere(const Write& write, const Circumstances& step, const QStringList& operations)
{
    const Failures there = failuresThere(write, step, operations);
    return std::any_of(there.begin(), there.end(),
                       [](const FailedCall& failed) { return !isUnanswered(failed.status); });
}

/// The overview looks at every entry of the three, the table at every line. That they put back what
/// was selected is judged apart.
bool stepsThroughSelector(const Write& write, const Circumstances&)
{
    static const QStringList stepped = {"CounterSelector", "TimerSelector", "TriggerSelector",
                                        "LineSelector"};
    return stepped.contains(write.feature);
}

bool clampsToUnreadableRange(const Write& write, const Circumstances& step)
{
    return !step.appliesPreset && isMeant(step.asks, write) && isSameValue(write.value, "-1") &&
           hasFailedThere(write, step, {"GetFloatRange", "GetIntegerRange"});
}

/// Of a feature that is not found, or whose type is not known, nobody asks the limits.
bool clampsPresetToRefusedRange(const Write& write, const Circumstances& step)
{
    static const QStringList questions = {"GetFloatRange", "GetIntegerRange", "GetDataType",
                                          "GetName"};
    return step.appliesPreset && isMeant(step.asks, write) && isSameValue(write.value, "-1") &&
           isRefusedThere(write, step, questions);
}

bool isMultiple(const QString& value)
{
    return std::fmod(value.toDouble(), FaultyCamera::TimerIncrement) == 0.0;
}

/// TimerDuration is the session's float with an increment. It only ever holds multiples of it, so
/// that what was there is written once more. To an edit every failure is a refusal; a preset
/// repeats a write that was left unanswered as it is.
bool triesAgainWithMultiple(const Write& write, const Circumstances& step)
{
    const auto isRefused = [&](const Ask& ask) {
        return ask.feature == write.feature && ask.entry == write.entry && !isMultiple(ask.value);
    };
    const bool hasFailedToWrite = step.appliesPreset
                                      ? isRefusedThere(write, step, {"SetFloatValue"})
                                      : hasFailedThere(write, step, {"SetFloatValue"});
    return write.feature == "TimerDuration" && isSameValue(write.value, write.before) &&
           isMeant(step.asks, write) &&
           (hasFailedToWrite || std::any_of(step.asks.begin(), step.asks.end(), isRefused));
}

bool stepsUnreadableDuration(const Write& write, const Circumstances& step)
{
    return write.feature == "LineDebounceDuration" && isMeant(step.asks, write) &&
           isSameValue(write.value, "0.01") &&
           hasFailedThere(write, step, {"GetName", "GetDataType", "GetFloatValue"});
}

/// The field is one of the dialog's: what failed before that was bound, it has not shown.
bool finishesFieldWithUnreadableValue(const Write& write, const Circumstances& step)
{
    const QStringList reads = {"GetName", "GetDataType", "GetIntegerValue"};
    return write.feature == "ActionQueueSize" && isMeant(step.asks, write) &&
           isSameValue(write.value, "-1") &&
           (hasFailed(step.failures, write.feature, reads) ||
            hasFailed(step.inDialog, write.feature, reads));
}

bool finishesFieldWithOldValue(const Write& write, const Circumstances& step)
{
    return write.feature == "ActionQueueSize" && isMeant(step.asks, write) &&
           isSameValue(write.value, write.before) &&
           hasFailed(step.failures, write.feature, {"IsWritable", "SetIntegerValue"});
}

/// Whether the user asked for it under another entry, that the form shows. A preset selects for
/// itself, and so does each edit in the table: where the line does not read back, it is dropped.
bool isMeantElsewhere(const Write& write, const Circumstances& step)
{
    const auto isElsewhere = [&](const Ask& ask) {
        return ask.feature == write.feature && isSameValue(ask.value, write.value);
    };
    const bool hasBox = !write.selector.isEmpty() && write.selector != "LineSelector";
    return hasBox && !step.appliesPreset &&
           std::any_of(step.asks.begin(), step.asks.end(), isElsewhere);
}

bool goesByUnboundSelector(const Write& write, const Circumstances& step)
{
    return isMeantElsewhere(write, step) && hasFailed(step.whileBound, write.selector, {"GetName"});
}

bool goesByUnwrittenSelector(const Write& write, const Circumstances& step)
{
    return isMeantElsewhere(write, step) &&
           hasFailed(step.whileChosen, write.selector, {"GetName", "GetDataType"});
}

/// Whether the preset sets it under another entry.
bool isSetElsewhere(const Write& write, const Circumstances& step)
{
    const auto isElsewhere = [&](const Ask& ask) {
        return ask.feature == write.feature && isSameValue(ask.value, write.value);
    };
    return step.appliesPreset && !write.selector.isEmpty() &&
           std::any_of(step.asks.begin(), step.asks.end(), isElsewhere);
}

/// A selector about which the camera does not answer is neither missing nor read-only.
bool goesByMissingSelector(const Write& write, const Circumstances& step)
{
    const auto isRefused = [&](const FailedCall& failed) {
        static const QStringList questions = {"GetName", "IsWritable"};
        return failed.feature == write.selector && questions.contains(failed.operation) &&
               !isUnanswered(failed.status);
    };
    return isSetElsewhere(write, step) &&
           std::any_of(step.failures.begin(), step.failures.end(), isRefused);
}

bool runsCommandOfPreset(const Write& write, const Circumstances& step)
{
    const QStringList operations = {"GetName", "IsWritable", "GetDataType", "SetStringValue",
                                    "GetStringValue"};
    return write.value.isEmpty() && isSetElsewhere(write, step) &&
           hasFailed(step.failures, write.selector, operations);
}

/// The user steps up from the -1 in sight, for the double, and gets the half.
bool stepsFromUnreadDuration(const Write& write, const Circumstances& step)
{
    const auto isUnread = [&](const FailedCall& failed) {
        static const QStringList reads = {"GetName", "GetDataType", "GetFloatValue"};
        return failed.feature == write.feature && failed.entry == write.entry &&
               reads.contains(failed.operation);
    };
    const auto isDoubleAsked = [&](const Ask& ask) {
        return ask.feature == write.feature && ask.entry == write.entry &&
               ask.value.toDouble() == 4 * write.value.toDouble();
    };
    return write.feature == "LineDebounceDuration" &&
           std::any_of(step.asks.begin(), step.asks.end(), isDoubleAsked) &&
           std::any_of(step.earlierFailures.begin(), step.earlierFailures.end(), isUnread);
}

void append(const Failures& failures, Failures& list)
{
    list.insert(list.end(), failures.begin(), failures.end());
}

/// A choice that failed counts until one of the same feature has not.
void noteChoices(const std::vector<Ask>& asks, const Failures& failures, Failures& whileChosen)
{
    const auto isChosen = [&](const FailedCall& failed) {
        return std::any_of(asks.begin(), asks.end(),
                           [&](const Ask& ask) { return ask.feature == failed.feature; });
    };
    const auto isMadeGood = [&](const FailedCall& earlier) {
        return isChosen(earlier) &&
               std::none_of(failures.begin(), failures.end(), [&](const FailedCall& failed) {
                   return failed.feature == earlier.feature;
               });
    };
    whileChosen.erase(std::remove_if(whileChosen.begin(), whileChosen.end(), isMadeGood),
                      whileChosen.end());
    std::copy_if(failures.begin(), failures.end(), std::back_inserter(whileChosen), isChosen);
}

QString toLine(const Write& write)
{
    const QString under = write.entry.isEmpty() ? QString() : " under " + write.entry;
    return QStringLiteral("%1=%2%3").arg(write.feature, write.value, under);
}

} // namespace

const std::vector<Exception>& exceptions()
{
    static const std::vector<Exception> all = {
        {"The overview steps through the entries of its selectors, the table through the lines.",
         stepsThroughSelector},
        {"When the range of a number cannot be read, every value is clamped to -1 and written.",
         clampsToUnreadableRange},
        {"So it is in a preset where the camera refuses to tell the range. One that it does not "
         "answer "
         "about is not written.",
         clampsPresetToRefusedRange},
        {"When the camera refuses a float with an increment, the value on the camera, reduced to a "
         "multiple of it, is written.",
         triesAgainWithMultiple},
        {"A debounce duration that cannot be read counts as -1, and one of 0 or less becomes the "
         "spin box's single step.",
         stepsUnreadableDuration},
        {"A number that cannot be read shows as -1, and finishing a field writes what it shows.",
         finishesFieldWithUnreadableValue},
        {"A field whose number was not taken shows the camera's, and finishing it once more writes "
         "what it shows.",
         finishesFieldWithOldValue},
        {"A feature whose name cannot be read while a form is bound counts as missing. Where that "
         "is "
         "a selector, the user's edits go to the entry that the camera has selected.",
         goesByUnboundSelector},
        {"A choice of a feature that is not found at that moment, or has no known type, is not "
         "written or not read back, "
         "and its box shows what the camera does not have. That may be a selector.",
         goesByUnwrittenSelector},
        {"What a preset sets beneath a selector that the camera lacks, or does not let be written, "
         "is "
         "written all the same.",
         goesByMissingSelector},
        {"The command of a preset runs at its end, whatever became of the settings.",
         runsCommandOfPreset},
        {"A debounce duration that cannot be read shows as -1, and what a step makes of that tells "
         "whether it is doubled or halved.",
         stepsFromUnreadDuration},
    };
    return all;
}

void endStep(Circumstances& step, Binding binding)
{
    const Failures failures = std::exchange(step.failures, {});
    append(failures, step.earlierFailures);
    if (binding == Binding::Dialog) {
        step.hasDialog = true;
        step.inDialog.clear();
        step.whileBound.clear();
        step.whileChosen.clear();
    }
    if (binding != Binding::None)
        append(failures, step.whileBound);
    if (step.hasDialog)
        append(failures, step.inDialog);
    if (!step.appliesPreset)
        noteChoices(step.asks, failures, step.whileChosen);
    step.asks.clear();
    step.appliesPreset = false;
}

bool isSameValue(const QString& left, const QString& right)
{
    bool leftIsNumber = false;
    bool rightIsNumber = false;
    const double leftNumber = left.toDouble(&leftIsNumber);
    const double rightNumber = right.toDouble(&rightIsNumber);
    return leftIsNumber && rightIsNumber ? leftNumber == rightNumber : left == right;
}

QStringList unaskedWrites(const std::vector<Write>& writes, const Circumstances& step)
{
    QStringList unasked;
    for (const Write& write : writes) {
        const auto covers = [&](const Exception& rule) { return rule.covers(write, step); };
        if (!isAsked(step.asks, write) &&
            std::none_of(exceptions().begin(), exceptions().end(), covers))
            unasked.append(toLine(write));
    }
    return unasked;
}

bool mayEndElsewhere(const QString& selector, const Failures& failures)
{
    QStringList operations = {"GetName", "IsWritable", "GetStringValue", "SetStringValue"};
    if (selector == "LineSelector")
        operations += QStringList{"GetEnumNames", "IsValueAvailable"};
    return hasFailed(failures, selector, operations);
}

QStringList unanswered(const std::vector<Ask>& asks, const std::vector<Write>& writes)
{
    QStringList lines;
    for (const Ask& ask : asks) {
        const auto answers = [&](const Write& write) { return isAsked({ask}, write); };
        if (std::none_of(writes.begin(), writes.end(), answers))
            lines.append(toLine({ask.feature, ask.value, ask.entry}));
    }
    return lines;
}

} // namespace Faults
