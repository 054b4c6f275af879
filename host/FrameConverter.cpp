#include "host/FrameConverter.h"

#include <QCoreApplication>

#include <cstring>

namespace {

/// How the pixels of a format lie in memory and what they become.
struct Layout
{
    std::uint32_t pixelFormat; ///< PFNC code.
    std::size_t bytesPerPixel;
    unsigned bits; ///< Significant bits of one component.
    QImage::Format image;
};

constexpr QImage::Format Grey = QImage::Format_Grayscale8;

constexpr Layout Layouts[] = {
    {0x01080001, 1, 8, Grey},                  // Mono8
    {0x01100003, 2, 10, Grey},                 // Mono10
    {0x01100005, 2, 12, Grey},                 // Mono12
    {0x01100025, 2, 14, Grey},                 // Mono14
    {0x01100007, 2, 16, Grey},                 // Mono16
    {0x01080008, 1, 8, Grey},                  // BayerGR8
    {0x01080009, 1, 8, Grey},                  // BayerRG8
    {0x0108000A, 1, 8, Grey},                  // BayerGB8
    {0x0108000B, 1, 8, Grey},                  // BayerBG8
    {0x0110000C, 2, 10, Grey},                 // BayerGR10
    {0x0110000D, 2, 10, Grey},                 // BayerRG10
    {0x0110000E, 2, 10, Grey},                 // BayerGB10
    {0x0110000F, 2, 10, Grey},                 // BayerBG10
    {0x01100010, 2, 12, Grey},                 // BayerGR12
    {0x01100011, 2, 12, Grey},                 // BayerRG12
    {0x01100012, 2, 12, Grey},                 // BayerGB12
    {0x01100013, 2, 12, Grey},                 // BayerBG12
    {0x0110002E, 2, 16, Grey},                 // BayerGR16
    {0x0110002F, 2, 16, Grey},                 // BayerRG16
    {0x01100030, 2, 16, Grey},                 // BayerGB16
    {0x01100031, 2, 16, Grey},                 // BayerBG16
    {0x02180014, 3, 8, QImage::Format_RGB888}, // RGB8
    {0x02180015, 3, 8, QImage::Format_BGR888}, // BGR8
};

const Layout* findLayout(std::uint32_t pixelFormat)
{
    for (const Layout& layout : Layouts) {
        if (layout.pixelFormat == pixelFormat)
            return &layout;
    }
    return nullptr;
}

void copyRow(const unsigned char* source, uchar* target, std::size_t width, const Layout& layout)
{
    if (layout.bits == 8) {
        std::memcpy(target, source, width * layout.bytesPerPixel);
        return;
    }
    // Two bytes per pixel, the low one first, the value in the low bits.
    for (std::size_t x = 0; x < width; ++x) {
        const unsigned value = source[2 * x] | static_cast<unsigned>(source[2 * x + 1]) << 8U;
        target[x] = static_cast<uchar>(value >> (layout.bits - 8U));
    }
}

QImage copyPixels(const ZalCPP::Frame& frame, const Layout& layout)
{
    QImage image(static_cast<int>(frame.width), static_cast<int>(frame.height), layout.image);
    const std::size_t rowLength = frame.width * layout.bytesPerPixel;
    for (int y = 0; y < image.height(); ++y) {
        const unsigned char* row = frame.pixels.data() + static_cast<std::size_t>(y) * rowLength;
        copyRow(row, image.scanLine(y), frame.width, layout);
    }
    return image;
}

bool isComplete(const ZalCPP::Frame& frame, const Layout& layout)
{
    if (frame.width == 0 || frame.height == 0)
        return false;
    // The product of all three may be more than a number can hold.
    return frame.pixels.size() / (frame.width * layout.bytesPerPixel) >= frame.height;
}

} // namespace

QImage convertFrame(const ZalCPP::Frame& frame, QString& problem)
{
    const Layout* layout = findLayout(frame.pixelFormat);
    if (!layout) {
        problem = QCoreApplication::translate("FrameConverter",
                                              "Images in the pixel format 0x%1 cannot be shown.")
                      .arg(frame.pixelFormat, 8, 16, QLatin1Char('0'));
        return {};
    }
    if (!isComplete(frame, *layout)) {
        problem = QCoreApplication::translate("FrameConverter",
                                              "The camera delivered an incomplete image.");
        return {};
    }
    QImage image = copyPixels(frame, *layout);
    if (image.isNull())
        problem = QCoreApplication::translate("FrameConverter",
                                              "Images of %1 x %2 pixels cannot be shown.")
                      .arg(frame.width)
                      .arg(frame.height);
    return image;
}
