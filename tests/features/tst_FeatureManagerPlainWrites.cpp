// FeatureManager: writing booleans, texts and entries, which have no limits, and running commands.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <limits>

using Fake::FakeCamera;
using FeatureTest::callsAfterLookup;
using FeatureTest::exact;
using FeatureTest::toList;
using FeatureTest::World;

class tst_FeatureManagerPlainWrites : public QObject
{
    Q_OBJECT

private slots:
    void booleanIsTrueAboveZero_data();
    void booleanIsTrueAboveZero();
    void booleanRefusalIsLogged();
    void booleanThatCannotBeReadBackIsFalse();
    void textIsWrittenAndReadBack();
    void textFoundUnderAnAlternativeIsWrittenButReadBackAsEmpty();
    void textReadBackComesFromTheFirstNameAlone();
    void refusedTextIsNeitherReportedNorLogged();
    void writableEnumValueIsEmptyWhileReadOnly();
    void commandRunsOnceAndIsNotWaitedFor();
    void commandThatCannotRunIsFalse();
};

void tst_FeatureManagerPlainWrites::booleanIsTrueAboveZero_data()
{
    columns<double, QString>("value", "written");
    row("0.5", 0.5, "true");
    row("one", 1.0, "true");
    row("infinity", std::numeric_limits<double>::infinity(), "true");
    row("zero", 0.0, "false");
    row("negative zero", -0.0, "false");
    row("negative", -1.0, "false");
    row("not a number", std::numeric_limits<double>::quiet_NaN(), "false");
}

void tst_FeatureManagerPlainWrites::booleanIsTrueAboveZero()
{
    QFETCH(double, value);
    QFETCH(QString, written);
    World world([&](FakeCamera& camera) { camera.addBool("Flag", written == "false"); });
    QCOMPARE(exact(world.manager->SetValue("Flag", value)), exact(written == "true" ? 1.0 : 0.0));
    QCOMPARE(world.writes(), QStringList{"SetBoolValue Flag=" + written});
    QCOMPARE(callsAfterLookup(world.camera),
             (QStringList{"GetDataType Flag", "IsWritable Flag", "SetBoolValue Flag=" + written,
                          "GetBoolValue Flag"}));
}

void tst_FeatureManagerPlainWrites::booleanRefusalIsLogged()
{
    World world([](FakeCamera& camera) { camera.addBool("Flag", true); });
    world.camera.failCall("SetBoolValue", "Flag", -4711);
    const LogCapture log;
    QCOMPARE(world.manager->SetValue("Flag", 0.0), 1.0);
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::SetValue:Bool:  "
                                      "\"Flag\"  :  -4711"});
}

void tst_FeatureManagerPlainWrites::booleanThatCannotBeReadBackIsFalse()
{
    World world([](FakeCamera& camera) { camera.addBool("Flag", false); });
    world["Flag"].state().readable = false;
    QCOMPARE(exact(world.manager->SetValue("Flag", 1.0)), exact(0.0));
    QVERIFY(world["Flag"].state().boolean);
}

void tst_FeatureManagerPlainWrites::textIsWrittenAndReadBack()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    const QString family = QStringLiteral(u"M\u00FCller");
    QCOMPARE(manager.SetValue("Mode", QString("Off")), QString("Off"));
    QCOMPARE(manager.SetValue("Family", family), family);
    QCOMPARE((*camera)["Family"].state().text, std::string("M\xC3\xBCller"));
    QCOMPARE(manager.SetValue("Family", QString()), QString());
    QCOMPARE((*camera)["Family"].state().text, std::string());
}

void tst_FeatureManagerPlainWrites::textFoundUnderAnAlternativeIsWrittenButReadBackAsEmpty()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.SetValue("Gone", "Mode", QString("Off")), QString());
    QCOMPARE((*camera)["Mode"].state().text, std::string("Off"));
    QCOMPARE(manager.SetValue("Gone", "Too", "Mode", QString("On")), QString());
    QCOMPARE((*camera)["Mode"].state().text, std::string("On"));
    QCOMPARE(manager.SetValue("Gone", "Too", "Also", QString("Off")), QString());
    QCOMPARE(camera->writes().size(), std::size_t(2));
}

void tst_FeatureManagerPlainWrites::textReadBackComesFromTheFirstNameAlone()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    camera->failCall("GetStringValue", "Family");
    QCOMPARE(manager.SetValue("Family", "Mode", QString("One")), QString());
    QCOMPARE(toList(camera->writes()), QStringList{"SetStringValue Family=One"});
}

void tst_FeatureManagerPlainWrites::refusedTextIsNeitherReportedNorLogged()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    const LogCapture log;
    QCOMPARE(manager.SetValue("Mode", QString("Sometimes")), QString("On"));
    (*camera)["Mode"].state().writable = false;
    QCOMPARE(manager.SetValue("Mode", QString("Off")), QString("On"));
    QCOMPARE(toList(camera->writes()),
             (QStringList{"SetStringValue Mode=Sometimes", "SetStringValue Mode=Off"}));
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerPlainWrites::writableEnumValueIsEmptyWhileReadOnly()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.GetWritableEnumValue("Mode"), QString("On"));
    QCOMPARE(manager.GetWritableEnumValue("Count"), QString());
    QCOMPARE(manager.GetWritableEnumValue("Gone"), QString());
    (*camera)["Mode"].state().writable = false;
    QCOMPARE(manager.GetWritableEnumValue("Mode"), QString());
}

void tst_FeatureManagerPlainWrites::commandRunsOnceAndIsNotWaitedFor()
{
    const auto camera = FeatureTest::mixedCamera();
    (*camera)["Go"].commandDone = false;
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QVERIFY(manager.RunCommand("Go"));
    QCOMPARE(callsAfterLookup(*camera), QStringList{"RunCommand Go"});
}

void tst_FeatureManagerPlainWrites::commandThatCannotRunIsFalse()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    const LogCapture log;
    QVERIFY(!manager.RunCommand("Gone"));
    QVERIFY(!manager.RunCommand("Count"));
    (*camera)["Go"].state().writable = false;
    QVERIFY(!manager.RunCommand("Go"));
    (*camera)["Go"].state().writable = true;
    camera->failCall("RunCommand", "Go");
    QVERIFY(!manager.RunCommand("Go"));
    QCOMPARE(log.lines(), QStringList());
}

QTEST_APPLESS_MAIN(tst_FeatureManagerPlainWrites)

#include "tst_FeatureManagerPlainWrites.moc"
