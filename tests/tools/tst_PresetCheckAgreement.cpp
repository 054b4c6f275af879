#include "tests/tools/Checked.h"
#include "tests/trigger/MessageBoxes.h"
#include "tests/trigger/PresetForm.h"

#include <QDir>
#include <QtTest>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read %s", qPrintable(path));
    return file.readAll();
}

QStringList namesIn(const QComboBox& box)
{
    QStringList names;
    for (int i = 0; i < box.count(); ++i)
        names.append(box.itemText(i));
    return names;
}

QStringList rulesIn(const PresetCheck::Report& report)
{
    QStringList rules;
    for (const PresetCheck::Finding& finding : report.findings)
        rules.append(finding.rule.id);
    return rules;
}

/// A file that uses everything that presets can do, with places for values.
const char* const Everything =
    "{'#presets': ['A', 'B', %1], 'A': %2, 'B': {'#tooltip': %3, '#execute': %4, "
    "'TriggerSelector': {'#value': %5, 'TriggerMode': %6, 'TriggerDelay': %7}, "
    "'LineSelector': [{'#value': %8, 'LineInverter': %9}]}, 'C': {}}";
/// What fits into the places.
const QStringList Fitting = {
    "'C'", "{}", "'x'", "'TriggerSoftware'", "'<all>_FrameStart'", "'On'", "5", "'Line1'", "true"};
/// What is put into each place in turn.
const QStringList Others = {"null",
                            "true",
                            "0",
                            "1e3",
                            "9007199254740993",
                            "''",
                            "'A'",
                            "'On'",
                            "'<all>'",
                            "'<all>_'",
                            "'<min>'",
                            "'Line9'",
                            "[]",
                            "[1]",
                            "[{'#value': 'Line0'}]",
                            "{}",
                            "{'#value': 'x'}",
                            "{'#x': 1}",
                            "{'B': 1, 'B': 2}"};

QByteArray everythingWith(int place, const QString& value)
{
    QString text = Everything;
    for (int i = 0; i < Fitting.size(); ++i)
        text.replace(QStringLiteral("%") + QString::number(i + 1),
                     i == place ? value : Fitting.at(i));
    return json(text.toUtf8());
}

} // namespace

/// The checker and the plugin read a file the same way.
class tst_PresetCheckAgreement : public QObject
{
    Q_OBJECT

    static void files()
    {
        QTest::addColumn<QByteArray>("content");
        for (const char* folder : {PRESETS, CORPUS}) {
            const QDir dir(folder);
            for (const QString& name : dir.entryList(QDir::Files))
                QTest::newRow(qPrintable(name)) << contentOf(dir.filePath(name));
        }
        for (int place = 0; place < Fitting.size(); ++place) {
            for (const QString& value : Others)
                QTest::addRow("place %d is %s", place + 1, qPrintable(value))
                    << everythingWith(place, value);
        }
    }

private slots:
    void whatTheCheckerCallsOfferedIsInTheBox_data() { files(); }
    void whatTheCheckerCallsOfferedIsInTheBox()
    {
        QFETCH(QByteArray, content);
        const auto camera = Fake::FakeCamera::standard();
        const PresetForm form(*camera, content);
        const PresetCheck::Report report = PresetCheck::checkPresets(content);
        QCOMPARE(report.offered, namesIn(form.box));
    }

    void aListedPresetIsOfferedUnlessThereIsAFinding_data() { files(); }
    void aListedPresetIsOfferedUnlessThereIsAFinding()
    {
        QFETCH(QByteArray, content);
        const PresetCheck::Report report = PresetCheck::checkPresets(content);
        const QStringList rules = rulesIn(report);
        const QJsonDocument document = QJsonDocument::fromJson(content);
        const int listed = document.object().value("#presets").toArray().size();
        const bool isExplained = rules.contains("preset-missing") ||
                                 rules.contains("preset-no-object") ||
                                 rules.contains("entry-no-text");
        if (!isExplained)
            QCOMPARE(report.offered.size(), listed);
        else
            QVERIFY(report.offered.size() <= listed);
        if (!document.isObject())
            QVERIFY(rules.contains("parse-error") || rules.contains("root-no-object"));
    }

    void whatTheCameraComplainsAboutIsFoundBefore_data() { files(); }
    void whatTheCameraComplainsAboutIsFoundBefore()
    {
        QFETCH(QByteArray, content);
        const CameraToCheck used;
        const PresetForm form(*used.fake, content);
        MessageBoxes boxes;
        for (const QString& name : namesIn(form.box))
            form.select(name);
        const CameraToCheck camera;
        const PresetCheck::Report report = PresetCheck::checkPresets(content, camera.manager.get());
        QVERIFY2(boxes.shown.isEmpty() || !report.findings.empty(),
                 qPrintable(boxes.texts().join('\n')));
    }

    void whatFitsIsAppliedAsItStands()
    {
        const QByteArray content = everythingWith(-1, QString());
        const CameraToCheck camera;
        QCOMPARE(findingsIn(content, camera.manager.get()), QByteArray());
        const PresetForm form(*camera.fake, content);
        form.select("B");
        const std::vector<std::string> writes = camera.fake->writes();
        for (const char* write : {"SetBoolValue LineInverter=true", "SetFloatValue TriggerDelay=5",
                                  "SetStringValue TriggerMode=On", "RunCommand TriggerSoftware"})
            QVERIFY2(std::count(writes.begin(), writes.end(), write) > 0, write);
    }
};

QTEST_MAIN(tst_PresetCheckAgreement)
#include "tst_PresetCheckAgreement.moc"
