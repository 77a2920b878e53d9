// SPDX-License-Identifier: MIT
#include "media/resample_loops.h"

namespace kez {

namespace {

// Two pixels that lie beside each other, as blue, blue, green, green, red, red in 16 bits each.
__m128i twoPixels(const std::uint8_t* at)
{
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(at));
    const __m128i pairs = _mm_unpacklo_epi8(bytes, _mm_srli_epi64(bytes, 24));
    return _mm_unpacklo_epi8(pairs, _mm_setzero_si128());
}

void spread(
    std::uint16_t* to, const std::uint8_t* from, const SpreadColumn* columns, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x, to += 3) {
        const __m128i shares = _mm_unpacklo_epi8(
            _mm_loadl_epi64(reinterpret_cast<const __m128i*>(columns[x].shares)),
            _mm_setzero_si128());
        const __m128i sums = _mm_madd_epi16(twoPixels(from + columns[x].offset), shares);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(to), _mm_packs_epi32(sums, sums));
    }
}

void spreadSingle(
    float* to, const std::uint8_t* from, const SingleColumn* columns, std::size_t count)
{
    const __m128i lefts = _mm_set1_epi32(1);
    const __m128i differences = _mm_set1_epi32(0x0001FFFF); // 1 × right − 1 × left
    for (std::size_t x = 0; x < count; ++x, to += 3) {
        const __m128i pixels = twoPixels(from + columns[x].offset);
        const __m128 left = _mm_cvtepi32_ps(_mm_madd_epi16(pixels, lefts));
        const __m128 difference = _mm_cvtepi32_ps(_mm_madd_epi16(pixels, differences));
        const __m128 way = _mm_mul_ps(difference, _mm_set1_ps(columns[x].fraction));
        _mm_storeu_ps(to, _mm_add_ps(_mm_add_ps(left, _mm_set1_ps(doubt)), way));
    }
}

struct Sse2Level {
    typedef float Singles __attribute__((vector_size(16)));
    typedef std::int32_t Words __attribute__((vector_size(16)));

    static std::uint32_t negative(Singles values)
    {
        return static_cast<std::uint32_t>(_mm_movemask_ps(__m128(values)));
    }

    static void storeBytes(std::uint8_t* to, const Words (&words)[8])
    {
        for (std::size_t i = 0; i < 8; i += 4, to += 16) {
            const __m128i low = _mm_packs_epi32(__m128i(words[i]), __m128i(words[i + 1]));
            const __m128i high = _mm_packs_epi32(__m128i(words[i + 2]), __m128i(words[i + 3]));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(low, high));
        }
    }

    static void widen(const std::uint8_t* bytes, FourDoubles& to)
    {
        int all;
        std::memcpy(&all, bytes, sizeof all);
        const __m128i zero = _mm_setzero_si128();
        const __m128i words
            = _mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(all), zero), zero);
        const __m128d low = _mm_cvtepi32_pd(words);
        const __m128d high = _mm_cvtepi32_pd(_mm_unpackhi_epi64(words, words));
        to = FourDoubles { low[0], low[1], high[0], high[1] };
    }
};

__m128i twoWeights(const std::int16_t* at)
{
    std::int32_t both;
    std::memcpy(&both, at, sizeof both);
    return _mm_set1_epi32(both);
}

// The half keeps what divides evenly from falling below.
__m128i divided(__m128i sums, double inverse)
{
    const __m128d halves = _mm_add_pd(_mm_cvtepi32_pd(sums), _mm_set1_pd(0.5));
    return _mm_cvttpd_epi32(_mm_mul_pd(halves, _mm_set1_pd(inverse)));
}

void average(std::uint8_t* to, const AveragedRow& row, std::size_t count)
{
    const WeighedRow* const rowsEnd = row.rows + row.rowCount;
    for (std::size_t x = 0; x < count; ++x) {
        __m128i sums = _mm_setzero_si128();
        for (const WeighedRow* each = row.rows; each != rowsEnd; ++each) {
            const std::uint8_t* from = each->pixels + row.offsets[x];
            const std::int16_t* weights = each->weights + x * row.areaPixels;
            for (std::size_t i = 0; i < row.areaPixels; i += 2, from += 6)
                sums
                    = _mm_add_epi32(sums, _mm_madd_epi16(twoPixels(from), twoWeights(weights + i)));
        }
        const __m128i words = _mm_unpacklo_epi64(divided(sums, row.inverses[x]),
            divided(_mm_unpackhi_epi64(sums, sums), row.inverses[x]));
        const __m128i halves = _mm_packs_epi32(words, words);
        const int pixel = _mm_cvtsi128_si32(_mm_packus_epi16(halves, halves));
        std::memcpy(to + 3 * x, &pixel, 3);
    }
}

void storeWord(std::uint8_t* to, __m128i bytes)
{
    const int word = _mm_cvtsi128_si32(bytes);
    std::memcpy(to, &word, sizeof word);
}

// Every second pixel, two in all, in 16 bits.
__m128i secondPixels(const std::uint8_t* at)
{
    int left, right;
    std::memcpy(&left, at, sizeof left);
    std::memcpy(&right, at + 6, sizeof right);
    const __m128i both = _mm_unpacklo_epi32(_mm_cvtsi32_si128(left), _mm_cvtsi32_si128(right));
    return _mm_unpacklo_epi8(both, _mm_setzero_si128());
}

void halveTwo(std::uint8_t* to, const std::uint8_t* from, std::size_t pitch)
{
    typedef std::uint16_t Halves __attribute__((vector_size(16)));
    const auto at = [&](std::size_t row, std::size_t byte) {
        return Halves(secondPixels(from + row * pitch + byte));
    };
    const Halves near = at(0, 0) + at(0, 3) + at(1, 0) + at(1, 3);
    const Halves far = at(0, 6) + at(1, 6) + at(2, 0) + at(2, 3);
    const __m128i quarter = __m128i(quarterOfHalving(near, far));
    const __m128i words = _mm_srli_epi16(
        _mm_mulhi_epu16(quarter, _mm_set1_epi16(halvingInverse)), halvingInverseBits);
    const __m128i packed = _mm_packus_epi16(words, words);
    storeWord(to, packed);
    storeWord(to + 3, _mm_srli_si128(packed, 4));
}

void halve(std::uint8_t* to, const std::uint8_t* from, std::size_t pitch, std::size_t count)
{
    std::size_t x = 0;
    for (; x + 2 <= count; x += 2)
        halveTwo(to + 3 * x, from + 6 * x, pitch);
    if (x < count)
        halveOne(to + 3 * x, from + 6 * x, pitch);
}

// Two rows, mixed by quarters.
struct RowMix {
    __m128i operator()(const std::uint8_t* upper, const std::uint8_t* lower) const
    {
        return _mm_add_epi16(_mm_mullo_epi16(eightBytes(upper), upperShares),
            _mm_mullo_epi16(eightBytes(lower), lowerShares));
    }

    static __m128i eightBytes(const std::uint8_t* at)
    {
        return _mm_unpacklo_epi8(
            _mm_loadl_epi64(reinterpret_cast<const __m128i*>(at)), _mm_setzero_si128());
    }

    __m128i upperShares;
    __m128i lowerShares;
};

void doubleRow(std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower,
    unsigned lowerQuarters, std::size_t count)
{
    const auto quarters = static_cast<short>(lowerQuarters);
    const RowMix mix { _mm_set1_epi16(static_cast<short>(4 - quarters)), _mm_set1_epi16(quarters) };
    const auto doubleTwo = [&](std::uint8_t* pixels, const std::uint8_t* up,
                               const std::uint8_t* low) {
        const __m128i left = mix(up, low);
        const __m128i right = mix(up + 3, low + 3);
        const __m128i both = _mm_add_epi16(left, right);
        const __m128i first = _mm_srli_epi16(_mm_add_epi16(both, _mm_add_epi16(left, left)), 4);
        const __m128i second = _mm_srli_epi16(_mm_add_epi16(both, _mm_add_epi16(right, right)), 4);
        const __m128i packed = _mm_packus_epi16(first, second);
        storeWord(pixels, packed);
        storeWord(pixels + 3, _mm_srli_si128(packed, 8));
        storeWord(pixels + 6, _mm_srli_si128(packed, 3));
        storeWord(pixels + 9, _mm_srli_si128(packed, 11));
    };
    doubleInSteps<2>(doubleTwo, to, upper, lower, lowerQuarters, count);
}

} // namespace

const ResampleKernels sse2ResampleKernels = { spread, mixSpreadRows, spreadSingle,
    mixSingleRows<Sse2Level>, mixWideRows<Sse2Level>, average, halve, doubleRow };

} // namespace kez
