// SPDX-License-Identifier: MIT
#include "media/resample.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>
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

std::vector<Between> betweenPixels(int sourceSize, int destinationSize)
{
    const double step = static_cast<double>(sourceSize) / destinationSize;
    const double half = 0.5 * step;
    const double start = sourceSize - 1 <= half ? half - 1 : half;
    std::vector<Between> places;
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

void enlarge(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
    const std::vector<Between> columns = betweenPixels(sw, dw);
    const std::vector<Between> rows = betweenPixels(sh, dh);
    const auto pitch = static_cast<std::ptrdiff_t>(sw) * 3;
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

void averageArea(const std::uint8_t* source, std::ptrdiff_t pitch, const Area& row,
    const double* rowSquares, const Area& column, const double* columnSquares, std::uint8_t* to)
{
    double weights = 0;
    std::uint32_t sums[3] = {};
    for (int j = row.first; j < row.end; ++j) {
        const double squareY = rowSquares[j - row.first];
        const std::uint8_t* pixel
            = source + j * pitch + static_cast<std::ptrdiff_t>(column.first) * 3;
        for (int i = column.first; i < column.end; ++i, pixel += 3) {
            const auto weight
                = static_cast<std::uint32_t>(std::sqrt(columnSquares[i - column.first] + squareY));
            weights += weight;
            for (int byte = 0; byte < 3; ++byte)
                sums[byte] += pixel[byte] * weight;
        }
    }
    for (int byte = 0; byte < 3; ++byte)
        to[byte] = weights > 0 ? static_cast<std::uint8_t>(sums[byte] / weights)
                               : source[row.first * pitch + column.first * 3 + byte];
}

void reduce(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh)
{
    const Axis columns = sampleAreas(sw, dw);
    const Axis rows = sampleAreas(sh, dh);
    const auto pitch = static_cast<std::ptrdiff_t>(sw) * 3;
    for (const Area& row : rows.areas)
        for (const Area& column : columns.areas) {
            averageArea(source, pitch, row, &rows.squares[row.squares], column,
                &columns.squares[column.squares], to);
            to += 3;
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
