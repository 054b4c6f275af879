#include "features/ZalFeatureWrapper.h"
#include "tests/features/FeatureTestSupport.h"

#include <QtTest>

#include <type_traits>

using Fake::FakeCamera;
using Fake::FakeFeature;
using FeatureTest::toList;

namespace {

/// Describes itself with nothing at all, not even a terminator.
class BareFeature : public FakeFeature
{
public:
    using FakeFeature::FakeFeature;
    ZalErrorType GetUnit(char*, std::uint32_t& count) const override
    {
        count = 0;
        return ZalErrorSuccess;
    }
};

template <typename... Arguments> constexpr bool canSetValue(...)
{
    return false;
}
template <typename Argument>
constexpr auto canSetValue(int)
    -> decltype(std::declval<ZalFeatureWrapper&>().SetValue(std::declval<Argument>()), bool())
{
    return true;
}
template <typename... Arguments> constexpr bool canAskForEntry(...)
{
    return false;
}
template <typename Argument>
constexpr auto canAskForEntry(int)
    -> decltype(std::declval<const ZalFeatureWrapper&>().IsValueAvailable(std::declval<Argument>(),
                                                                          std::declval<bool&>()),
                bool())
{
    return true;
}

} // namespace

static_assert(canSetValue<const char*>(0) && canSetValue<bool>(0), "writes that are meant");
static_assert(!canSetValue<int*>(0), "a pointer must not pass for a bool");
static_assert(!canSetValue<const wchar_t*>(0), "a pointer must not pass for a bool");
static_assert(canAskForEntry<const char*>(0) && canAskForEntry<long long>(0), "meant");
static_assert(!canAskForEntry<std::nullptr_t>(0), "null is no entry name");
static_assert(std::has_virtual_destructor_v<ZalFeatureWrapper>);

class tst_ZalFeatureWrapper : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void sharesOwnershipOfItsFeature();

    void numbersAndFlagsComeFromTheFeature();
    void limitsComeFromTheFeature();
    void factsComeFromTheFeature();
    void textsComeFromTheFeature();
    void rawBytesComeWithTheirSize();
    void sizeFilledStaysOnFailure();
    void enumerationComesWithValuesNamesAndEntries();
    void selectedFeaturesAreSharedHandles();
    void validValuesComeFromTheFeature();
    void writesReachTheFeature();
    void writingAnEmptyByteVectorIsRefusedWithoutAnSdkCall();
    void emptyUnitYieldsAnEmptyStringAndSuccess();
    void enumerationWithoutValuesYieldsAnEmptyVectorAndSuccess();
    void failedReadsLeaveTheOutputUntouched();
    void observersAreRegisteredOnTheFeature();

private:
    ZalFeatureWrapper wrapped(const std::string& name)
    {
        return ZalFeatureWrapper(m_camera->find(name));
    }
    std::unique_ptr<FakeCamera> m_camera;
};

void tst_ZalFeatureWrapper::init()
{
    m_camera = FeatureTest::mixedCamera();
}

void tst_ZalFeatureWrapper::sharesOwnershipOfItsFeature()
{
    ZalCPP::FeaturePtr feature = m_camera->find("Count");
    const auto before = feature.use_count();
    {
        ZalFeatureWrapper wrapper(feature);
        QCOMPARE(feature.use_count(), before + 1);
        QVERIFY(wrapper.GetZalFeaturePtr() == feature);
        QVERIFY(&wrapper.GetZalFeaturePtr() == &wrapper.GetZalFeaturePtr());
    }
    QCOMPARE(feature.use_count(), before);
    QVERIFY(m_camera->calls().empty());
}

void tst_ZalFeatureWrapper::numbersAndFlagsComeFromTheFeature()
{
    long long integer = 0;
    double real = 0.0;
    bool flag = false;
    QCOMPARE(wrapped("Count").GetValue(integer), ZalErrorSuccess);
    QCOMPARE(wrapped("Delay").GetValue(real), ZalErrorSuccess);
    QCOMPARE(wrapped("Flag").GetValue(flag), ZalErrorSuccess);
    QCOMPARE(integer, 42LL);
    QCOMPARE(real, 2.5);
    QCOMPARE(flag, true);
}

void tst_ZalFeatureWrapper::limitsComeFromTheFeature()
{
    long long low = 0;
    long long high = 0;
    long long step = 0;
    double min = 0.0;
    double max = 0.0;
    double increment = 0.0;
    bool has = false;
    QCOMPARE(wrapped("Count").GetRange(low, high), ZalErrorSuccess);
    QCOMPARE(wrapped("Count").GetIncrement(step), ZalErrorSuccess);
    QCOMPARE(wrapped("Delay").GetRange(min, max), ZalErrorSuccess);
    QCOMPARE(wrapped("Delay").GetIncrement(increment), ZalErrorSuccess);
    QCOMPARE(wrapped("Delay").HasIncrement(has), ZalErrorSuccess);
    QCOMPARE(low, -10LL);
    QCOMPARE(high, 1000LL);
    QCOMPARE(step, 2LL);
    QCOMPARE(min, 0.5);
    QCOMPARE(max, 99.5);
    QCOMPARE(increment, 0.25);
    QVERIFY(has);
}

void tst_ZalFeatureWrapper::factsComeFromTheFeature()
{
    ZalFeatureDataType type = 0;
    ZalFeatureFlagsType flags = 0;
    ZalFeatureVisibilityType visibility = 0;
    bool readable = false;
    bool writable = true;
    bool done = false;
    (*m_camera)["Count"].state().writable = false;
    QCOMPARE(wrapped("Count").GetDataType(type), ZalErrorSuccess);
    QCOMPARE(wrapped("Count").GetFlags(flags), ZalErrorSuccess);
    QCOMPARE(wrapped("Count").GetVisibility(visibility), ZalErrorSuccess);
    QCOMPARE(wrapped("Count").IsReadable(readable), ZalErrorSuccess);
    QCOMPARE(wrapped("Count").IsWritable(writable), ZalErrorSuccess);
    QCOMPARE(wrapped("Go").IsCommandDone(done), ZalErrorSuccess);
    QCOMPARE(type, ZalFeatureInteger);
    QCOMPARE(flags, 0x09U);
    QCOMPARE(visibility, ZalFeatureVisibilityGuru);
    QVERIFY(readable && !writable && done);
}

void tst_ZalFeatureWrapper::textsComeFromTheFeature()
{
    std::vector<std::string> texts(9);
    ZalFeatureWrapper count = wrapped("Count");
    count.GetName(texts[0]);
    count.GetDisplayName(texts[1]);
    count.GetCategory(texts[2]);
    count.GetUnit(texts[3]);
    count.GetRepresentation(texts[4]);
    count.GetToolTip(texts[5]);
    count.GetDescription(texts[6]);
    wrapped("Family").GetValue(texts[7]);
    wrapped("Mode").GetValue(texts[8]);
    QCOMPARE(toList(texts),
             (QStringList{"Count", "The count", "Root/Counters", "ticks", "HexNumber", "Counts",
                          "Counts ticks.", "Two words", "On"}));
}

void tst_ZalFeatureWrapper::rawBytesComeWithTheirSize()
{
    const std::vector<unsigned char> expected{1, 2, 255};
    std::vector<unsigned char> bytes;
    unsigned int size = 77;
    QCOMPARE(wrapped("Data").GetValue(bytes), ZalErrorSuccess);
    QCOMPARE(bytes, expected);
    bytes.clear();
    QCOMPARE(wrapped("Data").GetValue(bytes, size), ZalErrorSuccess);
    QCOMPARE(bytes, expected);
    QCOMPARE(size, 3U);
    (*m_camera)["Data"].state().raw.clear();
    QCOMPARE(wrapped("Data").GetValue(bytes, size), ZalErrorSuccess);
    QVERIFY(bytes.empty());
    QCOMPARE(size, 0U);
}

void tst_ZalFeatureWrapper::sizeFilledStaysOnFailure()
{
    std::vector<unsigned char> bytes{8};
    unsigned int size = 77;
    m_camera->failCall("GetRawValue", "Data");
    QCOMPARE(wrapped("Data").GetValue(bytes, size), ZalErrorTransport);
    QCOMPARE(size, 77U);
    QCOMPARE(bytes, std::vector<unsigned char>{8});
}

void tst_ZalFeatureWrapper::enumerationComesWithValuesNamesAndEntries()
{
    std::vector<long long> values;
    std::vector<std::string> names;
    std::vector<ZalCPP::EnumEntry> entries;
    ZalCPP::EnumEntry entry;
    ZalFeatureWrapper mode = wrapped("Mode");
    QCOMPARE(mode.GetValues(values), ZalErrorSuccess);
    QCOMPARE(mode.GetValues(names), ZalErrorSuccess);
    QCOMPARE(mode.GetEntries(entries), ZalErrorSuccess);
    QCOMPARE(mode.GetEntry(entry, "Auto"), ZalErrorSuccess);
    QCOMPARE(values, (std::vector<long long>{0, 1, 7}));
    QCOMPARE(toList(names), (QStringList{"Off", "On", "Auto"}));
    QCOMPARE(entries.size(), std::size_t(3));
    QCOMPARE(entries[2].name, std::string("Auto"));
    QCOMPARE(entries[2].value, 7LL);
    QCOMPARE(entry.value, 7LL);

    bool byName = false;
    bool byValue = true;
    QCOMPARE(mode.IsValueAvailable("On", byName), ZalErrorSuccess);
    QCOMPARE(mode.IsValueAvailable(7LL, byValue), ZalErrorSuccess);
    QVERIFY(byName && !byValue);
}

void tst_ZalFeatureWrapper::selectedFeaturesAreSharedHandles()
{
    std::vector<ZalCPP::FeaturePtr> selected;
    QCOMPARE(wrapped("Mode").GetSelectedFeatures(selected), ZalErrorSuccess);
    QCOMPARE(selected.size(), std::size_t(2));
    QVERIFY(selected[0] == m_camera->find("Delay"));
    QVERIFY(selected[1] == m_camera->find("Flag"));
    QCOMPARE(wrapped("Delay").GetSelectedFeatures(selected), ZalErrorSuccess);
    QVERIFY(selected.empty());
}

void tst_ZalFeatureWrapper::validValuesComeFromTheFeature()
{
    std::vector<long long> values;
    QCOMPARE(wrapped("Count").GetValidValueSet(values), ZalErrorSuccess);
    QCOMPARE(values, (std::vector<long long>{1, 42}));
}

void tst_ZalFeatureWrapper::writesReachTheFeature()
{
    std::vector<unsigned char> bytes{0x0A, 0xFF};
    QCOMPARE(wrapped("Count").SetValue(44LL), ZalErrorSuccess);
    QCOMPARE(wrapped("Delay").SetValue(3.0), ZalErrorSuccess);
    QCOMPARE(wrapped("Flag").SetValue(false), ZalErrorSuccess);
    QCOMPARE(wrapped("Family").SetValue("One"), ZalErrorSuccess);
    QCOMPARE(wrapped("Mode").SetValue("Off"), ZalErrorSuccess);
    QCOMPARE(wrapped("Data").SetValue(bytes), ZalErrorSuccess);
    QCOMPARE(wrapped("Go").RunCommand(), ZalErrorSuccess);
    QCOMPARE(toList(m_camera->writes()),
             (QStringList{"SetIntegerValue Count=44", "SetFloatValue Delay=3",
                          "SetBoolValue Flag=false", "SetStringValue Family=One",
                          "SetStringValue Mode=Off", "SetRawValue Data=0aff", "RunCommand Go"}));
}

void tst_ZalFeatureWrapper::writingAnEmptyByteVectorIsRefusedWithoutAnSdkCall()
{
    std::vector<unsigned char> nothing;
    QCOMPARE(wrapped("Data").SetValue(nothing), -7);
    QVERIFY(m_camera->calls().empty());
}

void tst_ZalFeatureWrapper::emptyUnitYieldsAnEmptyStringAndSuccess()
{
    std::string unit = "before";
    QCOMPARE(wrapped("Delay").GetUnit(unit), ZalErrorSuccess);
    QCOMPARE(unit, std::string());

    unit = "before";
    ZalFeatureWrapper bare(std::make_shared<BareFeature>(*m_camera, "Bare", ZalFeatureFloat));
    QCOMPARE(bare.GetUnit(unit), ZalErrorSuccess);
    QCOMPARE(unit, std::string());
}

void tst_ZalFeatureWrapper::enumerationWithoutValuesYieldsAnEmptyVectorAndSuccess()
{
    (*m_camera)["Mode"].state().entries.clear();
    std::vector<long long> values{1};
    std::vector<std::string> names{"before"};
    std::vector<ZalCPP::EnumEntry> entries(1);
    ZalFeatureWrapper mode = wrapped("Mode");
    QCOMPARE(mode.GetValues(values), ZalErrorSuccess);
    QCOMPARE(mode.GetValues(names), ZalErrorSuccess);
    QCOMPARE(mode.GetEntries(entries), ZalErrorSuccess);
    QVERIFY(values.empty() && names.empty() && entries.empty());
}

void tst_ZalFeatureWrapper::failedReadsLeaveTheOutputUntouched()
{
    m_camera->failEverything();
    long long integer = 5;
    bool flag = true;
    std::string text = "before";
    std::vector<std::string> names{"before"};
    std::vector<ZalCPP::FeaturePtr> selected(2);
    QCOMPARE(wrapped("Count").GetValue(integer), ZalErrorNotOpen);
    QCOMPARE(wrapped("Flag").GetValue(flag), ZalErrorNotOpen);
    QCOMPARE(wrapped("Family").GetValue(text), ZalErrorNotOpen);
    QCOMPARE(wrapped("Mode").GetValues(names), ZalErrorNotOpen);
    QCOMPARE(wrapped("Mode").GetSelectedFeatures(selected), ZalErrorNotOpen);
    QCOMPARE(integer, 5LL);
    QVERIFY(flag);
    QCOMPARE(text, std::string("before"));
    QCOMPARE(toList(names), QStringList{"before"});
    QCOMPARE(selected.size(), std::size_t(2));
}

void tst_ZalFeatureWrapper::observersAreRegisteredOnTheFeature()
{
    class SilentObserver : public ZalCPP::IFeatureObserver
    {
        void FeatureChanged(const std::shared_ptr<ZalCPP::Feature>&) override {}
    };
    const auto observer = std::make_shared<SilentObserver>();
    ZalFeatureWrapper count = wrapped("Count");
    QCOMPARE(count.RegisterObserver(observer), ZalErrorSuccess);
    QCOMPARE((*m_camera)["Count"].observerCount(), std::size_t(1));
    QCOMPARE(count.UnregisterObserver(observer), ZalErrorSuccess);
    QCOMPARE((*m_camera)["Count"].observerCount(), std::size_t(0));
    m_camera->failEverything(-4711);
    QCOMPARE(count.RegisterObserver(observer), -4711);
    QCOMPARE(count.UnregisterObserver(observer), -4711);
}

QTEST_APPLESS_MAIN(tst_ZalFeatureWrapper)

#include "tst_ZalFeatureWrapper.moc"
