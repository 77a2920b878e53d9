// SPDX-License-Identifier: MIT
#include "media/resample_loops.h"

#include <immintrin.h>

namespace kez {

namespace {

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

} // namespace

const ResampleKernels avx2ResampleKernels
    = { spreadColumns, mixSpreadRows, widenPixels, mixWideRows, average };

} // namespace kez
