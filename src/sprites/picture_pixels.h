// SPDX-License-Identifier: MIT
/// Pictures of three bytes a pixel (blue, green, red) and of 32-bit pixels: scaling by nearest
/// neighbours and conversion. Sizes are in pixels, rows lie without gaps.
#pragma once

#include <cstdint>

namespace kez {

/// Scales sw × sh pixels to tw × th about the centre. Nothing is done unless both buffers exist and
/// all sizes are positive. With s = source ÷ target size as a float, target offset r from the
/// centre shows source offset trunc(r × s); the last row and column of an odd size repeat their
/// neighbour.
void scaleNearest(
    const std::uint32_t* source, int sw, int sh, std::uint32_t* target, int tw, int th);

/// The same for pictures of three bytes a pixel.
void scaleNearest(const std::uint8_t* source, int sw, int sh, std::uint8_t* target, int tw, int th);

/// Turns `count` picture pixels into fully opaque 32-bit pixels of the same colour (0xFFRRGGBB).
void toOpaquePixels(const std::uint8_t* picture, std::uint32_t* pixels, int count);

} // namespace kez
