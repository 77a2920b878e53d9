// SPDX-License-Identifier: MIT
/// The frame clock. The timer is read once a frame; everything in that frame uses the one value.
#pragma once

#include <cstdint>

namespace kez {

inline std::uint32_t frameTime = 0; ///< Milliseconds (`timeGetTime`) at the start of the frame.

/// 1000 over the milliseconds between the last two frames, truncated. Stays as it was when both
/// fell into the same millisecond.
inline std::uint32_t framesPerSecond = 0;

/// Starts a frame: reads the timer into `frameTime` and updates `framesPerSecond`.
void takeFrameTime();

} // namespace kez
