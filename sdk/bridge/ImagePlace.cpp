#include "sdk/bridge/ImagePlace.h"

#include <algorithm>
#include <utility>

namespace ZalCPP {
namespace {

// PFNC keeps the bits of a pixel in the third byte of its format. 64 bits, because width and height
// may be any numbers.
std::uint64_t bytesOf(const ImagePlace& place)
{
    const std::uint64_t bits = (place.pixelFormat >> 16) & 0xff;
    const auto pixels =
        static_cast<std::uint64_t>(place.width) * static_cast<std::uint64_t>(place.height);
    return pixels / 8 * bits + pixels % 8 * bits / 8;
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
    const std::size_t stride = place.size / rows;
    const std::size_t row = stride - std::min(stride, static_cast<std::size_t>(place.paddingX));
    if (bytesOf(place) > row * rows)
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
