// SPDX-License-Identifier: MIT
/// The weights with which a reduced picture averages its source. A reduced pixel stands for an area
/// of the source; a pixel of it weighs trunc(√(c + r)), where c depends on its column and r on its
/// row. Both are sums and products of doubles that must not change in a bit, while the roots are
/// only needed truncated: most are the same from one row to the next but for rounding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kez {

/// The source pixels that one reduced pixel averages along one axis, from `first` up to but without
/// `end`.
struct SampleArea {
    int first;
    int end;
};

/// All areas of one axis. `squares` has the squares of their pixels' weights along this axis:
/// `stride` places for each area, a multiple of four; a place without a pixel is −1.
struct SampleAxis {
    SampleAxis(int sourceSize, int destinationSize);

    std::vector<SampleArea> areas;
    std::vector<double> squares;
    std::size_t stride;
    double greatestSquare = 0;
};

/// The weights in one row of all the areas beside each other, placed as the columns' squares are.
/// No weight may exceed 32,767.
class WeightRow {
public:
    /// For a row whose own weight has this square. Says whether any weight is another than before.
    bool weigh(double square, const SampleAxis& columns);

    [[nodiscard]] const std::int16_t* weights() const { return weights_.data(); }

    /// The sum of the weights in each area.
    [[nodiscard]] const std::int32_t* totals() const { return totals_.data(); }

private:
    void weighAll(const SampleAxis& columns);
    bool weighDoubtful(const SampleAxis& columns);
    void sumUp(std::size_t stride);

    double square_ = -1;
    double weighedFor_ = -1; ///< The square for which all weights were worked out.
    std::vector<std::int16_t> weights_;
    std::vector<std::int32_t> totals_;
    std::vector<std::uint32_t> doubtful_; ///< Whose roots lie near a whole number.
};

} // namespace kez
