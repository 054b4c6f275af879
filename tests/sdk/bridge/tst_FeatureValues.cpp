// Reading and writing values through the bridge: every type, limits, increments, entries, commands.
#include "tests/sdk/bridge/OnNastyCamera.h"

#include <limits>

using namespace BridgeTest;

namespace {

constexpr auto MinInt = std::numeric_limits<long long>::min();
constexpr auto MaxInt = std::numeric_limits<long long>::max();
constexpr auto MaxFloat = std::numeric_limits<double>::max();

} // namespace

class tst_FeatureValues : public QObject, protected OnNastyCamera
{
    Q_OBJECT

private slots:
    void initTestCase() { serve(); }
    void init() { openAnew(); }
    void cleanup() { m_camera.reset(); }
    void cleanupTestCase() { endServing(); }

    void integerReachesTheCameraAndBack();
    void integerOutsideItsRangeIsRefused_data();
    void integerOutsideItsRangeIsRefused();
    void integerLimits_data();
    void integerLimits();
    void limitsFollowTheFeaturesTheyPointTo();
    void hugeIntegersKeepAllTheirBits_data();
    void hugeIntegersKeepAllTheirBits();
    void maskedIntegerLeavesTheOtherBitsAlone();
    void integerIncrement_data();
    void integerIncrement();
    void floatReachesTheCameraAndBackWithAllItsDigits();
    void floatOutsideItsRangeIsRefused();
    void floatLimits_data();
    void floatLimits();
    void floatIncrement_data();
    void floatIncrement();
    void converterAppliesItsFormulas();
    void formulasFollowTheirVariables();
    void boolUsesItsOwnOnValue();
    void textReachesTheCameraAndBack();
    void textOfLengthZeroNeedsRoomForItsTerminatorOnly_data();
    void textOfLengthZeroNeedsRoomForItsTerminatorOnly();
    void unusableTextIsRefused();
    void entryIsWrittenAndReadByName();
    void unknownEntryIsNotFound();
    void registerValueWithoutEntryIsNotFound();
    void rawReachesTheCameraAndBack();
    void rawOfAnotherLengthIsRefused_data();
    void rawOfAnotherLengthIsRefused();
    void commandWritesItsValue();
    void commandIsDoneWhenTheRegisterNoLongerHoldsItsValue();
    void writeOnlyCommandCountsAsDone();
    void selectorOfASelectorPicksTheRegister();
    void indexedRegisterFollowsItsSelector();
    void validValueSetIsEmpty();

private:
    std::vector<unsigned char> raw() const;
};

std::vector<unsigned char> tst_FeatureValues::raw() const
{
    return elements<unsigned char>([this](unsigned char* buffer, std::uint32_t& count) {
        return find("Blob")->GetRawValue(buffer, count);
    });
}

void tst_FeatureValues::integerReachesTheCameraAndBack()
{
    QCOMPARE(find("Plain")->SetIntegerValue(123), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4000), 123U);
    m_server->setReg(0x4000, 77);
    QCOMPARE(integer(find("Plain")), 77LL);
}

void tst_FeatureValues::integerOutsideItsRangeIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<long long>("value");
    QTest::newRow("above") << "Plain" << 1001LL;
    QTest::newRow("below") << "Plain" << -1LL;
    QTest::newRow("between two steps") << "Stepped" << 7LL;
    QTest::newRow("a multiple of the step, but not from the minimum") << "Stepped" << 8LL;
    QTest::newRow("below a stepped minimum") << "Stepped" << -2LL;
    QTest::newRow("more than the mask holds") << "Masked" << 256LL;
}

void tst_FeatureValues::integerOutsideItsRangeIsRefused()
{
    QFETCH(QString, name);
    QFETCH(long long, value);
    const auto writes = m_camera->Counts().writes;
    QCOMPARE(find(name.toStdString())->SetIntegerValue(value), ZalErrorOutOfRange);
    QCOMPARE(m_camera->Counts().writes, writes);
}

void tst_FeatureValues::integerLimits_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<long long>("min");
    QTest::addColumn<long long>("max");
    QTest::newRow("given") << "Plain" << 0LL << 1000LL;
    QTest::newRow("64 bit") << "Huge" << MinInt << MaxInt;
    QTest::newRow("of the mask") << "Masked" << 0LL << 255LL;
    QTest::newRow("of the register") << "Lock" << 0LL << 4294967295LL;
    QTest::newRow("hexadecimal text") << "Hexadecimal" << 0LL << 4294967295LL;
    QTest::newRow("not given") << "Constant" << MinInt << MaxInt;
    QTest::newRow("of a formula") << "Doubled" << MinInt << MaxInt;
}

void tst_FeatureValues::integerLimits()
{
    QFETCH(QString, name);
    long long min = 1;
    long long max = 1;
    QCOMPARE(find(name.toStdString())->GetIntegerRange(min, max), ZalErrorSuccess);
    QTEST(min, "min");
    QTEST(max, "max");
}

void tst_FeatureValues::limitsFollowTheFeaturesTheyPointTo()
{
    QCOMPARE(find("LimitLow")->SetIntegerValue(-10), ZalErrorSuccess);
    QCOMPARE(find("LimitHigh")->SetIntegerValue(50), ZalErrorSuccess);
    QCOMPARE(find("LimitStep")->SetIntegerValue(5), ZalErrorSuccess);
    long long min = 0;
    long long max = 0;
    QCOMPARE(find("Limited")->GetIntegerRange(min, max), ZalErrorSuccess);
    QCOMPARE(min, -10LL);
    QCOMPARE(max, 50LL);
    QCOMPARE(ask<long long>(find("Limited"), &Feature::GetIntegerIncrement, -1), 5LL);
    QCOMPARE(find("Limited")->SetIntegerValue(-5), ZalErrorSuccess);
    QCOMPARE(find("Limited")->SetIntegerValue(51), ZalErrorOutOfRange);
    QCOMPARE(find("Limited")->SetIntegerValue(-4), ZalErrorOutOfRange);
    QCOMPARE(integer(find("Limited")), -5LL);
}

void tst_FeatureValues::hugeIntegersKeepAllTheirBits_data()
{
    QTest::addColumn<long long>("value");
    QTest::newRow("smallest") << MinInt;
    QTest::newRow("largest") << MaxInt;
    QTest::newRow("beyond what a double holds") << 9007199254740993LL;
}

void tst_FeatureValues::hugeIntegersKeepAllTheirBits()
{
    QFETCH(long long, value);
    QCOMPARE(find("Huge")->SetIntegerValue(value), ZalErrorSuccess);
    QCOMPARE(integer(find("Huge")), value);
}

void tst_FeatureValues::maskedIntegerLeavesTheOtherBitsAlone()
{
    m_server->setReg(0x4024, 0xffffffff);
    QCOMPARE(find("Masked")->SetIntegerValue(0x12), ZalErrorSuccess);
    QCOMPARE(integer(find("Masked")), 0x12LL);
    const auto changed = m_server->reg(0x4024) ^ 0xffffffff;
    QCOMPARE(qPopulationCount(changed), 6U);
}

void tst_FeatureValues::integerIncrement_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<long long>("increment");
    QTest::newRow("given") << "Stepped" << 4LL;
    QTest::newRow("not given") << "Plain" << 1LL;
    QTest::newRow("not even defined for the node") << "Masked" << 1LL;
    QTest::newRow("zero in the register it points to") << "Limited" << 0LL;
}

void tst_FeatureValues::integerIncrement()
{
    QFETCH(QString, name);
    const auto feature = find(name.toStdString());
    QTEST(ask<long long>(feature, &Feature::GetIntegerIncrement, -1), "increment");
    QCOMPARE(ask<bool>(feature, &Feature::HasIncrement, false), true);
}

void tst_FeatureValues::floatReachesTheCameraAndBackWithAllItsDigits()
{
    QCOMPARE(find("Smooth")->SetFloatValue(-0.75), ZalErrorSuccess);
    QCOMPARE(ask<double>(find("Smooth"), &Feature::GetFloatValue, 99.0), -0.75);
    QCOMPARE(m_server->reg(0x4028), 0xbfe80000U);
    const double value = 123456.78901234567;
    QCOMPARE(find("Smooth")->SetFloatValue(value), ZalErrorSuccess);
    QVERIFY(ask<double>(find("Smooth"), &Feature::GetFloatValue, 0.0) == value);
}

void tst_FeatureValues::floatOutsideItsRangeIsRefused()
{
    QCOMPARE(find("Smooth")->SetFloatValue(1000000.5), ZalErrorOutOfRange);
    QCOMPARE(find("Smooth")->SetFloatValue(-1.6), ZalErrorOutOfRange);
    QCOMPARE(ask<double>(find("Smooth"), &Feature::GetFloatValue, 99.0), 0.0);
}

void tst_FeatureValues::floatLimits_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::newRow("given") << "Smooth" << -1.5 << 1000000.25;
    QTest::newRow("of another feature") << "FloatLimited" << 0.0 << 12.5;
    QTest::newRow("not given") << "Halved" << -MaxFloat << MaxFloat;
}

void tst_FeatureValues::floatLimits()
{
    QFETCH(QString, name);
    double min = 0;
    double max = 0;
    QCOMPARE(find("Smooth")->SetFloatValue(12.5), ZalErrorSuccess);
    QCOMPARE(find(name.toStdString())->GetFloatRange(min, max), ZalErrorSuccess);
    QTEST(min, "min");
    QTEST(max, "max");
}

void tst_FeatureValues::floatIncrement_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("has");
    QTest::addColumn<ZalErrorType>("status");
    QTest::newRow("given") << "FloatStepped" << true << ZalErrorSuccess;
    QTest::newRow("not given") << "Smooth" << false << ZalErrorNotImplemented;
    QTest::newRow("register") << "Unlimited" << false << ZalErrorNotImplemented;
    QTest::newRow("converter") << "Converted" << false << ZalErrorNotImplemented;
    QTest::newRow("formula") << "Halved" << false << ZalErrorNotImplemented;
}

void tst_FeatureValues::floatIncrement()
{
    QFETCH(QString, name);
    const auto feature = find(name.toStdString());
    double increment = -1;
    QTEST(ask<bool>(feature, &Feature::HasIncrement, false), "has");
    QTEST(feature->GetFloatIncrement(increment), "status");
    QCOMPARE(increment, ask<bool>(feature, &Feature::HasIncrement, false) ? 0.5 : -1);
}

void tst_FeatureValues::converterAppliesItsFormulas()
{
    QCOMPARE(find("Converted")->SetFloatValue(5.5), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4048), 55U);
    QCOMPARE(ask<double>(find("Converted"), &Feature::GetFloatValue, 0.0), 5.5);
}

void tst_FeatureValues::formulasFollowTheirVariables()
{
    QCOMPARE(find("Plain")->SetIntegerValue(21), ZalErrorSuccess);
    QCOMPARE(integer(find("Doubled")), 42LL);
    QCOMPARE(ask<double>(find("Halved"), &Feature::GetFloatValue, 0.0), 10.5);
    QCOMPARE(find("Doubled")->SetIntegerValue(2), ZalErrorNotWritable);
}

void tst_FeatureValues::boolUsesItsOwnOnValue()
{
    QCOMPARE(find("Flag")->SetBoolValue(true), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4208), 5U);
    QCOMPARE(ask<bool>(find("Flag"), &Feature::GetBoolValue, false), true);
    QCOMPARE(find("Flag")->SetBoolValue(false), ZalErrorSuccess);
    QCOMPARE(ask<bool>(find("Flag"), &Feature::GetBoolValue, true), false);
}

void tst_FeatureValues::textReachesTheCameraAndBack()
{
    QCOMPARE(find("Note")->SetStringValue("16 characters :)"), ZalErrorSuccess);
    QCOMPARE(text(find("Note")), std::string("16 characters :)"));
    QCOMPARE(find("Note")->SetStringValue("short"), ZalErrorSuccess);
    QCOMPARE(text(find("Note")), std::string("short"));
}

void tst_FeatureValues::textOfLengthZeroNeedsRoomForItsTerminatorOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("register") << "Note";
    QTest::newRow("constant") << "FixedEmpty";
}

void tst_FeatureValues::textOfLengthZeroNeedsRoomForItsTerminatorOnly()
{
    QFETCH(QString, name);
    const auto feature = find(name.toStdString());
    std::uint32_t count = 99;
    QCOMPARE(feature->GetStringValue(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 1U);
    char buffer[1] = {'?'};
    QCOMPARE(feature->GetStringValue(buffer, count), ZalErrorSuccess);
    QCOMPARE(count, 1U);
    QCOMPARE(buffer[0], '\0');
}

void tst_FeatureValues::unusableTextIsRefused()
{
    QCOMPARE(find("Note")->SetStringValue(nullptr), ZalErrorBadParameter);
    QCOMPARE(find("Note")->SetStringValue("17 characters :-)"), ZalErrorBadParameter);
    QCOMPARE(text(find("Note")), std::string());
}

void tst_FeatureValues::entryIsWrittenAndReadByName()
{
    QCOMPARE(find("Mode")->SetStringValue("On"), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4200), 3U);
    QCOMPARE(text(find("Mode")), std::string("On"));
}

void tst_FeatureValues::unknownEntryIsNotFound()
{
    bool available = false;
    QCOMPARE(find("Mode")->SetStringValue("Nope"), ZalErrorNotFound);
    QCOMPARE(find("Mode")->IsValueAvailable("Nope", available), ZalErrorNotFound);
    QCOMPARE(find("Mode")->IsValueAvailable(5LL, available), ZalErrorNotFound);
}

void tst_FeatureValues::registerValueWithoutEntryIsNotFound()
{
    m_server->setReg(0x4200, 99);
    std::uint32_t count = 0;
    QCOMPARE(find("Mode")->GetStringValue(nullptr, count), ZalErrorNotFound);
    QCOMPARE(find("Empty")->GetStringValue(nullptr, count), ZalErrorNotFound);
}

void tst_FeatureValues::rawReachesTheCameraAndBack()
{
    const std::vector<unsigned char> data = {0, 1, 2, 3, 0xfc, 0xfd, 0xfe, 0xff};
    QCOMPARE(find("Blob")->SetRawValue(data.data(), 8), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4900), 0x00010203U);
    QCOMPARE(raw(), data);
}

void tst_FeatureValues::rawOfAnotherLengthIsRefused_data()
{
    QTest::addColumn<unsigned>("length");
    QTest::newRow("none") << 0U;
    QTest::newRow("shorter") << 4U;
    QTest::newRow("longer") << 12U;
}

void tst_FeatureValues::rawOfAnotherLengthIsRefused()
{
    QFETCH(unsigned, length);
    const unsigned char data[12] = "abcdefghijk";
    QCOMPARE(find("Blob")->SetRawValue(data, length), ZalErrorBadParameter);
    QCOMPARE(find("Blob")->SetRawValue(nullptr, 8), ZalErrorBadParameter);
    QCOMPARE(raw(), std::vector<unsigned char>(8));
}

void tst_FeatureValues::commandWritesItsValue()
{
    QCOMPARE(find("Reset")->RunCommand(), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4800), 2U);
}

void tst_FeatureValues::commandIsDoneWhenTheRegisterNoLongerHoldsItsValue()
{
    QCOMPARE(ask<bool>(find("Reset"), &Feature::IsCommandDone, false), true);
    QCOMPARE(find("Reset")->RunCommand(), ZalErrorSuccess);
    QCOMPARE(ask<bool>(find("Reset"), &Feature::IsCommandDone, true), false);
    m_server->setReg(0x4800, 0);
    QCOMPARE(ask<bool>(find("Reset"), &Feature::IsCommandDone, false), true);
}

void tst_FeatureValues::writeOnlyCommandCountsAsDone()
{
    QCOMPARE(find("Latch")->RunCommand(), ZalErrorSuccess);
    QCOMPARE(ask<bool>(find("Latch"), &Feature::IsCommandDone, false), true);
}

void tst_FeatureValues::selectorOfASelectorPicksTheRegister()
{
    QCOMPARE(find("BankSelector")->SetStringValue("Bank1"), ZalErrorSuccess);
    QCOMPARE(find("ChannelSelector")->SetIntegerValue(2), ZalErrorSuccess);
    QCOMPARE(find("ChannelLevel")->SetIntegerValue(500), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4440 + 0x40 + 8), 500U);
    QCOMPARE(find("BankSelector")->SetStringValue("Bank0"), ZalErrorSuccess);
    QCOMPARE(integer(find("ChannelLevel")), 0LL);
}

void tst_FeatureValues::indexedRegisterFollowsItsSelector()
{
    m_server->setText(0x4510, "second");
    QCOMPARE(text(find("BankName")), std::string());
    QCOMPARE(find("BankSelector")->SetStringValue("Bank1"), ZalErrorSuccess);
    QCOMPARE(text(find("BankName")), std::string("second"));
}

void tst_FeatureValues::validValueSetIsEmpty()
{
    std::uint32_t count = 99;
    QCOMPARE(find("Plain")->GetValidValueSet(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 0U);
}

QTEST_GUILESS_MAIN(tst_FeatureValues)
#include "tst_FeatureValues.moc"
