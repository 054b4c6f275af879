// FeatureManager: writing numbers that have limits.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <climits>
#include <limits>

using Fake::FakeCamera;
using FeatureTest::callsAfterLookup;
using FeatureTest::exact;
using FeatureTest::toList;
using FeatureTest::World;

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_FeatureManagerWrites : public QObject
{
    Q_OBJECT

private slots:
    void integerIsTruncatedSteppedAndClamped_data();
    void integerIsTruncatedSteppedAndClamped();
    void integerWithAnUnreadableRangeIsClampedToMinusOne_data();
    void integerWithAnUnreadableRangeIsClampedToMinusOne();
    void integerWithAnUnreadableIncrementIsNotStepped();
    void integerRefusalIsLoggedAndNotTriedAgain();
    void integerThatCannotBeReadBackIsMinusOne();
    void integerWriteAsksTheCameraInOrder();
    void floatIsClampedToItsRange_data();
    void floatIsClampedToItsRange();
    void floatWithAnUnreadableRangeIsClampedToMinusOne();
    void floatRefusalIsTriedAgainWithTheCamerasValueInSteps();
    void floatRefusalWithoutAnIncrementIsTriedAgainUnchanged_data();
    void floatRefusalWithoutAnIncrementIsTriedAgainUnchanged();
    void floatSecondRefusalIsLoggedWithItsOwnCode();
    void floatNegativeValueInStepsWrapsAround();
    void floatThatCannotBeReadBackIsMinusOne();
    void floatWriteAsksTheCameraInOrder();
    void readOnlyFeatureIsLeftAloneInSilence_data();
    void readOnlyFeatureIsLeftAloneInSilence();
    void otherTypesAndMissingFeaturesReturnTheValue_data();
    void otherTypesAndMissingFeaturesReturnTheValue();
    void numberIsWrittenToTheAlternativeAndReadBackFromIt();
    void logNamesTheFirstNameEvenWhenAnAlternativeWasWritten_data();
    void logNamesTheFirstNameEvenWhenAnAlternativeWasWritten();
    void ownNameIsReadBeforeTheWrite();
};

void tst_FeatureManagerWrites::integerIsTruncatedSteppedAndClamped_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<qlonglong>("min");
    QTest::addColumn<qlonglong>("max");
    QTest::addColumn<qlonglong>("step");
    QTest::addColumn<qlonglong>("written");
    const auto row = [](const char* name, double value, qlonglong min, qlonglong max,
                        qlonglong step, qlonglong written) {
        QTest::newRow(name) << value << min << max << step << written;
    };
    row("7.9 in steps of 1", 7.9, 0, 100, 1, 7);
    row("7.9 in steps of 4", 7.9, 0, 100, 4, 4);
    row("-3 below 0", -3.0, 0, 100, 1, 0);
    row("above", 500.0, 0, 100, 1, 100);
    row("maximum comes down to a multiple", 5000.0, 0, 1023, 16, 1008);
    row("negative goes toward zero", -7.9, -100, 100, 4, -4);
    row("negative fraction", -0.9, -100, 100, 1, 0);
    row("multiple below the minimum becomes the minimum", 3.0, 2, 102, 4, 2);
    row("minimum above the maximum in steps", 3.0, 5, 7, 10, 5);
    row("no step for zero", 7.9, 0, 100, 0, 7);
    row("no step for negative", 7.9, 0, 100, -4, 7);
    row("not a number is zero", NotANumber, -5, 100, 1, 0);
    row("infinity", Infinity, 0, 100, 1, 100);
    row("minus infinity", -Infinity, -100, 100, 1, -100);
    row("1e300 in 64 bits", 1e300, LLONG_MIN, LLONG_MAX, 1, LLONG_MAX);
    row("32 bits unsigned", 4294967295.0, 0, 4294967295LL, 1, 4294967295LL);
}

void tst_FeatureManagerWrites::integerIsTruncatedSteppedAndClamped()
{
    QFETCH(double, value);
    QFETCH(qlonglong, min);
    QFETCH(qlonglong, max);
    QFETCH(qlonglong, step);
    QFETCH(qlonglong, written);
    World world([&](FakeCamera& camera) { camera.addInteger("Count", min, min, max, step); });
    const double result = world.manager->SetValue("Count", value);
    QCOMPARE(world.writes(), QStringList{QString("SetIntegerValue Count=%1").arg(written)});
    QCOMPARE(exact(result), exact(static_cast<double>(written)));
}

void tst_FeatureManagerWrites::integerWithAnUnreadableRangeIsClampedToMinusOne_data()
{
    QTest::addColumn<qlonglong>("step");
    QTest::addColumn<double>("written");
    QTest::newRow("step 1") << 1LL << -1.0;
    QTest::newRow("step 4 moves the limit to zero") << 4LL << 0.0;
    QTest::newRow("no step") << 0LL << -1.0;
}

void tst_FeatureManagerWrites::integerWithAnUnreadableRangeIsClampedToMinusOne()
{
    QFETCH(qlonglong, step);
    QFETCH(double, written);
    World world([&](FakeCamera& camera) {
        camera.addInteger("Count", 8, -100, 100, step)->state().hasRange = false;
    });
    QCOMPARE(exact(world.manager->SetValue("Count", 50.0)), exact(written));
    QCOMPARE(world.writes(), QStringList{QString("SetIntegerValue Count=%1").arg(written)});
}

void tst_FeatureManagerWrites::integerWithAnUnreadableIncrementIsNotStepped()
{
    World world([](FakeCamera& camera) { camera.addInteger("Count", 8, 0, 1023, 16); });
    world.camera.failCall("GetIntegerIncrement", "Count");
    world.manager->SetValue("Count", 37.0);
    world.manager->SetValue("Count", 5000.0);
    QCOMPARE(world.writes(),
             (QStringList{"SetIntegerValue Count=37", "SetIntegerValue Count=1023"}));
}

void tst_FeatureManagerWrites::integerRefusalIsLoggedAndNotTriedAgain()
{
    World world([](FakeCamera& camera) { camera.addInteger("Count", 8); });
    world.camera.failCall("SetIntegerValue", "Count", ZalErrorTimeout);
    const LogCapture log;
    QCOMPARE(world.manager->SetValue("Count", 50.0), 8.0);
    QCOMPARE(world.writes(), QStringList{"SetIntegerValue Count=50"});
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::SetValue:Int:  "
                                      "\"Count\"  :  -12"});
}

void tst_FeatureManagerWrites::integerThatCannotBeReadBackIsMinusOne()
{
    World world([](FakeCamera& camera) { camera.addInteger("Count", 8); });
    world["Count"].state().readable = false;
    QCOMPARE(world.manager->SetValue("Count", 50.0), -1.0);
    QCOMPARE(world["Count"].state().integer, 50LL);
}

void tst_FeatureManagerWrites::integerWriteAsksTheCameraInOrder()
{
    World world([](FakeCamera& camera) { camera.addInteger("Count", 8); });
    world.manager->SetValue("Count", 50.0);
    QCOMPARE(
        callsAfterLookup(world.camera),
        (QStringList{"GetDataType Count", "GetIntegerRange Count", "GetIntegerIncrement Count",
                     "IsWritable Count", "SetIntegerValue Count=50", "GetIntegerValue Count"}));
}

void tst_FeatureManagerWrites::floatIsClampedToItsRange_data()
{
    columns<double, double>("value", "written");
    row("inside", 2.25, 2.25);
    row("150 above 100", 150.0, 100.0);
    row("below", -3.0, 0.0);
    row("infinity", Infinity, 100.0);
    row("minus infinity", -Infinity, 0.0);
    row("at the limit", 100.0, 100.0);
}

void tst_FeatureManagerWrites::floatIsClampedToItsRange()
{
    QFETCH(double, value);
    QFETCH(double, written);
    World world([](FakeCamera& camera) { camera.addFloat("Delay", 1.0, 0.0, 100.0); });
    QCOMPARE(exact(world.manager->SetValue("Delay", value)), exact(written));
    QCOMPARE(world.writes(), QStringList{QString("SetFloatValue Delay=%1").arg(written)});
}

void tst_FeatureManagerWrites::floatWithAnUnreadableRangeIsClampedToMinusOne()
{
    World world([](FakeCamera& camera) {
        camera.addFloat("Delay", 1.0, -10.0, 100.0)->state().hasRange = false;
    });
    QCOMPARE(world.manager->SetValue("Delay", 50.0), -1.0);
    QCOMPARE(world.manager->SetValue("Delay", -5.0), -1.0);
    QCOMPARE(world.writes(), (QStringList{"SetFloatValue Delay=-1", "SetFloatValue Delay=-1"}));
}

void tst_FeatureManagerWrites::floatRefusalIsTriedAgainWithTheCamerasValueInSteps()
{
    World world([](FakeCamera& camera) {
        camera.addFloat("Delay", 2.3, 0.0, 100.0)->state().incrementReal = 0.5;
    });
    const LogCapture log;
    QCOMPARE(world.manager->SetValue("Delay", 7.2), 2.0);
    QCOMPARE(world.writes(), (QStringList{"SetFloatValue Delay=7.2", "SetFloatValue Delay=2"}));
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerWrites::floatRefusalWithoutAnIncrementIsTriedAgainUnchanged_data()
{
    QTest::addColumn<bool>("has");
    QTest::addColumn<double>("increment");
    QTest::newRow("none") << false << 0.0;
    QTest::newRow("zero") << true << 0.0;
    QTest::newRow("negative") << true << -0.5;
}

void tst_FeatureManagerWrites::floatRefusalWithoutAnIncrementIsTriedAgainUnchanged()
{
    QFETCH(bool, has);
    QFETCH(double, increment);
    World world([](FakeCamera& camera) { camera.addFloat("Delay", 2.3, 0.0, 100.0); });
    if (has)
        world["Delay"].state().incrementReal = increment;
    world.camera.failCall("SetFloatValue", "Delay");
    const LogCapture log;
    QCOMPARE(world.manager->SetValue("Delay", 150.0), 2.3);
    QCOMPARE(world.writes(), (QStringList{"SetFloatValue Delay=100", "SetFloatValue Delay=100"}));
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::SetValue:Double:  "
                                      "\"Delay\"  :  -13"});
}

void tst_FeatureManagerWrites::floatSecondRefusalIsLoggedWithItsOwnCode()
{
    // First refused as out of range, then because the camera is gone.
    World world([](FakeCamera& camera) {
        camera.addFloat("Delay", 2.3, 0.0, 100.0)->state().incrementReal = 0.5;
    });
    // Lookup 2, own name 2, type, range, access, first write, read-back, increment, second write.
    constexpr int secondWrite = 11;
    world.camera.failNthCall(secondWrite, ZalErrorNotOpen);
    const LogCapture log;
    QCOMPARE(world.manager->SetValue("Delay", 7.2), 2.3);
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::SetValue:Double:  "
                                      "\"Delay\"  :  -5"});
}

void tst_FeatureManagerWrites::floatNegativeValueInStepsWrapsAround()
{
    World world([](FakeCamera& camera) {
        camera.addFloat("Delay", -2.0, -10.0, 100.0)->state().incrementReal = 0.5;
    });
    const LogCapture log;
    QCOMPARE(world.manager->SetValue("Delay", 7.2), -2.0);
    QCOMPARE(world.writes(),
             (QStringList{"SetFloatValue Delay=7.2", "SetFloatValue Delay=9.22337203685478e+18"}));
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::SetValue:Double:  "
                                      "\"Delay\"  :  -10"});
}

void tst_FeatureManagerWrites::floatThatCannotBeReadBackIsMinusOne()
{
    World world([](FakeCamera& camera) { camera.addFloat("Delay", 2.0); });
    world["Delay"].state().readable = false;
    QCOMPARE(world.manager->SetValue("Delay", 50.0), -1.0);
    QCOMPARE(world["Delay"].state().real, 50.0);
}

void tst_FeatureManagerWrites::floatWriteAsksTheCameraInOrder()
{
    World world([](FakeCamera& camera) {
        camera.addFloat("Delay", 2.3, 0.0, 100.0)->state().incrementReal = 0.5;
    });
    world.manager->SetValue("Delay", 5.0);
    QCOMPARE(callsAfterLookup(world.camera),
             (QStringList{"GetDataType Delay", "GetFloatRange Delay", "IsWritable Delay",
                          "SetFloatValue Delay=5", "GetFloatValue Delay", "GetFloatValue Delay"}));
    world.camera.clearLog();
    world.manager->SetValue("Delay", 7.2);
    QCOMPARE(
        callsAfterLookup(world.camera),
        (QStringList{"GetDataType Delay", "GetFloatRange Delay", "IsWritable Delay",
                     "SetFloatValue Delay=7.2", "GetFloatValue Delay", "GetFloatIncrement Delay",
                     "SetFloatValue Delay=5", "GetFloatValue Delay"}));
}

void tst_FeatureManagerWrites::readOnlyFeatureIsLeftAloneInSilence_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("current");
    QTest::newRow("integer") << "Count" << 8.0;
    QTest::newRow("float") << "Delay" << 2.5;
    QTest::newRow("boolean") << "Flag" << 1.0;
}

void tst_FeatureManagerWrites::readOnlyFeatureIsLeftAloneInSilence()
{
    QFETCH(QString, name);
    QFETCH(double, current);
    World world([](FakeCamera& camera) {
        camera.addInteger("Count", 8)->state().writable = false;
        camera.addFloat("Delay", 2.5)->state().writable = false;
        camera.addBool("Flag", true)->state().writable = false;
    });
    const LogCapture log;
    QCOMPARE(world.manager->SetValue(name, 0.0), current);
    QCOMPARE(world.writes(), QStringList());
    world.camera.failCall("IsWritable", name.toStdString());
    QCOMPARE(world.manager->SetValue(name, 0.0), current);
    QCOMPARE(world.writes(), QStringList());
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerWrites::otherTypesAndMissingFeaturesReturnTheValue_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"Mode", "Family", "Go", "Data", "Gone"})
        QTest::newRow(name) << name;
}

void tst_FeatureManagerWrites::otherTypesAndMissingFeaturesReturnTheValue()
{
    QFETCH(QString, name);
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    const LogCapture log;
    QCOMPARE(manager.SetValue(name, 47.11), 47.11);
    QCOMPARE(manager.SetValue(name, "Gone", "", -3.0), -3.0);
    QVERIFY(camera->writes().empty());
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerWrites::numberIsWrittenToTheAlternativeAndReadBackFromIt()
{
    World world([](FakeCamera& camera) { camera.addInteger("Count", 8); });
    QCOMPARE(world.manager->SetValue("Gone", "Count", 9.0), 9.0);
    QCOMPARE(world.manager->SetValue("Gone", "Too", "Count", 10.0), 10.0);
    QCOMPARE(world.manager->SetValue("Gone", "", "Count", 11.0), 11.0);
    QCOMPARE(world.writes(), (QStringList{"SetIntegerValue Count=9", "SetIntegerValue Count=10"}));
}

void tst_FeatureManagerWrites::logNamesTheFirstNameEvenWhenAnAlternativeWasWritten_data()
{
    columns<QString, QString, QString>("name", "operation", "tag");
    row("integer", "Count", "SetIntegerValue", "Int");
    row("float", "Delay", "SetFloatValue", "Double");
    row("boolean", "Flag", "SetBoolValue", "Bool");
}

void tst_FeatureManagerWrites::logNamesTheFirstNameEvenWhenAnAlternativeWasWritten()
{
    QFETCH(QString, name);
    QFETCH(QString, operation);
    QFETCH(QString, tag);
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    camera->failCall(operation.toStdString(), name.toStdString());
    const LogCapture log;
    manager.SetValue("Gone", name, 9.0);
    const QString line("default/debug Error: FeatureManager::SetValue:%1:  \"Gone\"  :  -13");
    QCOMPARE(log.lines(), QStringList{line.arg(tag)});
}

void tst_FeatureManagerWrites::ownNameIsReadBeforeTheWrite()
{
    World world([](FakeCamera& camera) { camera.addInteger("Count", 8); });
    world.manager->SetValue("Count", 9.0);
    const QStringList calls = toList(world.camera.calls());
    QCOMPARE(calls.count("GetName Count"), 4); // two calls for the lookup, two for the name
    QCOMPARE(calls.indexOf("GetDataType Count"), 4);
}

QTEST_APPLESS_MAIN(tst_FeatureManagerWrites)

#include "tst_FeatureManagerWrites.moc"
