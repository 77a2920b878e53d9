// SPDX-License-Identifier: MIT
/// Small pictures of pictures: every stored picture has a thumbnail of 60 × 45 pixels, from which
/// the photo book draws its pages.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kez {

constexpr int clipWidth = 60;
constexpr int clipHeight = 45;
constexpr std::size_t clipBytes = 8100; ///< Three bytes a pixel, no header.

/// How much a picture is reduced to fit into a size: 100 × the larger of the two ratios, truncated.
[[nodiscard]] int reductionPercent(int width, int height, int fitWidth, int fitHeight);

/// Reduces sw × sh pixels of three bytes to fit into ow × oh, by nearest neighbours, with white
/// margins. Masked pixels (`mask` is null or has a byte for each) are white as well. Sizes are
/// positive.
void makeThumbnail(const std::uint8_t* source, int sw, int sh, const std::uint8_t* mask,
    std::uint8_t* out, int ow, int oh);

} // namespace kez
