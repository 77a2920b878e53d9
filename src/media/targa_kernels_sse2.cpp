// SPDX-License-Identifier: MIT
#include "media/targa_loops.h"

#include <emmintrin.h>

namespace kez {

namespace {

struct Sse2Level {
    static std::uint64_t equalBytes(const std::uint8_t* first, const std::uint8_t* second)
    {
        std::uint64_t equal = 0;
        for (int part = 0; part < 64; part += 16) {
            const __m128i bytes
                = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(first + part)),
                    _mm_loadu_si128(reinterpret_cast<const __m128i*>(second + part)));
            equal |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(bytes)))
                << part;
        }
        return equal;
    }
};

// Nothing at this level is quicker than what goes on from here.
void unpack(PacketUnpacking&) { }

} // namespace

const TargaKernels sse2TargaKernels = { findPackets<Sse2Level>, unpack };

} // namespace kez
