// One feature of the scripted camera: what it reads, which writes it takes, what selects its
// values.
#include "tests/support/FakeCamera.h"
#include "tests/support/Rows.h"

#include <QtTest>

#include <limits>

using Fake::FakeCamera;
using Fake::FakeFeature;

class tst_FakeFeature : public QObject
{
    Q_OBJECT

private slots:
    void textsAreReadWithTheTwoCallPattern();
    void bufferThatIsTooSmallIsRefused();
    void readsOfAnotherTypeAreRefused();
    void writesAreCheckedAndLeaveTheStateAloneWhenRefused_data();
    void writesAreCheckedAndLeaveTheStateAloneWhenRefused();
    void eachSelectorEntryHasItsOwnState();
    void integerSelectorSelectsByIndex();
    void featureMissingForTheSelectedEntryFailsItsNameRead();
    void writeHookMayChangeOtherFeatures();
    void commandsRunTheirHook();
};

void tst_FakeFeature::textsAreReadWithTheTwoCallPattern()
{
    FakeCamera camera;
    const auto feature = camera.addString("Name", "abc");
    std::uint32_t count = 99;
    QCOMPARE(feature->GetStringValue(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 4U);
    char buffer[8] = "xxxxxxx";
    count = sizeof buffer;
    QCOMPARE(feature->GetStringValue(buffer, count), ZalErrorSuccess);
    QCOMPARE(count, 4U);
    QCOMPARE(QByteArray(buffer), QByteArray("abc"));
}

void tst_FakeFeature::bufferThatIsTooSmallIsRefused()
{
    FakeCamera camera;
    const auto feature = camera.addString("Name", "abc");
    char buffer[3] = "xy";
    std::uint32_t count = sizeof buffer;
    QCOMPARE(feature->GetStringValue(buffer, count), ZalErrorBufferTooSmall);
    QCOMPARE(QByteArray(buffer), QByteArray("xy"));
}

void tst_FakeFeature::readsOfAnotherTypeAreRefused()
{
    FakeCamera camera;
    const auto feature = camera.addFloat("Delay", 2.5);
    long long integer = 7;
    bool flag = true;
    std::uint32_t count = 0;
    QCOMPARE(feature->GetIntegerValue(integer), ZalErrorWrongType);
    QCOMPARE(feature->GetBoolValue(flag), ZalErrorWrongType);
    QCOMPARE(feature->GetStringValue(nullptr, count), ZalErrorWrongType);
    QCOMPARE(feature->GetIntegerIncrement(integer), ZalErrorWrongType);
    QCOMPARE(feature->GetEnumNames(nullptr, count), ZalErrorWrongType);
    QCOMPARE(feature->RunCommand(), ZalErrorWrongType);
    QCOMPARE(integer, 7LL);
}

void tst_FakeFeature::writesAreCheckedAndLeaveTheStateAloneWhenRefused_data()
{
    columns<QString, double, QString, int>("feature", "number", "text", "status");
    row("integer below", "Count", 9.0, "", ZalErrorOutOfRange);
    row("integer above", "Count", 111.0, "", ZalErrorOutOfRange);
    row("integer between steps", "Count", 21.0, "", ZalErrorOutOfRange);
    row("float above", "Delay", 10.5, "", ZalErrorOutOfRange);
    row("float between steps", "Delay", 0.3, "", ZalErrorOutOfRange);
    row("float not a number", "Delay", std::numeric_limits<double>::quiet_NaN(), "",
        ZalErrorOutOfRange);
    row("unknown entry", "Mode", 0.0, "Maybe", ZalErrorBadParameter);
    row("unavailable entry", "Mode", 0.0, "On", ZalErrorBadParameter);
    row("read-only", "Fixed", 5.0, "", ZalErrorNotWritable);
    row("other type", "Mode", 1.0, "", ZalErrorWrongType);
}

void tst_FakeFeature::writesAreCheckedAndLeaveTheStateAloneWhenRefused()
{
    QFETCH(QString, feature);
    QFETCH(double, number);
    QFETCH(QString, text);
    QFETCH(int, status);
    FakeCamera camera;
    camera.addInteger("Count", 10, 10, 110, 4);
    camera.addFloat("Delay", 1.0, 0.0, 10.0)->state().incrementReal = 0.25;
    camera.addEnum("Mode", {"Off", "On"}, "Off")->state().entries[1].available = false;
    camera.addInteger("Fixed", 3)->state().writable = false;
    FakeFeature& target = camera[feature.toStdString()];
    bool hookRan = false;
    target.onWrite = [&](FakeFeature&) { hookRan = true; };

    const ZalErrorType actual = !text.isEmpty() ? target.SetStringValue(text.toUtf8().constData())
                                : target.type == ZalFeatureFloat
                                    ? target.SetFloatValue(number)
                                    : target.SetIntegerValue(static_cast<long long>(number));

    QCOMPARE(actual, status);
    QVERIFY(!hookRan);
    QCOMPARE(camera["Count"].state().integer, 10LL);
    QCOMPARE(camera["Delay"].state().real, 1.0);
    QCOMPARE(camera["Mode"].state().text, std::string("Off"));
    QCOMPARE(camera["Fixed"].state().integer, 3LL);
}

void tst_FakeFeature::eachSelectorEntryHasItsOwnState()
{
    FakeCamera camera;
    camera.addEnum("Selector", {"A", "B"}, "A");
    camera.addFloat("Value", 1.0);
    camera.select("Selector", {"Value"});
    QCOMPARE(camera["Value"].SetFloatValue(5.0), ZalErrorSuccess);
    QCOMPARE(camera["Selector"].SetStringValue("B"), ZalErrorSuccess);
    QCOMPARE(camera["Value"].state().real, 1.0);
    QCOMPARE(camera["Value"].stateFor("A").real, 5.0);
    std::uint32_t count = 0;
    QCOMPARE(camera["Selector"].GetSelectedFeatures(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 1U);
}

void tst_FakeFeature::integerSelectorSelectsByIndex()
{
    FakeCamera camera;
    camera.addInteger("Selector", 0, 0, 1);
    camera.addInteger("Key", 1);
    camera.select("Selector", {"Key"});
    camera["Key"].stateFor("1").integer = 9;
    QCOMPARE(camera["Key"].state().integer, 1LL);
    QCOMPARE(camera["Selector"].SetIntegerValue(1), ZalErrorSuccess);
    QCOMPARE(camera["Key"].state().integer, 9LL);
}

void tst_FakeFeature::featureMissingForTheSelectedEntryFailsItsNameRead()
{
    const auto camera = FakeCamera::standard();
    FakeFeature& source = (*camera)["LineSource"];
    source.stateFor("Line1").implemented = false;
    std::uint32_t count = 0;
    QCOMPARE(source.GetName(nullptr, count), ZalErrorSuccess);
    QCOMPARE((*camera)["LineSelector"].SetStringValue("Line1"), ZalErrorSuccess);
    QCOMPARE(source.GetName(nullptr, count), ZalErrorNotAvailable);
    bool readable = true;
    QCOMPARE(source.IsReadable(readable), ZalErrorSuccess);
    QVERIFY(!readable);
}

void tst_FakeFeature::writeHookMayChangeOtherFeatures()
{
    FakeCamera camera;
    const auto mode = camera.addEnum("Mode", {"Off", "On"}, "Off");
    const auto delay = camera.addFloat("Delay", 0.0);
    mode->onWrite = [&](FakeFeature& written) {
        delay->state().writable = written.state().text == "On";
        QCOMPARE(camera.writes().size(), std::size_t(1));
    };
    delay->state().writable = false;
    QCOMPARE(mode->SetStringValue("On"), ZalErrorSuccess);
    QVERIFY(delay->state().writable);
}

void tst_FakeFeature::commandsRunTheirHook()
{
    FakeCamera camera;
    const auto command = camera.addCommand("Go");
    int runs = 0;
    command->onRun = [&] { ++runs; };
    QCOMPARE(command->RunCommand(), ZalErrorSuccess);
    command->state().writable = false;
    QCOMPARE(command->RunCommand(), ZalErrorNotWritable);
    QCOMPARE(runs, 1);
}

QTEST_APPLESS_MAIN(tst_FakeFeature)

#include "tst_FakeFeature.moc"
