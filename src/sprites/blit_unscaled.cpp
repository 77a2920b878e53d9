// SPDX-License-Identifier: MIT
#include "sprites/blit.h"
#include "sprites/pixel_writers.h"

#include <algorithm>

namespace kez {

namespace {

template <class Rows, class Writer>
class Unscaled {
public:
    static void draw(const BlitSource& source, const BlitTarget& target)
    {
        RowCursor at = source.start;
        for (int y = 0; y < target.clipTop; ++y)
            row(at, source.width, [](int, int, const RowCursor&) {});
        if (target.columns == source.width)
            drawWholeRows(source, target, at);
        else
            drawClippedRows(source, target, at);
    }

private:
    using Format = typename Writer::Format;

    static void row(RowCursor& at, int width, auto&& visit)
    {
        Rows::template row<Format::pixelBytes, Writer::followsPlane>(at, width, visit);
    }

    static void drawWholeRows(const BlitSource& source, const BlitTarget& target, RowCursor at)
    {
        for (int y = 0; y < target.rows; ++y) {
            std::uint32_t* const to = target.row(y);
            row(at, source.width, [&](int column, int count, const RowCursor& run) {
                Writer::write(to + column, run, source.palette, count);
            });
        }
    }

    static void drawClippedRows(const BlitSource& source, const BlitTarget& target, RowCursor at)
    {
        const int left = target.clipLeft;
        const int right = left + target.columns;
        for (int y = 0; y < target.rows; ++y) {
            std::uint32_t* const to = target.row(y);
            row(at, source.width, [&](int column, int count, RowCursor run) {
                const int first = std::max(column, left);
                const int end = std::min(column + count, right);
                if (first >= end)
                    return;
                run.pass<Format::pixelBytes, Writer::followsPlane>(first - column);
                Writer::write(to + (first - left), run, source.palette, end - first);
            });
        }
    }
};

// Raw pixels of 32 bits lie as those of the canvas do.
PixelBlock blockOf(const BlitSource& source, const BlitTarget& target)
{
    const std::ptrdiff_t first = std::ptrdiff_t { source.width } * target.clipTop + target.clipLeft;
    PixelBlock block { .to = target.pixels,
        .toRowPixels = target.rowPixels,
        .from = source.start.pixels + 4 * first,
        .fromRowBytes = std::ptrdiff_t { 4 } * source.width,
        .columns = static_cast<std::size_t>(target.columns),
        .rows = static_cast<std::size_t>(target.rows) };
    if (target.columns == source.width && target.columns == target.rowPixels) {
        block.columns *= block.rows; // rows as wide as the canvas are one long row
        block.rows = 1;
    }
    return block;
}

void copyRaw(const BlitSource& source, const BlitTarget& target)
{
    copyBlock(blockOf(source, target));
}

void blendRaw(const BlitSource& source, const BlitTarget& target)
{
    blendBlock(blockOf(source, target));
}

using Blitter = void (*)(const BlitSource&, const BlitTarget&);

template <class Rows, class Format, ZeroOpacity zeroOpacity>
constexpr Blitter opaqueOrBlended[] = {
    Unscaled<Rows, Opaque<Format>>::draw,
    Unscaled<Rows, Blended<Format, zeroOpacity>>::draw,
};

template <>
constexpr Blitter opaqueOrBlended<RawRows, TrueColour, ZeroOpacity::Keeps>[]
    = { copyRaw, blendRaw };

template <class Rows, ZeroOpacity zeroOpacity>
constexpr const Blitter* ofFormats[] = {
    opaqueOrBlended<Rows, Indexed, zeroOpacity>,
    opaqueOrBlended<Rows, Rgb565, zeroOpacity>,
    opaqueOrBlended<Rows, TrueColour, zeroOpacity>,
};

constexpr const Blitter* const* blitters[] = {
    // [mode][format][hasAlpha]
    ofFormats<RawRows, ZeroOpacity::Keeps>,
    ofFormats<ShortRunRows, ZeroOpacity::Blends>,
    ofFormats<LongRunRows, ZeroOpacity::Blends>,
};

} // namespace

void drawUnscaled(const BlitSource& source, const BlitTarget& target)
{
    const auto mode = static_cast<std::size_t>(source.mode);
    const auto format = static_cast<std::size_t>(source.format);
    blitters[mode][format][source.hasAlpha ? 1 : 0](source, target);
}

} // namespace kez
