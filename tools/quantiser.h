// SPDX-License-Identifier: MIT
/// Reduces the colours of a picture so that it fits a palette; the opacities stay as they are. A
/// library chooses the palette, which is then refined round by round: every colour becomes the mean
/// of the pixels that it is nearest to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kez::tools {

struct ColourLoss {
    std::size_t coloursBefore = 0;
    std::size_t coloursAfter = 0;
    double mean = 0; ///< Root mean square over the three channels of the pixels that show, 0 … 255.
    int largest = 0; ///< Of one channel of one pixel.
};

/// Changes the pixels (0xAARRGGBB; those of opacity 0 are left alone) to at most `colours` (2 …
/// 256) different colours; a picture that has no more is not changed. Throws UserError without
/// memory.
ColourLoss reduceColours(std::vector<std::uint32_t>& pixels, int colours);

} // namespace kez::tools
