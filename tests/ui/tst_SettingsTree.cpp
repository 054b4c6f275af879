// Building the overview of active settings, and what that does to the camera.
#include "tests/ui/TreeForm.h"

#include <QFont>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {

QStringList writesOf(const Fake::FakeCamera& camera)
{
    QStringList list;
    for (const std::string& write : camera.writes())
        list.append(QString::fromStdString(write).section(' ', 1));
    return list;
}

/// What was asked and written, without questions after names, types and entries' availability, and
/// without repetitions in a row (a text takes two calls).
QStringList callsOf(const Fake::FakeCamera& camera)
{
    static const QStringList operations = {"GetEnumNames",  "GetStringValue",      "SetStringValue",
                                           "GetFloatValue", "GetSelectedFeatures", "IsWritable"};
    QStringList list;
    for (const std::string& call : camera.calls()) {
        const QString text = QString::fromStdString(call);
        const bool wanted = operations.contains(text.section(' ', 0, 0));
        if (wanted && (list.isEmpty() || list.last() != text))
            list.append(text);
    }
    return list;
}

} // namespace

class tst_SettingsTree : public QObject
{
    Q_OBJECT

private slots:
    void offersOneSlot();
    void everythingOffShowsInactiveRows();
    void branchesAppearCounterTimerTrigger();
    void activeTriggerIsShownWithItsSettings();
    void severalActiveEntriesAreShownInTheCamerasOrder();
    void branchTitleIsBold();
    void settingsCarryTheirSelectorAndEntry();
    void inactiveRowIsMarked();
    void selectorsAreSteppedAndPutBack();
    void asksTheCameraInOrder();
    void onlyAvailableEntriesAreVisited();
    void selectorWithoutAvailableEntriesIsInactive();
    void statusIsComparedExactly_data();
    void statusIsComparedExactly();
    void valueIsShownAs_data();
    void valueIsShownAs();
    void integerOfOneMillionIsShownWithAnExponent();
    void commandsAndUnwritableFeaturesAreLeftOut();
    void accessIsAskedPerEntry();
    void featuresOfAnUnknownSelectorHaveNoTitle();
    void selectorThatIsNotTakenLeavesTheSelection();
    void resetBuildsTheTreeAnew();
    void counterWithoutSelectorHasNoEntriesToStartWith();
    void counterWithoutSelectorKeepsItsBranchWhenBuiltAnew_data();
    void counterWithoutSelectorKeepsItsBranchWhenBuiltAnew();
    void cameraWithoutFeaturesIsInactive();
    void modelOutlivesNothing();
};

void tst_SettingsTree::offersOneSlot()
{
    const QMetaObject& meta = SettingsTreeModel::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(),
             QByteArray("OnFeatureChanged(QString,QVariant)"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Slot);
}

void tst_SettingsTree::everythingOffShowsInactiveRows()
{
    const auto camera = Fake::FakeCamera::standard();
    for (const char* source : {"CounterEventSource", "TimerTriggerSource"})
        QCOMPARE((*camera)[source].state().text, std::string("Off"));
    const TreeForm form(*camera);
    QCOMPARE(form.lines(),
             (QStringList{"Counter: inactive", "Timer: inactive", "Trigger: inactive"}));
}

void tst_SettingsTree::branchesAppearCounterTimerTrigger()
{
    const auto camera = Fake::FakeCamera::standard();
    (*camera)["TriggerMode"].stateFor("LineStart").text = "On";
    (*camera)["TimerTriggerSource"].stateFor("Timer1").text = "Line0";
    (*camera)["CounterEventSource"].stateFor("Counter0").text = "Line1";
    const TreeForm form(*camera);
    QCOMPARE(form.branches(),
             (QStringList{"Counter: Counter0", "Timer: Timer1", "Trigger: LineStart"}));
}

void tst_SettingsTree::activeTriggerIsShownWithItsSettings()
{
    const auto camera = triggerCamera();
    const TreeForm form(*camera);
    QCOMPARE(form.lines(), (QStringList{"Counter: inactive", "Timer: inactive",
                                        "Trigger: FrameStart", "  TriggerMode: On",
                                        "  TriggerSource: Software", "  TriggerDelay: 0.5"}));
    QCOMPARE((*camera)["TriggerSelector"].state().text, std::string("LineStart"));
}

void tst_SettingsTree::severalActiveEntriesAreShownInTheCamerasOrder()
{
    const auto camera = triggerCamera();
    (*camera)["TriggerMode"].stateFor("LineStart").text = "On";
    (*camera)["TriggerDelay"].stateFor("LineStart").real = 7;
    const TreeForm form(*camera);
    QCOMPARE(form.lines().mid(2),
             (QStringList{"Trigger: FrameStart", "  TriggerMode: On", "  TriggerSource: Software",
                          "  TriggerDelay: 0.5", "Trigger: LineStart", "  TriggerMode: On",
                          "  TriggerSource: Software", "  TriggerDelay: 7"}));
}

void tst_SettingsTree::branchTitleIsBold()
{
    const auto camera = triggerCamera();
    const TreeForm form(*camera);
    QCOMPARE(form.model().item(2, 0)->font().weight(), 75);
    QVERIFY(form.model().item(2, 1)->font().weight() < 75);
    QVERIFY(form.model().item(0, 0)->font().weight() < 75);
    QVERIFY(form.model().item(2, 0)->child(0, 0)->font().weight() < 75);
}

void tst_SettingsTree::settingsCarryTheirSelectorAndEntry()
{
    const auto camera = triggerCamera();
    const TreeForm form(*camera);
    const QStandardItem* branch = form.model().item(2, 0);
    for (int row = 0; row < branch->rowCount(); ++row) {
        QCOMPARE(branch->child(row, 0)->data(Qt::UserRole).toString(),
                 QString("TriggerSelector_FrameStart"));
        QVERIFY(!branch->child(row, 1)->data(Qt::UserRole).isValid());
    }
    QVERIFY(!branch->data(Qt::UserRole).isValid());
}

void tst_SettingsTree::inactiveRowIsMarked()
{
    const auto camera = triggerCamera();
    const TreeForm form(*camera);
    QCOMPARE(form.model().item(0, 0)->data(Qt::UserRole).toString(), QString("inactive"));
    QCOMPARE(form.model().columnCount(), 2);
    QCOMPARE(form.model().item(0, 0)->rowCount(), 0);
}

void tst_SettingsTree::selectorsAreSteppedAndPutBack()
{
    const auto camera = Fake::FakeCamera::standard();
    const TreeForm form(*camera);
    QCOMPARE(writesOf(*camera),
             (QStringList{"CounterSelector=Counter0", "CounterSelector=Counter1",
                          "CounterSelector=Counter0", "TimerSelector=Timer0",
                          "TimerSelector=Timer1", "TimerSelector=Timer0",
                          "TriggerSelector=AcquisitionStart", "TriggerSelector=FrameStart",
                          "TriggerSelector=LineStart", "TriggerSelector=FrameStart"}));
}

void tst_SettingsTree::asksTheCameraInOrder()
{
    const auto camera = std::make_unique<Fake::FakeCamera>();
    camera->addEnum("TriggerSelector", {"FrameStart", "LineStart"}, "LineStart");
    camera->addEnum("TriggerMode", {"Off", "On"}, "Off");
    camera->addFloat("TriggerDelay", 0.5);
    camera->select("TriggerSelector", {"TriggerMode", "TriggerDelay"});
    (*camera)["TriggerMode"].stateFor("FrameStart").text = "On";
    const TreeForm form(*camera);
    const QStringList expected = {
        "GetEnumNames TriggerSelector", "GetStringValue TriggerSelector",
        // The active entry, with its settings while it is selected.
        "SetStringValue TriggerSelector=FrameStart", "GetStringValue TriggerSelector",
        "GetStringValue TriggerMode", "GetSelectedFeatures TriggerSelector",
        "IsWritable TriggerMode", "GetStringValue TriggerMode", "IsWritable TriggerDelay",
        "GetFloatValue TriggerDelay",
        // The one that is off, and back to it.
        "SetStringValue TriggerSelector=LineStart", "GetStringValue TriggerSelector",
        "GetStringValue TriggerMode", "SetStringValue TriggerSelector=LineStart",
        "GetStringValue TriggerSelector"};
    QCOMPARE(callsOf(*camera), expected);
}

void tst_SettingsTree::onlyAvailableEntriesAreVisited()
{
    const auto camera = triggerCamera();
    (*camera)["TriggerSelector"].state().entries[0].available = false;
    const TreeForm form(*camera);
    QCOMPARE(writesOf(*camera),
             (QStringList{"TriggerSelector=LineStart", "TriggerSelector=LineStart"}));
    QCOMPARE(form.lines().last(), QString("Trigger: inactive"));
}

void tst_SettingsTree::selectorWithoutAvailableEntriesIsInactive()
{
    const auto camera = triggerCamera();
    for (auto& entry : (*camera)["TriggerSelector"].state().entries)
        entry.available = false;
    const TreeForm form(*camera);
    QCOMPARE(form.lines().last(), QString("Trigger: inactive"));
    QCOMPARE((*camera)["TriggerSelector"].state().text, std::string("LineStart"));
}

void tst_SettingsTree::statusIsComparedExactly_data()
{
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("branch");
    QTest::newRow("off") << "Off"
                         << "Trigger: inactive";
    QTest::newRow("in other letters") << "OFF"
                                      << "Trigger: FrameStart";
    QTest::newRow("longer") << "Off2"
                            << "Trigger: FrameStart";
    QTest::newRow("unreadable") << QString() << "Trigger: FrameStart";
}

void tst_SettingsTree::statusIsComparedExactly()
{
    QFETCH(QString, status);
    QFETCH(QString, branch);
    const auto camera = triggerCamera();
    Fake::State& state = (*camera)["TriggerMode"].stateFor("FrameStart");
    state.text = status.toStdString();
    state.readable = !status.isNull();
    const TreeForm form(*camera);
    QCOMPARE(form.branches().last(), branch);
}

void tst_SettingsTree::valueIsShownAs_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a tenth") << 0.1 << "0.1";
    QTest::newRow("one million") << 1e6 << "1e+06";
    QTest::newRow("six digits and no more") << 1234567.0 << "1.23457e+06";
    QTest::newRow("just below the exponent") << 999999.0 << "999999";
    QTest::newRow("whole") << 25.0 << "25";
    QTest::newRow("negative") << -0.25 << "-0.25";
}

void tst_SettingsTree::valueIsShownAs()
{
    QFETCH(double, value);
    QFETCH(QString, shown);
    const auto camera = triggerCamera();
    Fake::State& state = (*camera)["TriggerDelay"].stateFor("FrameStart");
    state.real = value;
    const TreeForm form(*camera);
    QCOMPARE(form.lines().last(), "  TriggerDelay: " + shown);
}

void tst_SettingsTree::integerOfOneMillionIsShownWithAnExponent()
{
    const auto camera = triggerCamera();
    camera->addInteger("TriggerDivider", 1000000, 1, 2000000);
    camera->select("TriggerSelector", {"TriggerDivider"});
    const TreeForm form(*camera);
    QCOMPARE(form.lines().last(), QString("  TriggerDivider: 1e+06"));
}

void tst_SettingsTree::commandsAndUnwritableFeaturesAreLeftOut()
{
    const auto camera = triggerCamera();
    camera->addInteger("TriggerDivider", 1000000, 1, 2000000);
    camera->addBool("TriggerFlag", true);
    camera->addString("TriggerNote", "a text");
    camera->select("TriggerSelector", {"TriggerDivider", "TriggerFlag", "TriggerNote"});
    const TreeForm form(*camera);
    QCOMPARE(form.lines().mid(3),
             (QStringList{"  TriggerMode: On", "  TriggerSource: Software", "  TriggerDelay: 0.5",
                          "  TriggerDivider: 1e+06", "  TriggerFlag: 1", "  TriggerNote: a text"}));
}

void tst_SettingsTree::accessIsAskedPerEntry()
{
    const auto camera = triggerCamera();
    (*camera)["TriggerMode"].stateFor("LineStart").text = "On";
    (*camera)["TriggerDelay"].stateFor("FrameStart").writable = false;
    const TreeForm form(*camera);
    QCOMPARE(form.lines().mid(2),
             (QStringList{"Trigger: FrameStart", "  TriggerMode: On", "  TriggerSource: Software",
                          "Trigger: LineStart", "  TriggerMode: On", "  TriggerSource: Software",
                          "  TriggerDelay: 0.5"}));
}

void tst_SettingsTree::featuresOfAnUnknownSelectorHaveNoTitle()
{
    const auto camera = triggerCamera();
    camera->addEnum("LineSelector", {"Line0"}, "Line0");
    camera->addBool("LineInverter", false);
    camera->select("LineSelector", {"LineInverter"});
    TreeForm form(*camera);
    form.tree.addSelectorBranch("LineSelector", "Line0");
    QCOMPARE(form.lines().mid(6), (QStringList{": Line0", "  LineInverter: 0"}));
}

void tst_SettingsTree::selectorThatIsNotTakenLeavesTheSelection()
{
    const auto camera = triggerCamera();
    camera->failCall("SetStringValue", "TriggerSelector");
    const TreeForm form(*camera);
    // What is read belongs to the entry that the camera kept, which is off.
    QCOMPARE(form.branches().last(), QString("Trigger: inactive"));
    QCOMPARE((*camera)["TriggerSelector"].state().text, std::string("LineStart"));
}

void tst_SettingsTree::resetBuildsTheTreeAnew()
{
    const auto camera = triggerCamera();
    TreeForm form(*camera);
    const QStandardItemModel* before = &form.model();
    QSignalSpy removed(before, SIGNAL(rowsRemoved(QModelIndex, int, int)));
    (*camera)["TriggerMode"].stateFor("FrameStart").text = "Off";
    (*camera)["TriggerMode"].stateFor("LineStart").text = "On";
    camera->clearLog();
    form.tree.ResetData();
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed[0][2].toInt(), 2);
    QCOMPARE(&form.model(), before);
    QCOMPARE(form.branches(),
             (QStringList{"Counter: inactive", "Timer: inactive", "Trigger: LineStart"}));
    QCOMPARE(writesOf(*camera),
             (QStringList{"TriggerSelector=FrameStart", "TriggerSelector=LineStart",
                          "TriggerSelector=LineStart"}));
}

void tst_SettingsTree::counterWithoutSelectorHasNoEntriesToStartWith()
{
    Fake::FakeCamera camera;
    camera.addEnum("CounterEventSource", {"Off", "Line0"}, "Line0");
    const TreeForm form(camera);
    // Its branch comes with the first report of what it counts.
    QCOMPARE(form.branches().first(), QString("Counter: inactive"));
    QVERIFY(camera.writes().empty());
}

void tst_SettingsTree::counterWithoutSelectorKeepsItsBranchWhenBuiltAnew_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("branch");
    QTest::newRow("counting") << "Line0"
                              << "Counter: ";
    QTest::newRow("off") << "Off"
                         << "Counter: inactive";
    QTest::newRow("no counter") << QString() << "Counter: inactive";
}

void tst_SettingsTree::counterWithoutSelectorKeepsItsBranchWhenBuiltAnew()
{
    QFETCH(QString, source);
    Fake::FakeCamera camera;
    if (!source.isEmpty())
        camera.addEnum("CounterEventSource", {"Off", "Line0"}, source.toStdString());
    TreeForm form(camera);
    form.tree.ResetData();
    QCOMPARE(form.branches().size(), 3);
    QFETCH(QString, branch);
    QVERIFY2(form.branches().contains(branch), qPrintable(form.branches().join('\n')));
    QVERIFY(camera.writes().empty());
}

void tst_SettingsTree::cameraWithoutFeaturesIsInactive()
{
    const Fake::FakeCamera camera;
    const TreeForm form(camera);
    QCOMPARE(form.lines(),
             (QStringList{"Counter: inactive", "Timer: inactive", "Trigger: inactive"}));
    QCOMPARE(form.tree.findItem("TriggerMode"), nullptr);
}

void tst_SettingsTree::modelOutlivesNothing()
{
    const auto camera = triggerCamera();
    const auto manager = managerOf(*camera);
    QPointer<QStandardItemModel> model;
    {
        QObject engine;
        auto* tree = new SettingsTreeModel(manager.get(), &engine);
        model = tree->model();
        QCOMPARE(tree->parent(), &engine);
        QCOMPARE(model->parent(), nullptr);
    }
    QVERIFY(model.isNull());
}

QTEST_MAIN(tst_SettingsTree)
#include "tst_SettingsTree.moc"
