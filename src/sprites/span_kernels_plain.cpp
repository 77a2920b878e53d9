// SPDX-License-Identifier: MIT
// The rules of the span kernels as they read: what every vector level must give to the bit.
#include "core/little_endian.h"
#include "sprites/span_kernel_table.h"

namespace kez {

namespace {

std::uint32_t weighed(std::uint32_t canvas, std::uint32_t colour, std::uint32_t opacity)
{
    std::uint32_t result = canvas & 0xFF000000;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t sum
            = (255 - opacity) * (canvas >> shift & 255) + opacity * (colour >> shift & 255);
        result |= (sum >> 8) << shift;
    }
    return result;
}

template <ZeroOpacity zeroOpacity>
void blendPixel(std::uint32_t& canvas, std::uint32_t colour, std::uint32_t opacity)
{
    if (opacity == 255)
        canvas = colour;
    else if (zeroOpacity == ZeroOpacity::Blends || opacity != 0)
        canvas = weighed(canvas, colour, opacity);
}

std::uint32_t entry(const std::uint8_t* palette, std::uint8_t index)
{
    return loadWord(palette + std::size_t { 4 } * index);
}

void palette(
    std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* palette, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = entry(palette, indices[i]);
}

void forEachPixel(const PixelBlock& block, auto&& rule)
{
    for (std::size_t y = 0; y < block.rows; ++y) {
        std::uint32_t* const to = block.to + static_cast<std::ptrdiff_t>(y) * block.toRowPixels;
        const std::uint8_t* const from
            = block.from + static_cast<std::ptrdiff_t>(y) * block.fromRowBytes;
        for (std::size_t x = 0; x < block.columns; ++x)
            rule(to[x], loadWord(from + 4 * x));
    }
}

void copyBlock(const PixelBlock& block)
{
    forEachPixel(block, [](std::uint32_t& canvas, std::uint32_t colour) { canvas = colour; });
}

void blendBlock(const PixelBlock& block)
{
    forEachPixel(block, [](std::uint32_t& canvas, std::uint32_t colour) {
        blendPixel<ZeroOpacity::Keeps>(canvas, colour, colour >> 24);
    });
}

void blend(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t colour = loadWord(from + 4 * i);
        blendPixel<ZeroOpacity::Blends>(to[i], colour, colour >> 24);
    }
}

template <ZeroOpacity zeroOpacity>
void blendPlane(
    std::uint32_t* to, const std::uint32_t* colours, const std::uint8_t* plane, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        blendPixel<zeroOpacity>(to[i], colours[i], plane[i]);
}

template <ZeroOpacity zeroOpacity>
void blendPalette(std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* plane,
    const std::uint8_t* palette, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        blendPixel<zeroOpacity>(to[i], entry(palette, indices[i]), plane[i]);
}

void fill(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = pixel;
}

void blendFill(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = weighed(to[i], pixel, pixel >> 24);
}

void pick(std::uint32_t* to, const PickedColumns& from, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = loadWord(from.run + std::ptrdiff_t { 4 } * (from.columns[i] - from.runColumn));
}

void reverse(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[count - 1 - i] = loadWord(from + 4 * i);
}

void quarterTurn(const QuarterTurn& turn)
{
    for (std::size_t y = 0; y < turn.height; ++y) {
        const std::uint8_t* const row
            = turn.from + static_cast<std::ptrdiff_t>(y) * turn.fromRowBytes;
        for (std::size_t x = 0; x < turn.width; ++x)
            turn.to[static_cast<std::ptrdiff_t>(x) * turn.toColumnPixels
                + static_cast<std::ptrdiff_t>(y)]
                = loadWord(row + 4 * x);
    }
}

} // namespace

const SpanKernels plainSpanKernels = {
    .copyBlock = copyBlock,
    .blendBlock = blendBlock,
    .blend = blend,
    .palette = palette,
    .blendPlane = { blendPlane<ZeroOpacity::Blends>, blendPlane<ZeroOpacity::Keeps> },
    .blendPalette = { blendPalette<ZeroOpacity::Blends>, blendPalette<ZeroOpacity::Keeps> },
    .fill = fill,
    .blendFill = blendFill,
    .pick = pick,
    .reverse = reverse,
    .quarterTurn = quarterTurn,
};

} // namespace kez
