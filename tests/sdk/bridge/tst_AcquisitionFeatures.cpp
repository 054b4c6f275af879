// What becomes of the acquisition where its features are missing, of another kind, or refused.
#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/DescribedCamera.h"

using namespace BridgeTest;
using DescribedCamera::describe;
using DescribedCamera::reg;

class tst_AcquisitionFeatures : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void cameraThatCannotAcquireSaysWhy_data();
    void cameraThatCannotAcquireSaysWhy();
    void largestPayloadIsLimited();
    void lockThatTheCameraHandlesItselfIsFine_data();
    void lockThatTheCameraHandlesItselfIsFine();
    void lockThatFailsIsAFailure();
    void refusedStartUnlocksTheParameters();
    void cameraWithoutAStopSaysSo();

private:
    ZalErrorType start(const QByteArray& nodes);
    FeaturePtr find(const std::string& name) const { return camera->FindFeature(name); }

    std::unique_ptr<NastyCamera> server;
    std::unique_ptr<ZalCPP::Camera> camera;
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

void tst_AcquisitionFeatures::cleanup()
{
    camera.reset();
    server.reset();
}

ZalErrorType tst_AcquisitionFeatures::start(const QByteArray& nodes)
{
    const QList<QByteArray> features{"PayloadSize", "AcquisitionStart", "AcquisitionStop",
                                     "TLParamsLocked"};
    server = DescribedCamera::serve(describe(features, nodes + reg("IntReg", "R", "0x124", "4")));
    camera = openCamera();
    return camera->StartAcquisition([](const ZalCPP::Frame&) {});
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
    QVERIFY(!camera->IsAcquiring());
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
    QCOMPARE(camera->StopAcquisition(), ZalErrorSuccess);
}

void tst_AcquisitionFeatures::lockThatFailsIsAFailure()
{
    QCOMPARE(start(Payload + Start + Stop + lock("<Value>0</Value><Max>0</Max>")),
             ZalErrorOutOfRange);
    QVERIFY(!camera->IsAcquiring());
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
    QCOMPARE(camera->StopAcquisition(), ZalErrorNotImplemented);
    QVERIFY(!camera->IsAcquiring());
    QCOMPARE(integer(find("TLParamsLocked")), 0LL);
}

QTEST_GUILESS_MAIN(tst_AcquisitionFeatures)
#include "tst_AcquisitionFeatures.moc"
