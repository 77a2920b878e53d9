// SPDX-License-Identifier: MIT
/// How a camera was held when it took a photograph.
///
/// An EXIF block is a TIFF file in small: "II" or "MM" (little or big-endian), the number 42 in two
/// bytes, the offset of the first directory in four; there a count in two bytes and entries of
/// twelve: tag, type, count (four bytes), value or its offset (four bytes). The orientation has the
/// tag 0x0112; its value is a number of two bytes (type 3) from 1 to 8.
#pragma once

#include <cstdint>
#include <span>

namespace kez::driver {

/// 1 to 8; 1 when the block says nothing about it or is damaged.
[[nodiscard]] int exifOrientation(std::span<const std::uint8_t> tiff);

} // namespace kez::driver
