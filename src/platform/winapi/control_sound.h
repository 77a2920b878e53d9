// SPDX-License-Identifier: MIT
/// What tests may do to the sound half of this layer beyond the Win32 names: hear what is played.
/// Exists off Windows only.
#pragma once

#include <cstdint>
#include <vector>

namespace kez::winapi {

/// DirectSound objects created from now on play into memory, at this rate and in stereo; nothing
/// is played but by `renderSamples`. False when the system's mixer cannot do so.
bool useLoopback(int samplesPerSecond);

/// DirectSound objects created from now on find no driver.
void useNoSoundDevice();

void useSoundDevice(); ///< Objects created from now on play on the system's own output.

/// What the next `frames` frames sound like: left and right in turn, 16 bits each. Silence while no
/// DirectSound object lives that plays into memory.
[[nodiscard]] std::vector<std::int16_t> renderSamples(int frames);

[[nodiscard]] int liveSoundBuffers();

} // namespace kez::winapi
