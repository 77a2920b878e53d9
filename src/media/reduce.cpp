// SPDX-License-Identifier: MIT
#include "media/reduce.h"

#include "media/halve.h"
#include "media/resample_levels.h"
#include "media/weight_rows.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

namespace kez {

namespace {

// The rule as it reads, for any sizes.
void averageArea(const std::uint8_t* source, std::ptrdiff_t pitch, const SampleArea& row,
    const double* rowSquares, const SampleArea& column, const double* columnSquares,
    std::uint8_t* to)
{
    double weights = 0;
    std::uint32_t sums[3] = {};
    const std::uint8_t* const first = source + row.first * pitch + column.first * 3;
    for (int j = 0; j < row.end - row.first; ++j)
        for (int i = 0; i < column.end - column.first; ++i) {
            constexpr double most = 0x7FFFFFFF; // no picture comes near it
            const double root = std::sqrt(columnSquares[i] + rowSquares[j]);
            const auto weight = static_cast<std::uint32_t>(std::min(root, most));
            weights += weight;
            for (int byte = 0; byte < 3; ++byte)
                sums[byte] += first[j * pitch + i * 3 + byte] * weight;
        }
    for (int byte = 0; byte < 3; ++byte)
        to[byte] = weights > 0 ? static_cast<std::uint8_t>(sums[byte] / weights) : first[byte];
}

void averageRow(const std::uint8_t* source, std::ptrdiff_t pitch, const SampleArea& row,
    const double* rowSquares, const SampleAxis& columns, std::uint8_t* to)
{
    for (std::size_t x = 0; x < columns.areas.size(); ++x)
        averageArea(source, pitch, row, rowSquares, columns.areas[x],
            &columns.squares[x * columns.stride], to + x * 3);
}

/// Whole rows with weights of 15 bits and sums of 31.
class FastReduction {
public:
    FastReduction(const std::uint8_t* source, int sw, int sh, const SampleAxis& columns,
        const SampleAxis& rows)
        : source_(source)
        , pitch_(std::ptrdiff_t { 3 } * sw)
        , columns_(columns)
        , rows_(rows)
    {
        // Where the sizes divide well, rows weigh alike again after this many.
        constexpr int mostPhases = 16;
        const auto dh = static_cast<int>(rows.areas.size());
        const int phases = dh / std::gcd(dh, sh);
        phases_.resize(phases <= mostPhases ? static_cast<std::size_t>(phases) : 1);
        for (const SampleArea& area : columns.areas)
            offsets_.push_back(3 * area.first);
    }

    static bool suits(int sw, int sh, const SampleAxis& columns, const SampleAxis& rows)
    {
        const double most = std::sqrt(columns.greatestSquare + rows.greatestSquare);
        const double sum = most * 255 * static_cast<double>(columns.stride * rows.stride);
        // What is read behind an area lies in the row below.
        return most < 0x7FFF && sum < 0x7FFFFFFF && columns.stride + 2 <= static_cast<unsigned>(sw)
            && std::ranges::all_of(rows.areas, [&](const auto& row) { return row.end < sh; });
    }

    // False when an area weighs nothing.
    bool reduceRow(std::size_t y, std::uint8_t* to)
    {
        const SampleArea& row = rows_.areas[y];
        Phase& phase = phases_[y % phases_.size()];
        if (phase.weigh(row, &rows_.squares[y * rows_.stride], columns_))
            phase.weighsAll = phase.invertTotals(columns_.areas.size());
        reached_.clear();
        for (std::size_t j = 0; j < phase.rows.size(); ++j)
            reached_.push_back(
                { source_ + (row.first + static_cast<int>(j)) * pitch_, phase.rows[j].weights() });
        if (phase.weighsAll)
            resampleKernels().average(to,
                { reached_.data(), reached_.size(), columns_.stride, offsets_.data(),
                    phase.inverses.data() },
                offsets_.size());
        return phase.weighsAll;
    }

private:
    /// The weights of the areas of a row, and of all the rows that weigh alike.
    struct Phase {
        bool weigh(const SampleArea& row, const double* squares, const SampleAxis& columns)
        {
            const auto reached = static_cast<std::size_t>(row.end - row.first);
            bool changes = reached != rows.size();
            rows.resize(reached);
            for (std::size_t j = 0; j < reached; ++j)
                changes |= rows[j].weigh(squares[j], columns);
            return changes;
        }

        // False when an area weighs nothing.
        bool invertTotals(std::size_t areas)
        {
            double least = 1;
            inverses.resize(areas);
            for (std::size_t x = 0; x < areas; ++x) {
                std::int32_t total = 0;
                for (const WeightRow& row : rows)
                    total += row.totals()[x];
                least = std::min(least, static_cast<double>(total));
                inverses[x] = 1.0 / total;
            }
            return least > 0;
        }

        std::vector<WeightRow> rows;
        std::vector<double> inverses;
        bool weighsAll = false;
    };

    const std::uint8_t* source_;
    std::ptrdiff_t pitch_;
    const SampleAxis& columns_;
    const SampleAxis& rows_;
    std::vector<Phase> phases_;
    std::vector<WeighedRow> reached_;
    std::vector<std::int32_t> offsets_;
};

} // namespace

void reducePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
    if (isHalving(sw, sh, dw, dh)) {
        halvePicture(source, dw, dh, to);
        return;
    }
    const SampleAxis columns(sw, dw);
    const SampleAxis rows(sh, dh);
    const auto pitch = static_cast<std::ptrdiff_t>(sw) * 3;
    FastReduction fast(source, sw, sh, columns, rows);
    const bool isFast = FastReduction::suits(sw, sh, columns, rows);
    for (std::size_t y = 0; y < rows.areas.size(); ++y, to += std::ptrdiff_t { 3 } * dw)
        if (!isFast || !fast.reduceRow(y, to))
            averageRow(source, pitch, rows.areas[y], &rows.squares[y * rows.stride], columns, to);
}

} // namespace kez
