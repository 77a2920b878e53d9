// SPDX-License-Identifier: MIT
#include "media/resample_loops.h"

#include <immintrin.h>

namespace kez {

namespace {

__m128i eightBytesEach(const void* left, const void* right)
{
    return _mm_unpacklo_epi64(_mm_loadl_epi64(static_cast<const __m128i*>(left)),
        _mm_loadl_epi64(static_cast<const __m128i*>(right)));
}

// Eight bytes at each place, six of which count: in pairs, as `order` puts them, without a gap.
__m128i sixPairs(const void* left, const void* right, __m128i order)
{
    return _mm_shuffle_epi8(eightBytesEach(left, right), order);
}

// Two columns at a time; the last one may be both.
void spread(
    std::uint16_t* to, const std::uint8_t* from, const SpreadColumn* columns, std::size_t count)
{
    const __m128i pixels = _mm_setr_epi8(0, 3, 1, 4, 2, 5, 8, 11, 9, 12, 10, 13, -1, -1, -1, -1);
    const __m128i shares = _mm_setr_epi8(0, 1, 2, 3, 4, 5, 8, 9, 10, 11, 12, 13, -1, -1, -1, -1);
    for (std::size_t x = 0; x < count; x += 2, to += 6) {
        const SpreadColumn& left = columns[x];
        const SpreadColumn& right = columns[x + 1 < count ? x + 1 : x];
        const __m128i values
            = _mm_maddubs_epi16(sixPairs(from + left.offset, from + right.offset, pixels),
                sixPairs(left.shares, right.shares, shares));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), values);
    }
}

// Two columns at a time; the last one may be both.
void spreadSingle(
    float* to, const std::uint8_t* from, const SingleColumn* columns, std::size_t count)
{
    const __m256i order = _mm256_setr_epi8(0, -1, 3, -1, 1, -1, 4, -1, 2, -1, 5, -1, -1, -1, -1, -1,
        8, -1, 11, -1, 9, -1, 12, -1, 10, -1, 13, -1, -1, -1, -1, -1);
    const __m256i lefts = _mm256_set1_epi32(1);
    const __m256i differences = _mm256_set1_epi32(0x0001FFFF); // 1 × right − 1 × left
    for (std::size_t x = 0; x < count; x += 2, to += 6) {
        const SingleColumn& first = columns[x];
        const SingleColumn& second = columns[x + 1 < count ? x + 1 : x];
        const __m128i bytes = eightBytesEach(from + first.offset, from + second.offset);
        const __m256i pixels = _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(bytes), order);
        const __m256 left = _mm256_cvtepi32_ps(_mm256_madd_epi16(pixels, lefts));
        const __m256 difference = _mm256_cvtepi32_ps(_mm256_madd_epi16(pixels, differences));
        const __m256 fractions
            = _mm256_setr_m128(_mm_set1_ps(first.fraction), _mm_set1_ps(second.fraction));
        const __m256 values = _mm256_add_ps(
            _mm256_add_ps(left, _mm256_set1_ps(doubt)), _mm256_mul_ps(difference, fractions));
        _mm_storeu_ps(to, _mm256_castps256_ps128(values));
        _mm_storeu_ps(to + 3, _mm256_extractf128_ps(values, 1));
    }
}

struct Avx2Level {
    typedef float Singles __attribute__((vector_size(32)));
    typedef std::int32_t Words __attribute__((vector_size(32)));

    static std::uint32_t negative(const Singles& values)
    {
        return static_cast<std::uint32_t>(_mm256_movemask_ps(__m256(values)));
    }

    static void storeBytes(std::uint8_t* to, const Words (&words)[4])
    {
        const __m256i low = _mm256_packs_epi32(__m256i(words[0]), __m256i(words[1]));
        const __m256i high = _mm256_packs_epi32(__m256i(words[2]), __m256i(words[3]));
        const __m256i bytes = _mm256_permutevar8x32_epi32(
            _mm256_packus_epi16(low, high), _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), bytes);
    }

    static void widen(const std::uint8_t* bytes, FourDoubles& to)
    {
        int all;
        std::memcpy(&all, bytes, sizeof all);
        to = FourDoubles(_mm256_cvtepi32_pd(_mm_cvtepu8_epi32(_mm_cvtsi32_si128(all))));
    }
};

// Four pixels that lie beside each other, in two pairs: blue, blue, green, green, red, red in 16
// bits each.
__m256i fourPixels(const std::uint8_t* at)
{
    const __m256i order = _mm256_setr_epi8(0, -1, 3, -1, 1, -1, 4, -1, 2, -1, 5, -1, -1, -1, -1, -1,
        6, -1, 9, -1, 7, -1, 10, -1, 8, -1, 11, -1, -1, -1, -1, -1);
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    return _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(bytes), order);
}

// The first two in the lower half, the others in the upper one.
__m256i fourWeights(const std::int16_t* at)
{
    const __m256i order = _mm256_setr_epi32(0, 0, 0, 0, 1, 1, 1, 1);
    std::int64_t all;
    std::memcpy(&all, at, sizeof all);
    const __m256d spread = _mm256_castsi256_pd(_mm256_set1_epi64x(all));
    return _mm256_castps_si256(_mm256_permutevar_ps(_mm256_castpd_ps(spread), order));
}

// The sums of an area's two pairs of pixels, together and divided: three bytes.
void storeQuotients(std::uint8_t* to, __m256i pairs, double inverse)
{
    const __m128i sums
        = _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
    // The half keeps what divides evenly from falling below.
    const __m256d halves = _mm256_add_pd(_mm256_cvtepi32_pd(sums), _mm256_set1_pd(0.5));
    const __m128i words = _mm256_cvttpd_epi32(_mm256_mul_pd(halves, _mm256_set1_pd(inverse)));
    const __m128i packed = _mm_packs_epi32(words, words);
    const int pixel = _mm_cvtsi128_si32(_mm_packus_epi16(packed, packed));
    std::memcpy(to, &pixel, 3);
}

void averageAny(std::uint8_t* to, const AveragedRow& row, std::size_t count)
{
    const WeighedRow* const rowsEnd = row.rows + row.rowCount;
    for (std::size_t x = 0; x < count; ++x) {
        __m256i pairs = _mm256_setzero_si256();
        for (const WeighedRow* each = row.rows; each != rowsEnd; ++each) {
            const std::uint8_t* from = each->pixels + row.offsets[x];
            const std::int16_t* weights = each->weights + x * row.areaPixels;
            for (std::size_t i = 0; i < row.areaPixels; i += 4, from += 12)
                pairs = _mm256_add_epi32(
                    pairs, _mm256_madd_epi16(fourPixels(from), fourWeights(weights + i)));
        }
        storeQuotients(to + 3 * x, pairs, row.inverses[x]);
    }
}

// Areas of up to four pixels and a known number of rows, without a loop.
template <std::size_t rowCount>
void averageSmall(std::uint8_t* to, const AveragedRow& row, std::size_t count)
{
    WeighedRow rows[rowCount];
    for (std::size_t j = 0; j < rowCount; ++j)
        rows[j] = row.rows[j];
    for (std::size_t x = 0; x < count; ++x) {
        __m256i pairs = _mm256_setzero_si256();
        for (std::size_t j = 0; j < rowCount; ++j)
            pairs = _mm256_add_epi32(pairs,
                _mm256_madd_epi16(fourPixels(rows[j].pixels + row.offsets[x]),
                    fourWeights(rows[j].weights + x * 4)));
        storeQuotients(to + 3 * x, pairs, row.inverses[x]);
    }
}

void average(std::uint8_t* to, const AveragedRow& row, std::size_t count)
{
    if (row.areaPixels == 4 && row.rowCount == 2)
        averageSmall<2>(to, row, count);
    else if (row.areaPixels == 4 && row.rowCount == 3)
        averageSmall<3>(to, row, count);
    else
        averageAny(to, row, count);
}

// Two areas of halving in each half of a vector. Their bytes begin twelve apart and overlap.
__m256i twiceTwoAreas(const std::uint8_t* at)
{
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + 12));
    return _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
}

typedef std::uint16_t Halves __attribute__((vector_size(32)));

// The left and the middle pixel of each area, added up.
Halves pairSums(__m256i areas)
{
    const __m256i pairs = _mm256_broadcastsi128_si256(
        _mm_setr_epi8(0, 3, 1, 4, 2, 5, 6, 9, 7, 10, 8, 11, -1, -1, -1, -1));
    return Halves(_mm256_maddubs_epi16(_mm256_shuffle_epi8(areas, pairs), _mm256_set1_epi8(1)));
}

// The right pixel of each area.
Halves rightPixels(__m256i areas)
{
    const __m256i thirds = _mm256_broadcastsi128_si256(
        _mm_setr_epi8(6, -1, 7, -1, 8, -1, 12, -1, 13, -1, 14, -1, -1, -1, -1, -1));
    return Halves(_mm256_shuffle_epi8(areas, thirds));
}

void halveFour(std::uint8_t* to, const std::uint8_t* from, std::size_t pitch)
{
    const __m256i upper = twiceTwoAreas(from);
    const __m256i middle = twiceTwoAreas(from + pitch);
    const Halves near = pairSums(upper) + pairSums(middle);
    const Halves far
        = rightPixels(upper) + rightPixels(middle) + pairSums(twiceTwoAreas(from + 2 * pitch));
    const __m256i quarter = __m256i(quarterOfHalving(near, far));
    const __m256i words = _mm256_srli_epi16(
        _mm256_mulhi_epu16(quarter, _mm256_set1_epi16(halvingInverse)), halvingInverseBits);
    const __m256i packed = _mm256_packus_epi16(words, words);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), _mm256_castsi256_si128(packed));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to + 6), _mm256_extracti128_si256(packed, 1));
}

void halve(std::uint8_t* to, const std::uint8_t* from, std::size_t pitch, std::size_t count)
{
    std::size_t x = 0;
    for (; x + 4 <= count; x += 4)
        halveFour(to + 3 * x, from + 6 * x, pitch);
    for (; x < count; ++x)
        halveOne(to + 3 * x, from + 6 * x, pitch);
}

// Sixteen bytes of two rows, in pairs.
__m256i bytePairs(const std::uint8_t* upper, const std::uint8_t* lower)
{
    const __m128i up = _mm_loadu_si128(reinterpret_cast<const __m128i*>(upper));
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(lower));
    return _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_unpacklo_epi8(up, low)), _mm_unpackhi_epi8(up, low), 1);
}

// Of the values of a pixel and of the one right of it: both new bytes in 16 bits.
__m256i doubledValues(__m256i left, __m256i right)
{
    const __m256i both = _mm256_add_epi16(left, right);
    const __m256i first = _mm256_add_epi16(both, _mm256_add_epi16(left, left));
    const __m256i second = _mm256_add_epi16(both, _mm256_add_epi16(right, right));
    return _mm256_or_si256(_mm256_srli_epi16(first, 4),
        _mm256_andnot_si256(_mm256_set1_epi16(0xFF), _mm256_slli_epi16(second, 4)));
}

void doubleFour(std::uint8_t* to, __m256i values)
{
    const __m256i next
        = _mm256_alignr_epi8(_mm256_permute2x128_si256(values, values, 0x81), values, 6);
    const __m256i twoEach = _mm256_permutevar8x32_epi32(
        doubledValues(values, next), _mm256_setr_epi32(0, 1, 2, 2, 3, 4, 5, 5));
    const __m256i pixels = _mm256_shuffle_epi8(twoEach,
        _mm256_broadcastsi128_si256(
            _mm_setr_epi8(0, 2, 4, 1, 3, 5, 6, 8, 10, 7, 9, 11, -1, -1, -1, -1)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm256_castsi256_si128(pixels));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 12), _mm256_extracti128_si256(pixels, 1));
}

void doubleRow(std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower,
    unsigned lowerQuarters, std::size_t count)
{
    const __m256i shares
        = _mm256_set1_epi16(static_cast<short>((4 - lowerQuarters) | lowerQuarters << 8));
    const auto step = [&](std::uint8_t* pixels, const std::uint8_t* up, const std::uint8_t* low) {
        doubleFour(pixels, _mm256_maddubs_epi16(bytePairs(up, low), shares));
    };
    doubleInSteps<4>(step, to, upper, lower, lowerQuarters, count);
}

} // namespace

const ResampleKernels avx2ResampleKernels = { spread, mixSpreadRows, spreadSingle,
    mixSingleRows<Avx2Level>, mixWideRows<Avx2Level>, average, halve, doubleRow };

} // namespace kez
