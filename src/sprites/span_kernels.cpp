// SPDX-License-Identifier: MIT
#include "sprites/span_kernels.h"

#include "sprites/record_bytes.h"

#include <algorithm>

namespace kez {

namespace {

std::uint32_t whole(
    std::uint32_t canvas, std::uint32_t colour, std::uint32_t opacity, ZeroOpacity zeroOpacity)
{
    const std::uint32_t blended = blendPixel(canvas, colour, opacity);
    const bool isKept = zeroOpacity == ZeroOpacity::Keeps && opacity == 0;
    return opacity == 255 ? colour : isKept ? canvas : blended;
}

// Without a branch, so that the vectoriser takes it.
template <ZeroOpacity zeroOpacity>
void blendOwn(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t colour = loadWord(from + 4 * i);
        to[i] = whole(to[i], colour, colour >> 24, zeroOpacity);
    }
}

template <ZeroOpacity zeroOpacity>
void blendPlane(
    std::uint32_t* to, const std::uint32_t* colours, const std::uint8_t* plane, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
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
    // The pixel's own share is the same everywhere, so that one product a channel pair remains.
    const std::uint32_t rest = 255 - (pixel >> 24);
    const std::uint32_t ownRb = (pixel & redBlue) * (pixel >> 24);
    const std::uint32_t ownGreen = (pixel & greenOnly) * (pixel >> 24);
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t rb = (to[i] & redBlue) * rest + ownRb;
        const std::uint32_t green = (to[i] & greenOnly) * rest + ownGreen;
        to[i] = (to[i] & 0xFF000000) | (rb >> 8 & redBlue) | (green >> 8 & greenOnly);
    }
}

} // namespace kez
