// Descriptions that lead in circles, or name sizes, counts and times beyond all use. Such a feature
// is listed but cannot be used; everything else works.
#include "tests/sdk/bridge/Circles.h"
#include "tests/sdk/bridge/OnDescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::reg;

class tst_DescriptionLimits : public QObject, protected OnDescribedCamera
{
    Q_OBJECT

private slots:
    void cleanup() { close(); }

    void circleIsListedWithoutAccess_data();
    void circleIsListedWithoutAccess();
    void offsetOfAnIndexIsFollowed();
    void limitsThatNameEachOtherAreNoCircle();
    void entriesThatDependOnTheirEnumerationAreNoCircle();
    void chainBeyondAnyStackIsListedWithoutAccess();
    void formulasThatDoubleEachTimeAreListedWithoutAccess();
    void impossibleLengthIsListedWithoutAccess_data();
    void impossibleLengthIsListedWithoutAccess();
    void usualLengthsAreUsable();
    void lengthFromTheCameraIsLimited();
    void pollingTimeIsLimited_data();
    void pollingTimeIsLimited();
    void entriesAreLimited();
    void deepCategoriesKeepTheirFeatures();
    void negativeIncrementsAreNone_data();
    void negativeIncrementsAreNone();

private:
    void verifyUnusable(const std::string& name);
};

// Reads the value, or runs the command.
static ZalErrorType use(const FeaturePtr& feature, ZalFeatureDataType type)
{
    long long number = 0;
    double real = 0;
    bool truth = false;
    std::uint32_t count = 0;
    switch (type) {
    case ZalFeatureInteger:
        return feature->GetIntegerValue(number);
    case ZalFeatureFloat:
        return feature->GetFloatValue(real);
    case ZalFeatureBool:
        return feature->GetBoolValue(truth);
    case ZalFeatureRaw:
        return feature->GetRawValue(nullptr, count);
    case ZalFeatureCommand:
        return feature->RunCommand();
    default:
        return feature->GetStringValue(nullptr, count);
    }
}

// Not usable in any way, and the camera works on.
void tst_DescriptionLimits::verifyUnusable(const std::string& name)
{
    const auto feature = find(name);
    QVERIFY(feature);
    bool possible = true;
    QCOMPARE(feature->IsReadable(possible), ZalErrorSuccess);
    QVERIFY(!possible);
    possible = true;
    QCOMPARE(feature->IsWritable(possible), ZalErrorSuccess);
    QVERIFY(!possible);
    const auto type = ask<ZalFeatureDataType>(feature, &Feature::GetDataType, ZalFeatureUnknown);
    const auto expected = type == ZalFeatureCommand ? ZalErrorNotWritable : ZalErrorNotReadable;
    QCOMPARE(use(feature, type), expected);
    long long low = 0;
    long long high = 0;
    QVERIFY(feature->GetIntegerRange(low, high) != ZalErrorSuccess);
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(feature->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Plain")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Plain")->SetIntegerValue(7), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count("Plain"), 1);
    QCOMPARE(recorder->count(name), 0);
    QCOMPARE(integer(find("Plain")), 7LL);
}

void tst_DescriptionLimits::circleIsListedWithoutAccess_data()
{
    QTest::addColumn<QByteArray>("nodes");
    Circles::addAll();
}

void tst_DescriptionLimits::circleIsListedWithoutAccess()
{
    QFETCH(QByteArray, nodes);
    open({"A"}, nodes);
    verifyUnusable("A");
}

void tst_DescriptionLimits::offsetOfAnIndexIsFollowed()
{
    open({"A", "B"}, reg("IntReg", "A", "0x4004", "4", "<pIndex pOffset=\"O\">I</pIndex>") +
                         reg("IntReg", "B", "0x400c", "4") +
                         "<Integer Name=\"I\"><Value>1</Value></Integer>"
                         "<Integer Name=\"O\"><Value>8</Value></Integer>");
    QCOMPARE(find("A")->SetIntegerValue(5), ZalErrorSuccess);
    QCOMPARE(integer(find("B")), 5LL);
}

// As width and offset of an image do.
void tst_DescriptionLimits::limitsThatNameEachOtherAreNoCircle()
{
    const auto half = [](const QByteArray& name, const QByteArray& other, const QByteArray& place) {
        return "<Integer Name=\"" + name + "\"><pValue>" + name + "Reg</pValue><Min>0</Min><pMax>" +
               name + "Max</pMax></Integer><IntSwissKnife Name=\"" + name +
               "Max\"><pVariable Name=\"X\">" + other +
               "</pVariable><Formula>100 - X</Formula></IntSwissKnife>" +
               reg("IntReg", name + "Reg", place, "4");
    };
    open({"Size", "Offset"}, half("Size", "Offset", "0x4004") + half("Offset", "Size", "0x4008"));
    QCOMPARE(find("Size")->SetIntegerValue(60), ZalErrorSuccess);
    QCOMPARE(find("Offset")->SetIntegerValue(41), ZalErrorOutOfRange);
    QCOMPARE(find("Offset")->SetIntegerValue(40), ZalErrorSuccess);
}

// One may leave an entry, but not come back.
void tst_DescriptionLimits::entriesThatDependOnTheirEnumerationAreNoCircle()
{
    open({"A"}, "<Enumeration Name=\"A\"><EnumEntry Name=\"First\"><pIsAvailable>IsFirst"
                "</pIsAvailable><Value>0</Value></EnumEntry><EnumEntry Name=\"Other\"><Value>1"
                "</Value></EnumEntry><pValue>R</pValue></Enumeration><IntSwissKnife "
                "Name=\"IsFirst\"><pVariable Name=\"X\">A</pVariable><Formula>X = 0</Formula>"
                "</IntSwissKnife>" +
                    reg("IntReg", "R", "0x4004", "4"));
    QCOMPARE(text(find("A")), std::string("First"));
    QCOMPARE(find("A")->SetStringValue("Other"), ZalErrorSuccess);
    QCOMPARE(find("A")->SetStringValue("First"), ZalErrorNotAvailable);
    QCOMPARE(text(find("A")), std::string("Other"));
}

void tst_DescriptionLimits::chainBeyondAnyStackIsListedWithoutAccess()
{
    constexpr int length = 30000;
    QByteArray nodes = reg("IntReg", "N0", "0x4004", "4", "<PollingTime>100</PollingTime>");
    for (int i = 1; i <= length; ++i)
        nodes += "<Integer Name=\"N" + QByteArray::number(i) + "\"><pValue>N" +
                 QByteArray::number(i - 1) + "</pValue></Integer>\n";
    open({"N" + QByteArray::number(length), "N9"}, nodes);
    verifyUnusable("N" + std::to_string(length));
    QCOMPARE(integer(find("N9")), 0LL);
}

void tst_DescriptionLimits::formulasThatDoubleEachTimeAreListedWithoutAccess()
{
    QByteArray nodes = reg("IntReg", "F0", "0x4004", "4");
    for (int i = 1; i <= 40; ++i) {
        const QByteArray before = "F" + QByteArray::number(i - 1) + "</pVariable>";
        nodes += "<IntSwissKnife Name=\"F" + QByteArray::number(i) + "\"><pVariable Name=\"X\">" +
                 before + "<pVariable Name=\"Y\">" + before +
                 "<Formula>X + Y</Formula></IntSwissKnife>\n";
    }
    open({"F40", "F4"}, nodes);
    verifyUnusable("F40");
    QCOMPARE(integer(find("F4")), 0LL);
}

void tst_DescriptionLimits::impossibleLengthIsListedWithoutAccess_data()
{
    QTest::addColumn<QByteArray>("nodes");
    for (const char* kind : {"StringReg", "Register", "IntReg", "FloatReg"}) {
        for (const char* length : {"-1", "0", "1099511627776", "9223372036854775807"})
            QTest::addRow("%s of %s", kind, length) << reg(kind, "A", "0x4004", length);
    }
    QTest::newRow("text behind a text") << "<String Name=\"A\"><pValue>R</pValue></String>" +
                                               reg("StringReg", "R", "0x4004", "1099511627776");
    QTest::newRow("number behind a formula")
        << "<SwissKnife Name=\"A\"><pVariable Name=\"X\">R</pVariable><Formula>X</Formula>"
           "</SwissKnife>" +
               reg("IntReg", "R", "0x4004", "1099511627776");
    const QByteArray sized = "<IntReg Name=\"B\"><Address>0x4004</Address><pLength>L</pLength>"
                             "<AccessMode>RO</AccessMode><pPort>Device</pPort></IntReg>"
                             "<Integer Name=\"L\"><Value>1099511627776</Value></Integer>";
    QTest::newRow("limit") << reg("IntReg", "R", "0x4008", "4") +
                                  "<Integer Name=\"A\"><pValue>R</pValue><pMax>B</pMax></Integer>" +
                                  sized;
    QTest::newRow("availability") << reg("IntReg", "A", "0x4008", "4",
                                         "<pIsAvailable>B</pIsAvailable>") +
                                         sized;
    QTest::newRow("implementation")
        << reg("IntReg", "A", "0x4008", "4", "<pIsImplemented>B</pIsImplemented>") + sized;
    QTest::newRow("index") << reg("IntReg", "A", "0x4008", "4",
                                  "<pIndex Offset=\"4\">B</pIndex><PollingTime>100"
                                  "</PollingTime>") +
                                  sized;
}

void tst_DescriptionLimits::impossibleLengthIsListedWithoutAccess()
{
    QFETCH(QByteArray, nodes);
    open({"A"}, nodes);
    verifyUnusable("A");
}

void tst_DescriptionLimits::usualLengthsAreUsable()
{
    open({"Data", "Text"},
         reg("Register", "Data", "0x4100", "2048") + reg("StringReg", "Text", "0x4a00", "512"));
    std::uint32_t count = 0;
    QCOMPARE(find("Data")->GetRawValue(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 2048U);
    const std::string longText(300, 'x');
    QCOMPARE(find("Text")->SetStringValue(longText.c_str()), ZalErrorSuccess);
    QCOMPARE(text(find("Text")), longText);
}

// It may be right at one time and wrong at another.
void tst_DescriptionLimits::lengthFromTheCameraIsLimited()
{
    const QByteArray sized = "<Address>0x4100</Address><pLength>Size</pLength><AccessMode>RW"
                             "</AccessMode><pPort>Device</pPort>";
    open({"Size", "Data", "Text"},
         reg("IntReg", "Size", "0x4010", "8", "<Sign>Signed</Sign>") + "<Register Name=\"Data\">" +
             sized + "</Register><StringReg Name=\"Text\">" + sized + "</StringReg>");
    const auto data = find("Data");
    std::uint32_t count = 0;
    for (const long long length : {-1LL, 0LL, (1LL << 20) + 1, 1LL << 40, 9223372036854775807LL}) {
        QCOMPARE(find("Size")->SetIntegerValue(length), ZalErrorSuccess);
        QCOMPARE(data->GetRawValue(nullptr, count), ZalErrorOutOfResources);
        QCOMPARE(find("Text")->GetStringValue(nullptr, count), ZalErrorOutOfResources);
        QCOMPARE(find("Text")->SetStringValue("x"), ZalErrorOutOfResources);
    }
    QCOMPARE(find("Size")->SetIntegerValue(8), ZalErrorSuccess);
    QCOMPARE(data->GetRawValue(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 8U);
    QCOMPARE(find("Text")->SetStringValue("x"), ZalErrorSuccess);
    QCOMPARE(text(find("Text")), std::string("x"));
}

void tst_DescriptionLimits::pollingTimeIsLimited_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<int>("mostReads");
    QTest::newRow("shortest") << QByteArray("1") << 40;
    QTest::newRow("negative") << QByteArray("-1") << 0;
    QTest::newRow("beyond the clock in nanoseconds") << QByteArray("9300000000000") << 0;
    QTest::newRow("all bits") << QByteArray("9223372036854775807") << 0;
}

// Reads within half a second, when everything is known.
void tst_DescriptionLimits::pollingTimeIsLimited()
{
    QFETCH(QByteArray, time);
    QFETCH(int, mostReads);
    open({"A"}, reg("IntReg", "A", "0x4004", "4", "<PollingTime>" + time + "</PollingTime>"));
    const auto recorder = std::make_shared<Recorder>();
    QCOMPARE(find("A")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Plain")->RegisterObserver(recorder), ZalErrorSuccess);
    QCOMPARE(find("Plain")->SetIntegerValue(7), ZalErrorSuccess);
    QTRY_COMPARE(recorder->count("Plain"), 1);
    const auto before = m_camera->Counts().reads;
    QTest::qWait(500);
    const auto reads = static_cast<int>(m_camera->Counts().reads - before);
    QVERIFY2(reads <= mostReads, qPrintable(QString::number(reads)));
}

void tst_DescriptionLimits::entriesAreLimited()
{
    QByteArray entries;
    for (int i = 0; i < 5000; ++i)
        entries += "<EnumEntry Name=\"E" + QByteArray::number(i) + "\"><Value>" +
                   QByteArray::number(i) + "</Value></EnumEntry>";
    open({"A"}, "<Enumeration Name=\"A\">" + entries + "<pValue>R</pValue></Enumeration>" +
                    reg("IntReg", "R", "0x4004", "4"));
    std::uint32_t count = 0;
    QCOMPARE(find("A")->GetEnumNames(nullptr, count), ZalErrorSuccess);
    QCOMPARE(count, 4096U);
    QCOMPARE(find("A")->SetStringValue("E4095"), ZalErrorSuccess);
    QCOMPARE(find("A")->SetStringValue("E4096"), ZalErrorNotFound);
    QCOMPARE(text(find("A")), std::string("E4095"));
}

void tst_DescriptionLimits::deepCategoriesKeepTheirFeatures()
{
    constexpr int depth = 40000;
    QByteArray nodes;
    for (int i = 0; i < depth; ++i)
        nodes += "<Category Name=\"c" + QByteArray::number(i) + "\"><pFeature>" +
                 (i + 1 < depth ? "c" + QByteArray::number(i + 1) : QByteArray("A")) +
                 "</pFeature></Category>\n";
    open({"c0"}, nodes + reg("IntReg", "A", "0x4004", "4"));
    QCOMPARE(integer(find("A")), 0LL);
    const std::string path = text(find("A"), &Feature::GetCategory);
    QCOMPARE(std::count(path.begin(), path.end(), '/'), 31L);
    QCOMPARE(names(*m_camera->Features()), (std::vector<std::string>{"A", "Plain"}));
}

void tst_DescriptionLimits::negativeIncrementsAreNone_data()
{
    QTest::addColumn<QByteArray>("increment");
    for (const char* increment : {"-4", "-9223372036854775808"})
        QTest::newRow(increment) << QByteArray(increment);
}

void tst_DescriptionLimits::negativeIncrementsAreNone()
{
    QFETCH(QByteArray, increment);
    open({"A", "F"}, "<Integer Name=\"A\"><pValue>R</pValue><Inc>" + increment +
                         "</Inc></Integer>" + reg("IntReg", "R", "0x4004", "4") +
                         "<Float Name=\"F\"><pValue>G</pValue><Inc>" + increment +
                         "</Inc></Float>" + reg("FloatReg", "G", "0x4008", "8"));
    long long steps = 0;
    QCOMPARE(find("A")->GetIntegerIncrement(steps), ZalErrorSuccess);
    QCOMPARE(steps, 1LL);
    QCOMPARE(find("A")->SetIntegerValue(3), ZalErrorSuccess);
    bool has = true;
    QCOMPARE(find("F")->HasIncrement(has), ZalErrorSuccess);
    QVERIFY(!has);
    QCOMPARE(find("F")->SetFloatValue(0.3), ZalErrorSuccess);
}

QTEST_GUILESS_MAIN(tst_DescriptionLimits)
#include "tst_DescriptionLimits.moc"
