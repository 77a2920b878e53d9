// SPDX-License-Identifier: MIT
#include "sprites/fill_rect.h"

#include "sprites/span_kernels.h"

#include <algorithm>

namespace kez {

void fillRect(
    const CanvasPixels& canvas, int left, int top, int width, int height, CanvasPixel pixel)
{
    const std::int64_t right = std::min<std::int64_t>(std::int64_t { left } + width, canvas.width);
    const std::int64_t bottom
        = std::min<std::int64_t>(std::int64_t { top } + height, canvas.height);
    const std::int64_t first = std::max(left, 0);
    if (canvas.pixels == nullptr || first >= right)
        return;
    const auto fill = pixel >> 24 == 255 ? fillSpan : blendFillSpan;
    const std::int64_t firstRow = std::max(top, 0);
    std::uint32_t* const to = canvas.pixels + firstRow * canvas.width + first;
    const auto columns = static_cast<std::size_t>(right - first);
    const std::int64_t rows = std::max<std::int64_t>(bottom - firstRow, 0);
    if (right - first == canvas.width)
        return fill(to, pixel, columns * static_cast<std::size_t>(rows));
    for (std::int64_t y = 0; y < rows; ++y)
        fill(to + y * canvas.width, pixel, columns);
}

} // namespace kez
