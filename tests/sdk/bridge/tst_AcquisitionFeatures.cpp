// What becomes of the acquisition where its features are missing, of another kind, or refused.
#include "tests/sdk/bridge/OnDescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::reg;

class tst_AcquisitionFeatures : public QObject, protected OnDescribedCamera
{
    Q_OBJECT

private slots:
    void cleanup() { close(); }

    void cameraThatCannotAcquireSaysWhy_data();
    void cameraThatCannotAcquireSaysWhy();
    void largestPayloadIsLimited();
    void lockThatTheCameraHandlesItselfIsFine_data();
    void lockThatTheCameraHandlesItselfIsFine();
    void lockThatFailsIsAFailure();
    void refusedStartUnlocksTheParameters();
    void cameraWithoutAStopSaysSo();
    void payloadIsLimited_data();
    void payloadIsLimited();
    void streamThatLeadsInACircleIsNotStarted_data();
    void streamThatLeadsInACircleIsNotStarted();

private:
    ZalErrorType start(const QByteArray& nodes);
};

namespace {

const QByteArray Payload = "<Integer Name=\"PayloadSize\"><Value>2048</Value></Integer>\n";
const QByteArray Start =
    "<Command Name=\"AcquisitionStart\"><pValue>R</pValue><CommandValue>1</CommandValue>"
    "</Command>\n";
const QByteArray Stop =
    "<Command Name=\"AcquisitionStop\"><pValue>R</pValue><CommandValue>0</CommandValue>"
    "</Command>\n";

QByteArray lock(const QByteArray& more)
{
    return "<Integer Name=\"TLParamsLocked\">" + more + "</Integer>\n";
}

} // namespace

ZalErrorType tst_AcquisitionFeatures::start(const QByteArray& nodes)
{
    const QList<QByteArray> features{"PayloadSize", "AcquisitionStart", "AcquisitionStop",
                                     "TLParamsLocked"};
    open(features, nodes + reg("IntReg", "R", "0x124", "4"));
    return m_camera->StartAcquisition([](const ZalCPP::Frame&) {});
}

void tst_AcquisitionFeatures::cameraThatCannotAcquireSaysWhy_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::newRow("no size") << Start + Stop;
    QTest::newRow("size that is no whole number")
        << "<Float Name=\"PayloadSize\"><Value>2048</Value></Float>\n" + Start + Stop;
    QTest::newRow("no start") << Payload + Stop;
    QTest::newRow("start that is no command")
        << Payload + Stop + "<Integer Name=\"AcquisitionStart\"><pValue>R</pValue></Integer>\n";
}

void tst_AcquisitionFeatures::cameraThatCannotAcquireSaysWhy()
{
    QFETCH(QByteArray, nodes);
    QCOMPARE(start(nodes), ZalErrorNotImplemented);
    QVERIFY(!m_camera->IsAcquiring());
}

// One byte more than 512 MiB.
void tst_AcquisitionFeatures::largestPayloadIsLimited()
{
    QCOMPARE(
        start("<Integer Name=\"PayloadSize\"><Value>536870913</Value></Integer>" + Start + Stop),
        ZalErrorOutOfResources);
}

void tst_AcquisitionFeatures::lockThatTheCameraHandlesItselfIsFine_data()
{
    QTest::addColumn<QByteArray>("node");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("only read") << lock("<ImposedAccessMode>RO</ImposedAccessMode><Value>0</Value>");
    QTest::newRow("not available") << lock("<pIsAvailable>No</pIsAvailable><Value>0</Value>") +
                                          "<Integer Name=\"No\"><Value>0</Value></Integer>\n";
    QTest::newRow("no whole number")
        << QByteArray("<Boolean Name=\"TLParamsLocked\"><Value>0</Value></Boolean>\n");
}

void tst_AcquisitionFeatures::lockThatTheCameraHandlesItselfIsFine()
{
    QFETCH(QByteArray, node);
    QCOMPARE(start(Payload + Start + Stop + node), ZalErrorSuccess);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
}

void tst_AcquisitionFeatures::lockThatFailsIsAFailure()
{
    QCOMPARE(start(Payload + Start + Stop + lock("<Value>0</Value><Max>0</Max>")),
             ZalErrorOutOfRange);
    QVERIFY(!m_camera->IsAcquiring());
}

void tst_AcquisitionFeatures::refusedStartUnlocksTheParameters()
{
    QByteArray refused = Start;
    refused.replace("<pValue>", "<pIsLocked>Yes</pIsLocked><pValue>");
    QCOMPARE(start(Payload + refused + Stop + lock("<Value>0</Value>") +
                   "<Integer Name=\"Yes\"><Value>1</Value></Integer>\n"),
             ZalErrorNotWritable);
    QTRY_COMPARE(integer(find("TLParamsLocked")), 0LL);
}

void tst_AcquisitionFeatures::cameraWithoutAStopSaysSo()
{
    QCOMPARE(start(Payload + Start + lock("<Value>0</Value>")), ZalErrorSuccess);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorNotImplemented);
    QVERIFY(!m_camera->IsAcquiring());
    QCOMPARE(integer(find("TLParamsLocked")), 0LL);
}

void tst_AcquisitionFeatures::payloadIsLimited_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<ZalErrorType>("status");
    QTest::newRow("1 TiB") << QByteArray("1099511627776") << ZalErrorOutOfResources;
    QTest::newRow("all bits") << QByteArray("9223372036854775807") << ZalErrorOutOfResources;
    QTest::newRow("negative") << QByteArray("-1") << ZalErrorOutOfRange;
    QTest::newRow("none") << QByteArray("0") << ZalErrorOutOfRange;
    QTest::newRow("an image") << QByteArray("2048") << ZalErrorSuccess;
}

void tst_AcquisitionFeatures::payloadIsLimited()
{
    QFETCH(QByteArray, size);
    QFETCH(ZalErrorType, status);
    const QByteArray payload =
        "<Integer Name=\"PayloadSize\"><Value>" + size + "</Value></Integer>";
    QCOMPARE(start(payload + Start + Stop), status);
    QCOMPARE(m_camera->IsAcquiring(), status == ZalErrorSuccess);
    QCOMPARE(m_camera->StopAcquisition(), ZalErrorSuccess);
    QCOMPARE(find("Plain")->SetIntegerValue(3), ZalErrorSuccess);
}

// Aravis brings these nodes along where a camera does not describe them itself.
void tst_AcquisitionFeatures::streamThatLeadsInACircleIsNotStarted_data()
{
    QTest::addColumn<QByteArray>("nodes");
    QTest::addColumn<ZalErrorType>("status");
    QTest::newRow("address")
        << QByteArray("<IntSwissKnife Name=\"ArvGevSCPAddrCalc\"><pVariable Name=\"X\">"
                      "ArvGevSCPAddrCalc</pVariable><Formula>X</Formula></IntSwissKnife>")
        << ZalErrorNotImplemented;
    QTest::newRow("number of channels")
        << QByteArray("<Integer Name=\"ArvGevStreamChannelCount\"><pValue>"
                      "ArvGevStreamChannelCount</pValue></Integer>")
        << ZalErrorNotImplemented;
    QTest::newRow("none")
        << QByteArray("<Integer Name=\"ArvGevStreamChannelCount\"><Value>1</Value></Integer>"
                      "<Integer Name=\"B\"><pValue>B</pValue></Integer>")
        << ZalErrorSuccess;
}

void tst_AcquisitionFeatures::streamThatLeadsInACircleIsNotStarted()
{
    QFETCH(QByteArray, nodes);
    QFETCH(ZalErrorType, status);
    QCOMPARE(start(Payload + Start + Stop + nodes), status);
    QCOMPARE(m_camera->IsAcquiring(), status == ZalErrorSuccess);
    QCOMPARE(find("Plain")->SetIntegerValue(3), ZalErrorSuccess);
}

QTEST_GUILESS_MAIN(tst_AcquisitionFeatures)
#include "tst_AcquisitionFeatures.moc"
