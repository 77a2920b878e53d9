// SPDX-License-Identifier: MIT
#include "media/targa_packets.h"

#include <algorithm>
#include <bit>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kez {

namespace {

constexpr std::size_t mostPacketPixels = 128;
constexpr std::size_t pixelBytes = 3;

bool equalsNext(const std::uint8_t* pixel)
{
    return std::memcmp(pixel, pixel + pixelBytes, pixelBytes) == 0;
}

#ifdef __SSE2__

constexpr std::size_t pixelsAtOnce = 16;
constexpr std::size_t bytesAtOnce = pixelsAtOnce * pixelBytes + pixelBytes;
constexpr std::uint64_t pixelBits = 0x249249249249; // the first of every three of 48 bits

std::uint64_t equalBytes(const std::uint8_t* at)
{
    const auto load = [](const std::uint8_t* from) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    };
    return static_cast<std::uint64_t>(
        static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(load(at), load(at + pixelBytes)))));
}

// Bit 3 i is set when pixel i of the 16 equals its right neighbour.
std::uint64_t equalPixels(const std::uint8_t* at)
{
    const std::uint64_t bytes
        = equalBytes(at) | equalBytes(at + 16) << 16 | equalBytes(at + 32) << 32;
    return bytes & bytes >> 1 & bytes >> 2 & pixelBits;
}

#endif

// How many pixels from `at` on equal their right neighbours (or differ from them), at most `most`.
// Reads the `most` + 1 pixels and nothing else.
template <bool equal>
std::size_t stretch(const std::uint8_t* at, std::size_t most)
{
    std::size_t count = 0;
#ifdef __SSE2__
    for (; (most + 1 - count) * pixelBytes >= bytesAtOnce; count += pixelsAtOnce) {
        const std::uint64_t same = equalPixels(at + count * pixelBytes);
        const std::uint64_t stops = equal ? ~same & pixelBits : same;
        if (stops != 0)
            return count + static_cast<std::size_t>(std::countr_zero(stops)) / pixelBytes;
    }
#endif
    while (count < most && equalsNext(at + count * pixelBytes) == equal)
        ++count;
    return count;
}

// Pixels from `at` on that share no run with their right neighbour; the row's last pixel is one.
std::size_t literalLength(const std::uint8_t* at, std::size_t left)
{
    if (left > mostPacketPixels)
        return stretch<false>(at, mostPacketPixels);
    const std::size_t different = stretch<false>(at, left - 1);
    return different == left - 1 ? left : different;
}

} // namespace

std::size_t packTargaRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> out)
{
    const std::uint8_t* at = row.data();
    std::uint8_t* to = out.data();
    for (std::size_t left = row.size() / pixelBytes; left > 0;) {
        const std::size_t literal = literalLength(at, left);
        const std::size_t count
            = literal != 0 ? literal : 1 + stretch<true>(at, std::min(mostPacketPixels, left) - 1);
        const std::size_t stored = (literal != 0 ? literal : 1) * pixelBytes;
        *to++ = static_cast<std::uint8_t>((count - 1) | (literal != 0 ? 0u : 0x80u));
        std::memcpy(to, at, stored);
        to += stored;
        at += count * pixelBytes;
        left -= count;
    }
    return static_cast<std::size_t>(to - out.data());
}

} // namespace kez
