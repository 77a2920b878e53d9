// SPDX-License-Identifier: MIT
/// Doubles a picture as hosts have it (blue, green, red; bottom row first). Each new pixel is 9/16
/// of the one it lies in, 3/16 of each of its two nearest neighbours and 1/16 of the one between
/// those, rounded to nearest; beyond the edge the edge goes on.
#pragma once

#include "picture.h"

#include <span>

namespace kez::driver {

void enlarge(std::span<const std::uint8_t, MVI_PICTURE_BYTES> picture,
    std::span<std::uint8_t, MVI_ENLARGED_BYTES> enlarged);

} // namespace kez::driver
