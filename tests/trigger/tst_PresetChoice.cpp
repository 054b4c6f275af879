// Choosing a preset, without an engine and its overview.
#include "tests/trigger/ChoiceForm.h"
#include "tests/trigger/MessageBoxes.h"

#include <QTest>

namespace {

const QByteArray Presets = R"({
    "#presets": ["Turn Off All", "Other", "Failing"],
    "Turn Off All": {"DeviceUserID": {"#value": "off"}},
    "Other": {"DeviceUserID": {"#value": "other"}},
    "Failing": {"LineSelector": {"#value": "Line9"}}})";

QString trace(const char* id)
{
    return QStringLiteral("SetStringValue DeviceUserID=") + QLatin1String(id);
}

} // namespace

class tst_PresetChoice : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void loadsThePresetsIntoTheBox();
    void turnsOffAllFirstAndResetsTheOverviewEachTime();
    void whatTheCameraDidNotTakeIsShownOnTheForm();
    void aSelectorThatTheOverviewLeftAstrayIsShownAndEndsTheChoice();
    void formsWidgetsOutliveTheFormWhileABoxIsOpen();

private:
    std::unique_ptr<Fake::FakeCamera> m_camera;
};

void tst_PresetChoice::init()
{
    m_camera = std::make_unique<Fake::FakeCamera>();
    m_camera->addEnum("LineSelector", {"Line0", "Line1"}, "Line0");
    m_camera->addString("DeviceUserID", "left");
}

void tst_PresetChoice::loadsThePresetsIntoTheBox()
{
    const ChoiceForm form(*m_camera, Presets);
    QCOMPARE(form.box.count(), 3);
    QCOMPARE(form.box.itemText(1), QString("Other"));
    QCOMPARE(form.overviewResets, 0);
}

void tst_PresetChoice::turnsOffAllFirstAndResetsTheOverviewEachTime()
{
    ChoiceForm form(*m_camera, Presets);
    form.select("Other");
    QCOMPARE(writesOf(*m_camera), QStringList({trace("off"), trace("other")}));
    QCOMPARE(form.overviewResets, 2);
    form.select("Turn Off All");
    QCOMPARE(form.overviewResets, 3);
}

void tst_PresetChoice::whatTheCameraDidNotTakeIsShownOnTheForm()
{
    ChoiceForm form(*m_camera, Presets);
    const MessageBoxes boxes;
    form.select("Failing");
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE(boxes.shown.first().parent, &form);
    QCOMPARE(boxes.shown.first().title, QString("Select preset: Failing"));
    QVERIFY(boxes.shown.first().text.endsWith(
        "  Failed to set LineSelector = Line9, Current value: 'Line0'\n"));
    QCOMPARE(form.overviewResets, 2);
}

void tst_PresetChoice::aSelectorThatTheOverviewLeftAstrayIsShownAndEndsTheChoice()
{
    ChoiceForm form(*m_camera, Presets);
    form.astray.insert("TriggerSelector", "FrameStart");
    const MessageBoxes boxes;
    form.select("Other");
    QCOMPARE(boxes.shown.size(), 1);
    QVERIFY(boxes.shown.first().text.endsWith(
        "  Failed to set TriggerSelector = FrameStart, Current value: ''\n"));
    // Nothing follows "Turn Off All".
    QCOMPARE(writesOf(*m_camera), QStringList(trace("off")));
}

void tst_PresetChoice::formsWidgetsOutliveTheFormWhileABoxIsOpen()
{
    auto form = std::make_unique<ChoiceForm>(*m_camera, Presets);
    const QPointer<QComboBox> box(&form->box);
    const MessageBoxes boxes([&](QMessageBox&) { form.reset(); });
    form->select("Failing");
    QVERIFY(!form);
    QVERIFY(box);
    QTRY_VERIFY(!box);
}

QTEST_MAIN(tst_PresetChoice)
#include "tst_PresetChoice.moc"
