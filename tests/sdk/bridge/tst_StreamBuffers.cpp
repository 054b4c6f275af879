// The buffers that wait for images: how many, and that they are used again and again.
#include <arv.h> // Before Qt, which makes a keyword of a name used there.

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/DescribedCamera.h"

#include <dlfcn.h>

using namespace BridgeTest;
using DescribedCamera::describe;
using DescribedCamera::reg;

namespace {

std::atomic<int> pushed{0};
std::atomic<int> asked{0};
std::atomic<bool> incomplete{false};

template <typename Function> Function* original(Function*, const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// In place of the functions of the library, which they call.
extern "C" void arv_stream_push_buffer(ArvStream* stream, ArvBuffer* buffer)
{
    ++pushed;
    original(arv_stream_push_buffer, "arv_stream_push_buffer")(stream, buffer);
}

extern "C" ArvBufferStatus arv_buffer_get_status(ArvBuffer* buffer)
{
    ++asked;
    return incomplete ? ARV_BUFFER_STATUS_MISSING_PACKETS
                      : original(arv_buffer_get_status, "arv_buffer_get_status")(buffer);
}

class tst_StreamBuffers : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void thereAreAsManyAsThereIsRoomFor_data();
    void thereAreAsManyAsThereIsRoomFor();
    void areUsedAgain();
    void incompleteImagesAreNone();

private:
    void start(const QByteArray& size);

    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    std::atomic<int> m_frames{0};
};

void tst_StreamBuffers::cleanup()
{
    incomplete = false;
    m_camera.reset();
    m_server.reset();
}

// The command writes to a meaningless register where no image is to come.
void tst_StreamBuffers::start(const QByteArray& size)
{
    const QByteArray command = size == "2048" ? "0x124" : "0x4100";
    m_server = DescribedCamera::serve(describe(
        {"PayloadSize", "AcquisitionStart", "AcquisitionStop"},
        "<Integer Name=\"PayloadSize\"><Value>" + size + "</Value></Integer>" +
            "<Command Name=\"AcquisitionStart\"><pValue>R</pValue><CommandValue>1</CommandValue>"
            "</Command><Command Name=\"AcquisitionStop\"><pValue>R</pValue><CommandValue>0"
            "</CommandValue></Command>" +
            reg("IntReg", "R", command, "4")));
    m_camera = openCamera();
    m_frames = pushed = asked = 0;
    QCOMPARE(m_camera->StartAcquisition([this](const ZalCPP::Frame&) { ++m_frames; }),
             ZalErrorSuccess);
}

void tst_StreamBuffers::thereAreAsManyAsThereIsRoomFor_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<int>("buffers");
    QTest::newRow("small images") << QByteArray("2000") << 8;
    QTest::newRow("an eighth of the room") << QByteArray("134217728") << 8;
    QTest::newRow("a little more") << QByteArray("134217729") << 7;
    QTest::newRow("largest images") << QByteArray("536870912") << 2;
}

void tst_StreamBuffers::thereAreAsManyAsThereIsRoomFor()
{
    QFETCH(QByteArray, size);
    start(size);
    QTEST(pushed.load(), "buffers");
}

void tst_StreamBuffers::areUsedAgain()
{
    start("2048");
    QTRY_VERIFY(m_frames >= 12);
    QVERIFY(pushed >= m_frames);
}

void tst_StreamBuffers::incompleteImagesAreNone()
{
    incomplete = true;
    start("2048");
    QTRY_VERIFY(asked >= 12);
    QCOMPARE(m_frames, 0);
    incomplete = false;
    QTRY_VERIFY(m_frames >= 2);
}

QTEST_GUILESS_MAIN(tst_StreamBuffers)
#include "tst_StreamBuffers.moc"
