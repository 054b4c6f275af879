// What becomes of the bytes that a camera adds to the end of each line of an image.
#include <arv.h> // Before Qt, which makes a keyword of a name used there.

#include "tests/sdk/bridge/BridgeTest.h"
#include "tests/sdk/bridge/NastyCamera.h"

using namespace BridgeTest;
using Bytes = std::vector<unsigned char>;
Q_DECLARE_METATYPE(Bytes)

namespace {

constexpr int HEIGHT = 32; // Of the image of a camera that was just reset.

/// What the images hold and how long their lines are padded, instead of what the camera sent.
struct Image
{
    std::mutex mutex;
    Bytes bytes;
    int padding = 0;
};

Image& image()
{
    static Image shared;
    return shared;
}

/// Lines that carry their own number, each with some bytes of 255 at its end.
Bytes lines(int width, int padding)
{
    Bytes bytes;
    for (int y = 0; y < HEIGHT; ++y) {
        bytes.insert(bytes.end(), static_cast<std::size_t>(width), static_cast<unsigned char>(y));
        bytes.insert(bytes.end(), static_cast<std::size_t>(padding), 255);
    }
    return bytes;
}

} // namespace

// In place of the functions of the library: the simulated camera pads no lines.
extern "C" const void* arv_buffer_get_image_data(ArvBuffer*, size_t* size)
{
    const std::lock_guard<std::mutex> lock(image().mutex);
    *size = image().bytes.size();
    return image().bytes.data();
}

extern "C" void arv_buffer_get_image_padding(ArvBuffer*, gint* x, gint* y)
{
    const std::lock_guard<std::mutex> lock(image().mutex);
    *x = image().padding;
    *y = 0;
}

class tst_LinePadding : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        server = std::make_unique<NastyCamera>();
        server->reset();
        camera = openCamera();
        QCOMPARE(camera->StartAcquisition([this](const ZalCPP::Frame& frame) {
            const std::lock_guard<std::mutex> lock(mutex);
            received = frame.pixels;
            ++frames;
        }),
                 ZalErrorSuccess);
    }
    void cleanupTestCase()
    {
        camera.reset();
        server.reset();
    }

    void paddingIsLeftOut_data()
    {
        QTest::addColumn<Bytes>("sent");
        QTest::addColumn<int>("padding");
        QTest::addColumn<Bytes>("expected");
        QTest::newRow("none") << lines(5, 0) << 0 << lines(5, 0);
        QTest::newRow("one byte") << lines(5, 1) << 1 << lines(5, 0);
        QTest::newRow("longer than the line") << lines(2, 6) << 6 << lines(2, 0);
        QTest::newRow("nothing else") << lines(0, 4) << 4 << Bytes();
        QTest::newRow("more than there is") << lines(2, 2) << 5 << Bytes();
        QTest::newRow("not announced") << lines(5, 3) << 0 << lines(5, 3);
        QTest::newRow("less than none") << lines(5, 0) << -1 << lines(5, 0);
    }
    void paddingIsLeftOut()
    {
        QFETCH(Bytes, sent);
        QFETCH(int, padding);
        {
            const std::lock_guard<std::mutex> lock(image().mutex);
            image().bytes = sent;
            image().padding = padding;
        }
        // One of them may have been on its way already.
        const int enough = frames + 2;
        QTRY_VERIFY(frames >= enough);
        const std::lock_guard<std::mutex> lock(mutex);
        QTEST(received, "expected");
    }

private:
    std::unique_ptr<NastyCamera> server;
    std::unique_ptr<ZalCPP::Camera> camera;
    std::mutex mutex;
    Bytes received;
    std::atomic<int> frames{0};
};

QTEST_GUILESS_MAIN(tst_LinePadding)
#include "tst_LinePadding.moc"
