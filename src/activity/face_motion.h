// SPDX-License-Identifier: MIT
/// How the guide's face moves: plain rules of time and loudness, without chance and without memory,
/// so that the same moment always has the same face.
#pragma once

#include "display/cursor.h"

#include <cstdint>

namespace kez {

enum class Mouth { Shut, Ajar, Open }; ///< Shut: as it is drawn at rest.

[[nodiscard]] Mouth mouthFor(std::uint8_t loudness); ///< A value of a clip's sync track.

/// The mouth of a speech whose loudness is not known, so long after its beginning.
[[nodiscard]] Mouth murmur(std::uint32_t milliseconds);

/// How long the mouth moves for a clip that nobody can hear: the guide still says something.
constexpr std::uint32_t unheardSpeechMs = 2500;

/// Are the eyes shut, so long after the face came up?
[[nodiscard]] bool blinks(std::uint32_t milliseconds);

/// The way that eyes at `from` move to look at `at`: at most `reach` pixels, in any direction.
[[nodiscard]] StagePoint glance(StagePoint from, StagePoint at, int reach);

} // namespace kez
