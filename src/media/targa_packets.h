// SPDX-License-Identifier: MIT
/// The run-length coder for rows of 24-bit pixels. A packet is a byte c and pixels: c ≥ 128 repeats
/// the one pixel that follows c − 127 times, c < 128 is followed by c + 1 pixels as they are. No
/// packet crosses the end of a row.
///
/// From the left, equal neighbours form runs of up to 128 pixels; two or more equal pixels always
/// become a run packet, and up to 128 runs of one pixel each become one literal packet:
///
///     A A A B C C  →  82 A  00 B  81 C          129 × A  →  FF A  00 A
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

/// Packs one row into `out`, which has room for twice the row's bytes. Returns the bytes written.
std::size_t packTargaRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> out);

} // namespace kez
