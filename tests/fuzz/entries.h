// SPDX-License-Identifier: MIT
/// One entry a parser: each takes any bytes, must not crash, hang or leave its bounds, and stops
/// the program when a parser hands out something that it has not checked. Run by the fuzzers and,
/// on mutated files, by the tests.
#pragma once

#include <cstdint>
#include <span>

namespace kez::fuzz {

void feedArchive(std::span<const std::uint8_t> bytes);
void feedBmpFile(std::span<const std::uint8_t> bytes);
void feedDif1(std::span<const std::uint8_t> bytes);

/// A sprite, its palette and its opacity plane, each record behind a u16 length.
void feedSpriteRecord(std::span<const std::uint8_t> bytes);

void feedTargaFile(std::span<const std::uint8_t> bytes);

} // namespace kez::fuzz
