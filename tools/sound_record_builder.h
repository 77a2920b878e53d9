// SPDX-License-Identifier: MIT
/// Puts a sound record together; its layout is in media/sound_record.h.
#pragma once

#include "media/sound_record.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kez::tools {

/// An 8-bit sound of one channel, encoded already.
struct SoundParts {
    std::string name; ///< At most 39 characters.
    std::uint32_t rate = 0;
    std::uint32_t sampleLength = 0;
    std::uint32_t encoding = plainEncoding;
    std::span<const std::uint8_t> encoded {};
    std::uint16_t syncIntervalMs = 0;
    std::span<const std::uint8_t> syncValues {}; ///< Empty: the record gets no sync track.
};

std::vector<std::uint8_t> buildSoundRecord(const SoundParts& parts);

} // namespace kez::tools
