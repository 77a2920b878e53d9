// SPDX-License-Identifier: MIT
#include "media/enlarge.h"

#include "media/double_size.h"
#include "media/resample_levels.h"
#include "media/sample_points.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

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

/// Source rows in another form; the two used last are kept.
template <class Value>
class TwoRows {
public:
    explicit TwoRows(std::size_t values)
    {
        for (Row& row : rows_)
            row.values.resize(values);
    }

    const Value* at(int number, auto&& make)
    {
        if (rows_[0].number != number)
            std::swap(rows_[0], rows_[1]);
        if (rows_[0].number != number) {
            rows_[0].number = number;
            make(number, rows_[0].values.data());
        }
        return rows_[0].values.data();
    }

private:
    struct Row {
        int number = -1;
        std::vector<Value> values;
    };

    Row rows_[2];
};

void enlargeInDoubles(
    const std::uint8_t* source, int sw, const Places& columns, const Places& rows, std::uint8_t* to)
{
    const ResampleKernels& kernels = resampleKernels();
    const auto width = static_cast<std::size_t>(sw);
    std::vector<WideColumn> wide;
    for (const Between& column : columns) {
        const double right = column.fraction;
        wide.push_back(
            { { 1 - right, right, right, 1 - right }, static_cast<std::size_t>(column.low) });
    }
    TwoRows<double> kept(4 * (width + 1)); // behind a single column lies nothing
    const auto widen = [&](int number, double* values) {
        kernels.widen(values, source + static_cast<std::size_t>(number) * width * 3, width);
    };
    for (const Between& row : rows) {
        const double* const upper = kept.at(row.low, widen);
        const double* const lower = kept.at(row.high, widen);
        kernels.mixWide(to, upper, lower, wide.data(), row.fraction, wide.size());
        to += 3 * wide.size();
    }
}

bool areSixteenths(const Places& places)
{
    return std::ranges::all_of(places, [](const Between& place) {
        const double sixteenths = place.fraction * 16;
        return sixteenths == static_cast<int>(sixteenths);
    });
}

/// Makes source rows at the places of the columns, in sixteenths of a byte.
class Spread {
public:
    // Steps take eight bytes or values for the three of a pixel.
    static constexpr std::size_t spare = 5;

    Spread(const std::uint8_t* source, int sw, int sh, const Places& columns)
        : source_(source)
        , pitch_(std::size_t { 3 } * static_cast<std::size_t>(sw))
        , lastRow_(sh - 1)
        , lastRowCopy_(pitch_ + spare)
    {
        std::memcpy(
            lastRowCopy_.data(), source + static_cast<std::size_t>(lastRow_) * pitch_, pitch_);
        for (const Between& column : columns) {
            const auto right = static_cast<std::uint8_t>(column.fraction * 16);
            const auto left = static_cast<std::uint8_t>(16 - right);
            columns_.push_back({ 3 * column.low, { left, right, left, right, left, right, 0, 0 } });
        }
    }

    void operator()(int number, std::uint16_t* values) const
    {
        const std::uint8_t* const from = number == lastRow_
            ? lastRowCopy_.data()
            : source_ + static_cast<std::size_t>(number) * pitch_;
        resampleKernels().spread(values, from, columns_.data(), columns_.size());
    }

private:
    const std::uint8_t* source_;
    std::size_t pitch_;
    int lastRow_;
    std::vector<SpreadColumn> columns_;
    std::vector<std::uint8_t> lastRowCopy_; ///< With room to read beyond it.
};

// Where every fraction is a number of sixteenths, as in doubling, the products and sums of the
// doubles are exact, and so are those of integers.
void enlargeInSixteenths(const std::uint8_t* source, int sw, int sh, const Places& columns,
    const Places& rows, std::uint8_t* to)
{
    const Spread spread(source, sw, sh, columns);
    const std::size_t bytes = columns.size() * 3;
    TwoRows<std::uint16_t> kept(bytes + Spread::spare);
    for (const Between& row : rows) {
        const std::uint16_t* const upper = kept.at(row.low, spread);
        const std::uint16_t* const lower = kept.at(row.high, spread);
        resampleKernels().mixRows(
            to, upper, lower, static_cast<unsigned>(row.fraction * 16), bytes);
        to += bytes;
    }
}

} // namespace

void enlargePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
    if (isDoubling(sw, sh, dw, dh)) {
        doublePicture(source, sw, sh, to);
        return;
    }
    const Places columns = betweenPixels(sw, dw);
    const Places rows = betweenPixels(sh, dh);
    if (sw > 1 && areSixteenths(columns) && areSixteenths(rows))
        enlargeInSixteenths(source, sw, sh, columns, rows, to);
    else
        enlargeInDoubles(source, sw, columns, rows, to);
}

} // namespace kez
