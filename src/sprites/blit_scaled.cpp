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
    std::ptrdiff_t first;
    std::size_t count;
};

// One source row as the visible displayed columns show it. Kept between calls for its memory.
struct MappedRow {
    std::vector<std::int32_t> map; // source column of each visible column
    std::vector<std::uint32_t> colours; // to be blended
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
            std::uint32_t* const to = target.row(y);
            const int wanted = rows.at(target.clipTop + y);
            const bool isRepeated = wanted == shown;
            if (!isRepeated) {
                for (++shown; shown != wanted; ++shown)
                    row(at, source.width, [](int, int, const RowCursor&) {});
                mapRow(source, at, hasAlpha ? mappedRow.colours.data() : to);
            }
            if constexpr (hasAlpha)
                blendRow(to);
            else if (isRepeated)
                copyRow(to, target.row(y - 1));
        }
    }

private:
    static constexpr bool followsPlane = hasAlpha && Format::hasPlane;

    static void row(RowCursor& at, int width, auto&& visit)
    {
        Rows::template row<Format::pixelBytes, followsPlane>(at, width, visit);
    }

    // Picks the row's pixels into `colours`, of which those outside `spans` stay as they are.
    static void mapRow(const BlitSource& source, RowCursor& at, std::uint32_t* colours)
    {
        mappedRow.spans.clear();
        const std::int32_t* const begin = mappedRow.map.data();
        const std::int32_t* const end = begin + mappedRow.map.size();
        const std::int32_t* first = begin;
        row(at, source.width, [&](int column, int count, const RowCursor& run) {
            first = firstFrom(first, end, column);
            const std::int32_t* const last = firstFrom(first, end, column + count);
            if (first == last)
                return;
            const Span span { first - begin, static_cast<std::size_t>(last - first) };
            Format::pick(colours + span.first, { first, run.pixels, column, count }, source.palette,
                span.count);
            if constexpr (followsPlane)
                pickOpacities(span, column, run.plane);
            mappedRow.spans.push_back(span);
            first = last;
        });
    }

    // The first visible column that shows `column` or one to the right of it.
    static const std::int32_t* firstFrom(
        const std::int32_t* from, const std::int32_t* end, int column)
    {
        if (from == end || end[-1] < column)
            return end;
        while (*from < column)
            ++from;
        return from;
    }

    static void pickOpacities(const Span& span, int column, const std::uint8_t* plane)
    {
        const std::int32_t* const map = mappedRow.map.data() + span.first;
        std::uint8_t* const opacities = mappedRow.opacities.data() + span.first;
        for (std::size_t i = 0; i < span.count; ++i)
            opacities[i] = plane[map[i] - column];
    }

    static void blendRow(std::uint32_t* to)
    {
        for (const Span& span : mappedRow.spans) {
            const std::uint32_t* const colours = mappedRow.colours.data() + span.first;
            if constexpr (followsPlane)
                blendPlaneSpan(to + span.first, colours, mappedRow.opacities.data() + span.first,
                    span.count, ZeroOpacity::Blends);
            else
                blendSpan(
                    to + span.first, reinterpret_cast<const std::uint8_t*>(colours), span.count);
        }
    }

    static void copyRow(std::uint32_t* to, const std::uint32_t* rowAbove)
    {
        for (const Span& span : mappedRow.spans)
            copySpan(to + span.first, reinterpret_cast<const std::uint8_t*>(rowAbove + span.first),
                span.count);
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
