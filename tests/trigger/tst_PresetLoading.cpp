// Filling the preset box from the file that fits the camera.
#include "tests/support/LogCapture.h"
#include "tests/trigger/ChoiceForm.h"

#include <QtTest>

#include <functional>

#include <sys/stat.h>

namespace {

const QByteArray Generic = R"({"#presets": ["Generic"], "Generic": {}})";
const QByteArray Family = R"({"#presets": ["Family"], "Family": {}})";

std::unique_ptr<Fake::FakeCamera> cameraOfFamily(const std::string& family)
{
    auto camera = std::make_unique<Fake::FakeCamera>();
    camera->addString("DeviceFamilyName", family);
    return camera;
}

QStringList itemsOf(const QComboBox& box)
{
    QStringList items;
    for (int i = 0; i < box.count(); ++i)
        items.append(box.itemText(i));
    return items;
}

constexpr int SixteenMegabytes = 16 * 1024 * 1024;

/// A file that offers one preset and is filled up with blanks.
void putOneOfSize(const QString& path, int size)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(Generic.leftJustified(size, ' ')), qint64(size));
}

} // namespace

using PutFile = std::function<void(const QString& path)>;
Q_DECLARE_METATYPE(PutFile)

class tst_PresetLoading : public QObject
{
    Q_OBJECT

private slots:
    void loadsTheFileOfTheCamerasFamily();
    void aFamilyFileReplacesTheGenericOneAndIsNotMerged();
    void fallsBackToTheGenericFileWithoutAWord();
    void aCameraWithoutFamilyNameHasTheGenericFile();
    void looksInThePluginsFolderOnly();

    void withoutAFileTheBoxIsEmptyAndTheFolderIsLogged();
    void aFamilyFileThatCannotBeOpenedIsNotReplacedByTheGenericOne();
    void whatIsNoFileOfPresetsSizeCannotBeOpened_data();
    void whatIsNoFileOfPresetsSizeCannotBeOpened();
    void aFileOf16MegabytesIsRead();
    void malformedJsonIsLoggedWithTheParsersText_data();
    void malformedJsonIsLoggedWithTheParsersText();
    void aRootThatIsNoObjectIsNotLogged();

    void clearsTheBoxFirst();
    void onlyBDefinedYieldsOneItemWithItsToolTipOnItem0();
    void itemsCarryThePresetAsAMap();
    void itemsCarryTheToolTipAndNoIcon();
    void theFileIsReadAnewForEveryCall();
    void loadingWritesNothing();
    void presetsEnterTheBoxAtOnce();
};

void tst_PresetLoading::loadsTheFileOfTheCamerasFamily()
{
    const auto camera = cameraOfFamily("Sim Series");
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.put(QStringLiteral("AdvTrigger_SimSeries_Presets.json"), Family);
    form.load(folder.path());
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("Family")});
}

void tst_PresetLoading::aFamilyFileReplacesTheGenericOneAndIsNotMerged()
{
    const auto camera = cameraOfFamily("Sim");
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.put(QStringLiteral("AdvTrigger_Sim_Presets.json"), Family);
    folder.putGeneric(Generic);
    form.load(folder.path());
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("Family")});
}

void tst_PresetLoading::fallsBackToTheGenericFileWithoutAWord()
{
    const auto camera = cameraOfFamily("Other");
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.put(QStringLiteral("AdvTrigger_Sim_Presets.json"), Family);
    folder.putGeneric(Generic);
    const LogCapture log;
    form.load(folder.path());
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("Generic")});
    QCOMPARE(log.lines(), QStringList());
}

void tst_PresetLoading::aCameraWithoutFamilyNameHasTheGenericFile()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(Generic);
    form.load(folder.path());
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("Generic")});
}

void tst_PresetLoading::looksInThePluginsFolderOnly()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.put(QStringLiteral("../AdvTrigger_Presets.json"), Generic);
    form.load(folder.path());
    QCOMPARE(form.box.count(), 0);
}

void tst_PresetLoading::withoutAFileTheBoxIsEmptyAndTheFolderIsLogged()
{
    const auto camera = cameraOfFamily("Sim");
    ChoiceForm form(*camera);
    form.box.addItem(QStringLiteral("old"));
    const LogCapture log;
    form.load(QStringLiteral("/no/such/folder"));
    QCOMPARE(form.box.count(), 0);
    QCOMPARE(log.lines(), QStringList{QStringLiteral("default/warning WARN: Couldn't open file "
                                                     "with presets: '/no/such/folder'")});
}

void tst_PresetLoading::aFamilyFileThatCannotBeOpenedIsNotReplacedByTheGenericOne()
{
    const auto camera = cameraOfFamily("Sim");
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(Generic);
    // A folder exists but cannot be read as a file, whoever runs the test.
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("plugins/AdvTrigger_Sim_Presets.json")));
    const LogCapture log;
    form.load(folder.path());
    QCOMPARE(form.box.count(), 0);
    QCOMPARE(
        log.lines(),
        QStringList{QStringLiteral("default/warning WARN: Couldn't open file with presets: '%1'")
                        .arg(folder.path())});
}

void tst_PresetLoading::whatIsNoFileOfPresetsSizeCannotBeOpened_data()
{
    QTest::addColumn<PutFile>("put");
    QTest::newRow("pipe") << PutFile([](const QString& path) {
        QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
    });
    QTest::newRow("device without content")
        << PutFile([](const QString& path) { QVERIFY(QFile::link("/dev/null", path)); });
    QTest::newRow("device without end")
        << PutFile([](const QString& path) { QVERIFY(QFile::link("/dev/zero", path)); });
    QTest::newRow("folder") << PutFile([](const QString& path) { QVERIFY(QDir().mkdir(path)); });
    QTest::newRow("more than 16 MB")
        << PutFile([](const QString& path) { putOneOfSize(path, SixteenMegabytes + 1); });
}

void tst_PresetLoading::whatIsNoFileOfPresetsSizeCannotBeOpened()
{
    QFETCH(PutFile, put);
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    put(folder.path() + QStringLiteral("/plugins/AdvTrigger_Presets.json"));
    const LogCapture log;
    form.load(folder.path());
    QCOMPARE(form.box.count(), 0);
    QCOMPARE(
        log.lines(),
        QStringList{QStringLiteral("default/warning WARN: Couldn't open file with presets: '%1'")
                        .arg(folder.path())});
}

void tst_PresetLoading::aFileOf16MegabytesIsRead()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    putOneOfSize(folder.path() + QStringLiteral("/plugins/AdvTrigger_Presets.json"),
                 SixteenMegabytes);
    form.load(folder.path());
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("Generic")});
}

void tst_PresetLoading::malformedJsonIsLoggedWithTheParsersText_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QByteArray()
                           << QStringLiteral("default/warning JSON parse error: 'illegal value'");
    QTest::newRow("cut off") << QByteArray(R"({"#presets": ["A"], "A": {})")
                             << QStringLiteral(
                                    "default/warning JSON parse error: 'unterminated object'");
    QTest::newRow("invalid UTF-8")
        << QByteArray("{\"#presets\": [\"\xFF\"]}")
        << QStringLiteral("default/warning JSON parse error: 'invalid UTF8 string'");
}

void tst_PresetLoading::malformedJsonIsLoggedWithTheParsersText()
{
    QFETCH(QByteArray, json);
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(json);
    const LogCapture log;
    form.load(folder.path());
    QFETCH(QString, line);
    QCOMPARE(log.lines(), QStringList{line});
    QCOMPARE(form.box.count(), 0);
}

void tst_PresetLoading::aRootThatIsNoObjectIsNotLogged()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(R"(["#presets"])");
    const LogCapture log;
    form.load(folder.path());
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(form.box.count(), 0);
}

void tst_PresetLoading::clearsTheBoxFirst()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    form.box.addItems({QStringLiteral("x"), QStringLiteral("y")});
    const PresetFolder folder;
    folder.putGeneric(Generic);
    form.load(folder.path());
    form.load(folder.path());
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("Generic")});
}

void tst_PresetLoading::onlyBDefinedYieldsOneItemWithItsToolTipOnItem0()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    const ChoiceForm form(*camera, R"({"#presets": ["A", "B"], "B": {"#tooltip": "of B"}})");
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("B")});
    QCOMPARE(form.box.itemData(0, Qt::ToolTipRole).toString(), QStringLiteral("<b>B</b><br>of B"));
}

void tst_PresetLoading::itemsCarryThePresetAsAMap()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    const ChoiceForm form(*camera, onePreset(R"({"#tooltip": "t", "#execute": "C",
        "S": {"#value": "E", "B": true, "N": 3}, "L": [{"#value": 1.5}], "V": "plain"})"));
    const QVariant data = form.box.itemData(0);
    QCOMPARE(data.userType(), int(QMetaType::QVariantMap));
    const QVariantMap expected{
        {QStringLiteral("#execute"), QStringLiteral("C")},
        {QStringLiteral("L"), QVariantList{QVariantMap{{QStringLiteral("#value"), 1.5}}}},
        {QStringLiteral("S"), QVariantMap{{QStringLiteral("#value"), QStringLiteral("E")},
                                          {QStringLiteral("B"), true},
                                          {QStringLiteral("N"), 3}}},
        {QStringLiteral("V"), QStringLiteral("plain")}};
    QCOMPARE(data.toMap(), expected);
}

void tst_PresetLoading::itemsCarryTheToolTipAndNoIcon()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    const ChoiceForm form(*camera, onePreset(R"({"F": {"#value": "<min>"}})"));
    QCOMPARE(form.box.itemData(0, Qt::ToolTipRole).toString(),
             QStringLiteral("<b>P</b><br><br>Settings:<blockquote><b>F</b>: &lt;min&gt;<br>"
                            "</blockquote>\n"));
    QVERIFY(form.box.itemIcon(0).isNull());
}

void tst_PresetLoading::theFileIsReadAnewForEveryCall()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(Generic);
    form.load(folder.path());
    folder.putGeneric(Family);
    form.load(folder.path());
    QCOMPARE(itemsOf(form.box), QStringList{QStringLiteral("Family")});
}

void tst_PresetLoading::loadingWritesNothing()
{
    const auto camera = Fake::FakeCamera::standard();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(R"({"#presets": ["P"], "P": {"TriggerMode": {"#value": "On"}}})");
    camera->clearLog();
    form.load(folder.path());
    QCOMPARE(form.box.count(), 1);
    QCOMPARE(writesOf(*camera), QStringList());
}

// Each signal of the model is work for the box, its list and whoever else listens.
void tst_PresetLoading::presetsEnterTheBoxAtOnce()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    ChoiceForm form(*camera);
    const PresetFolder folder;
    folder.putGeneric(R"({"#presets": ["A", "B", "C"], "A": {}, "B": {}, "C": {}})");
    const QSignalSpy inserted(form.box.model(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy changed(form.box.model(), &QAbstractItemModel::dataChanged);
    const QSignalSpy selected(&form.box, SIGNAL(currentIndexChanged(int)));
    form.load(folder.path());
    QCOMPARE(form.box.count(), 3);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(selected.count(), 1);
}

QTEST_MAIN(tst_PresetLoading)
#include "tst_PresetLoading.moc"
