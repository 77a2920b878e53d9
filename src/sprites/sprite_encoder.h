// SPDX-License-Identifier: MIT
/// Turns a picture into the records that store it as a sprite: for the packer, the tests and the
/// benchmarks. The counterpart of sprite_record.h, which reads them.
#pragma once

#include "sprites/sprite_record.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kez {

struct SpriteSource {
    std::string name {}; ///< Of the record, with its extension ".sp5".
    int x = 0; ///< Centre, in stage coordinates.
    int y = 0;
    int depth = 100;
    int width = 0;
    int height = 0;
    std::span<const std::uint32_t> pixels {}; ///< 0xAARRGGBB, width × height, top row first.
    SpriteMode mode = SpriteMode::Raw;
    int bits = 32;

    /// Not 0 for each pixel that the modes with runs are to store; the others become skips. Empty:
    /// pixels of opacity 0 become skips.
    std::span<const std::uint8_t> stored {};

    /// Draw with the pixels' own opacity. Without it every stored pixel is drawn opaque.
    bool withAlpha = false;

    /// An 8-bit sprite's palette record. It gets one of its own: the distinct colours of its stored
    /// pixels, in order of appearance.
    std::string paletteName {};

    /// The record of the opacity plane; needed `withAlpha` at 8 and 16 bits. At 32 bits it may be
    /// empty: the opacity then lies in the pixels alone.
    std::string alphaName {};
};

struct EncodedSprite {
    std::vector<std::uint8_t> sprite;
    std::vector<std::uint8_t> palette; ///< Empty unless the sprite has 8 bits.
    std::vector<std::uint8_t> alpha; ///< Empty unless the source names it.
};

/// Empty when the source cannot be stored: a size that the readers refuse or that `pixels` does not
/// have, other bits than 8, 16 and 32, a name that is missing, more than 256 colours at 8 bits, or
/// a skip of more than 255 pixels in short runs (long runs hold it).
[[nodiscard]] std::optional<EncodedSprite> encodeSprite(const SpriteSource& source);

} // namespace kez
