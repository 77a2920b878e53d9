// SPDX-License-Identifier: MIT
/// The half of resampling that makes pictures larger in either direction.
#pragma once

#include <cstdint>

namespace kez {

/// As `resamplePicture`, for sizes of at least 1.
void enlargePicture(const std::uint8_t* source, int sw, int sh, std::uint8_t* to, int dw, int dh);

} // namespace kez
