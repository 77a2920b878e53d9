// SPDX-License-Identifier: MIT
#include "display/display_layout.h"

namespace kez {

namespace {

ChannelMask measured(std::uint32_t mask)
{
    ChannelMask channel { .mask = mask & 0xFFFF };
    if (channel.mask == 0)
        return channel;
    channel.topBit = 15;
    while ((channel.mask >> channel.topBit & 1) == 0)
        --channel.topBit;
    while (channel.width <= channel.topBit
        && (channel.mask >> (channel.topBit - channel.width) & 1) != 0)
        ++channel.width;
    return channel;
}

} // namespace

DisplayLayout DisplayLayout::fromMasks(
    std::uint32_t redMask, std::uint32_t greenMask, std::uint32_t blueMask)
{
    // The masks settle the top bits too.
    auto format = DisplayFormat::rgbOther;
    if (redMask == 0xF800 && greenMask == 0x07E0 && blueMask == 0x001F)
        format = DisplayFormat::rgb565;
    else if (redMask == 0x7C00 && greenMask == 0x03E0 && blueMask == 0x001F)
        format = DisplayFormat::rgb555;
    return { format, measured(redMask), measured(greenMask), measured(blueMask) };
}

} // namespace kez
