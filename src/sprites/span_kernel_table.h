// SPDX-License-Identifier: MIT
/// The innermost loops as each vector level has them; span_kernels.h tells what they do. Without
/// inline functions, since sources compiled for one level include this.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kez {

enum class ZeroOpacity { Blends, Keeps };

/// Rows of stored pixels, and where they go on the canvas.
struct PixelBlock {
    std::uint32_t* to;
    std::ptrdiff_t toRowPixels; ///< From one row to the next.
    const std::uint8_t* from;
    std::ptrdiff_t fromRowBytes;
    std::size_t columns;
    std::size_t rows;
};

/// Where the pixels of a picture lie that is to be turned: source pixel (x, y) at
/// `from + y × fromRowBytes + 4 × x`, its place at `to + x × toColumnPixels + y`.
struct QuarterTurn {
    const std::uint8_t* from;
    std::ptrdiff_t fromRowBytes;
    std::uint32_t* to;
    std::ptrdiff_t toColumnPixels;
    std::size_t width; ///< Of the source.
    std::size_t height;
};

/// Source columns, ascending, that a span of displayed pixels shows, and the run they lie in.
struct PickedColumns {
    const std::int32_t* columns;
    const std::uint8_t* run; ///< Its first pixel.
    std::int32_t runColumn;
    std::int32_t runLength;
};

struct SpanKernels {
    void (*copyBlock)(const PixelBlock& block);
    void (*blendBlock)(const PixelBlock& block); // opacity 0 keeps
    void (*blend)(std::uint32_t* to, const std::uint8_t* from, std::size_t count); // 0 blends
    void (*palette)(std::uint32_t* to, const std::uint8_t* indices, const std::uint8_t* palette,
        std::size_t count);
    // By ZeroOpacity:
    void (*blendPlane[2])(std::uint32_t* to, const std::uint32_t* colours,
        const std::uint8_t* plane, std::size_t count);
    void (*blendPalette[2])(std::uint32_t* to, const std::uint8_t* indices,
        const std::uint8_t* plane, const std::uint8_t* palette, std::size_t count);
    void (*fill)(std::uint32_t* to, std::uint32_t pixel, std::size_t count);
    void (*blendFill)(std::uint32_t* to, std::uint32_t pixel, std::size_t count);
    void (*pick)(std::uint32_t* to, const PickedColumns& from, std::size_t count);
    void (*reverse)(std::uint32_t* to, const std::uint8_t* from, std::size_t count);
    void (*quarterTurn)(const QuarterTurn& turn);
};

extern const SpanKernels plainSpanKernels;
extern const SpanKernels sse2SpanKernels;
extern const SpanKernels avx2SpanKernels;
extern const SpanKernels avx512SpanKernels;

} // namespace kez
