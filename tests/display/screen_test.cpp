// SPDX-License-Identifier: MIT
#include "display/screen.h"

#include "display/canvas.h"
#include "display/view.h"
#include "support/debug_output.h"
#include "support/display.h"
#include "support/failing_surface.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kez {
namespace {

using test::FailingSurface;
using test::pixelAt;

/// Every pixel different from its neighbours.
constexpr CanvasPixel testPixel(int x, int y)
{
    return static_cast<CanvasPixel>((x * 7 & 255) << 16 | (y * 5 & 255) << 8 | ((x + y) & 255));
}

class TestPicture : public Graphic {
public:
    TestPicture()
        : Graphic({}, true, black)
    {
    }

    bool drawsPixels() const override { return true; }

    void draw() override
    {
        const CanvasPixels canvas = targetPixels();
        for (int row = 0; row < canvas.height; ++row)
            for (int column = 0; column < canvas.width; ++column)
                canvas.pixels[row * canvas.width + column] = testPixel(column, row);
    }
};

class ScreenTest : public testing::Test {
protected:
    ScreenTest()
    {
        view.add(picture);
        view.attach();
    }

    ~ScreenTest() override { screen().detach(); }

    static std::uint32_t expected(CanvasPixel pixel, int bits)
    {
        if (bits != 16)
            return pixel & 0xFFFFFF;
        return (pixel >> 8 & 0xF800) | (pixel >> 5 & 0x07E0) | (pixel >> 3 & 0x001F);
    }

    static void expectShown(IDirectDrawSurface& primary, int bits)
    {
        for (const auto& [x, y] : { std::pair(0, 0), std::pair(639, 0), std::pair(0, 479),
                 std::pair(639, 479), std::pair(123, 321), std::pair(320, 240) })
            EXPECT_EQ(pixelAt(primary, x, y) & 0xFFFFFF, expected(testPixel(x, y), bits))
                << bits << " bits at " << x << ", " << y;
    }

    View view { 0, 0, 0, 0, 0, true, true };
    TestPicture picture;
};

TEST_F(ScreenTest, showsTheFrameAtEveryDepth)
{
    for (const int bits : { 16, 24, 32 }) {
        test::DebugOutput output;
        test::Display display(bits);
        screen().attach(display.directDraw, display.primary, display.secondary, bits);
        EXPECT_EQ(screen().picture() != nullptr, bits != 32);
        drawDisplayList();
        expectShown(*display.primary, bits);
        EXPECT_EQ(output.text(), "");
        screen().detach();
    }
}

TEST_F(ScreenTest, findsTheLayoutOfA16BitDisplay)
{
    test::Display display(16);
    FailingSurface secondary(display.secondary);
    DDPIXELFORMAT format = test::formatOf(16);
    std::swap(format.dwRBitMask, format.dwBBitMask);
    secondary.claimFormat(format);
    screen().attach(display.directDraw, display.primary, &secondary, 16);
    EXPECT_EQ(screen().layout().format, DisplayFormat::rgbOther);
    EXPECT_EQ(screen().layout().red.mask, 0x001Fu);
    screen().detach();
}

TEST_F(ScreenTest, restoresALostPrimaryBeforeDrawing)
{
    test::Display display(32);
    FailingSurface primary(display.primary);
    screen().attach(display.directDraw, &primary, display.secondary, 32);
    primary.lose();
    drawDisplayList();
    EXPECT_EQ(primary.calls(FailingSurface::RestoreCall), 1);
    EXPECT_EQ(primary.calls(FailingSurface::BltFastCall), 1);
    expectShown(*display.primary, 32);
}

TEST_F(ScreenTest, repeatsWhatALossInterrupted)
{
    test::Display display(16);
    FailingSurface primary(display.primary);
    FailingSurface secondary(display.secondary);
    screen().attach(display.directDraw, &primary, &secondary, 16);
    secondary.lose();
    primary.fail(FailingSurface::BltFastCall, DDERR_SURFACELOST, 3);
    drawDisplayList();
    EXPECT_EQ(secondary.calls(FailingSurface::LockCall), 2);
    EXPECT_EQ(primary.calls(FailingSurface::BltFastCall), 4);
    expectShown(*display.primary, 16);
    EXPECT_EQ(secondary.locksHeld(), 0);
}

TEST_F(ScreenTest, goesOnWithoutSurfacesThatFail)
{
    test::Display display(16);
    FailingSurface primary(display.primary);
    FailingSurface secondary(display.secondary);
    screen().attach(display.directDraw, &primary, &secondary, 16);
    test::DebugOutput output;
    primary.fail(FailingSurface::BltFastCall, DDERR_SURFACELOST);
    secondary.fail(FailingSurface::LockCall, DDERR_SURFACEBUSY);
    drawDisplayList();
    EXPECT_LT(primary.calls(FailingSurface::BltFastCall), 100);
    EXPECT_NE(output.text().find("Screen thread locked by another process."), std::string::npos);
    EXPECT_NE(output.text().find("stays lost"), std::string::npos);
    EXPECT_EQ(pixelAt(*display.primary, 5, 5), 0u);

    primary.fail(FailingSurface::BltFastCall, DD_OK, 0);
    secondary.fail(FailingSurface::LockCall, DD_OK, 0);
    drawDisplayList();
    expectShown(*display.primary, 16);
}

TEST_F(ScreenTest, drawsBesideASecondaryWhoseRowsHaveGaps)
{
    test::Display display(32);
    FailingSurface primary(display.primary);
    FailingSurface secondary(display.secondary);
    constexpr int pitch = 648 * 4;
    std::vector<std::uint8_t> memory(pitch * 480);
    secondary.lendMemory(memory.data(), pitch);
    screen().attach(display.directDraw, &primary, &secondary, 32);
    EXPECT_NE(screen().picture(), nullptr);
    drawDisplayList();
    for (const auto& [x, y] : { std::pair(0, 0), std::pair(639, 1), std::pair(17, 479) }) {
        CanvasPixel pixel = 0;
        std::memcpy(&pixel, memory.data() + y * pitch + x * 4, sizeof pixel);
        EXPECT_EQ(pixel, testPixel(x, y));
    }
    EXPECT_EQ(memory[640 * 4], 0);
}

TEST_F(ScreenTest, keepsInsideASecondaryThatIsTooSmall)
{
    for (const int bits : { 16, 24, 32 }) {
        test::Display display(bits);
        IDirectDrawSurface* small = display.createSurface(100, 50);
        screen().attach(display.directDraw, display.primary, small, bits);
        drawDisplayList(); // the sanitizer watches
        EXPECT_EQ(pixelAt(*small, 99, 0) & 0xFFFFFF, expected(testPixel(99, 0), bits));
        screen().detach();
        small->Release();
    }
}

TEST_F(ScreenTest, believesTheSurfaceRatherThanTheNumber)
{
    test::DebugOutput output;
    for (const int claimed : { 0, 8, 32, -7 }) {
        test::Display display(16);
        screen().attach(display.directDraw, display.primary, display.secondary, claimed);
        EXPECT_NE(output.take().find("bits a pixel"), std::string::npos);
        EXPECT_EQ(screen().bitsPerPixel(), 16);
        drawDisplayList();
        expectShown(*display.primary, 16);
        screen().detach();
    }
}

TEST_F(ScreenTest, reportsWhatIsMissing)
{
    test::DebugOutput output;
    test::Display display(16);
    screen().attach(display.directDraw, nullptr, display.secondary, 16);
    EXPECT_NE(output.take().find("no primary surface"), std::string::npos);
    drawDisplayList();
    screen().attach(display.directDraw, display.primary, nullptr, 16);
    EXPECT_NE(output.take().find("no secondary surface"), std::string::npos);
    drawDisplayList();
    screen().attach(nullptr, display.primary, display.secondary, 16);
    EXPECT_NE(output.take().find("no DirectDraw object"), std::string::npos);
    drawDisplayList();
    FailingSurface primary(display.primary);
    FailingSurface secondary(display.secondary);
    secondary.fail(FailingSurface::PixelFormatCall, DDERR_GENERIC);
    screen().attach(display.directDraw, &primary, &secondary, 8);
    EXPECT_NE(output.take().find("8 bits a pixel is not supported"), std::string::npos);
    drawDisplayList();
}

} // namespace
} // namespace kez
