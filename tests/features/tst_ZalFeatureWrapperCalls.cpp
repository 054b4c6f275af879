// Which SDK calls each wrapper operation makes, and what happens when they fail.
#include "tests/features/FeatureTestSupport.h"
#include "tests/support/AllocationLimit.h"
#include "tests/support/Rows.h"

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

namespace {

void addCall(const char* name, const char* feature, const char* call, const Operation& operation)
{
    row(name, feature, call, operation);
}

} // namespace

class tst_ZalFeatureWrapperCalls : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_camera = FeatureTest::mixedCamera(); }
    void forwardsToOneCallAndPassesItsStatusOn_data();
    void forwardsToOneCallAndPassesItsStatusOn();
    void readsListsAndTextsWithTwoCallsAndPassesBothStatusesOn_data();
    void readsListsAndTextsWithTwoCallsAndPassesBothStatusesOn();
    void bufferThatCannotBeAllocatedIsOutOfResources_data();
    void bufferThatCannotBeAllocatedIsOutOfResources();
    void entryNamesThatCannotBeCopiedAreOutOfResources();
    void entryWithoutNameIsAFailureOfItsOwn();

private:
    std::unique_ptr<FakeCamera> m_camera;
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
    columns<QString, QString, Operation>("feature", "call", "operation");
    using W = ZalFeatureWrapper;
    addCall("get integer", "Count", "GetIntegerValue", [](W& w) { return w.GetValue(integer); });
    addCall("get float", "Delay", "GetFloatValue", [](W& w) { return w.GetValue(real); });
    addCall("get bool", "Flag", "GetBoolValue", [](W& w) { return w.GetValue(flag); });
    addCall("get entry", "Mode", "GetEntry", [](W& w) { return w.GetEntry(entry, "On"); });
    addCall("float range", "Delay", "GetFloatRange", [](W& w) { return w.GetRange(real, real2); });
    addCall("integer range", "Count", "GetIntegerRange",
            [](W& w) { return w.GetRange(integer, integer2); });
    addCall("set integer", "Count", "SetIntegerValue", [](W& w) { return w.SetValue(44LL); });
    addCall("set float", "Delay", "SetFloatValue", [](W& w) { return w.SetValue(3.0); });
    addCall("set bool", "Flag", "SetBoolValue", [](W& w) { return w.SetValue(false); });
    addCall("set text", "Family", "SetStringValue", [](W& w) { return w.SetValue("x"); });
    addCall("set raw", "Data", "SetRawValue", [](W& w) { return w.SetValue(bytes); });
    addCall("has increment", "Count", "HasIncrement", [](W& w) { return w.HasIncrement(flag); });
    addCall("integer increment", "Count", "GetIntegerIncrement",
            [](W& w) { return w.GetIncrement(integer); });
    addCall("float increment", "Delay", "GetFloatIncrement",
            [](W& w) { return w.GetIncrement(real); });
    addCall("available by name", "Mode", "IsValueAvailable",
            [](W& w) { return w.IsValueAvailable("On", flag); });
    addCall("available by value", "Mode", "IsValueAvailable",
            [](W& w) { return w.IsValueAvailable(1LL, flag); });
    addCall("run", "Go", "RunCommand", [](W& w) { return w.RunCommand(); });
    addCall("done", "Go", "IsCommandDone", [](W& w) { return w.IsCommandDone(flag); });
    addCall("data type", "Count", "GetDataType", [](W& w) { return w.GetDataType(code); });
    addCall("flags", "Count", "GetFlags", [](W& w) { return w.GetFlags(code); });
    addCall("visibility", "Count", "GetVisibility", [](W& w) { return w.GetVisibility(code); });
    addCall("readable", "Count", "IsReadable", [](W& w) { return w.IsReadable(flag); });
    addCall("writable", "Count", "IsWritable", [](W& w) { return w.IsWritable(flag); });
}

void tst_ZalFeatureWrapperCalls::forwardsToOneCallAndPassesItsStatusOn()
{
    QFETCH(QString, feature);
    QFETCH(QString, call);
    QFETCH(Operation, operation);
    ZalFeatureWrapper wrapper(m_camera->find(feature.toStdString()));

    QCOMPARE(operation(wrapper), ZalErrorSuccess);
    const QStringList calls = toList(m_camera->calls());
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().section('=', 0, 0), call + " " + feature);

    m_camera->failCall(call.toStdString(), feature.toStdString(), -4711);
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
    columns<QString, QString, Operation>("feature", "call", "operation");
    using W = ZalFeatureWrapper;
    addCall("string", "Family", "GetStringValue", [](W& w) { return w.GetValue(text); });
    addCall("current entry", "Mode", "GetStringValue", [](W& w) { return w.GetValue(text); });
    addCall("raw", "Data", "GetRawValue", [](W& w) { return w.GetValue(bytes); });
    addCall("raw with size", "Data", "GetRawValue", [](W& w) { return w.GetValue(bytes, size); });
    addCall("entry values", "Mode", "GetEnumValues", [](W& w) { return w.GetValues(numbers); });
    addCall("entry names", "Mode", "GetEnumNames", [](W& w) { return w.GetValues(names); });
    addCall("entries", "Mode", "GetEntries", [](W& w) { return w.GetEntries(entries); });
    addCall("name", "Count", "GetName", [](W& w) { return w.GetName(text); });
    addCall("display name", "Count", "GetDisplayName", [](W& w) { return w.GetDisplayName(text); });
    addCall("category", "Count", "GetCategory", [](W& w) { return w.GetCategory(text); });
    addCall("unit", "Count", "GetUnit", [](W& w) { return w.GetUnit(text); });
    addCall("representation", "Count", "GetRepresentation",
            [](W& w) { return w.GetRepresentation(text); });
    addCall("tool tip", "Count", "GetToolTip", [](W& w) { return w.GetToolTip(text); });
    addCall("description", "Count", "GetDescription", [](W& w) { return w.GetDescription(text); });
    addCall("selected", "Mode", "GetSelectedFeatures",
            [](W& w) { return w.GetSelectedFeatures(features); });
    addCall("valid values", "Count", "GetValidValueSet",
            [](W& w) { return w.GetValidValueSet(numbers); });
}

void tst_ZalFeatureWrapperCalls::readsListsAndTextsWithTwoCallsAndPassesBothStatusesOn()
{
    QFETCH(QString, feature);
    QFETCH(QString, call);
    QFETCH(Operation, operation);
    ZalFeatureWrapper wrapper(m_camera->find(feature.toStdString()));
    const QString expected = call + " " + feature;

    QCOMPARE(operation(wrapper), ZalErrorSuccess);
    QCOMPARE(toList(m_camera->calls()), (QStringList{expected, expected}));

    m_camera->clearLog();
    m_camera->failNthCall(1, -4711);
    QCOMPARE(operation(wrapper), -4711);
    QCOMPARE(toList(m_camera->calls()), QStringList{expected});

    m_camera->failNthCall(2, -815);
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
    ZalFeatureWrapper wrapper(std::make_shared<BoundlessFeature>(*m_camera, "Any", ZalFeatureRaw));
    const AllocationLimit limit(1U << 20U);
    QCOMPARE(operation(wrapper), -14);
}

void tst_ZalFeatureWrapperCalls::entryNamesThatCannotBeCopiedAreOutOfResources()
{
    (*m_camera)["Mode"].state().entries = {{std::string(1U << 20U, 'x'), 0, true}};
    ZalFeatureWrapper wrapper(m_camera->find("Mode"));
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
        std::make_shared<NamelessEntryFeature>(*m_camera, "Any", ZalFeatureEnum));
    std::vector<std::string> names{"before"};
    QCOMPARE(wrapper.GetValues(names), ZalErrorUnknown);
    QCOMPARE(toList(names), QStringList{"before"});
}

QTEST_APPLESS_MAIN(tst_ZalFeatureWrapperCalls)

#include "tst_ZalFeatureWrapperCalls.moc"
