// SPDX-License-Identifier: MIT
#include "media/enlarge.h"

#include "core/vector_level.h"
#include "media/resample_kernels.h"
#include "media/sample_points.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

namespace kez {

namespace {

const ResampleKernels& resampleKernels()
{
    return *resampleKernelsOf[static_cast<std::size_t>(vectorLevel())];
}

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
    return std::ranges::all_of(places, [](const Between& place) {
        const double sixteenths = place.fraction * 16;
        return sixteenths == static_cast<int>(sixteenths);
    });
}

/// Source rows at the places of the columns, in sixteenths of a byte; the two used last are kept.
class SpreadRows {
public:
    SpreadRows(const std::uint8_t* source, int sw, int sh, const Places& columns)
        : source_(source)
        , pitch_(std::size_t { 3 } * static_cast<std::size_t>(sw))
        , lastRow_(sh - 1)
        , lastRowCopy_(pitch_ + spare)
    {
        std::memcpy(
            lastRowCopy_.data(), source + static_cast<std::size_t>(lastRow_) * pitch_, pitch_);
        for (const Between& column : columns) {
            const auto right = static_cast<std::uint16_t>(column.fraction * 16);
            const auto left = static_cast<std::uint16_t>(16 - right);
            columns_.push_back({ 3 * column.low, { left, left, left, right, right, right, 0, 0 } });
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
        resampleKernels().spread(row.values.data(), from, columns_.data(), columns_.size());
    }

    const std::uint8_t* source_;
    std::size_t pitch_;
    int lastRow_;
    std::vector<SpreadColumn> columns_;
    std::vector<std::uint8_t> lastRowCopy_; ///< With room to read beyond it.
    Row rows_[2];
};

// Where every fraction is a number of sixteenths, as in doubling, the products and sums of the
// doubles are exact, and so are those of integers.
void enlargeInSixteenths(const std::uint8_t* source, int sw, int sh, const Places& columns,
    const Places& rows, std::uint8_t* to)
{
    SpreadRows spread(source, sw, sh, columns);
    const std::size_t bytes = columns.size() * 3;
    for (const Between& row : rows) {
        const std::uint16_t* const upper = spread.at(row.low);
        const std::uint16_t* const lower = spread.at(row.high);
        resampleKernels().mixRows(
            to, upper, lower, static_cast<unsigned>(row.fraction * 16), bytes);
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
