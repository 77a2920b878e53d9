// SPDX-License-Identifier: MIT
#include "media/enlarge.h"

#include "media/double_size.h"
#include "media/resample_levels.h"
#include "media/sample_points.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
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

/// The rows of a source, each with bytes behind it that may be read.
class SourceRows {
public:
    SourceRows(const std::uint8_t* source, int sw, int sh)
        : source_(source)
        , pitch_(std::size_t { 3 } * static_cast<std::size_t>(sw))
        , firstCopied_(std::max(sh - copiedRows, 0))
    {
        const auto count = static_cast<std::size_t>(sh - firstCopied_) * pitch_;
        copy_.resize(count + spare);
        std::memcpy(copy_.data(), source + static_cast<std::size_t>(firstCopied_) * pitch_, count);
    }

    [[nodiscard]] const std::uint8_t* at(int number) const
    {
        return number < firstCopied_
            ? source_ + static_cast<std::size_t>(number) * pitch_
            : copy_.data() + static_cast<std::size_t>(number - firstCopied_) * pitch_;
    }

private:
    // Loops take eight bytes for the six of two pixels, of which the second may be missing. One row
    // does not hold them where it is of one pixel.
    static constexpr std::size_t spare = 5;
    static constexpr int copiedRows = 2;

    const std::uint8_t* source_;
    std::size_t pitch_;
    int firstCopied_;
    std::vector<std::uint8_t> copy_;
};

// The columns between two rows, in the doubles of the rule.
struct WideRow {
    void mix(std::uint8_t* to, std::size_t first, std::size_t end) const
    {
        resampleKernels().mixWide(
            to + 3 * first, upper, lower, columns + first, lowerShare, end - first);
    }

    const std::uint8_t* upper;
    const std::uint8_t* lower;
    const WideColumn* columns;
    double lowerShare;
};

constexpr std::size_t groupValues = 32;

// What is near whole numbers, and what is left behind the groups. Neighbours are mixed together.
void mixDoubtful(std::uint8_t* to, const WideRow& row, std::span<const std::uint32_t> doubtful,
    std::size_t count)
{
    std::size_t first = 0;
    std::size_t end = 0;
    std::size_t value = 0;
    for (const std::uint32_t bits : doubtful) {
        if (bits != 0) {
            const std::size_t next = (value + static_cast<std::size_t>(std::countr_zero(bits))) / 3;
            if (next > end) {
                row.mix(to, first, end);
                first = next;
            }
            end = (value + static_cast<std::size_t>(std::bit_width(bits)) - 1) / 3 + 1;
        }
        value += groupValues;
    }
    row.mix(to, first, end);
    row.mix(to, std::max(end, value / 3), count);
}

// Any fractions, in single precision where that leaves nothing open.
void enlargeByFractions(
    const SourceRows& source, const Places& columns, const Places& rows, std::uint8_t* to)
{
    constexpr std::size_t spareValues = 4;
    const ResampleKernels& kernels = resampleKernels();
    std::vector<SingleColumn> single;
    std::vector<WideColumn> wide;
    for (const Between& column : columns) {
        const std::int32_t offset = 3 * column.low;
        single.push_back({ offset, static_cast<float>(column.fraction) });
        wide.push_back({ static_cast<std::size_t>(offset), 1 - column.fraction, column.fraction });
    }
    TwoRows<float> kept(3 * columns.size() + spareValues);
    const auto spread = [&](int number, float* values) {
        kernels.spreadSingle(values, source.at(number), single.data(), single.size());
    };
    std::vector<std::uint32_t> doubtful(3 * columns.size() / groupValues);
    for (const Between& row : rows) {
        const float* const upper = kept.at(row.low, spread);
        const float* const lower = kept.at(row.high, spread);
        kernels.mixSingle(
            to, upper, lower, static_cast<float>(row.fraction), doubtful.size(), doubtful.data());
        mixDoubtful(to, { source.at(row.low), source.at(row.high), wide.data(), row.fraction },
            doubtful, columns.size());
        to += 3 * columns.size();
    }
}

bool areSixteenths(const Places& places)
{
    return std::ranges::all_of(places, [](const Between& place) {
        const double sixteenths = place.fraction * 16;
        return sixteenths == static_cast<int>(sixteenths);
    });
}

// Where every fraction is a number of sixteenths, the products and sums of the doubles are exact,
// and so are those of integers.
void enlargeInSixteenths(
    const SourceRows& source, const Places& columns, const Places& rows, std::uint8_t* to)
{
    constexpr std::size_t spareValues = 5;
    const ResampleKernels& kernels = resampleKernels();
    std::vector<SpreadColumn> shares;
    for (const Between& column : columns) {
        const auto right = static_cast<std::uint8_t>(column.fraction * 16);
        const auto left = static_cast<std::uint8_t>(16 - right);
        shares.push_back({ 3 * column.low, { left, right, left, right, left, right, 0, 0 } });
    }
    const std::size_t bytes = columns.size() * 3;
    TwoRows<std::uint16_t> kept(bytes + spareValues);
    const auto spread = [&](int number, std::uint16_t* values) {
        kernels.spread(values, source.at(number), shares.data(), shares.size());
    };
    for (const Between& row : rows) {
        const std::uint16_t* const upper = kept.at(row.low, spread);
        const std::uint16_t* const lower = kept.at(row.high, spread);
        kernels.mixRows(to, upper, lower, static_cast<unsigned>(row.fraction * 16), bytes);
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
    const SourceRows from(source, sw, sh);
    if (areSixteenths(columns) && areSixteenths(rows))
        enlargeInSixteenths(from, columns, rows, to);
    else
        enlargeByFractions(from, columns, rows, to);
}

} // namespace kez
