// SPDX-License-Identifier: MIT
/// The cheapest codes of a sound for a given delta table.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace kez::tools {

constexpr int deltaCodes = 15; ///< Codes that stand for a difference.

using DeltaTable = std::array<int, deltaCodes>;

/// How one sample is told: codes 0 to 14, an escape with its value, or a run with the others.
struct DeltaStep {
    static constexpr std::uint8_t escape = 15;
    static constexpr std::uint8_t run = 16;

    std::uint8_t code;
    std::uint8_t value; ///< What the decoder will hold.
};

/// What it costs to tell a sample, in units of squared error. Infinite: never done.
struct DeltaPrices {
    float code;
    float escape;
    float run; ///< To begin one; to go on is free.
};

[[nodiscard]] DeltaPrices pricesOfBits(float bitPrice);

constexpr DeltaPrices codesOnly { 0, std::numeric_limits<float>::infinity(),
    std::numeric_limits<float>::infinity() };

/// One step for each sample but the first, which is 128. A step costs its squared error and its
/// price.
std::vector<DeltaStep> searchDeltas(
    std::span<const std::uint8_t> samples, const DeltaTable& table, const DeltaPrices& prices);

} // namespace kez::tools
