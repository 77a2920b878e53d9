// SPDX-License-Identifier: MIT
#include "media/enlarge.h"

#include "media/sample_points.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kez {

namespace {

/// Where an enlarged pixel lies between two source pixels.
struct Between {
    int low;
    int high;
    double fraction;
};

using Places = std::vector<Between>;

Places betweenPixels(int sourceSize, int destinationSize)
{
    const double step = static_cast<double>(sourceSize) / destinationSize;
    const double half = 0.5 * step;
    const double start = sourceSize - 1 <= half ? half - 1 : half;
    Places places;
    places.reserve(static_cast<std::size_t>(destinationSize));
    for (const double point : samplePoints(sourceSize, destinationSize, step, start)) {
        if (sourceSize == 1) { // there is no second pixel to look at
            places.push_back({ 0, 0, 0.0 });
            continue;
        }
        const int low = static_cast<int>(point);
        places.push_back({ low, low + 1, point - low });
    }
    return places;
}

void enlargeInDoubles(const std::uint8_t* source, std::ptrdiff_t pitch, const Places& columns,
    const Places& rows, std::uint8_t* to)
{
    for (const Between& row : rows) {
        const std::uint8_t* upper = source + row.low * pitch;
        const std::uint8_t* lower = source + row.high * pitch;
        const double fy = row.fraction;
        for (const Between& column : columns) {
            const double fx = column.fraction;
            const double w00 = (1 - fx) * (1 - fy);
            const double w10 = fx * (1 - fy);
            const double w11 = fx * fy;
            const double w01 = (1 - fx) * fy;
            const std::ptrdiff_t left = static_cast<std::ptrdiff_t>(column.low) * 3;
            const std::ptrdiff_t right = static_cast<std::ptrdiff_t>(column.high) * 3;
            for (int byte = 0; byte < 3; ++byte)
                *to++
                    = static_cast<std::uint8_t>(upper[left + byte] * w00 + upper[right + byte] * w10
                        + lower[right + byte] * w11 + lower[left + byte] * w01);
        }
    }
}

bool areSixteenths(const Places& places)
{
    return std::ranges::all_of(
        places, [](const Between& place) { return std::fmod(place.fraction * 16, 1.0) == 0; });
}

/// Source rows at the places of the columns, in sixteenths of a byte; the two used last are kept.
class SpreadRows {
public:
    SpreadRows(const std::uint8_t* source, int sw, int sh, const Places& columns)
        : source_(source)
        , pitch_(std::size_t { 3 } * static_cast<std::size_t>(sw))
        , lastRow_(sh - 1)
        , columns_(columns)
        , lastRowCopy_(pitch_ + spare)
        , shares_(columns.size() * shareCount)
    {
        std::memcpy(
            lastRowCopy_.data(), source + static_cast<std::size_t>(lastRow_) * pitch_, pitch_);
        for (std::size_t x = 0; x < columns.size(); ++x) {
            const auto right = static_cast<std::uint16_t>(columns[x].fraction * 16);
            std::fill_n(&shares_[x * shareCount], 3, static_cast<std::uint16_t>(16 - right));
            std::fill_n(&shares_[x * shareCount + 3], 3, right);
        }
        for (Row& row : rows_)
            row.values.resize(columns.size() * 3 + spare);
    }

    const std::uint16_t* at(int number)
    {
        if (rows_[0].number != number)
            std::swap(rows_[0], rows_[1]);
        if (rows_[0].number != number)
            spread(number, rows_[0]);
        return rows_[0].values.data();
    }

private:
    // Steps take eight bytes or values for the three of a pixel.
    static constexpr std::size_t spare = 5;
    static constexpr std::size_t shareCount = 8; // the left pixel's three, the right one's, nothing

    struct Row {
        int number = -1;
        std::vector<std::uint16_t> values;
    };

    void spread(int number, Row& row) const
    {
        row.number = number;
        const std::uint8_t* const from = number == lastRow_
            ? lastRowCopy_.data()
            : source_ + static_cast<std::size_t>(number) * pitch_;
        const std::uint16_t* share = shares_.data();
        std::uint16_t* to = row.values.data();
        for (const Between& column : columns_) {
            mix(from + static_cast<std::ptrdiff_t>(column.low) * 3, share, to);
            share += shareCount;
            to += 3;
        }
    }

    // The pixel at `pair` and the one behind it, each times its share.
    static void mix(const std::uint8_t* pair, const std::uint16_t* share, std::uint16_t* to)
    {
#ifdef __SSE2__
        const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pair));
        const __m128i shares = _mm_loadu_si128(reinterpret_cast<const __m128i*>(share));
        const __m128i parts
            = _mm_mullo_epi16(_mm_unpacklo_epi8(bytes, _mm_setzero_si128()), shares);
        _mm_storel_epi64(
            reinterpret_cast<__m128i*>(to), _mm_add_epi16(parts, _mm_srli_si128(parts, 6)));
#else
        for (int byte = 0; byte < 3; ++byte)
            to[byte] = static_cast<std::uint16_t>(
                pair[byte] * share[byte] + pair[byte + 3] * share[byte + 3]);
#endif
    }

    const std::uint8_t* source_;
    std::size_t pitch_;
    int lastRow_;
    const Places& columns_;
    std::vector<std::uint8_t> lastRowCopy_; ///< With room to read beyond it.
    std::vector<std::uint16_t> shares_;
    Row rows_[2];
};

void mixRows(const std::uint16_t* upper, const std::uint16_t* lower, double fraction,
    std::size_t bytes, std::uint8_t* to)
{
    const auto low = static_cast<std::uint16_t>(fraction * 16);
    const auto up = static_cast<std::uint16_t>(16 - low);
    for (std::size_t i = 0; i < bytes; ++i) // no sum exceeds 255 * 256
        to[i] = static_cast<std::uint8_t>(
            static_cast<std::uint16_t>(upper[i] * up + lower[i] * low) >> 8);
}

// Where every fraction is a number of sixteenths, as in doubling, the products and sums of the
// doubles are exact, and so are those of integers.
void enlargeInSixteenths(const std::uint8_t* source, int sw, int sh, const Places& columns,
    const Places& rows, std::uint8_t* to)
{
    SpreadRows spread(source, sw, sh, columns);
    const std::size_t bytes = columns.size() * 3;
    for (const Between& row : rows) {
        const std::uint16_t* const upper = spread.at(row.low);
        mixRows(upper, spread.at(row.high), row.fraction, bytes, to);
        to += bytes;
    }
}

} // namespace

void enlargePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
    const Places columns = betweenPixels(sw, dw);
    const Places rows = betweenPixels(sh, dh);
    const auto pitch = static_cast<std::ptrdiff_t>(sw) * 3;
    if (sw > 1 && areSixteenths(columns) && areSixteenths(rows))
        enlargeInSixteenths(source, sw, sh, columns, rows, to);
    else
        enlargeInDoubles(source, pitch, columns, rows, to);
}

} // namespace kez
