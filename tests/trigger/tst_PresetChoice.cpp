// Choosing a preset, without an engine and its overview.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/trigger/CameraWrites.h"
#include "tests/trigger/MessageBoxes.h"
#include "tests/trigger/PresetFolder.h"
#include "trigger/PresetChoice.h"

#include <QComboBox>
#include <QTest>

namespace {

const QByteArray Presets = R"({
    "#presets": ["Turn Off All", "Other", "Failing"],
    "Turn Off All": {"DeviceUserID": {"#value": "off"}},
    "Other": {"DeviceUserID": {"#value": "other"}},
    "Failing": {"LineSelector": {"#value": "Line9"}}})";

/// What a form gives to the choice: itself, and an overview to reset.
class ChoiceForm : public QWidget
{
public:
    explicit ChoiceForm(const Fake::FakeCamera& camera)
        : box(new QComboBox(this)), features(FeatureTest::wrap(camera)),
          choice(features, *this, [this] {
              ++resets;
              return astray;
          })
    {
        const PresetFolder folder;
        folder.putGeneric(Presets);
        choice.load(*box, folder.path());
    }
    ~ChoiceForm() override { choice.shelterWidgets(); }
    ChoiceForm(const ChoiceForm&) = delete;
    ChoiceForm& operator=(const ChoiceForm&) = delete;

    void choose(const QString& preset) { choice.apply(box, box->findText(preset)); }

    QComboBox* box;
    FeatureManager features;
    PresetChoice choice;
    int resets = 0;                ///< How often the overview was built anew.
    QMap<QString, QString> astray; ///< The selectors that this leaves astray.
};

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
    std::unique_ptr<Fake::FakeCamera> camera;
};

void tst_PresetChoice::init()
{
    camera = std::make_unique<Fake::FakeCamera>();
    camera->addEnum("LineSelector", {"Line0", "Line1"}, "Line0");
    camera->addString("DeviceUserID", "left");
}

void tst_PresetChoice::loadsThePresetsIntoTheBox()
{
    const ChoiceForm form(*camera);
    QCOMPARE(form.box->count(), 3);
    QCOMPARE(form.box->itemText(1), QString("Other"));
    QCOMPARE(form.resets, 0);
}

void tst_PresetChoice::turnsOffAllFirstAndResetsTheOverviewEachTime()
{
    ChoiceForm form(*camera);
    form.choose("Other");
    QCOMPARE(writesOf(*camera), QStringList({trace("off"), trace("other")}));
    QCOMPARE(form.resets, 2);
    form.choose("Turn Off All");
    QCOMPARE(form.resets, 3);
}

void tst_PresetChoice::whatTheCameraDidNotTakeIsShownOnTheForm()
{
    ChoiceForm form(*camera);
    form.box->setCurrentText("Failing");
    const MessageBoxes boxes;
    form.choose("Failing");
    QCOMPARE(boxes.shown.size(), 1);
    QCOMPARE(boxes.shown.first().parent, &form);
    QCOMPARE(boxes.shown.first().title, QString("Select preset: Failing"));
    QVERIFY(boxes.shown.first().text.endsWith(
        "  Failed to set LineSelector = Line9, Current value: 'Line0'\n"));
    QCOMPARE(form.resets, 2);
}

void tst_PresetChoice::aSelectorThatTheOverviewLeftAstrayIsShownAndEndsTheChoice()
{
    ChoiceForm form(*camera);
    form.astray.insert("TriggerSelector", "FrameStart");
    const MessageBoxes boxes;
    form.choose("Other");
    QCOMPARE(boxes.shown.size(), 1);
    QVERIFY(boxes.shown.first().text.endsWith(
        "  Failed to set TriggerSelector = FrameStart, Current value: ''\n"));
    // Nothing follows "Turn Off All".
    QCOMPARE(writesOf(*camera), QStringList(trace("off")));
}

void tst_PresetChoice::formsWidgetsOutliveTheFormWhileABoxIsOpen()
{
    auto form = std::make_unique<ChoiceForm>(*camera);
    const QPointer<QComboBox> box(form->box);
    const MessageBoxes boxes([&](QMessageBox&) { form.reset(); });
    form->choose("Failing");
    QVERIFY(!form);
    QVERIFY(box);
    QTRY_VERIFY(!box);
}

QTEST_MAIN(tst_PresetChoice)
#include "tst_PresetChoice.moc"
