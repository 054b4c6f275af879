// FeatureManager: reading values and limits.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <climits>

using Fake::FakeCamera;
using FeatureTest::callsAfterLookup;
using FeatureTest::exact;

namespace {

constexpr double TwoTo64 = 18446744073709551616.0;

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
    std::unique_ptr<FakeCamera> m_camera;
    std::unique_ptr<FeatureManager> m_manager;
};

void tst_FeatureManagerValues::init()
{
    m_camera = FeatureTest::mixedCamera();
    addIntegersWithLimits(*m_camera);
    addFloatsWithLimits(*m_camera);
    m_camera->addBool("Clear", false);
    m_camera->addString("Micro", "\xC2\xB5s");
    m_camera->addString("Number", "1e3");
    m_camera->add("Unknown", ZalFeatureUnknown);
    m_manager = std::make_unique<FeatureManager>(FeatureTest::wrap(*m_camera));
}

void tst_FeatureManagerValues::valueCrossesAsDouble_data()
{
    columns<QString, double>("name", "value");
    row("integer", "Count", 42.0);
    row("smallest integer", "Wide", -9223372036854775808.0);
    row("float", "Delay", 2.5);
    row("boolean true", "Flag", 1.0);
    row("boolean false", "Clear", 0.0);
    row("enumeration", "Mode", -1.0);
    row("string", "Number", -1.0);
    row("command", "Go", -1.0);
    row("raw", "Data", -1.0);
    row("unknown", "Unknown", -1.0);
    row("missing", "Gone", -1.0);
}

void tst_FeatureManagerValues::valueCrossesAsDouble()
{
    QFETCH(QString, name);
    QFETCH(double, value);
    QCOMPARE(exact(m_manager->GetValue(name)), exact(value));
}

void tst_FeatureManagerValues::valueThatCannotBeReadIsMinusOneButFalseForABoolean()
{
    for (const char* name : {"Count", "Delay", "Flag"})
        (*m_camera)[name].state().readable = false;
    QCOMPARE(m_manager->GetValue("Count"), -1.0);
    QCOMPARE(m_manager->GetValue("Delay"), -1.0);
    QCOMPARE(exact(m_manager->GetValue("Flag")), exact(0.0));
}

void tst_FeatureManagerValues::valueUsesTheAlternatives()
{
    QCOMPARE(m_manager->GetValue("Gone", "Count"), 42.0);
    QCOMPARE(m_manager->GetValue("Gone", "Too", "Count"), 42.0);
    QCOMPARE(m_manager->GetValue("Delay", "Count"), 2.5);
    QCOMPARE(m_manager->GetValue("Gone", "", "Count"), -1.0);
}

void tst_FeatureManagerValues::stringValueIsUnformatted_data()
{
    columns<QString, QString>("name", "value");
    row("string", "Family", "Two words");
    row("UTF-8", "Micro", QStringLiteral(u"\u00B5s"));
    row("number as text", "Number", "1e3");
    row("enumeration", "Mode", "On");
    row("integer", "Count", "");
    row("boolean", "Flag", "");
    row("missing", "Gone", "");
}

void tst_FeatureManagerValues::stringValueIsUnformatted()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QCOMPARE(m_manager->GetStringValue(name), value);
}

void tst_FeatureManagerValues::stringValueUsesOneAlternative()
{
    QCOMPARE(m_manager->GetStringValue("Gone", "Family"), QString("Two words"));
    QCOMPARE(m_manager->GetStringValue("Mode", "Family"), QString("On"));
    QCOMPARE(m_manager->GetStringValue("Gone", "Too"), QString());
    m_camera->failCall("GetStringValue", "Family");
    QCOMPARE(m_manager->GetStringValue("Gone", "Family"), QString());
}

void tst_FeatureManagerValues::onlyTheTypeFloatIsAFloatFeature()
{
    QVERIFY(m_manager->GetIsFloatFeature("Delay"));
    QVERIFY(m_manager->GetIsFloatFeature("Gone", "Delay"));
    QVERIFY(m_manager->GetIsFloatFeature("Gone", "Too", "Delay"));
    QVERIFY(!m_manager->GetIsFloatFeature("Gone", "", "Delay"));
    QVERIFY(!m_manager->GetIsFloatFeature("Count"));
    QVERIFY(!m_manager->GetIsFloatFeature("Number"));
    QVERIFY(!m_manager->GetIsFloatFeature("Gone"));
    m_camera->failCall("GetDataType", "Delay");
    QVERIFY(!m_manager->GetIsFloatFeature("Delay"));
}

void tst_FeatureManagerValues::incrementOfNumbersOnly_data()
{
    columns<QString, double>("name", "increment");
    row("integer", "Stepped", 16.0);
    row("integer without one", "NoStep", -1.0);
    row("integer zero", "ZeroStep", 0.0);
    row("float", "FloatStepped", 0.5);
    row("float without one", "FloatNoStep", -1.0);
    row("boolean", "Flag", -1.0);
    row("enumeration", "Mode", -1.0);
    row("string", "Family", -1.0);
    row("missing", "Gone", -1.0);
}

void tst_FeatureManagerValues::incrementOfNumbersOnly()
{
    QFETCH(QString, name);
    QFETCH(double, increment);
    QCOMPARE(exact(m_manager->GetIncrement(name)), exact(increment));
    QCOMPARE(exact(m_manager->GetIncrement("Gone", name)), exact(increment));
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
    row("negative integer max wraps", "NegativeMax", -32, true, -100, 16 * TwoTo64, 16);
    row("unreadable range, step 4", "NoRangeStep4", 4, true, -1, 0, 4);
    row("unreadable range, step 1", "NoRangeStep1", 4, true, -1, TwoTo64, 1);
    row("unreadable integer", "WriteOnly", -1, true, 0, 100, 1);
    row("read-only integer", "Fixed", 5, false, 0, 100, 1);
    row("64 bits", "Wide", -TwoTo64 / 2, true, -TwoTo64 / 2, TwoTo64 / 2, 1);
    row("float step", "FloatStepped", 2.5, true, -1.5, 99.5, 0.5);
    row("no float step", "FloatNoStep", 2.5, true, 0, 99.9, 0.01);
    row("float step of zero", "FloatZeroStep", 2.5, true, 0, 99.9, 0.01);
    row("negative float step", "FloatNegativeStep", 2.5, true, 0, 99.9, 0.01);
    row("negative float max wraps", "FloatNegativeMax", -5, true, -10, TwoTo64 / 2, 0.5);
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

    QCOMPARE(exact(m_manager->GetValueRange(name, &low, &high)), exact(value));
    QCOMPARE(exact(low), exact(min));
    QCOMPARE(exact(high), exact(max));

    low = high = 7.0;
    QCOMPARE(exact(m_manager->GetValueRangeIncrement(name, &low, &high, &step)), exact(value));
    QCOMPARE(exact(low), exact(min));
    QCOMPARE(exact(high), exact(max));
    QCOMPARE(exact(step), exact(inc));

    low = high = step = 7.0;
    QCOMPARE(
        exact(m_manager->GetValueIsWritableRangeIncrement(name, &canWrite, &low, &high, &step)),
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
    m_camera->failCall("IsWritable", "Stepped");
    QCOMPARE(m_manager->GetValueIsWritableRangeIncrement("Stepped", &writable, &min, &max, &inc),
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
        QCOMPARE(m_manager->GetValueRange("Gone", &min, &max), -1.0);
        QCOMPARE(m_manager->GetValueRangeIncrement("Gone", "Too", &min, &max, &inc), -1.0);
        QCOMPARE(m_manager->GetValueIsWritableRangeIncrement("Gone", "Too", "Also", &writable, &min,
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
    const FeatureManager& m = *m_manager;
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
    m_manager->GetValueIsWritableRangeIncrement("Stepped", &writable, &min, &max, &inc);
    QCOMPARE(callsAfterLookup(*m_camera),
             (QStringList{"IsWritable Stepped", "GetDataType Stepped", "GetIntegerValue Stepped",
                          "GetIntegerRange Stepped", "GetIntegerIncrement Stepped"}));
    m_camera->clearLog();
    m_manager->GetValueRangeIncrement("FloatStepped", &min, &max, &inc);
    QCOMPARE(callsAfterLookup(*m_camera),
             (QStringList{"GetDataType FloatStepped", "GetFloatValue FloatStepped",
                          "GetFloatRange FloatStepped", "GetFloatIncrement FloatStepped"}));
}

void tst_FeatureManagerValues::rangeIsReadWithItsIncrementThoughItIsNotReported()
{
    double min = 0.0;
    double max = 0.0;
    m_manager->GetValueRange("FloatStepped", &min, &max);
    QCOMPARE(m_camera->callCount("GetFloatIncrement", "FloatStepped"), 1);
    QCOMPARE(m_camera->callCount("IsWritable", "FloatStepped"), 0);
    m_camera->failCall("GetFloatIncrement", "FloatStepped");
    m_manager->GetValueRange("FloatStepped", &min, &max);
    QCOMPARE(max, 99.9);
}

void tst_FeatureManagerValues::otherTypesAreNotAskedForLimits()
{
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    m_manager->GetValueRangeIncrement("Mode", &min, &max, &inc);
    QCOMPARE(callsAfterLookup(*m_camera), QStringList{"GetDataType Mode"});
}

void tst_FeatureManagerValues::readsWriteNothing()
{
    bool writable = false;
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    for (const QString& name : m_manager->GetFeaturesList()) {
        m_manager->GetValue(name);
        m_manager->GetStringValue(name);
        m_manager->GetIncrement(name);
        m_manager->GetWritableEnumValue(name);
        m_manager->GetValueIsWritableRangeIncrement(name, &writable, &min, &max, &inc);
    }
    QVERIFY(!m_camera->calls().empty());
    QVERIFY(m_camera->writes().empty());
}

void tst_FeatureManagerValues::missingFeaturesAndFailedReadsAreNotLogged()
{
    bool writable = false;
    double min = 0.0;
    double max = 0.0;
    double inc = 0.0;
    const LogCapture log;
    for (const char* name : {"Gone", "WriteOnly", "NoStep", "NoRangeStep1", "FloatNoRange"}) {
        m_manager->GetValue(name);
        m_manager->GetStringValue(name);
        m_manager->GetIncrement(name);
        m_manager->GetIsFloatFeature(name);
        m_manager->GetWritableEnumValue(name);
        m_manager->GetValueRange(name, &min, &max);
        m_manager->GetValueRangeIncrement(name, &min, &max, &inc);
        m_manager->GetValueIsWritableRangeIncrement(name, &writable, &min, &max, &inc);
    }
    QCOMPARE(log.lines(), QStringList());
}

QTEST_APPLESS_MAIN(tst_FeatureManagerValues)

#include "tst_FeatureManagerValues.moc"
