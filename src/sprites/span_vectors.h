// SPDX-License-Identifier: MIT
/// The span kernels written with vectors, for any level `V`; vectors_sse2.h tells what holds for
/// the sources that use them. The plain rules are in span_kernels_plain.cpp.
#pragma once

#include "sprites/span_kernel_table.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kez {

namespace {

/// Colours weighed by their opacities, one a lane. Red and blue share a word, and green goes with
/// the canvas's alpha byte, which has the weight 256 and so stays: no sum exceeds 16 bits.
template <class V>
typename V::Words weighed(
    typename V::Words canvas, typename V::Words colours, typename V::Words opacities)
{
    using Words = typename V::Words;
    using Halves = typename V::Halves;
    const Halves own = Halves(V::twice(opacities));
    const Halves redBlue
        = Halves(canvas & 0x00FF00FF) * (255 - own) + Halves(colours & 0x00FF00FF) * own;
    const Halves alphaGreen = (Halves(canvas) >> 8) * Halves(0x010000FF - opacities)
        + (Halves(colours) >> 8) * Halves(opacities);
    return Words(redBlue >> 8) | (Words(alphaGreen) & 0xFF00FF00);
}

template <class V>
typename V::Words blended(
    typename V::Words canvas, typename V::Words colours, typename V::Words opacities)
{
    return V::select(V::equal(opacities, 255), colours, weighed<V>(canvas, colours, opacities));
}

/// Most vectors of a drawn picture are wholly opaque or wholly transparent.
template <class V, ZeroOpacity zeroOpacity>
void blendWhole(std::uint32_t* to, typename V::Words colours, typename V::Words opacities)
{
    const typename V::Mask transparent = V::equal(opacities, 0);
    if (zeroOpacity == ZeroOpacity::Keeps && V::all(transparent))
        return;
    if (V::all(V::equal(opacities, 255)))
        return V::store(to, colours);
    const typename V::Words canvas = V::load(to);
    const typename V::Words mixed = blended<V>(canvas, colours, opacities);
    if constexpr (zeroOpacity == ZeroOpacity::Keeps)
        V::storeExcept(to, mixed, transparent, canvas);
    else
        V::store(to, mixed);
}

template <class V, ZeroOpacity zeroOpacity>
void blendPart(
    std::uint32_t* to, typename V::Words colours, typename V::Words opacities, std::size_t count)
{
    const typename V::Words canvas = V::loadPart(to, count);
    typename V::Words mixed = blended<V>(canvas, colours, opacities);
    if constexpr (zeroOpacity == ZeroOpacity::Keeps)
        mixed = V::select(V::equal(opacities, 0), canvas, mixed);
    V::storePart(to, mixed, count);
}

// Rows of a block are inlined: what is set up for one serves them all.
template <class V, ZeroOpacity zeroOpacity>
[[gnu::always_inline]] inline void blendVectors(
    std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    std::size_t i = 0;
    for (; i + V::lanes <= count; i += V::lanes) {
        const typename V::Words colours = V::load(from + 4 * i);
        blendWhole<V, zeroOpacity>(to + i, colours, colours >> 24);
    }
    if (i != count) {
        const typename V::Words colours = V::loadPart(from + 4 * i, count - i);
        blendPart<V, zeroOpacity>(to + i, colours, colours >> 24, count - i);
    }
}

/// Rows are shorter than this; several that lie one behind the other may be longer.
constexpr std::size_t leastFetchedAhead = 1024;

/// The last step overlaps the one before it.
template <class V>
[[gnu::always_inline]] inline void copyVectors(
    std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    if (count < V::lanes)
        return V::storePart(to, V::loadPart(from, count), count);
    constexpr std::size_t linePixels = 16;
    std::size_t i = 0;
    for (; i + leastFetchedAhead < count; i += linePixels) {
        fetchAhead(from + 4 * i);
        fetchAhead(to + i);
        for (std::size_t j = i; j < i + linePixels; j += V::lanes)
            V::store(to + j, V::load(from + 4 * j));
    }
    for (; i + V::lanes < count; i += V::lanes)
        V::store(to + i, V::load(from + 4 * i));
    V::store(to + count - V::lanes, V::load(from + 4 * (count - V::lanes)));
}

/// What the block says is read once: for all the compiler knows, a store of pixels may change it.
template <class Row>
[[gnu::always_inline]] inline void forEachRow(const PixelBlock& block, const Row& row)
{
    const std::ptrdiff_t toRowPixels = block.toRowPixels;
    const std::ptrdiff_t fromRowBytes = block.fromRowBytes;
    const std::size_t columns = block.columns;
    std::uint32_t* to = block.to;
    const std::uint8_t* from = block.from;
    for (std::size_t rows = block.rows; rows != 0; --rows) {
        row(to, from, columns);
        to += toRowPixels;
        from += fromRowBytes;
    }
}

template <class V>
void copyBlockVectors(const PixelBlock& block)
{
    forEachRow(block, copyVectors<V>);
}

template <class V>
void blendBlockVectors(const PixelBlock& block)
{
    forEachRow(block, blendVectors<V, ZeroOpacity::Keeps>);
}

/// The last bytes of a span, as many as a vector has lanes.
template <class V>
struct LastBytes {
    LastBytes(const std::uint8_t* from, std::size_t count)
    {
        std::memset(bytes, from[0], V::lanes);
        std::memcpy(bytes, from, count);
    }

    std::uint8_t bytes[V::lanes];
};

template <class V, ZeroOpacity zeroOpacity>
void blendPlaneVectors(
    std::uint32_t* to, const std::uint32_t* colours, const std::uint8_t* plane, std::size_t count)
{
    std::size_t i = 0;
    for (; i + V::lanes <= count; i += V::lanes)
        blendWhole<V, zeroOpacity>(to + i, V::load(colours + i), V::widen(plane + i));
    if (i != count) {
        const LastBytes<V> opacities(plane + i, count - i);
        blendPart<V, zeroOpacity>(
            to + i, V::loadPart(colours + i, count - i), V::widen(opacities.bytes), count - i);
    }
}

template <class V>
void paletteVectors(
    std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* palette, std::size_t count)
{
    std::size_t i = 0;
    for (; i + V::lanes <= count; i += V::lanes)
        V::store(to + i, V::entries(palette, indices + i));
    for (; i < count; ++i)
        std::memcpy(to + i, palette + std::size_t { 4 } * indices[i], 4);
}

template <class V, ZeroOpacity zeroOpacity>
void blendPaletteVectors(std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* plane,
    const std::uint8_t* palette, std::size_t count)
{
    using Words = typename V::Words;
    std::size_t i = 0;
    for (; i + V::lanes <= count; i += V::lanes) {
        const Words opacities = V::widen(plane + i);
        if (zeroOpacity == ZeroOpacity::Blends || !V::all(V::equal(opacities, 0)))
            blendWhole<V, zeroOpacity>(to + i, V::entries(palette, indices + i), opacities);
    }
    if (i != count) {
        const LastBytes<V> last(indices + i, count - i);
        const LastBytes<V> opacities(plane + i, count - i);
        blendPart<V, zeroOpacity>(
            to + i, V::entries(palette, last.bytes), V::widen(opacities.bytes), count - i);
    }
}

/// The processor's own string store: it does not read what it overwrites, which pays once the span
/// outgrows the second-level cache.
inline void fillString(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    asm volatile("rep stosl" : "+D"(to), "+c"(count) : "a"(pixel) : "memory");
}

constexpr std::size_t leastFilledAsString = std::size_t { 1 } << 18;

template <class V>
void fillVectors(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    if (count >= leastFilledAsString)
        return fillString(to, pixel, count);
    const typename V::Words words = pixel - typename V::Words {};
    if (count < V::lanes) {
        V::storePart(to, words, count);
        return;
    }
    // Stores that do not straddle cache lines are twice as fast: the first one reaches the
    // boundary.
    constexpr std::size_t vectorBytes = 4 * V::lanes;
    V::store(to, words);
    const std::size_t misplaced = reinterpret_cast<std::uintptr_t>(to) % vectorBytes;
    for (std::size_t i = V::lanes - misplaced / 4; i + V::lanes <= count; i += V::lanes)
        V::store(to + i, words);
    V::store(to + count - V::lanes, words);
}

template <class V>
void blendFillVectors(std::uint32_t* to, std::uint32_t pixel, std::size_t count)
{
    using Words = typename V::Words;
    const Words colours = pixel - Words {};
    const Words opacities = (pixel >> 24) - Words {};
    std::size_t i = 0;
    for (; i + V::lanes <= count; i += V::lanes)
        V::store(to + i, weighed<V>(V::load(to + i), colours, opacities));
    if (i != count) {
        const Words canvas = V::loadPart(to + i, count - i);
        V::storePart(to + i, weighed<V>(canvas, colours, opacities), count - i);
    }
}

template <class V>
void reverseVectors(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    std::size_t i = 0;
    for (; i + V::lanes <= count; i += V::lanes)
        V::store(to + count - i - V::lanes, V::reversed(V::load(from + 4 * i)));
    for (; i < count; ++i)
        std::memcpy(to + count - i - 1, from + 4 * i, 4);
}

inline void turnPixels(
    const QuarterTurn& turn, std::size_t x, std::size_t width, std::size_t y, std::size_t height)
{
    for (std::size_t column = x; column < x + width; ++column) {
        for (std::size_t row = y; row < y + height; ++row) {
            std::memcpy(turn.to + static_cast<std::ptrdiff_t>(column) * turn.toColumnPixels + row,
                turn.from + static_cast<std::ptrdiff_t>(row) * turn.fromRowBytes + 4 * column, 4);
        }
    }
}

template <class V>
void turnSquare(const QuarterTurn& turn, std::size_t x, std::size_t y)
{
    typename V::Words rows[V::lanes];
    const std::uint8_t* from
        = turn.from + static_cast<std::ptrdiff_t>(y) * turn.fromRowBytes + 4 * x;
    for (auto& row : rows) {
        row = V::load(from);
        from += turn.fromRowBytes;
    }
    V::transpose(rows);
    std::uint32_t* to = turn.to + static_cast<std::ptrdiff_t>(x) * turn.toColumnPixels + y;
    for (const auto& row : rows) {
        V::store(to, row);
        to += turn.toColumnPixels;
    }
}

template <class V>
void quarterTurnSquares(const QuarterTurn& turn)
{
    const std::size_t squaresWidth = turn.width / V::lanes * V::lanes;
    const std::size_t squaresHeight = turn.height / V::lanes * V::lanes;
    // Two squares below each other fill whole cache lines of the target.
    constexpr std::size_t band = 16;
    for (std::size_t top = 0; top < squaresHeight; top += band) {
        for (std::size_t x = 0; x < squaresWidth; x += V::lanes) {
            for (std::size_t y = top; y < squaresHeight && y < top + band; y += V::lanes)
                turnSquare<V>(turn, x, y);
        }
    }
    turnPixels(turn, squaresWidth, turn.width - squaresWidth, 0, turn.height);
    turnPixels(turn, 0, squaresWidth, squaresHeight, turn.height - squaresHeight);
}

} // namespace

} // namespace kez
