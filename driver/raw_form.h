// SPDX-License-Identifier: MIT
/// The raw form: what lies in a place of the camera and goes over the line, and how a picture in
/// colour comes back out of it.
///
/// 20,336 bytes, sent as 124 lines of 164. At full colour resolution a picture has nearly three
/// times as many, so it is kept as a JPEG stream without halved colours, at the best quality that
/// fits: about one byte a pixel, which no eye tells from the original.
///
///     offset 0   the stream's length in bytes, four bytes, little-endian
///     offset 4   the stream: 160 × 120 pixels, three components
///     then       zeros up to the end
///
/// A stream of 15,000 bytes thus begins 98 3A 00 00 FF D8 FF …
#pragma once

#include "picture.h"

#include <span>

namespace kez::driver {

constexpr int rawLines = 124;
constexpr int rawLineBytes = 164;
static_assert(rawLines * rawLineBytes == MVI_RAW_BYTES);

[[nodiscard]] RawPicture expose(const Picture& picture);

/// The picture that hosts get: blue, green, red; bottom row first. False, and the picture is
/// undefined, when the data are not of the raw form.
[[nodiscard]] bool colourize(std::span<const std::uint8_t, MVI_RAW_BYTES> raw,
    std::span<std::uint8_t, MVI_PICTURE_BYTES> picture);

} // namespace kez::driver
