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
constexpr PicturePixel nearlyWhite { 254, 255, 255 };
constexpr PicturePixel nearlyMagenta { 255, 0, 254 };

// Byte by byte: of a photograph's millions of pixels most differ in the first one.
bool has(const std::uint8_t* pixel, const PicturePixel& colour)
{
    return pixel[0] == colour[0] && pixel[1] == colour[1] && pixel[2] == colour[2];
}

void paint(std::uint8_t* pixel, const PicturePixel& colour)
{
    std::copy(colour.begin(), colour.end(), pixel);
}

} // namespace

void protectKeyColours(std::uint8_t* pixels, int count)
{
    for (; count > 0; --count, pixels += 3)
        if (has(pixels, white))
            paint(pixels, nearlyWhite);
        else if (has(pixels, keyMagenta))
            paint(pixels, nearlyMagenta);
}

void turnMagentaWhite(std::uint8_t* pixels, int count)
{
    for (; count > 0; --count, pixels += 3)
        if (has(pixels, keyMagenta))
            paint(pixels, white);
}

void applyMask(std::uint8_t* pixels, const std::uint8_t* mask, int count)
{
    if (mask == nullptr)
        return;
    for (int i = 0; i < count; ++i, pixels += 3)
        if (mask[i] != 0)
            paint(pixels, maskedColour);
}

} // namespace kez
