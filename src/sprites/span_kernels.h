// SPDX-License-Identifier: MIT
/// The innermost loops: what a span of source pixels does to a span of canvas pixels. Every blitter
/// and every fill ends here, so this is the one place where a machine's own instructions take over:
/// the loops exist for each vector level, and span_kernels_plain.cpp has the rules as they read.
///
/// Pixels are 0xAARRGGBB; sources lie at any address. With opacity a, each colour byte d becomes
/// ((255 − a) × d + a × s) >> 8 and the canvas's alpha byte stays; a = 255 writes the pixel whole.
/// Nothing is exempt from that formula unless `ZeroOpacity::Keeps` asks for it: a = 0 takes each
/// byte d ≥ 1 one level down.
#pragma once

#include "core/vector_level.h"
#include "sprites/span_kernel_table.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kez {

/// By level.
extern const SpanKernels* const spanKernelsOf[vectorLevels];

inline const SpanKernels& spanKernels()
{
    return *spanKernelsOf[static_cast<std::size_t>(vectorLevel())];
}

/// 565 to eight bits a channel: the upper bits again below the lower ones. Opaque.
constexpr std::uint32_t from565(std::uint32_t pixel)
{
    const std::uint32_t red = pixel >> 11;
    const std::uint32_t green = pixel >> 5 & 63;
    const std::uint32_t blue = pixel & 31;
    return 0xFF000000 | (red << 3 | red >> 2) << 16 | (green << 2 | green >> 4) << 8
        | (blue << 3 | blue >> 2);
}

inline void paletteSpan(
    std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* palette, std::size_t count)
{
    spanKernels().palette(to, indices, palette, count);
}

void rgb565Span(std::uint32_t* to, const std::uint8_t* from, std::size_t count);

/// Blends pixels by their own alpha bytes, opacity 0 included in the formula.
inline void blendSpan(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    spanKernels().blend(to, from, count);
}

inline void copyBlock(const PixelBlock& block)
{
    spanKernels().copyBlock(block);
}

/// Blends pixels by their own alpha bytes; opacity 0 keeps the canvas as it is.
inline void blendBlock(const PixelBlock& block)
{
    spanKernels().blendBlock(block);
}

/// Blends opaque colours by the opacities of a plane.
inline void blendPlaneSpan(std::uint32_t* to, const std::uint32_t* colours,
    const std::uint8_t* plane, std::size_t count, ZeroOpacity zeroOpacity)
{
    spanKernels().blendPlane[static_cast<std::size_t>(zeroOpacity)](to, colours, plane, count);
}

inline void blendPaletteSpan(std::uint32_t* to, const std::uint8_t* indices,
    const std::uint8_t* plane, const std::uint8_t* palette, std::size_t count,
    ZeroOpacity zeroOpacity)
{
    spanKernels().blendPalette[static_cast<std::size_t>(zeroOpacity)](
        to, indices, plane, palette, count);
}

void blend565Span(std::uint32_t* to, const std::uint8_t* from, const std::uint8_t* plane,
    std::size_t count, ZeroOpacity zeroOpacity);

inline void fillSpan(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    spanKernels().fill(to, pixel, count);
}

/// Blends one pixel's colour over the span by its own alpha byte, 255 included in the formula.
inline void blendFillSpan(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    spanKernels().blendFill(to, pixel, count);
}

/// The pixels of a run that the displayed columns show.
inline void pickSpan(std::uint32_t* to, const PickedColumns& from, std::size_t count)
{
    spanKernels().pick(to, from, count);
}

/// Copies pixels, the last one first.
inline void reverseSpan(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    spanKernels().reverse(to, from, count);
}

inline void turnSquares(const QuarterTurn& turn)
{
    spanKernels().quarterTurn(turn);
}

/// Copies pixels. Short runs inline, in whole steps whose last one overlaps: most runs are short,
/// and a call for each costs more than the copying. Long ones with vectors: the memcpy of Windows
/// takes three times as long for the rows of small pictures.
inline void copySpan(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    constexpr std::size_t step = 8;
    constexpr std::size_t longRun = 64;
    if (count >= longRun) {
        copyBlock({ to, 0, from, 0, count, 1 });
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
