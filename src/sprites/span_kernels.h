// SPDX-License-Identifier: MIT
/// The innermost loops: what a span of source pixels does to a span of canvas pixels. Every
/// blitter and every fill ends here, so this is the one place where a machine's own instructions
/// can take over.
///
/// Pixels are 0xAARRGGBB; sources lie at any address. With opacity a, each colour byte d becomes
/// ((255 − a) × d + a × s) >> 8 and the canvas's alpha byte stays; a = 255 writes the pixel whole.
/// Nothing is exempt from that formula unless `ZeroOpacity::Keeps` asks for it: a = 0 takes each
/// byte d ≥ 1 one level down.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kez {

enum class ZeroOpacity { Blends, Keeps };

/// 565 to eight bits a channel: the upper bits again below the lower ones. Opaque.
constexpr std::uint32_t from565(std::uint32_t pixel)
{
    const std::uint32_t red = pixel >> 11;
    const std::uint32_t green = pixel >> 5 & 63;
    const std::uint32_t blue = pixel & 31;
    return 0xFF000000 | (red << 3 | red >> 2) << 16 | (green << 2 | green >> 4) << 8
        | (blue << 3 | blue >> 2);
}

constexpr std::uint32_t redBlue = 0x00FF00FF; ///< Two channels a word: 16 bits for each's product.
constexpr std::uint32_t greenOnly = 0x0000FF00;

/// Colour bytes of `canvas` and `source` weighed by 255 − opacity and opacity, over 256.
constexpr std::uint32_t blendPixel(
    std::uint32_t canvas, std::uint32_t source, std::uint32_t opacity)
{
    // Red and blue share a word: no sum of products exceeds 16 bits. One product is enough, since
    // (255 − a) × d + a × s = 255 × d + a × (s − d), also where the difference wraps.
    const std::uint32_t canvasRb = canvas & redBlue;
    const std::uint32_t canvasG = canvas & greenOnly;
    const std::uint32_t rb = (canvasRb << 8) - canvasRb + ((source & redBlue) - canvasRb) * opacity;
    const std::uint32_t g = (canvasG << 8) - canvasG + ((source & greenOnly) - canvasG) * opacity;
    return (canvas & 0xFF000000) | (rb >> 8 & redBlue) | (g >> 8 & greenOnly);
}

void paletteSpan(
    std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* palette, std::size_t count);
void rgb565Span(std::uint32_t* to, const std::uint8_t* from, std::size_t count);

/// Blends pixels by their own alpha bytes.
void blendSpan(
    std::uint32_t* to, const std::uint8_t* from, std::size_t count, ZeroOpacity zeroOpacity);

/// Blends opaque colours by the opacities of a plane.
void blendPlaneSpan(std::uint32_t* to, const std::uint32_t* colours, const std::uint8_t* plane,
    std::size_t count, ZeroOpacity zeroOpacity);
void blendPaletteSpan(std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* plane,
    const std::uint8_t* palette, std::size_t count, ZeroOpacity zeroOpacity);
void blend565Span(std::uint32_t* to, const std::uint8_t* from, const std::uint8_t* plane,
    std::size_t count, ZeroOpacity zeroOpacity);

void fillSpan(std::uint32_t* to, std::uint32_t pixel, std::size_t count);

/// Blends one pixel's colour over the span by its own alpha byte, 255 included in the formula.
void blendFillSpan(std::uint32_t* to, std::uint32_t pixel, std::size_t count);

/// Copies pixels. Inline, in whole steps whose last one overlaps: most runs are short, and a call
/// of memcpy for each costs more than the copying.
inline void copySpan(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    constexpr std::size_t step = 8;
    if (count >= 512) {
        std::memcpy(to, from, 4 * count);
    } else if (count >= step) {
        for (std::size_t i = 0; i + step < count; i += step)
            std::memcpy(to + i, from + 4 * i, 4 * step);
        std::memcpy(to + count - step, from + 4 * (count - step), 4 * step);
    } else if (count >= 4) {
        std::memcpy(to, from, 16);
        std::memcpy(to + count - 4, from + 4 * (count - 4), 16);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(to + i, from + 4 * i, 4);
    }
}

} // namespace kez
