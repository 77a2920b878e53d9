// SPDX-License-Identifier: MIT
/// A sound of another program becomes a record file.
#pragma once

#include <cstdint>
#include <string>

namespace kez::tools {

struct SoundJob {
    std::string from; ///< WAV and whatever else libsndfile reads, of any rate and channels.
    std::string to;
    std::string name {}; ///< The record's; empty: that of the file `to`.
    int rate = 22050; ///< Samples a second.
    int syncIntervalMs = 100;
    bool plain = false; ///< Whole bytes rather than the delta code.
    bool sync = false; ///< With a sync track that follows the loudness.
};

/// Writes the record whole or not at all and returns a line on its size and its likeness. Throws
/// UserError.
std::string encodeSound(const SoundJob& job);

} // namespace kez::tools
