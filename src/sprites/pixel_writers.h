// SPDX-License-Identifier: MIT
/// Writers: what a run of stored pixels does to the canvas. They know nothing of runs.
///
/// A format says how pixels are stored; `hasPlane` that their opacities lie in a plane beside them
/// rather than in their own alpha bytes. A writer joins a format with a way of drawing.
#pragma once

#include "sprites/record_bytes.h"
#include "sprites/run_rows.h"
#include "sprites/span_kernels.h"

#include <cstddef>
#include <cstdint>

namespace kez {

struct Indexed {
    static constexpr int pixelBytes = 1;
    static constexpr bool hasPlane = true;

    static std::uint32_t pixel(const std::uint8_t* at, const std::uint8_t* palette)
    {
        return loadWord(palette + std::ptrdiff_t { 4 } * *at);
    }

    static void copy(std::uint32_t* to, const RowCursor& from, const std::uint8_t* palette, int n)
    {
        paletteSpan(to, from.pixels, palette, static_cast<std::size_t>(n));
    }

    static void blend(std::uint32_t* to, const RowCursor& from, const std::uint8_t* palette, int n,
        ZeroOpacity zeroOpacity)
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

    static void copy(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n)
    {
        rgb565Span(to, from.pixels, static_cast<std::size_t>(n));
    }

    static void blend(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n,
        ZeroOpacity zeroOpacity)
    {
        blend565Span(to, from.pixels, from.plane, static_cast<std::size_t>(n), zeroOpacity);
    }
};

struct TrueColour {
    static constexpr int pixelBytes = 4;
    static constexpr bool hasPlane = false;

    static std::uint32_t pixel(const std::uint8_t* at, const std::uint8_t*) { return loadWord(at); }

    static void copy(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n)
    {
        copySpan(to, from.pixels, static_cast<std::size_t>(n));
    }

    static void blend(std::uint32_t* to, const RowCursor& from, const std::uint8_t*, int n,
        ZeroOpacity zeroOpacity)
    {
        blendSpan(to, from.pixels, static_cast<std::size_t>(n), zeroOpacity);
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
        Format::blend(to, from, palette, n, zeroOpacity);
    }
};

} // namespace kez
