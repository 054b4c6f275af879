#include "tests/tools/Checked.h"

#include <QtTest>

/// What a camera adds: one row for each rule and each of its variants, with the exact line. The
/// preset's members start at column 27.
class tst_CameraChecks : public QObject
{
    Q_OBJECT

    static void table()
    {
        QTest::addColumn<QByteArray>("members");
        QTest::addColumn<QByteArray>("lines");
    }

    static void row(const char* name, const char* members, const char* lines)
    {
        QTest::newRow(name) << QByteArray(members) << QByteArray(lines);
    }

    static void verify()
    {
        QFETCH(QByteArray, members);
        QFETCH(QByteArray, lines);
        const CameraToCheck camera;
        QCOMPARE(findingsIn(presetOf(members), camera.manager.get()), lines);
    }

private slots:
    void aPresetThatTheCameraTakesHasNoFindings_data()
    {
        table();
        row("selector and settings",
            "'TriggerSelector': {'#value': 'FrameStart', 'TriggerMode': 'On', 'TriggerDelay': 5}",
            "");
        row("limits", "'Width': {'#value': '<max>'}, 'Gain': {'#value': '<min>'}", "");
        row("numbers as text", "'Width': {'#value': '32'}, 'Gain': {'#value': '0.5'}", "");
        row("truth in all its forms",
            "'ReverseX': {'#value': 'True'}, 'LineSelector': {'#value': 'Line0',\n"
            "            'LineInverter': 0}, 'PtpEnable': {'#value': true}",
            "");
        row("text", "'DeviceUserID': {'#value': ''}", "");
        row("integer selector",
            "'ActionSelector': [{'#value': 3, 'ActionGroupKey': 1}, {'#value': '<min>'}]", "");
        row("every entry", "'LineSelector': {'#value': '<all>_Line3', 'LineInverter': true}", "");
        row("setting that some entries cannot take",
            "'LineSelector': {'#value': '<all>', 'LineSource': 'Off'}", "");
        row("command", "'#execute': 'TriggerSoftware'", "");
        row("only on a camera that has timers",
            "'TimerSelector': {'#value': '<all>_Timer0', 'TimerDelay': 5, 'TriggerMode': 'On'}",
            "");
        row("only on a camera that has the enumeration",
            "'ExposureMode': {'#value': '<all>_Timed', 'TriggerMode': 'On'}", "");
        row("order by nesting", "'TriggerMode': {'#value': 'On', 'Width': 16}", "");
        row("prepared by an earlier setting",
            "'ExposureMode': {'#value': 'Timed', 'Locked': 1, 'SensorMode': 'Deep'}", "");
    }
    void aPresetThatTheCameraTakesHasNoFindings() { verify(); }

    void featuresThatTheCameraLacks_data()
    {
        table();
        row("unknown feature", "'B': {'#value': 1}",
            "f.json:1:27: error: The camera has no feature \"B\"; the plugin skips it "
            "[unknown-feature]\n");
        row("byte order mark in a name", "'\\ufeffWidth': {'#value': 16, '\\ufeffGain': 0}",
            "f.json:1:27: error: The camera has no feature \"\xEF\xBF\xBDWidth\"; the plugin skips "
            "it [unknown-feature]\n"
            "f.json:1:57: error: The camera has no feature \"\xEF\xBF\xBDGain\"; the plugin skips "
            "it [unknown-feature]\n");
        row("unknown dependent feature", "'LineSelector': {'#value': 'Line0', 'Linemode': 'Input'}",
            "f.json:1:63: error: The camera has no feature \"Linemode\"; the plugin skips it "
            "[unknown-feature]\n");
        row("unknown dependent feature at every entry",
            "'LineSelector': {'#value': '<all>', 'Linemode': 'Input'}",
            "f.json:1:63: error: The camera has no feature \"Linemode\"; the plugin skips it "
            "[unknown-feature]\n");
        row("unknown selector for every entry", "'B': {'#value': '<all>', 'Width': 8}",
            "f.json:1:27: error: The camera has no feature \"B\"; the plugin skips it "
            "[unknown-feature]\n");
        row("unknown feature in a list", "'B': [{'#value': 1}, {'#value': 2}]",
            "f.json:1:27: error: The camera has no feature \"B\"; the plugin skips it "
            "[unknown-feature]\n");
        row("list for a feature without a name", "'': [{'#value': 1}]",
            "f.json:1:27: error: The camera has no feature \"\"; the plugin skips it "
            "[unknown-feature]\n");
        row("one name in two notations",
            "'\\ud83d\\ude00': {'#value': '<all>'}, '\xF0\x9F\x98\x80': [{'#value': 1}]",
            "f.json:1:64: error: \"\xF0\x9F\x98\x80\" is here more than once; the plugin takes the "
            "last one "
            "[duplicate-key]\n"
            "f.json:1:64: error: The camera has no feature \"\xF0\x9F\x98\x80\"; the plugin skips "
            "it "
            "[unknown-feature]\n");
        row("half a surrogate pair", "'LineSelector': {'#value': 'Line0', '\\ude00': 1}",
            "f.json:1:27: error: The camera has no feature \"?\"; the plugin skips it "
            "[unknown-feature]\n");
    }
    void featuresThatTheCameraLacks() { verify(); }

    void featuresThatCannotBeSet_data()
    {
        table();
        row("command as setting", "'TriggerSoftware': {'#value': 1}",
            "f.json:1:27: error: \"TriggerSoftware\" is a command and takes no value; "
            "\"#execute\" runs one [not-settable]\n");
        row("raw data", "'UserTable': {'#value': 'x'}",
            "f.json:1:51: error: \"UserTable\" is of a kind that presets cannot set "
            "[not-settable]\n");
        row("read-only", "'LineSelector': {'#value': 'Line0', 'LineStatus': true}",
            "f.json:1:63: error: \"LineStatus\" can only be read; the plugin skips it "
            "[read-only]\n");
        row("not writable now", "'Locked': {'#value': 1}",
            "f.json:1:48: warning: \"Locked\" cannot be written at the moment; the plugin would "
            "skip it [not-writable-now]\n");
        row("not writable at one entry", "'LineSelector': {'#value': 'Line0', 'LineSource': 'Off'}",
            "f.json:1:77: warning: \"LineSource\" cannot be written at the moment with "
            "LineSelector at Line0; the plugin would skip it [not-writable-now]\n");
    }
    void featuresThatCannotBeSet() { verify(); }

    void commands_data()
    {
        table();
        row("unknown command", "'#execute': 'Fire'",
            "f.json:1:39: error: The camera has no command \"Fire\" [unknown-feature]\n");
        row("no command", "'#execute': 'Width'",
            "f.json:1:39: error: \"Width\" is no command, so it cannot be executed "
            "[execute-no-command]\n");
    }
    void commands() { verify(); }

    void values_data()
    {
        table();
        row("text for a number", "'Width': {'#value': 'wide'}",
            "f.json:1:47: error: \"Width\" takes a number, \"<min>\" or \"<max>\", not \"wide\" "
            "[wrong-type]\n");
        row("truth for a number", "'Width': {'#value': true}",
            "f.json:1:47: error: \"Width\" takes a number, \"<min>\" or \"<max>\", not true "
            "[wrong-type]\n");
        row("no finite number", "'Gain': {'#value': 'inf'}",
            "f.json:1:46: error: \"Gain\" takes a number, \"<min>\" or \"<max>\", not \"inf\" "
            "[wrong-type]\n");
        row("entry for a truth", "'ReverseX': {'#value': 'Off'}",
            "f.json:1:50: error: \"ReverseX\" takes true or false, not \"Off\" [wrong-type]\n");
        row("limit for a truth", "'ReverseX': {'#value': '<max>'}",
            "f.json:1:50: error: \"ReverseX\" takes true or false, not \"<max>\" [wrong-type]\n");
        row("truth for an entry", "'TriggerMode': {'#value': false}",
            "f.json:1:53: error: \"TriggerMode\" takes the name of an entry, not false "
            "[wrong-type]\n");
        row("limit for an entry", "'TriggerMode': {'#value': '<max>'}",
            "f.json:1:53: error: \"TriggerMode\" takes the name of an entry, not \"<max>\" "
            "[wrong-type]\n");
        row("number for a text", "'DeviceUserID': {'#value': 5}",
            "f.json:1:54: error: \"DeviceUserID\" takes a text, not 5 [wrong-type]\n");
        row("unknown entry", "'TriggerMode': {'#value': 'on'}",
            "f.json:1:53: error: \"TriggerMode\" has no entry \"on\"; it has Off, On "
            "[unknown-entry]\n");
        row("unknown entry to stay at", "'LineSelector': {'#value': '<all>_Line9'}",
            "f.json:1:54: error: \"LineSelector\" has no entry \"Line9\"; it has Line0, Line1, "
            "Line2, Line3 [unknown-entry]\n");
        row("unavailable entry", "'SensorMode': {'#value': 'Deep'}",
            "f.json:1:52: warning: \"SensorMode\" does not take \"Deep\" at the moment "
            "[unavailable-entry]\n");
    }
    void values() { verify(); }

    void limits_data()
    {
        table();
        row("above the range", "'Gain': {'#value': 25}",
            "f.json:1:46: warning: \"Gain\" takes 0 to 24; the plugin would write 24 "
            "[out-of-range]\n");
        row("below the range", "'Width': {'#value': -1}",
            "f.json:1:47: warning: \"Width\" takes 16 to 1008; the plugin would write 16 "
            "[out-of-range]\n");
        row("above the range of one entry",
            "'LineSelector': {'#value': 'Line2', 'LineDebounceDuration': 51}",
            "f.json:1:87: warning: \"LineDebounceDuration\" takes 0 to 50 with LineSelector at "
            "Line2; the plugin would write 50 [out-of-range]\n");
        row("above the range of some entry",
            "'LineSelector': {'#value': '<all>', 'LineDebounceDuration': 51}",
            "f.json:1:87: warning: \"LineDebounceDuration\" takes 0 to 50 with LineSelector at "
            "Line2; the plugin would write 50 [out-of-range]\n");
        row("between the steps", "'Width': {'#value': 40}",
            "f.json:1:47: error: \"Width\" takes steps of 16, which 40 is not on "
            "[off-increment]\n");
        row("no whole number", "'CounterSelector': {'#value': 'Counter0', 'CounterValue': 1.5}",
            "f.json:1:85: error: \"CounterValue\" takes steps of 1 with CounterSelector at "
            "Counter0, which 1.5 is not on [off-increment]\n");
        row("step that the plugin counts from zero", "'Offset': {'#value': 11}",
            "f.json:1:48: error: \"Offset\" takes steps of 10, which 11 is not on "
            "[off-increment]\n");
        row("step that the camera counts from its minimum", "'Offset': {'#value': 20}",
            "f.json:1:48: error: \"Offset\" takes steps of 10, which 20 is not on "
            "[off-increment]\n");
        row("between the steps of a float", "'Gain': {'#value': 0.7}",
            "f.json:1:46: error: \"Gain\" takes steps of 0.5, which 0.7 is not on "
            "[off-increment]\n");
    }
    void limits() { verify(); }

    void selectors_data()
    {
        table();
        row("not selected", "'LineSelector': {'#value': 'Line0', 'TriggerMode': 'On'}",
            "f.json:1:63: warning: \"TriggerMode\" is not selected by \"LineSelector\" and has one "
            "value for all of its entries [not-selected]\n");
        row("every entry of a number", "'ActionSelector': {'#value': '<all>', 'Width': 9}",
            "f.json:1:56: error: \"ActionSelector\" has no entries, so with \"<all>\" nothing is "
            "written [all-no-enumeration]\n");
        row("every entry of no selector", "'ExposureMode': {'#value': '<all>', 'Width': 40}",
            "f.json:1:54: warning: \"ExposureMode\" selects nothing; \"<all>\" writes one entry "
            "after the other to it [all-no-selector]\n"
            "f.json:1:72: error: \"Width\" takes steps of 16, which 40 is not on "
            "[off-increment]\n");
        row("every entry of no selector, then one",
            "'ExposureMode': {'#value': '<all>_Timed', 'Width': 40}",
            "f.json:1:78: error: \"Width\" takes steps of 16, which 40 is not on "
            "[off-increment]\n");
        row("every entry, then one, with a setting of no entry alone",
            "'LineSelector': {'#value': '<all>_Line0', 'TriggerMode': 'On'}",
            "f.json:1:69: warning: \"TriggerMode\" is not selected by \"LineSelector\" and has "
            "one value for all of its entries [not-selected]\n");
        row("every entry of a selector of others",
            "'TimerSelector': {'#value': '<all>', 'TriggerMode': 'On'}",
            "f.json:1:64: warning: \"TriggerMode\" is not selected by \"TimerSelector\" and has "
            "one "
            "value for all of its entries [not-selected]\n");
        row("what the file alone shows is said once",
            "'LineSelector': {'#value': 'Line0', 'LineMode': '<all>'}, 'Width': {'#value': null}",
            "f.json:1:75: error: \"<all>\" has a meaning in \"#value\" only; the plugin would "
            "write it as it is [all-as-dependent]\n"
            "f.json:1:105: error: \"#value\" must be a text, a number or true or false, not null "
            "[value-not-plain]\n");
    }
    void selectors() { verify(); }

    void dependentsOfAValueThatCannotBeSetAreCheckedForWhatNeverChanges()
    {
        const CameraToCheck camera;
        QCOMPARE(findingsIn(presetOf("'LineSelector': {'#value': 'Line9', 'LineMode': 'Out',\n"
                                     "'LineSource': 'Off'}"),
                            camera.manager.get()),
                 QByteArray("f.json:1:54: error: \"LineSelector\" has no entry \"Line9\"; it has "
                            "Line0, Line1, Line2, Line3 [unknown-entry]\n"
                            "f.json:1:75: error: \"LineMode\" has no entry \"Out\"; it has Input, "
                            "Output [unknown-entry]\n"));
        QCOMPARE(camera.writes(), QStringList());
    }

    void onlySelectorsAreWrittenAndAllAreBackAfterwards_data()
    {
        QTest::addColumn<QByteArray>("members");
        QTest::addColumn<QStringList>("writes");
        const auto row = [](const char* name, const char* members, const QStringList& writes) {
            QTest::newRow(name) << QByteArray(members) << writes;
        };
        row("nothing to select", "'Width': {'#value': 32}, 'TriggerMode': {'#value': 'On'}", {});
        row("command", "'#execute': 'TriggerSoftware'", {});
        row("where it is already", "'LineSelector': {'#value': 'Line0', 'LineMode': 'Output'}", {});
        row("one entry", "'LineSelector': {'#value': 'Line2', 'LineMode': 'Output'}",
            {"SetStringValue LineSelector=Line2", "SetStringValue LineSelector=Line0"});
        row("a list",
            "'LineSelector': [{'#value': 'Line2'}, {'#value': 'Line3', 'LineInverter': true}]",
            {"SetStringValue LineSelector=Line2", "SetStringValue LineSelector=Line3",
             "SetStringValue LineSelector=Line2", "SetStringValue LineSelector=Line0"});
        row("every entry", "'TimerSelector': {'#value': '<all>', 'TimerDelay': 5}",
            {"SetStringValue TimerSelector=Timer1", "SetStringValue TimerSelector=Timer0",
             "SetStringValue TimerSelector=Timer1", "SetStringValue TimerSelector=Timer0"});
        row("every entry, then another", "'TimerSelector': {'#value': '<all>_Timer1'}",
            {"SetStringValue TimerSelector=Timer1", "SetStringValue TimerSelector=Timer0",
             "SetStringValue TimerSelector=Timer1", "SetStringValue TimerSelector=Timer0",
             "SetStringValue TimerSelector=Timer1", "SetStringValue TimerSelector=Timer0"});
        row("a number", "'ActionSelector': {'#value': '<max>', 'ActionGroupKey': 1}",
            {"SetIntegerValue ActionSelector=3", "SetIntegerValue ActionSelector=0"});
        row("every entry of no selector", "'ExposureMode': {'#value': '<all>_TriggerWidth'}", {});
        row("a selector below another",
            "'LineSelector': {'#value': 'Line1', 'TimerSelector': 'Timer1'}",
            {"SetStringValue LineSelector=Line1", "SetStringValue TimerSelector=Timer1",
             "SetStringValue TimerSelector=Timer0", "SetStringValue LineSelector=Line0"});
    }
    void onlySelectorsAreWrittenAndAllAreBackAfterwards()
    {
        QFETCH(QByteArray, members);
        QFETCH(QStringList, writes);
        const CameraToCheck camera;
        const auto report =
            PresetCheck::checkPresets(json(presetOf(members)), camera.manager.get());
        QCOMPARE(camera.writes(), writes);
        QVERIFY(report.cameraFollowed);
    }

    void aSelectorThatDoesNotGoBackIsReported()
    {
        const CameraToCheck camera;
        Fake::FakeFeature& selector = (*camera.fake)["LineSelector"];
        selector.onWrite = [](Fake::FakeFeature& feature) { feature.state().text = "Line2"; };
        const auto report = PresetCheck::checkPresets(
            json(presetOf("'LineSelector': {'#value': 'Line2'}")), camera.manager.get());
        QVERIFY(!report.cameraFollowed);
    }

    void aPresetThatIsListedTwiceIsCheckedOnce()
    {
        const CameraToCheck camera;
        PresetCheck::checkPresets(
            json("{'#presets': ['A', 'A'], 'A': {'LineSelector': {'#value': 'Line2'}}}"),
            camera.manager.get());
        QCOMPARE(camera.writes(), (QStringList{"SetStringValue LineSelector=Line2",
                                               "SetStringValue LineSelector=Line0"}));
    }

    void aPresetStartsWithTheSelectorsAsTheyWere()
    {
        const CameraToCheck camera;
        QCOMPARE(findingsIn("{'#presets': ['A', 'B'],\n"
                            "'A': {'LineSelector': {'#value': 'Line1'}},\n"
                            "'B': {'LineSource': {'#value': 'Off'}}}",
                            camera.manager.get()),
                 QByteArray("f.json:3:32: warning: \"LineSource\" cannot be written at the moment; "
                            "the plugin would skip it [not-writable-now]\n"));
    }

    void aSelectorStaysWhereTheStepBeforeLeftIt()
    {
        const CameraToCheck camera;
        // "LineSelector" comes before "LineSource", so the source is that of Line1.
        QCOMPARE(findingsIn(presetOf("'LineSelector': {'#value': '<all>_Line1'},\n"
                                     "'LineSource': {'#value': 'Off'}"),
                            camera.manager.get()),
                 QByteArray());
    }

    void aCameraThatFailsAtAnyCallDoesNoHarm()
    {
        const QByteArray content =
            presetOf("'LineSelector': {'#value': '<all>', 'LineDebounceDuration': 1},\n"
                     "'TriggerSelector': {'#value': 'FrameStart', 'TriggerDelay': 1}");
        const CameraToCheck reference;
        PresetCheck::checkPresets(json(content), reference.manager.get());
        const int calls = static_cast<int>(reference.fake->calls().size());
        QVERIFY(calls > 0);
        for (int n = 1; n <= calls; n += 3) {
            const CameraToCheck camera;
            camera.fake->failNthCall(n);
            QCOMPARE(PresetCheck::checkPresets(json(content), camera.manager.get()).offered,
                     QStringList{"A"});
            for (const QString& write : camera.writes())
                QVERIFY2(write.contains("Selector="), qPrintable(write));
        }
    }
};

QTEST_APPLESS_MAIN(tst_CameraChecks)
#include "tst_CameraChecks.moc"
