// SPDX-License-Identifier: MIT
#include "display/canvas.h"

#include "display/graphic.h"
#include "display/screen.h"
#include "support/debug_output.h"
#include "support/display.h"
#include "support/failing_surface.h"

#include <gtest/gtest.h>

#include <vector>

namespace kez {
namespace {

using test::FailingSurface;

void fillPixel(HDC context, COLORREF colour)
{
    const RECT pixel = { 0, 0, 1, 1 };
    HBRUSH brush = CreateSolidBrush(colour);
    FillRect(context, &pixel, brush);
    DeleteObject(brush);
}

class Item : public Graphic {
public:
    explicit Item(bool ownPixels)
        : Graphic({}, true, black)
        , writesPixels(ownPixels)
    {
    }

    bool drawsPixels() const override { return writesPixels; }

    void draw() override
    {
        ++draws;
        const CanvasPixels canvas = targetPixels();
        EXPECT_EQ(canvas.pixels != nullptr, writesPixels);
        EXPECT_EQ(targetDeviceContext() != nullptr, !writesPixels);
        if (canvas.pixels != nullptr)
            canvas.pixels[0] = 0x00123456;
        else
            fillPixel(targetDeviceContext(), RGB(255, 128, 0));
    }

    bool writesPixels;
    int draws = 0;
};

class CanvasTest : public testing::Test {
protected:
    CanvasTest()
    {
        screen().attach(display.directDraw, display.primary, &surface, 32);
        pixelMode = true;
        surface.forgetCalls();
    }

    ~CanvasTest() override
    {
        EXPECT_EQ(surface.locksHeld(), 0);
        EXPECT_EQ(surface.contextsHeld(), 0);
        screen().detach();
    }

    /// Draws a frame of items; true for one that writes pixels. Returns how often the canvas was
    /// opened.
    int openingsFor(std::initializer_list<bool> kinds)
    {
        surface.forgetCalls();
        openTarget();
        for (const bool kind : kinds)
            drawItem(kind ? pixelItem : contextItem);
        closeTarget();
        return surface.calls(FailingSurface::LockCall) + surface.calls(FailingSurface::GetDCCall);
    }

    test::Display display { 32 };
    FailingSurface surface { display.secondary };
    Item pixelItem { true };
    Item contextItem { false };
};

TEST_F(CanvasTest, changesModesOnlyBetweenItemsThatDiffer)
{
    EXPECT_EQ(openingsFor({ true, false, true, false }), 4);
    EXPECT_EQ(openingsFor({ true, true, false, false }), 3); // left open for GDI by the last frame
    EXPECT_EQ(openingsFor({ false, false, false }), 1);
    EXPECT_EQ(openingsFor({}), 1);
    pixelItem.visible = false;
    EXPECT_EQ(openingsFor({ true, false }), 1);
    EXPECT_EQ(pixelItem.draws, 4);
}

TEST_F(CanvasTest, drawsNothingWhenItCannotOpen)
{
    test::DebugOutput output;
    surface.fail(FailingSurface::LockCall, DDERR_SURFACEBUSY);
    EXPECT_EQ(openingsFor({ true, false }), 2);
    EXPECT_EQ(pixelItem.draws, 0);
    EXPECT_EQ(contextItem.draws, 1);
    EXPECT_EQ(output.take(), "\nScreen thread locked by another process.\n");
    surface.fail(FailingSurface::LockCall, DD_OK, 0);
    surface.fail(FailingSurface::GetDCCall, DDERR_CANTCREATEDC);
    openingsFor({ false, true });
    EXPECT_EQ(pixelItem.draws, 1);
    EXPECT_EQ(contextItem.draws, 1);
}

TEST_F(CanvasTest, restoresALostSurfaceAndGoesOn)
{
    surface.lose();
    EXPECT_EQ(openingsFor({ true }), 2);
    EXPECT_EQ(pixelItem.draws, 1);
    EXPECT_EQ(surface.calls(FailingSurface::RestoreCall), 1);
    surface.lose();
    openingsFor({ false });
    EXPECT_EQ(contextItem.draws, 1);
}

TEST_F(CanvasTest, givesUpASurfaceThatStaysLost)
{
    test::DebugOutput output;
    surface.lose();
    surface.fail(FailingSurface::RestoreCall, DDERR_WRONGMODE);
    EXPECT_LT(openingsFor({ true }), 100);
    EXPECT_EQ(pixelItem.draws, 0);
    EXPECT_NE(output.take().find("stays lost"), std::string::npos);
    surface.fail(FailingSurface::RestoreCall, DD_OK, 0);
    openingsFor({ true });
    EXPECT_EQ(pixelItem.draws, 1);
}

TEST_F(CanvasTest, refusesRowsWithGaps)
{
    test::DebugOutput output;
    std::vector<CanvasPixel> memory(700 * 480);
    surface.lendMemory(memory.data(), 700 * 4);
    openingsFor({ true });
    openingsFor({ true });
    EXPECT_EQ(pixelItem.draws, 0);
    EXPECT_EQ(output.text(),
        "\nThe canvas has rows of 2800 bytes for 640 pixels; nothing can be drawn into it.\n");
}

TEST_F(CanvasTest, aMemoryCanvasStandsInForTheSurface)
{
    std::vector<CanvasPixel> memory(12);
    {
        const MemoryCanvas canvas(memory.data(), 4, 3);
        EXPECT_EQ(targetPixels().width, 4);
        drawItem(pixelItem);
        drawItem(contextItem); // has nothing to draw on
        drawItem(pixelItem);
    }
    EXPECT_EQ(memory[0], 0x00123456u);
    EXPECT_EQ(pixelItem.draws, 2);
    EXPECT_EQ(contextItem.draws, 0);
    EXPECT_TRUE(pixelMode);
    EXPECT_EQ(targetSurface(), &surface);
    EXPECT_EQ(surface.calls(FailingSurface::LockCall), 0);
}

} // namespace
} // namespace kez
