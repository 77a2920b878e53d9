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

// Where a turn puts the source pixel (0, 0), and the ways from it to (1, 0) and (0, 1).
struct Geometry {
    std::ptrdiff_t origin;
    std::ptrdiff_t perColumn;
    std::ptrdiff_t perRow;
};

Geometry geometryOf(std::ptrdiff_t width, std::ptrdiff_t height, int angle)
{
    if (angle == 90)
        return { height - 1, height, -1 };
    if (angle == 180)
        return { width * height - 1, -1, -width };
    return { (width - 1) * height, -height, 1 };
}

constexpr int bandRows = 16; // of the source, expanded before they are turned

void turnBand(
    const std::uint32_t* band, int width, int rows, std::uint32_t* to, const Geometry& geometry)
{
    for (int x = 0; x < width; ++x) {
        std::uint32_t* const column = to + x * geometry.perColumn;
        for (int y = 0; y < rows; ++y)
            column[y * geometry.perRow] = band[static_cast<std::ptrdiff_t>(y) * width + x];
    }
}

// A half turn keeps rows together.
void turnRowsAround(const std::uint32_t* band, int width, int rows, std::uint32_t* to)
{
    const std::ptrdiff_t pixels = static_cast<std::ptrdiff_t>(width) * rows;
    std::reverse_copy(band, band + pixels, to + 1 - pixels);
}

} // namespace

void turn(const BlitSource& source, int angle, std::uint32_t* into)
{
    static std::vector<std::uint32_t> band;
    band.resize(static_cast<std::size_t>(source.width) * bandRows);
    const Geometry geometry = geometryOf(source.width, source.height, angle);
    const Expand expand = expanders[static_cast<std::size_t>(source.mode)][static_cast<std::size_t>(
        source.format)][source.hasAlpha ? 1 : 0];
    RowCursor at = source.start;
    for (int top = 0; top < source.height; top += bandRows) {
        const int rows = std::min(bandRows, source.height - top);
        for (int y = 0; y < rows; ++y)
            expand(source, at, band.data() + static_cast<std::ptrdiff_t>(y) * source.width);
        std::uint32_t* const to = into + geometry.origin + top * geometry.perRow;
        if (angle == 180)
            turnRowsAround(band.data(), source.width, rows, to);
        else
            turnBand(band.data(), source.width, rows, to, geometry);
    }
}

bool turnedHasAlpha(const BlitSource& source)
{
    return source.hasAlpha || source.mode != SpriteMode::Raw;
}

} // namespace kez
