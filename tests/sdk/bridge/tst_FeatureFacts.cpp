// What the bridge says about features that never changes: names, types, categories, flags ...
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

using namespace BridgeTest;

Q_DECLARE_METATYPE(std::string)

class tst_FeatureFacts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void listsImplementedFeaturesInTheDescriptionsOrder();
    void listsEachFeatureOnceUnderItsFirstCategory();
    void leavesOutCategoriesAndUnimplementedFeatures_data();
    void leavesOutCategoriesAndUnimplementedFeatures();
    void types_data();
    void types();
    void categories_data();
    void categories();
    void flags_data();
    void flags();
    void visibilities_data();
    void visibilities();
    void units_data();
    void units();
    void representations_data();
    void representations();
    void describesAFeature();
    void missingTextsAreEmptyAndTheDisplayNameIsTheName();
    void selectedFeatures_data();
    void selectedFeatures();
    void entriesKeepTheDescriptionsOrder();
    void entryCarriesItsTexts();
    void entryOfUnknownNameIsNotFound();
    void enumerationWithoutEntriesIsEmpty();
    void entryQueriesRefuseOtherTypes();
    void textNeedsRoomForItsTerminator();
    void bufferThatIsTooSmallStaysUntouched();
    void countSaysHowMuchOfALargeBufferWasFilled();
    void factsCostNoTraffic();
    void factsOutliveTheCamera();

private:
    FeaturePtr find(const std::string& name) const { return m_camera->FindFeature(name); }

    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
};

void tst_FeatureFacts::initTestCase()
{
    m_server = std::make_unique<NastyCamera>();
    m_camera = openCamera();
}

void tst_FeatureFacts::cleanupTestCase()
{
    m_camera.reset();
    m_server.reset();
}

void tst_FeatureFacts::listsImplementedFeaturesInTheDescriptionsOrder()
{
    const QString expected =
        "DeviceVendorName Width Height PixelFormat PayloadSize AcquisitionStart "
        "AcquisitionStop TLParamsLocked Plain Stepped Limited LimitLow LimitHigh "
        "LimitStep Huge Hexadecimal Masked Smooth FloatStepped FloatLimited Unlimited "
        "Converted Lock Lockable Switch Switchable SwitchableText ReadOnly WriteOnly "
        "Imposed PresentByRegister Indirect Mode Empty Flag Note Fixed FixedEmpty "
        "BankSelector ChannelSelector ChannelLevel ChannelMode ChannelBoost BankName "
        "Doubled Halved Invalidated Temperature Ticks ChannelStatus Message Reset Latch "
        "Blob Constant";
    QStringList found;
    for (const std::string& name : names(*m_camera->Features()))
        found << QString::fromStdString(name);
    QCOMPARE(found, expected.split(' '));
}

void tst_FeatureFacts::listsEachFeatureOnceUnderItsFirstCategory()
{
    const auto all = names(*m_camera->Features());
    QCOMPARE(std::count(all.begin(), all.end(), "Plain"), 1);
    QCOMPARE(text(find("Plain"), &Feature::GetCategory), std::string("Numbers/Integers"));
}

void tst_FeatureFacts::leavesOutCategoriesAndUnimplementedFeatures_data()
{
    QTest::addColumn<std::string>("name");
    for (const char* name : {"Root", "Numbers", "Integers", "Absent", "AbsentByRegister",
                             "AbsentBehind", "MissingNode", "PlainRegister", "Device", ""})
        QTest::newRow(name) << std::string(name);
}

void tst_FeatureFacts::leavesOutCategoriesAndUnimplementedFeatures()
{
    QFETCH(std::string, name);
    QVERIFY(!find(name));
}

void tst_FeatureFacts::types_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<ZalFeatureDataType>("type");
    const std::vector<std::pair<const char*, ZalFeatureDataType>> rows = {
        {"Plain", ZalFeatureInteger},   {"LimitLow", ZalFeatureInteger},
        {"Masked", ZalFeatureInteger},  {"Doubled", ZalFeatureInteger},
        {"Smooth", ZalFeatureFloat},    {"Unlimited", ZalFeatureFloat},
        {"Converted", ZalFeatureFloat}, {"Halved", ZalFeatureFloat},
        {"Mode", ZalFeatureEnum},       {"Switch", ZalFeatureBool},
        {"Note", ZalFeatureString},     {"Fixed", ZalFeatureString},
        {"Reset", ZalFeatureCommand},   {"Blob", ZalFeatureRaw}};
    for (const auto& [name, type] : rows)
        QTest::newRow(name) << std::string(name) << type;
}

void tst_FeatureFacts::types()
{
    QFETCH(std::string, name);
    QTEST(ask<ZalFeatureDataType>(find(name), &Feature::GetDataType, 99), "type");
}

void tst_FeatureFacts::categories_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<std::string>("category");
    QTest::newRow("one level") << std::string("Mode") << std::string("Enumerations");
    QTest::newRow("two levels") << std::string("Smooth") << std::string("Numbers/Floats");
}

void tst_FeatureFacts::categories()
{
    QFETCH(std::string, name);
    QTEST(text(find(name), &Feature::GetCategory), "category");
}

void tst_FeatureFacts::flags_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<ZalFeatureFlagsType>("flags");
    const std::vector<std::pair<const char*, ZalFeatureFlagsType>> rows = {
        {"Plain", 0x03},        {"ReadOnly", 0x01},        {"WriteOnly", 0x02}, {"Imposed", 0x01},
        {"Temperature", 0x09},  {"ChannelStatus", 0x09},   {"Ticks", 0x01},     {"Doubled", 0x01},
        {"BankSelector", 0x13}, {"ChannelSelector", 0x13}, {"Latch", 0x02},     {"Lockable", 0x03},
        {"Switchable", 0x03}};
    for (const auto& [name, value] : rows)
        QTest::newRow(name) << std::string(name) << value;
}

void tst_FeatureFacts::flags()
{
    QFETCH(std::string, name);
    QTEST(ask<ZalFeatureFlagsType>(find(name), &Feature::GetFlags, 0xff), "flags");
}

void tst_FeatureFacts::visibilities_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<ZalFeatureVisibilityType>("visibility");
    QTest::newRow("beginner") << std::string("Width") << ZalFeatureVisibilityBeginner;
    QTest::newRow("expert") << std::string("Hexadecimal") << ZalFeatureVisibilityExpert;
    QTest::newRow("guru") << std::string("Plain") << ZalFeatureVisibilityGuru;
    QTest::newRow("invisible") << std::string("TLParamsLocked") << ZalFeatureVisibilityInvisible;
    QTest::newRow("not given") << std::string("Stepped") << ZalFeatureVisibilityBeginner;
}

void tst_FeatureFacts::visibilities()
{
    QFETCH(std::string, name);
    QTEST(ask<ZalFeatureVisibilityType>(find(name), &Feature::GetVisibility, 99), "visibility");
}

void tst_FeatureFacts::units_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<std::string>("unit");
    QTest::newRow("integer") << std::string("Plain") << std::string("px");
    QTest::newRow("float, beyond ASCII") << std::string("Smooth") << std::string("µs");
    QTest::newRow("converter") << std::string("Converted") << std::string("s");
    QTest::newRow("none") << std::string("Stepped") << std::string();
    QTest::newRow("type without unit") << std::string("Mode") << std::string();
}

void tst_FeatureFacts::units()
{
    QFETCH(std::string, name);
    QTEST(text(find(name), &Feature::GetUnit), "unit");
}

void tst_FeatureFacts::representations_data()
{
    QTest::addColumn<std::string>("name");
    QTest::addColumn<std::string>("representation");
    const std::vector<std::pair<const char*, const char*>> rows = {{"Stepped", "Linear"},
                                                                   {"Smooth", "Logarithmic"},
                                                                   {"Plain", "PureNumber"},
                                                                   {"Masked", "Boolean"},
                                                                   {"Hexadecimal", "HexNumber"},
                                                                   {"LimitLow", "IPV4Address"},
                                                                   {"Huge", "MACAddress"},
                                                                   {"Limited", ""},
                                                                   {"Mode", ""}};
    for (const auto& [name, value] : rows)
        QTest::newRow(name) << std::string(name) << std::string(value);
}

void tst_FeatureFacts::representations()
{
    QFETCH(std::string, name);
    QTEST(text(find(name), &Feature::GetRepresentation), "representation");
}

void tst_FeatureFacts::describesAFeature()
{
    const auto plain = find("Plain");
    QCOMPARE(text(plain, &Feature::GetName), std::string("Plain"));
    QCOMPARE(text(plain, &Feature::GetDisplayName), std::string("Plain Number"));
    QCOMPARE(text(plain, &Feature::GetToolTip), std::string("A plain number"));
    QCOMPARE(text(plain, &Feature::GetDescription),
             std::string("A number without anything special. Any value will do."));
}

void tst_FeatureFacts::missingTextsAreEmptyAndTheDisplayNameIsTheName()
{
    const auto stepped = find("Stepped");
    QCOMPARE(text(stepped, &Feature::GetDisplayName), std::string("Stepped"));
    QCOMPARE(text(stepped, &Feature::GetToolTip), std::string());
    QCOMPARE(text(stepped, &Feature::GetDescription), std::string());
}

void tst_FeatureFacts::selectedFeatures_data()
{
    QTest::addColumn<std::string>("selector");
    QTest::addColumn<std::vector<std::string>>("selected");
    using Names = std::vector<std::string>;
    QTest::newRow("selector of a selector")
        << std::string("BankSelector") << Names{"ChannelSelector", "BankName"};
    QTest::newRow("inner selector, a number")
        << std::string("ChannelSelector") << Names{"ChannelLevel", "ChannelMode", "ChannelStatus"};
    QTest::newRow("no selector") << std::string("Plain") << Names{};
}

void tst_FeatureFacts::selectedFeatures()
{
    QFETCH(std::string, selector);
    const auto feature = find(selector);
    const auto selected = elements<FeaturePtr>([&](FeaturePtr* buffer, std::uint32_t& count) {
        return feature->GetSelectedFeatures(buffer, count);
    });
    QTEST(names(selected), "selected");
    for (const auto& one : selected)
        QCOMPARE(one, find(text(one, &Feature::GetName)));
}

void tst_FeatureFacts::entriesKeepTheDescriptionsOrder()
{
    const auto mode = find("Mode");
    const auto values = elements<long long>([&](long long* buffer, std::uint32_t& count) {
        return mode->GetEnumValues(buffer, count);
    });
    const auto entryNames = elements<const char*>([&](const char** buffer, std::uint32_t& count) {
        return mode->GetEnumNames(buffer, count);
    });
    QCOMPARE(values, (std::vector<long long>{0, 7, 8, 3}));
    QCOMPARE(std::vector<std::string>(entryNames.begin(), entryNames.end()),
             (std::vector<std::string>{"Off", "Special", "Missing", "On"}));
}

void tst_FeatureFacts::entryCarriesItsTexts()
{
    const auto mode = find("Mode");
    ZalCPP::EnumEntry entry;
    QCOMPARE(mode->GetEntry(entry, "Off"), ZalErrorSuccess);
    QCOMPARE(entry.name, std::string("Off"));
    QCOMPARE(entry.displayName, std::string("Switched Off"));
    QCOMPARE(entry.description, std::string("Nothing runs in this mode."));
    QCOMPARE(entry.value, 0LL);
    QCOMPARE(entry.visibility, ZalFeatureVisibilityBeginner);

    const auto all =
        elements<ZalCPP::EnumEntry>([&](ZalCPP::EnumEntry* buffer, std::uint32_t& count) {
            return mode->GetEntries(buffer, count);
        });
    QCOMPARE(all.size(), std::size_t(4));
    QCOMPARE(all[1].name, std::string("Special"));
    QCOMPARE(all[1].displayName, std::string("Special"));
    QCOMPARE(all[1].visibility, ZalFeatureVisibilityGuru);
}

void tst_FeatureFacts::entryOfUnknownNameIsNotFound()
{
    ZalCPP::EnumEntry entry;
    entry.name = "untouched";
    QCOMPARE(find("Mode")->GetEntry(entry, "Nope"), ZalErrorNotFound);
    QCOMPARE(find("Mode")->GetEntry(entry, nullptr), ZalErrorBadParameter);
    QCOMPARE(entry.name, std::string("untouched"));
    bool available = true;
    QCOMPARE(find("Mode")->IsValueAvailable("Nope", available), ZalErrorNotFound);
    QCOMPARE(find("Mode")->IsValueAvailable(nullptr, available), ZalErrorBadParameter);
    QCOMPARE(find("Mode")->IsValueAvailable(99, available), ZalErrorNotFound);
}

void tst_FeatureFacts::enumerationWithoutEntriesIsEmpty()
{
    std::uint32_t count = 99;
    QCOMPARE(find("Empty")->GetEnumValues(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 0U);
}

void tst_FeatureFacts::entryQueriesRefuseOtherTypes()
{
    const auto plain = find("Plain");
    std::uint32_t count = 99;
    ZalCPP::EnumEntry entry;
    QCOMPARE(plain->GetEnumValues(nullptr, count), ZalErrorWrongType);
    QCOMPARE(plain->GetEnumNames(nullptr, count), ZalErrorWrongType);
    QCOMPARE(plain->GetEntries(nullptr, count), ZalErrorWrongType);
    QCOMPARE(plain->GetEntry(entry, "Off"), ZalErrorWrongType);
    QCOMPARE(count, 99U);
}

void tst_FeatureFacts::textNeedsRoomForItsTerminator()
{
    std::uint32_t count = 0;
    QCOMPARE(find("Plain")->GetName(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 6U);
    QCOMPARE(find("Stepped")->GetUnit(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 1U);
}

void tst_FeatureFacts::bufferThatIsTooSmallStaysUntouched()
{
    char buffer[6] = "?????";
    std::uint32_t count = 5;
    QCOMPARE(find("Plain")->GetName(buffer, count), ZalErrorBufferTooSmall);
    QCOMPARE(buffer, "?????");
    QCOMPARE(count, 5U);
}

void tst_FeatureFacts::countSaysHowMuchOfALargeBufferWasFilled()
{
    long long values[10] = {};
    std::uint32_t count = 10;
    QCOMPARE(find("Mode")->GetEnumValues(values, count), ZalErrorSuccess);
    QCOMPARE(count, 4U);
}

void tst_FeatureFacts::factsCostNoTraffic()
{
    const auto before = m_camera->Counts();
    for (const auto& feature : *m_camera->Features()) {
        text(feature, &Feature::GetName);
        text(feature, &Feature::GetCategory);
        ask<ZalFeatureFlagsType>(feature, &Feature::GetFlags, 0);
        elements<FeaturePtr>([&](FeaturePtr* buffer, std::uint32_t& count) {
            return feature->GetSelectedFeatures(buffer, count);
        });
    }
    QVERIFY(find("Constant"));
    QCOMPARE(m_camera->Counts().reads, before.reads);
    QCOMPARE(m_camera->Counts().writes, before.writes);
}

void tst_FeatureFacts::factsOutliveTheCamera()
{
    auto other = std::move(m_camera);
    auto selector = other->FindFeature("ChannelSelector");
    other.reset();
    const auto selected = elements<FeaturePtr>([&](FeaturePtr* buffer, std::uint32_t& count) {
        return selector->GetSelectedFeatures(buffer, count);
    });
    QCOMPARE(text(selector, &Feature::GetName), std::string("ChannelSelector"));
    QCOMPARE(names(selected).front(), std::string("ChannelLevel"));
    m_camera = openCamera();
}

QTEST_GUILESS_MAIN(tst_FeatureFacts)
#include "tst_FeatureFacts.moc"
