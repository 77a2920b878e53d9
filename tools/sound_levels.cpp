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

std::vector<std::uint8_t> toBytes(std::span<const float> samples, Rounding rounding)
{
    // The noise is filtered by 1 - 1.2 z^-1 + 0.5 z^-2: weak below 3 kHz at 22,050 Hz.
    const double first = rounding == Rounding::Shaped ? 1.2 : 0;
    const double second = rounding == Rounding::Shaped ? -0.5 : 0;
    double error[2] = {};
    std::vector<std::uint8_t> bytes;
    bytes.reserve(samples.size());
    for (const float sample : samples) {
        // Perfect silence stays silent: the errors of a sound that has ended are forgotten.
        if (sample == 0)
            error[0] = error[1] = 0;
        const double wanted
            = 127.0 * static_cast<double>(sample) - first * error[0] - second * error[1];
        const double value = std::clamp(std::round(wanted), -127.0, 127.0);
        error[1] = error[0];
        error[0] = std::clamp(value - wanted, -1.0, 1.0);
        bytes.push_back(static_cast<std::uint8_t>(silence + static_cast<int>(value)));
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
