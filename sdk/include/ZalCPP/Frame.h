#pragma once

#include <cstdint>
#include <vector>

namespace ZalCPP {

/// One image. The pixels are the camera's own, in PFNC `pixelFormat`, rows without padding. A plain
/// value: copy it to keep it.
struct Frame
{
    std::uint64_t id = 0;              ///< The camera's own count of frames.
    std::uint32_t width = 0;           ///< In pixels.
    std::uint32_t height = 0;          ///< In rows.
    std::uint32_t pixelFormat = 0;     ///< Code of the Pixel Format Naming Convention.
    std::vector<unsigned char> pixels; ///< Row after row, from the top.
};

} // namespace ZalCPP
