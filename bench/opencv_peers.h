// SPDX-License-Identifier: MIT
/// What OpenCV does with pictures of three bytes a pixel, in one thread.
#pragma once

#include <cstdint>

namespace kez::bench {

struct PictureSize {
    int width;
    int height;
};

/// Averages areas when both sizes shrink, and else interpolates between four pixels.
void resizeByOpenCv(
    const std::uint8_t* source, PictureSize from, std::uint8_t* to, PictureSize size);

/// A quarter turn; `to` has as many pixels as the source.
void turnByOpenCv(const std::uint8_t* source, PictureSize from, std::uint8_t* to);

} // namespace kez::bench
