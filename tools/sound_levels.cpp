// SPDX-License-Identifier: MIT
#include "sound_levels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kez::tools {

namespace {

constexpr int silence = 128;

double powerOf(std::span<const std::uint8_t> samples)
{
    double sum = 0;
    for (const int sample : samples)
        sum += (sample - silence) * (sample - silence);
    return samples.empty() ? 0 : sum / static_cast<double>(samples.size());
}

} // namespace

std::vector<std::uint8_t> toBytes(std::span<const float> samples)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(samples.size());
    for (const float sample : samples) {
        const long value = std::lround(127 * std::clamp(sample, -1.0f, 1.0f));
        bytes.push_back(static_cast<std::uint8_t>(silence + value));
    }
    return bytes;
}

double signalToNoise(std::span<const std::uint8_t> sound, std::span<const std::uint8_t> copy)
{
    double noise = 0;
    for (std::size_t i = 0; i < sound.size(); ++i)
        noise += (sound[i] - copy[i]) * (sound[i] - copy[i]);
    return 10 * std::log10(powerOf(sound) * static_cast<double>(sound.size()) / noise);
}

double rmsDecibels(std::span<const std::uint8_t> samples)
{
    return 10 * std::log10(powerOf(samples) / (127.0 * 127.0));
}

int peakOf(std::span<const std::uint8_t> samples)
{
    int peak = 0;
    for (const int sample : samples)
        peak = std::max(peak, std::abs(sample - silence));
    return peak;
}

std::vector<std::uint8_t> loudnessTrack(
    std::span<const std::uint8_t> samples, int rate, int intervalMs)
{
    constexpr double rangeDecibels = 36;
    constexpr std::size_t mostValues = 65535;
    const auto step = std::max<std::size_t>(
        1, static_cast<std::size_t>(rate) * static_cast<std::size_t>(intervalMs) / 1000);
    std::vector<double> powers;
    for (std::size_t centre = 0; centre < samples.size() && powers.size() < mostValues;
         centre += step) {
        const std::size_t from = centre < step / 2 ? 0 : centre - step / 2;
        const std::size_t to = std::min(samples.size(), centre + (step + 1) / 2);
        powers.push_back(powerOf(samples.subspan(from, to - from)));
    }
    const double loudest = powers.empty() ? 0 : std::ranges::max(powers);
    std::vector<std::uint8_t> values;
    for (const double power : powers) {
        const double below = power > 0 ? 10 * std::log10(power / loudest) : -rangeDecibels;
        values.push_back(
            static_cast<std::uint8_t>(std::lround(255 * std::max(0.0, 1 + below / rangeDecibels))));
    }
    return values;
}

} // namespace kez::tools
