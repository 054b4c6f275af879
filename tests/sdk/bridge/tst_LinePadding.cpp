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
    int width = 0;
    int padding = 0;
    std::atomic<int> looks{0};
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

// In place of the functions of the library: the simulated camera pads no lines. What is not in the
// buffer is no image of it.
extern "C" const void* arv_buffer_get_image_data(ArvBuffer* buffer, size_t* size)
{
    const std::lock_guard<std::mutex> lock(image().mutex);
    const Bytes& bytes = image().bytes;
    size_t room = 0;
    auto* data = static_cast<unsigned char*>(const_cast<void*>(arv_buffer_get_data(buffer, &room)));
    std::copy_n(bytes.begin(), std::min(room, bytes.size()), data);
    *size = bytes.size();
    ++image().looks;
    return data;
}

extern "C" gint arv_buffer_get_image_width(ArvBuffer*)
{
    const std::lock_guard<std::mutex> lock(image().mutex);
    return image().width;
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

    void paddingIsLeftOut_data();
    void paddingIsLeftOut();
    void imageLargerThanItsBufferIsNone();

private:
    void send(const Bytes& bytes, int width, int padding);

    std::unique_ptr<NastyCamera> server;
    std::unique_ptr<ZalCPP::Camera> camera;
    std::mutex mutex;
    Bytes received;
    std::atomic<int> frames{0};
};

void tst_LinePadding::send(const Bytes& bytes, int width, int padding)
{
    const std::lock_guard<std::mutex> lock(image().mutex);
    image().bytes = bytes;
    image().width = width;
    image().padding = padding;
}

void tst_LinePadding::paddingIsLeftOut_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("sent");
    QTest::addColumn<int>("announced");
    QTest::addColumn<Bytes>("expected");
    QTest::newRow("none") << 5 << 0 << 0 << lines(5, 0);
    QTest::newRow("one byte") << 5 << 1 << 1 << lines(5, 0);
    QTest::newRow("longer than the line") << 2 << 6 << 6 << lines(2, 0);
    QTest::newRow("not announced") << 5 << 3 << 0 << lines(5, 3);
}

void tst_LinePadding::paddingIsLeftOut()
{
    QFETCH(int, width);
    QFETCH(int, sent);
    QFETCH(int, announced);
    send(lines(width, sent), width, announced);
    // One of them may have been on its way already.
    const int enough = frames + 2;
    QTRY_VERIFY(frames >= enough);
    const std::lock_guard<std::mutex> lock(mutex);
    QTEST(received, "expected");
}

// One column more than there is room for, which is told by looking at it.
void tst_LinePadding::imageLargerThanItsBufferIsNone()
{
    const auto awaitLooks = [] {
        const int enough = image().looks + 2;
        QTRY_VERIFY(image().looks >= enough);
    };
    send(lines(65, 0), 65, 0);
    awaitLooks();
    const int before = frames;
    awaitLooks();
    QCOMPARE(frames, before);
    send(lines(64, 0), 64, 0);
    QTRY_VERIFY(frames >= before + 2);
    const std::lock_guard<std::mutex> lock(mutex);
    QCOMPARE(received, lines(64, 0));
}

QTEST_GUILESS_MAIN(tst_LinePadding)
#include "tst_LinePadding.moc"
