// SPDX-License-Identifier: MIT
/// Brings the rows of a Targa picture into the order of memory: left to right, bottom row first.
/// Pictures of three bytes a pixel, rows without gaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

void mirrorRows(std::span<std::uint8_t> picture, std::size_t rowBytes); ///< Turns each row round.
void flipRows(std::span<std::uint8_t> picture, std::size_t rowBytes); ///< Top row to the bottom.

/// Takes the rows from the last to the first and places them, counted from the last row of `out`,
/// at 0, ways, 2 × ways …, then at 1, 1 + ways …, until all are placed.
void deinterleave(std::span<const std::uint8_t> picture, std::span<std::uint8_t> out,
    std::size_t rowBytes, std::size_t ways);

} // namespace kez
