// SPDX-License-Identifier: MIT
/// How a 16-bit display lays its colours into a pixel, found from its three colour masks.
#pragma once

#include <cstdint>

namespace kez {

enum class DisplayFormat { rgb565, rgb555, rgbOther };

/// One colour channel of a 16-bit display.
struct ChannelMask {
    std::uint32_t mask = 0;
    int topBit = 0; ///< Highest set bit, 15 downward; 0 for an empty mask.
    int width = 0; ///< Contiguous set bits from there down.
};

struct DisplayLayout {
    DisplayFormat format = DisplayFormat::rgb565;
    ChannelMask red, green, blue;

    static DisplayLayout fromMasks(
        std::uint32_t redMask, std::uint32_t greenMask, std::uint32_t blueMask);
};

} // namespace kez
