// SPDX-License-Identifier: MIT
/// How fast a run goes.
#pragma once

#include <cstdint>

namespace kez {

/// Milliseconds to sleep before the next frame (none when not positive) at a rate of so many frames
/// a second: 100 − 1000 / rate, truncated; 100 at a rate of 0.
[[nodiscard]] constexpr int frameDelayMs(std::uint32_t rate)
{
    if (rate == 0)
        return 100;
    return 100 - static_cast<int>(1000 / rate);
}

} // namespace kez
