// SPDX-License-Identifier: MIT
#include "sprites/rectangle.h"

#include "sprites/fill_rect.h"
#include "sprites/random_sprite.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace kez::test {

namespace {

constexpr int canvasWidth = 37;
constexpr int canvasHeight = 23;

struct Edges {
    int left, top, right, bottom; // right and bottom outside
};

bool isInside(const Edges& edges, int x, int y)
{
    return x >= edges.left && x < edges.right && y >= edges.top && y < edges.bottom;
}

constexpr std::uint32_t white = 0xFFFFFFFF;
constexpr std::uint32_t ink = 0xFF112233;

std::vector<CanvasPixel> drawnOnWhite(Rectangle& rectangle)
{
    std::vector<CanvasPixel> canvas(canvasWidth * canvasHeight, white);
    const MemoryCanvas open(canvas.data(), canvasWidth, canvasHeight);
    rectangle.draw();
    return canvas;
}

std::vector<CanvasPixel> frameOnWhite(const Edges& outer, const Edges& inner)
{
    std::vector<CanvasPixel> canvas;
    for (int y = 0; y < canvasHeight; ++y) {
        for (int x = 0; x < canvasWidth; ++x)
            canvas.push_back(isInside(outer, x, y) && !isInside(inner, x, y) ? ink : white);
    }
    return canvas;
}

} // namespace

TEST(Rectangle, coversItsEdgesByThickness)
{
    struct FrameCase {
        const char* name;
        Placement placement;
        int thickness;
        Edges outer;
        Edges inner;
    };

    // The canvas's centre is (18, 11).
    const FrameCase cases[] = {
        { "filled, even", { 0, 0, 0, 6, 4 }, 0, { 15, 9, 21, 13 }, {} },
        { "filled, odd", { 0, 0, 0, 7, 5 }, 0, { 14, 8, 21, 13 }, {} },
        { "frame inside", { 1, -1, 0, 10, 8 }, 2, { 14, 6, 24, 14 }, { 16, 8, 22, 12 } },
        { "frame outside", { 0, 0, 0, 6, 4 }, -2, { 13, 7, 23, 15 }, { 15, 9, 21, 13 } },
        { "clipped", { -18, 11, 0, 8, 8 }, 1, { -4, 18, 4, 26 }, { -3, 19, 3, 25 } },
        { "wider than the canvas", { 0, 0, 0, 90, 4 }, 0, { -9, 9, 90, 13 }, {} },
        { "outside", { 60, 0, 0, 6, 6 }, 0, {}, {} },
        { "negative", { 0, 0, 0, -6, 6 }, 0, {}, {} },
    };
    for (const FrameCase& frame : cases) {
        SCOPED_TRACE(frame.name);
        Rectangle rectangle(frame.placement, true, makeColour(0x11, 0x22, 0x33), frame.thickness);
        EXPECT_EQ(drawnOnWhite(rectangle), frameOnWhite(frame.outer, frame.inner));
    }
}

TEST(Rectangle, blendsBelowFullOpacityAndVanishesAtNone)
{
    Rectangle rectangle({ 0, 0, 0, 90, 90 }, true, makeColour(0, 100, 255, 128), 0);
    // (c × 128 + 255 × 127) >> 8; the canvas keeps its alpha.
    EXPECT_EQ(
        drawnOnWhite(rectangle), std::vector<CanvasPixel>(canvasWidth * canvasHeight, 0xFF7EB0FE));
    rectangle.colour = makeColour(0, 0, 0, 0);
    EXPECT_EQ(drawnOnWhite(rectangle), std::vector<CanvasPixel>(canvasWidth * canvasHeight, white));
    EXPECT_TRUE(rectangle.drawsPixels());
    EXPECT_EQ(rectangle.className(), "Rectangle");
}

TEST(FillRect, blendsEachPixelByTheRule)
{
    Random random(20264);
    for (int round = 0; round < 300; ++round) {
        std::vector<CanvasPixel> canvas(canvasWidth * canvasHeight);
        for (CanvasPixel& pixel : canvas)
            pixel = random();
        std::vector<CanvasPixel> expected = canvas;
        const auto side
            = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
        const int left = side(-20, 50);
        const int top = side(-20, 40);
        const int width = side(-3, 60);
        const int height = side(-3, 40);
        const CanvasPixel pixel = round % 4 == 0 ? random() | 0xFF000000 : random();
        fillRect({ canvas.data(), canvasWidth, canvasHeight }, left, top, width, height, pixel);
        for (int y = 0; y < canvasHeight; ++y) {
            for (int x = 0; x < canvasWidth; ++x) {
                CanvasPixel& at = expected[static_cast<std::size_t>(y * canvasWidth + x)];
                if (isInside({ left, top, left + width, top + height }, x, y))
                    at = plainBlend(at, pixel, pixel >> 24);
            }
        }
        ASSERT_EQ(canvas, expected) << left << ", " << top << ", " << width << ", " << height;
    }
    fillRect({}, 0, 0, 5, 5, ink);
}

} // namespace kez::test
