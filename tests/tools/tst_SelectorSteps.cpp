#include "tests/tools/Checked.h"
#include "tools/presetcheck/Checks.h"

#include <QtTest>

using PresetCheck::SelectorSteps;

/// Selectors move and go back; nothing else is ever written.
class tst_SelectorSteps : public QObject
{
    Q_OBJECT

    static QString entryOf(const CameraToCheck& camera, const char* selector)
    {
        return camera.manager->GetStringValue(selector);
    }

private slots:
    void onlyWhatSelectsIsASelector_data()
    {
        QTest::addColumn<bool>("isSelector");
        QTest::newRow("LineSelector") << true;
        QTest::newRow("ActionSelector") << true;
        QTest::newRow("ExposureMode") << false;
        QTest::newRow("Width") << false;
        QTest::newRow("NoSuchFeature") << false;
    }
    void onlyWhatSelectsIsASelector()
    {
        QFETCH(bool, isSelector);
        const CameraToCheck camera;
        QCOMPARE(SelectorSteps(*camera.manager).isSelector(QTest::currentDataTag()), isSelector);
    }

    void whatIsNoSelectorIsNotWritten()
    {
        const CameraToCheck camera;
        SelectorSteps steps(*camera.manager);
        QVERIFY(!steps.move("ExposureMode", "TriggerWidth"));
        QVERIFY(!steps.move("NoSuchFeature", "1"));
        QCOMPARE(camera.writes(), QStringList());
    }

    void aMoveIsTakenBackOnDemandAndAtTheLatestInTheEnd()
    {
        const CameraToCheck camera;
        {
            SelectorSteps steps(*camera.manager);
            QVERIFY(steps.move("LineSelector", "Line2"));
            QCOMPARE(entryOf(camera, "LineSelector"), QString("Line2"));
            QVERIFY(steps.putBack());
            QCOMPARE(entryOf(camera, "LineSelector"), QString("Line0"));
            QVERIFY(steps.move("LineSelector", "Line3"));
        }
        QCOMPARE(entryOf(camera, "LineSelector"), QString("Line0"));
    }

    void numbersMoveToo()
    {
        const CameraToCheck camera;
        SelectorSteps steps(*camera.manager);
        QVERIFY(steps.move("ActionSelector", "2"));
        QCOMPARE(camera.manager->GetValue("ActionSelector"), 2.0);
        QVERIFY(!steps.move("ActionSelector", "9"));
        QVERIFY(steps.putBack());
        QCOMPARE(camera.manager->GetValue("ActionSelector"), 0.0);
    }

    void aSelectorUnderAnotherGoesBackWhereItWasFound()
    {
        // Each line has a sub-selector of its own.
        const CameraToCheck camera;
        camera.fake->addEnum("PartSelector", {"First", "Second"}, "First");
        camera.fake->addInteger("PartValue", 0);
        camera.fake->select("PartSelector", {"PartValue"});
        camera.fake->select("LineSelector", {"PartSelector"});
        camera.fake->find("PartSelector")->stateFor("Line1").text = "Second";
        const FeatureManager manager(FeatureTest::wrap(*camera.fake));

        SelectorSteps steps(manager);
        QVERIFY(steps.move("PartSelector", "Second"));
        QVERIFY(steps.move("LineSelector", "Line1"));
        QVERIFY(steps.move("PartSelector", "First"));
        QVERIFY(steps.putBack());
        QCOMPARE(manager.GetStringValue("LineSelector"), QString("Line0"));
        QCOMPARE(manager.GetStringValue("PartSelector"), QString("First"));
        QVERIFY(manager.SetValue("LineSelector", QString("Line1")) == "Line1");
        QCOMPARE(manager.GetStringValue("PartSelector"), QString("Second"));
    }

    void aSelectorThatCannotBeWrittenStays()
    {
        const CameraToCheck camera;
        camera.fake->find("LineSelector")->state().writable = false;
        SelectorSteps steps(*camera.manager);
        QVERIFY(!steps.move("LineSelector", "Line2"));
        QVERIFY(steps.putBack());
        QCOMPARE(camera.writes(), QStringList());
    }

    void whatTheCameraDoesNotTakeBackIsReported()
    {
        const CameraToCheck camera;
        SelectorSteps steps(*camera.manager);
        QVERIFY(steps.move("LineSelector", "Line2"));
        camera.fake->failEverything();
        QVERIFY(!steps.putBack());
    }
};

QTEST_APPLESS_MAIN(tst_SelectorSteps)
#include "tst_SelectorSteps.moc"
