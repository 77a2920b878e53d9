// SPDX-License-Identifier: MIT
#include "sprites/span_kernels.h"

#include "core/little_endian.h"

#include <algorithm>

namespace kez {

void rgb565Span(std::uint32_t* to, const std::uint8_t* from, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = from565(loadWord16(from + 2 * i));
}

void blend565Span(std::uint32_t* to, const std::uint8_t* from, const std::uint8_t* plane,
    std::size_t count, ZeroOpacity zeroOpacity)
{
    constexpr std::size_t bufferPixels = 64;
    std::uint32_t colours[bufferPixels];
    for (std::size_t i = 0; i < count; i += bufferPixels) {
        const std::size_t part = std::min(bufferPixels, count - i);
        rgb565Span(colours, from + 2 * i, part);
        blendPlaneSpan(to + i, colours, plane + i, part, zeroOpacity);
    }
}

} // namespace kez
