// SPDX-License-Identifier: MIT
#include "sprites/blit.h"
#include "sprites/pixel_writers.h"

#include <algorithm>
#include <vector>

namespace kez {

namespace {

// Positions along one side: displayed position i shows source position (half + i × step) >> 16,
// the step in 16.16, rounded so that the first and the last show the first and the last.
class Scale {
public:
    Scale(int source, int displayed)
        : last_(source - 1)
    {
        if (source > 1 && displayed > 1)
            step_ = ((std::int64_t { last_ } << 16) + (displayed - 1) / 2) / (displayed - 1);
    }

    [[nodiscard]] int at(int displayed) const
    {
        return static_cast<int>(std::min((half + displayed * step_) >> 16, last_));
    }

private:
    static constexpr std::int64_t half = 1 << 15;

    std::int64_t last_;
    std::int64_t step_ = 0;
};

struct Span {
    int first;
    int count;
};

// One source row as the visible displayed columns show it. Kept between calls for its memory.
struct MappedRow {
    std::vector<int> map; // source column of each visible column
    std::vector<std::uint32_t> colours;
    std::vector<std::uint8_t> opacities; // of formats with a plane
    std::vector<Span> spans; // that are stored

    void prepare(const Scale& scale, const BlitTarget& target)
    {
        const auto columns = static_cast<std::size_t>(target.columns);
        map.resize(columns);
        colours.resize(columns);
        opacities.resize(columns);
        for (int i = 0; i < target.columns; ++i)
            map[static_cast<std::size_t>(i)] = scale.at(target.clipLeft + i);
    }
};

MappedRow mappedRow;

template <class Rows, class Format, bool hasAlpha>
class Scaled {
public:
    static void draw(const BlitSource& source, const BlitTarget& target, const Scale& rows)
    {
        RowCursor at = source.start;
        int shown = -1; // the source row in `mappedRow`; `at` is behind it
        for (int y = 0; y < target.rows; ++y) {
            const int wanted = rows.at(target.clipTop + y);
            if (wanted != shown) {
                for (++shown; shown != wanted; ++shown)
                    row(at, source.width, [](int, int, const RowCursor&) {});
                mapRow(source, at);
            }
            writeRow(target.row(y));
        }
    }

private:
    static constexpr bool followsPlane = hasAlpha && Format::hasPlane;

    static void row(RowCursor& at, int width, auto&& visit)
    {
        Rows::template row<Format::pixelBytes, followsPlane>(at, width, visit);
    }

    static void mapRow(const BlitSource& source, RowCursor& at)
    {
        mappedRow.spans.clear();
        const int* const begin = mappedRow.map.data();
        const int* const end = begin + mappedRow.map.size();
        const int* first = begin;
        row(at, source.width, [&](int column, int count, const RowCursor& run) {
            first = firstFrom(first, end, column);
            const int* const last = firstFrom(first, end, column + count);
            if (first == last)
                return;
            const Span span { static_cast<int>(first - begin), static_cast<int>(last - first) };
            mapRun(source, span, column, run);
            mappedRow.spans.push_back(span);
            first = last;
        });
    }

    // The first visible column that shows `column` or one to the right of it.
    static const int* firstFrom(const int* from, const int* end, int column)
    {
        if (from == end || end[-1] < column)
            return end;
        while (*from < column)
            ++from;
        return from;
    }

    static void mapRun(const BlitSource& source, const Span& span, int column, const RowCursor& run)
    {
        const auto first = static_cast<std::size_t>(span.first);
        const int* const map = mappedRow.map.data() + first;
        std::uint32_t* const colours = mappedRow.colours.data() + first;
        std::uint8_t* const opacities = mappedRow.opacities.data() + first;
        for (int i = 0; i < span.count; ++i) {
            const std::ptrdiff_t offset = map[i] - column;
            colours[i] = Format::pixel(run.pixels + Format::pixelBytes * offset, source.palette);
            if constexpr (followsPlane)
                opacities[i] = run.plane[offset];
        }
    }

    static void writeRow(std::uint32_t* to)
    {
        for (const Span& span : mappedRow.spans) {
            const auto first = static_cast<std::size_t>(span.first);
            const auto count = static_cast<std::size_t>(span.count);
            const std::uint32_t* colours = mappedRow.colours.data() + first;
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(colours);
            if constexpr (followsPlane)
                blendPlaneSpan(to + first, colours, mappedRow.opacities.data() + first, count,
                    ZeroOpacity::Blends);
            else if constexpr (hasAlpha)
                blendSpan(to + first, bytes, count, ZeroOpacity::Blends);
            else
                copySpan(to + first, bytes, count);
        }
    }
};

using Blitter = void (*)(const BlitSource&, const BlitTarget&, const Scale&);

template <class Rows, class Format>
constexpr Blitter opaqueOrBlended[]
    = { Scaled<Rows, Format, false>::draw, Scaled<Rows, Format, true>::draw };

template <class Rows>
constexpr const Blitter* ofFormats[] = {
    opaqueOrBlended<Rows, Indexed>,
    opaqueOrBlended<Rows, Rgb565>,
    opaqueOrBlended<Rows, TrueColour>,
};

constexpr const Blitter* const* blitters[] = {
    // [mode][format][hasAlpha]
    ofFormats<RawRows>,
    ofFormats<ShortRunRows>,
    ofFormats<LongRunRows>,
};

} // namespace

void drawScaled(
    const BlitSource& source, const BlitTarget& target, int displayedWidth, int displayedHeight)
{
    mappedRow.prepare(Scale(source.width, displayedWidth), target);
    const auto mode = static_cast<std::size_t>(source.mode);
    const auto format = static_cast<std::size_t>(source.format);
    blitters[mode][format][source.hasAlpha ? 1 : 0](
        source, target, Scale(source.height, displayedHeight));
}

} // namespace kez
