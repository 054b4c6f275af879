// Files of more presets than anybody lists: what both forms measure of them.
#include "tests/ui/DialogUnderTest.h"
#include "tests/ui/TabUnderTest.h"

#include <QComboBox>
#include <QSet>
#include <QStandardItemModel>

namespace {

constexpr int Many = 2000;
/// Which of them are looked at to find the room that a box needs.
constexpr int Measured = 500;

/// A file of presets with short names, but for one.
QByteArray presetsWith(const QString& longName, int position, int count = Many)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names << (i == position ? longName : QStringLiteral("p%1").arg(i));
    QStringList presets;
    for (const QString& name : qAsConst(names))
        presets << QStringLiteral("\"%1\": {}").arg(name);
    return QStringLiteral("{\"#presets\": [\"%1\"], %2}")
        .arg(names.join(QStringLiteral("\", \"")), presets.join(QStringLiteral(", ")))
        .toUtf8();
}

const QString LongName = QString(80, QLatin1Char('w'));

/// Which rows were asked for their text.
class WatchedModel : public QStandardItemModel
{
public:
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role == Qt::DisplayRole)
            shown.insert(index.row());
        return QStandardItemModel::data(index, role);
    }

    mutable QSet<int> shown;
};

/// The room for the presets' names that the form gives the box.
int roomIn(const QString& form, const QByteArray& presets)
{
    const PresetsFile file(presets);
    if (form == QLatin1String("dialog")) {
        DialogOnCamera shown;
        shown.showAndSettle();
        return shown.find<QComboBox>("cmbSelectPreset")->maximumWidth();
    }
    TabOnCamera shown(cameraOfPresetFamily());
    shown.showAndSettle();
    return shown.find<QComboBox>("cmbSelectPreset")->sizeHint().width();
}

int widthOf(const QString& text)
{
    return QApplication::fontMetrics().horizontalAdvance(text);
}

} // namespace

class tst_ManyPresets : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setStyle("Fusion"); }
    void aNameAmongTheFirstHundredsIsShownWhole_data();
    void aNameAmongTheFirstHundredsIsShownWhole();
    void whatComesBehindThemIsNotMeasured_data();
    void whatComesBehindThemIsNotMeasured();
    void theTabDoesNotReadEveryNameToBeShown();
    void someHundredNamesAreAllMeasured_data();
    void someHundredNamesAreAllMeasured();

private:
    static void addForms();
};

void tst_ManyPresets::addForms()
{
    QTest::addColumn<QString>("form");
    QTest::newRow("tab") << "tab";
    QTest::newRow("dialog") << "dialog";
}

void tst_ManyPresets::aNameAmongTheFirstHundredsIsShownWhole_data()
{
    addForms();
}

void tst_ManyPresets::aNameAmongTheFirstHundredsIsShownWhole()
{
    QFETCH(QString, form);
    const int room = roomIn(form, presetsWith(LongName, Measured - 1));
    const int needed = widthOf(LongName);
    QVERIFY(room >= needed);
    // The frame, the arrow and no more.
    QVERIFY2(room <= needed + 60, QByteArray::number(room - needed));
}

void tst_ManyPresets::whatComesBehindThemIsNotMeasured_data()
{
    addForms();
}

void tst_ManyPresets::whatComesBehindThemIsNotMeasured()
{
    QFETCH(QString, form);
    QCOMPARE(roomIn(form, presetsWith(LongName, Measured)),
             roomIn(form, presetsWith(QStringLiteral("p"), Measured)));
}

void tst_ManyPresets::theTabDoesNotReadEveryNameToBeShown()
{
    const PresetsFile file(presetsWith(LongName, 0));
    TabOnCamera shown(cameraOfPresetFamily());
    WatchedModel model;
    shown.find<QComboBox>("cmbSelectPreset")->setModel(&model);
    shown.show();
    QCOMPARE(model.rowCount(), Many);
    QCOMPARE(model.shown.size(), Measured);
}

void tst_ManyPresets::someHundredNamesAreAllMeasured_data()
{
    addForms();
}

void tst_ManyPresets::someHundredNamesAreAllMeasured()
{
    QFETCH(QString, form);
    QVERIFY(roomIn(form, presetsWith(LongName, Measured - 1, Measured)) >= widthOf(LongName));
}

QTEST_MAIN(tst_ManyPresets)
#include "tst_ManyPresets.moc"
