#include "tests/tools/Checked.h"

#include <QtTest>

/// What the file alone tells: one row for each rule and each of its variants, with the exact line.
class tst_FileChecks : public QObject
{
    Q_OBJECT

    static void table()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("lines");
    }

    static void verify()
    {
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, lines);
        QCOMPARE(findingsIn(content), lines);
    }

    /// The preset's members start at column 27.
    static void preset(const char* name, const char* members, const char* lines)
    {
        QTest::newRow(name) << presetOf(members) << QByteArray(lines);
    }

    static void file(const char* name, const char* content, const char* lines)
    {
        QTest::newRow(name) << QByteArray(content) << QByteArray(lines);
    }

private slots:
    void aFileAsItShouldBeHasNoFindings_data()
    {
        QTest::addColumn<QByteArray>("content");
        const auto row = [](const char* name, const char* content) {
            QTest::newRow(name) << QByteArray(content);
        };
        row("empty list", "{'#presets': []}");
        row("schema named", "{'$schema': 'x', '#presets': []}");
        row("fixed names", "{'#presets': ['Custom', 'Turn Off All', 'Reset All'], 'Custom': {},\n"
                           "            'Turn Off All': {}, 'Reset All': {}}");
        row("value kinds",
            "{'#presets': ['A'], 'A': {'#tooltip': '', '#execute': 'X', 'B': {'#value': 'Line0',\n"
            "            'C': 1.5, 'D': true, 'E': '<min>', 'F': '<max>', 'G': ''}}}");
        row("all", "{'#presets': ['A'], 'A': {'B': {'#value': '<all>'},\n"
                   "            'C': {'#value': '<all>_Line0'}, 'D': {'#value': '<all>_Line_0'}}}");
        row("list", "{'#presets': ['A'], 'A': {'B': [{'#value': 'x', 'C': 1}, {'#value': 2}]}}");
        row("angle brackets in a text",
            "{'#presets': ['A'], 'A': {'B': {'#value': 'a<b>c', 'C': '<-'}}}");
        row("byte order mark", "\xEF\xBB\xBF{\"#presets\": []}");
        row("line ends", "{\r\n\"#presets\"\r:\n[]}\r\n");
    }
    void aFileAsItShouldBeHasNoFindings()
    {
        QFETCH(QByteArray, content);
        QCOMPARE(findingsIn(content), QByteArray());
    }

    void whatCannotBeParsed_data()
    {
        table();
        file("empty", "",
             "f.json:1:1: error: Cannot be parsed, so no preset is offered: the document is empty "
             "[parse-error]\n");
        file("blank", " \n ",
             "f.json:2:2: error: Cannot be parsed, so no preset is offered: the document is empty "
             "[parse-error]\n");
        file("missing comma", "{\n  \"#presets\": []\n  \"A\": {}\n}",
             "f.json:3:3: error: Cannot be parsed, so no preset is offered: missing a comma or '}' "
             "after an object member [parse-error]\n");
        file("comma too much", "{'#presets': [],}",
             "f.json:1:17: error: Cannot be parsed, so no preset is offered: missing a name for "
             "object member [parse-error]\n");
        file("comment", "{ // presets\n}",
             "f.json:1:3: error: Cannot be parsed, so no preset is offered: missing a name for "
             "object member [parse-error]\n");
        file("invalid UTF-8", "{\"\xC3\xA4\": \"\xFF\"}",
             "f.json:1:8: error: Cannot be parsed, so no preset is offered: invalid encoding in "
             "string [parse-error]\n");
        file("number beyond double", "{'A': 1e400}",
             "f.json:1:7: error: Cannot be parsed, so no preset is offered: number too big to be "
             "stored in double [parse-error]\n");
        file("number below double", "{'A': 1e-400}",
             "f.json:1:13: error: Cannot be parsed, so no preset is offered: illegal number "
             "[parse-error]\n");
        file("number below double after a byte order mark", "\xEF\xBB\xBF{\"A\": 1e-400}",
             "f.json:1:13: error: Cannot be parsed, so no preset is offered: illegal number "
             "[parse-error]\n");
        file("tab in a text", "{\"#presets\": [\"A\tB\"]}",
             "f.json:1:17: error: Only the plugin can parse this, other programs cannot, and "
             "nothing else was checked: invalid escape character in string [strict-json]\n");
        file("number without digits before the point", "{'#presets': [], 'A': .5}",
             "f.json:1:23: error: Only the plugin can parse this, other programs cannot, and "
             "nothing else was checked: invalid value [strict-json]\n");
    }
    void whatCannotBeParsed() { verify(); }

    void theRoot_data()
    {
        table();
        file("list at the root", "[]",
             "f.json:1:1: error: The file must hold an object, not a list [root-no-object]\n");
        file("key twice", "{'#presets': ['A'], 'A': 1, 'A': {}}",
             "f.json:1:29: error: \"A\" is here more than once; the plugin takes the last one "
             "[duplicate-key]\n");
        file("key twice, the last one wrong", "{'#presets': ['A'], 'A': {}, 'A': 1}",
             "f.json:1:30: error: \"A\" is here more than once; the plugin takes the last one "
             "[duplicate-key]\n"
             "f.json:1:35: error: The preset \"A\" must be an object, not a number; it is not "
             "offered [preset-no-object]\n");
        file("key thrice", "{\"#presets\": [\"A\"],\n\"A\": 1,\n\"A\": 2,\n\"A\": {}}",
             "f.json:3:1: error: \"A\" is here more than once; the plugin takes the last one "
             "[duplicate-key]\n"
             "f.json:4:1: error: \"A\" is here more than once; the plugin takes the last one "
             "[duplicate-key]\n");
        file("same key written differently", "{'#presets': ['A'], '\\u0041': {}, 'A': {}}",
             "f.json:1:35: error: \"A\" is here more than once; the plugin takes the last one "
             "[duplicate-key]\n");
        file("reserved key", "{'#presets': [], '#preset': []}",
             "f.json:1:18: error: \"#preset\" means nothing here; the file's own key is "
             "\"#presets\" [unknown-key]\n");
    }
    void theRoot() { verify(); }

    void theListOfPresets_data()
    {
        table();
        file("missing", "{'A': {}}",
             "f.json:1:1: error: No \"#presets\" list, so no preset is offered "
             "[presets-missing]\n");
        file("a text", "{'#presets': 'A', 'A': {}}",
             "f.json:1:14: error: \"#presets\" must be a list of names, not a text, so no preset "
             "is offered [presets-no-array]\n");
        file("a number listed", "{'#presets': [1]}",
             "f.json:1:15: error: \"#presets\" must list names, not a number [entry-no-text]\n");
        file("null listed where there is a nameless preset", "{'#presets': [null], '': 5}",
             "f.json:1:15: error: \"#presets\" must list names, not null [entry-no-text]\n"
             "f.json:1:26: error: The preset \"\" must be an object, not a number; it is not "
             "offered [preset-no-object]\n");
        file("listed twice", "{'#presets': ['A', 'A'], 'A': {}}",
             "f.json:1:20: warning: \"A\" is listed more than once [entry-twice]\n");
        file("fixed name in other letters", "{'#presets': ['Turn off all'], 'Turn off all': {}}",
             "f.json:1:15: warning: \"Turn off all\" is a preset like any other; the one with a "
             "meaning of its own is called \"Turn Off All\" [fixed-name-spelling]\n");
        file("listed but missing", "{'#presets': ['A', 'B'], 'B': {}}",
             "f.json:1:15: error: \"A\" is listed, but there is no such preset "
             "[preset-missing]\n");
        file("name of several lines", "{'#presets': ['A\\nB']}",
             "f.json:1:15: error: \"A\xEF\xBF\xBD"
             "B\" is listed, but there is no such preset [preset-missing]\n");
        file("no object", "{'#presets': ['A'], 'A': ['B']}",
             "f.json:1:26: error: The preset \"A\" must be an object, not a list; it is not "
             "offered [preset-no-object]\n");
        file("never offered", "{'#presets': ['A'], 'A': {}, 'B': {}}",
             "f.json:1:30: warning: \"B\" is not listed in \"#presets\", so it is never offered "
             "[never-offered]\n");
    }
    void theListOfPresets() { verify(); }

    void aPreset_data()
    {
        table();
        preset("tooltip", "'#tooltip': ['x']",
               "f.json:1:39: error: \"#tooltip\" must be a text, not a list [tooltip-no-text]\n");
        preset("command", "'#execute': true",
               "f.json:1:39: error: \"#execute\" must be the name of a command, not true or false "
               "[execute-no-text]\n");
        preset("command empty", "'#execute': ''",
               "f.json:1:39: error: \"#execute\" must be the name of a command; this one is empty "
               "[execute-no-text]\n");
        preset("reserved key", "'#value': 1",
               "f.json:1:27: error: \"#value\" means nothing here; a preset's own keys are "
               "\"#tooltip\" and \"#execute\" [unknown-key]\n");
        preset("reserved key in a setting", "'B': {'#value': 1, '#tooltip': 'x'}",
               "f.json:1:46: error: \"#tooltip\" means nothing here; a setting's own key is "
               "\"#value\" [unknown-key]\n");
        preset("key twice", "'B': {'#value': 1}, 'B': {'#value': 2}",
               "f.json:1:47: error: \"B\" is here more than once; the plugin takes the last one "
               "[duplicate-key]\n");
        preset("key twice in a setting", "'B': {'#value': 1, '#value': 2}",
               "f.json:1:46: error: \"#value\" is here more than once; the plugin takes the last "
               "one [duplicate-key]\n");
        preset("plain setting", "'B': 'On'",
               "f.json:1:32: error: \"B\" must be an object with \"#value\", not a text; the "
               "plugin would write an empty text [setting-no-object]\n");
        preset("empty list", "'B': []",
               "f.json:1:32: warning: The list of \"B\" is empty, so it sets nothing "
               "[list-empty]\n");
        preset("plain element", "'B': ['Line0']",
               "f.json:1:33: error: The list of \"B\" must hold objects with \"#value\", not a "
               "text; the plugin would write an empty text [element-no-object]\n");
    }
    void aPreset() { verify(); }

    void aSetting_data()
    {
        table();
        preset("no value", "'B': {'C': 1}",
               "f.json:1:32: error: \"B\" has no \"#value\"; the plugin would write an empty text "
               "[value-missing]\n");
        preset("no value in a list", "'B': [{'#value': 1}, {}]",
               "f.json:1:48: error: \"B\" has no \"#value\"; the plugin would write an empty text "
               "[value-missing]\n");
        preset("list as value", "'B': {'#value': ['Line0', 'Line1']}",
               "f.json:1:43: error: \"#value\" takes one value; for several, make \"B\" a list of "
               "objects with one \"#value\" each [value-not-plain]\n");
        preset("object as value", "'B': {'#value': {'#value': 1}}",
               "f.json:1:43: error: \"#value\" must be a text, a number or true or false, not an "
               "object [value-not-plain]\n");
        preset("null as value", "'B': {'#value': null}",
               "f.json:1:43: error: \"#value\" must be a text, a number or true or false, not null "
               "[value-not-plain]\n");
        preset("nested object", "'B': {'#value': 1, 'C': {'#value': 2}}",
               "f.json:1:51: error: \"C\" must be a text, a number or true or false, not an object "
               "[dependent-not-plain]\n");
        preset("nested list", "'B': {'#value': 1, 'C': [1]}",
               "f.json:1:51: error: \"C\" must be a text, a number or true or false, not a list "
               "[dependent-not-plain]\n");
    }
    void aSetting() { verify(); }

    void numbersAndPlaceholders_data()
    {
        table();
        preset("number lost", "'B': {'#value': 9007199254740993}",
               "f.json:1:43: error: \"9007199254740993\" has more digits than the plugin keeps; it "
               "becomes \"9007199254740992\" [number-lost]\n");
        preset("number lost in a dependent setting", "'B': {'#value': 1, 'C': -9007199254740993}",
               "f.json:1:51: error: \"-9007199254740993\" has more digits than the plugin keeps; "
               "it becomes \"-9007199254740992\" [number-lost]\n");
        preset("all in a list", "'B': [{'#value': '<all>'}]",
               "f.json:1:44: error: \"<all>\" has no meaning in a list; the plugin would write it "
               "as it is [all-in-list]\n");
        preset("all in a dependent setting", "'B': {'#value': 1, 'C': '<all>_D'}",
               "f.json:1:51: error: \"<all>\" has a meaning in \"#value\" only; the plugin would "
               "write it as it is [all-as-dependent]\n");
        preset("all without the entry", "'B': {'#value': '<all>_'}",
               "f.json:1:43: error: \"<all>_\" names no entry, so the selector stays at the last "
               "one [all-no-entry]\n");
        preset("all and something else", "'B': {'#value': '<all>Line_0'}",
               "f.json:1:43: error: \"<all>Line_0\" must be \"<all>\", or \"<all>_\" and an entry; "
               "the plugin overlooks what is between [all-malformed]\n");
        preset("unknown placeholder", "'B': {'#value': '<ALL>'}",
               "f.json:1:43: warning: \"<ALL>\" stands for nothing; there are \"<min>\", \"<max>\" "
               "and, in \"#value\", \"<all>\" [unknown-placeholder]\n");
        preset("unknown placeholder in a dependent setting", "'B': {'#value': 1, 'C': '<low>'}",
               "f.json:1:51: warning: \"<low>\" stands for nothing; there are \"<min>\", \"<max>\" "
               "and, in \"#value\", \"<all>\" [unknown-placeholder]\n");
    }
    void numbersAndPlaceholders() { verify(); }

    void aPresetThatIsNeverOfferedIsNotLookedInto()
    {
        QCOMPARE(findingsIn("{'#presets': [], 'A': {'B': 1}}"),
                 QByteArray("f.json:1:18: warning: \"A\" is not listed in \"#presets\", so it is "
                            "never offered [never-offered]\n"));
    }

    void columnsCountCharactersAndLinesEndInThreeWays_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("place");
        QTest::newRow("nothing") << QByteArray() << QByteArray("1:2");
        QTest::newRow("line feed") << QByteArray("\n\n ") << QByteArray("3:2");
        QTest::newRow("carriage return and line feed")
            << QByteArray("\r\n\r\n ") << QByteArray("3:2");
        QTest::newRow("carriage return") << QByteArray("\r\r ") << QByteArray("3:2");
        QTest::newRow("two bytes a character")
            << QByteArray("\"\xC3\xA4\":1,") << QByteArray("1:8");
        QTest::newRow("four bytes a character")
            << QByteArray("\"\xF0\x9F\x93\xB7\":1,") << QByteArray("1:8");
        QTest::newRow("tab") << QByteArray("\t") << QByteArray("1:3");
    }
    void columnsCountCharactersAndLinesEndInThreeWays()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, place);
        const QByteArray content = "{" + before + "'#x': 1, '#presets': []}";
        const QByteArray lines = findingsIn(content);
        QVERIFY2(lines.startsWith("f.json:" + place + ": error: \"#x\"") ||
                     lines.contains("\nf.json:" + place + ": error: \"#x\""),
                 lines.constData());
        QCOMPARE(findingsIn("\xEF\xBB\xBF" + content), lines);
    }
};

QTEST_APPLESS_MAIN(tst_FileChecks)
#include "tst_FileChecks.moc"
