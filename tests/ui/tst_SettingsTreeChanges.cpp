// The overview of active settings follows the changes that the camera reports.
#include "tests/ui/TreeForm.h"

#include <QTest>

namespace {

constexpr int MostCalls = 2000;

/// Everything that a tab does with its overview.
void useOverview(Fake::FakeCamera& camera)
{
    TreeForm form(camera);
    form.tree.OnFeatureChanged("TriggerSelector", "FrameStart");
    form.tree.OnFeatureChanged("TriggerMode", "Off");
    form.tree.OnFeatureChanged("TriggerMode", "On");
    form.tree.OnFeatureChanged("TriggerDelay", 4.0);
    form.tree.ResetData();
    form.tree.OnFeatureChanged("TriggerMode", "Off");
    // Never without a row for each kind, whatever failed.
    QVERIFY(form.branches().size() >= 3);
}

} // namespace

class tst_SettingsTreeChanges : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void findsTheRowOfTheCurrentEntryOnly();
    void findsAmongSeveralBranchesTheCurrentOne();
    void valueOfTheCurrentEntryIsShown_data();
    void valueOfTheCurrentEntryIsShown();
    void valueOfAnotherEntryChangesNothing();
    void changeOfASelectorKeepsTheRows();
    void changeOfASelectorIsReadFromTheCamera();
    void selectorOfAnotherKindChangesNothing();
    void statusOffRemovesTheBranch();
    void statusOffOfOneOfTwoKeepsTheOther();
    void statusOffTwiceLeavesOneInactiveRow();
    void statusOffOfAnEntryWithoutBranchChangesNothing();
    void statusOnAddsTheBranch();
    void statusOnTwiceAddsOneBranch();
    void statusOnShowsItsValueInTheExistingBranch();
    void statusSwitchedOffAndOnIsCurrent();
    void statusWithoutSelectedEntryAddsNothing();
    void statusUnderAnUnreadableSelectorAddsNothing();
    void statusOfACounterWithoutSelectorAddsItsBranch();
    void statusOffOfACounterWithoutSelectorRemovesItsBranch();
    void everyKindFollowsItsStatus_data();
    void everyKindFollowsItsStatus();
    void selectionInOneReportAppliesToTheNext();
    void entryWithUnderscoreIsFound();
    void changesNeverWrite();
    void cameraThatFailsMidwayLeavesATree();

private:
    void select(const char* entry)
    {
        (*m_camera)["TriggerSelector"].state().text = entry;
        m_form->tree.OnFeatureChanged("TriggerSelector", entry);
    }
    void switchTo(const char* mode)
    {
        (*m_camera)["TriggerMode"].state().text = mode;
        m_form->tree.OnFeatureChanged("TriggerMode", mode);
    }
    /// A camera that has a single counter and no selector for it.
    void onCameraWithOneCounter()
    {
        m_form.reset();
        m_camera = std::make_unique<Fake::FakeCamera>();
        m_camera->addEnum("CounterEventSource", {"Off", "Line0"}, "Line0");
        m_form = std::make_unique<TreeForm>(*m_camera);
    }
    QStringList triggerLines() const { return m_form->lines().mid(2); }

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<TreeForm> m_form;
};

void tst_SettingsTreeChanges::init()
{
    m_camera = triggerCamera();
    m_form = std::make_unique<TreeForm>(*m_camera);
    m_camera->clearLog();
}

void tst_SettingsTreeChanges::cleanup()
{
    m_form.reset();
    m_camera.reset();
}

void tst_SettingsTreeChanges::findsTheRowOfTheCurrentEntryOnly()
{
    QCOMPARE(m_form->tree.findItem("TriggerDelay"), nullptr);
    select("FrameStart");
    const QStandardItem* item = m_form->tree.findItem("TriggerDelay");
    QVERIFY(item);
    QCOMPARE(item->text(), QString("TriggerDelay"));
    QCOMPARE(item->column(), 0);
    QCOMPARE(item->parent(), m_form->model().item(2, 0));
    QCOMPARE(m_form->tree.findItem("TriggerDela"), nullptr);
    QCOMPARE(m_form->tree.findItem("triggerdelay"), nullptr);
    QCOMPARE(m_form->tree.findItem("Trigger"), nullptr);
}

void tst_SettingsTreeChanges::findsAmongSeveralBranchesTheCurrentOne()
{
    (*m_camera)["TriggerMode"].stateFor("LineStart").text = "On";
    m_form->tree.ResetData();
    QCOMPARE(m_form->tree.findItem("TriggerDelay")->parent(), m_form->model().item(3, 0));
    select("FrameStart");
    QCOMPARE(m_form->tree.findItem("TriggerDelay")->parent(), m_form->model().item(2, 0));
}

void tst_SettingsTreeChanges::valueOfTheCurrentEntryIsShown_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("line");
    QTest::newRow("text") << "TriggerSource" << QVariant("Line0") << "  TriggerSource: Line0";
    QTest::newRow("number") << "TriggerDelay" << QVariant(12.5) << "  TriggerDelay: 12.5";
}

void tst_SettingsTreeChanges::valueOfTheCurrentEntryIsShown()
{
    QFETCH(QString, feature);
    QFETCH(QVariant, value);
    QFETCH(QString, line);
    select("FrameStart");
    m_form->tree.OnFeatureChanged(feature, value);
    QVERIFY(triggerLines().contains(line));
    QCOMPARE(triggerLines().size(), 4);
    const QStandardItem* name = m_form->tree.findItem(feature);
    QCOMPARE(name->parent()->child(name->row(), 1)->data(Qt::DisplayRole), value);
}

void tst_SettingsTreeChanges::valueOfAnotherEntryChangesNothing()
{
    const QStringList before = m_form->lines();
    // LineStart is selected; FrameStart is the one shown.
    m_form->tree.OnFeatureChanged("TriggerDelay", 99.0);
    QCOMPARE(m_form->lines(), before);
}

void tst_SettingsTreeChanges::changeOfASelectorKeepsTheRows()
{
    const QStringList before = m_form->lines();
    select("FrameStart");
    QCOMPARE(m_form->lines(), before);
}

void tst_SettingsTreeChanges::changeOfASelectorIsReadFromTheCamera()
{
    (*m_camera)["TriggerSelector"].state().text = "FrameStart";
    // The report may be older than what the camera has now.
    m_form->tree.OnFeatureChanged("TriggerSelector", "LineStart");
    QVERIFY(m_form->tree.findItem("TriggerDelay"));
    QCOMPARE(m_camera->callCount("GetStringValue", "TriggerSelector"), 2);
}

void tst_SettingsTreeChanges::selectorOfAnotherKindChangesNothing()
{
    const QStringList before = m_form->lines();
    m_form->tree.OnFeatureChanged("LineSelector", "FrameStart");
    m_form->tree.OnFeatureChanged("LineMode", "On");
    QCOMPARE(m_form->lines(), before);
    QVERIFY(m_camera->calls().empty());
}

void tst_SettingsTreeChanges::statusOffRemovesTheBranch()
{
    select("FrameStart");
    switchTo("Off");
    QCOMPARE(m_form->lines(),
             (QStringList{"Counter: inactive", "Timer: inactive", "Trigger: inactive"}));
    QCOMPARE(m_form->model().item(2, 0)->data(Qt::UserRole).toString(), QString("inactive"));
}

void tst_SettingsTreeChanges::statusOffOfOneOfTwoKeepsTheOther()
{
    (*m_camera)["TriggerMode"].stateFor("LineStart").text = "On";
    m_form->tree.ResetData();
    switchTo("Off");
    QCOMPARE(triggerLines(), (QStringList{"Trigger: FrameStart", "  TriggerMode: On",
                                          "  TriggerSource: Software", "  TriggerDelay: 0.5"}));
}

void tst_SettingsTreeChanges::statusOffTwiceLeavesOneInactiveRow()
{
    select("FrameStart");
    switchTo("Off");
    switchTo("Off");
    QCOMPARE(triggerLines(), QStringList{"Trigger: inactive"});
}

void tst_SettingsTreeChanges::statusOffOfAnEntryWithoutBranchChangesNothing()
{
    const QStringList before = m_form->lines();
    switchTo("Off");
    QCOMPARE(m_form->lines(), before);
}

void tst_SettingsTreeChanges::statusOnAddsTheBranch()
{
    select("FrameStart");
    switchTo("Off");
    select("LineStart");
    (*m_camera)["TriggerDelay"].stateFor("LineStart").real = 3;
    switchTo("On");
    QCOMPARE(triggerLines(), (QStringList{"Trigger: LineStart", "  TriggerMode: On",
                                          "  TriggerSource: Software", "  TriggerDelay: 3"}));
    QCOMPARE(m_form->model().item(2, 0)->font().weight(), 75);
}

void tst_SettingsTreeChanges::statusOnTwiceAddsOneBranch()
{
    switchTo("On");
    switchTo("On");
    QCOMPARE(m_form->branches(), (QStringList{"Counter: inactive", "Timer: inactive",
                                              "Trigger: FrameStart", "Trigger: LineStart"}));
}

void tst_SettingsTreeChanges::statusOnShowsItsValueInTheExistingBranch()
{
    select("FrameStart");
    // A status is a setting of its branch as well: both are followed.
    switchTo("Armed");
    QCOMPARE(triggerLines().mid(0, 2),
             (QStringList{"Trigger: FrameStart", "  TriggerMode: Armed"}));
}

void tst_SettingsTreeChanges::statusSwitchedOffAndOnIsCurrent()
{
    select("FrameStart");
    switchTo("Off");
    (*m_camera)["TriggerSource"].state().text = "Line0";
    switchTo("On");
    QCOMPARE(triggerLines(), (QStringList{"Trigger: FrameStart", "  TriggerMode: On",
                                          "  TriggerSource: Line0", "  TriggerDelay: 0.5"}));
}

void tst_SettingsTreeChanges::statusWithoutSelectedEntryAddsNothing()
{
    select("FrameStart");
    switchTo("Off");
    m_camera->failEverything();
    m_form->tree.OnFeatureChanged("TriggerSelector", QString());
    m_form->tree.OnFeatureChanged("TriggerMode", QString());
    QCOMPARE(triggerLines(), QStringList{"Trigger: inactive"});
}

void tst_SettingsTreeChanges::statusUnderAnUnreadableSelectorAddsNothing()
{
    select("FrameStart");
    switchTo("Off");
    (*m_camera)["TriggerSelector"].state().readable = false;
    m_form->tree.OnFeatureChanged("TriggerSelector", QString());
    m_form->tree.OnFeatureChanged("TriggerMode", "On");
    QCOMPARE(triggerLines(), QStringList{"Trigger: inactive"});
}

void tst_SettingsTreeChanges::statusOfACounterWithoutSelectorAddsItsBranch()
{
    onCameraWithOneCounter();
    m_form->tree.OnFeatureChanged("CounterEventSource", "Line0");
    // Nothing is selected where there is nothing to select by.
    QCOMPARE(m_form->lines(), (QStringList{"Timer: inactive", "Trigger: inactive", "Counter: "}));
    QCOMPARE(m_form->model().item(2, 0)->font().weight(), 75);
    m_form->tree.OnFeatureChanged("CounterEventSource", "Line0");
    QCOMPARE(m_form->branches().size(), 3);
}

void tst_SettingsTreeChanges::statusOffOfACounterWithoutSelectorRemovesItsBranch()
{
    onCameraWithOneCounter();
    m_form->tree.OnFeatureChanged("CounterEventSource", "Line0");
    m_form->tree.OnFeatureChanged("CounterEventSource", "Off");
    QCOMPARE(m_form->lines(),
             (QStringList{"Timer: inactive", "Trigger: inactive", "Counter: inactive"}));
}

void tst_SettingsTreeChanges::everyKindFollowsItsStatus_data()
{
    QTest::addColumn<QString>("status");
    QTest::addColumn<QStringList>("branches");
    QTest::newRow("counter") << "CounterEventSource"
                             << QStringList{"Timer: inactive", "Trigger: inactive",
                                            "Counter: Counter0"};
    QTest::newRow("timer") << "TimerTriggerSource"
                           << QStringList{"Counter: inactive", "Trigger: inactive",
                                          "Timer: Timer0"};
    QTest::newRow("trigger") << "TriggerMode"
                             << QStringList{"Counter: inactive", "Timer: inactive",
                                            "Trigger: FrameStart"};
}

void tst_SettingsTreeChanges::everyKindFollowsItsStatus()
{
    QFETCH(QString, status);
    QFETCH(QStringList, branches);
    m_form.reset();
    m_camera = Fake::FakeCamera::standard();
    m_form = std::make_unique<TreeForm>(*m_camera);
    m_form->tree.OnFeatureChanged(status, "Line0");
    QCOMPARE(m_form->branches(), branches);
    m_form->tree.OnFeatureChanged(status, "Off");
    QCOMPARE(m_form->branches().last(), branches.last().section(':', 0, 0) + ": inactive");
    QCOMPARE(m_form->branches().size(), 3);
}

void tst_SettingsTreeChanges::selectionInOneReportAppliesToTheNext()
{
    // The order in which a refresh reports: selectors first.
    (*m_camera)["TriggerSelector"].state().text = "FrameStart";
    (*m_camera)["TriggerDelay"].state().real = 42;
    m_form->tree.OnFeatureChanged("TriggerSelector", "FrameStart");
    m_form->tree.OnFeatureChanged("TriggerDelay", 42.0);
    QCOMPARE(triggerLines().last(), QString("  TriggerDelay: 42"));
}

void tst_SettingsTreeChanges::entryWithUnderscoreIsFound()
{
    m_form.reset();
    m_camera = std::make_unique<Fake::FakeCamera>();
    m_camera->addEnum("TriggerSelector", {"Frame_Start"}, "Frame_Start");
    m_camera->addEnum("TriggerMode", {"Off", "On"}, "On");
    m_camera->select("TriggerSelector", {"TriggerMode"});
    m_form = std::make_unique<TreeForm>(*m_camera);
    QCOMPARE(m_form->tree.findItem("TriggerMode")->data(Qt::UserRole).toString(),
             QString("TriggerSelector_Frame_Start"));
}

void tst_SettingsTreeChanges::changesNeverWrite()
{
    select("FrameStart");
    switchTo("Off");
    switchTo("On");
    m_form->tree.OnFeatureChanged("TriggerDelay", 1.0);
    QVERIFY(m_camera->writes().empty());
}

void tst_SettingsTreeChanges::cameraThatFailsMidwayLeavesATree()
{
    int failing = 0;
    for (bool reached = true; reached; ++failing) {
        QVERIFY(failing < MostCalls);
        auto fresh = triggerCamera();
        fresh->failNthCall(failing + 1);
        useOverview(*fresh);
        reached = fresh->calls().size() > std::size_t(failing);
    }
    QVERIFY(failing > 100);
}

QTEST_MAIN(tst_SettingsTreeChanges)
#include "tst_SettingsTreeChanges.moc"
