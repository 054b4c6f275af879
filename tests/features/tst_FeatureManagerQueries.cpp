// What FeatureManager says about the presence, access and entries of features.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"

#include <QtTest>

using Fake::FakeCamera;
using FeatureTest::toList;

class tst_FeatureManagerQueries : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void oneWrapperOperationsReadTheWrapper();
    void oneWrapperOperationsAreNeutralOnFailure();
    void stringValueOfANullWrapperIsEmpty();
    void typedReadsGiveMinusOneOrFalseOnFailure();
    void enumEntriesDoNotAskForAvailability();
    void availabilityIsPresenceWhateverTheAccess();
    void writabilityFollowsTheCamera();
    void bothWritabilityFamiliesAgreeOnEveryFeature();
    void writabilityIsFalseWhenItCannotBeRead();
    void writabilityUsesTheAlternatives_data();
    void writabilityUsesTheAlternatives();
    void readabilityFollowsTheCamera();
    void entryAvailabilityFollowsTheCamera_data();
    void entryAvailabilityFollowsTheCamera();
    void availableEntriesAreThoseThatCanBeChosen();
    void availableEntriesUseTheAlternative();
    void availableEntriesOfANonEnumerationAreNone();
    void availableEntriesLeaveOutWhatCannotBeAsked();
    void entryNamesAreUtf8();
    void queriesWriteNothing();
    void failuresAreNotLogged();

private:
    ZalFeatureWrapperPtr find(const char* name) const
    {
        return m_manager->GetFeatureByName(std::string(name));
    }
    std::unique_ptr<FakeCamera> m_camera;
    std::unique_ptr<FeatureManager> m_manager;
};

void tst_FeatureManagerQueries::init()
{
    m_camera = FeatureTest::mixedCamera();
    m_manager = std::make_unique<FeatureManager>(FeatureTest::wrap(*m_camera));
}

void tst_FeatureManagerQueries::oneWrapperOperationsReadTheWrapper()
{
    QCOMPARE(FeatureManager::GetDataType(find("Delay")), ZalFeatureFloat);
    QCOMPARE(FeatureManager::GetIsWritable(find("Delay")), true);
    QCOMPARE(FeatureManager::GetIsReadable(find("Delay")), true);
    QCOMPARE(FeatureManager::GetStringValue(find("Family")), QString("Two words"));
    QCOMPARE(FeatureManager::GetStringValue(find("Mode")), QString("On"));
    QCOMPARE(FeatureManager::GetIsValueAvailable(find("Mode"), "Off"), true);
    QCOMPARE(FeatureManager::GetIsValueAvailable(find("Mode"), "Auto"), false);
    QCOMPARE(FeatureManager::GetEnumEntries(find("Mode")), (QStringList{"Off", "On", "Auto"}));
    double real = 0.0;
    long long integer = 0;
    bool flag = false;
    FeatureManager::GetValue<double>(find("Delay"), &real);
    FeatureManager::GetValue<long long>(find("Count"), &integer);
    FeatureManager::GetValue<bool>(find("Flag"), &flag);
    QCOMPARE(real, 2.5);
    QCOMPARE(integer, 42LL);
    QCOMPARE(flag, true);
}

void tst_FeatureManagerQueries::oneWrapperOperationsAreNeutralOnFailure()
{
    const ZalFeatureWrapperPtr mode = find("Mode");
    m_camera->failEverything();
    QCOMPARE(FeatureManager::GetDataType(mode), ZalFeatureUnknown);
    QCOMPARE(FeatureManager::GetIsWritable(mode), false);
    QCOMPARE(FeatureManager::GetIsReadable(mode), false);
    QCOMPARE(FeatureManager::GetStringValue(mode), QString());
    QCOMPARE(FeatureManager::GetIsValueAvailable(mode, "Off"), false);
    QCOMPARE(FeatureManager::GetEnumEntries(mode), QStringList());
}

void tst_FeatureManagerQueries::stringValueOfANullWrapperIsEmpty()
{
    QCOMPARE(FeatureManager::GetStringValue(ZalFeatureWrapperPtr()), QString());
}

void tst_FeatureManagerQueries::typedReadsGiveMinusOneOrFalseOnFailure()
{
    const ZalFeatureWrapperPtr mode = find("Mode");
    double real = 7.0;
    long long integer = 7;
    bool flag = true;
    FeatureManager::GetValue<double>(mode, &real);
    FeatureManager::GetValue<long long>(mode, &integer);
    FeatureManager::GetValue<bool>(mode, &flag);
    QCOMPARE(real, -1.0);
    QCOMPARE(integer, -1LL);
    QCOMPARE(flag, false);
}

void tst_FeatureManagerQueries::enumEntriesDoNotAskForAvailability()
{
    const ZalFeatureWrapperPtr mode = find("Mode");
    m_camera->clearLog();
    FeatureManager::GetEnumEntries(mode);
    QCOMPARE(toList(m_camera->calls()), (QStringList{"GetEnumNames Mode", "GetEnumNames Mode"}));
}

void tst_FeatureManagerQueries::availabilityIsPresenceWhateverTheAccess()
{
    (*m_camera)["Count"].state().readable = false;
    (*m_camera)["Count"].state().writable = false;
    QVERIFY(m_manager->GetIsFeatureAvailable("Count"));
    QVERIFY(m_manager->GetIsFeatureAvailable("Gone", "Count"));
    QVERIFY(m_manager->GetIsFeatureAvailable("Gone", "Too", "Count"));
    QVERIFY(!m_manager->GetIsFeatureAvailable("Gone"));
    QVERIFY(!m_manager->GetIsFeatureAvailable("Gone", "Too"));
    QVERIFY(!m_manager->GetIsFeatureAvailable("Gone", "Too", "Also"));
    // A second alternative without a first one is never tried.
    QVERIFY(!m_manager->GetIsFeatureAvailable("Gone", "", "Count"));
}

void tst_FeatureManagerQueries::writabilityFollowsTheCamera()
{
    QVERIFY(m_manager->GetIsWritable("Count") && m_manager->GetIsFeatureWritable("Count"));
    (*m_camera)["Count"].state().writable = false;
    QVERIFY(!m_manager->GetIsWritable("Count") && !m_manager->GetIsFeatureWritable("Count"));
    QVERIFY(!m_manager->GetIsWritable("Gone") && !m_manager->GetIsFeatureWritable("Gone"));
}

void tst_FeatureManagerQueries::bothWritabilityFamiliesAgreeOnEveryFeature()
{
    const auto standard = FakeCamera::standard();
    const FeatureManager all(FeatureTest::wrap(*standard));
    int writable = 0;
    const QStringList names = all.GetFeaturesList();
    for (const QString& name : names) {
        QVERIFY2(all.GetIsWritable(name) == all.GetIsFeatureWritable(name), qPrintable(name));
        writable += all.GetIsWritable(name) ? 1 : 0;
    }
    QVERIFY(writable > 0 && writable < names.size());
}

void tst_FeatureManagerQueries::writabilityIsFalseWhenItCannotBeRead()
{
    m_camera->failCall("IsWritable", "Count");
    QVERIFY(!m_manager->GetIsWritable("Count"));
    QVERIFY(!m_manager->GetIsWritable("Gone", "Too", "Count"));
    QVERIFY(!m_manager->GetIsFeatureWritable("Count"));
}

void tst_FeatureManagerQueries::writabilityUsesTheAlternatives_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("altName");
    QTest::addColumn<QString>("altName2");
    QTest::addColumn<bool>("two");
    QTest::addColumn<bool>("three");
    QTest::newRow("first") << "Count"
                           << "Gone"
                           << "Gone" << true << true;
    QTest::newRow("second") << "Gone"
                            << "Count"
                            << "Gone" << true << true;
    QTest::newRow("third") << "Gone"
                           << "Too"
                           << "Count" << false << true;
    QTest::newRow("third without second") << "Gone"
                                          << ""
                                          << "Count" << false << false;
    QTest::newRow("read-only first hides the second") << "Fixed"
                                                      << "Count"
                                                      << "" << false << false;
}

void tst_FeatureManagerQueries::writabilityUsesTheAlternatives()
{
    QFETCH(QString, name);
    QFETCH(QString, altName);
    QFETCH(QString, altName2);
    QFETCH(bool, two);
    QFETCH(bool, three);
    m_camera->addInteger("Fixed", 1)->state().writable = false;
    const FeatureManager all(FeatureTest::wrap(*m_camera));
    QCOMPARE(all.GetIsWritable(name, altName), two);
    QCOMPARE(all.GetIsFeatureWritable(name, altName), two);
    QCOMPARE(all.GetIsWritable(name, altName, altName2), three);
    QCOMPARE(all.GetIsFeatureWritable(name, altName, altName2), three);
}

void tst_FeatureManagerQueries::readabilityFollowsTheCamera()
{
    QVERIFY(m_manager->GetIsReadable("Count"));
    QVERIFY(!m_manager->GetIsReadable("Gone"));
    (*m_camera)["Count"].state().readable = false;
    QVERIFY(!m_manager->GetIsReadable("Count"));
    (*m_camera)["Count"].state().readable = true;
    m_camera->failCall("IsReadable", "Count");
    QVERIFY(!m_manager->GetIsReadable("Count"));
}

void tst_FeatureManagerQueries::entryAvailabilityFollowsTheCamera_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("available");
    QTest::newRow("available") << "Mode"
                               << "Off" << true;
    QTest::newRow("not available") << "Mode"
                                   << "Auto" << false;
    QTest::newRow("no such entry") << "Mode"
                                   << "off" << false;
    QTest::newRow("empty entry") << "Mode"
                                 << "" << false;
    QTest::newRow("no enumeration") << "Count"
                                    << "Off" << false;
    QTest::newRow("no such feature") << "Gone"
                                     << "Off" << false;
}

void tst_FeatureManagerQueries::entryAvailabilityFollowsTheCamera()
{
    QFETCH(QString, name);
    QFETCH(QString, entry);
    QFETCH(bool, available);
    QCOMPARE(m_manager->GetIsFeatureValueAvailable(name, entry), available);
}

void tst_FeatureManagerQueries::availableEntriesAreThoseThatCanBeChosen()
{
    QCOMPARE(m_manager->GetAvailableEnumEntries("Mode"), (QStringList{"Off", "On"}));
    (*m_camera)["Mode"].state().entries[0].available = false;
    (*m_camera)["Mode"].state().entries[2].available = true;
    QCOMPARE(m_manager->GetAvailableEnumEntries("Mode"), (QStringList{"On", "Auto"}));
}

void tst_FeatureManagerQueries::availableEntriesUseTheAlternative()
{
    QCOMPARE(m_manager->GetAvailableEnumEntries("Gone", "Mode"), (QStringList{"Off", "On"}));
    QCOMPARE(m_manager->GetAvailableEnumEntries("Gone", "Too"), QStringList());
    QCOMPARE(m_manager->GetAvailableEnumEntries("Gone"), QStringList());
    QCOMPARE(m_manager->GetAvailableEnumEntries("Gone", ""), QStringList());
}

void tst_FeatureManagerQueries::availableEntriesOfANonEnumerationAreNone()
{
    QCOMPARE(m_manager->GetAvailableEnumEntries("Count"), QStringList());
    QCOMPARE(m_manager->GetAvailableEnumEntries("Family"), QStringList());
}

void tst_FeatureManagerQueries::availableEntriesLeaveOutWhatCannotBeAsked()
{
    m_camera->failCall("IsValueAvailable", "Mode");
    QCOMPARE(m_manager->GetAvailableEnumEntries("Mode"), QStringList());
}

void tst_FeatureManagerQueries::entryNamesAreUtf8()
{
    const QString entry = QStringLiteral(u"\u00C4");
    (*m_camera)["Mode"].state().entries = {{"\xC3\x84", 0, true}};
    QCOMPARE(FeatureManager::GetEnumEntries(find("Mode")), QStringList{entry});
    QVERIFY(FeatureManager::GetIsValueAvailable(find("Mode"), entry));
    QVERIFY(m_manager->GetIsFeatureValueAvailable("Mode", entry));
    QCOMPARE(m_manager->GetAvailableEnumEntries("Mode"), QStringList{entry});
}

void tst_FeatureManagerQueries::queriesWriteNothing()
{
    m_manager->GetAvailableEnumEntries("Mode");
    m_manager->GetIsFeatureWritable("Mode");
    m_manager->GetIsReadable("Mode");
    m_manager->GetSelectedFeatures("Mode");
    QVERIFY(!m_camera->calls().empty());
    QVERIFY(m_camera->writes().empty());
}

void tst_FeatureManagerQueries::failuresAreNotLogged()
{
    for (const char* operation :
         {"IsWritable", "IsReadable", "GetEnumNames", "IsValueAvailable", "GetSelectedFeatures"})
        m_camera->failCall(operation, "Mode");
    const LogCapture log;
    for (const char* name : {"Mode", "Gone"}) {
        m_manager->GetIsFeatureAvailable(name);
        m_manager->GetIsWritable(name);
        m_manager->GetIsFeatureWritable(name);
        m_manager->GetIsReadable(name);
        m_manager->GetIsFeatureValueAvailable(name, "On");
        m_manager->GetAvailableEnumEntries(name);
        m_manager->GetSelectedFeatures(name);
        m_manager->GetFeatureName(QStringList{name});
    }
    QCOMPARE(log.lines(), QStringList());
}

QTEST_APPLESS_MAIN(tst_FeatureManagerQueries)

#include "tst_FeatureManagerQueries.moc"
