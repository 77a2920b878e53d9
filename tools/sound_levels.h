// SPDX-License-Identifier: MIT
/// Samples as numbers: how they become bytes, how far two sounds lie apart, how loud a voice is.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kez::tools {

/// −1 … 1 becomes 1 … 255 with silence at 128; what lies beyond is clipped. Rounded to the nearest:
/// dither and shaped noise measured louder, and they cost the delta code its exactness.
std::vector<std::uint8_t> toBytes(std::span<const float> samples);

/// Power of the sound over the power of what differs, in decibels; infinite when nothing does. Both
/// of the same length.
double signalToNoise(std::span<const std::uint8_t> sound, std::span<const std::uint8_t> copy);

double rmsDecibels(std::span<const std::uint8_t> samples); ///< Of a full-scale square wave.
int peakOf(std::span<const std::uint8_t> samples); ///< The largest distance from silence.

/// A sync track: value i is the loudness about the time i × interval, from 0 (36 dB below the
/// loudest moment, or quieter) to 255 (the loudest moment). A mouth can follow it. At most 65,535
/// values.
std::vector<std::uint8_t> loudnessTrack(
    std::span<const std::uint8_t> samples, int rate, int intervalMs);

} // namespace kez::tools
