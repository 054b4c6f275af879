#include "tests/tools/Checked.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using namespace PresetCheck;

/// What tools may rely on.
class tst_PresetCheckOutput : public QObject
{
    Q_OBJECT

    static Report reportOf(const char* file, const char* content)
    {
        Report report = checkPresets(json(content));
        report.file = QString::fromUtf8(file);
        return report;
    }

private slots:
    void theTextHasALineForEachFindingInTheFilesOrder()
    {
        const QByteArray text =
            asText({reportOf("clean.json", "{'#presets': []}"),
                    reportOf("p\xC3\xA4.json", "{'#presets': ['A'],\n'A': {'B': []}, 'C': {}}")});
        QCOMPARE(text, QByteArray("p\xC3\xA4.json:2:12: warning: The list of \"B\" is empty, so it "
                                  "sets nothing [list-empty]\n"
                                  "p\xC3\xA4.json:2:17: warning: \"C\" is not listed in "
                                  "\"#presets\", so it is never offered [never-offered]\n"));
    }

    void theJsonHasStableMembers()
    {
        const QByteArray output =
            asJson({reportOf("a.json", "{'#presets': ['A', 'B', 'B'],\n'A': {'C': 1}, 'B': {}}"),
                    reportOf("b.json", "{'#presets': []}")},
                   "Maker Model 1");
        const QByteArray expected = json("{'format': 1, 'camera': 'Maker Model 1', 'errors': 1, "
                                         "'warnings': 1, 'files': ["
                                         "{'file': 'a.json', 'offered': ['A', 'B', 'B'], "
                                         "'omitted': 0, 'findings': ["
                                         "{'line': 1, 'column': 25, 'severity': 'warning', 'rule': "
                                         "'entry-twice', 'message': '\\'B\\' is listed more than "
                                         "once'}, "
                                         "{'line': 2, 'column': 12, 'severity': 'error', 'rule': "
                                         "'setting-no-object', 'message': '\\'C\\' must be an "
                                         "object with \\'#value\\', not a number; the plugin would "
                                         "write an empty text'}]}, "
                                         "{'file': 'b.json', 'offered': [], 'omitted': 0, "
                                         "'findings': []}]}");
        QJsonParseError error;
        const QJsonDocument wanted = QJsonDocument::fromJson(expected, &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
        QCOMPARE(QJsonDocument::fromJson(output), wanted);
    }

    void withoutACameraTheJsonSaysNull()
    {
        const QJsonObject all = QJsonDocument::fromJson(asJson({}, QString())).object();
        QVERIFY(all.contains("camera"));
        QVERIFY(all.value("camera").isNull());
    }

    void findingsBeyondTheLimitAreCounted()
    {
        QByteArray list;
        for (std::size_t i = 0; i < Findings::Limit + 5; ++i)
            list += "1,";
        list.chop(1);
        const Report report = reportOf("f.json", "{'#presets': [" + list + "]}");
        QCOMPARE(report.findings.size(), Findings::Limit);
        QCOMPARE(report.omitted, 5);
        QVERIFY(asText({report}).endsWith("\nf.json: 5 more\n"));
        QVERIFY(asJson({report}, QString()).contains("\"omitted\": 5"));
    }

    void longTextsAreCutShort()
    {
        const QByteArray text =
            asText({reportOf("f.json", "{'#presets': ['" + QByteArray(1000, 'x') + "']}")});
        QVERIFY2(text.contains("\"" + QByteArray(60, 'x') + "...\" is listed"), text.constData());
    }

    void wholeNumbersWithTooManyDigitsAreLost_data()
    {
        QTest::addColumn<bool>("lost");
        const auto row = [](const char* number, bool lost) { QTest::newRow(number) << lost; };
        row("0", false);
        row("-0", false);
        row("0.0e5", false);
        row("7", false);
        row("-12.50", false);
        row("0.1", false);
        row("1e3", false);
        row("12.5E-1", false);
        row("1500E-2", false);
        row("9007199254740992", false);
        row("9007199254740993", true);
        row("-9007199254740993", true);
        row("9007199254740993.0", true);
        row("0.9007199254740993e16", true);
        row("90071992547409930", true);
        row("9007199254740994", false);
        row("9223372036854775807", true);
        row("9223372036854775808", false);
        row("1e23", false);
        row("100000000000000000000001", true);
        row("0.1000000000000000000000001", false);
        row("3.14159265358979323846", false);
    }
    void wholeNumbersWithTooManyDigitsAreLost()
    {
        QFETCH(bool, lost);
        QCOMPARE(isNumberLost(QTest::currentDataTag()), lost);
    }

    void aMillionDigitsTakeNoTime()
    {
        QVERIFY(isNumberLost("1" + QString(100, '0') + "1"));
        QVERIFY(!isNumberLost("0." + QString(1000000, '0') + "1"));
    }
};

QTEST_APPLESS_MAIN(tst_PresetCheckOutput)
#include "tst_PresetCheckOutput.moc"
