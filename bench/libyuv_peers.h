// SPDX-License-Identifier: MIT
/// The same work by libyuv. Pictures go to the middle of the canvas.
#pragma once

#include "blit_peers.h"

namespace kez::bench {

std::unique_ptr<Peer> yuvBlend(Canvas canvas, const PixelView& sprite);
std::unique_ptr<Peer> yuvScaled(
    Canvas canvas, const PixelView& sprite, int displayedWidth, int displayedHeight);
std::unique_ptr<Peer> yuvFill(Canvas canvas, int width, int height, std::uint32_t pixel);

/// Turns the picture clockwise by a quarter into memory of its own.
std::unique_ptr<Peer> yuvTurn(const PixelView& picture);

/// Converts the canvas to 24 or, as 565, to 16 bits.
std::unique_ptr<Peer> yuvPresent(Canvas canvas, int bits);

} // namespace kez::bench
