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

} // namespace

const TargaKernels avx2TargaKernels = { findPackets<Avx2Level> };

} // namespace kez
