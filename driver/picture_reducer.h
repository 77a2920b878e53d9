// SPDX-License-Identifier: MIT
/// Makes a 160 × 120 picture of a photograph that comes row by row. Each pixel is the mean of the
/// area it covers, parts of pixels counted by their parts.
#pragma once

#include "picture.h"

#include <span>
#include <vector>

namespace kez::driver {

/// How a stored photograph is turned, as EXIF numbers it: 1 as it is, 2 mirrored left to right,
/// 3 upside down, 4 mirrored top to bottom, 5 to 8 with rows and columns exchanged.
constexpr bool isTransposed(int orientation)
{
    return orientation >= 5 && orientation <= 8;
}

/// The size of what is kept of a photograph, in its stored pixels: the largest rectangle of the
/// picture's shape, which is 3 : 4 in a photograph with rows and columns exchanged.
struct Extent {
    double width;
    double height;
};

[[nodiscard]] Extent keptExtent(int width, int height, int orientation);

class PictureReducer {
public:
    PictureReducer(int width, int height, int orientation); ///< Sizes from 1 on.

    /// The next row, top row first: red, green and blue for each of the width's pixels.
    void addRow(std::span<const std::uint8_t> row);

    [[nodiscard]] Picture picture() const; ///< When every row was added.

private:
    struct Span { ///< Part of a row or column that one pixel of the picture covers.
        double from;
        double to;
    };

    [[nodiscard]] static std::vector<Span> spans(int length, double kept, int count);
    void reduceRow(std::span<const std::uint8_t> row);

    int orientation_;
    int row_ = 0;
    std::vector<Span> columns_;
    std::vector<Span> rows_;
    std::vector<double> reduced_; // one row, as wide as the picture
    std::vector<double> sums_; // the picture as it is stored, before it is turned
    double area_; // what each of its pixels covers
};

} // namespace kez::driver
