// SPDX-License-Identifier: MIT
/// Turns a photograph upright that the camera stored lying on its side, upside down or mirrored.
#pragma once

#include <cstdint>

namespace kez {

/// Turns width × height pixels of three bytes, bottom row first, in place, as an EXIF orientation
/// (see platform/exif_orientation.h) asks; exchanges the sizes for a quarter turn. Needs a bit of
/// memory a pixel; false when there is none, and the picture then lies as it did.
bool turnUpright(std::uint8_t* pixels, int& width, int& height, int orientation);

} // namespace kez
