// SPDX-License-Identifier: MIT
/// How a camera was held when it took a photograph.
///
/// An EXIF block is a TIFF file in small: "II" or "MM" (little or big-endian), the number 42 in two
/// bytes, the offset of the first directory in four; there a count in two bytes and entries of
/// twelve: tag, type, count (four bytes), value or its offset (four bytes). The orientation has the
/// tag 0x0112; its value is a number of two bytes (type 3) from 1 to 8. To see the photograph
/// upright, it is turned clockwise by 180 degrees for 3 and 4, by 90 for 5 and 6 and by 270 for 7
/// and 8; for 2, 4, 5 and 7 it is mirrored left to right afterwards.
#pragma once

#include <cstdint>
#include <span>

namespace kez {

/// 1 to 8; 1 when the block says nothing about it or is damaged.
[[nodiscard]] int exifOrientation(std::span<const std::uint8_t> tiff);

} // namespace kez
