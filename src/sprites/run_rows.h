// SPDX-License-Identifier: MIT
/// Walkers: they find the stored pixels of a row and hand each run of them to a visitor. They know
/// nothing of colours, and nothing of bounds: only checked records are walked.
///
/// A walker is `RawRows` or `RunRows` of a count's form. `row<pixelBytes, followsPlane>` reads one
/// row at the cursor and leaves the cursor at the next. A plane that is followed lies as the
/// pixels do, counts included, with one byte for each stored pixel.
#pragma once

#include "core/little_endian.h"

#include <cstddef>
#include <cstdint>

namespace kez {

struct RowCursor {
    const std::uint8_t* pixels = nullptr;
    const std::uint8_t* plane = nullptr; ///< Null when no plane is followed.

    template <int pixelBytes, bool followsPlane>
    void pass(int count)
    {
        pixels += static_cast<std::ptrdiff_t>(pixelBytes) * count;
        if constexpr (followsPlane)
            plane += count;
    }
};

/// Counts of short runs.
struct ByteCount {
    static int bytesAt(const std::uint8_t*) { return 1; }

    static int valueAt(const std::uint8_t* at) { return *at; }
};

/// Counts of long runs: 255 announces a u16.
struct EscapedCount {
    static int bytesAt(const std::uint8_t* at) { return *at == 255 ? 3 : 1; }

    static int valueAt(const std::uint8_t* at)
    {
        return *at == 255 ? static_cast<int>(loadWord16(at + 1)) : *at;
    }
};

struct RawRows {
    static constexpr bool skips = false;

    template <int pixelBytes, bool followsPlane>
    static void row(RowCursor& at, int width, auto&& visit)
    {
        visit(0, width, at);
        at.pass<pixelBytes, followsPlane>(width);
    }
};

template <class Count>
struct RunRows {
    static constexpr bool skips = true;

    template <int pixelBytes, bool followsPlane>
    static void row(RowCursor& at, int width, auto&& visit)
    {
        int column = 0;
        do {
            column += takeCount<followsPlane>(at);
            if (column == width)
                return;
            const int count = takeCount<followsPlane>(at);
            visit(column, count, at);
            at.pass<pixelBytes, followsPlane>(count);
            column += count;
        } while (column != width);
    }

private:
    template <bool followsPlane>
    static int takeCount(RowCursor& at)
    {
        const int value = Count::valueAt(at.pixels);
        at.pass<1, followsPlane>(Count::bytesAt(at.pixels));
        return value;
    }
};

using ShortRunRows = RunRows<ByteCount>;
using LongRunRows = RunRows<EscapedCount>;

} // namespace kez
