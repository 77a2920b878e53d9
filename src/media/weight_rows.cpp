// SPDX-License-Identifier: MIT
#include "media/weight_rows.h"

#include "media/sample_points.h"

#include <algorithm>
#include <cmath>

namespace kez {

namespace {

// A root in single precision is off by less than 0.004 where weights fit into 15 bits.
constexpr float doubt = 0.01f;

// Squares that are apart by less move no root by more than 0.0001.
constexpr double sameButForRounding = 1e-9;

std::int16_t weightOf(double columnSquare, double rowSquare)
{
    return static_cast<std::int16_t>(std::sqrt(columnSquare + rowSquare));
}

} // namespace

SampleAxis::SampleAxis(int sourceSize, int destinationSize)
{
    const double step = static_cast<double>(sourceSize) / destinationSize;
    const double radius = (step + 1) / 2;
    const int span = static_cast<int>(step) + 1;
    stride = static_cast<std::size_t>(span + 3) / 4 * 4;
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
        for (int i = first; i < end; ++i) {
            const double distance = std::abs(i + 0.5 - point);
            const double near = radius - distance;
            const double weight = distance <= radius ? near * near * 100 : 0;
            squares.push_back(weight * weight);
            greatestSquare = std::max(greatestSquare, weight * weight);
        }
        areas.push_back({ first, end });
        squares.resize(areas.size() * stride, -1);
    }
}

bool WeightRow::weigh(double square, const SampleAxis& columns)
{
    if (square == square_)
        return false;
    square_ = square;
    if (weighedFor_ >= 0 && std::abs(square - weighedFor_) <= weighedFor_ * sameButForRounding)
        return weighDoubtful(columns);
    weighAll(columns);
    return true;
}

void WeightRow::weighAll(const SampleAxis& columns)
{
    const std::size_t count = columns.squares.size();
    weighedFor_ = square_;
    weights_.resize(count);
    std::vector<std::uint8_t> isDoubtful(count);
    const double* const squares = columns.squares.data();
    for (std::size_t i = 0; i < count; ++i) {
        const bool isPixel = squares[i] >= 0;
        const float root = std::sqrt(static_cast<float>(squares[i] + square_));
        const auto whole = static_cast<std::int32_t>(root);
        const float rest = root - static_cast<float>(whole);
        weights_[i] = static_cast<std::int16_t>(isPixel ? whole : 0);
        isDoubtful[i] = static_cast<std::uint8_t>(isPixel & ((rest < doubt) | (rest > 1 - doubt)));
    }
    sumUp(columns.stride);
    doubtful_.clear();
    for (std::size_t i = 0; i < count; ++i)
        if (isDoubtful[i] != 0)
            doubtful_.push_back(static_cast<std::uint32_t>(i));
    weighDoubtful(columns);
}

bool WeightRow::weighDoubtful(const SampleAxis& columns)
{
    bool changes = false;
    for (const std::uint32_t i : doubtful_) {
        const std::int16_t weight = weightOf(columns.squares[i], square_);
        changes |= weight != weights_[i];
        totals_[i / columns.stride] += weight - weights_[i];
        weights_[i] = weight;
    }
    return changes;
}

void WeightRow::sumUp(std::size_t stride)
{
    totals_.assign(weights_.size() / stride, 0);
    const std::int16_t* weight = weights_.data();
    for (std::int32_t& total : totals_)
        for (std::size_t i = 0; i < stride; ++i)
            total += *weight++;
}

} // namespace kez
