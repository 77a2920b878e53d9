// SPDX-License-Identifier: MIT
// What each entry point does by itself, and what they do out of order.
#include "activity/camera_screen.h"
#include "activity/hand_over.h"
#include "activity/picture_names.h"
#include "host/kez.h"
#include "input/events.h"
#include "input/input_services.h"
#include "support/failing_surface.h"
#include "support/running_host.h"

#include <gtest/gtest.h>

#include <string>

namespace kez {
namespace {

using test::HostWindow;

class KezCallsTest : public test::RunningHost {
protected:
    bool reported(const std::string& text) { return output.take().find(text) != std::string::npos; }
};

TEST_F(KezCallsTest, initializeTakesTheHostsThings)
{
    initialize();
    EXPECT_EQ(screen().primary(), display.primary);
    EXPECT_EQ(screen().secondary(), display.secondary);
    EXPECT_EQ(color1, 1u);
    EXPECT_EQ(color4, 4u);
    EXPECT_EQ(makePath(nullptr, "a", "cam"), "pictures\\a.cam");
    ASSERT_NE(archive(), nullptr);
    EXPECT_EQ(archive()->count(), 0);
    EXPECT_FALSE(opened);
    EXPECT_EQ(output.text(), "");
}

TEST_F(KezCallsTest, openHooksTheWindowAndWaits)
{
    initialize();
    Kez::open();
    EXPECT_TRUE(opened);
    EXPECT_TRUE(suspended);
    window.send(WM_SETCURSOR, 0, 0);
    EXPECT_FALSE(HostWindow::tookMessage(WM_SETCURSOR));
    EXPECT_FALSE(Kez::process());
}

TEST_F(KezCallsTest, closeGivesTheWindowBackAndTellsWhereTheMouseIs)
{
    start();
    Kez::process();
    ASSERT_NE(currentScene(), nullptr);
    SetCursorPos(123, 45);
    HostWindow::deliver(WM_MOUSEMOVE);
    Kez::close();
    EXPECT_FALSE(opened);
    EXPECT_EQ(currentScene(), nullptr);
    EXPECT_FALSE(cameraScreen().isRegistered());
    EXPECT_EQ(archive()->count(), 0);
    const MSG moved = HostWindow::deliver(WM_MOUSEMOVE);
    EXPECT_EQ(moved.lParam, MAKELPARAM(123, 45));
    EXPECT_TRUE(HostWindow::tookMessage(WM_MOUSEMOVE));

    Kez::close();
    EXPECT_EQ(HostWindow::deliver(WM_MOUSEMOVE).message, 0u);
}

TEST_F(KezCallsTest, opensAgainAfterClose)
{
    start();
    Kez::process();
    Kez::close();
    Kez::open();
    Kez::run(Kez::camera, 0, false, false);
    EXPECT_TRUE(Kez::process());
    EXPECT_EQ(currentScene(), &cameraScreen());
}

TEST_F(KezCallsTest, releaseClosesAndLetsTheHostsObjectsBe)
{
    start();
    Kez::process();
    Kez::release();
    EXPECT_FALSE(opened);
    EXPECT_EQ(archive(), nullptr);
    EXPECT_EQ(screen().primary(), nullptr);
    EXPECT_TRUE(quitting && shuttingDown);
    EXPECT_EQ(display.primary->IsLost(), DD_OK);
    EXPECT_FALSE(Kez::process());
    output.take();
    Kez::release();
    EXPECT_TRUE(reported("released already"));
    initialize();
    EXPECT_TRUE(reported("was released"));
    EXPECT_EQ(archive(), nullptr);
    Kez::open();
    EXPECT_TRUE(reported("not initialised"));
}

TEST_F(KezCallsTest, callsBeforeTheirTimeAreReportedAndDoNothing)
{
    Kez::close();
    EXPECT_FALSE(Kez::process());
    EXPECT_EQ(output.text(), "");
    Kez::open();
    EXPECT_TRUE(reported("Kez::open"));
    Kez::run(Kez::camera, 0, false, false);
    EXPECT_TRUE(reported("Kez::run"));
    EXPECT_FALSE(Kez::process());
    initialize();
    Kez::run(Kez::camera, 0, false, false);
    EXPECT_TRUE(reported("Kez::run"));
    Kez::open();
    output.take();
    Kez::open();
    EXPECT_TRUE(reported("open already"));
}

TEST_F(KezCallsTest, aReleaseWithoutAnythingElseIsHarmless)
{
    Kez::release();
    EXPECT_TRUE(quitting);
}

TEST_F(KezCallsTest, initializedTwiceItTakesTheNewObjects)
{
    start();
    Kez::process();
    test::FailingSurface other(display.primary);
    initialize(&other, display.secondary, 32);
    EXPECT_TRUE(reported("called again"));
    EXPECT_FALSE(opened);
    EXPECT_EQ(screen().primary(), &other);
}

TEST_F(KezCallsTest, runsOnNothingAtAll)
{
    Kez::initialize(nullptr, nullptr, nullptr, nullptr, nullptr, -99, nullptr, 0, 0, 0, 0);
    EXPECT_TRUE(reported("no window"));
    EXPECT_EQ(makePath(nullptr, "a", "cam"), "a.cam");
    Kez::open();
    Kez::run(Kez::book, -5, true, true);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(Kez::process());
    finishWithImage(nullptr, nullptr, 0, 0);
    EXPECT_TRUE(Kez::process());
    EXPECT_TRUE(Kez::exit);
    Kez::release();
}

TEST_F(KezCallsTest, buildsColours)
{
    EXPECT_EQ(Kez::RGBA(255, 0, 0, 255), 0xFFFF0000u);
    EXPECT_EQ(Kez::RGBA(0, 0, 255, 0), 0x000000FFu);
    EXPECT_EQ(Kez::RGBA(1, 2, 3, 4), 0x04010203u);
    EXPECT_EQ(Kez::RGBA(0, 0x100, 0, 0), 0x00010000u); // not masked
}

} // namespace
} // namespace kez
