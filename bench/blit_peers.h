// SPDX-License-Identifier: MIT
/// The blits of the peer libraries, on our pixels. Their results may differ from ours by a step or
/// three; only the time is compared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kez::bench {

/// Pixels 0xAARRGGBB, rows without gaps.
struct PixelView {
    const std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
};

enum class PeerBlit { Copy, Blend };

/// A blit to the middle of a canvas, by one library.
class Peer {
public:
    virtual ~Peer() = default;
    virtual void draw() = 0;
};

using Canvas = std::span<std::uint32_t>; ///< 640 × 480 pixels.

constexpr int canvasWidth = 640;
constexpr int canvasHeight = 480;

std::unique_ptr<Peer> sdlBlit(Canvas canvas, const PixelView& sprite, PeerBlit kind);

/// The run-length form of the library: with opacity, or with the colour 0 as the transparent one.
std::unique_ptr<Peer> sdlRuns(Canvas canvas, const PixelView& sprite, PeerBlit kind);

/// `palette` has 256 colours.
std::unique_ptr<Peer> sdlPalette(Canvas canvas, const std::vector<std::uint8_t>& indices, int width,
    int height, const std::uint8_t* palette);

std::unique_ptr<Peer> sdlScaled(
    Canvas canvas, const PixelView& sprite, int displayedWidth, int displayedHeight);

std::unique_ptr<Peer> pixmanBlit(Canvas canvas, const PixelView& sprite, PeerBlit kind);

std::unique_ptr<Peer> sdlFill(Canvas canvas, int width, int height, std::uint32_t pixel);
std::unique_ptr<Peer> pixmanFill(Canvas canvas, int width, int height, std::uint32_t pixel);

/// Converts the canvas to a display of 565.
std::unique_ptr<Peer> pixmanPresent(Canvas canvas);

} // namespace kez::bench
