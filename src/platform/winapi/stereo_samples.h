// SPDX-License-Identifier: MIT
/// Sampled sound of any layout that a DirectSound buffer may have, as the mixer takes it: both
/// sides, 16 bits, the buffer's pan applied. DirectSound's pan only makes one side quieter.
#pragma once

#include "dsound.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kez::winapi {

struct SideGains {
    float left = 1;
    float right = 1;
};

[[nodiscard]] float gainOf(LONG hundredthsOfDecibel); ///< −10,000 and below is silence.
[[nodiscard]] SideGains gainsOf(LONG pan); ///< −10,000 to 10,000.

/// Whole frames of mono or stereo, 8 (unsigned) or 16 bits, as left and right in turn.
[[nodiscard]] std::vector<std::int16_t> stereoSamples(
    std::span<const BYTE> frames, const WAVEFORMATEX& format, SideGains gains);

} // namespace kez::winapi
