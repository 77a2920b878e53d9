// SPDX-License-Identifier: MIT
/// The 4-bit delta code of sounds: 8-bit unsigned samples at half a byte each.
///
/// Bytes 0 to 15 are the delta table, each a signed byte (the last is never used). From byte 16 on
/// the stream is made of 4-bit codes, the high half of each byte first. The current sample starts
/// at 128 (silence), which is also the first sample of every sound.
///
///     code 0 … 14   sample += table[code], kept within 0 … 255; emit it
///     code 15       escape: the next two codes make a byte X
///                   X ≠ 255: sample = X; emit it
///                   X = 255: the next two codes make a count; emit the sample that many times
///
/// With table[0] = +2 and table[1] = −2 the bytes 0x01 0xF4 0x0F 0xFF 0x03 0x1… decode, behind the
/// first 128, to 130 128 64 64 64 64 62.
#pragma once

#include <cstdint>
#include <span>

namespace kez {

constexpr std::size_t delta4TableSize = 16;

/// Decodes the stream into `out`. Stops at the end of either; samples that the stream does not
/// reach are 128. An escape that the end cuts short emits nothing.
void expandDelta4(std::span<const std::uint8_t> stream, std::span<std::uint8_t> out);

} // namespace kez
