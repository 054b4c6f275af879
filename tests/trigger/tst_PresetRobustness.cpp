// Presets files that nobody should write.
#include "tests/support/HeapInUse.h"
#include "tests/support/LeaksOfQtParser.h"
#include "tests/trigger/ChoiceForm.h"
#include "trigger/PresetFile.h"

#include <QJsonDocument>
#include <QtTest>

namespace {

constexpr int Many = 10000;

/// A file of "P" whose setting is nested that deep in objects.
QByteArray nestedObjects(int levels)
{
    return onePreset(QByteArray("{\"a\":").repeated(levels) + "1" + QByteArray(levels, '}'));
}

QByteArray manyPresets(int count)
{
    QByteArray names;
    QByteArray presets;
    for (int i = 0; i < count; ++i) {
        const QByteArray name = "\"p" + QByteArray::number(i) + '"';
        names += (i > 0 ? "," : "") + name;
        presets += "," + name + R"(:{"#tooltip":"t","LineSelector":{"#value":"Line0"}})";
    }
    return R"({"#presets":[)" + names + "]" + presets + "}";
}

QByteArray tenMegabytes()
{
    QByteArray settings = R"({"#value":"x")";
    for (int i = 0; settings.size() < 10 * 1024 * 1024; ++i)
        settings += ",\"Feature" + QByteArray::number(i) + "\":\"<value of some length>\"";
    return onePreset(R"({"S":)" + settings + "}}");
}

} // namespace

class tst_PresetRobustness : public QObject
{
    Q_OBJECT

private slots:
    void unusableFilesGiveNoPresets_data();
    void unusableFilesGiveNoPresets();
    void aFileOfTenMegabytesIsReadWhole();
    void tenThousandPresetsAreOffered();
    void aPresetListedAThousandTimesKeepsItsTextsOnce();
    void nestingUpToTheParsersLimitIsIgnoredWhereItMeansNothing();
    void numbersAtTheEdgeOfDoubleAreKept();
    void duplicateMembersGiveOnePreset();
};

void tst_PresetRobustness::unusableFilesGiveNoPresets_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("illegal value");
    QTest::newRow("only a blank") << QByteArray(" ") << QStringLiteral("illegal value");
    QTest::newRow("cut off") << QByteArray(R"({"#presets": ["A"], "A": {)")
                             << QStringLiteral("unterminated object");
    QTest::newRow("not JSON") << QByteArray("presets: A") << QStringLiteral("illegal value");
    QTest::newRow("trailing comma") << QByteArray(R"({"#presets": ["A",], "A": {}})")
                                    << QStringLiteral("object is missing after a comma");
    QTest::newRow("comment") << QByteArray("{ // no comments\n\"#presets\": []}")
                             << QStringLiteral("unterminated object");
    QTest::newRow("text after the end") << QByteArray(R"({"#presets": ["A"], "A": {}} x)")
                                        << QStringLiteral("garbage at the end of the document");
    QTest::newRow("invalid UTF-8")
        << QByteArray("{\"#presets\": [\"\xC3\x28\"]}") << QStringLiteral("invalid UTF8 string");
    QTest::newRow("Latin-1") << QByteArray("{\"#presets\": [\"\xE4\"]}")
                             << QStringLiteral("invalid UTF8 string");
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE{\0}\0", 6) << QStringLiteral("illegal value");
    QTest::newRow("zero bytes") << QByteArray(100, '\0') << QStringLiteral("illegal value");
    QTest::newRow("number beyond double")
        << onePreset(R"({"F": {"#value": 1e400}})") << QStringLiteral("illegal number");
    QTest::newRow("10000 lists in each other") << QByteArray(Many, '[') + QByteArray(Many, ']')
                                               << QStringLiteral("too deeply nested document");
    QTest::newRow("10000 objects in each other")
        << nestedObjects(Many) << QStringLiteral("too deeply nested document");
    QTest::newRow("10000 lists that never end")
        << QByteArray(Many, '[') << QStringLiteral("too deeply nested document");
}

void tst_PresetRobustness::unusableFilesGiveNoPresets()
{
    QFETCH(QByteArray, json);
    const auto content = PresetFile::parse(json);
    QTEST(content.parseError, "error");
    QVERIFY(content.presets.isEmpty());
}

void tst_PresetRobustness::aFileOfTenMegabytesIsReadWhole()
{
    const QByteArray json = tenMegabytes();
    const QJsonObject settings = QJsonDocument::fromJson(json)
                                     .object()
                                     .value(QStringLiteral("P"))
                                     .toObject()
                                     .value(QStringLiteral("S"))
                                     .toObject();
    const auto camera = lineCamera();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(json);
    form.load(folder.path());
    QCOMPARE(form.box.count(), 1);
    QCOMPARE(form.box.itemData(0).toMap().value(QStringLiteral("S")).toMap().size(),
             settings.size());
    const PresetFile::Content content = PresetFile::parse(json);
    QCOMPARE(content.presets.first().toolTip().count(QStringLiteral("&lt;value")),
             settings.size() - 1);
}

void tst_PresetRobustness::tenThousandPresetsAreOffered()
{
    const auto camera = lineCamera();
    ChoiceForm form(*camera, manyPresets(Many));
    QCOMPARE(form.box.count(), Many);
    QCOMPARE(form.box.itemText(Many - 1), QStringLiteral("p9999"));
    QVERIFY(form.box.itemData(Many - 1, Qt::ToolTipRole)
                .toString()
                .startsWith(QStringLiteral("<b>p9999</b><br>t")));
}

void tst_PresetRobustness::aPresetListedAThousandTimesKeepsItsTextsOnce()
{
    constexpr int listings = 1000;
    const QByteArray text(100 * 1024, 't');
    const QByteArray json = R"({"#presets":["P")" + QByteArray(",\"P\"").repeated(listings - 1) +
                            R"(],"P":{"#tooltip":")" + text + R"(","F":{"#value":")" + text +
                            R"("}}})";
    const auto camera = lineCamera();
    const std::size_t before = heapInUse();
    const ChoiceForm form(*camera, json);
    QCOMPARE(form.box.count(), listings);
    QVERIFY2(heapInUse() - before < std::size_t(20 * text.size()),
             QByteArray::number(qulonglong(heapInUse() - before)));
    QVERIFY(form.box.itemData(listings - 1).toMap().contains("F"));
}

void tst_PresetRobustness::nestingUpToTheParsersLimitIsIgnoredWhereItMeansNothing()
{
    const auto camera = lineCamera();
    ChoiceForm form(*camera, nestedObjects(1000));
    QCOMPARE(form.box.count(), 1);
    form.box.setCurrentIndex(0);
    QCOMPARE(writesOf(*camera), QStringList());
    QCOMPARE(form.overviewResets, 1);
}

void tst_PresetRobustness::numbersAtTheEdgeOfDoubleAreKept()
{
    const auto content = PresetFile::parse(onePreset(
        R"({"S": {"#value": 1.7976931348623157e308, "A": -1e308, "B": 123456789012345678901}})"));
    const auto plan = PresetFile::planOf(content.presets.first().members());
    QCOMPARE(plan.steps.first().value.toDouble(), 1.7976931348623157e308);
    QCOMPARE(plan.steps.first().dependents.value(QStringLiteral("A")).toDouble(), -1e308);
    QCOMPARE(plan.steps.first().dependents.value(QStringLiteral("B")).toDouble(),
             123456789012345678901.0);
}

void tst_PresetRobustness::duplicateMembersGiveOnePreset()
{
    [[maybe_unused]] const LeaksOfQtParser ignored;
    const auto content =
        PresetFile::parse(R"({"#presets": ["A"], "A": {"F": {"#value": 1}}, "A": {}})");
    QCOMPARE(content.presets.size(), 1);
    QVERIFY(content.presets.first().members().isEmpty());
}

QTEST_MAIN(tst_PresetRobustness)
#include "tst_PresetRobustness.moc"
