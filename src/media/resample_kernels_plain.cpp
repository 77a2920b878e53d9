// SPDX-License-Identifier: MIT
#include "media/resample_kernels.h"

namespace kez {

namespace {

void spread(
    std::uint16_t* to, const std::uint8_t* from, const SpreadColumn* columns, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x) {
        const std::uint8_t* const left = from + columns[x].offset;
        for (std::size_t byte = 0; byte < 3; ++byte)
            *to++ = static_cast<std::uint16_t>(
                left[byte] * columns[x].shares[0] + left[byte + 3] * columns[x].shares[1]);
    }
}

void mixRows(std::uint8_t* to, const std::uint16_t* upper, const std::uint16_t* lower,
    unsigned lowerShare, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = static_cast<std::uint8_t>(
            (upper[i] * (16 - lowerShare) + lower[i] * lowerShare) >> 8);
}

// The rule is one of doubles: every value is doubtful.
void spreadSingle(float*, const std::uint8_t*, const SingleColumn*, std::size_t) { }

void mixSingle(
    std::uint8_t*, const float*, const float*, float, std::size_t groups, std::uint32_t* doubtful)
{
    for (std::size_t group = 0; group < groups; ++group)
        doubtful[group] = 0xFFFFFFFF;
}

void mixWide(std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower,
    const WideColumn* columns, double lowerShare, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x) {
        const WideColumn& column = columns[x];
        const std::uint8_t* const up = upper + column.offset;
        const std::uint8_t* const low = lower + column.offset;
        const double w00 = column.leftShare * (1 - lowerShare);
        const double w10 = column.rightShare * (1 - lowerShare);
        const double w11 = column.rightShare * lowerShare;
        const double w01 = column.leftShare * lowerShare;
        for (std::size_t byte = 0; byte < 3; ++byte)
            *to++ = static_cast<std::uint8_t>(
                up[byte] * w00 + up[byte + 3] * w10 + low[byte + 3] * w11 + low[byte] * w01);
    }
}

void average(std::uint8_t* to, const AveragedRow& row, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x)
        for (std::size_t byte = 0; byte < 3; ++byte) {
            std::int32_t sum = 0;
            for (std::size_t j = 0; j < row.rowCount; ++j)
                for (std::size_t i = 0; i < row.areaPixels; ++i)
                    sum += row.rows[j]
                               .pixels[row.offsets[x] + static_cast<std::ptrdiff_t>(3 * i + byte)]
                        * row.rows[j].weights[x * row.areaPixels + i];
            // The half keeps what divides evenly from falling below.
            *to++ = static_cast<std::uint8_t>((sum + 0.5) * row.inverses[x]);
        }
}

void halve(std::uint8_t* to, const std::uint8_t* from, std::size_t pitch, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x, from += 3)
        for (std::size_t byte = 0; byte < 3; ++byte, ++from) {
            const int near = from[0] + from[3] + from[pitch] + from[pitch + 3];
            const int far = from[6] + from[pitch + 6] + from[2 * pitch] + from[2 * pitch + 3];
            *to++ = static_cast<std::uint8_t>((141 * near + 100 * far) / 964);
        }
}

void doubleRow(std::uint8_t* to, const std::uint8_t* upper, const std::uint8_t* lower,
    unsigned lowerQuarters, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x, to += 3)
        for (std::size_t byte = 0; byte < 3; ++byte, ++to, ++upper, ++lower) {
            const unsigned left = upper[0] * (4 - lowerQuarters) + lower[0] * lowerQuarters;
            const unsigned right = upper[3] * (4 - lowerQuarters) + lower[3] * lowerQuarters;
            to[0] = static_cast<std::uint8_t>((3 * left + right) / 16);
            to[3] = static_cast<std::uint8_t>((left + 3 * right) / 16);
        }
}

} // namespace

const ResampleKernels plainResampleKernels
    = { spread, mixRows, spreadSingle, mixSingle, mixWide, average, halve, doubleRow };

} // namespace kez
