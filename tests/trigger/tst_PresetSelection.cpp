// Around the writes of a preset: the clean state before it, the error box and the overview after
// it.
#include "tests/trigger/ChoiceForm.h"
#include "tests/trigger/MessageBoxes.h"
#include "tests/trigger/Shouting.h"

#include <QtTest>

namespace {

/// Each preset leaves a trace of its own.
const QByteArray Traces = R"({
    "#presets": ["Custom", "Turn Off All", "Reset All", "Other", "turn off all"],
    "Custom": {"DeviceUserID": {"#value": "custom"}},
    "Turn Off All": {"DeviceUserID": {"#value": "off"}},
    "Reset All": {"DeviceUserID": {"#value": "reset"}},
    "Other": {"DeviceUserID": {"#value": "other"}},
    "turn off all": {"DeviceUserID": {"#value": "lower case"}}})";

/// Both presets fail to set a line and leave a trace.
const QByteArray Failing = R"({
    "#presets": ["Turn Off All", "Other"],
    "Turn Off All": {"DeviceUserID": {"#value": "off"}, "LineSelector": {"#value": "Line8"}},
    "Other": {"DeviceUserID": {"#value": "other"}, "LineSelector": {"#value": "Line9"},
              "#execute": "NoSuchCommand"}})";

const QString ErrorHead = QStringLiteral("Error(s) on setting the preset:\n\n");

QString trace(const char* id)
{
    return QStringLiteral("SetStringValue DeviceUserID=") + QLatin1String(id);
}

QString notSet(const char* line)
{
    return QStringLiteral("  Failed to set LineSelector = %1, Current value: 'Line1'\n")
        .arg(QLatin1String(line));
}

} // namespace

class tst_PresetSelection : public QObject
{
    Q_OBJECT

private slots:
    void turnsOffAllBeforeOrdinaryPresetsOnly_data();
    void turnsOffAllBeforeOrdinaryPresetsOnly();
    void withoutTurnOffAllOrdinaryPresetsStandAlone();
    void aPresetOfTheSameNameInOtherLettersIsNoTurnOff();
    void choosingNoPresetTurnsOffAllWhateverElseIsOffered_data();
    void choosingNoPresetTurnsOffAllWhateverElseIsOffered();

    void aPresetThatSucceedsShowsNoBoxAndResetsTheOverview();
    void everyApplicationResetsTheOverview();
    void theOverviewIsResetAfterTheErrorBox();

    void theErrorBoxIsAModalWarningOfTheEngine();
    void collectsAllLinesInOneBox();
    void aFailedCommandIsReported();
    void errorsAreShownAsPlainText();
    void theErrorBoxIsTranslated();
    void turnOffAllHasItsOwnBoxAndEndsBeforeTheOuterPreset();
    void isReadyForTheNextPresetAfterAnError();

    void aHostMayDestroyTheFormWhileTheBoxIsOpen();
    void aHostMayDestroyTheFormWhileTheBoxOfTurnOffAllIsOpen();
    void aHostMayDestroyTheBoxAlone();
};

void tst_PresetSelection::turnsOffAllBeforeOrdinaryPresetsOnly_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QStringList>("writes");
    QTest::newRow("ordinary") << QStringLiteral("Other")
                              << QStringList{trace("off"), trace("other")};
    QTest::newRow("Turn Off All") << QStringLiteral("Turn Off All") << QStringList{trace("off")};
    QTest::newRow("Reset All") << QStringLiteral("Reset All") << QStringList{trace("reset")};
    QTest::newRow("Custom") << QStringLiteral("Custom") << QStringList{trace("custom")};
    QTest::newRow("other letters")
        << QStringLiteral("turn off all") << QStringList{trace("off"), trace("lower case")};
}

void tst_PresetSelection::turnsOffAllBeforeOrdinaryPresetsOnly()
{
    QFETCH(QString, preset);
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, Traces);
    form.box.setCurrentIndex(form.box.findText(preset, Qt::MatchExactly | Qt::MatchCaseSensitive));
    QTEST(writesOf(*camera), "writes");
}

void tst_PresetSelection::withoutTurnOffAllOrdinaryPresetsStandAlone()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"DeviceUserID": {"#value": "p"}})"));
    form.select(QStringLiteral("P"));
    QCOMPARE(writesOf(*camera), QStringList{trace("p")});
}

void tst_PresetSelection::aPresetOfTheSameNameInOtherLettersIsNoTurnOff()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, R"({"#presets": ["TURN OFF ALL", "P"],
        "TURN OFF ALL": {"DeviceUserID": {"#value": "loud"}},
        "P": {"DeviceUserID": {"#value": "p"}}})");
    form.box.setCurrentIndex(1);
    QCOMPARE(writesOf(*camera), QStringList{trace("p")});
}

void tst_PresetSelection::choosingNoPresetTurnsOffAllWhateverElseIsOffered_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("all fixed names") << Traces;
    QTest::newRow("only this one") << QByteArray(R"({"#presets": ["Turn Off All"],
        "Turn Off All": {"DeviceUserID": {"#value": "off"}}})");
}

void tst_PresetSelection::choosingNoPresetTurnsOffAllWhateverElseIsOffered()
{
    QFETCH(QByteArray, json);
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, json);
    {
        const QSignalBlocker blocker(form.box);
        form.box.setCurrentIndex(0);
    }
    form.box.setCurrentIndex(-1);
    QCOMPARE(writesOf(*camera), QStringList{trace("off")});
    QCOMPARE(form.overviewResets, 2);
}

void tst_PresetSelection::aPresetThatSucceedsShowsNoBoxAndResetsTheOverview()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"DeviceUserID": {"#value": "p"}})"));
    const MessageBoxes boxes;
    form.select(QStringLiteral("P"));
    QCOMPARE(boxes.texts(), QStringList());
    QCOMPARE(form.overviewResets, 1);
}

void tst_PresetSelection::everyApplicationResetsTheOverview()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, Traces);
    form.select(QStringLiteral("Other"));
    // "Turn Off All" was an application of its own.
    QCOMPARE(form.overviewResets, 2);
    form.select(QStringLiteral("Custom"));
    QCOMPARE(form.overviewResets, 3);
}

void tst_PresetSelection::theOverviewIsResetAfterTheErrorBox()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"LineSelector": {"#value": "Line9"}})"));
    int resetsBefore = -1;
    const MessageBoxes boxes([&](QMessageBox& box) {
        resetsBefore = form.overviewResets;
        box.accept();
    });
    form.select(QStringLiteral("P"));
    QCOMPARE(resetsBefore, 0);
    QCOMPARE(form.overviewResets, 1);
}

void tst_PresetSelection::theErrorBoxIsAModalWarningOfTheEngine()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"LineSelector": {"#value": "Line9"}})"));
    const MessageBoxes boxes;
    form.select(QStringLiteral("P"));
    QCOMPARE(boxes.shown.size(), 1);
    const MessageBoxes::Shown& box = boxes.shown.first();
    QCOMPARE(box.title, QStringLiteral("Select preset: P"));
    QCOMPARE(box.text, ErrorHead + notSet("Line9"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, static_cast<const QWidget*>(&form));
    QVERIFY(box.modal);
    QVERIFY(form.findChildren<QMessageBox*>().isEmpty());
}

void tst_PresetSelection::collectsAllLinesInOneBox()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"ExposureMode": {"#value": "Never"},
        "LineSelector": [{"#value": "Line8"}, {"#value": "Line9"}]})"));
    const MessageBoxes boxes;
    form.select(QStringLiteral("P"));
    QCOMPARE(boxes.texts(),
             QStringList{ErrorHead +
                         QStringLiteral("  Failed to set ExposureMode = Never, Current value: "
                                        "'Timed'\n") +
                         notSet("Line8") + notSet("Line9")});
}

void tst_PresetSelection::aFailedCommandIsReported()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"#execute": "NoSuchCommand"})"));
    const MessageBoxes boxes;
    form.select(QStringLiteral("P"));
    QCOMPARE(boxes.texts(),
             QStringList{ErrorHead + QStringLiteral("  Executing 'NoSuchCommand' failed.")});
}

void tst_PresetSelection::errorsAreShownAsPlainText()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"LineSelector": {"#value": "<b>x</b>"}})"));
    Qt::TextFormat format = Qt::RichText;
    const MessageBoxes boxes([&](QMessageBox& box) {
        format = box.textFormat();
        box.accept();
    });
    form.select(QStringLiteral("P"));
    QCOMPARE(format, Qt::PlainText);
}

void tst_PresetSelection::theErrorBoxIsTranslated()
{
    const auto camera = lineCamera();
    const ChoiceForm form(
        *camera, onePreset(R"({"LineSelector": {"#value": "Line9"}, "#execute": "NoCommand"})"));
    Shouting translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const MessageBoxes boxes;
    form.select(QStringLiteral("P"));
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE(boxes.shown.first().title, QStringLiteral("SELECT PRESET: P"));
    QCOMPARE(boxes.shown.first().text,
             QStringLiteral("ERROR(S) ON SETTING THE PRESET:\n\n  FAILED TO SET LineSelector = "
                            "Line9, CURRENT VALUE: 'Line1'\n  EXECUTING 'NoCommand' FAILED."));
}

void tst_PresetSelection::turnOffAllHasItsOwnBoxAndEndsBeforeTheOuterPreset()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, Failing);
    QStringList writesAtFirstBox;
    const MessageBoxes boxes([&](QMessageBox& box) {
        if (writesAtFirstBox.isEmpty())
            writesAtFirstBox = writesOf(*camera);
        box.accept();
    });
    form.select(QStringLiteral("Other"));
    QCOMPARE(writesAtFirstBox,
             (QStringList{trace("off"), QStringLiteral("SetStringValue LineSelector=Line8")}));
    QCOMPARE(boxes.texts(),
             (QStringList{ErrorHead + notSet("Line8"),
                          ErrorHead + notSet("Line9") +
                              QStringLiteral("  Executing 'NoSuchCommand' failed.")}));
    // The box speaks of the preset that the user picked.
    QCOMPARE(boxes.shown.first().title, QStringLiteral("Select preset: Other"));
    QVERIFY(writesOf(*camera).contains(trace("other")));
}

void tst_PresetSelection::isReadyForTheNextPresetAfterAnError()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, Failing);
    const MessageBoxes boxes;
    form.select(QStringLiteral("Other"));
    form.select(QStringLiteral("Turn Off All"));
    QCOMPARE(boxes.shown.size(), 3);
    QCOMPARE(boxes.shown.last().title, QStringLiteral("Select preset: Turn Off All"));
}

void tst_PresetSelection::aHostMayDestroyTheFormWhileTheBoxIsOpen()
{
    const auto camera = lineCamera();
    auto form = std::make_unique<ChoiceForm>(*camera,
                                             onePreset(R"({"LineSelector": {"#value": "Line9"}})"));
    const QPointer<QComboBox> box(&form->box);
    int calls = -1;
    const MessageBoxes boxes([&](QMessageBox&) {
        form.reset();
        calls = static_cast<int>(camera->calls().size());
    });
    box->setCurrentIndex(0);
    QVERIFY(!form);
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE(static_cast<int>(camera->calls().size()), calls);
    // Its signal has only just returned; after that nobody needs it.
    QVERIFY(box);
    QTRY_VERIFY(!box);
}

void tst_PresetSelection::aHostMayDestroyTheFormWhileTheBoxOfTurnOffAllIsOpen()
{
    const auto camera = lineCamera();
    auto form = std::make_unique<ChoiceForm>(*camera, Failing);
    const QPointer<QComboBox> box(&form->box);
    int calls = -1;
    const MessageBoxes boxes([&](QMessageBox&) {
        form.reset();
        calls = static_cast<int>(camera->calls().size());
    });
    box->setCurrentIndex(1);
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE(static_cast<int>(camera->calls().size()), calls);
    QTRY_VERIFY(!box);
}

void tst_PresetSelection::aHostMayDestroyTheBoxAlone()
{
    const auto camera = lineCamera();
    const ChoiceForm form(*camera, onePreset(R"({"LineSelector": {"#value": "Line9"}})"));
    const MessageBoxes boxes([&](QMessageBox& box) { delete &box; });
    form.select(QStringLiteral("P"));
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE(form.overviewResets, 1);
}

QTEST_MAIN(tst_PresetSelection)
#include "tst_PresetSelection.moc"
