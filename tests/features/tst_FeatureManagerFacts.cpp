// FeatureManager: representation, data type, category, display name and selected features.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"

#include <QtTest>

using Fake::FakeCamera;

class tst_FeatureManagerFacts : public QObject
{
    Q_OBJECT

private slots:
    void representationPassesThrough();
    void representationOfAnUnknownNameIsEmptyAndLogged();
    void representationThatCannotBeReadIsEmptyAndLogged();
    void dataTypeByName_data();
    void dataTypeByName();
    void dataTypeOfAnUnknownNameIsUnknownAndLogged();
    void categoryPassesThrough();
    void categoryOfAnUnknownNameIsEmptyWithoutLogging();
    void displayNameUsesTheAlternatives();
    void unreadableDisplayNameIsEmptyWithoutFallback();
    void selectedFeaturesAreNamedInOrder();
    void namesOfSelectedFeaturesAreDecodedFromUtf8();
    void selectedFeaturesOfAMissingOrFailingSelectorAreNone();
    void selectedFeatureWithoutAReadableNameIsSkipped();
    void selectedHandleWithoutAFeatureIsSkipped();
};

void tst_FeatureManagerFacts::representationPassesThrough()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.GetRepresentation("Count"), QString("HexNumber"));
    QCOMPARE(manager.GetRepresentation("Delay"), QString());
    (*camera)["Delay"].representation = "\xC3\x84";
    QCOMPARE(manager.GetRepresentation("Delay"), QStringLiteral(u"\u00C4"));
}

void tst_FeatureManagerFacts::representationOfAnUnknownNameIsEmptyAndLogged()
{
    const FakeCamera camera;
    const FeatureManager manager(FeatureTest::wrap(camera));
    const LogCapture log;
    QCOMPARE(manager.GetRepresentation("Gone"), QString());
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::GetRepresentation() - "
                                      "cannot get ZalFeatureWrapperPtr for  \"Gone\""});
}

void tst_FeatureManagerFacts::representationThatCannotBeReadIsEmptyAndLogged()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    camera->failCall("GetRepresentation", "Count");
    const LogCapture log;
    QCOMPARE(manager.GetRepresentation("Count"), QString());
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::GetRepresentation() "
                                      "cannot get representaion for  \"Count\""});
}

void tst_FeatureManagerFacts::dataTypeByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned>("type");
    QTest::newRow("integer") << "Count" << 1U;
    QTest::newRow("float") << "Delay" << 2U;
    QTest::newRow("enumeration") << "Mode" << 3U;
    QTest::newRow("string") << "Family" << 4U;
    QTest::newRow("boolean") << "Flag" << 5U;
    QTest::newRow("command") << "Go" << 6U;
    QTest::newRow("raw") << "Data" << 7U;
}

void tst_FeatureManagerFacts::dataTypeByName()
{
    QFETCH(QString, name);
    QFETCH(unsigned, type);
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.GetDataType(name), type);
    camera->failCall("GetDataType", name.toStdString());
    const LogCapture log;
    QCOMPARE(manager.GetDataType(name), 0U);
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerFacts::dataTypeOfAnUnknownNameIsUnknownAndLogged()
{
    const FakeCamera camera;
    const FeatureManager manager(FeatureTest::wrap(camera));
    const LogCapture log;
    QCOMPARE(manager.GetDataType(QString("Gone")), 0U);
    QCOMPARE(log.lines(), QStringList{"default/debug Error: FeatureManager::GetDataType() - "
                                      "cannot get ZalFeatureWrapperPtr for  \"Gone\""});
}

void tst_FeatureManagerFacts::categoryPassesThrough()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    (*camera)["Delay"].category = "Ger\xC3\xA4t";
    QCOMPARE(manager.GetCategory("Count"), QString("Root/Counters"));
    QCOMPARE(manager.GetCategory("Delay"), QStringLiteral(u"Ger\u00E4t"));
    camera->failCall("GetCategory", "Count");
    const LogCapture log;
    QCOMPARE(manager.GetCategory("Count"), QString());
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerFacts::categoryOfAnUnknownNameIsEmptyWithoutLogging()
{
    const FakeCamera camera;
    const FeatureManager manager(FeatureTest::wrap(camera));
    const LogCapture log;
    QCOMPARE(manager.GetCategory("Gone"), QString());
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerFacts::displayNameUsesTheAlternatives()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    const QString expected = QStringLiteral(u"Z\u00E4hler");
    (*camera)["Count"].displayName = "Z\xC3\xA4hler";
    const LogCapture log;
    QCOMPARE(manager.GetDisplayName(QString("Count")), expected);
    QCOMPARE(manager.GetDisplayName("Gone", "Count"), expected);
    QCOMPARE(manager.GetDisplayName("Gone", "Too", "Count"), expected);
    QCOMPARE(manager.GetDisplayName("Count", "Delay", "Mode"), expected);
    QCOMPARE(manager.GetDisplayName("Gone", "", "Count"), QString());
    QCOMPARE(manager.GetDisplayName("Gone", "Too"), QString());
    QCOMPARE(manager.GetDisplayName(QString("Gone")), QString());
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerFacts::unreadableDisplayNameIsEmptyWithoutFallback()
{
    const auto camera = FeatureTest::mixedCamera();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    camera->failCall("GetDisplayName", "Count");
    const LogCapture log;
    QCOMPARE(manager.GetDisplayName(QString("Count")), QString());
    QCOMPARE(manager.GetDisplayName("Count", "Delay"), QString());
    QCOMPARE(manager.GetDisplayName("Count", "Delay", "Mode"), QString());
    QCOMPARE(log.lines(), QStringList());
}

void tst_FeatureManagerFacts::selectedFeaturesAreNamedInOrder()
{
    const auto camera = FakeCamera::standard();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.GetSelectedFeatures("TriggerSelector"),
             (QStringList{"TriggerMode", "TriggerSource", "TriggerActivation", "TriggerDelay",
                          "TriggerSoftware"}));
    QCOMPARE(manager.GetSelectedFeatures("TriggerDelay"), QStringList());
    QVERIFY(camera->writes().empty());
}

void tst_FeatureManagerFacts::namesOfSelectedFeaturesAreDecodedFromUtf8()
{
    FakeCamera camera;
    camera.addEnum("Mode", {"On"}, "On");
    camera.addInteger("\xC3\x84", 1);
    camera.select("Mode", {"\xC3\x84"});
    const FeatureManager manager(FeatureTest::wrap(camera));
    QCOMPARE(manager.GetSelectedFeatures("Mode"), QStringList{QStringLiteral(u"\u00C4")});
}

void tst_FeatureManagerFacts::selectedFeaturesOfAMissingOrFailingSelectorAreNone()
{
    const auto camera = FakeCamera::standard();
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.GetSelectedFeatures("NoSuchSelector"), QStringList());
    camera->failCall("GetSelectedFeatures", "TriggerSelector");
    QCOMPARE(manager.GetSelectedFeatures("TriggerSelector"), QStringList());
}

void tst_FeatureManagerFacts::selectedFeatureWithoutAReadableNameIsSkipped()
{
    const auto camera = FakeCamera::standard();
    camera->failCall("GetName", "SoftwareSignalPulse");
    camera->failCall("GetName", "TriggerSource");
    const FeatureManager manager(FeatureTest::wrap(*camera));
    QCOMPARE(manager.GetSelectedFeatures("SoftwareSignalSelector"), QStringList());
    QCOMPARE(manager.GetSelectedFeatures("TriggerSelector"),
             (QStringList{"TriggerMode", "TriggerActivation", "TriggerDelay", "TriggerSoftware"}));
}

void tst_FeatureManagerFacts::selectedHandleWithoutAFeatureIsSkipped()
{
    FakeCamera camera;
    const auto mode = camera.addEnum("Mode", {"On"}, "On");
    mode->selectedFeatures = {nullptr, camera.addInteger("B", 1)};
    const FeatureManager manager(FeatureTest::wrap(camera));
    QCOMPARE(manager.GetSelectedFeatures("Mode"), QStringList{"B"});
}

QTEST_APPLESS_MAIN(tst_FeatureManagerFacts)

#include "tst_FeatureManagerFacts.moc"
