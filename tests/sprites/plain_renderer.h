// SPDX-License-Identifier: MIT
/// The renderer's rules as they read, one pixel at a time: what every blitter is held to. Slow, and
/// without a line in common with the blitters.
#pragma once

#include "sprites/renderer.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace kez::test {

/// A sprite's meaning, whatever form it is stored in.
struct PlainSprite {
    int width = 0;
    int height = 0;
    bool isRaw = true;
    bool hasAlpha = false;
    std::vector<std::uint32_t> colours; // as an opaque pixel is written, alpha byte included
    std::vector<std::uint8_t> opacities;
    std::vector<std::uint8_t> stored; // 0: skipped
};

inline std::uint8_t byteOf(std::uint32_t pixel, int byte)
{
    return static_cast<std::uint8_t>(pixel >> 8 * byte);
}

inline std::uint32_t plainBlend(std::uint32_t canvas, std::uint32_t colour, unsigned opacity)
{
    if (opacity == 255)
        return colour;
    std::uint32_t result = canvas & 0xFF000000;
    for (int byte = 0; byte < 3; ++byte) {
        const unsigned sum
            = (255 - opacity) * byteOf(canvas, byte) + opacity * byteOf(colour, byte);
        result |= sum / 256 << 8 * byte;
    }
    return result;
}

/// Turning makes a raw sprite of 32-bit pixels, whose skipped pixels have opacity 0.
inline PlainSprite plainTurn(const PlainSprite& from, int angle)
{
    PlainSprite to = from;
    to.isRaw = true;
    to.hasAlpha = from.hasAlpha || !from.isRaw;
    if (angle != 180)
        std::swap(to.width, to.height);
    for (int y = 0; y < from.height; ++y) {
        for (int x = 0; x < from.width; ++x) {
            const int column = angle == 90 ? from.height - 1 - y
                : angle == 180             ? from.width - 1 - x
                                           : y;
            const int row = angle == 90 ? x
                : angle == 180          ? from.height - 1 - y
                                        : from.width - 1 - x;
            const auto source = static_cast<std::size_t>(y * from.width + x);
            const auto target = static_cast<std::size_t>(row * to.width + column);
            const std::uint32_t opacity = from.hasAlpha ? from.opacities[source] : 255u;
            std::uint32_t pixel = from.colours[source];
            if (from.hasAlpha || !from.isRaw)
                pixel = (pixel & 0x00FFFFFF) | opacity << 24;
            if (from.stored[source] == 0)
                pixel = 0;
            to.colours[target] = pixel;
            to.opacities[target] = byteOf(pixel, 3);
            to.stored[target] = 1;
        }
    }
    return to;
}

inline int plainSource(int displayed, int sourceLength, int displayedLength)
{
    int step = 0;
    if (sourceLength > 1 && displayedLength > 1)
        step = (((sourceLength - 1) << 16) + (displayedLength - 1) / 2) / (displayedLength - 1);
    return (32768 + displayed * step) >> 16;
}

inline void plainDraw(
    const CanvasPixels& canvas, const PlainSprite& original, SpritePlacement place)
{
    const int quarters = place.angle / 90;
    if (place.angle != quarters * 90 || quarters < 0 || quarters > 3)
        return;
    const PlainSprite sprite = quarters == 0 ? original : plainTurn(original, place.angle);
    if (quarters % 2 == 1)
        std::swap(place.width, place.height);
    const bool isScaled = sprite.width != place.width || sprite.height != place.height;
    const int left = place.x + (canvas.width - place.width) / 2;
    const int top = place.y + (canvas.height - place.height) / 2;
    for (int row = 0; row < place.height; ++row) {
        for (int column = 0; column < place.width; ++column) {
            if (left + column < 0 || left + column >= canvas.width || top + row < 0
                || top + row >= canvas.height)
                continue;
            const int x = isScaled ? plainSource(column, sprite.width, place.width) : column;
            const int y = isScaled ? plainSource(row, sprite.height, place.height) : row;
            const auto source = static_cast<std::size_t>(y * sprite.width + x);
            const unsigned opacity = sprite.hasAlpha ? sprite.opacities[source] : 255u;
            const bool isKept = opacity == 0 && sprite.isRaw && !isScaled;
            if (sprite.stored[source] == 0 || isKept)
                continue;
            std::uint32_t& pixel = canvas.pixels[(top + row) * canvas.width + left + column];
            pixel = plainBlend(pixel, sprite.colours[source], opacity);
        }
    }
}

} // namespace kez::test
