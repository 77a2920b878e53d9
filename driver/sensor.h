// SPDX-License-Identifier: MIT
/// The sensor: what it makes of light, and how a picture in colour comes back out of it.
///
/// The raw form has 124 lines of 164 bytes, top line first. A byte is one point of the sensor, 0
/// dark to 255 bright, which sees one colour; the colours repeat in squares of four:
///
///     even lines   red   green   red   green …
///     odd lines    green blue    green blue  …
///
/// The picture is the inner 160 × 120 points. The two outermost points on each side repeat the
/// picture's edge, so that every point of the picture has all the neighbours its colours need.
#pragma once

#include "picture.h"

#include <span>

namespace kez::driver {

constexpr int rawLines = 124;
constexpr int rawLineBytes = 164;
static_assert(rawLines * rawLineBytes == MVI_RAW_BYTES);

[[nodiscard]] RawPicture expose(const Picture& picture);

[[nodiscard]] RawPicture unexposed(); ///< What is in a place that was never used: even, dark grey.

/// The picture that hosts get: blue, green, red; bottom row first.
void colourize(std::span<const std::uint8_t, MVI_RAW_BYTES> raw,
    std::span<std::uint8_t, MVI_PICTURE_BYTES> picture);

/// Doubles such a picture. Each new pixel is 9/16 of the one it lies in, 3/16 of each of its two
/// nearest neighbours and 1/16 of the one between those, rounded to nearest.
void enlarge(std::span<const std::uint8_t, MVI_PICTURE_BYTES> picture,
    std::span<std::uint8_t, MVI_ENLARGED_BYTES> enlarged);

} // namespace kez::driver
