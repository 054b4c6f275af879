// What becomes of the bytes that a camera adds to the end of each line of an image.
#include <arv.h> // Before Qt, which makes a keyword of a name used there.

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

using namespace BridgeTest;
using ZalCPP::Frame;

namespace {

// The image of a camera that was just reset.
constexpr int LINE = 64;
constexpr int HEIGHT = 32;

/// How many bytes at the end of each line the camera says are padding.
std::atomic<int> padding{0};

/// The camera's test picture, cut off at the right; each image begins with another number.
std::vector<unsigned char> picture(int width, unsigned char first)
{
    std::vector<unsigned char> pixels;
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < width; ++x)
            pixels.push_back(static_cast<unsigned char>((first + x + y) % 255));
    }
    return pixels;
}

} // namespace

// In place of the functions of the library: the simulated camera pads no lines.
extern "C" gint arv_buffer_get_image_width(ArvBuffer*)
{
    return LINE - padding;
}

extern "C" void arv_buffer_get_image_padding(ArvBuffer*, gint* x, gint*)
{
    *x = padding;
}

class tst_LinePadding : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_server = std::make_unique<NastyCamera>();
        m_server->reset();
        m_camera = openCamera();
        QCOMPARE(m_camera->StartAcquisition([this](const Frame& frame) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_received = frame;
            ++m_frames;
        }),
                 ZalErrorSuccess);
    }
    void cleanupTestCase()
    {
        m_camera.reset();
        m_server.reset();
    }

    void paddingIsLeftOut_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::newRow("none") << 0;
        QTest::newRow("one byte") << 1;
        QTest::newRow("longer than the line") << 60;
    }
    void paddingIsLeftOut()
    {
        QFETCH(int, bytes);
        padding = bytes;
        // One of them may have been on its way already.
        const int enough = m_frames + 2;
        QTRY_VERIFY(m_frames >= enough);
        const std::lock_guard<std::mutex> lock(m_mutex);
        QCOMPARE(m_received.width, static_cast<std::uint32_t>(LINE - bytes));
        QCOMPARE(m_received.pixels, picture(LINE - bytes, m_received.pixels.at(0)));
    }

private:
    std::unique_ptr<NastyCamera> m_server;
    std::unique_ptr<ZalCPP::Camera> m_camera;
    std::mutex m_mutex;
    Frame m_received;
    std::atomic<int> m_frames{0};
};

QTEST_GUILESS_MAIN(tst_LinePadding)
#include "tst_LinePadding.moc"
