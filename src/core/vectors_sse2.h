// SPDX-License-Identifier: MIT
/// Vectors of pixels for the SSE2 level. Arithmetic is written with the compiler's own vector
/// operators, in templates over a level's vectors, defined for each in a header like this one; what
/// operators cannot say is here, by name.
///
/// Only for sources that are compiled as a whole for their level. What such a source defines stays
/// in its own unnamed namespace, and it includes nothing that has inline functions: the linker
/// could otherwise choose this level's copy of one of those for a program that runs elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <emmintrin.h>

namespace kez {

namespace {

/// How far ahead of their use the two sides of a long span are fetched, which takes a seventh off
/// the time of what lies beyond the second-level cache: the processor's own foresight ends with
/// every page. Less is too late.
constexpr std::size_t bytesAhead = 1024;

inline void fetchAhead(const void* address)
{
    __builtin_prefetch(static_cast<const std::uint8_t*>(address) + bytesAhead);
}

struct Sse2Vectors {
    static constexpr std::size_t lanes = 4;
    typedef std::uint32_t Words __attribute__((vector_size(16)));
    typedef std::uint16_t Halves __attribute__((vector_size(16)));
    using Mask = Words; ///< A truth for each lane: all its bits, or none.

    static Words load(const void* from)
    {
        return Words(_mm_loadu_si128(static_cast<const __m128i*>(from)));
    }

    static void store(void* to, Words words)
    {
        _mm_storeu_si128(static_cast<__m128i*>(to), __m128i(words));
    }

    /// Less than a whole vector; the lanes behind are 0.
    static Words loadPart(const void* from, std::size_t count)
    {
        const auto* const bytes = static_cast<const std::uint8_t*>(from);
        const __m128i pair
            = count < 2 ? _mm_setzero_si128() : _mm_loadl_epi64(static_cast<const __m128i*>(from));
        if (count % 2 == 0)
            return Words(pair);
        int last = 0;
        std::memcpy(&last, bytes + 4 * (count - 1), sizeof last);
        const __m128i single = _mm_cvtsi32_si128(last);
        return Words(count == 1 ? single : _mm_unpacklo_epi64(pair, single));
    }

    static void storePart(void* to, Words words, std::size_t count)
    {
        auto* const bytes = static_cast<std::uint8_t*>(to);
        __m128i rest = __m128i(words);
        if (count >= 2) {
            _mm_storel_epi64(static_cast<__m128i*>(to), rest);
            rest = _mm_srli_si128(rest, 8);
        }
        const int last = _mm_cvtsi128_si32(rest);
        if (count % 2 != 0)
            std::memcpy(bytes + 4 * (count - 1), &last, sizeof last);
    }

    static Mask equal(Words words, std::uint32_t value) { return Mask(words == value); }

    static bool all(Mask mask) { return _mm_movemask_epi8(__m128i(mask)) == 0xFFFF; }

    static Words select(Mask mask, Words chosen, Words other)
    {
        return (mask & chosen) | (~mask & other);
    }

    /// Stores the lanes outside `kept`; the others are `stored` already.
    static void storeExcept(void* to, Words words, Mask kept, Words stored)
    {
        store(to, select(kept, stored, words));
    }

    /// The lower half of each lane in both of its halves; the upper ones must be 0.
    static Words twice(Words words) { return words | words << 16; }

    /// A byte to each lane.
    static Words widen(const std::uint8_t* bytes)
    {
        int four = 0;
        std::memcpy(&four, bytes, sizeof four);
        const __m128i zero = _mm_setzero_si128();
        const __m128i halves = _mm_unpacklo_epi8(_mm_cvtsi32_si128(four), zero);
        return Words(_mm_unpacklo_epi16(halves, zero));
    }

    /// In each lane, the sum of the products of its halves.
    static Words pairProducts(Words first, Words second)
    {
        return Words(_mm_madd_epi16(__m128i(first), __m128i(second)));
    }

    /// The lower halves of all lanes, `first`'s first.
    static Words lowerHalves(Words first, Words second)
    {
        const auto extended
            = [](Words words) { return _mm_srai_epi32(_mm_slli_epi32(__m128i(words), 16), 16); };
        return Words(_mm_packs_epi32(extended(first), extended(second)));
    }

    /// The lower three bytes of all lanes, one behind the other; anything behind them.
    static Words lowerThreeBytes(Words words)
    {
        const __m128i all = __m128i(words);
        const __m128i first = _mm_and_si128(all, _mm_set1_epi64x(0xFFFFFF));
        const __m128i second
            = _mm_and_si128(_mm_srli_epi64(all, 8), _mm_set1_epi64x(0xFFFFFF000000));
        const __m128i sixes = _mm_or_si128(first, second); // six bytes at the start of each half
        const __m128i upper = _mm_srli_si128(_mm_unpackhi_epi64(_mm_setzero_si128(), sixes), 2);
        return Words(_mm_or_si128(_mm_move_epi64(sixes), upper));
    }

    /// The words at four places.
    static Words joined(
        const void* first, const void* second, const void* third, const void* fourth)
    {
        const auto word = [](const void* from) {
            int value = 0;
            std::memcpy(&value, from, sizeof value);
            return _mm_cvtsi32_si128(value);
        };
        return Words(_mm_unpacklo_epi64(_mm_unpacklo_epi32(word(first), word(second)),
            _mm_unpacklo_epi32(word(third), word(fourth))));
    }

    /// Entries of four bytes, one for each of the indices of all lanes.
    static Words entries(const std::uint8_t* table, const std::uint8_t* indices)
    {
        const auto at = [&](int i) { return table + std::size_t { 4 } * indices[i]; };
        return joined(at(0), at(1), at(2), at(3));
    }

    /// Rows and columns of a square exchanged.
    static void transpose(Words (&rows)[lanes])
    {
        const auto low
            = [](Words a, Words b) { return _mm_unpacklo_epi32(__m128i(a), __m128i(b)); };
        const auto high
            = [](Words a, Words b) { return _mm_unpackhi_epi32(__m128i(a), __m128i(b)); };
        const __m128i left[] = { low(rows[0], rows[1]), low(rows[2], rows[3]) };
        const __m128i right[] = { high(rows[0], rows[1]), high(rows[2], rows[3]) };
        rows[0] = Words(_mm_unpacklo_epi64(left[0], left[1]));
        rows[1] = Words(_mm_unpackhi_epi64(left[0], left[1]));
        rows[2] = Words(_mm_unpacklo_epi64(right[0], right[1]));
        rows[3] = Words(_mm_unpackhi_epi64(right[0], right[1]));
    }

    static Words reversed(Words words)
    {
        return Words(_mm_shuffle_epi32(__m128i(words), _MM_SHUFFLE(0, 1, 2, 3)));
    }
};

} // namespace

} // namespace kez
