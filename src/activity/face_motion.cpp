// SPDX-License-Identifier: MIT
#include "activity/face_motion.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace kez {

namespace {

// Sync values are 0 for silence and 255 for the loudest; a voice is between words below the first,
// and on open vowels above the second.
constexpr std::uint8_t ajarFrom = 64;
constexpr std::uint8_t openFrom = 200;

constexpr std::uint32_t syllableMs = 110;
constexpr Mouth syllables[] = { Mouth::Ajar, Mouth::Open, Mouth::Ajar, Mouth::Shut, Mouth::Open,
    Mouth::Ajar, Mouth::Open, Mouth::Ajar, Mouth::Shut };

// Moments at which the eyes shut, in a round that is long enough not to be noticed; once twice in a
// row, as people do.
constexpr std::uint32_t roundMs = 21'000;
constexpr std::uint32_t shutMs = 150;
constexpr std::uint32_t moments[] = { 3'600, 7'900, 8'250, 12'700, 17'300 };

} // namespace

Mouth mouthFor(std::uint8_t loudness)
{
    if (loudness < ajarFrom)
        return Mouth::Shut;
    return loudness < openFrom ? Mouth::Ajar : Mouth::Open;
}

Mouth murmur(std::uint32_t milliseconds)
{
    return syllables[milliseconds / syllableMs % std::size(syllables)];
}

bool blinks(std::uint32_t milliseconds)
{
    const std::uint32_t at = milliseconds % roundMs;
    return std::ranges::any_of(
        moments, [at](std::uint32_t from) { return at >= from && at < from + shutMs; });
}

StagePoint glance(StagePoint from, StagePoint at, int reach)
{
    const double dx = at.x - from.x;
    const double dy = at.y - from.y;
    const double distance = std::max(std::hypot(dx, dy), 1.0);
    const double step = std::min<double>(reach, distance) / distance;
    return { static_cast<int>(std::lround(dx * step)), static_cast<int>(std::lround(dy * step)) };
}

} // namespace kez
