#include "sdk/simulator/TestPicture.h"

#include "sdk/simulator/Memory.h"

#include <arv.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>

namespace ZalSim {

namespace {

constexpr int DigitWidth = 3;
constexpr int DigitHeight = 5;
constexpr int DigitScale = 6;
constexpr int DigitPitch = (DigitWidth + 1) * DigitScale;
constexpr int NumberLeft = 16;
constexpr int NumberTop = 16;
constexpr int GridPitch = 64;

// Rows from the top, three pixels each.
constexpr std::array<std::array<std::uint8_t, DigitHeight>, 10> Digits = {{
    {7, 5, 5, 5, 7},
    {2, 6, 2, 2, 7},
    {7, 1, 7, 4, 7},
    {7, 1, 7, 1, 7},
    {5, 5, 7, 1, 1},
    {7, 4, 7, 1, 7},
    {7, 4, 7, 5, 7},
    {7, 1, 2, 2, 2},
    {7, 5, 7, 5, 7},
    {7, 5, 7, 1, 7},
}};

class Picture
{
public:
    Picture(std::uint32_t frame, double brightness)
        : m_number(std::to_string(frame)), m_shift(int(frame * 3 % 256)), m_factor(brightness)
    {
    }

    std::uint8_t gray(int x, int y) const
    {
        if (isInNumber(x, y))
            return isDigit(x - NumberLeft, y - NumberTop) ? 255 : 0;
        if (x % GridPitch == 0 || y % GridPitch == 0)
            return 200;
        const int gradient = (x / 4 + y / 4 + m_shift) % 256;
        return static_cast<std::uint8_t>(std::min(gradient * m_factor, 255.0));
    }

private:
    bool isInNumber(int x, int y) const
    {
        // With a margin, or bright surroundings would swallow the strokes at its edge.
        return x >= NumberLeft - DigitScale && x < NumberLeft + int(m_number.size()) * DigitPitch &&
               y >= NumberTop - DigitScale && y < NumberTop + (DigitHeight + 1) * DigitScale;
    }

    bool isDigit(int x, int y) const
    {
        if (x < 0 || y < 0 || y >= DigitHeight * DigitScale)
            return false;
        const int column = x % DigitPitch / DigitScale;
        const auto digit = static_cast<std::size_t>(m_number[std::size_t(x / DigitPitch)] - '0');
        const int row = Digits[digit][std::size_t(y / DigitScale)];
        return column < DigitWidth && ((row >> (DigitWidth - 1 - column)) & 1) != 0;
    }

    std::string m_number;
    int m_shift;
    double m_factor;
};

// Aravis calls this on the camera's own thread while it makes a frame. It has seen to it that the
// buffer is large enough; the buffer's own size says how much was received and is 0 here.
void fill(ArvBuffer* buffer, void* device, guint32, guint32 gain, ArvPixelFormat format)
{
    // Not Aravis' own number, which begins just below 65536 to let hosts see it roll over.
    Memory memory(static_cast<ArvFakeCamera*>(device));
    const std::uint32_t number = memory.read(Registers::PictureNumber) + 1;
    memory.write(Registers::PictureNumber, number);
    std::size_t received = 0;
    const void* data = arv_buffer_get_data(buffer, &received);
    auto* byte = static_cast<std::uint8_t*>(const_cast<void*>(data));
    const int width = arv_buffer_get_image_width(buffer);
    const int height = arv_buffer_get_image_height(buffer);
    const std::size_t bytes = ARV_PIXEL_FORMAT_BIT_PER_PIXEL(format) / 8;
    const Picture picture(number, std::pow(10.0, gain / 200.0));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint8_t gray = picture.gray(x, y);
            for (std::size_t i = 0; i < bytes; ++i)
                *byte++ = gray;
        }
    }
}

} // namespace

void showTestPicture(ArvFakeCamera* device)
{
    arv_fake_camera_set_fill_pattern(device, fill, device);
}

} // namespace ZalSim
