// SPDX-License-Identifier: MIT
/// A sound's record file as the module would play it: read and checked whole.
#pragma once

#include "media/sound_record.h"
#include "platform/files.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kez::tools {

struct LoadedSound {
    files::Bytes record;
    SoundHeader header;
    std::size_t packedBytes = 0;
    std::vector<std::uint8_t> samples; ///< Decoded, 8 bits each.
};

/// Throws UserError for what the module would not play, or would play otherwise than it says.
LoadedSound loadSound(const std::string& path);

std::string soundName(const LoadedSound& sound); ///< The record's name, fit to be printed.

} // namespace kez::tools
