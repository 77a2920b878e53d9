// SPDX-License-Identifier: MIT
#include "picture_reducer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kez::driver {

namespace {

constexpr std::size_t colours = 3;

// How much of the pixel at `index` lies between two positions.
double overlap(double from, double to, int index)
{
    return std::min<double>(to, index + 1) - std::max<double>(from, index);
}

struct Place {
    int x;
    int y;
};

// Where in the stored picture, of a size, the pixel at (x, y) of the upright one comes from.
Place storedPlace(int orientation, int width, int height, int x, int y)
{
    const int right = width - 1;
    const int bottom = height - 1;
    switch (orientation) {
    case 2:
        return { right - x, y };
    case 3:
        return { right - x, bottom - y };
    case 4:
        return { x, bottom - y };
    case 5:
        return { y, x };
    case 6:
        return { y, bottom - x };
    case 7:
        return { right - y, bottom - x };
    case 8:
        return { right - y, x };
    default:
        return { x, y };
    }
}

} // namespace

Extent keptExtent(int width, int height, int orientation)
{
    int across = pictureWidth;
    int down = pictureHeight;
    if (isTransposed(orientation))
        std::swap(across, down);
    const double scale = std::min(1.0 * width / across, 1.0 * height / down);
    return { across * scale, down * scale };
}

std::vector<PictureReducer::Span> PictureReducer::spans(int length, double kept, int count)
{
    std::vector<Span> all;
    const double start = (length - kept) / 2;
    for (int i = 0; i < count; ++i)
        all.push_back({ std::max(start + kept * i / count, 0.0),
            std::min<double>(start + kept * (i + 1) / count, length) });
    return all;
}

PictureReducer::PictureReducer(int width, int height, int orientation)
    : orientation_(orientation)
{
    int across = pictureWidth;
    int down = pictureHeight;
    if (isTransposed(orientation))
        std::swap(across, down);
    const Extent kept = keptExtent(width, height, orientation);
    columns_ = spans(width, kept.width, across);
    rows_ = spans(height, kept.height, down);
    reduced_.resize(columns_.size() * colours);
    sums_.resize(rows_.size() * reduced_.size());
    area_ = (kept.width / across) * (kept.height / down);
}

void PictureReducer::reduceRow(std::span<const std::uint8_t> row)
{
    double* to = reduced_.data();
    for (const Span& span : columns_) {
        double sum[colours] = {};
        const int last = static_cast<int>(std::ceil(span.to));
        for (int x = static_cast<int>(span.from); x < last; ++x) {
            const double part = overlap(span.from, span.to, x);
            const std::uint8_t* const pixel = row.data() + static_cast<std::size_t>(x) * colours;
            for (std::size_t i = 0; i < colours; ++i)
                sum[i] += part * pixel[i];
        }
        to = std::copy_n(sum, colours, to);
    }
}

void PictureReducer::addRow(std::span<const std::uint8_t> row)
{
    const int y = row_++;
    if (rows_.front().from >= y + 1 || rows_.back().to <= y)
        return; // cut off
    reduceRow(row);
    auto covering = std::ranges::find_if(rows_, [y](const Span& span) { return span.to > y; });
    for (; covering != rows_.end() && covering->from < y + 1; ++covering) {
        const double part = overlap(covering->from, covering->to, y);
        const auto index = static_cast<std::size_t>(covering - rows_.begin());
        double* sum = sums_.data() + index * reduced_.size();
        for (const double value : reduced_)
            *sum++ += part * value;
    }
}

Picture PictureReducer::picture() const
{
    const auto width = static_cast<int>(columns_.size());
    const auto height = static_cast<int>(rows_.size());
    Picture upright;
    auto to = upright.begin();
    for (int y = 0; y < pictureHeight; ++y)
        for (int x = 0; x < pictureWidth; ++x) {
            const Place place = storedPlace(orientation_, width, height, x, y);
            const auto from = static_cast<std::size_t>(place.y * width + place.x) * colours;
            for (std::size_t i = 0; i < colours; ++i) {
                const double mean = std::clamp(sums_[from + i] / area_ + 0.5, 0.0, 255.0);
                *to++ = static_cast<std::uint8_t>(mean);
            }
        }
    return upright;
}

} // namespace kez::driver
