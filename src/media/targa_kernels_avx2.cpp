// SPDX-License-Identifier: MIT
#include "media/targa_loops.h"

#include <immintrin.h>

namespace kez {

namespace {

struct Avx2Level {
    static std::uint64_t equalBytes(const std::uint8_t* first, const std::uint8_t* second)
    {
        return half(first, second) | half(first + 32, second + 32) << 32;
    }

private:
    static std::uint64_t half(const std::uint8_t* first, const std::uint8_t* second)
    {
        const __m256i bytes
            = _mm256_cmpeq_epi8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(first)),
                _mm256_loadu_si256(reinterpret_cast<const __m256i*>(second)));
        return static_cast<unsigned>(_mm256_movemask_epi8(bytes));
    }
};

// What is read and written of a packet at most, in whole steps.
constexpr std::ptrdiff_t widest = 512;

// 32 pixels of the colour at `pixel`, as often as a run needs them: most need no more.
void fillRun(std::uint8_t* out, const std::uint8_t* pixel, std::size_t bytes)
{
    const __m256i colour
        = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(pixel)));
    const __m256i first = _mm256_shuffle_epi8(colour,
        _mm256_setr_epi8(0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0,
            1, 2, 0, 1, 2, 0, 1));
    const __m256i second = _mm256_shuffle_epi8(colour,
        _mm256_setr_epi8(2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2,
            0, 1, 2, 0, 1, 2, 0));
    const __m256i third = _mm256_shuffle_epi8(colour,
        _mm256_setr_epi8(1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1,
            2, 0, 1, 2, 0, 1, 2));
    std::size_t done = 0;
    do {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done), first);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done + 32), second);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done + 64), third);
        done += 96;
    } while (done < bytes);
}

void copyLiteral(std::uint8_t* out, const std::uint8_t* pixels, std::size_t bytes)
{
    for (std::size_t done = 0; done < bytes; done += 32)
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + done),
            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels + done)));
}

void unpack(PacketUnpacking& unpacking)
{
    PacketUnpacking at = unpacking;
    while (at.inEnd - at.in >= widest && at.outEnd - at.out >= widest) {
        const unsigned control = *at.in;
        const unsigned count = (control & 0x7F) + 1;
        if (at.column + count > at.width)
            break;
        const std::size_t bytes = pixelBytes * count;
        if (control >= 0x80) {
            fillRun(at.out, at.in + 1, bytes);
            at.in += 1 + pixelBytes;
        } else {
            copyLiteral(at.out, at.in + 1, bytes);
            at.in += 1 + bytes;
        }
        at.out += bytes;
        at.column += count;
        if (at.column == at.width) {
            at.column = 0;
            ++at.row;
        }
    }
    unpacking = at;
}

} // namespace

const TargaKernels avx2TargaKernels = { findPackets<Avx2Level>, unpack };

} // namespace kez
