// SPDX-License-Identifier: MIT
/// Feeds an entry with a sound file damaged in many ways: every length cut, then random changes of
/// bytes, removals and insertions, always the same ones.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

namespace kez::fuzz {

inline void feedMutations(
    void (*entry)(std::span<const std::uint8_t>), const std::vector<std::uint8_t>& seed, int rounds)
{
    constexpr std::uint8_t telling[] = { 0, 1, 2, 3, 127, 128, 254, 255 };
    for (std::size_t size = 0; size < std::min<std::size_t>(seed.size(), 300); ++size)
        entry(std::vector<std::uint8_t>(seed.begin(), seed.begin() + std::ptrdiff_t(size)));
    std::mt19937 random(7);
    for (int round = 0; round < rounds; ++round) {
        std::vector<std::uint8_t> bytes = seed;
        for (std::size_t change = 0; change <= random() % 4; ++change) {
            const auto at = bytes.begin() + std::ptrdiff_t(random() % bytes.size());
            const std::uint8_t value
                = random() % 2 != 0 ? telling[random() % 8] : static_cast<std::uint8_t>(random());
            const std::size_t kind = random() % 8;
            if (kind == 0)
                bytes.insert(at, value);
            else if (kind == 1 && bytes.size() > 1)
                bytes.erase(at);
            else
                *at = value;
        }
        bytes.shrink_to_fit(); // so that a read behind the end is noticed
        entry(bytes);
    }
}

} // namespace kez::fuzz
