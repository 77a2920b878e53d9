// SPDX-License-Identifier: MIT
#include "media/reduce.h"

#include "media/weight_rows.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <numeric>
#include <span>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

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

#ifdef __SSE2__

// Two pixels that lie beside each other, as blue, blue, green, green, red, red in 16 bits each. Two
// bytes behind them are read and do no harm.
__m128i twoPixels(const std::uint8_t* at)
{
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(at));
    const __m128i pairs = _mm_unpacklo_epi8(bytes, _mm_srli_epi64(bytes, 24));
    return _mm_unpacklo_epi8(pairs, _mm_setzero_si128());
}

__m128i twoWeights(const std::int16_t* at)
{
    std::int32_t both;
    std::memcpy(&both, at, sizeof both);
    return _mm_set1_epi32(both);
}

// Truncates sum × inverse for three sums; the half keeps what divides evenly from falling below.
std::uint32_t quotients(__m128i sums, double inverse)
{
    const __m128d factor = _mm_set1_pd(inverse);
    const __m128d half = _mm_set1_pd(0.5);
    const auto divided = [&](__m128i two) {
        return _mm_cvttpd_epi32(_mm_mul_pd(_mm_add_pd(_mm_cvtepi32_pd(two), half), factor));
    };
    const __m128i words
        = _mm_unpacklo_epi64(divided(sums), divided(_mm_unpackhi_epi64(sums, sums)));
    const __m128i halves = _mm_packs_epi32(words, words);
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(halves, halves)));
}

/// Whole rows with weights of 15 bits and sums of 31, two pixels a step.
class FastReduction {
public:
    FastReduction(const std::uint8_t* source, int sw, int sh, const SampleAxis& columns,
        const SampleAxis& rows)
        : source_(source)
        , pitch_(std::ptrdiff_t { 3 } * sw)
        , columns_(columns)
        , rows_(rows)
        , inverses_(columns.areas.size())
    {
        // Where the sizes divide well, rows weigh alike again after this many.
        constexpr int mostPhases = 16;
        const auto phases = static_cast<int>(rows.areas.size())
            / std::gcd(static_cast<int>(rows.areas.size()), sh);
        phases_ = phases <= mostPhases ? static_cast<std::size_t>(phases) : 1;
        weights_.resize(phases_ * rows.stride);
    }

    static bool suits(int sw, int sh, const SampleAxis& columns, const SampleAxis& rows)
    {
        const double most = std::sqrt(columns.greatestSquare + rows.greatestSquare);
        const double sum = most * 255 * static_cast<double>(columns.stride * rows.stride);
        // Steps may reach beyond an area by a pixel and two bytes, into the row below.
        return most < 0x7FFF && sum < 0x7FFFFFFF
            && columns.stride + 1 <= static_cast<std::size_t>(sw)
            && std::ranges::all_of(rows.areas, [&](const auto& row) { return row.end < sh; });
    }

    // False when an area weighs nothing.
    bool reduceRow(std::size_t y, std::uint8_t* to)
    {
        const SampleArea& row = rows_.areas[y];
        const auto reached = static_cast<std::size_t>(row.end - row.first);
        const std::span<WeightRow> weights
            = std::span(weights_).subspan(y % phases_ * rows_.stride, reached);
        reached_.clear();
        for (std::size_t j = 0; j < reached; ++j) {
            weights[j].weigh(rows_.squares[y * rows_.stride + j], columns_);
            reached_.push_back(
                { source_ + (row.first + static_cast<int>(j)) * pitch_, weights[j].weights() });
        }
        if (!invertTotals(weights))
            return false;
        switch (columns_.stride) {
        case 2:
            average<2>(to);
            break;
        case 4:
            average<4>(to);
            break;
        case 6:
            average<6>(to);
            break;
        case 8:
            average<8>(to);
            break;
        default:
            average<0>(to);
        }
        return true;
    }

private:
    bool invertTotals(std::span<const WeightRow> weights)
    {
        double least = 1;
        for (std::size_t x = 0; x < inverses_.size(); ++x) {
            std::int32_t total = 0;
            for (const WeightRow& row : weights)
                total += row.totals()[x];
            least = std::min(least, static_cast<double>(total));
            inverses_[x] = 1.0 / total;
        }
        return least > 0;
    }

    // The compiler unrolls the steps of a fixed number of pixels beside each other.
    template <std::size_t fixedStride>
    void average(std::uint8_t* to) const
    {
        const std::size_t stride = fixedStride != 0 ? fixedStride : columns_.stride;
        const Reached* const rowsEnd = reached_.data() + reached_.size();
        for (std::size_t x = 0; x < inverses_.size(); ++x) {
            const std::ptrdiff_t from = std::ptrdiff_t { 3 } * columns_.areas[x].first;
            __m128i sums = _mm_setzero_si128();
            for (const Reached* row = reached_.data(); row != rowsEnd; ++row)
                for (std::size_t i = 0; i < stride; i += 2)
                    sums = _mm_add_epi32(sums,
                        _mm_madd_epi16(twoPixels(row->pixels + from + i * 3),
                            twoWeights(row->weights + x * stride + i)));
            const std::uint32_t pixel = quotients(sums, inverses_[x]);
            std::memcpy(to + x * 3, &pixel, 3);
        }
    }

    struct Reached {
        const std::uint8_t* pixels;
        const std::int16_t* weights;
    };

    const std::uint8_t* source_;
    std::ptrdiff_t pitch_;
    const SampleAxis& columns_;
    const SampleAxis& rows_;
    std::size_t phases_;
    std::vector<WeightRow> weights_; ///< For each phase, the rows of an area.
    std::vector<Reached> reached_; ///< The source's rows of the areas at hand.
    std::vector<double> inverses_; ///< Of the areas' total weights.
};

#else

class FastReduction {
public:
    FastReduction(const std::uint8_t*, int, int, const SampleAxis&, const SampleAxis&) { }

    static bool suits(int, int, const SampleAxis&, const SampleAxis&) { return false; }

    bool reduceRow(std::size_t, std::uint8_t*) { return false; }
};

#endif

} // namespace

void reducePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
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
