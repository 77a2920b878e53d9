// SPDX-License-Identifier: MIT
/// The half of resampling that makes pictures smaller, or leaves them their size.
#pragma once

#include <cstdint>

namespace kez {

/// As `resamplePicture`, for sizes of at least 1 with dw ≤ sw and dh ≤ sh.
void reducePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh);

} // namespace kez
