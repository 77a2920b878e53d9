// SPDX-License-Identifier: MIT
/// What a stored sprite looks like: the way back from records to a picture.
#pragma once

#include "media/archive_block.h"
#include "sprites/sprite_record.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kez::tools {

/// Records with equal names: the first counts, as in the running program.
const ArchiveRecord* recordNamed(std::span<const ArchiveRecord> records, std::string_view name);

/// The sprite's pixels, 0xAARRGGBB, top row first; skipped pixels are 0, pixels of a sprite without
/// opacity opaque. Empty, and `fault` says why, when the palette or the plane is missing or does
/// not fit, or for forms that are not unpacked (16 bits, 32 bits with an opacity plane).
std::optional<std::vector<std::uint32_t>> spritePixels(std::span<const ArchiveRecord> records,
    const ArchiveRecord& record, const SpriteView& sprite, std::string& fault);

} // namespace kez::tools
