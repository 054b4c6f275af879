// Values whose nodes are put together in ways that few cameras use.
#include "tests/sdk/bridge/OnDescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::reg;

class tst_DescribedValues : public QObject, protected OnDescribedCamera
{
    Q_OBJECT

private slots:
    void cleanup() { close(); }

    void commandIsDoneByTheValueOfAnotherNode();
    void unavailableDataIsNotAccessed();
    void stepsCountFromTheMinimum_data();
    void stepsCountFromTheMinimum();
    void stepThatIsNoNumberIsNone_data();
    void stepThatIsNoNumberIsNone();
    void negativeStepOfAnIntegerCountsAsOne();
    void visibilityOfAnUnknownNameIsUnknown();
    void indexedValueIsReadAndWritten();

private:
    void open(const QByteArray& nodes);
};

void tst_DescribedValues::open(const QByteArray& nodes)
{
    OnDescribedCamera::open({"A", "B"}, nodes);
}

void tst_DescribedValues::commandIsDoneByTheValueOfAnotherNode()
{
    open("<Command Name=\"A\"><pValue>R</pValue><pCommandValue>B</pCommandValue></Command>" +
         reg("IntReg", "R", "0x4010", "4") + reg("IntReg", "B", "0x4014", "4"));
    QCOMPARE(find("B")->SetIntegerValue(6), ZalErrorSuccess);
    QCOMPARE(find("A")->RunCommand(), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4010), 6U);
    QCOMPARE(ask<bool>(find("A"), &Feature::IsCommandDone, true), false);
    m_server->setReg(0x4010, 0);
    QCOMPARE(ask<bool>(find("A"), &Feature::IsCommandDone, false), true);
}

void tst_DescribedValues::unavailableDataIsNotAccessed()
{
    open(reg("Register", "A", "0x4010", "4", "<pIsAvailable>B</pIsAvailable>") +
         reg("IntReg", "B", "0x4014", "4"));
    const unsigned char bytes[] = {1, 2, 3, 4};
    std::uint32_t count = 0;
    QCOMPARE(find("A")->GetRawValue(nullptr, count), ZalErrorNotAvailable);
    QCOMPARE(find("A")->SetRawValue(bytes, 4), ZalErrorNotAvailable);
    QCOMPARE(m_server->reg(0x4010), 0U);
    QCOMPARE(find("B")->SetIntegerValue(1), ZalErrorSuccess);
    QCOMPARE(find("A")->SetRawValue(bytes, 4), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4010), 0x01020304U);
}

void tst_DescribedValues::stepsCountFromTheMinimum_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<ZalErrorType>("status");
    QTest::newRow("minimum") << 2 << ZalErrorSuccess;
    QTest::newRow("second step") << 8 << ZalErrorSuccess;
    QTest::newRow("multiple of the step alone") << 6 << ZalErrorOutOfRange;
    QTest::newRow("a step below the minimum") << -1 << ZalErrorOutOfRange;
}

void tst_DescribedValues::stepsCountFromTheMinimum()
{
    QFETCH(int, value);
    open("<Integer Name=\"A\"><pValue>R</pValue><Min>2</Min><Inc>3</Inc></Integer>" +
         reg("IntReg", "R", "0x4010", "4"));
    QTEST(find("A")->SetIntegerValue(value), "status");
}

void tst_DescribedValues::stepThatIsNoNumberIsNone_data()
{
    QTest::addColumn<QByteArray>("step");
    for (const char* step : {"INF", "NAN", "0", "-0.5", "2.2250738585072014e-308"})
        QTest::newRow(step) << QByteArray(step);
}

void tst_DescribedValues::stepThatIsNoNumberIsNone()
{
    QFETCH(QByteArray, step);
    open("<Float Name=\"A\"><pValue>R</pValue><Inc>" + step + "</Inc></Float>" +
         reg("FloatReg", "R", "0x4010", "8"));
    double increment = 7;
    QCOMPARE(find("A")->GetFloatIncrement(increment), ZalErrorNotImplemented);
    QCOMPARE(increment, 7.0);
}

void tst_DescribedValues::negativeStepOfAnIntegerCountsAsOne()
{
    open("<Integer Name=\"A\"><pValue>R</pValue><Inc>-4</Inc></Integer>" +
         reg("IntReg", "R", "0x4010", "4"));
    QCOMPARE(ask<long long>(find("A"), &Feature::GetIntegerIncrement, 7), 1LL);
}

void tst_DescribedValues::visibilityOfAnUnknownNameIsUnknown()
{
    open("<Integer Name=\"A\"><Visibility>Everybody</Visibility><Value>1</Value></Integer>");
    QCOMPARE(ask<ZalFeatureVisibilityType>(find("A"), &Feature::GetVisibility, 99),
             ZalFeatureVisibilityUnknown);
}

void tst_DescribedValues::indexedValueIsReadAndWritten()
{
    open("<Integer Name=\"A\"><pIndex>Plain</pIndex><pValueIndexed Index=\"0\">B</pValueIndexed>"
         "<pValueDefault>R</pValueDefault></Integer>" +
         reg("IntReg", "B", "0x4010", "4") + reg("IntReg", "R", "0x4014", "4"));
    QCOMPARE(find("A")->SetIntegerValue(5), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4010), 5U);
    QCOMPARE(find("Plain")->SetIntegerValue(1), ZalErrorSuccess);
    QCOMPARE(find("A")->SetIntegerValue(6), ZalErrorSuccess);
    QCOMPARE(m_server->reg(0x4014), 6U);
    QCOMPARE(integer(find("A")), 6LL);
    QCOMPARE(integer(find("B")), 5LL);
}

QTEST_GUILESS_MAIN(tst_DescribedValues)
#include "tst_DescribedValues.moc"
