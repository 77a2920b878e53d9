// SPDX-License-Identifier: MIT
// A run, from `Kez::run` to the `Kez::process` that ends it.
#include "activity/camera_screen.h"
#include "activity/hand_over.h"
#include "display/canvas.h"
#include "display/view.h"
#include "host/kez.h"
#include "host/pacing.h"
#include "input/events.h"
#include "input/input_services.h"
#include "platform/temporary_folder.h"
#include "support/failing_surface.h"
#include "support/running_host.h"

#include <windows.h>

#include <mmsystem.h>

#include <gtest/gtest.h>

#include <vector>

namespace kez {
namespace {

using test::FailingSurface;
using test::handedImage;
using test::handedName;

TEST(Pacing, isSignedAndTruncated)
{
    struct Case {
        std::uint32_t rate;
        int delay;
    };

    for (const Case& c : { Case { 0, 100 }, Case { 10, 0 }, Case { 20, 50 }, Case { 5, -100 },
             Case { 1, -900 }, Case { 30, 67 }, Case { 11, 10 }, Case { 1000, 99 } })
        EXPECT_EQ(frameDelayMs(c.rate), c.delay) << c.rate;
}

/// Something to see: the whole picture in one colour, in front of the activity.
class Flag : public Graphic {
public:
    Flag()
        : Graphic({}, true, black)
    {
        view_.add(*this);
        view_.attach();
    }

    bool drawsPixels() const override { return true; }

    void draw() override
    {
        const CanvasPixels canvas = targetPixels();
        std::fill_n(canvas.pixels, canvas.width * canvas.height, 0x00FF8040u);
    }

private:
    View view_ { 0, 0, -1000, 0, 0, true, false };
};

class KezRunTest : public test::RunningHost {
protected:
    static std::uint32_t processTime()
    {
        const std::uint32_t before = timeGetTime();
        EXPECT_TRUE(Kez::process());
        return timeGetTime() - before;
    }
};

TEST_F(KezRunTest, lastsUntilThePictureIsHandedBack)
{
    start();
    EXPECT_FALSE(suspended);
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(Kez::process());
        EXPECT_FALSE(Kez::exit);
    }
    EXPECT_EQ(currentScene(), &cameraScreen());
    const unsigned char pixels[6] = { 1, 2, 3, 4, 5, 6 };
    finishWithImage("Photo  1", pixels, 2, 1);
    const std::uint32_t lastFrame = frameTime;
    Sleep(10);
    EXPECT_TRUE(Kez::process());
    EXPECT_TRUE(Kez::exit);
    EXPECT_GT(frameTime, lastFrame); // one last frame
    EXPECT_TRUE(suspended);
    ASSERT_NE(handedImage(), nullptr);
    EXPECT_EQ(handedImage()[5], 6);
    EXPECT_FALSE(Kez::process());
    EXPECT_FALSE(Kez::exit);
    EXPECT_NE(handedImage(), nullptr);
}

TEST_F(KezRunTest, beginsAnewEachTime)
{
    start();
    Kez::process();
    const int entries = cameraScreen().entries();
    const unsigned char pixels[3] = {};
    finishWithImage("apple", pixels, 1, 1);
    Kez::process();
    diskUsed = 999;
    introduced = true;
    cameraScreen().detach();

    Kez::run(Kez::camera, 4321, false, true);
    EXPECT_TRUE(freshRun && running && guideIntro && introduced);
    EXPECT_EQ(diskBudget, 4321);
    EXPECT_EQ(diskUsed, 0);
    EXPECT_FALSE(Kez::exit);
    EXPECT_EQ(handedImage(), nullptr);
    EXPECT_STREQ(handedName(), "apple"); // keeps its last value
    EXPECT_EQ(Kez::imageWidth, 1);
    EXPECT_TRUE(cameraScreen().isRegistered()); // left and entered at once
    EXPECT_EQ(pendingScene(), nullptr);
    Kez::process();
    EXPECT_EQ(cameraScreen().entries(), entries);
}

TEST_F(KezRunTest, beginsWithWhereTheMouseIs)
{
    initialize();
    Kez::open();
    SetCursorPos(100, 90);
    MouseService mouse;
    mouse.setClient(&mouse);
    mouse.attach();
    mouseDown = true;
    Kez::run(Kez::camera, 0, false, false);
    EXPECT_EQ(mouseX, 100 - 320);
    EXPECT_EQ(mouseY, 90 - 240);
    EXPECT_TRUE(mouseMove);
    EXPECT_FALSE(mouseDown);
}

TEST_F(KezRunTest, pacesItself)
{
    start();
    EXPECT_EQ(processTime(), 100u);
    framesPerSecond = 20;
    EXPECT_EQ(processTime(), 50u);
    framesPerSecond = 10;
    EXPECT_EQ(processTime(), 0u);
    framesPerSecond = 5;
    EXPECT_EQ(processTime(), 0u);
    finishWithImage(nullptr, nullptr, 0, 0);
    framesPerSecond = 20;
    EXPECT_EQ(processTime(), 0u); // the last call does not wait
}

TEST_F(KezRunTest, endsEvenWhenTheModuleWasClosedMeanwhile)
{
    start();
    Kez::process();
    finishWithImage(nullptr, nullptr, 0, 0);
    Kez::close();
    const std::uint32_t lastFrame = frameTime;
    Sleep(10);
    EXPECT_TRUE(Kez::process());
    EXPECT_TRUE(Kez::exit);
    EXPECT_EQ(frameTime, lastFrame); // but without a frame
}

TEST_F(KezRunTest, survivesEverySurfaceThatFails)
{
    FailingSurface primary(display.primary);
    FailingSurface secondary(display.secondary);
    initialize(&primary, &secondary, 32);
    Kez::open();
    Kez::run(Kez::camera, 0, false, false);
    for (int round = 0; round < 3; ++round) {
        const HRESULT codes[] = { DDERR_SURFACELOST, DDERR_SURFACEBUSY, DDERR_GENERIC };
        for (int call = 0; call < FailingSurface::Calls; ++call) {
            primary.fail(static_cast<FailingSurface::Call>(call), codes[round]);
            secondary.fail(static_cast<FailingSurface::Call>(call), codes[round]);
        }
        EXPECT_TRUE(Kez::process());
    }
    for (int call = 0; call < FailingSurface::Calls; ++call) {
        primary.fail(static_cast<FailingSurface::Call>(call), DD_OK, 0);
        secondary.fail(static_cast<FailingSurface::Call>(call), DD_OK, 0);
    }
    const Flag flag;
    EXPECT_TRUE(Kez::process());
    EXPECT_EQ(test::pixelAt(*display.primary, 9, 9) & 0xFFFFFF, 0xFF8040u);
    EXPECT_EQ(secondary.locksHeld(), 0);
    EXPECT_EQ(secondary.contextsHeld(), 0);
}

class KezDepthTest : public test::EngineFixture { };

TEST_F(KezDepthTest, showsItsFramesAtEveryDepth)
{
    const Flag flag;
    const test::HostWindow window;
    const test::TemporaryFolder folder;
    for (const int bits : { 16, 24, 32 }) {
        test::Display display(bits);
        Kez::initialize(window.handle(), nullptr, display.directDraw, display.primary,
            display.secondary, bits, folder.path().c_str(), 0, 0, 0, 0);
        Kez::open();
        Kez::run(Kez::camera, 0, false, false);
        Kez::process();
        EXPECT_EQ(
            test::pixelAt(*display.primary, 639, 479) & 0xFFFFFF, bits == 16 ? 0xFC08u : 0xFF8040u);
        Kez::close();
        screen().detach();
    }
}

} // namespace
} // namespace kez
