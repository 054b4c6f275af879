// The checked write of one feature, and an ordinary plan; awkward presets have tests of their own.
#include "features/FeatureManager.h"
#include "tests/features/FeatureTestSupport.h"
#include "tests/trigger/CameraWrites.h"
#include "trigger/PresetRunner.h"

#include <QTest>

class tst_PresetRunner : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void takenValueReportsNothing_data();
    void takenValueReportsNothing();
    void untouchableFeatureIsSkipped_data();
    void untouchableFeatureIsSkipped();
    void refusedValueIsReported_data();
    void refusedValueIsReported();
    void valueAboveTheMaximumWritesTheMaximumAndReportsNothing();
    void adjustedValueIsReportedAsItWasAsked();
    void truncatedIntegerIsReported();
    void numbersCompareAsVariantsDo();
    void maximumIsTheLargestMultipleOfTheIncrement();
    void placeholdersInTheValueAreNotFilled();

    void planIsDoneInItsOrder();
    void failedStepStopsItsDependentsOnly();

private:
    QString set(const QString& feature, const QVariant& value);

    std::unique_ptr<Fake::FakeCamera> m_camera;
    std::unique_ptr<FeatureManager> m_features;
};

void tst_PresetRunner::init()
{
    m_camera = std::make_unique<Fake::FakeCamera>();
    m_camera->addInteger("Number", 5, -10, 1000);
    m_camera->addFloat("Real", 5.0, -10.0, 1000.0);
    m_camera->addBool("Flag", false);
    m_camera->addEnum("Mode", {"Off", "On", "<max>"}, "Off");
    m_camera->addString("Name", "camera");
    m_camera->addCommand("Run");
    m_features = std::make_unique<FeatureManager>(FeatureTest::wrap(*m_camera));
}

void tst_PresetRunner::cleanup()
{
    m_features.reset();
    m_camera.reset();
}

QString tst_PresetRunner::set(const QString& feature, const QVariant& value)
{
    return PresetRunner(*m_features).SetFeatureValue(feature, value);
}

void tst_PresetRunner::takenValueReportsNothing_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("write");
    const auto row = [](const char* name, const char* feature, const QVariant& value,
                        const char* write) { QTest::newRow(name) << feature << value << write; };
    row("boolean", "Flag", true, "SetBoolValue Flag=true");
    row("boolean false", "Flag", false, "SetBoolValue Flag=false");
    row("boolean from text", "Flag", QString("true"), "SetBoolValue Flag=true");
    row("boolean from false text", "Flag", QString("false"), "SetBoolValue Flag=false");
    row("boolean from number", "Flag", 7, "SetBoolValue Flag=true");
    row("integer", "Number", 12, "SetIntegerValue Number=12");
    row("integer from text", "Number", QString("12"), "SetIntegerValue Number=12");
    row("integer below", "Number", -1e9, "SetIntegerValue Number=-10");
    row("integer maximum", "Number", QString("<max>"), "SetIntegerValue Number=1000");
    row("integer minimum", "Number", QString("<min>"), "SetIntegerValue Number=-10");
    row("integer from other text", "Number", QString("x"), "SetIntegerValue Number=0");
    row("float", "Real", 0.5, "SetFloatValue Real=0.5");
    row("float from text", "Real", QString("0.5"), "SetFloatValue Real=0.5");
    row("float above", "Real", 1e9, "SetFloatValue Real=1000");
    row("float maximum", "Real", QString("<max>"), "SetFloatValue Real=1000");
    row("float minimum", "Real", QString("<min>"), "SetFloatValue Real=-10");
    row("enumeration", "Mode", QString("On"), "SetStringValue Mode=On");
    row("enumeration knows no maximum", "Mode", QString("<max>"), "SetStringValue Mode=<max>");
    row("text", "Name", QString("other"), "SetStringValue Name=other");
    row("text from number", "Name", 12, "SetStringValue Name=12");
}

void tst_PresetRunner::takenValueReportsNothing()
{
    QFETCH(QString, feature);
    QFETCH(QVariant, value);
    QFETCH(QString, write);
    QCOMPARE(set(feature, value), QString());
    QCOMPARE(writesOf(*m_camera), QStringList(write));
}

void tst_PresetRunner::untouchableFeatureIsSkipped_data()
{
    QTest::addColumn<QString>("feature");
    QTest::newRow("unknown") << "NoSuchFeature";
    QTest::newRow("read-only number") << "Number";
    QTest::newRow("read-only enumeration") << "Mode";
}

void tst_PresetRunner::untouchableFeatureIsSkipped()
{
    QFETCH(QString, feature);
    if (const auto known = m_camera->find(feature.toStdString()))
        known->state().writable = false;
    QCOMPARE(set(feature, "12"), QString());
    QCOMPARE(writesOf(*m_camera), QStringList());
}

void tst_PresetRunner::refusedValueIsReported_data()
{
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("line");
    const auto row = [](const char* name, const char* feature, const QVariant& value,
                        const char* line) { QTest::newRow(name) << feature << value << line; };
    row("boolean", "Flag", true, "  Failed to set Flag = true, Current value: '0'\n");
    row("integer", "Number", 12, "  Failed to set Number = 12, Current value: '5'\n");
    row("float", "Real", 0.5, "  Failed to set Real = 0.5, Current value: '5'\n");
    row("maximum", "Real", "<max>", "  Failed to set Real = <max>, Current value: '5'\n");
    row("enumeration", "Mode", "On", "  Failed to set Mode = On, Current value: 'Off'\n");
    row("text", "Name", "x", "  Failed to set Name = x, Current value: 'camera'\n");
    row("command", "Run", "1", "  Failed to set Run = 1, Current value: ''\n");
}

void tst_PresetRunner::refusedValueIsReported()
{
    QFETCH(QString, feature);
    QFETCH(QVariant, value);
    for (const char* operation :
         {"SetBoolValue", "SetIntegerValue", "SetFloatValue", "SetStringValue"})
        m_camera->failCall(operation, feature.toStdString());
    QTEST(set(feature, value), "line");
}

void tst_PresetRunner::valueAboveTheMaximumWritesTheMaximumAndReportsNothing()
{
    QCOMPARE(set("Number", 1e9), QString());
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=1000"));
}

void tst_PresetRunner::adjustedValueIsReportedAsItWasAsked()
{
    m_camera->find("Number")->onWrite = [](Fake::FakeFeature& it) { it.state().integer = 999; };
    // Asked for, not clamped, in the line; clamped in the comparison.
    QCOMPARE(set("Number", "1e9"), QString("  Failed to set Number = 1e9, Current value: '999'\n"));
}

void tst_PresetRunner::truncatedIntegerIsReported()
{
    QCOMPARE(set("Number", 7.9), QString("  Failed to set Number = 7.9, Current value: '7'\n"));
}

void tst_PresetRunner::numbersCompareAsVariantsDo()
{
    // Equal up to the last digits, which cameras with their own number formats lose.
    m_camera->find("Real")->onWrite = [](Fake::FakeFeature& it) { it.state().real += 1e-14; };
    QCOMPARE(set("Real", 0.3), QString());
    m_camera->find("Real")->onWrite = [](Fake::FakeFeature& it) { it.state().real += 1e-6; };
    QVERIFY(!set("Real", 0.3).isEmpty());
}

void tst_PresetRunner::maximumIsTheLargestMultipleOfTheIncrement()
{
    m_camera->find("Number")->state().maxInteger = 1023;
    m_camera->find("Number")->state().minInteger = 0;
    m_camera->find("Number")->state().incrementInteger = 16;
    QCOMPARE(set("Number", "<max>"), QString());
    QCOMPARE(writesOf(*m_camera), QStringList("SetIntegerValue Number=1008"));
}

void tst_PresetRunner::placeholdersInTheValueAreNotFilled()
{
    QCOMPARE(set("Mode", "%3%1"), QString("  Failed to set Mode = %3%1, Current value: 'Off'\n"));
}

static PresetFile::Step step(const QString& feature, const QString& value,
                             const QVariantMap& dependents = {})
{
    PresetFile::Step step;
    step.feature = feature;
    step.value = value;
    step.dependents = dependents;
    return step;
}

void tst_PresetRunner::planIsDoneInItsOrder()
{
    PresetRunner runner(*m_features);
    const QVariantMap dependents = {{"Real", 0.5}, {"Name", "other"}};
    QCOMPARE(runner.run({{step("Mode", "On", dependents), step("Flag", "true")}, "Run"}),
             QString());
    QCOMPARE(writesOf(*m_camera),
             (QStringList{"SetStringValue Mode=On", "SetStringValue Name=other",
                          "SetFloatValue Real=0.5", "SetBoolValue Flag=true", "RunCommand Run"}));
    QVERIFY(!runner.leftSelectorAstray());
}

void tst_PresetRunner::failedStepStopsItsDependentsOnly()
{
    m_camera->failCall("SetStringValue", "Mode");
    m_camera->failCall("RunCommand", "Run");
    PresetRunner runner(*m_features);
    QCOMPARE(runner.run({{step("Mode", "On", {{"Real", 0.5}}), step("Number", "12")}, "Run"}),
             QString("  Failed to set Mode = On, Current value: 'Off'\n"
                     "  Executing 'Run' failed."));
    QCOMPARE(m_camera->find("Number")->state().integer, 12);
    QCOMPARE(m_camera->callCount("SetFloatValue", "Real"), 0);
}

QTEST_MAIN(tst_PresetRunner)
#include "tst_PresetRunner.moc"
