#include "tests/faults/Ledger.h"

#include "features/Answer.h"

#include <algorithm>
#include <cmath>

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
           hasFailed(step.failures, write.feature, {"GetFloatRange", "GetIntegerRange"});
}

/// Of a feature that is not found, or whose type is not known, nobody asks the limits.
bool clampsPresetToRefusedRange(const Write& write, const Circumstances& step)
{
    static const QStringList questions = {"GetFloatRange", "GetIntegerRange", "GetDataType",
                                          "GetName"};
    const auto isRefusal = [&](const FailedCall& failed) {
        return failed.feature == write.feature && failed.entry == write.entry &&
               questions.contains(failed.operation) && !IsUnanswered(failed.status);
    };
    return step.appliesPreset && isMeant(step.asks, write) && isSameValue(write.value, "-1") &&
           std::any_of(step.failures.begin(), step.failures.end(), isRefusal);
}

bool isMultiple(const QString& value)
{
    return std::fmod(value.toDouble(), FaultyCamera::TimerIncrement) == 0.0;
}

/// TimerDuration is the session's float with an increment. It only ever holds multiples of it, so
/// that what was there is written once more.
bool triesAgainWithMultiple(const Write& write, const Circumstances& step)
{
    const auto isRefused = [&](const Ask& ask) {
        return ask.feature == write.feature && ask.entry == write.entry && !isMultiple(ask.value);
    };
    return write.feature == "TimerDuration" && isSameValue(write.value, write.before) &&
           isMeant(step.asks, write) &&
           (std::any_of(step.asks.begin(), step.asks.end(), isRefused) ||
            hasFailed(step.failures, write.feature, {"SetFloatValue"}));
}

bool stepsUnreadableDuration(const Write& write, const Circumstances& step)
{
    return write.feature == "LineDebounceDuration" && isMeant(step.asks, write) &&
           isSameValue(write.value, "0.01") &&
           hasFailed(step.failures, write.feature, {"GetName", "GetDataType", "GetFloatValue"});
}

bool finishesFieldWithUnreadableValue(const Write& write, const Circumstances& step)
{
    const QStringList reads = {"GetName", "GetDataType", "GetIntegerValue"};
    return write.feature == "ActionQueueSize" && isMeant(step.asks, write) &&
           isSameValue(write.value, "-1") &&
           (hasFailed(step.failures, write.feature, reads) ||
            hasFailed(step.earlierFailures, write.feature, reads));
}

bool finishesFieldWithOldValue(const Write& write, const Circumstances& step)
{
    return write.feature == "ActionQueueSize" && isMeant(step.asks, write) &&
           isSameValue(write.value, write.before) &&
           hasFailed(step.failures, write.feature, {"IsWritable", "SetIntegerValue"});
}

/// Whether the user asked for it under another entry, that the form shows. A preset selects for
/// itself.
bool isMeantElsewhere(const Write& write, const Circumstances& step)
{
    const auto isElsewhere = [&](const Ask& ask) {
        return ask.feature == write.feature && isSameValue(ask.value, write.value);
    };
    return !write.selector.isEmpty() && !step.appliesPreset &&
           std::any_of(step.asks.begin(), step.asks.end(), isElsewhere);
}

bool goesByUnboundSelector(const Write& write, const Circumstances& step)
{
    return isMeantElsewhere(write, step) && hasFailed(step.whileBound, write.selector, {"GetName"});
}

bool goesByUnwrittenSelector(const Write& write, const Circumstances& step)
{
    return isMeantElsewhere(write, step) &&
           hasFailed(step.whileChosen, write.selector, {"GetName"});
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
        {"A choice of a feature that is not found at that moment is not written or not read back, "
         "and its box shows what the camera does not have. That may be a selector.",
         goesByUnwrittenSelector},
    };
    return all;
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
