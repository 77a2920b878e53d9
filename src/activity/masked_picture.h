// SPDX-License-Identifier: MIT
/// A stored picture as the child is to see it outside the pages: its masked pixels white.
#pragma once

#include <cstdint>
#include <vector>

namespace kez {

/// Three bytes a pixel (blue, green, red), bottom row first. Without pixels: there is none.
struct MaskedPicture {
    std::vector<std::uint8_t> pixels;
    int width = 0;
    int height = 0;
};

/// The picture of that name with its mask, if it has one. A diagnostic when it cannot be read.
[[nodiscard]] MaskedPicture readMaskedPicture(const char* name);

} // namespace kez
