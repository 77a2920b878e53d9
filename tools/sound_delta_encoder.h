// SPDX-License-Identifier: MIT
/// Encodes sounds in the 4-bit delta code of media/delta4.h with the least squared error that fits
/// into half a byte a sample.
///
/// The table starts as the best 15 levels for the differences between neighbours (Lloyd's method)
/// and is fitted to what the search makes of it. The search walks all 256 values that the sample
/// can have at each moment and keeps the cheapest way to each, where a way costs its squared error
/// and λ for every bit. Escapes are so dear and runs so cheap that the silence between words pays
/// for the exact samples at the start of loud ones. λ is the smallest that keeps within the size.
/// Where that leaves little of the sound, one code for each sample is tried as well.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace kez::tools {

/// Called after each of the passes over the sound.
using SoundProgress = std::function<void(std::size_t done, std::size_t all)>;

/// The stream, table included, for samples whose first is 128 (the code can start no other way: a
/// first sample of another value is heard as 128).
[[nodiscard]] std::vector<std::uint8_t> encodeDelta4(
    std::span<const std::uint8_t> samples, const SoundProgress& progress = {});

} // namespace kez::tools
