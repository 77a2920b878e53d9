// SPDX-License-Identifier: MIT
/// Writers: what a run of stored pixels does to the canvas. They know nothing of runs.
///
/// A format says how pixels are stored; `hasPlane` that their opacities lie in a plane beside them
/// rather than in their own alpha bytes; `pick` takes the pixels that scaled columns show. A writer
/// joins a format with a way of drawing.
#pragma once

#include "core/little_endian.h"
#include "sprites/run_rows.h"
#include "sprites/span_kernels.h"

#include <cstddef>
#include <cstdint>

namespace kez {

template <class Format>
void pickPixels(
    std::uint32_t* to, const PickedColumns& from, const std::uint8_t* palette, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) {
        const std::ptrdiff_t column = from.columns[i] - from.runColumn;
        to[i] = Format::pixel(from.run + Format::pixelBytes * column, palette);
    }
}

struct Indexed {
    static constexpr int pixelBytes = 1;
    static constexpr bool hasPlane = true;

    static std::uint32_t pixel(const std::uint8_t* at, const std::uint8_t* palette)
    {
        return loadWord(palette + std::ptrdiff_t { 4 } * *at);
    }

    static void pick(
        std::uint32_t* to, const PickedColumns& from, const std::uint8_t* palette, std::size_t n)
    {
        pickPixels<Indexed>(to, from, palette, n);
    }

    static void copy(std::uint32_t* to, const RowCursor& from, const std::uint8_t* palette, int n)
    {
        paletteSpan(to, from.pixels, palette, static_cast<std::size_t>(n));
    }

    template <ZeroOpacity zeroOpacity>
    static void blend(std::uint32_t* to, const RowCursor& from, const std::uint8_t* palette, int n)
    {
        blendPaletteSpan(
            to, from.pixels, from.plane, palette, static_cast<std::size_t>(n), zeroOpacity);
    }
};

struct Rgb565 {
    static constexpr int pixelBytes = 2;
    static constexpr bool hasPlane = true;

    static std::uint32_t pixel(const std::uint8_t* at, const std::uint8_t*)
    {
        return from565(loadWord16(at));
    }

    static void pick(
        std::uint32_t* to, const PickedColumns& from, const std::uint8_t* palette, std::size_t n)
    {
        pickPixels<Rgb565>(to, from, palette, n);
    }

    static void copy(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n)
    {
        rgb565Span(to, from.pixels, static_cast<std::size_t>(n));
    }

    template <ZeroOpacity zeroOpacity>
    static void blend(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n)
    {
        blend565Span(to, from.pixels, from.plane, static_cast<std::size_t>(n), zeroOpacity);
    }
};

struct TrueColour {
    static constexpr int pixelBytes = 4;
    static constexpr bool hasPlane = false;

    static void pick(
        std::uint32_t* to, const PickedColumns& from, const std::uint8_t*, std::size_t n)
    {
        pickSpan(to, from, n);
    }

    static void copy(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n)
    {
        copySpan(to, from.pixels, static_cast<std::size_t>(n));
    }

    template <ZeroOpacity zeroOpacity>
    static void blend(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n)
    {
        static_assert(zeroOpacity == ZeroOpacity::Blends, "raw ones are drawn as blocks");
        blendSpan(to, from.pixels, static_cast<std::size_t>(n));
    }
};

template <class StoredFormat>
struct Opaque {
    using Format = StoredFormat;
    static constexpr bool followsPlane = false;

    static void write(std::uint32_t* to, const RowCursor& from, const std::uint8_t* palette, int n)
    {
        Format::copy(to, from, palette, n);
    }
};

template <class StoredFormat, ZeroOpacity zeroOpacity>
struct Blended {
    using Format = StoredFormat;
    static constexpr bool followsPlane = Format::hasPlane;

    static void write(std::uint32_t* to, const RowCursor& from, const std::uint8_t* palette, int n)
    {
        Format::template blend<zeroOpacity>(to, from, palette, n);
    }
};

} // namespace kez
