// FeatureManager: writing texts and entries, and running commands.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"

#include <QtTest>

using FeatureTest::callsAfterLookup;
using FeatureTest::toList;

class tst_FeatureManagerTextWrites : public QObject
{
    Q_OBJECT

private slots:
    void textIsWrittenAndReadBack();
    void textFoundUnderAnAlternativeIsWrittenButReadBackAsEmpty();
    void textReadBackComesFromTheFirstNameAlone();
    void refusedTextIsNeitherReportedNorLogged();
    void writableEnumValueIsEmptyWhileReadOnly();
    void commandRunsOnceAndIsNotWaitedFor();
    void commandThatCannotRunIsFalse();
};

void tst_FeatureManagerTextWrites::textIsWrittenAndReadBack()
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

void tst_FeatureManagerTextWrites::textFoundUnderAnAlternativeIsWrittenButReadBackAsEmpty()
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

void tst_FeatureManagerTextWrites::textReadBackComesFromTheFirstNameAlone()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    camera->failCall("GetStringValue", "Family");
    QCOMPARE(manager.SetValue("Family", "Mode", QString("One")), QString());
    QCOMPARE(toList(camera->writes()), QStringList{"SetStringValue Family=One"});
}

void tst_FeatureManagerTextWrites::refusedTextIsNeitherReportedNorLogged()
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

void tst_FeatureManagerTextWrites::writableEnumValueIsEmptyWhileReadOnly()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.GetWritableEnumValue("Mode"), QString("On"));
    QCOMPARE(manager.GetWritableEnumValue("Count"), QString());
    QCOMPARE(manager.GetWritableEnumValue("Gone"), QString());
    (*camera)["Mode"].state().writable = false;
    QCOMPARE(manager.GetWritableEnumValue("Mode"), QString());
}

void tst_FeatureManagerTextWrites::commandRunsOnceAndIsNotWaitedFor()
{
    const auto camera = FeatureTest::mixedCamera();
    (*camera)["Go"].commandDone = false;
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QVERIFY(manager.RunCommand("Go"));
    QCOMPARE(callsAfterLookup(*camera), QStringList{"RunCommand Go"});
}

void tst_FeatureManagerTextWrites::commandThatCannotRunIsFalse()
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

QTEST_APPLESS_MAIN(tst_FeatureManagerTextWrites)

#include "tst_FeatureManagerTextWrites.moc"
