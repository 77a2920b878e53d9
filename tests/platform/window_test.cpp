// SPDX-License-Identifier: MIT
/// Windows and messages without a display.
#include <windows.h>

#include <control.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace {

struct Heard {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;

    friend bool operator==(const Heard&, const Heard&) = default;
};

std::vector<Heard> heard;

LRESULT CALLBACK listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message >= WM_USER || (message >= WM_KEYFIRST && message <= WM_MOUSELAST)
        || message == WM_DESTROY || message == WM_CLOSE)
        heard.push_back({ message, wParam, lParam });
    return message == WM_APP ? 42 : DefWindowProcA(window, message, wParam, lParam);
}

class Windows : public ::testing::Test {
protected:
    Windows()
    {
        heard.clear();
        WNDCLASSA description {};
        description.lpfnWndProc = listen;
        description.lpszClassName = "KezTest";
        EXPECT_NE(RegisterClassA(&description), 0);
        window = make();
    }

    ~Windows() override
    {
        if (IsWindow(window))
            DestroyWindow(window);
        pump();
        EXPECT_TRUE(UnregisterClassA("KezTest", nullptr));
        EXPECT_EQ(kez::winapi::liveObjects().windows, 0);
    }

    static HWND make()
    {
        return CreateWindowExA(
            0, "keztest", "Test", WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
    }

    /// Dispatches what waits; the exit code of a quit message, or −1.
    static int pump()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT)
                return static_cast<int>(message.wParam);
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        return -1;
    }

    HWND window = nullptr;
};

TEST_F(Windows, needAClass)
{
    EXPECT_EQ(CreateWindowExA(0, "Nothing", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr),
        nullptr);
    EXPECT_EQ(GetLastError(), ERROR_CANNOT_FIND_WND_CLASS);
    WNDCLASSA again {};
    again.lpfnWndProc = listen;
    again.lpszClassName = "KEZTEST";
    EXPECT_EQ(RegisterClassA(&again), 0);
    EXPECT_EQ(GetLastError(), ERROR_CLASS_ALREADY_EXISTS);
    EXPECT_FALSE(UnregisterClassA("KezTest", nullptr));
    EXPECT_EQ(GetLastError(), ERROR_CLASS_HAS_WINDOWS);
}

TEST_F(Windows, postedMessagesComeInOrderAndSentOnesAtOnce)
{
    PostMessageA(window, WM_USER, 1, 2);
    PostMessageA(window, WM_USER + 1, 3, 4);
    EXPECT_EQ(SendMessageA(window, WM_APP, 5, 6), 42);
    ASSERT_EQ(heard.size(), 1u);
    pump();
    const std::vector<Heard> expected { { WM_APP, 5, 6 }, { WM_USER, 1, 2 },
        { WM_USER + 1, 3, 4 } };
    EXPECT_EQ(heard, expected);
}

TEST_F(Windows, filtersPassOverOtherMessages)
{
    HWND other = make();
    PostMessageA(window, WM_USER, 0, 0);
    PostMessageA(other, WM_USER + 1, 0, 0);
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, window, WM_USER + 1, WM_USER + 9, PM_REMOVE));
    EXPECT_TRUE(PeekMessageA(&message, other, 0, 0, PM_NOREMOVE));
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_USER + 1, WM_USER + 9, PM_REMOVE));
    EXPECT_EQ(message.hwnd, other);
    PostMessageA(other, WM_USER, 0, 0);
    EXPECT_TRUE(DestroyWindow(other));
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.hwnd, window);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) << "of a window that is gone";
}

TEST_F(Windows, quitComesAfterEverythingPosted)
{
    PostQuitMessage(7);
    PostMessageA(window, WM_USER, 0, 0);
    MSG message;
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_USER));
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7u);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(Windows, closingDestroys)
{
    PostMessageA(window, WM_CLOSE, 0, 0);
    PostMessageA(window, WM_USER, 0, 0);
    pump();
    const std::vector<Heard> expected { { WM_CLOSE, 0, 0 }, { WM_DESTROY, 0, 0 } };
    EXPECT_EQ(heard, expected);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(PostMessageA(window, WM_USER, 0, 0));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_EQ(SendMessageA(window, WM_APP, 0, 0), 0);
}

WNDPROC underneath = nullptr;

LRESULT CALLBACK inFront(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_USER)
        return 1;
    return CallWindowProcA(underneath, window, message, wParam, lParam) + 1;
}

TEST_F(Windows, aProcedureCanStandInFront)
{
    underneath = reinterpret_cast<WNDPROC>(
        SetWindowLongA(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(inFront)));
    EXPECT_EQ(underneath, listen);
    EXPECT_EQ(SendMessageA(window, WM_USER, 0, 0), 1);
    EXPECT_TRUE(heard.empty());
    EXPECT_EQ(SendMessageA(window, WM_APP, 0, 0), 43);
    SetWindowLongA(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(underneath));
    EXPECT_EQ(SendMessageA(window, WM_APP, 0, 0), 42);
    EXPECT_EQ(SetWindowLongA(nullptr, GWL_WNDPROC, 0), 0);
}

TEST_F(Windows, postedKeysBecomeCharacters)
{
    const struct {
        WPARAM key, character;
    } cases[] = { { 'A', 'a' }, { '7', '7' }, { VK_SPACE, ' ' }, { VK_RETURN, '\r' },
        { VK_BACK, 8 }, { VK_TAB, 9 }, { VK_ESCAPE, 27 }, { VK_LEFT, 0 }, { VK_F1, 0 } };

    for (const auto& one : cases) {
        heard.clear();
        PostMessageA(window, WM_KEYDOWN, one.key, 1);
        PostMessageA(window, WM_KEYUP, one.key, 1);
        pump();
        std::vector<Heard> expected { { WM_KEYDOWN, one.key, 1 }, { WM_KEYUP, one.key, 1 } };
        if (one.character != 0)
            expected.insert(expected.begin() + 1, { WM_CHAR, one.character, 1 });
        EXPECT_EQ(heard, expected) << one.key;
    }
}

TEST_F(Windows, stayInvisibleWhereThereIsNoDisplay)
{
    setenv("SDL_VIDEODRIVER", "nosuchdisplay", 1);
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(GetFocus(), nullptr);
    unsetenv("SDL_VIDEODRIVER");
}

} // namespace
