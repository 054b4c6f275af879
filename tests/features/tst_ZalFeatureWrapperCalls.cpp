// Which SDK calls each wrapper operation makes, and what happens when they fail.
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/AllocationLimit.h"

#include <QtTest>

#include <functional>

using Fake::FakeCamera;
using Fake::FakeFeature;
using FeatureTest::toList;

namespace {

using Operation = std::function<ZalErrorType(ZalFeatureWrapper&)>;

/// Announces the largest possible number of elements for everything.
class BoundlessFeature : public FakeFeature
{
public:
    using FakeFeature::FakeFeature;

    static ZalErrorType boundless(std::uint32_t& count)
    {
        count = 0xFFFFFFFFU;
        return ZalErrorSuccess;
    }
    ZalErrorType GetName(char*, std::uint32_t& count) const override { return boundless(count); }
    ZalErrorType GetStringValue(char*, std::uint32_t& count) const override
    {
        return boundless(count);
    }
    ZalErrorType GetRawValue(unsigned char*, std::uint32_t& count) const override
    {
        return boundless(count);
    }
    ZalErrorType GetEnumValues(long long*, std::uint32_t& count) const override
    {
        return boundless(count);
    }
    ZalErrorType GetEnumNames(const char**, std::uint32_t& count) const override
    {
        return boundless(count);
    }
    ZalErrorType GetEntries(ZalCPP::EnumEntry*, std::uint32_t& count) const override
    {
        return boundless(count);
    }
    ZalErrorType GetSelectedFeatures(ZalCPP::FeaturePtr*, std::uint32_t& count) const override
    {
        return boundless(count);
    }
    ZalErrorType GetValidValueSet(long long*, std::uint32_t& count) const override
    {
        return boundless(count);
    }
};

/// Has two entries, but tells the name of the first one only.
class NamelessEntryFeature : public FakeFeature
{
public:
    using FakeFeature::FakeFeature;

    ZalErrorType GetEnumNames(const char** buffer, std::uint32_t& count) const override
    {
        count = 2;
        if (buffer) {
            buffer[0] = "On";
            buffer[1] = nullptr;
        }
        return ZalErrorSuccess;
    }
};

} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_ZalFeatureWrapperCalls : public QObject
{
    Q_OBJECT

private slots:
    void init() { camera = FeatureTest::mixedCamera(); }
    void forwardsToOneCallAndPassesItsStatusOn_data();
    void forwardsToOneCallAndPassesItsStatusOn();
    void readsListsAndTextsWithTwoCallsAndPassesBothStatusesOn_data();
    void readsListsAndTextsWithTwoCallsAndPassesBothStatusesOn();
    void bufferThatCannotBeAllocatedIsOutOfResources_data();
    void bufferThatCannotBeAllocatedIsOutOfResources();
    void entryNamesThatCannotBeCopiedAreOutOfResources();
    void entryWithoutNameIsAFailureOfItsOwn();

private:
    std::unique_ptr<FakeCamera> camera;
};

void tst_ZalFeatureWrapperCalls::forwardsToOneCallAndPassesItsStatusOn_data()
{
    static long long integer = 0;
    static long long integer2 = 0;
    static double real = 0.0;
    static double real2 = 0.0;
    static bool flag = false;
    static unsigned code = 0;
    static ZalCPP::EnumEntry entry;
    static std::vector<unsigned char> bytes{9};
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QString>("call");
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char* name, const char* feature, const char* call,
                        const Operation& operation) {
        QTest::newRow(name) << feature << call << operation;
    };
    using W = ZalFeatureWrapper;
    row("get integer", "Count", "GetIntegerValue", [](W& w) { return w.GetValue(integer); });
    row("get float", "Delay", "GetFloatValue", [](W& w) { return w.GetValue(real); });
    row("get bool", "Flag", "GetBoolValue", [](W& w) { return w.GetValue(flag); });
    row("get entry", "Mode", "GetEntry", [](W& w) { return w.GetEntry(entry, "On"); });
    row("float range", "Delay", "GetFloatRange", [](W& w) { return w.GetRange(real, real2); });
    row("integer range", "Count", "GetIntegerRange",
        [](W& w) { return w.GetRange(integer, integer2); });
    row("set integer", "Count", "SetIntegerValue", [](W& w) { return w.SetValue(44LL); });
    row("set float", "Delay", "SetFloatValue", [](W& w) { return w.SetValue(3.0); });
    row("set bool", "Flag", "SetBoolValue", [](W& w) { return w.SetValue(false); });
    row("set text", "Family", "SetStringValue", [](W& w) { return w.SetValue("x"); });
    row("set raw", "Data", "SetRawValue", [](W& w) { return w.SetValue(bytes); });
    row("has increment", "Count", "HasIncrement", [](W& w) { return w.HasIncrement(flag); });
    row("integer increment", "Count", "GetIntegerIncrement",
        [](W& w) { return w.GetIncrement(integer); });
    row("float increment", "Delay", "GetFloatIncrement", [](W& w) { return w.GetIncrement(real); });
    row("available by name", "Mode", "IsValueAvailable",
        [](W& w) { return w.IsValueAvailable("On", flag); });
    row("available by value", "Mode", "IsValueAvailable",
        [](W& w) { return w.IsValueAvailable(1LL, flag); });
    row("run", "Go", "RunCommand", [](W& w) { return w.RunCommand(); });
    row("done", "Go", "IsCommandDone", [](W& w) { return w.IsCommandDone(flag); });
    row("data type", "Count", "GetDataType", [](W& w) { return w.GetDataType(code); });
    row("flags", "Count", "GetFlags", [](W& w) { return w.GetFlags(code); });
    row("visibility", "Count", "GetVisibility", [](W& w) { return w.GetVisibility(code); });
    row("readable", "Count", "IsReadable", [](W& w) { return w.IsReadable(flag); });
    row("writable", "Count", "IsWritable", [](W& w) { return w.IsWritable(flag); });
}

void tst_ZalFeatureWrapperCalls::forwardsToOneCallAndPassesItsStatusOn()
{
    QFETCH(QString, feature);
    QFETCH(QString, call);
    QFETCH(Operation, operation);
    ZalFeatureWrapper wrapper(camera->find(feature.toStdString()));

    QCOMPARE(operation(wrapper), ZalErrorSuccess);
    const QStringList calls = toList(camera->calls());
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().section('=', 0, 0), call + " " + feature);

    camera->failCall(call.toStdString(), feature.toStdString(), -4711);
    QCOMPARE(operation(wrapper), -4711);
}

void tst_ZalFeatureWrapperCalls::readsListsAndTextsWithTwoCallsAndPassesBothStatusesOn_data()
{
    static std::string text;
    static std::vector<unsigned char> bytes;
    static unsigned size = 0;
    static std::vector<long long> numbers;
    static std::vector<std::string> names;
    static std::vector<ZalCPP::EnumEntry> entries;
    static std::vector<ZalCPP::FeaturePtr> features;
    QTest::addColumn<QString>("feature");
    QTest::addColumn<QString>("call");
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char* name, const char* feature, const char* call,
                        const Operation& operation) {
        QTest::newRow(name) << feature << call << operation;
    };
    using W = ZalFeatureWrapper;
    row("string", "Family", "GetStringValue", [](W& w) { return w.GetValue(text); });
    row("current entry", "Mode", "GetStringValue", [](W& w) { return w.GetValue(text); });
    row("raw", "Data", "GetRawValue", [](W& w) { return w.GetValue(bytes); });
    row("raw with size", "Data", "GetRawValue", [](W& w) { return w.GetValue(bytes, size); });
    row("entry values", "Mode", "GetEnumValues", [](W& w) { return w.GetValues(numbers); });
    row("entry names", "Mode", "GetEnumNames", [](W& w) { return w.GetValues(names); });
    row("entries", "Mode", "GetEntries", [](W& w) { return w.GetEntries(entries); });
    row("name", "Count", "GetName", [](W& w) { return w.GetName(text); });
    row("display name", "Count", "GetDisplayName", [](W& w) { return w.GetDisplayName(text); });
    row("category", "Count", "GetCategory", [](W& w) { return w.GetCategory(text); });
    row("unit", "Count", "GetUnit", [](W& w) { return w.GetUnit(text); });
    row("representation", "Count", "GetRepresentation",
        [](W& w) { return w.GetRepresentation(text); });
    row("tool tip", "Count", "GetToolTip", [](W& w) { return w.GetToolTip(text); });
    row("description", "Count", "GetDescription", [](W& w) { return w.GetDescription(text); });
    row("selected", "Mode", "GetSelectedFeatures",
        [](W& w) { return w.GetSelectedFeatures(features); });
    row("valid values", "Count", "GetValidValueSet",
        [](W& w) { return w.GetValidValueSet(numbers); });
}

void tst_ZalFeatureWrapperCalls::readsListsAndTextsWithTwoCallsAndPassesBothStatusesOn()
{
    QFETCH(QString, feature);
    QFETCH(QString, call);
    QFETCH(Operation, operation);
    ZalFeatureWrapper wrapper(camera->find(feature.toStdString()));
    const QString expected = call + " " + feature;

    QCOMPARE(operation(wrapper), ZalErrorSuccess);
    QCOMPARE(toList(camera->calls()), (QStringList{expected, expected}));

    camera->clearLog();
    camera->failNthCall(1, -4711);
    QCOMPARE(operation(wrapper), -4711);
    QCOMPARE(toList(camera->calls()), QStringList{expected});

    camera->failNthCall(2, -815);
    QCOMPARE(operation(wrapper), -815);
}

void tst_ZalFeatureWrapperCalls::bufferThatCannotBeAllocatedIsOutOfResources_data()
{
    static std::string text;
    static std::vector<unsigned char> bytes;
    static std::vector<long long> numbers;
    static std::vector<std::string> names;
    static std::vector<ZalCPP::EnumEntry> entries;
    static std::vector<ZalCPP::FeaturePtr> features;
    QTest::addColumn<Operation>("operation");
    using W = ZalFeatureWrapper;
    const auto row = [](const char* name, const Operation& operation) {
        QTest::newRow(name) << operation;
    };
    row("name", [](W& w) { return w.GetName(text); });
    row("value", [](W& w) { return w.GetValue(text); });
    row("raw", [](W& w) { return w.GetValue(bytes); });
    row("entry values", [](W& w) { return w.GetValues(numbers); });
    row("entry names", [](W& w) { return w.GetValues(names); });
    row("entries", [](W& w) { return w.GetEntries(entries); });
    row("selected features", [](W& w) { return w.GetSelectedFeatures(features); });
    row("valid values", [](W& w) { return w.GetValidValueSet(numbers); });
}

void tst_ZalFeatureWrapperCalls::bufferThatCannotBeAllocatedIsOutOfResources()
{
    QFETCH(Operation, operation);
    ZalFeatureWrapper wrapper(std::make_shared<BoundlessFeature>(*camera, "Any", ZalFeatureRaw));
    const AllocationLimit limit(1U << 20U);
    QCOMPARE(operation(wrapper), -14);
}

void tst_ZalFeatureWrapperCalls::entryNamesThatCannotBeCopiedAreOutOfResources()
{
    (*camera)["Mode"].state().entries = {{std::string(1U << 20U, 'x'), 0, true}};
    ZalFeatureWrapper wrapper(camera->find("Mode"));
    std::vector<std::string> names{"before"};
    {
        const AllocationLimit limit(1U << 19U);
        QCOMPARE(wrapper.GetValues(names), -14);
    }
    QCOMPARE(toList(names), QStringList{"before"});
}

void tst_ZalFeatureWrapperCalls::entryWithoutNameIsAFailureOfItsOwn()
{
    ZalFeatureWrapper wrapper(
        std::make_shared<NamelessEntryFeature>(*camera, "Any", ZalFeatureEnum));
    std::vector<std::string> names{"before"};
    QCOMPARE(wrapper.GetValues(names), ZalErrorUnknown);
    QCOMPARE(toList(names), QStringList{"before"});
}

QTEST_APPLESS_MAIN(tst_ZalFeatureWrapperCalls)

#include "tst_ZalFeatureWrapperCalls.moc"
