// SPDX-License-Identifier: MIT
/// Enlarging to twice the size both ways. The new pixels lie a quarter and three quarters of the
/// way between their neighbours, but for the last two columns and rows, which lie at the start and
/// in the middle of the last pair of pixels.
#pragma once

#include <cstdint>

namespace kez {

/// Whether the sizes are such.
[[nodiscard]] bool isDoubling(int sw, int sh, int dw, int dh);

/// As `enlargePicture` for those sizes.
void doublePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to);

} // namespace kez
