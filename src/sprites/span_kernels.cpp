// SPDX-License-Identifier: MIT
#include "sprites/span_kernels.h"

#include "sprites/record_bytes.h"

#include <algorithm>

namespace kez {

namespace {

constexpr std::size_t step = 8; // pixels that are looked at and blended together

std::uint32_t whole(
    std::uint32_t canvas, std::uint32_t colour, std::uint32_t opacity, ZeroOpacity zeroOpacity)
{
    const std::uint32_t blended = blendPixel(canvas, colour, opacity);
    const bool isKept = zeroOpacity == ZeroOpacity::Keeps && opacity == 0;
    return opacity == 255 ? colour : isKept ? canvas : blended;
}

// Sprites are mostly opaque or transparent: whole steps of either are copied or left alone.
template <ZeroOpacity zeroOpacity>
void blendStep(std::uint32_t* to, const std::uint32_t* colours, const std::uint32_t* opacities)
{
    std::uint32_t all = 255;
    std::uint32_t any = 0;
    for (std::size_t i = 0; i < step; ++i) {
        all &= opacities[i];
        any |= opacities[i];
    }
    if (all == 255)
        std::copy_n(colours, step, to);
    else if (any != 0 || zeroOpacity == ZeroOpacity::Blends)
        for (std::size_t i = 0; i < step; ++i)
            to[i] = whole(to[i], colours[i], opacities[i], zeroOpacity);
}

template <ZeroOpacity zeroOpacity>
void blendOwn(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    std::size_t i = 0;
    for (; i + step <= count; i += step) {
        std::uint32_t colours[step];
        std::uint32_t opacities[step];
        std::memcpy(colours, from + 4 * i, sizeof colours);
        for (std::size_t k = 0; k < step; ++k)
            opacities[k] = colours[k] >> 24;
        blendStep<zeroOpacity>(to + i, colours, opacities);
    }
    for (; i < count; ++i) {
        const std::uint32_t colour = loadWord(from + 4 * i);
        to[i] = whole(to[i], colour, colour >> 24, zeroOpacity);
    }
}

template <ZeroOpacity zeroOpacity>
void blendPlane(
    std::uint32_t* to, const std::uint32_t* colours, const std::uint8_t* plane, std::size_t count)
{
    std::size_t i = 0;
    for (; i + step <= count; i += step) {
        std::uint32_t opacities[step];
        for (std::size_t k = 0; k < step; ++k)
            opacities[k] = plane[i + k];
        blendStep<zeroOpacity>(to + i, colours + i, opacities);
    }
    for (; i < count; ++i)
        to[i] = whole(to[i], colours[i], plane[i], zeroOpacity);
}

// Blends what `decode(colours, first, count)` yields, a buffer at a time.
void blendDecoded(std::uint32_t* to, const std::uint8_t* plane, std::size_t count,
    ZeroOpacity zeroOpacity, auto&& decode)
{
    constexpr std::size_t bufferPixels = 64;
    std::uint32_t colours[bufferPixels];
    for (std::size_t i = 0; i < count; i += bufferPixels) {
        const std::size_t part = std::min(bufferPixels, count - i);
        decode(colours, i, part);
        blendPlaneSpan(to + i, colours, plane + i, part, zeroOpacity);
    }
}

} // namespace

void paletteSpan(
    std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* palette, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = loadWord(palette + std::size_t { 4 } * indices[i]);
}

void rgb565Span(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = from565(loadWord16(from + 2 * i));
}

void blendSpan(
    std::uint32_t* to, const std::uint8_t* from, std::size_t count, ZeroOpacity zeroOpacity)
{
    if (zeroOpacity == ZeroOpacity::Keeps)
        blendOwn<ZeroOpacity::Keeps>(to, from, count);
    else
        blendOwn<ZeroOpacity::Blends>(to, from, count);
}

void blendPlaneSpan(std::uint32_t* to, const std::uint32_t* colours, const std::uint8_t* plane,
    std::size_t count, ZeroOpacity zeroOpacity)
{
    if (zeroOpacity == ZeroOpacity::Keeps)
        blendPlane<ZeroOpacity::Keeps>(to, colours, plane, count);
    else
        blendPlane<ZeroOpacity::Blends>(to, colours, plane, count);
}

void blendPaletteSpan(std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* plane,
    const std::uint8_t* palette, std::size_t count, ZeroOpacity zeroOpacity)
{
    blendDecoded(to, plane, count, zeroOpacity,
        [&](std::uint32_t* colours, std::size_t first, std::size_t part) {
            paletteSpan(colours, indices + first, palette, part);
        });
}

void blend565Span(std::uint32_t* to, const std::uint8_t* from, const std::uint8_t* plane,
    std::size_t count, ZeroOpacity zeroOpacity)
{
    blendDecoded(to, plane, count, zeroOpacity,
        [&](std::uint32_t* colours, std::size_t first, std::size_t part) {
            rgb565Span(colours, from + 2 * first, part);
        });
}

void fillSpan(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    std::fill_n(to, count, pixel);
}

void blendFillSpan(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = blendPixel(to[i], pixel, pixel >> 24);
}

} // namespace kez
