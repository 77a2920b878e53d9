// SPDX-License-Identifier: MIT
#include "activity/thumbnail.h"

#include <algorithm>

namespace kez {

namespace {

// Pixels of white on each side of `size` source pixels reduced into `room`.
std::int64_t margin(int size, int room, std::int64_t percent)
{
    return (room - std::int64_t { size } * 100 / percent) / 2;
}

} // namespace

int reductionPercent(int width, int height, int fitWidth, int fitHeight)
{
    const auto scale = static_cast<float>(
        std::max(static_cast<double>(width) / fitWidth, static_cast<double>(height) / fitHeight));
    return static_cast<int>(100.0 * static_cast<double>(scale));
}

void makeThumbnail(const std::uint8_t* source, int sw, int sh, const std::uint8_t* mask,
    std::uint8_t* out, int ow, int oh)
{
    const std::int64_t bytes = std::int64_t { ow } * oh * 3;
    std::fill_n(out, bytes, std::uint8_t { 255 });
    const std::int64_t percent = reductionPercent(sw, sh, ow, oh);
    if (percent < 1)
        return; // a hundred times enlarged: nothing a thumbnail can show

    const std::int64_t marginX = margin(sw, ow, percent);
    const std::int64_t marginY = margin(sh, oh, percent);
    const std::int64_t pixels = std::int64_t { sw } * sh;
    for (std::int64_t y = std::max<std::int64_t>(marginY, 0);
         y < std::min<std::int64_t>(oh, oh - marginY); ++y)
        for (std::int64_t x = std::max<std::int64_t>(marginX, 0);
             x < std::min<std::int64_t>(ow, ow - marginX); ++x) {
            const std::int64_t index
                = (y - marginY) * percent / 100 * sw + (x - marginX) * percent / 100;
            if (index < pixels && (mask == nullptr || mask[index] == 0))
                std::copy_n(source + index * 3, 3, out + (y * ow + x) * 3);
        }
}

} // namespace kez
