// SPDX-License-Identifier: MIT
/// The loops of resampling that are the same for all vector levels: the compiler makes of them what
/// the level has. For the sources of the levels only; what core/vectors_sse2.h says of such
/// sources holds here.
#pragma once

#include "media/resample_kernels.h"

#include <cstring>

#include <emmintrin.h>

namespace kez {

namespace {

void spreadColumns(
    std::uint16_t* to, const std::uint8_t* from, const SpreadColumn* columns, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x, to += 3) {
        const __m128i bytes
            = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from + columns[x].offset));
        const __m128i shares = _mm_loadu_si128(reinterpret_cast<const __m128i*>(columns[x].shares));
        const __m128i parts
            = _mm_mullo_epi16(_mm_unpacklo_epi8(bytes, _mm_setzero_si128()), shares);
        _mm_storel_epi64(
            reinterpret_cast<__m128i*>(to), _mm_add_epi16(parts, _mm_srli_si128(parts, 6)));
    }
}

void mixSpreadRows(std::uint8_t* to, const std::uint16_t* upper, const std::uint16_t* lower,
    unsigned lowerShare, std::size_t count)
{
    const auto low = static_cast<std::uint16_t>(lowerShare);
    const auto up = static_cast<std::uint16_t>(16 - lowerShare);
    for (std::size_t i = 0; i < count; ++i) // no sum exceeds 255 × 256
        to[i] = static_cast<std::uint8_t>(
            static_cast<std::uint16_t>(upper[i] * up + lower[i] * low) >> 8);
}

} // namespace

} // namespace kez
