// SPDX-License-Identifier: MIT
#include "media/double_size.h"

#include "media/resample_levels.h"

#include <algorithm>
#include <cstddef>

namespace kez {

namespace {

// The last four columns of a row, all of them between its last two pixels.
void doubleRowEnd(
    std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower, unsigned lowerQuarters)
{
    constexpr unsigned rightQuarters[] = { 1, 3, 0, 2 };
    for (std::size_t byte = 0; byte < 3; ++byte, ++upper, ++lower) {
        const unsigned left = upper[0] * (4 - lowerQuarters) + lower[0] * lowerQuarters;
        const unsigned right = upper[3] * (4 - lowerQuarters) + lower[3] * lowerQuarters;
        for (std::size_t column = 0; column < 4; ++column) {
            const unsigned share = rightQuarters[column];
            to[3 * column + byte]
                = static_cast<std::uint8_t>((left * (4 - share) + right * share) / 16);
        }
    }
}

} // namespace

bool isDoubling(int sw, int sh, int dw, int dh)
{
    return sw >= 2 && sh >= 2 && dw % 2 == 0 && dh % 2 == 0 && dw / 2 == sw && dh / 2 == sh;
}

void doublePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to)
{
    const ResampleKernels& kernels = resampleKernels();
    const std::size_t inner = static_cast<std::size_t>(sw) - 2;
    const std::size_t pitch = 3 * (inner + 2);
    for (int y = 0; y < 2 * sh; ++y, to += 2 * pitch) {
        const std::uint8_t* const upper
            = source + static_cast<std::size_t>(std::min(y / 2, sh - 2)) * pitch;
        const unsigned lowerQuarters = (y % 2 == 0 ? 1 : 3) - (y < 2 * sh - 2 ? 0 : 1);
        kernels.doubleRow(to, upper, upper + pitch, lowerQuarters, inner);
        doubleRowEnd(to + 6 * inner, upper + 3 * inner, upper + pitch + 3 * inner, lowerQuarters);
    }
}

} // namespace kez
