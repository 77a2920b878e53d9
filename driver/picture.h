// SPDX-License-Identifier: MIT
/// A picture on its way through the camera: 160 × 120 pixels as the lens sees them, and the same
/// as raw data in one of the camera's places.
#pragma once

#include "qxdcdll.h"

#include <array>
#include <cstdint>
#include <memory>

namespace kez::driver {

constexpr int pictureWidth = MVI_PICTURE_WIDTH;
constexpr int pictureHeight = MVI_PICTURE_HEIGHT;

/// Red, green, blue; top row first, rows without padding.
using Picture = std::array<std::uint8_t, MVI_PICTURE_BYTES>;

using RawPicture = std::array<std::uint8_t, MVI_RAW_BYTES>;
using RawPointer = std::shared_ptr<const RawPicture>; ///< Shared with an upload that runs.

} // namespace kez::driver
