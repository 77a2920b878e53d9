// SPDX-License-Identifier: MIT
#include "sprites/blit.h"
#include "sprites/pixel_writers.h"

#include <algorithm>
#include <vector>

namespace kez {

namespace {

template <class Rows, class Format, bool hasAlpha>
void expandRow(const BlitSource& source, RowCursor& at, std::uint32_t* row)
{
    constexpr bool followsPlane = hasAlpha && Format::hasPlane;
    if constexpr (Rows::skips)
        std::fill_n(row, source.width, 0);
    Rows::template row<Format::pixelBytes, followsPlane>(
        at, source.width, [&](int column, int count, const RowCursor& run) {
            std::uint32_t* const to = row + column;
            Format::copy(to, run, source.palette, count);
            if constexpr (followsPlane) {
                for (int i = 0; i < count; ++i)
                    to[i] = (to[i] & 0x00FFFFFF) | std::uint32_t { run.plane[i] } << 24;
            } else if constexpr (Rows::skips && !hasAlpha) {
                for (int i = 0; i < count; ++i)
                    to[i] |= 0xFF000000;
            }
        });
}

using Expand = void (*)(const BlitSource&, RowCursor&, std::uint32_t*);

template <class Rows, class Format>
constexpr Expand opaqueOrBlended[]
    = { expandRow<Rows, Format, false>, expandRow<Rows, Format, true> };

template <class Rows>
constexpr const Expand* ofFormats[] = {
    opaqueOrBlended<Rows, Indexed>,
    opaqueOrBlended<Rows, Rgb565>,
    opaqueOrBlended<Rows, TrueColour>,
};

constexpr const Expand* const* expanders[] = {
    // [mode][format][hasAlpha]
    ofFormats<RawRows>,
    ofFormats<ShortRunRows>,
    ofFormats<LongRunRows>,
};

// Rows of the source, without gaps, from row `top` on.
struct Band {
    const std::uint8_t* pixels;
    std::ptrdiff_t top;
    std::ptrdiff_t rows;
};

// Turns a band of a picture of width × height into its place in the turned one.
void turnBand(
    const Band& band, std::ptrdiff_t width, std::ptrdiff_t height, int angle, std::uint32_t* into)
{
    const std::ptrdiff_t bottom = band.top + band.rows;
    if (angle == 180) {
        reverseSpan(into + (height - bottom) * width, band.pixels,
            static_cast<std::size_t>(band.rows * width));
        return;
    }
    // Either side is read or written backwards.
    const std::ptrdiff_t rowBytes = 4 * width;
    QuarterTurn turn { band.pixels, rowBytes, into, height, static_cast<std::size_t>(width),
        static_cast<std::size_t>(band.rows) };
    if (angle == 90) {
        turn.from += (band.rows - 1) * rowBytes;
        turn.fromRowBytes = -rowBytes;
        turn.to += height - bottom;
    } else {
        turn.to += (width - 1) * height + band.top;
        turn.toColumnPixels = -height;
    }
    turnSquares(turn);
}

constexpr int bandRows = 16; // expanded before they are turned

void expandAndTurn(const BlitSource& source, int angle, std::uint32_t* into)
{
    static std::vector<std::uint32_t> pixels;
    pixels.resize(static_cast<std::size_t>(source.width) * bandRows);
    const Expand expand = expanders[static_cast<std::size_t>(source.mode)][static_cast<std::size_t>(
        source.format)][source.hasAlpha ? 1 : 0];
    RowCursor at = source.start;
    for (int top = 0; top < source.height; top += bandRows) {
        const int rows = std::min(bandRows, source.height - top);
        for (int y = 0; y < rows; ++y)
            expand(source, at, pixels.data() + static_cast<std::ptrdiff_t>(y) * source.width);
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(pixels.data());
        turnBand({ bytes, top, rows }, source.width, source.height, angle, into);
    }
}

} // namespace

void turn(const BlitSource& source, int angle, std::uint32_t* into)
{
    const bool isExpanded
        = source.mode == SpriteMode::Raw && source.format == StoredFormat::TrueColour;
    if (isExpanded)
        turnBand(
            { source.start.pixels, 0, source.height }, source.width, source.height, angle, into);
    else
        expandAndTurn(source, angle, into);
}

bool turnedHasAlpha(const BlitSource& source)
{
    return source.hasAlpha || source.mode != SpriteMode::Raw;
}

} // namespace kez
