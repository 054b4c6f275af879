// FeatureManager: reading values and limits.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"

#include <QtTest>

#include <climits>

using Fake::FakeCamera;
using FeatureTest::callsAfterLookup;

namespace {

constexpr double twoTo64 = 18446744073709551616.0;

/// Every bit of it: QCOMPARE takes doubles as equal that are merely close.
QByteArray exact(double value)
{
    return QByteArray::number(value, 'g', 17);
}

void addIntegersWithLimits(FakeCamera& camera)
{
    camera.addInteger("Stepped", 32, 0, 1023, 16);
    camera.addInteger("Unaligned", 13, 3, 17, 5);
    camera.addInteger("NoStep", 5, 0, 1023)->state().incrementInteger.reset();
    camera.addInteger("ZeroStep", 5, 0, 1023, 0);
    camera.addInteger("NegativeStep", 5, 0, 1023, -4);
    camera.addInteger("NegativeMax", -32, -100, -16, 16);
    camera.addInteger("NoRangeStep4", 4, 0, 100, 4)->state().hasRange = false;
    camera.addInteger("NoRangeStep1", 4, 0, 100, 1)->state().hasRange = false;
    camera.addInteger("WriteOnly", 5, 0, 100)->state().readable = false;
    camera.addInteger("Fixed", 5, 0, 100)->state().writable = false;
    camera.addInteger("Wide", LLONG_MIN, LLONG_MIN, LLONG_MAX, 1);
}

void addFloatsWithLimits(FakeCamera& camera)
{
    camera.addFloat("FloatStepped", 2.5, -1.5, 99.9)->state().incrementReal = 0.5;
    camera.addFloat("FloatNoStep", 2.5, 0.0, 99.9);
    camera.addFloat("FloatZeroStep", 2.5, 0.0, 99.9)->state().incrementReal = 0.0;
    camera.addFloat("FloatNegativeStep", 2.5, 0.0, 99.9)->state().incrementReal = -0.5;
    camera.addFloat("FloatNegativeMax", -5.0, -10.0, -4.25)->state().incrementReal = 0.5;
    camera.addFloat("FloatHugeMax", 1.0, 0.0, 1e300)->state().incrementReal = 0.5;
    camera.addFloat("FloatNoRange", 2.5)->state().hasRange = false;
    camera.addFloat("FloatWriteOnly", 2.5, 0.0, 10.0)->state().readable = false;
}

} // namespace

class tst_FeatureManagerValues : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void valueCrossesAsDouble_data();
    void valueCrossesAsDouble();
    void valueThatCannotBeReadIsMinusOneButFalseForABoolean();
    void valueUsesTheAlternatives();
    void stringValueIsUnformatted_data();
    void stringValueIsUnformatted();
    void stringValueUsesOneAlternative();
    void onlyTheTypeFloatIsAFloatFeature();
    void incrementOfNumbersOnly_data();
    void incrementOfNumbersOnly();
    void rangeFamilyReportsValueLimitsAndStep_data();
    void rangeFamilyReportsValueLimitsAndStep();
    void writableIsFalseWhenItCannotBeRead();
    void missingFeatureLeavesEveryOutputUntouched();
    void rangeFamilyUsesTheAlternatives();
    void rangeFamilyAsksTheCameraInOrder();
    void rangeIsReadWithItsIncrementThoughItIsNotReported();
    void otherTypesAreNotAskedForLimits();
    void readsWriteNothing();
    void missingFeaturesAndFailedReadsAreNotLogged();

private:
    std::unique_ptr<FakeCamera> camera;
    std::unique_ptr<FeatureManager> manager;
};

void tst_FeatureManagerValues::init()
{
    camera = FeatureTest::mixedCamera();
    addIntegersWithLimits(*camera);
    addFloatsWithLimits(*camera);
    camera->addBool("Clear", false);
    camera->addString("Micro", "\xC2\xB5s");
    camera->addString("Number", "1e3");
    camera->add("Unknown", ZalFeatureUnknown);
    manager = std::make_unique<FeatureManager>(FeatureTest::wrap(*camera));
}

void tst_FeatureManagerValues::valueCrossesAsDouble_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("value");
    QTest::newRow("integer") << "Count" << 42.0;
    QTest::newRow("smallest integer") << "Wide" << -9223372036854775808.0;
    QTest::newRow("float") << "Delay" << 2.5;
    QTest::newRow("boolean true") << "Flag" << 1.0;
    QTest::newRow("boolean false") << "Clear" << 0.0;
    QTest::newRow("enumeration") << "Mode" << -1.0;
    QTest::newRow("string") << "Number" << -1.0;
    QTest::newRow("command") << "Go" << -1.0;
    QTest::newRow("raw") << "Data" << -1.0;
    QTest::newRow("unknown") << "Unknown" << -1.0;
    QTest::newRow("missing") << "Gone" << -1.0;
}

void tst_FeatureManagerValues::valueCrossesAsDouble()
{
    QFETCH(QString, name);
    QFETCH(double, value);
    QCOMPARE(exact(manager->GetValue(name)), exact(value));
}

void tst_FeatureManagerValues::valueThatCannotBeReadIsMinusOneButFalseForABoolean()
{
    for (const char* name : {"Count", "Delay", "Flag"})
        (*camera)[name].state().readable = false;
    QCOMPARE(manager->GetValue("Count"), -1.0);
    QCOMPARE(manager->GetValue("Delay"), -1.0);
    QCOMPARE(exact(manager->GetValue("Flag")), exact(0.0));
}

void tst_FeatureManagerValues::valueUsesTheAlternatives()
{
    QCOMPARE(manager->GetValue("Gone", "Count"), 42.0);
    QCOMPARE(manager->GetValue("Gone", "Too", "Count"), 42.0);
    QCOMPARE(manager->GetValue("Delay", "Count"), 2.5);
    QCOMPARE(manager->GetValue("Gone", "", "Count"), -1.0);
}

void tst_FeatureManagerValues::stringValueIsUnformatted_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("string") << "Family"
                            << "Two words";
    QTest::newRow("UTF-8") << "Micro" << QStringLiteral(u"\u00B5s");
    QTest::newRow("number as text") << "Number"
                                    << "1e3";
    QTest::newRow("enumeration") << "Mode"
                                 << "On";
    QTest::newRow("integer") << "Count"
                             << "";
    QTest::newRow("boolean") << "Flag"
                             << "";
    QTest::newRow("missing") << "Gone"
                             << "";
}

void tst_FeatureManagerValues::stringValueIsUnformatted()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QCOMPARE(manager->GetStringValue(name), value);
}

void tst_FeatureManagerValues::stringValueUsesOneAlternative()
{
    QCOMPARE(manager->GetStringValue("Gone", "Family"), QString("Two words"));
    QCOMPARE(manager->GetStringValue("Mode", "Family"), QString("On"));
    QCOMPARE(manager->GetStringValue("Gone", "Too"), QString());
    camera->failCall("GetStringValue", "Family");
    QCOMPARE(manager->GetStringValue("Gone", "Family"), QString());
}

void tst_FeatureManagerValues::onlyTheTypeFloatIsAFloatFeature()
{
    QVERIFY(manager->GetIsFloatFeature("Delay"));
    QVERIFY(manager->GetIsFloatFeature("Gone", "Delay"));
    QVERIFY(manager->GetIsFloatFeature("Gone", "Too", "Delay"));
    QVERIFY(!manager->GetIsFloatFeature("Gone", "", "Delay"));
    QVERIFY(!manager->GetIsFloatFeature("Count"));
    QVERIFY(!manager->GetIsFloatFeature("Number"));
    QVERIFY(!manager->GetIsFloatFeature("Gone"));
    camera->failCall("GetDataType", "Delay");
    QVERIFY(!manager->GetIsFloatFeature("Delay"));
}

void tst_FeatureManagerValues::incrementOfNumbersOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("increment");
    QTest::newRow("integer") << "Stepped" << 16.0;
    QTest::newRow("integer without one") << "NoStep" << -1.0;
    QTest::newRow("integer zero") << "ZeroStep" << 0.0;
    QTest::newRow("float") << "FloatStepped" << 0.5;
    QTest::newRow("float without one") << "FloatNoStep" << -1.0;
    QTest::newRow("boolean") << "Flag" << -1.0;
    QTest::newRow("enumeration") << "Mode" << -1.0;
    QTest::newRow("string") << "Family" << -1.0;
    QTest::newRow("missing") << "Gone" << -1.0;
}

void tst_FeatureManagerValues::incrementOfNumbersOnly()
{
    QFETCH(QString, name);
    QFETCH(double, increment);
    QCOMPARE(exact(manager->GetIncrement(name)), exact(increment));
    QCOMPARE(exact(manager->GetIncrement("Gone", name)), exact(increment));
}

void tst_FeatureManagerValues::rangeFamilyReportsValueLimitsAndStep_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("writable");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("inc");
    const auto row = [](const char* title, const char* name, double value, bool writable,
                        double min, double max, double inc) {
        QTest::newRow(title) << name << value << writable << min << max << inc;
    };
    row("max 1023 in steps of 16 is 1008", "Stepped", 32, true, 0, 1008, 16);
    row("multiple counts from zero, not min", "Unaligned", 13, true, 3, 15, 5);
    row("no integer step", "NoStep", 5, true, 0, 1023, 1);
    row("integer step of zero", "ZeroStep", 5, true, 0, 1023, 1);
    row("negative integer step", "NegativeStep", 5, true, 0, 1023, 1);
    row("negative integer max wraps", "NegativeMax", -32, true, -100, 16 * twoTo64, 16);
    row("unreadable range, step 4", "NoRangeStep4", 4, true, -1, 0, 4);
    row("unreadable range, step 1", "NoRangeStep1", 4, true, -1, twoTo64, 1);
    row("unreadable integer", "WriteOnly", -1, true, 0, 100, 1);
    row("read-only integer", "Fixed", 5, false, 0, 100, 1);
    row("64 bits", "Wide", -twoTo64 / 2, true, -twoTo64 / 2, twoTo64 / 2, 1);
    row("float step", "FloatStepped", 2.5, true, -1.5, 99.5, 0.5);
    row("no float step", "FloatNoStep", 2.5, true, 0, 99.9, 0.01);
    row("float step of zero", "FloatZeroStep", 2.5, true, 0, 99.9, 0.01);
    row("negative float step", "FloatNegativeStep", 2.5, true, 0, 99.9, 0.01);
    row("negative float max wraps", "FloatNegativeMax", -5, true, -10, twoTo64 / 2, 0.5);
    row("float max beyond 64 bits stays", "FloatHugeMax", 1, true, 0, 1e300, 0.5);
    row("unreadable float range", "FloatNoRange", 2.5, true, -1, -1, 0.01);
    row("unreadable float", "FloatWriteOnly", -1, true, 0, 10, 0.01);
    for (const char* name : {"Flag", "Mode", "Family", "Go", "Data", "Unknown"})
        row(qPrintable(QString("no number: %1").arg(name)), name, -1, false, -1, -1, -1);
}

void tst_FeatureManagerValues::rangeFamilyReportsValueLimitsAndStep()
{
    QFETCH(QString, name);
    QFETCH(double, value);
    QFETCH(bool, writable);
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, inc);
    double low = 7.0;
    double high = 7.0;
    double step = 7.0;
    bool canWrite = !writable;

    QCOMPARE(exact(manager->GetValueRange(name, &low, &high)), exact(value));
    QCOMPARE(exact(low), exact(min));
    QCOMPARE(exact(high), exact(max));

    low = high = 7.0;
    QCOMPARE(exact(manager->GetValueRangeIncrement(name, &low, &high, &step)), exact(value));
    QCOMPARE(exact(low), exact(min));
    QCOMPARE(exact(high), exact(max));
    QCOMPARE(exact(step), exact(inc));

    low = high = step = 7.0;
    QCOMPARE(exact(manager->GetValueIsWritableRangeIncrement(name, &canWrite, &low, &high, &step)),
             exact(value));
    QCOMPARE(canWrite, writable);
    QCOMPARE(exact(low), exact(min));
    QCOMPARE(exact(high), exact(max));
    QCOMPARE(exact(step), exact(inc));
}

void tst_FeatureManagerValues::writableIsFalseWhenItCannotBeRead()
{
    bool writable = true;
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    camera->failCall("IsWritable", "Stepped");
    QCOMPARE(manager->GetValueIsWritableRangeIncrement("Stepped", &writable, &min, &max, &inc),
             32.0);
    QVERIFY(!writable);
    QCOMPARE(max, 1008.0);
}

void tst_FeatureManagerValues::missingFeatureLeavesEveryOutputUntouched()
{
    for (bool writable : {true, false}) {
        const bool before = writable;
        double min = 1.5;
        double max = 2.5;
        double inc = 3.5;
        QCOMPARE(manager->GetValueRange("Gone", &min, &max), -1.0);
        QCOMPARE(manager->GetValueRangeIncrement("Gone", "Too", &min, &max, &inc), -1.0);
        QCOMPARE(manager->GetValueIsWritableRangeIncrement("Gone", "Too", "Also", &writable, &min,
                                                           &max, &inc),
                 -1.0);
        QCOMPARE(writable, before);
        QCOMPARE(min, 1.5);
        QCOMPARE(max, 2.5);
        QCOMPARE(inc, 3.5);
    }
}

void tst_FeatureManagerValues::rangeFamilyUsesTheAlternatives()
{
    bool writable = false;
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    const FeatureManager& m = *manager;
    QCOMPARE(m.GetValueRange("Gone", "Stepped", &min, &max), 32.0);
    QCOMPARE(m.GetValueRange("Gone", "Too", "Stepped", &min, &max), 32.0);
    QCOMPARE(m.GetValueRangeIncrement("Gone", "Stepped", &min, &max, &inc), 32.0);
    QCOMPARE(m.GetValueRangeIncrement("Gone", "Too", "Stepped", &min, &max, &inc), 32.0);
    QCOMPARE(m.GetValueIsWritableRangeIncrement("Gone", "Stepped", &writable, &min, &max, &inc),
             32.0);
    QCOMPARE(
        m.GetValueIsWritableRangeIncrement("Gone", "Too", "Stepped", &writable, &min, &max, &inc),
        32.0);
    QCOMPARE(m.GetValueRange("Gone", "", "Stepped", &min, &max), -1.0);
}

void tst_FeatureManagerValues::rangeFamilyAsksTheCameraInOrder()
{
    bool writable = false;
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    manager->GetValueIsWritableRangeIncrement("Stepped", &writable, &min, &max, &inc);
    QCOMPARE(callsAfterLookup(*camera),
             (QStringList{"IsWritable Stepped", "GetDataType Stepped", "GetIntegerValue Stepped",
                          "GetIntegerRange Stepped", "GetIntegerIncrement Stepped"}));
    camera->clearLog();
    manager->GetValueRangeIncrement("FloatStepped", &min, &max, &inc);
    QCOMPARE(callsAfterLookup(*camera),
             (QStringList{"GetDataType FloatStepped", "GetFloatValue FloatStepped",
                          "GetFloatRange FloatStepped", "GetFloatIncrement FloatStepped"}));
}

void tst_FeatureManagerValues::rangeIsReadWithItsIncrementThoughItIsNotReported()
{
    double min = 0.0;
    double max = 0.0;
    manager->GetValueRange("FloatStepped", &min, &max);
    QCOMPARE(camera->callCount("GetFloatIncrement", "FloatStepped"), 1);
    QCOMPARE(camera->callCount("IsWritable", "FloatStepped"), 0);
    camera->failCall("GetFloatIncrement", "FloatStepped");
    manager->GetValueRange("FloatStepped", &min, &max);
    QCOMPARE(max, 99.9);
}

void tst_FeatureManagerValues::otherTypesAreNotAskedForLimits()
{
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    manager->GetValueRangeIncrement("Mode", &min, &max, &inc);
    QCOMPARE(callsAfterLookup(*camera), QStringList{"GetDataType Mode"});
}

void tst_FeatureManagerValues::readsWriteNothing()
{
    bool writable = false;
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    for (const QString& name : manager->GetFeaturesList()) {
        manager->GetValue(name);
        manager->GetStringValue(name);
        manager->GetIncrement(name);
        manager->GetWritableEnumValue(name);
        manager->GetValueIsWritableRangeIncrement(name, &writable, &min, &max, &inc);
    }
    QVERIFY(!camera->calls().empty());
    QVERIFY(camera->writes().empty());
}

void tst_FeatureManagerValues::missingFeaturesAndFailedReadsAreNotLogged()
{
    bool writable = false;
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    const LogCapture log;
    for (const char* name : {"Gone", "WriteOnly", "NoStep", "NoRangeStep1", "FloatNoRange"}) {
        manager->GetValue(name);
        manager->GetStringValue(name);
        manager->GetIncrement(name);
        manager->GetIsFloatFeature(name);
        manager->GetWritableEnumValue(name);
        manager->GetValueRange(name, &min, &max);
        manager->GetValueRangeIncrement(name, &min, &max, &inc);
        manager->GetValueIsWritableRangeIncrement(name, &writable, &min, &max, &inc);
    }
    QCOMPARE(log.lines(), QStringList());
}

QTEST_APPLESS_MAIN(tst_FeatureManagerValues)

#include "tst_FeatureManagerValues.moc"
