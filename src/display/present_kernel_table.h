// SPDX-License-Identifier: MIT
/// The conversions of canvas pixels to a display's as each vector level has them; the plain rules
/// are in present_kernels_plain.cpp. Without inline functions, since sources compiled for one level
/// include this.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kez {

/// The channels of a canvas pixel on their ways into a 16-bit one: shifted, then masked. Red and
/// green never move to the left; one of blue's two shifts is 0.
struct ChannelShifts {
    int redRight;
    int greenRight;
    int blueRight;
    int blueLeft;
    std::uint32_t redMask;
    std::uint32_t greenMask;
    std::uint32_t blueMask;
};

struct PresentKernels {
    void (*to565)(const std::uint32_t* from, std::uint16_t* to, std::size_t count);
    void (*to555)(const std::uint32_t* from, std::uint16_t* to, std::size_t count);
    void (*toOther16)(const std::uint32_t* from, std::uint16_t* to, std::size_t count,
        const ChannelShifts& shifts);
    void (*to24)(const std::uint32_t* from, std::uint8_t* to, std::size_t count);
};

extern const PresentKernels plainPresentKernels;
extern const PresentKernels sse2PresentKernels;
extern const PresentKernels avx2PresentKernels;
extern const PresentKernels avx512PresentKernels;

} // namespace kez
