// SPDX-License-Identifier: MIT
#include "media/halve.h"

#include "media/resample_levels.h"

#include <cstddef>

namespace kez {

namespace {

// An area at the right or the lower edge, or in the corner of both.
void averageAtEdge(
    const std::uint8_t* first, std::size_t pitch, bool hasColumn, bool hasRow, std::uint8_t* to)
{
    constexpr unsigned nearWeight = 141;
    constexpr unsigned farWeight = 100;
    const unsigned far = (hasColumn ? 2u : 0u) + (hasRow ? 2u : 0u);
    for (std::size_t byte = 0; byte < 3; ++byte) {
        const std::uint8_t* const at = first + byte;
        unsigned sum = nearWeight * (at[0] + at[3] + at[pitch] + at[pitch + 3u]);
        if (hasColumn)
            sum += farWeight * (at[6] + at[pitch + 6]);
        if (hasRow)
            sum += farWeight * (at[2 * pitch] + at[2 * pitch + 3u]);
        to[byte] = static_cast<std::uint8_t>(sum / (4 * nearWeight + far * farWeight));
    }
}

} // namespace

bool isHalving(int sw, int sh, int dw, int dh)
{
    return dw >= 2 && dh >= 2 && sw % 2 == 0 && sh % 2 == 0 && sw / 2 == dw && sh / 2 == dh;
}

void halvePicture(const std::uint8_t* source, int dw, int dh, std::uint8_t* to)
{
    const ResampleKernels& kernels = resampleKernels();
    const std::size_t inner = static_cast<std::size_t>(dw) - 1;
    const std::size_t pitch = 6 * (inner + 1);
    for (int y = 0; y < dh - 1; ++y, source += 2 * pitch) {
        kernels.halve(to, source, pitch, inner);
        averageAtEdge(source + 6 * inner - 3, pitch, false, true, to + 3 * inner);
        to += pitch / 2;
    }
    source -= pitch;
    for (std::size_t x = 0; x < inner; ++x)
        averageAtEdge(source + 6 * x, pitch, true, false, to + 3 * x);
    averageAtEdge(source + 6 * inner - 3, pitch, false, false, to + 3 * inner);
}

} // namespace kez
