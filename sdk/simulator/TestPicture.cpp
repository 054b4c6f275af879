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
        : number(std::to_string(frame)), shift(int(frame * 3 % 256)), factor(brightness)
    {
    }

    std::uint8_t Gray(int x, int y) const
    {
        if (IsInNumber(x, y))
            return IsDigit(x - NumberLeft, y - NumberTop) ? 255 : 0;
        if (x % GridPitch == 0 || y % GridPitch == 0)
            return 200;
        const int gradient = (x / 4 + y / 4 + shift) % 256;
        return static_cast<std::uint8_t>(std::min(gradient * factor, 255.0));
    }

private:
    bool IsInNumber(int x, int y) const
    {
        // With a margin, or bright surroundings would swallow the strokes at its edge.
        return x >= NumberLeft - DigitScale && x < NumberLeft + int(number.size()) * DigitPitch &&
               y >= NumberTop - DigitScale && y < NumberTop + (DigitHeight + 1) * DigitScale;
    }

    bool IsDigit(int x, int y) const
    {
        if (x < 0 || y < 0 || y >= DigitHeight * DigitScale)
            return false;
        const int column = x % DigitPitch / DigitScale;
        const auto digit = static_cast<std::size_t>(number[std::size_t(x / DigitPitch)] - '0');
        const int row = Digits[digit][std::size_t(y / DigitScale)];
        return column < DigitWidth && ((row >> (DigitWidth - 1 - column)) & 1) != 0;
    }

    std::string number;
    int shift;
    double factor;
};

// Aravis calls this on the camera's own thread while it makes a frame. It has seen to it that the
// buffer is large enough; the buffer's own size says how much was received and is 0 here.
void Fill(ArvBuffer* buffer, void* device, guint32, guint32 gain, ArvPixelFormat format)
{
    // Aravis numbers its frames from somewhere below 65536, so that hosts see them roll over.
    Memory memory(static_cast<ArvFakeCamera*>(device));
    const std::uint32_t number = memory.Read(Registers::PictureNumber) + 1;
    memory.Write(Registers::PictureNumber, number);
    std::size_t received = 0;
    const void* data = arv_buffer_get_data(buffer, &received);
    auto* byte = static_cast<std::uint8_t*>(const_cast<void*>(data));
    const int width = arv_buffer_get_image_width(buffer);
    const int height = arv_buffer_get_image_height(buffer);
    const std::size_t bytes = ARV_PIXEL_FORMAT_BIT_PER_PIXEL(format) / 8;
    const Picture picture(number, std::pow(10.0, gain / 200.0));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint8_t gray = picture.Gray(x, y);
            for (std::size_t i = 0; i < bytes; ++i)
                *byte++ = gray;
        }
    }
}

} // namespace

void ShowTestPicture(ArvFakeCamera* device)
{
    arv_fake_camera_set_fill_pattern(device, Fill, device);
}

} // namespace ZalSim
