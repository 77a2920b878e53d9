// SPDX-License-Identifier: MIT
/// From canvas pixels (0xAARRGGBB, alpha ignored) to the pixels of a display of another depth: the
/// whole picture, every frame, by the loops of the vector level in use.
#pragma once

#include "display/canvas.h"
#include "display/display_layout.h"

#include <cstddef>
#include <cstdint>

namespace kez {

/// The plain rule for a 16-bit display. Each channel's top eight bits are shifted so that the
/// highest lands on the mask's top bit, then masked; a mask wider than eight bits lets in bits of
/// the channel below.
///     0x00FF8040 → 0xFC08 (565), 0x7E08 (555)
[[nodiscard]] std::uint16_t displayPixel(CanvasPixel pixel, const DisplayLayout& layout);

/// A locked surface as memory: rows of `pitchBytes`, of which `width` pixels count.
struct PixelRows {
    std::uint8_t* bytes = nullptr;
    std::ptrdiff_t pitchBytes = 0;
    int width = 0;
    int height = 0;
};

/// Converts the part that both have to a display of 16, 24 or 32 bits. With 24 bits, rows of the
/// target begin at multiples of its pitch rounded down to whole pixels of three bytes. Any other
/// depth, and rows that are not aligned for their pixels, are refused: false, nothing written.
bool convertPicture(const PixelRows& source, const PixelRows& target, int bitsPerPixel,
    const DisplayLayout& layout);

} // namespace kez
