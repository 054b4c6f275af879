// Applying a preset: what is written to the camera, and in which order.
#include "tests/trigger/ChoiceForm.h"
#include "tests/trigger/MessageBoxes.h"

#include <QtTest>

namespace {

/// What choosing the preset writes, and the error text it ends with.
struct Applied
{
    QStringList writes;
    QStringList errors;
};

Applied apply(Fake::FakeCamera& camera, const QByteArray& members)
{
    const ChoiceForm form(camera, onePreset(members));
    const MessageBoxes boxes;
    form.select(QStringLiteral("P"));
    return {writesOf(camera), boxes.texts()};
}

QString select(const char* line)
{
    return QStringLiteral("SetStringValue LineSelector=") + QLatin1String(line);
}

const QString Output = QStringLiteral("SetStringValue LineMode=Output");

} // namespace

class tst_PresetApplication : public QObject
{
    Q_OBJECT

private slots:
    void writesMembersInKeyOrderNotInFileOrder();
    void writesDependentsInKeyOrderAfterTheirSelector();
    void writesListsInTheirOwnOrder();
    void takesValuesOfEveryKind_data();
    void takesValuesOfEveryKind();
    void whatIsNoNumberIsNotWritten();
    void whatTheCameraLacksIsSkippedWithoutAWord();
    void whatIsReadOnlyIsSkippedWithoutAWord();
    void dependentsOfASelectorThatTheCameraLacksAreWrittenAnyway();

    void allAndALineWritesForEveryLineAndLeavesTheSelectorThere();
    void allLeavesTheSelectorWhereItWas();
    void everyEntryMeansTheAvailableOnes();
    void theLastEntryMayHoldUnderscores();
    void anEmptyLastEntryLeavesTheSelectorAtTheEndOfTheList();
    void everyEntryOfNothingWritesNothing();
    void failureToReachTheLastEntryIsNotReported();

    void dependentsOfAValueThatCouldNotBeSetAreSkipped_data();
    void dependentsOfAValueThatCouldNotBeSetAreSkipped();
    void onlyTheEntryThatCouldNotBeSetIsLeftOut();
    void aFailingDependentDoesNotStopTheOthers();

    void runsTheCommandAfterAllSettings();
    void aPresetWithOnlyACommandRunsIt();
    void anEmptyCommandIsNone();
    void customChangesNothing();
};

void tst_PresetApplication::writesMembersInKeyOrderNotInFileOrder()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"LineMode": {"#value": "Output"},
        "ExposureTime": {"#value": 100}, "BurstCount": {"#value": 7}})");
    QCOMPARE(applied.writes,
             (QStringList{QStringLiteral("SetIntegerValue BurstCount=7"),
                          QStringLiteral("SetFloatValue ExposureTime=100"), Output}));
    QCOMPARE(applied.errors, QStringList());
}

void tst_PresetApplication::writesDependentsInKeyOrderAfterTheirSelector()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"LineSelector":
        {"LineMode": "Output", "LineInverter": true, "BurstCount": 9, "#value": "Line2"}})");
    QCOMPARE(applied.writes,
             (QStringList{select("Line2"), QStringLiteral("SetIntegerValue BurstCount=9"),
                          QStringLiteral("SetBoolValue LineInverter=true"), Output}));
}

void tst_PresetApplication::writesListsInTheirOwnOrder()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"LineSelector":
        [{"#value": "Line2", "LineMode": "Output"}, {"#value": "Line0", "LineMode": "Output"}]})");
    QCOMPARE(applied.writes, (QStringList{select("Line2"), Output, select("Line0"), Output}));
}

void tst_PresetApplication::takesValuesOfEveryKind_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("written");
    const auto row = [](const char* name, const char* members, const char* written) {
        QTest::newRow(name) << QByteArray(members) << QString::fromLatin1(written);
    };
    row("minimum", R"({"ExposureTime": {"#value": "<min>"}})", "SetFloatValue ExposureTime=10");
    row("maximum", R"({"BurstCount": {"#value": "<max>"}})", "SetIntegerValue BurstCount=255");
    row("number", R"({"BurstCount": {"#value": 12}})", "SetIntegerValue BurstCount=12");
    row("number as text", R"({"BurstCount": {"#value": "12"}})", "SetIntegerValue BurstCount=12");
    row("clamped", R"({"BurstCount": {"#value": 1000000000}})", "SetIntegerValue BurstCount=255");
    row("fraction", R"({"ExposureTime": {"#value": 20.5}})", "SetFloatValue ExposureTime=20.5");
    row("true", R"({"LineInverter": {"#value": true}})", "SetBoolValue LineInverter=true");
    row("false", R"({"LineInverter": {"#value": false}})", "SetBoolValue LineInverter=false");
    row("number for a bool", R"({"LineInverter": {"#value": 1}})",
        "SetBoolValue LineInverter=true");
    row("entry", R"({"ExposureMode": {"#value": "TriggerWidth"}})",
        "SetStringValue ExposureMode=TriggerWidth");
    row("text", R"({"DeviceUserID": {"#value": "right"}})", "SetStringValue DeviceUserID=right");
    row("number for a text", R"({"DeviceUserID": {"#value": 42}})",
        "SetStringValue DeviceUserID=42");
    row("number with an exponent", R"({"DeviceUserID": {"#value": 1e3}})",
        "SetStringValue DeviceUserID=1000");
    row("bool for a text", R"({"DeviceUserID": {"#value": true}})",
        "SetStringValue DeviceUserID=true");
    row("null for a text", R"({"DeviceUserID": {"#value": null}})", "SetStringValue DeviceUserID=");
    // Presets are kept as JSON numbers, which are doubles.
    row("more digits than a double holds", R"({"DeviceUserID": {"#value": 9007199254740993}})",
        "SetStringValue DeviceUserID=9007199254740992");
}

void tst_PresetApplication::takesValuesOfEveryKind()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, written);
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, members);
    QCOMPARE(applied.writes, QStringList{written});
    QCOMPARE(applied.errors, QStringList());
}

/// No limit holds "nan" back.
void tst_PresetApplication::whatIsNoNumberIsNotWritten()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"ExposureTime": {"#value": "nan"}})");
    QCOMPARE(applied.writes, QStringList());
    QCOMPARE(applied.errors.size(), 1);
    QVERIFY(
        applied.errors.first().contains("  Failed to set ExposureTime = nan, Current value: '"));
}

void tst_PresetApplication::whatTheCameraLacksIsSkippedWithoutAWord()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"TimerDelay": {"#value": 5},
        "LineMode": {"#value": "Output", "LineSource": "Timer0Active"}})");
    QCOMPARE(applied.writes, QStringList{Output});
    QCOMPARE(applied.errors, QStringList());
}

void tst_PresetApplication::whatIsReadOnlyIsSkippedWithoutAWord()
{
    const auto camera = lineCamera();
    (*camera)["ExposureTime"].state().writable = false;
    const Applied applied = apply(*camera, R"({"ExposureTime": {"#value": 5}})");
    QCOMPARE(applied.writes, QStringList());
    QCOMPARE(applied.errors, QStringList());
}

void tst_PresetApplication::dependentsOfASelectorThatTheCameraLacksAreWrittenAnyway()
{
    const auto camera = lineCamera();
    const Applied applied =
        apply(*camera, R"({"TimerSelector": {"#value": "Timer0", "LineMode": "Output"}})");
    QCOMPARE(applied.writes, QStringList{Output});
}

void tst_PresetApplication::allAndALineWritesForEveryLineAndLeavesTheSelectorThere()
{
    const auto camera = lineCamera();
    const Applied applied =
        apply(*camera, R"({"LineSelector": {"#value": "<all>_Line0", "LineMode": "Output"}})");
    QCOMPARE(applied.writes,
             (QStringList{select("Line0"), Output, select("Line1"), Output, select("Line2"), Output,
                          select("Out_1"), Output, select("Line0")}));
    QCOMPARE((*camera)["LineSelector"].state().text, std::string("Line0"));
}

void tst_PresetApplication::allLeavesTheSelectorWhereItWas()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"LineSelector": {"#value": "<all>"}})");
    QCOMPARE(applied.writes, (QStringList{select("Line0"), select("Line1"), select("Line2"),
                                          select("Out_1"), select("Line1")}));
}

void tst_PresetApplication::everyEntryMeansTheAvailableOnes()
{
    const auto camera = lineCamera();
    (*camera)["LineSelector"].state().entries[2].available = false;
    const Applied applied = apply(*camera, R"({"LineSelector": {"#value": "<all>_Line0"}})");
    QCOMPARE(applied.writes,
             (QStringList{select("Line0"), select("Line1"), select("Out_1"), select("Line0")}));
}

void tst_PresetApplication::theLastEntryMayHoldUnderscores()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"LineSelector": {"#value": "<all>_Out_1"}})");
    QCOMPARE(applied.writes.last(), select("Out_1"));
    QCOMPARE(applied.writes.size(), 5);
}

void tst_PresetApplication::anEmptyLastEntryLeavesTheSelectorAtTheEndOfTheList()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"LineSelector": {"#value": "<all>_"}})");
    QCOMPARE(applied.writes,
             (QStringList{select("Line0"), select("Line1"), select("Line2"), select("Out_1")}));
}

void tst_PresetApplication::everyEntryOfNothingWritesNothing()
{
    const auto camera = lineCamera();
    const Applied applied =
        apply(*camera, R"({"TimerSelector": {"#value": "<all>_Timer0", "LineMode": "Output"}})");
    QCOMPARE(applied.writes, QStringList());
    QCOMPARE(applied.errors, QStringList());
}

void tst_PresetApplication::failureToReachTheLastEntryIsNotReported()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"LineSelector": {"#value": "<all>_Line9"}})");
    QCOMPARE(applied.writes.last(), select("Line9"));
    QCOMPARE(applied.errors, QStringList());
}

void tst_PresetApplication::dependentsOfAValueThatCouldNotBeSetAreSkipped_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("line");
    QTest::newRow("single") << QByteArray(
                                   R"({"LineSelector": {"#value": "Line9", "LineMode": "Output"}})")
                            << QStringLiteral("  Failed to set LineSelector = Line9, Current "
                                              "value: 'Line1'\n");
    QTest::newRow("list") << QByteArray(
                                 R"({"LineSelector": [{"#value": "Line9", "LineMode": "Output"}]})")
                          << QStringLiteral("  Failed to set LineSelector = Line9, Current value: "
                                            "'Line1'\n");
    QTest::newRow("every entry in a list")
        << QByteArray(R"({"LineSelector": [{"#value": "<all>", "LineMode": "Output"}]})")
        << QStringLiteral("  Failed to set LineSelector = <all>, Current value: 'Line1'\n");
    QTest::newRow("plain value") << QByteArray(R"({"LineMode": "Output"})")
                                 << QStringLiteral("  Failed to set LineMode = , Current value: "
                                                   "'Input'\n");
    QTest::newRow("value is a list")
        << QByteArray(R"({"LineSelector": {"#value": ["Line0"], "LineMode": "Output"}})")
        << QStringLiteral("  Failed to set LineSelector = , Current value: 'Line1'\n");
    QTest::newRow("value is an object")
        << QByteArray(R"({"LineSelector": {"#value": {"a": 1}, "LineMode": "Output"}})")
        << QStringLiteral("  Failed to set LineSelector = , Current value: 'Line1'\n");
    QTest::newRow("element is no object")
        << QByteArray(R"({"LineSelector": ["Line0"]})")
        << QStringLiteral("  Failed to set LineSelector = , Current value: 'Line1'\n");
    QTest::newRow("no value") << QByteArray(R"({"LineSelector": {"LineMode": "Output"}})")
                              << QStringLiteral("  Failed to set LineSelector = , Current value: "
                                                "'Line1'\n");
}

void tst_PresetApplication::dependentsOfAValueThatCouldNotBeSetAreSkipped()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, line);
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, members);
    QVERIFY(!applied.writes.contains(Output));
    QCOMPARE(applied.errors,
             QStringList{QStringLiteral("Error(s) on setting the preset:\n\n") + line});
}

void tst_PresetApplication::onlyTheEntryThatCouldNotBeSetIsLeftOut()
{
    const auto camera = lineCamera();
    (*camera)["LineSelector"].onWrite = [](Fake::FakeFeature& selector) {
        if (selector.state().text == "Line1")
            selector.state().text = "Line0";
    };
    const Applied applied =
        apply(*camera, R"({"LineSelector": {"#value": "<all>_Line0", "LineMode": "Output"}})");
    QCOMPARE(applied.writes, (QStringList{select("Line0"), Output, select("Line1"), select("Line2"),
                                          Output, select("Out_1"), Output, select("Line0")}));
    QCOMPARE(applied.errors,
             QStringList{QStringLiteral("Error(s) on setting the preset:\n\n  Failed to set "
                                        "LineSelector = Line1, Current value: 'Line0'\n")});
}

void tst_PresetApplication::aFailingDependentDoesNotStopTheOthers()
{
    const auto camera = lineCamera();
    camera->failCall("SetBoolValue", "LineInverter");
    const Applied applied = apply(*camera, R"({"LineSelector":
        {"#value": "Line0", "LineInverter": true, "LineMode": "Output"}})");
    QVERIFY(applied.writes.contains(Output));
    QCOMPARE(applied.errors,
             QStringList{QStringLiteral("Error(s) on setting the preset:\n\n  Failed to set "
                                        "LineInverter = true, Current value: '0'\n")});
}

void tst_PresetApplication::runsTheCommandAfterAllSettings()
{
    const auto camera = lineCamera();
    const Applied applied =
        apply(*camera, R"({"#execute": "TriggerSoftware", "LineMode": {"#value": "Output"}})");
    QCOMPARE(applied.writes, (QStringList{Output, QStringLiteral("RunCommand TriggerSoftware")}));
}

void tst_PresetApplication::aPresetWithOnlyACommandRunsIt()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"#execute": "TriggerSoftware"})");
    QCOMPARE(applied.writes, QStringList{QStringLiteral("RunCommand TriggerSoftware")});
    QCOMPARE(applied.errors, QStringList());
}

void tst_PresetApplication::anEmptyCommandIsNone()
{
    const auto camera = lineCamera();
    const Applied applied = apply(*camera, R"({"#execute": ""})");
    QCOMPARE(applied.writes, QStringList());
    QCOMPARE(applied.errors, QStringList());
}

void tst_PresetApplication::customChangesNothing()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, R"({"#presets": ["Turn Off All", "Custom"],
        "Turn Off All": {"LineMode": {"#value": "Input"}}, "Custom": {"#tooltip": "by hand"}})");
    form.select(QStringLiteral("Custom"));
    QCOMPARE(writesOf(*camera), QStringList());
}

QTEST_MAIN(tst_PresetApplication)
#include "tst_PresetApplication.moc"
