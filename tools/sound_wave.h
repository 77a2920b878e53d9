// SPDX-License-Identifier: MIT
/// Sounds in the files of other programs (WAV and whatever else libsndfile reads).
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kez::tools {

/// Reads a file of any rate and number of channels as one channel (their mean) at `rate` samples a
/// second; −1 … 1. Throws UserError: not readable, no samples, longer than a record can hold.
std::vector<float> readWave(const std::string& path, int rate);

/// Writes 8-bit unsigned samples of one channel as a WAV file, whole or not at all. Throws
/// UserError.
void writeWave(const std::string& path, int rate, std::span<const std::uint8_t> samples);

} // namespace kez::tools
