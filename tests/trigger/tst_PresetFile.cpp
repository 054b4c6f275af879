// What the presets file offers and what a preset means, without camera or widgets.
#include "tests/trigger/Shouting.h"
#include "trigger/PresetFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QJsonObject object(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

QStringList namesIn(const PresetFile::Content& content)
{
    QStringList names;
    for (const PresetFile::Preset& preset : content.presets)
        names.append(preset.name);
    return names;
}

QString toolTipOf(const QByteArray& members)
{
    const auto content = PresetFile::parse(R"({"#presets": ["P"], "P": )" + members + "}");
    return content.presets.isEmpty() ? QString() : content.presets.first().toolTip();
}

/// One step in a line: "LineSelector=Line0; LineMode=Input".
QString described(const PresetFile::Step& step)
{
    QString text = step.feature + QLatin1Char('=') + step.value;
    for (auto it = step.dependents.begin(); it != step.dependents.end(); ++it)
        text += QStringLiteral("; %1=%2").arg(it.key(), it.value().toString());
    return text;
}

QStringList described(const PresetFile::Plan& plan)
{
    QStringList lines;
    for (const PresetFile::Step& step : plan.steps)
        lines.append(described(step));
    return lines;
}

} // namespace

class tst_PresetFile : public QObject
{
    Q_OBJECT

private slots:
    void aFamilyNameOfTwoWordsIsJoinedInTheFileName_data();
    void aFamilyNameOfTwoWordsIsJoinedInTheFileName();
    void theGenericFileServesWhereTheFamilyHasNone();
    void aFamilyNameLeadsNowhereElse_data();
    void aFamilyNameLeadsNowhereElse();

    void offersWhatIsListedInListOrder();
    void leavesOutWhatIsNotUsable_data();
    void leavesOutWhatIsNotUsable();
    void keepsThePresetsMembersWithoutTheToolTip();

    void buildsToolTips_data();
    void buildsToolTips();
    void namesAreInsertedAsTheyAre();
    void aPresetThatOnlyExecutesHasOnlyTheItalicLineInItsSettings();
    void angleBracketsOfValuesAreShownAsSuch();
    void theWordsOfToolTipsAreTranslated();

    void plansStepsInKeyOrder();
    void plansListsInTheirOwnOrder();
    void takesValuesAsText_data();
    void takesValuesAsText();
    void recognisesStepsForEveryEntry_data();
    void recognisesStepsForEveryEntry();
    void inAListNoStepIsForEveryEntry();
    void keepsTheTypesOfDependents();
    void holdsTheCommandBack();
    void plansNothingForACommandThatIsNoText();
};

void tst_PresetFile::aFamilyNameOfTwoWordsIsJoinedInTheFileName_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("file");
    QTest::newRow("one word") << QStringLiteral("Sim")
                              << QStringLiteral("AdvTrigger_Sim_Presets.json");
    QTest::newRow("two words") << QStringLiteral("Sim Series")
                               << QStringLiteral("AdvTrigger_SimSeries_Presets.json");
    QTest::newRow("blanks all over")
        << QStringLiteral(" A  B ") << QStringLiteral("AdvTrigger_AB_Presets.json");
    QTest::newRow("only blanks count")
        << QStringLiteral("A\tB\u00a0C") << QStringLiteral("AdvTrigger_A\tB\u00a0C_Presets.json");
    QTest::newRow("none") << QString() << QStringLiteral("AdvTrigger__Presets.json");
}

void tst_PresetFile::aFamilyNameOfTwoWordsIsJoinedInTheFileName()
{
    QFETCH(QString, family);
    QFETCH(QString, file);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("plugins")));
    const QString path = folder.path() + QStringLiteral("/plugins/") + file;
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    QCOMPARE(PresetFile::pathFor(folder.path(), family), path);
}

void tst_PresetFile::theGenericFileServesWhereTheFamilyHasNone()
{
    const QTemporaryDir folder;
    QCOMPARE(PresetFile::pathFor(folder.path(), QStringLiteral("A B")),
             folder.path() + QStringLiteral("/plugins/AdvTrigger_Presets.json"));
}

void tst_PresetFile::aFamilyNameLeadsNowhereElse_data()
{
    QTest::addColumn<QString>("family");
    QTest::newRow("beside the folder") << "Sim/../../Outside";
    QTest::newRow("below the folder") << "Sim/Inside";
    QTest::newRow("the folder itself") << "Sim/../AdvTrigger_Other";
}

void tst_PresetFile::aFamilyNameLeadsNowhereElse()
{
    QFETCH(QString, family);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("plugins/AdvTrigger_Sim")));
    const QString plugins = folder.path() + QStringLiteral("/plugins/");
    const QString path = plugins + QStringLiteral("AdvTrigger_%1_Presets.json").arg(family);
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    QCOMPARE(PresetFile::pathFor(folder.path(), family),
             plugins + QStringLiteral("AdvTrigger_Presets.json"));
}

void tst_PresetFile::offersWhatIsListedInListOrder()
{
    const auto content =
        PresetFile::parse(R"({"#presets": ["B", "A"], "A": {}, "B": {}, "C": {}})");
    QCOMPARE(namesIn(content), (QStringList{QStringLiteral("B"), QStringLiteral("A")}));
    QVERIFY(content.parseError.isEmpty());
}

void tst_PresetFile::leavesOutWhatIsNotUsable_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("names");
    const QStringList none;
    const QStringList justA{QStringLiteral("A")};
    QTest::newRow("listed without object")
        << QByteArray(R"({"#presets": ["B", "A"], "A": {}})") << justA;
    QTest::newRow("no list") << QByteArray(R"({"A": {}})") << none;
    QTest::newRow("a list that is none")
        << QByteArray(R"({"#presets": {"A": "A"}, "A": {}})") << none;
    QTest::newRow("a name that is a number")
        << QByteArray(R"({"#presets": [1, "A"], "1": {}, "A": {}})") << justA;
    QTest::newRow("a preset that is a list")
        << QByteArray(R"({"#presets": ["B", "A"], "A": {}, "B": []})") << justA;
    QTest::newRow("a preset that is a text")
        << QByteArray(R"({"#presets": ["B", "A"], "A": {}, "B": "x"})") << justA;
    QTest::newRow("what is no text counts as the empty name")
        << QByteArray(R"({"#presets": [null, "A"], "": {}, "A": {}})")
        << QStringList{QString(), QStringLiteral("A")};
    QTest::newRow("the list itself")
        << QByteArray(R"({"#presets": ["#presets", "A"], "A": {}})") << justA;
    QTest::newRow("listed twice") << QByteArray(R"({"#presets": ["A", "A"], "A": {}})")
                                  << QStringList{QStringLiteral("A"), QStringLiteral("A")};
    QTest::newRow("other case") << QByteArray(R"({"#presets": ["a", "A"], "A": {}})") << justA;
    QTest::newRow("a root that is a list") << QByteArray(R"([{"#presets": ["A"]}])") << none;
    QTest::newRow("byte order mark")
        << QByteArray("\xEF\xBB\xBF{\"#presets\": [\"A\"], \"A\": {}}") << justA;
}

void tst_PresetFile::leavesOutWhatIsNotUsable()
{
    QFETCH(QByteArray, json);
    const auto content = PresetFile::parse(json);
    QTEST(namesIn(content), "names");
    QCOMPARE(content.parseError, QString());
}

void tst_PresetFile::keepsThePresetsMembersWithoutTheToolTip()
{
    const auto content = PresetFile::parse(
        R"({"#presets": ["A"], "A": {"#tooltip": "t", "#execute": "C", "F": {"#value": 1}}})");
    QCOMPARE(content.presets.first().members(), object(R"({"#execute": "C", "F": {"#value": 1}})"));
}

void tst_PresetFile::buildsToolTips_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("empty") << QByteArray("{}") << QStringLiteral("<b>P</b><br>");
    QTest::newRow("text") << QByteArray(R"({"#tooltip": "a <i>b</i>"})")
                          << QStringLiteral("<b>P</b><br>a <i>b</i>");
    QTest::newRow("number as text")
        << QByteArray(R"({"#tooltip": 7})") << QStringLiteral("<b>P</b><br>7");
    QTest::newRow("setting")
        << QByteArray(R"({"#tooltip": "t", "F": {"#value": "On"}})")
        << QStringLiteral("<b>P</b><br>t<br>Settings:<blockquote><b>F</b>: On<br></blockquote>\n");
    QTest::newRow("dependents")
        << QByteArray(R"({"S": {"G": true, "#value": "E", "F": 2.5}})")
        << QStringLiteral("<b>P</b><br><br>Settings:<blockquote><b>S</b>: E<br>F: 2.5<br>G: true"
                          "<br></blockquote>\n");
    QTest::newRow("sorted, with a command")
        << QByteArray(R"({"Z": {"#value": 1}, "A": {"#value": 2}, "#execute": "C"})")
        << QStringLiteral("<b>P</b><br><br>Settings:<blockquote><i> Execute: C</i><br><b>A</b>: 2"
                          "<br><b>Z</b>: 1<br></blockquote>\n");
    QTest::newRow("empty command")
        << QByteArray(R"({"#execute": ""})")
        << QStringLiteral("<b>P</b><br><br>Settings:<blockquote><i> Execute: </i><br>"
                          "</blockquote>\n");
    QTest::newRow("lists and plain values are not shown")
        << QByteArray(R"({"L": [{"#value": "E"}], "F": 3})") << QStringLiteral("<b>P</b><br>");
    QTest::newRow("nested values have no text")
        << QByteArray(R"({"S": {"#value": {"a": 1}, "F": [1]}})")
        << QStringLiteral("<b>P</b><br><br>Settings:<blockquote><b>S</b>: <br>F: <br>"
                          "</blockquote>\n");
    QTest::newRow("percent signs are no placeholders")
        << QByteArray(R"({"%2": {"#value": "%1"}, "#execute": "%1"})")
        << QStringLiteral("<b>P</b><br><br>Settings:<blockquote><i> Execute: %1</i><br><b>%2</b>: "
                          "%1<br></blockquote>\n");
}

void tst_PresetFile::buildsToolTips()
{
    QFETCH(QByteArray, members);
    QTEST(toolTipOf(members), "toolTip");
}

void tst_PresetFile::namesAreInsertedAsTheyAre()
{
    const auto content = PresetFile::parse(R"({"#presets": ["<i>P</i>&%1"],
        "<i>P</i>&%1": {"#execute": "<C>", "<S>": {"#value": "a&b", "<D>": 1}}})");
    QCOMPARE(content.presets.first().toolTip(),
             QStringLiteral("<b><i>P</i>&%1</b><br><br>Settings:<blockquote><i> Execute: <C></i>"
                            "<br><b><S></b>: a&b<br><D>: 1<br></blockquote>\n"));
}

void tst_PresetFile::aPresetThatOnlyExecutesHasOnlyTheItalicLineInItsSettings()
{
    QCOMPARE(toolTipOf(R"({"#execute": "TriggerSoftware"})"),
             QStringLiteral("<b>P</b><br><br>Settings:<blockquote><i> Execute: TriggerSoftware</i>"
                            "<br></blockquote>\n"));
}

void tst_PresetFile::angleBracketsOfValuesAreShownAsSuch()
{
    QCOMPARE(toolTipOf(R"({"S": {"#value": "<all>_<x>", "D": "<min>"}})"),
             QStringLiteral("<b>P</b><br><br>Settings:<blockquote><b>S</b>: &lt;all&gt;_&lt;x&gt;"
                            "<br>D: &lt;min&gt;<br></blockquote>\n"));
}

void tst_PresetFile::theWordsOfToolTipsAreTranslated()
{
    Shouting translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(toolTipOf(R"({"#execute": "C"})"),
             QStringLiteral("<b>P</b><br><br>SETTINGS:<blockquote><i> EXECUTE: C</i><br>"
                            "</blockquote>\n"));
}

void tst_PresetFile::plansStepsInKeyOrder()
{
    const auto plan = PresetFile::planOf(
        object(R"({"b": {"#value": "3"}, "B": {"#value": "2", "y": "2", "X": "1"},
                   "A": {"#value": "1"}})"));
    QCOMPARE(described(plan), (QStringList{QStringLiteral("A=1"), QStringLiteral("B=2; X=1; y=2"),
                                           QStringLiteral("b=3")}));
}

void tst_PresetFile::plansListsInTheirOwnOrder()
{
    const auto plan = PresetFile::planOf(
        object(R"({"S": [{"#value": "b", "F": "1"}, {"#value": "a"}, {"F": "2"}, 5]})"));
    QCOMPARE(described(plan), (QStringList{QStringLiteral("S=b; F=1"), QStringLiteral("S=a"),
                                           QStringLiteral("S=; F=2"), QStringLiteral("S=")}));
}

void tst_PresetFile::takesValuesAsText_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QByteArray(R"("On")") << QStringLiteral("On");
    QTest::newRow("number") << QByteArray("12") << QStringLiteral("12");
    QTest::newRow("fraction") << QByteArray("0.1") << QStringLiteral("0.1");
    QTest::newRow("large") << QByteArray("4294967295") << QStringLiteral("4294967295");
    QTest::newRow("exponent") << QByteArray("1e3") << QStringLiteral("1000");
    QTest::newRow("whole fraction") << QByteArray("1.0") << QStringLiteral("1");
    QTest::newRow("negative zero") << QByteArray("-0") << QStringLiteral("0");
    QTest::newRow("beyond integers") << QByteArray("1e20") << QStringLiteral("1e+20");
    QTest::newRow("true") << QByteArray("true") << QStringLiteral("true");
    QTest::newRow("false") << QByteArray("false") << QStringLiteral("false");
    QTest::newRow("null") << QByteArray("null") << QString();
    QTest::newRow("object") << QByteArray(R"({"a": 1})") << QString();
    QTest::newRow("list") << QByteArray(R"(["Line0"])") << QString();
}

void tst_PresetFile::takesValuesAsText()
{
    QFETCH(QByteArray, json);
    const auto plan = PresetFile::planOf(object(R"({"F": {"#value": )" + json + "}}"));
    QTEST(plan.steps.first().value, "text");
}

void tst_PresetFile::recognisesStepsForEveryEntry_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("everyEntry");
    QTest::addColumn<bool>("namesLast");
    QTest::addColumn<QString>("last");
    QTest::newRow("entry") << QStringLiteral("Line_0") << false << false << QString();
    QTest::newRow("all") << QStringLiteral("<all>") << true << false << QString();
    QTest::newRow("all and one") << QStringLiteral("<all>_Line0") << true << true
                                 << QStringLiteral("Line0");
    QTest::newRow("after the first of several")
        << QStringLiteral("<all>_Out_1") << true << true << QStringLiteral("Out_1");
    QTest::newRow("nothing after it") << QStringLiteral("<all>_") << true << true << QString();
    QTest::newRow("other text") << QStringLiteral("<all>Line0") << true << false << QString();
    QTest::newRow("text in between")
        << QStringLiteral("<all>x_Line0") << true << true << QStringLiteral("Line0");
    QTest::newRow("not at the start")
        << QStringLiteral(" <all>_Line0") << false << false << QString();
}

void tst_PresetFile::recognisesStepsForEveryEntry()
{
    QFETCH(QString, value);
    const QJsonObject members{
        {QStringLiteral("S"), QJsonObject{{QStringLiteral("#value"), value}}}};
    const PresetFile::Step step = PresetFile::planOf(members).steps.first();
    QTEST(step.forEveryEntry, "everyEntry");
    QTEST(step.namesLastEntry, "namesLast");
    QTEST(step.lastEntry, "last");
    QCOMPARE(step.value, value);
}

void tst_PresetFile::inAListNoStepIsForEveryEntry()
{
    const auto plan = PresetFile::planOf(object(R"({"S": [{"#value": "<all>_Line0"}]})"));
    QVERIFY(!plan.steps.first().forEveryEntry);
    QVERIFY(!plan.steps.first().namesLastEntry);
    QCOMPARE(plan.steps.first().value, QStringLiteral("<all>_Line0"));
}

void tst_PresetFile::keepsTheTypesOfDependents()
{
    const auto plan =
        PresetFile::planOf(object(R"({"S": {"#value": "E", "B": false, "N": 2.5, "T": "x"}})"));
    const QVariantMap dependents = plan.steps.first().dependents;
    // Variants of different types may compare as equal.
    QCOMPARE(dependents.value(QStringLiteral("B")).userType(), int(QMetaType::Bool));
    QCOMPARE(dependents.value(QStringLiteral("N")).userType(), int(QMetaType::Double));
    QCOMPARE(dependents.value(QStringLiteral("T")).userType(), int(QMetaType::QString));
    QCOMPARE(dependents.value(QStringLiteral("B")), QVariant(false));
    QCOMPARE(dependents.value(QStringLiteral("N")), QVariant(2.5));
    QCOMPARE(dependents.value(QStringLiteral("T")), QVariant(QStringLiteral("x")));
    QCOMPARE(dependents.size(), 3);
}

void tst_PresetFile::holdsTheCommandBack()
{
    const auto plan = PresetFile::planOf(object(R"({"#execute": "C", "F": {"#value": "1"}})"));
    QCOMPARE(plan.command, QStringLiteral("C"));
    QCOMPARE(described(plan), QStringList{QStringLiteral("F=1")});
}

void tst_PresetFile::plansNothingForACommandThatIsNoText()
{
    const auto plan = PresetFile::planOf(object(R"({"#execute": ["C"]})"));
    QCOMPARE(plan.command, QString());
    QVERIFY(plan.steps.isEmpty());
}

QTEST_GUILESS_MAIN(tst_PresetFile)
#include "tst_PresetFile.moc"
