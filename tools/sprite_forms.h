// SPDX-License-Identifier: MIT
/// The forms in which a picture can be stored as a sprite, and the choice among them.
#pragma once

#include "sprites/sprite_encoder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kez::tools {

/// `bits` 0 stands for any number of bits; `modes` has bit 1 << mode set for each mode allowed.
struct SpriteForm {
    const char* name;
    int bits;
    unsigned modes;
};

/// Null for a name that is none of "auto", "raw32", "short32", "long32", "runs32", "raw8",
/// "short8", "long8", "palette8".
const SpriteForm* spriteFormNamed(std::string_view name);
const SpriteForm& exactForm(int bits, SpriteMode mode); ///< The form that allows only these.
std::string spriteFormNames(); ///< For messages.

/// A picture to be stored; x and y of its centre. The records are called NAME.sp5, NAME.pal and
/// NAME.alp.
struct SpritePicture {
    std::string name;
    int x = 0;
    int y = 0;
    int depth = 100;
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels {}; ///< 0xAARRGGBB, top row first.
};

/// The records, sprite first, of the form that needs the fewest bytes; empty when the form allows
/// none (too many colours, skips too long). Every form draws the same: pixels of opacity 0 are
/// skipped, opacity is kept wherever one differs from 0 and 255.
std::vector<std::vector<std::uint8_t>> encodeSmallest(
    const SpritePicture& picture, const SpriteForm& form);

} // namespace kez::tools
