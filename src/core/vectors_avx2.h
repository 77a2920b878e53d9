// SPDX-License-Identifier: MIT
/// Vectors of pixels for the AVX2 level; vectors_sse2.h tells what they mean and what holds for the
/// sources that use them.
#pragma once

#include "core/vectors_sse2.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <immintrin.h>

namespace kez {

namespace {

struct Avx2Vectors {
    static constexpr std::size_t lanes = 8;
    static constexpr std::size_t reach = lanes;
    typedef std::uint32_t Words __attribute__((vector_size(32)));
    typedef std::uint16_t Halves __attribute__((vector_size(32)));
    using Mask = Words;

    static Words load(const void* from)
    {
        return Words(_mm256_loadu_si256(static_cast<const __m256i*>(from)));
    }

    static void store(void* to, Words words)
    {
        _mm256_storeu_si256(static_cast<__m256i*>(to), __m256i(words));
    }

    static Words loadPart(const void* from, std::size_t count)
    {
        return Words(_mm256_maskload_epi32(static_cast<const int*>(from), firstLanes(count)));
    }

    static void storePart(void* to, Words words, std::size_t count)
    {
        _mm256_maskstore_epi32(static_cast<int*>(to), firstLanes(count), __m256i(words));
    }

    static Mask equal(Words words, std::uint32_t value) { return Mask(words == value); }

    static bool all(Mask mask) { return _mm256_movemask_epi8(__m256i(mask)) == -1; }

    static Words select(Mask mask, Words chosen, Words other)
    {
        return Words(_mm256_blendv_epi8(__m256i(other), __m256i(chosen), __m256i(mask)));
    }

    static void storeExcept(void* to, Words words, Mask kept, Words stored)
    {
        store(to, select(kept, stored, words));
    }

    static Words twice(Words words)
    {
        const __m128i places = _mm_setr_epi8(0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13);
        return Words(_mm256_shuffle_epi8(__m256i(words), _mm256_broadcastsi128_si256(places)));
    }

    static Words widen(const std::uint8_t* bytes)
    {
        return Words(_mm256_cvtepu8_epi32(
            _mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(bytes)))));
    }

    static Words pairProducts(Words first, Words second)
    {
        return Words(_mm256_madd_epi16(__m256i(first), __m256i(second)));
    }

    static Words lowerHalves(Words first, Words second)
    {
        const __m256i mask = _mm256_set1_epi32(0xFFFF);
        const __m256i packed = _mm256_packus_epi32(
            _mm256_and_si256(__m256i(first), mask), _mm256_and_si256(__m256i(second), mask));
        return Words(_mm256_permute4x64_epi64(packed, _MM_SHUFFLE(3, 1, 2, 0)));
    }

    static Words lowerThreeBytes(Words words)
    {
        const __m256i threes = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1,
            -1, 0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
        const __m256i packed = _mm256_shuffle_epi8(__m256i(words), threes);
        return Words(
            _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7)));
    }

    static Words entries(const std::uint8_t* table, const std::uint8_t* indices)
    {
        const auto lower = __m128i(Sse2Vectors::entries(table, indices));
        const auto upper = __m128i(Sse2Vectors::entries(table, indices + 4));
        return Words(_mm256_inserti128_si256(_mm256_castsi128_si256(lower), upper, 1));
    }

    static void transpose(Words (&rows)[lanes])
    {
        __m256i pairs[lanes];
        for (std::size_t i = 0; i < lanes; i += 2) {
            pairs[i] = _mm256_unpacklo_epi32(__m256i(rows[i]), __m256i(rows[i + 1]));
            pairs[i + 1] = _mm256_unpackhi_epi32(__m256i(rows[i]), __m256i(rows[i + 1]));
        }
        __m256i fours[lanes]; // columns 0 and 4, 1 and 5 … of four rows
        for (std::size_t i = 0; i < lanes; i += 4) {
            fours[i] = _mm256_unpacklo_epi64(pairs[i], pairs[i + 2]);
            fours[i + 1] = _mm256_unpackhi_epi64(pairs[i], pairs[i + 2]);
            fours[i + 2] = _mm256_unpacklo_epi64(pairs[i + 1], pairs[i + 3]);
            fours[i + 3] = _mm256_unpackhi_epi64(pairs[i + 1], pairs[i + 3]);
        }
        for (std::size_t i = 0; i < lanes / 2; ++i) {
            rows[i] = Words(_mm256_permute2x128_si256(fours[i], fours[i + 4], 0x20));
            rows[i + 4] = Words(_mm256_permute2x128_si256(fours[i], fours[i + 4], 0x31));
        }
    }

    static Words reversed(Words words) { return permuted(words, Words { 7, 6, 5, 4, 3, 2, 1, 0 }); }

    /// Lane i becomes the lane that the i-th position tells.
    static Words permuted(Words words, Words positions)
    {
        return Words(_mm256_permutevar8x32_epi32(__m256i(words), __m256i(positions)));
    }

    /// The words at these positions of a stretch as long as `reach`.
    static Words picked(const void* from, Words positions)
    {
        return permuted(load(from), positions);
    }

private:
    static __m256i firstLanes(std::size_t count)
    {
        const __m256i positions = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
        return _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(count)), positions);
    }
};

/// Picks out of twice as many words.
struct Avx2Pairs : Avx2Vectors {
    static constexpr std::size_t reach = 2 * lanes;

    static Words picked(const void* from, Words positions)
    {
        const auto* const words = static_cast<const __m256i*>(from);
        const Words isUpper = Words(_mm256_slli_epi32(__m256i(positions), 28)); // its top bit tells
        return Words(_mm256_castps_si256(
            _mm256_blendv_ps(_mm256_castsi256_ps(__m256i(permuted(load(words), positions))),
                _mm256_castsi256_ps(__m256i(permuted(load(words + 1), positions))),
                _mm256_castsi256_ps(__m256i(isUpper)))));
    }
};

} // namespace

} // namespace kez
