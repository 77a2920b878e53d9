// SPDX-License-Identifier: MIT
/// Vectors of pixels for the AVX-512 level; vectors_sse2.h tells what they mean and what holds for
/// the sources that use them.
#pragma once

#include "core/vectors_avx2.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <immintrin.h>

namespace kez {

namespace {

struct Avx512Vectors {
    static constexpr std::size_t lanes = 16;
    static constexpr std::size_t reach = lanes;
    typedef std::uint32_t Words __attribute__((vector_size(64)));
    typedef std::uint16_t Halves __attribute__((vector_size(64)));
    using Mask = __mmask16; ///< A bit for each lane.

    static Words load(const void* from) { return Words(_mm512_loadu_si512(from)); }

    static void store(void* to, Words words) { _mm512_storeu_si512(to, __m512i(words)); }

    static Words loadPart(const void* from, std::size_t count)
    {
        return Words(_mm512_maskz_loadu_epi32(firstLanes(count), from));
    }

    static void storePart(void* to, Words words, std::size_t count)
    {
        _mm512_mask_storeu_epi32(to, firstLanes(count), __m512i(words));
    }

    static Mask equal(Words words, std::uint32_t value)
    {
        return _mm512_cmpeq_epi32_mask(__m512i(words), _mm512_set1_epi32(static_cast<int>(value)));
    }

    static bool all(Mask mask) { return mask == 0xFFFF; }

    static Words select(Mask mask, Words chosen, Words other)
    {
        return Words(_mm512_mask_blend_epi32(mask, __m512i(other), __m512i(chosen)));
    }

    static void storeExcept(void* to, Words words, Mask kept, Words)
    {
        _mm512_mask_storeu_epi32(to, static_cast<Mask>(~kept), __m512i(words));
    }

    static Words twice(Words words)
    {
        const __m128i places = _mm_setr_epi8(0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13);
        return Words(_mm512_shuffle_epi8(__m512i(words), _mm512_broadcast_i32x4(places)));
    }

    static Words widen(const std::uint8_t* bytes)
    {
        return Words(_mm512_cvtepu8_epi32(
            _mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(bytes)))));
    }

    static Words pairProducts(Words first, Words second)
    {
        return Words(_mm512_madd_epi16(__m512i(first), __m512i(second)));
    }

    static Words lowerHalves(Words first, Words second)
    {
        // Positions 0, 2, 4 … 62: the lower halves of both.
        const __m512i lanesOfTwo = _mm512_setr_epi32(0x00020000, 0x00060004, 0x000A0008, 0x000E000C,
            0x00120010, 0x00160014, 0x001A0018, 0x001E001C, 0x00220020, 0x00260024, 0x002A0028,
            0x002E002C, 0x00320030, 0x00360034, 0x003A0038, 0x003E003C);
        return Words(_mm512_permutex2var_epi16(__m512i(first), lanesOfTwo, __m512i(second)));
    }

    static Words lowerThreeBytes(Words words)
    {
        const __m512i threes = _mm512_setr_epi32(0x04020100, 0x09080605, 0x0E0D0C0A, 0x14121110,
            0x19181615, 0x1E1D1C1A, 0x24222120, 0x29282625, 0x2E2D2C2A, 0x34323130, 0x39383635,
            0x3E3D3C3A, 0, 0, 0, 0);
        return Words(_mm512_permutexvar_epi8(threes, __m512i(words)));
    }

    static Words entries(const std::uint8_t* table, const std::uint8_t* indices)
    {
        const auto lower = __m256i(Avx2Vectors::entries(table, indices));
        const auto upper = __m256i(Avx2Vectors::entries(table, indices + 8));
        return Words(_mm512_inserti64x4(_mm512_castsi256_si512(lower), upper, 1));
    }

    static Words reversed(Words words)
    {
        return permuted(words, Words { 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0 });
    }

    static Words permuted(Words words, Words positions)
    {
        return Words(_mm512_permutexvar_epi32(__m512i(positions), __m512i(words)));
    }

    static Words picked(const void* from, Words positions)
    {
        return permuted(load(from), positions);
    }

private:
    static __mmask16 firstLanes(std::size_t count)
    {
        return static_cast<__mmask16>((1u << count) - 1);
    }
};

/// Picks out of three times as many words.
struct Avx512Triples : Avx512Vectors {
    static constexpr std::size_t reach = 3 * lanes;

    static Words picked(const void* from, Words positions)
    {
        const auto* const words = static_cast<const __m512i*>(from);
        const __m512i places = __m512i(positions);
        const __m512i lower
            = _mm512_permutex2var_epi32(__m512i(load(words)), places, __m512i(load(words + 1)));
        const auto isLast = _mm512_cmpgt_epi32_mask(places, _mm512_set1_epi32(2 * lanes - 1));
        return Words(
            _mm512_mask_permutexvar_epi32(lower, isLast, places, __m512i(load(words + 2))));
    }
};

} // namespace

} // namespace kez
