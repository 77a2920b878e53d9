// SPDX-License-Identifier: MIT
#include "activity/key_colours.h"

#include <algorithm>
#include <array>

namespace kez {

namespace {

using PicturePixel = std::array<std::uint8_t, 3>;

constexpr PicturePixel white { 255, 255, 255 };
constexpr PicturePixel keyMagenta { 255, 0, 255 };
constexpr PicturePixel maskedColour { 255, 255, 254 };

void replaceColour(
    std::uint8_t* pixels, int count, const PicturePixel& from, const PicturePixel& to)
{
    for (std::uint8_t* pixel = pixels; count > 0; --count, pixel += 3)
        if (std::equal(from.begin(), from.end(), pixel))
            std::copy(to.begin(), to.end(), pixel);
}

} // namespace

void protectKeyColours(std::uint8_t* pixels, int count)
{
    replaceColour(pixels, count, white, { 254, 255, 255 });
    replaceColour(pixels, count, keyMagenta, { 255, 0, 254 });
}

void turnMagentaWhite(std::uint8_t* pixels, int count)
{
    replaceColour(pixels, count, keyMagenta, white);
}

void applyMask(std::uint8_t* pixels, const std::uint8_t* mask, int count)
{
    if (mask == nullptr)
        return;
    for (int i = 0; i < count; ++i, pixels += 3)
        if (mask[i] != 0)
            std::copy(maskedColour.begin(), maskedColour.end(), pixels);
}

} // namespace kez
