// What can be done with a feature at a moment, by its type, access mode, availability, lock and
// entries; and what is left when the camera is closed.
#include "tests/sdk/bridge/OnNastyCamera.h"

using namespace BridgeTest;

class tst_FeatureAccess : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase() { serve(); }
    void init() { openAnew(); }
    void cleanup() { m_camera.reset(); }
    void cleanupTestCase() { endServing(); }

    void accessModes_data();
    void accessModes();
    void readOnlyFeatureRefusesWrites();
    void writeOnlyFeatureTakesWrites();
    void lockTakesWritabilityOnly();
    void lockedCommandIsRefused();
    void unavailableFeatureIsListedButNeitherReadableNorWritable();
    void featureBecomesAvailable();
    void availabilityAndLockOfTheRegisterBehindCount();
    void entryAvailability();
    void unavailableEntryIsRefused();
    void unimplementedEntryIsNeverAvailable();
    void entryAvailabilityMayDependOnASelector();
    void otherTypesAreRefusedWithoutTraffic_data();
    void otherTypesAreRefusedWithoutTraffic();
    void readIsOneTransaction_data();
    void readIsOneTransaction();
    void failedReadLeavesTheOutputUntouched();
    void closedCameraAnswersNotOpen();
    void closedCameraRefusesObserversButLetsThemGo();

private:
    bool available(const char* entry) const;
};

bool tst_FeatureAccess::available(const char* entry) const
{
    bool byName = false;
    bool byValue = true;
    ZalCPP::EnumEntry description;
    const auto mode = find("Mode");
    if (mode->IsValueAvailable(entry, byName) != ZalErrorSuccess ||
        mode->GetEntry(description, entry) != ZalErrorSuccess ||
        mode->IsValueAvailable(description.value, byValue) != ZalErrorSuccess || byName != byValue)
        qFatal("The availability of %s cannot be read", entry);
    return byName;
}

void tst_FeatureAccess::accessModes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<bool>("writable");
    QTest::newRow("read and write") << "Plain" << true << true;
    QTest::newRow("read only") << "ReadOnly" << true << false;
    QTest::newRow("write only") << "WriteOnly" << false << true;
    QTest::newRow("read only by decree") << "Imposed" << true << false;
    QTest::newRow("not locked") << "Lockable" << true << true;
    QTest::newRow("not available") << "Switchable" << false << false;
    QTest::newRow("formula") << "Doubled" << true << false;
    QTest::newRow("command with write-only register") << "Latch" << false << true;
    QTest::newRow("constant") << "Constant" << true << true;
}

void tst_FeatureAccess::accessModes()
{
    QFETCH(QString, name);
    const auto feature = find(name.toStdString());
    bool readable = false;
    bool writable = false;
    QCOMPARE(feature->IsReadable(readable), ZalErrorSuccess);
    QCOMPARE(feature->IsWritable(writable), ZalErrorSuccess);
    QTEST(readable, "readable");
    QTEST(writable, "writable");
}

void tst_FeatureAccess::readOnlyFeatureRefusesWrites()
{
    const auto before = m_camera->Counts();
    QCOMPARE(find("ReadOnly")->SetIntegerValue(1), ZalErrorNotWritable);
    QCOMPARE(find("Imposed")->SetIntegerValue(1), ZalErrorNotWritable);
    QCOMPARE(m_camera->Counts().writes, before.writes);
}

void tst_FeatureAccess::writeOnlyFeatureTakesWrites()
{
    long long value = 0;
    QCOMPARE(find("WriteOnly")->SetIntegerValue(9), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4114), 9U);
    QCOMPARE(find("WriteOnly")->GetIntegerValue(value), ZalErrorNotReadable);
}

void tst_FeatureAccess::lockTakesWritabilityOnly()
{
    const auto lockable = find("Lockable");
    QCOMPARE(find("Lock")->SetIntegerValue(1), ZalErrorSuccess);
    QVERIFY(!isWritable(lockable));
    QVERIFY(isReadable(lockable));
    QCOMPARE(lockable->SetIntegerValue(5), ZalErrorNotWritable);
    QCOMPARE(integer(lockable), 0LL);
    QCOMPARE(find("Lock")->SetIntegerValue(0), ZalErrorSuccess);
    QVERIFY(isWritable(lockable));
    QCOMPARE(lockable->SetIntegerValue(5), ZalErrorSuccess);
}

void tst_FeatureAccess::lockedCommandIsRefused()
{
    m_server->setReg(0x4100, 1);
    QCOMPARE(find("Latch")->RunCommand(), ZalErrorNotWritable);
    QCOMPARE(m_server->reg(0x4804), 0U);
}

void tst_FeatureAccess::unavailableFeatureIsListedButNeitherReadableNorWritable()
{
    const auto switchable = find("Switchable");
    QVERIFY(switchable);
    long long value = 0;
    std::uint32_t count = 0;
    QCOMPARE(switchable->GetIntegerValue(value), ZalErrorNotAvailable);
    QCOMPARE(switchable->SetIntegerValue(1), ZalErrorNotAvailable);
    QCOMPARE(find("SwitchableText")->GetStringValue(nullptr, count), ZalErrorNotAvailable);
    QCOMPARE(find("SwitchableText")->SetStringValue("x"), ZalErrorNotAvailable);
}

void tst_FeatureAccess::featureBecomesAvailable()
{
    QCOMPARE(find("Switch")->SetBoolValue(true), ZalErrorSuccess);
    QVERIFY(isReadable(find("Switchable")));
    QVERIFY(isWritable(find("Switchable")));
    QCOMPARE(find("Switchable")->SetIntegerValue(50), ZalErrorSuccess);
    QCOMPARE(integer(find("Switchable")), 50LL);
}

void tst_FeatureAccess::availabilityAndLockOfTheRegisterBehindCount()
{
    const auto indirect = find("Indirect");
    QVERIFY(!isReadable(indirect));
    QCOMPARE(indirect->SetIntegerValue(1), ZalErrorNotAvailable);
    QCOMPARE(find("Switch")->SetBoolValue(true), ZalErrorSuccess);
    QVERIFY(isReadable(indirect));
    QVERIFY(isWritable(indirect));
    QCOMPARE(find("Lock")->SetIntegerValue(1), ZalErrorSuccess);
    QVERIFY(isReadable(indirect));
    QVERIFY(!isWritable(indirect));
    QCOMPARE(indirect->SetIntegerValue(1), ZalErrorNotWritable);
}

void tst_FeatureAccess::entryAvailability()
{
    QVERIFY(available("Off"));
    QVERIFY(available("On"));
    QVERIFY(!available("Special"));
    QCOMPARE(find("Switch")->SetBoolValue(true), ZalErrorSuccess);
    QVERIFY(available("Special"));
}

void tst_FeatureAccess::unavailableEntryIsRefused()
{
    QCOMPARE(find("Mode")->SetStringValue("Special"), ZalErrorNotAvailable);
    QCOMPARE(text(find("Mode")), std::string("Off"));
    QCOMPARE(find("Switch")->SetBoolValue(true), ZalErrorSuccess);
    QCOMPARE(find("Mode")->SetStringValue("Special"), ZalErrorSuccess);
    QCOMPARE(text(find("Mode")), std::string("Special"));
}

void tst_FeatureAccess::unimplementedEntryIsNeverAvailable()
{
    QVERIFY(!available("Missing"));
    QCOMPARE(find("Mode")->SetStringValue("Missing"), ZalErrorNotAvailable);
}

void tst_FeatureAccess::entryAvailabilityMayDependOnASelector()
{
    bool loud = true;
    QCOMPARE(find("ChannelMode")->IsValueAvailable("Loud", loud), ZalErrorSuccess);
    QVERIFY(!loud);
    QCOMPARE(find("ChannelSelector")->SetIntegerValue(1), ZalErrorSuccess);
    QCOMPARE(find("ChannelMode")->IsValueAvailable("Loud", loud), ZalErrorSuccess);
    QVERIFY(loud);
}

void tst_FeatureAccess::closedCameraAnswersNotOpen()
{
    const auto plain = find("Plain");
    const auto mode = find("Mode");
    const auto reset = find("Reset");
    m_camera.reset();
    long long value = 0;
    bool flag = false;
    std::uint32_t count = 0;
    QCOMPARE(plain->GetIntegerValue(value), ZalErrorNotOpen);
    QCOMPARE(plain->SetIntegerValue(1), ZalErrorNotOpen);
    QCOMPARE(plain->GetIntegerRange(value, value), ZalErrorNotOpen);
    QCOMPARE(plain->IsReadable(flag), ZalErrorNotOpen);
    QCOMPARE(plain->IsWritable(flag), ZalErrorNotOpen);
    QCOMPARE(plain->HasIncrement(flag), ZalErrorNotOpen);
    QCOMPARE(mode->GetStringValue(nullptr, count), ZalErrorNotOpen);
    QCOMPARE(mode->IsValueAvailable("On", flag), ZalErrorNotOpen);
    QCOMPARE(reset->RunCommand(), ZalErrorNotOpen);
    QCOMPARE(reset->IsCommandDone(flag), ZalErrorNotOpen);
}

void tst_FeatureAccess::closedCameraRefusesObserversButLetsThemGo()
{
    const auto plain = find("Plain");
    const auto before = std::make_shared<Recorder>();
    const auto after = std::make_shared<Recorder>();
    QCOMPARE(plain->RegisterObserver(before), ZalErrorSuccess);
    QCOMPARE(before.use_count(), 2L);
    m_camera.reset();
    QCOMPARE(before.use_count(), 1L);
    QCOMPARE(plain->RegisterObserver(after), ZalErrorNotOpen);
    QCOMPARE(after.use_count(), 1L);
    QCOMPARE(plain->UnregisterObserver(before), ZalErrorNotOpen);
}

void tst_FeatureAccess::otherTypesAreRefusedWithoutTraffic_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("integer") << "Plain" << 0;
    QTest::newRow("float") << "Smooth" << 1;
    QTest::newRow("bool") << "Flag" << 2;
    QTest::newRow("text") << "Note" << 3;
    QTest::newRow("enumeration") << "Mode" << 3;
    QTest::newRow("raw") << "Blob" << 4;
    QTest::newRow("command") << "Reset" << 5;
}

void tst_FeatureAccess::otherTypesAreRefusedWithoutTraffic()
{
    QFETCH(QString, name);
    QFETCH(int, type);
    const auto f = find(name.toStdString());
    long long i = 0;
    double d = 0;
    bool b = false;
    std::uint32_t count = 0;
    const unsigned char bytes[8] = {};
    const std::vector<std::vector<std::function<ZalErrorType()>>> calls = {
        {[&] { return f->GetIntegerValue(i); }, [&] { return f->SetIntegerValue(1); },
         [&] { return f->GetIntegerRange(i, i); }, [&] { return f->GetIntegerIncrement(i); },
         [&] { return f->GetValidValueSet(nullptr, count); }},
        {[&] { return f->GetFloatValue(d); }, [&] { return f->SetFloatValue(1); },
         [&] { return f->GetFloatRange(d, d); }, [&] { return f->GetFloatIncrement(d); }},
        {[&] { return f->GetBoolValue(b); }, [&] { return f->SetBoolValue(true); }},
        {[&] { return f->GetStringValue(nullptr, count); }, [&] { return f->SetStringValue("x"); }},
        {[&] { return f->GetRawValue(nullptr, count); }, [&] { return f->SetRawValue(bytes, 8); }},
        {[&] { return f->RunCommand(); }, [&] { return f->IsCommandDone(b); }}};
    const auto before = m_camera->Counts();
    for (int group = 0; group < static_cast<int>(calls.size()); ++group) {
        for (const auto& call : calls[static_cast<std::size_t>(group)]) {
            if (group != type)
                QCOMPARE(call(), ZalErrorWrongType);
        }
    }
    QCOMPARE(m_camera->Counts().reads, before.reads);
    QCOMPARE(m_camera->Counts().writes, before.writes);
}

void tst_FeatureAccess::readIsOneTransaction_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "Plain";
    QTest::newRow("lockable, which matters for writing only") << "Lockable";
}

void tst_FeatureAccess::readIsOneTransaction()
{
    QFETCH(QString, name);
    const auto before = m_camera->Counts();
    QCOMPARE(integer(find(name.toStdString())), 0LL);
    QCOMPARE(m_camera->Counts().reads, before.reads + 1);
    QCOMPARE(m_camera->Counts().writes, before.writes);
}

void tst_FeatureAccess::failedReadLeavesTheOutputUntouched()
{
    long long value = 55;
    QCOMPARE(find("WriteOnly")->GetIntegerValue(value), ZalErrorNotReadable);
    QCOMPARE(find("Switchable")->GetIntegerValue(value), ZalErrorNotAvailable);
    QCOMPARE(value, 55LL);
}

QTEST_GUILESS_MAIN(tst_FeatureAccess)
#include "tst_FeatureAccess.moc"
