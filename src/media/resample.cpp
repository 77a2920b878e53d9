// SPDX-License-Identifier: MIT
#include "media/resample.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <span>
#include <utility>
#include <vector>

namespace kez {

namespace {

/// The sample points of one axis, in source pixels: half a step in, then a step further each time;
/// a point that reaches the last pixel is set back to the one before it and goes on from there.
std::vector<double> samplePoints(int sourceSize, int destinationSize, double step, double start)
{
    std::vector<double> points(static_cast<std::size_t>(destinationSize));
    double point = start;
    for (double& slot : points) {
        slot = point;
        point += step;
        if (point >= sourceSize - 1)
            point = sourceSize - 2;
    }
    return points;
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
    return std::ranges::all_of(
        places, [](const Between& place) { return std::fmod(place.fraction * 16, 1.0) == 0; });
}

/// Source rows at the places of the columns, in sixteenths of a byte; the two used last are kept.
class SpreadRows {
public:
    SpreadRows(const std::uint8_t* source, std::ptrdiff_t pitch, const Places& columns)
        : source_(source)
        , pitch_(pitch)
        , columns_(columns)
    {
        for (Row& row : rows_)
            row.values.resize(columns.size() * 3);
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
    struct Row {
        int number = -1;
        std::vector<std::uint16_t> values;
    };

    void spread(int number, Row& row) const
    {
        row.number = number;
        const std::uint8_t* const from = source_ + number * pitch_;
        std::uint16_t* to = row.values.data();
        for (const Between& column : columns_) {
            const int right = static_cast<int>(column.fraction * 16);
            const std::uint8_t* const low = from + static_cast<std::ptrdiff_t>(column.low) * 3;
            const std::uint8_t* const high = from + static_cast<std::ptrdiff_t>(column.high) * 3;
            for (int byte = 0; byte < 3; ++byte)
                *to++ = static_cast<std::uint16_t>(low[byte] * (16 - right) + high[byte] * right);
        }
    }

    const std::uint8_t* source_;
    std::ptrdiff_t pitch_;
    const Places& columns_;
    Row rows_[2];
};

// Where every fraction is a number of sixteenths, as in doubling, the products and sums of the
// doubles are exact, and so are those of integers.
void enlargeInSixteenths(const std::uint8_t* source, std::ptrdiff_t pitch, const Places& columns,
    const Places& rows, std::uint8_t* to)
{
    SpreadRows spread(source, pitch, columns);
    const std::size_t bytes = columns.size() * 3;
    for (const Between& row : rows) {
        const std::uint16_t* const upper = spread.at(row.low);
        const std::uint16_t* const lower = spread.at(row.high);
        const auto low = static_cast<std::uint16_t>(row.fraction * 16);
        const auto up = static_cast<std::uint16_t>(16 - low);
        for (std::size_t i = 0; i < bytes; ++i) // no sum exceeds 255 * 256
            to[i] = static_cast<std::uint8_t>(
                static_cast<std::uint16_t>(upper[i] * up + lower[i] * low) >> 8);
        to += bytes;
    }
}

void enlarge(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
    const Places columns = betweenPixels(sw, dw);
    const Places rows = betweenPixels(sh, dh);
    const auto pitch = static_cast<std::ptrdiff_t>(sw) * 3;
    if (areSixteenths(columns) && areSixteenths(rows))
        enlargeInSixteenths(source, pitch, columns, rows, to);
    else
        enlargeInDoubles(source, pitch, columns, rows, to);
}

/// The source pixels that one reduced pixel averages along one axis, from `first` up to but without
/// `end`, and the squares of their weights.
struct Area {
    int first;
    int end;
    std::size_t squares; ///< Of the first pixel, in `Axis::squares`.
};

struct Axis {
    std::vector<Area> areas;
    std::vector<double> squares;
};

Axis sampleAreas(int sourceSize, int destinationSize)
{
    const double step = static_cast<double>(sourceSize) / destinationSize;
    const double radius = (step + 1) / 2;
    const int span = static_cast<int>(step) + 1;
    Axis axis;
    for (const double point : samplePoints(sourceSize, destinationSize, step, 0.5 * step)) {
        int first = static_cast<int>(point) - span / 2;
        int end = first + span;
        first = std::max(first, 0);
        if (end >= sourceSize)
            end = sourceSize - 1;
        if (end <= first) { // a source of one pixel: that pixel is the area
            first = std::clamp(first, 0, sourceSize - 1);
            end = first + 1;
        }
        axis.areas.push_back({ first, end, axis.squares.size() });
        for (int i = first; i < end; ++i) {
            const double distance = std::abs(i + 0.5 - point);
            const double near = radius - distance;
            const double weight = distance <= radius ? near * near * 100 : 0;
            axis.squares.push_back(weight * weight);
        }
    }
    return axis;
}

/// The weights of the pixels in one row of all the areas beside each other, as `Axis::squares` has
/// them. They are the same for many rows when the sizes divide.
struct RowWeights {
    double square = -1; ///< Of the row's own weight.
    std::vector<std::int32_t> weights;
};

void weigh(RowWeights& row, double square, const std::vector<double>& columnSquares)
{
    if (row.square == square)
        return;
    constexpr double most = std::numeric_limits<std::int32_t>::max(); // no picture comes near it
    row.square = square;
    row.weights.resize(columnSquares.size());
    for (std::size_t i = 0; i < columnSquares.size(); ++i)
        row.weights[i]
            = static_cast<std::int32_t>(std::min(std::sqrt(columnSquares[i] + square), most));
}

/// `source` is the first of the picture's rows that the area reaches, `rows` has their weights.
void averageArea(const std::uint8_t* source, std::ptrdiff_t pitch, std::span<const RowWeights> rows,
    const Area& column, std::uint8_t* to)
{
    std::int64_t weights = 0;
    std::uint32_t sums[3] = {};
    const std::uint8_t* const first = source + static_cast<std::ptrdiff_t>(column.first) * 3;
    const std::uint8_t* from = first;
    for (const RowWeights& row : rows) {
        const std::int32_t* weight = &row.weights[column.squares];
        const std::uint8_t* pixel = from;
        for (int i = column.first; i < column.end; ++i, pixel += 3, ++weight) {
            weights += *weight;
            for (int byte = 0; byte < 3; ++byte)
                sums[byte] += pixel[byte] * static_cast<std::uint32_t>(*weight);
        }
        from += pitch;
    }
    for (int byte = 0; byte < 3; ++byte)
        to[byte] = weights > 0
            ? static_cast<std::uint8_t>(sums[byte] / static_cast<double>(weights))
            : first[byte];
}

void reduce(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
    const Axis columns = sampleAreas(sw, dw);
    const Axis rows = sampleAreas(sh, dh);
    const auto pitch = static_cast<std::ptrdiff_t>(sw) * 3;
    std::vector<RowWeights> weights(static_cast<std::size_t>(sh / dh) + 1);
    for (const Area& row : rows.areas) {
        const auto reached = static_cast<std::size_t>(row.end - row.first);
        for (std::size_t j = 0; j < reached; ++j)
            weigh(weights[j], rows.squares[row.squares + j], columns.squares);
        for (const Area& column : columns.areas) {
            averageArea(
                source + row.first * pitch, pitch, std::span(weights).first(reached), column, to);
            to += 3;
        }
    }
}

} // namespace

void resamplePicture(
    const std::uint8_t* source, int sw, int sh, std::uint8_t** destination, int dw, int dh)
{
    if (source == nullptr || destination == nullptr || sw < 1 || sh < 1 || dw < 1 || dh < 1)
        return;
    if (*destination == nullptr)
        *destination = new (std::nothrow)
            std::uint8_t[static_cast<std::size_t>(dw) * static_cast<std::size_t>(dh) * 3];
    if (*destination == nullptr)
        return;
    if (dw <= sw && dh <= sh)
        reduce(source, sw, sh, *destination, dw, dh);
    else
        enlarge(source, sw, sh, *destination, dw, dh);
}

} // namespace kez
