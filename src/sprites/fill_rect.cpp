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
    for (std::int64_t y = std::max(top, 0); y < bottom; ++y)
        fill(canvas.pixels + y * canvas.width + first, pixel,
            static_cast<std::size_t>(right - first));
}

} // namespace kez
