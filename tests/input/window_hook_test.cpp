// SPDX-License-Identifier: MIT
#include "input/window_hook.h"

#include "core/flags.h"
#include "display/cursor.h"
#include "display/graphic.h"
#include "input/events.h"
#include "input/input_services.h"
#include "support/debug_output.h"
#include "support/host_window.h"

#include <gtest/gtest.h>

namespace kez {
namespace {

using test::HostWindow;

class Ear : public Service {
public:
    List& registry() override { return none; }

    void serviceFired(Service& /*service*/) override { ++events; }

    static inline List none;
    int events = 0;
};

class WindowHookTest : public testing::Test {
protected:
    WindowHookTest()
    {
        mouse.setClient(&ear);
        key.setClient(&ear);
        mouse.attach();
        key.attach();
        installHook(window.handle());
    }

    ~WindowHookTest() override
    {
        removeHook();
        suspended = false;
    }

    int eventsOf(UINT message, WPARAM wParam, LPARAM lParam)
    {
        ear.events = 0;
        window.send(message, wParam, lParam);
        return ear.events;
    }

    HostWindow window;
    Ear ear;
    MouseService mouse;
    KeyService key;
};

TEST_F(WindowHookTest, hidesTheSystemCursorAndPassesTheRestOn)
{
    HostWindow::tookMessage(0);
    EXPECT_EQ(window.send(WM_SETCURSOR, 0, HTCLIENT), TRUE);
    EXPECT_FALSE(HostWindow::tookMessage(WM_SETCURSOR));
    EXPECT_EQ(window.send(HostWindow::ownMessage, 0, 0), HostWindow::answer);
    for (const UINT message : std::initializer_list<UINT> { WM_KEYDOWN, WM_KEYUP, WM_CHAR,
             WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_ACTIVATEAPP }) {
        window.send(message, 0, 0);
        EXPECT_TRUE(HostWindow::tookMessage(message)) << message;
    }
}

TEST_F(WindowHookTest, messagesBecomeEventsInStageCoordinates)
{
    EXPECT_EQ(eventsOf(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(320, 240)), 1);
    EXPECT_TRUE(mouseDown);
    EXPECT_EQ(mouseX, 0);
    EXPECT_EQ(mouseY, 0);
    EXPECT_EQ(eventsOf(WM_MOUSEMOVE, 0, MAKELPARAM(-3, 479)), 1); // captured, left of the window
    EXPECT_TRUE(mouseMove);
    EXPECT_EQ(mouseX, -323);
    EXPECT_EQ(mouseY, 239);
    EXPECT_EQ(eventsOf(WM_LBUTTONUP, 0, MAKELPARAM(0, 0)), 1);
    EXPECT_FALSE(mouseDown || mouseMove);
    EXPECT_EQ(eventsOf(WM_KEYDOWN, VK_RETURN, 1), 1);
    EXPECT_TRUE(keyDown);
    EXPECT_EQ(keyCode, static_cast<std::uint32_t>(VK_RETURN));
    EXPECT_EQ(eventsOf(WM_CHAR, 'x', 1), 1);
    EXPECT_TRUE(keyChar);
    EXPECT_EQ(eventsOf(WM_KEYUP, VK_RETURN, 1), 1);
    EXPECT_FALSE(keyDown || keyChar);
    EXPECT_EQ(eventsOf(WM_RBUTTONDOWN, 0, 0), 0);
}

TEST_F(WindowHookTest, aSuspendedModuleHearsNothing)
{
    suspended = true;
    EXPECT_EQ(eventsOf(WM_MOUSEMOVE, 0, 0), 0);
    EXPECT_EQ(eventsOf(WM_KEYDOWN, 'A', 0), 0);
    EXPECT_TRUE(HostWindow::tookMessage(WM_KEYDOWN));
}

TEST_F(WindowHookTest, givesTheWindowBack)
{
    removeHook();
    removeHook();
    EXPECT_EQ(eventsOf(WM_MOUSEMOVE, 0, 0), 0);
    window.send(WM_SETCURSOR, 0, 0);
    EXPECT_TRUE(HostWindow::tookMessage(WM_SETCURSOR));
}

TEST_F(WindowHookTest, installedTwiceItHooksOnce)
{
    installHook(window.handle());
    EXPECT_EQ(eventsOf(WM_MOUSEMOVE, 0, 0), 1);
    removeHook();
    EXPECT_EQ(eventsOf(WM_MOUSEMOVE, 0, 0), 0);
}

TEST_F(WindowHookTest, reportsAWindowThatItCannotHook)
{
    test::DebugOutput output;
    installHook(nullptr);
    EXPECT_NE(output.take().find("no window"), std::string::npos);
    HWND gone = nullptr;
    {
        gone = CreateWindowExA(
            0, "KezTestHost", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
        DestroyWindow(gone);
    }
    installHook(gone);
    EXPECT_NE(output.take().find("cannot be hooked"), std::string::npos);
    removeHook();
}

TEST_F(WindowHookTest, theCursorObjectFollowsTheMouse)
{
    class Pointer : public Graphic {
    public:
        Pointer()
            : Graphic({}, true, black)
        {
        }
    } pointer;

    cursorObject = &pointer;
    hotSpot = { -15, -15 };
    SetCursorPos(100, 100);
    const StagePoint point = updateCursor();
    cursorObject = nullptr;
    hotSpot = {};
    EXPECT_EQ(point.x, -220);
    EXPECT_EQ(point.y, -140);
    EXPECT_EQ(pointer.x, -205);
    EXPECT_EQ(pointer.y, -125);
}

} // namespace
} // namespace kez
