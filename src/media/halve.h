// SPDX-License-Identifier: MIT
/// Reducing to half the size both ways, where all weights are known beforehand. What a reduced
/// pixel averages are three by three pixels that weigh
///
///     141 141 100
///     141 141 100
///     100 100   0
///
/// while the last column and row, one pixel nearer, do without what lies furthest.
#pragma once

#include <cstdint>

namespace kez {

/// Whether the sizes are such.
[[nodiscard]] bool isHalving(int sw, int sh, int dw, int dh);

/// As `reducePicture` for those sizes.
void halvePicture(const std::uint8_t* source, int dw, int dh, std::uint8_t* to);

} // namespace kez
