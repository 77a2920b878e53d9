// SPDX-License-Identifier: MIT
/// The innermost loops of resampling as each vector level has them. All give the same bytes.
/// Without inline functions, since sources compiled for one level include this.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kez {

/// Where an enlarged pixel lies between two source pixels, in sixteenths.
struct SpreadColumn {
    std::int32_t offset; ///< Of the left pixel's first byte in its row.
    std::uint8_t shares[8]; ///< The left pixel's and the right one's, three times; then nothing.
};

/// The same in single precision.
struct SingleColumn {
    std::int32_t offset;
    float fraction; ///< How far towards the right pixel.
};

/// The same in doubles.
struct WideColumn {
    std::size_t offset;
    double leftShare; ///< One less the fraction.
    double rightShare;
};

/// A source row that the areas of a row of reduced pixels reach.
struct WeighedRow {
    const std::uint8_t* pixels;
    const std::int16_t* weights; ///< `areaPixels` for each area.
};

/// A row of reduced pixels. Their areas are `areaPixels` wide, a multiple of four; where fewer
/// count, the weights are 0. Four bytes behind an area are read.
struct AveragedRow {
    const WeighedRow* rows;
    std::size_t rowCount;
    std::size_t areaPixels;
    const std::int32_t* offsets; ///< Of each area's first byte in its rows.
    const double* inverses; ///< One by the sum of each area's weights.
};

struct ResampleKernels {
    /// Three values for each column: the two pixels, each times its share. Reads eight bytes for
    /// six and writes up to five values more than are wanted.
    void (*spread)(std::uint16_t* to, const std::uint8_t* from, const SpreadColumn* columns,
        std::size_t count);
    /// Two rows that were spread, by sixteenths: `lowerShare` of the lower one.
    void (*mixRows)(std::uint8_t* to, const std::uint16_t* upper, const std::uint16_t* lower,
        unsigned lowerShare, std::size_t count);
    /// Three values for each column, nearly what lies between the two pixels: what `mixSingle`
    /// takes. Reads eight bytes for six and writes up to four values more than are wanted.
    void (*spreadSingle)(
        float* to, const std::uint8_t* from, const SingleColumn* columns, std::size_t count);
    /// Two rows that were spread, truncated, 32 values for each group. Leaves a word for each: the
    /// bits of the values whose truth may lie on the other side of a whole number.
    void (*mixSingle)(std::uint8_t* to, const float* upper, const float* lower, float lowerShare,
        std::size_t groups, std::uint32_t* doubtful);
    /// Three bytes for each column: the left and right pixel of two rows, by products and sums of
    /// doubles in a fixed order, truncated. Reads seven bytes for six.
    void (*mixWide)(std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower,
        const WideColumn* columns, double lowerShare, std::size_t count);
    /// Three bytes for each area: their sum by weight, times the inverse, truncated.
    void (*average)(std::uint8_t* to, const AveragedRow& row, std::size_t count);
    /// Three bytes for each three by three pixels, every second pixel of the row at `from` and the
    /// two rows that follow it, weighed as media/halve.h says. Reads a pixel more than that, and
    /// spoils two bytes behind what is asked for.
    void (*halve)(std::uint8_t* to, const std::uint8_t* from, std::size_t pitch, std::size_t count);
    /// Two pixels for each of the first `count` of two rows, a quarter and three quarters of the
    /// way to the next pixel, and so many quarters of the way to the lower row. Reads two pixels
    /// behind the first `count`, and spoils four bytes behind what is asked for.
    void (*doubleRow)(std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower,
        unsigned lowerQuarters, std::size_t count);
};

extern const ResampleKernels plainResampleKernels;
extern const ResampleKernels sse2ResampleKernels;
extern const ResampleKernels avx2ResampleKernels;

} // namespace kez
