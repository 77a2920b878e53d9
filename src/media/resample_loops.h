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

void mixSpreadRows(std::uint8_t* to, const std::uint16_t* upper, const std::uint16_t* lower,
    unsigned lowerShare, std::size_t count)
{
    const auto low = static_cast<std::uint16_t>(lowerShare);
    const auto up = static_cast<std::uint16_t>(16 - lowerShare);
    for (std::size_t i = 0; i < count; ++i) // no sum exceeds 255 × 256
        to[i] = static_cast<std::uint8_t>(
            static_cast<std::uint16_t>(upper[i] * up + lower[i] * low) >> 8);
}

// A quarter of 141 near + 100 far, which 16 bits hold where both are sums of four bytes.
template <class Halves>
Halves quarterOfHalving(Halves near, Halves far)
{
    return 35 * near + 25 * far + (near >> 2);
}

// 2²³ by 241, rounded up; the division of such a quarter by a quarter of 964 is exact with it.
constexpr short halvingInverse = static_cast<short>(34808);
constexpr int halvingInverseBits = 23 - 16;

void halveOne(std::uint8_t* to, const std::uint8_t* from, std::size_t pitch)
{
    for (std::size_t byte = 0; byte < 3; ++byte, ++from) {
        const int near = from[0] + from[3] + from[pitch] + from[pitch + 3];
        const int far = from[6] + from[pitch + 6] + from[2 * pitch] + from[2 * pitch + 3];
        to[byte] = static_cast<std::uint8_t>((141 * near + 100 * far) / 964);
    }
}

// In steps, of which the last may repeat some of the one before.
template <std::size_t stepPixels>
void doubleInSteps(auto&& step, std::uint8_t* to, const std::uint8_t* upper,
    const std::uint8_t* lower, unsigned lowerQuarters, std::size_t count)
{
    if (count < stepPixels) {
        plainResampleKernels.doubleRow(to, upper, lower, lowerQuarters, count);
        return;
    }
    const auto at = [&](std::size_t x) { step(to + 6 * x, upper + 3 * x, lower + 3 * x); };
    for (std::size_t x = 0; x + stepPixels < count; x += stepPixels)
        at(x);
    at(count - stepPixels);
}

// No value in single precision is off by more than eight roundings at 255, 8 / 2¹⁷ or 0.00006.
constexpr float doubt = 0.0001f;

// The values are `doubt` above what they stand for. A level stores the bytes of a group and tells
// the negative ones of a vector.
template <class Level>
void mixSingleRows(std::uint8_t* to, const float* upper, const float* lower, float lowerShare,
    std::size_t groups, std::uint32_t* doubtful)
{
    typedef typename Level::Singles Singles;
    constexpr std::size_t lanes = sizeof(Singles) / sizeof(float);
    constexpr std::size_t groupValues = 32;
    for (std::size_t group = 0; group < groups; ++group, to += groupValues) {
        typename Level::Words words[groupValues / lanes];
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < groupValues; i += lanes, upper += lanes, lower += lanes) {
            Singles above, below;
            std::memcpy(&above, upper, sizeof above);
            std::memcpy(&below, lower, sizeof below);
            const Singles values = above + (below - above) * lowerShare;
            auto& whole = words[i / lanes];
            whole = __builtin_convertvector(values, typename Level::Words);
            const Singles rest = values - __builtin_convertvector(whole, Singles);
            bits |= Level::negative(rest - 2 * doubt) << i;
        }
        Level::storeBytes(to, words);
        doubtful[group] = bits;
    }
}

typedef double FourDoubles __attribute__((vector_size(32)));

// `Level::widen` makes doubles of four bytes.
template <class Level>
void mixWideRows(std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower,
    const WideColumn* columns, double lowerShare, std::size_t count)
{
    const double upperShare = 1 - lowerShare;
    for (std::size_t x = 0; x < count; ++x) {
        const WideColumn& column = columns[x];
        FourDoubles upperLeft, upperRight, lowerLeft, lowerRight;
        Level::widen(upper + column.offset, upperLeft);
        Level::widen(upper + column.offset + 3, upperRight);
        Level::widen(lower + column.offset, lowerLeft);
        Level::widen(lower + column.offset + 3, lowerRight);
        const FourDoubles mixed = upperLeft * (column.leftShare * upperShare)
            + upperRight * (column.rightShare * upperShare)
            + lowerRight * (column.rightShare * lowerShare)
            + lowerLeft * (column.leftShare * lowerShare);
        typedef std::int32_t FourWords __attribute__((vector_size(16)));
        const auto words = reinterpret_cast<__m128i>(__builtin_convertvector(mixed, FourWords));
        const __m128i halves = _mm_packs_epi32(words, words);
        const int pixel = _mm_cvtsi128_si32(_mm_packus_epi16(halves, halves));
        std::memcpy(to + 3 * x, &pixel, 3);
    }
}

} // namespace

} // namespace kez
