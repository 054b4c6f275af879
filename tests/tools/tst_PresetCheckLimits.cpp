#include "tests/tools/Checked.h"

#include <QtTest>

/// Files that nobody writes by hand.
class tst_PresetCheckLimits : public QObject
{
    Q_OBJECT

    static constexpr int TenMegabytes = 10 * 1024 * 1024;

private slots:
    void deepNestingIsRefusedAsThePluginDoesIt_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("lines");
        const QByteArray tooDeep = "error: Cannot be parsed, so no preset is offered: too deeply "
                                   "nested document [parse-error]\n";
        const auto nested = [](const char* open, int levels, const char* close) {
            return "{\"#presets\": [], \"$schema\": " + QByteArray(open).repeated(levels) +
                   QByteArray(close).repeated(levels) + "}";
        };
        QTest::newRow("as deep as the plugin goes") << nested("[", 1023, "]") << QByteArray();
        QTest::newRow("lists") << nested("[", 10000, "]") << "f.json:1:1053: " + tooDeep;
        QTest::newRow("objects") << nested("{\"a\":", 10000, "}").replace(":}", ":1}")
                                 << "f.json:1:5145: " + tooDeep;
        QTest::newRow("a million") << nested("[", 1000000, "]") << "f.json:1:1053: " + tooDeep;
        QTest::newRow("never closed")
            << QByteArray(10000, '[')
            << QByteArray("f.json:1:10001: error: Cannot be parsed, so no preset is offered: "
                          "invalid value [parse-error]\n");
    }
    void deepNestingIsRefusedAsThePluginDoesIt()
    {
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, lines);
        QCOMPARE(findingsIn(content), lines);
    }

    void aLongTextIsNoFinding()
    {
        QCOMPARE(findingsIn("{'#presets': ['A'], 'A': {'#tooltip': '" +
                            QByteArray(TenMegabytes, 'x') + "'}}"),
                 QByteArray());
    }

    void aFindingBehindTenMegabytesHasItsPlace()
    {
        QCOMPARE(findingsIn("{" + QByteArray(TenMegabytes, '\n') +
                            "'\xC3\xA4': 1, '#presets': ['A'], 'A': 1}"),
                 QByteArray("f.json:10485761:1: warning: \"\xC3\xA4\" is not listed in "
                            "\"#presets\", so it is never offered [never-offered]\n"
                            "f.json:10485761:33: error: The preset \"A\" must be an object, not "
                            "a number; it is not offered [preset-no-object]\n"));
    }

    void tenThousandPresetsAreChecked()
    {
        QByteArray names;
        QByteArray presets;
        for (int i = 0; i < 10000; ++i) {
            const QByteArray name = "'Preset " + QByteArray::number(i) + "'";
            names += (i ? "," : "") + name;
            presets += ",\n" + name + ": {'TriggerMode': {'#value': 'On'}}";
        }
        const QByteArray clean = "{'#presets': [" + names + "]" + presets;
        const CameraToCheck camera;
        QCOMPARE(findingsIn(clean + "}", camera.manager.get()), QByteArray());
        QCOMPARE(findingsIn(clean + ",\n'X': 1}"),
                 QByteArray("f.json:10002:1: warning: \"X\" is not listed in \"#presets\", so it "
                            "is never offered [never-offered]\n"));
    }

    void millionsOfValuesAreRead()
    {
        const QByteArray values = QByteArray("1,").repeated(TenMegabytes / 2) + "1";
        const PresetCheck::Report report =
            PresetCheck::checkPresets(json("{'#presets': [" + values + "]}"));
        QCOMPARE(report.findings.size(), PresetCheck::Findings::Limit);
        QCOMPARE(report.omitted, TenMegabytes / 2 + 1 - int(PresetCheck::Findings::Limit));
    }

    void bytesThatAreNoTextAreNoReasonToCrash()
    {
        QByteArray bytes;
        for (int i = 0; i < 256; ++i)
            bytes.append(static_cast<char>(i));
        const QByteArray file = json("{'#presets': ['A'], 'A': {'B': {'#value': 'Line0'}}}");
        for (int at = 0; at < file.size(); ++at) {
            for (const char byte : bytes) {
                QByteArray broken = file;
                broken[at] = byte;
                const PresetCheck::Report report = PresetCheck::checkPresets(broken);
                // A preset that is not offered has its reason among the findings.
                QVERIFY2(report.offered == QStringList("A") || !report.findings.empty(),
                         broken.constData());
            }
            PresetCheck::checkPresets(file.left(at));
        }
    }
};

QTEST_APPLESS_MAIN(tst_PresetCheckLimits)
#include "tst_PresetCheckLimits.moc"
