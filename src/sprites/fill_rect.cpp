// SPDX-License-Identifier: MIT
#include "sprites/fill_rect.h"

#include "sprites/span_kernels.h"

#include <algorithm>

namespace kez {

namespace {

// The sides of frames are narrower than this. A call for each of their rows would cost more than
// the pixels do.
constexpr std::size_t narrow = 8;

struct Area {
    std::uint32_t* pixels;
    std::ptrdiff_t rowPixels; // from one row to the next
    std::size_t columns;
    std::size_t rows;
};

void fillArea(const Area& area, CanvasPixel pixel)
{
    const bool isOpaque = pixel >> 24 == 255;
    const auto fill = isOpaque ? spanKernels().fill : spanKernels().blendFill;
    std::uint32_t* to = area.pixels;
    if (static_cast<std::ptrdiff_t>(area.columns) == area.rowPixels)
        return fill(to, pixel, area.columns * area.rows);
    for (std::size_t y = 0; y < area.rows; ++y, to += area.rowPixels) {
        if (isOpaque && area.columns < narrow)
            std::fill_n(to, area.columns, pixel);
        else
            fill(to, pixel, area.columns);
    }
}

} // namespace

void fillRect(
    const CanvasPixels& canvas, int left, int top, int width, int height, CanvasPixel pixel)
{
    const std::int64_t right = std::min<std::int64_t>(std::int64_t { left } + width, canvas.width);
    const std::int64_t bottom
        = std::min<std::int64_t>(std::int64_t { top } + height, canvas.height);
    const std::int64_t first = std::max(left, 0);
    const std::int64_t firstRow = std::max(top, 0);
    if (canvas.pixels == nullptr || first >= right || firstRow >= bottom)
        return;
    fillArea(
        { canvas.pixels + firstRow * canvas.width + first, canvas.width,
            static_cast<std::size_t>(right - first), static_cast<std::size_t>(bottom - firstRow) },
        pixel);
}

} // namespace kez
