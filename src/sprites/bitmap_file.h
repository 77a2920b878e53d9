// SPDX-License-Identifier: MIT
/// Windows bitmap files of 24 bits. A block holds a bitmap as it lies in the file behind the first
/// 14 bytes: the 40-byte header and the rows, bottom row first, each padded with zeros to a
/// multiple of four bytes.
///
///     offset in the file  size      contents
///                      0  2 bytes   "BM"
///                      2  u32       size of the file: 14 + the block
///                      6  u16 × 2   0
///                     10  u32       54: where the rows begin
///                     14  u32       40: size of the header, which begins here, as the block does
///                     18  i32 × 2   width, height (positive: bottom row first)
///                     26  u16 × 2   1 plane, 24 bits
///                     30  u32       0: no compression
///                     34  u32       bytes of the rows
///                     38  i32 × 2   3790 and 3780 pixels a metre, across and down
///                     46  u32 × 2   0 colours, 0 of them important
///                     54            the rows
#pragma once

#include "media/byte_block.h"

#include <cstdint>

namespace kez {

/// Takes width × height pixels of three bytes (blue, green, red), bottom row first, without gaps.
/// Empty when there is no memory or a side is not positive.
[[nodiscard]] ByteBlock makeBitmap(const std::uint8_t* pixels, int width, int height);

/// Creates or replaces the file, whole or not at all. False for an empty block and when the file
/// cannot be written. Counts nothing against the disk budget.
[[nodiscard]] bool writeBitmapFile(const ByteBlock& block, const char* path);

void freeBitmap(ByteBlock& block); ///< Gives the memory back before the block's owner goes.

} // namespace kez
