#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ZalCPP {

/// Where an image lies in a buffer, as the camera says.
struct ImagePlace
{
    const unsigned char* data = nullptr; ///< `size` bytes.
    std::size_t size = 0;
    int width = 0;                 ///< In pixels.
    int height = 0;                ///< In rows.
    int paddingX = 0;              ///< Bytes behind each row.
    std::uint32_t pixelFormat = 0; ///< PFNC code.
};

/// Copies the rows without their padding. False, with `pixels` untouched, when there are fewer
/// bytes than an image of that size and pixel format has.
bool copyPixels(const ImagePlace& place, std::vector<unsigned char>& pixels);

} // namespace ZalCPP
