// SPDX-License-Identifier: MIT
/// A window on SDL's own imaginary display: what a person does becomes messages.
#include "display_fixture.h"

#include <SDL.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace kez::test;

struct Heard {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;

    friend bool operator==(const Heard&, const Heard&) = default;
};

std::vector<Heard> heard;
bool hidesCursor = false;

LRESULT CALLBACK listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETCURSOR && hidesCursor) {
        SetCursor(nullptr);
        return TRUE;
    }
    if (message == WM_ACTIVATEAPP || message == WM_CLOSE
        || (message >= WM_KEYFIRST && message <= WM_MOUSELAST))
        heard.push_back({ message, wParam, lParam });
    return message == WM_CLOSE ? 0 : DefWindowProcA(window, message, wParam, lParam);
}

class ShownWindow : public DisplayTest {
protected:
    ShownWindow()
    {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        WNDCLASSA description {};
        description.lpfnWndProc = listen;
        description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        description.lpszClassName = "Shown";
        RegisterClassA(&description);
        window = CreateWindowExA(
            0, "Shown", "", WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
        hidesCursor = false;
        ShowWindow(window, SW_SHOW);
        sdlWindow = SDL_GetWindowFromID(firstId());
        pump();
        heard.clear();
    }

    ~ShownWindow() override
    {
        DestroyWindow(window);
        UnregisterClassA("Shown", nullptr);
        EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0u);
    }

    static Uint32 firstId()
    {
        Uint32 id = 1;
        while (SDL_GetWindowFromID(id) == nullptr && id < 1000)
            ++id;
        return id;
    }

    static void pump()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }

    static void key(SDL_Scancode scancode, SDL_Keycode code, bool down, Uint16 modifiers = 0)
    {
        SDL_Event event {};
        event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
        event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
        event.key.keysym = { scancode, code, modifiers, 0 };
        SDL_PushEvent(&event);
    }

    static void text(const char* utf8)
    {
        SDL_Event event {};
        event.type = SDL_TEXTINPUT;
        SDL_strlcpy(event.text.text, utf8, sizeof event.text.text);
        SDL_PushEvent(&event);
    }

    static void move(int x, int y)
    {
        SDL_Event event {};
        event.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        SDL_PushEvent(&event);
    }

    static void button(int x, int y, bool down)
    {
        SDL_Event event {};
        event.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.button = SDL_BUTTON_LEFT;
        event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
        event.button.x = x;
        event.button.y = y;
        SDL_PushEvent(&event);
    }

    HWND window = nullptr;
    SDL_Window* sdlWindow = nullptr;
};

TEST_F(ShownWindow, mousePositionsArePixelsOfThePicture)
{
    SDL_SetWindowSize(sdlWindow, 1920, 960); // Twice as large, 320 black columns on each side.
    move(320, 0);
    move(320 + 2 * 200 + 1, 2 * 100); // Only the last of movements that wait is heard.
    button(320 + 2 * 200, 2 * 100, true);
    button(5, 5000, false);
    pump();
    const std::vector<Heard> expected { { WM_MOUSEMOVE, 0, MAKELPARAM(200, 100) },
        { WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(200, 100) },
        { WM_LBUTTONUP, 0, MAKELPARAM(0, 479) } };
    EXPECT_EQ(heard, expected);
    POINT position {};
    GetCursorPos(&position);
    EXPECT_EQ(position.x, 0);
    EXPECT_EQ(position.y, 479);
}

TEST_F(ShownWindow, keysComeWithTheirCharacters)
{
    key(SDL_SCANCODE_Q, SDLK_a, true); // An "A" on a French keyboard.
    text("\xC3\xA4\xE2\x82\xAC\xE4\xBA\xBA"); // An umlaut, a euro sign, and what has no ANSI code.
    key(SDL_SCANCODE_Q, SDLK_a, false);
    key(SDL_SCANCODE_RETURN, SDLK_RETURN, true);
    pump();
    std::vector<UINT> messages;
    std::vector<WPARAM> values;
    for (const Heard& one : heard) {
        messages.push_back(one.message);
        values.push_back(one.wParam);
    }
    EXPECT_EQ(messages,
        (std::vector<UINT> {
            WM_KEYDOWN, WM_CHAR, WM_CHAR, WM_CHAR, WM_KEYUP, WM_KEYDOWN, WM_CHAR }));
    EXPECT_EQ(values, (std::vector<WPARAM> { 'A', 0xE4, 0x80, '?', 'A', VK_RETURN, '\r' }));
}

TEST_F(ShownWindow, keyStatesFollowTheMessages)
{
    key(SDL_SCANCODE_LSHIFT, SDLK_LSHIFT, true);
    EXPECT_NE(GetAsyncKeyState(VK_SHIFT) & 0x8000, 0);
    EXPECT_EQ(GetKeyState(VK_SHIFT) & 0x8000, 0) << "its message has not been taken yet";
    pump();
    EXPECT_NE(GetKeyState(VK_SHIFT) & 0x8000, 0);
    key(SDL_SCANCODE_LSHIFT, SDLK_LSHIFT, false);
    pump();
    EXPECT_EQ(GetKeyState(VK_SHIFT) & 0x8000, 0);
}

TEST_F(ShownWindow, altMakesSystemKeysAndF11IsTheWindowsOwn)
{
    key(SDL_SCANCODE_F11, SDLK_F11, true);
    key(SDL_SCANCODE_F11, SDLK_F11, false);
    key(SDL_SCANCODE_F4, SDLK_F4, true, KMOD_LALT);
    pump();
    ASSERT_EQ(heard.size(), 2u);
    EXPECT_EQ(heard[0].message, static_cast<UINT>(WM_SYSKEYDOWN));
    EXPECT_EQ(heard[1].message, static_cast<UINT>(WM_CLOSE));
    EXPECT_NE(SDL_GetWindowFlags(sdlWindow) & SDL_WINDOW_FULLSCREEN_DESKTOP, 0u);
    key(SDL_SCANCODE_F11, SDLK_F11, true);
    pump();
    EXPECT_EQ(SDL_GetWindowFlags(sdlWindow) & SDL_WINDOW_FULLSCREEN_DESKTOP, 0u);
}

TEST_F(ShownWindow, moveAsksForTheCursor)
{
    move(1, 1);
    pump();
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
    hidesCursor = true;
    move(2, 2);
    pump();
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
    hidesCursor = false;
    PostMessageA(window, WM_MOUSEMOVE, 0, 0); // A program's own message does not ask.
    pump();
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
    move(3, 3);
    pump();
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
}

TEST_F(ShownWindow, losesTheKeyboardAndIsClosed)
{
    SDL_Event event {};
    event.type = SDL_WINDOWEVENT;
    event.window.event = SDL_WINDOWEVENT_FOCUS_LOST;
    SDL_PushEvent(&event);
    pump();
    EXPECT_EQ(GetFocus(), nullptr);
    event.window.event = SDL_WINDOWEVENT_FOCUS_GAINED;
    SDL_PushEvent(&event);
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    pump();
    const std::vector<Heard> expected { { WM_ACTIVATEAPP, FALSE, 0 }, { WM_ACTIVATEAPP, TRUE, 0 },
        { WM_CLOSE, 0, 0 } };
    EXPECT_EQ(heard, expected);
    EXPECT_TRUE(IsWindow(window));
}

void fill(IDirectDrawSurface* surface, DWORD value)
{
    const Locked locked(surface);
    for (int i = 0; i < 640 * 480; ++i)
        locked.setPixel(i % 640, i / 640, value);
}

TEST_F(ShownWindow, showsThePrimarySurface)
{
    ASSERT_EQ(directDraw->SetDisplayMode(640, 480, 16), DD_OK);
    IDirectDrawSurface* primary = makePrimary();
    fill(primary, 0x07E0);
    SDL_SetWindowSize(sdlWindow, 1300, 960);
    fill(primary, 0xF800);
    pump();
    SDL_Renderer* renderer = SDL_GetRenderer(sdlWindow);

    const struct {
        int x, y;
        DWORD colour;
    } cases[] = { { 5, 480, 0 }, { 11, 1, 0xFF0000 }, { 1288, 958, 0xFF0000 }, { 1295, 5, 0 } };

    for (const auto& one : cases) {
        const SDL_Rect pixel { one.x, one.y, 1, 1 };
        DWORD seen = 0;
        ASSERT_EQ(SDL_RenderReadPixels(renderer, &pixel, SDL_PIXELFORMAT_RGB888, &seen, 4), 0);
        EXPECT_EQ(seen & 0xFFFFFF, one.colour) << one.x;
    }
    primary->Release();
}

} // namespace
