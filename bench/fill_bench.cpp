// SPDX-License-Identifier: MIT
// Rectangles, opaque and with opacity.
#include "bench_support.h"
#include "libyuv_peers.h"
#include "sprites/fill_rect.h"
#include "sprites/plain_renderer.h"

namespace kez::bench {

namespace {

struct Fill {
    int width;
    int height;
    CanvasPixel pixel;
};

void drawFill(Canvas canvas, const Fill& fill)
{
    fillRect({ canvas.data(), canvasWidth, canvasHeight }, (canvasWidth - fill.width) / 2,
        (canvasHeight - fill.height) / 2, fill.width, fill.height, fill.pixel);
}

void drawPlainFill(Canvas canvas, const Fill& fill)
{
    const int left = (canvasWidth - fill.width) / 2;
    const int top = (canvasHeight - fill.height) / 2;
    for (int y = top; y < top + fill.height; ++y) {
        for (int x = left; x < left + fill.width; ++x) {
            std::uint32_t& at = canvas[static_cast<std::size_t>(y * canvasWidth + x)];
            at = test::plainBlend(at, fill.pixel, fill.pixel >> 24);
        }
    }
}

const bool areAdded = [] {
    for (const std::uint32_t alpha : { 255u, 128u }) {
        for (const auto& [width, height] :
            { std::pair { 640, 480 }, std::pair { 300, 200 }, std::pair { 60, 45 } }) {
            const Fill fill { width, height, alpha << 24 | 0x00336699 };
            const std::string name = std::string(alpha == 255 ? "fill/opaque/" : "fill/opacity/")
                + std::to_string(width) + "x" + std::to_string(height);
            addOurs(
                name, [=](Canvas canvas) { drawFill(canvas, fill); },
                [=](Canvas canvas) { drawPlainFill(canvas, fill); });
            addMemcpy(name, fill.width, fill.height);
            if (alpha == 255) {
                addPeer(name + "/SDL2", [=](Canvas canvas) {
                    return sdlFill(canvas, fill.width, fill.height, fill.pixel);
                });
                addPeer(name + "/libyuv", [=](Canvas canvas) {
                    return yuvFill(canvas, fill.width, fill.height, fill.pixel);
                });
            }
            addPeer(name + "/pixman", [=](Canvas canvas) {
                return pixmanFill(canvas, fill.width, fill.height, fill.pixel);
            });
        }
    }
    return true;
}();

} // namespace

} // namespace kez::bench
