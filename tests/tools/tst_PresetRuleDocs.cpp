#include "tests/support/LeaksOfQtParser.h"
#include "tests/tools/Checked.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

using namespace PresetCheck;

namespace {

#define PRESETCHECK_RULE(name, id, severity) Rules::name,
constexpr Rule AllRules[] = {PRESETCHECK_RULES(PRESETCHECK_RULE)};
#undef PRESETCHECK_RULE

struct Section
{
    QString severity;
    QByteArray example;
};

/// The page's sections on rules, by the rule's id: heading, words, one example.
QMap<QString, Section> readSections()
{
    QFile file(PAGE);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read %s", PAGE);
    static const QRegularExpression pattern(
        "^#### `([a-z-]+)` \\((error|warning)\\)\n\n(?!#|```).*?\n```json\n(.*?)\n```$",
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    QMap<QString, Section> sections;
    auto match = pattern.globalMatch(QString::fromUtf8(file.readAll()));
    while (match.hasNext()) {
        const QRegularExpressionMatch section = match.next();
        sections[section.captured(1)] = {section.captured(2), section.captured(3).toUtf8()};
    }
    return sections;
}

bool breaks(const QByteArray& content, const QString& rule, const FeatureManager* camera)
{
    [[maybe_unused]] const LeaksOfQtParser ignored;
    const Report report = checkPresets(content, camera);
    return std::any_of(report.findings.begin(), report.findings.end(),
                       [&](const Finding& finding) { return rule == finding.rule.id; });
}

} // namespace

/// The page on presets explains every rule, with an example that breaks it.
class tst_PresetRuleDocs : public QObject
{
    Q_OBJECT

private slots:
    void everyRuleIsExplainedWithAnExampleThatBreaksIt_data()
    {
        QTest::addColumn<bool>("isError");
        for (const Rule& rule : AllRules)
            QTest::newRow(rule.id) << (rule.severity == Severity::Error);
    }
    void everyRuleIsExplainedWithAnExampleThatBreaksIt()
    {
        QFETCH(bool, isError);
        const QString rule = QTest::currentDataTag();
        const QMap<QString, Section> sections = readSections();
        QVERIFY(sections.contains(rule));
        QCOMPARE(sections[rule].severity, QString(isError ? "error" : "warning"));
        const CameraToCheck camera;
        const QByteArray example = sections[rule].example;
        QVERIFY(breaks(example, rule, nullptr) || breaks(example, rule, camera.manager.get()));
    }

    void noOtherRuleIsExplained()
    {
        QStringList ids;
        for (const Rule& rule : AllRules)
            ids.append(rule.id);
        ids.sort();
        QCOMPARE(QStringList(readSections().keys()), ids);
    }
};

QTEST_APPLESS_MAIN(tst_PresetRuleDocs)
#include "tst_PresetRuleDocs.moc"
