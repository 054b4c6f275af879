#include "sdk/bridge/ImagePlace.h"

#include <utility>

namespace ZalCPP {
namespace {

// PFNC keeps the bits of a pixel in the third byte of its format.
std::uint64_t bitsOfPixel(const ImagePlace& place)
{
    return (place.pixelFormat >> 16) & 0xff;
}

// 64 bits, because width and height may be any numbers.
std::uint64_t bytesOf(const ImagePlace& place)
{
    const auto pixels =
        static_cast<std::uint64_t>(place.width) * static_cast<std::uint64_t>(place.height);
    return pixels / 8 * bitsOfPixel(place) + pixels % 8 * bitsOfPixel(place) / 8;
}

// Padding begins with a whole byte.
std::size_t bytesOfRow(const ImagePlace& place)
{
    return (static_cast<std::uint64_t>(place.width) * bitsOfPixel(place) + 7) / 8;
}

} // namespace

bool copyPixels(const ImagePlace& place, std::vector<unsigned char>& pixels)
{
    const bool isThere = place.data && place.width > 0 && place.height > 0 && place.paddingX >= 0;
    if (!isThere || bytesOf(place) > place.size)
        return false;
    if (place.paddingX == 0) {
        pixels.assign(place.data, place.data + place.size);
        return true;
    }
    const auto rows = static_cast<std::size_t>(place.height);
    const std::size_t row = bytesOfRow(place);
    const std::size_t stride = row + static_cast<std::size_t>(place.paddingX);
    // The last row may come without its padding, and anything may lie behind it.
    if (row > place.size || (place.size - row) / stride < rows - 1)
        return false;
    std::vector<unsigned char> copied;
    copied.reserve(row * rows);
    for (std::size_t y = 0; y < rows; ++y) {
        const unsigned char* begin = place.data + y * stride;
        copied.insert(copied.end(), begin, begin + row);
    }
    pixels = std::move(copied);
    return true;
}

} // namespace ZalCPP
