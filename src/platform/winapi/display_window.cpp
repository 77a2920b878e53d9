// SPDX-License-Identifier: MIT
#include "display_window.h"

#include "ansi_text.h"
#include "display_input.h"
#include "display_mode.h"
#include "input_state.h"
#include "message_queue.h"
#include "shown_picture.h"
#include "surface.h"
#include "winbase.h"
#include "window.h"

#include <SDL.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace kez::winapi {

namespace {

struct WindowDestroyer {
    void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
};

struct RendererDestroyer {
    void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
};

struct CursorFreer {
    void operator()(SDL_Cursor* cursor) const { SDL_FreeCursor(cursor); }
};

/// SDL's objects for the window that is on the display; they go in the opposite order.
struct Shown {
    HWND handle;
    std::unique_ptr<SDL_Window, WindowDestroyer> window;
    std::unique_ptr<SDL_Renderer, RendererDestroyer> renderer;
    std::unique_ptr<ShownPicture> picture;
    std::unique_ptr<SDL_Cursor, CursorFreer> cursor;

    [[nodiscard]] SIZE size() const
    {
        SIZE size {};
        SDL_GetWindowSize(window.get(), &size.cx, &size.cy);
        return size;
    }

    void draw() { picture->draw(size()); }
};

std::unique_ptr<Shown>& shown()
{
    static auto& only = *new std::unique_ptr<Shown>;
    return only;
}

bool wantsFullScreen = false;

// The largest whole magnification that leaves room for the desktop's own things.
SIZE firstSize(const Window& window)
{
    SDL_Rect room {};
    if (window.width <= 0 || window.height <= 0)
        return { 640, 480 };
    if (SDL_GetDisplayUsableBounds(0, &room) != 0)
        return { window.width, window.height };
    const int factor = std::max(1, std::min(room.w / window.width, room.h / window.height));
    return { window.width * factor, window.height * factor };
}

// SDL may fall back on a display that nobody can see; that is one only for those who asked for it.
bool isImaginary(std::string_view driver)
{
    return driver == "offscreen" && SDL_GetHint(SDL_HINT_VIDEODRIVER) == nullptr;
}

bool startVideo()
{
    SDL_SetMainReady();
    // Drawing in memory: no graphics driver to load, and a still picture costs nothing.
    SDL_SetHintWithPriority(SDL_HINT_RENDER_DRIVER, "software", SDL_HINT_DEFAULT);
    SDL_SetHintWithPriority(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0", SDL_HINT_DEFAULT);
    SDL_SetHintWithPriority(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0", SDL_HINT_DEFAULT);
    SDL_SetHintWithPriority(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1", SDL_HINT_DEFAULT);
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
        return false;
    if (isImaginary(SDL_GetCurrentVideoDriver())) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        SDL_SetError("there is no display");
        return false;
    }
    SDL_EnableScreenSaver();
    return true;
}

bool open(Shown& made, const Window& window)
{
    const SIZE size = firstSize(window);
    const Uint32 flags
        = SDL_WINDOW_RESIZABLE | (wantsFullScreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
    made.window.reset(SDL_CreateWindow(utf8Of(window.title).c_str(), SDL_WINDOWPOS_CENTERED,
        SDL_WINDOWPOS_CENTERED, size.cx, size.cy, flags));
    if (made.window == nullptr)
        return false;
    SDL_SetWindowMinimumSize(made.window.get(), window.width / 2, window.height / 2);
    made.renderer.reset(SDL_CreateRenderer(made.window.get(), -1, 0));
    if (made.renderer == nullptr)
        return false;
    made.picture = std::make_unique<ShownPicture>(made.renderer.get());
    return true;
}

bool refuse(const char* reason)
{
    OutputDebugStringA("The window cannot be shown: ");
    OutputDebugStringA(reason);
    OutputDebugStringA("\n");
    return false;
}

SDL_SystemCursor systemCursor(HCURSOR shape)
{
    const auto name = reinterpret_cast<LPCSTR>(shape);
    return name == IDC_WAIT ? SDL_SYSTEM_CURSOR_WAIT
        : name == IDC_HAND  ? SDL_SYSTEM_CURSOR_HAND
                            : SDL_SYSTEM_CURSOR_ARROW;
}

} // namespace

bool showOnDisplay(HWND handle, const Window& window)
{
    if (shown() != nullptr)
        return refuse("another one is on the display");
    if (!startVideo())
        return refuse(SDL_GetError());
    auto made = std::make_unique<Shown>();
    made->handle = handle;
    if (!open(*made, window)) {
        const std::string reason = SDL_GetError();
        made.reset();
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        return refuse(reason.c_str());
    }
    shown() = std::move(made);
    SDL_StartTextInput();
    cursorOnDisplay();
    showPicture();
    shown()->draw();
    return true;
}

void hideOnDisplay(HWND handle)
{
    if (shown() == nullptr || shown()->handle != handle)
        return;
    shown().reset();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void titleOnDisplay(HWND handle, const std::string& title)
{
    if (shown() != nullptr && shown()->handle == handle)
        SDL_SetWindowTitle(shown()->window.get(), utf8Of(title).c_str());
}

void raiseOnDisplay(HWND handle)
{
    if (shown() != nullptr && shown()->handle == handle)
        SDL_RaiseWindow(shown()->window.get());
}

void warpOnDisplay(POINT position)
{
    if (shown() == nullptr || !inputState().active)
        return;
    const POINT point = displayFit(shown()->size()).toWindow(position);
    SDL_WarpMouseInWindow(shown()->window.get(), point.x, point.y);
}

void cursorOnDisplay()
{
    if (shown() == nullptr)
        return;
    const InputState& state = inputState();
    SDL_ShowCursor(state.cursorShown() ? SDL_ENABLE : SDL_DISABLE);
    if (!state.cursorShown())
        return;
    std::unique_ptr<SDL_Cursor, CursorFreer> cursor(
        SDL_CreateSystemCursor(systemCursor(state.shape)));
    SDL_SetCursor(cursor.get());
    shown()->cursor = std::move(cursor);
}

void setFullScreen(bool fullScreen)
{
    wantsFullScreen = fullScreen;
    if (shown() != nullptr)
        SDL_SetWindowFullscreen(
            shown()->window.get(), fullScreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
}

void showPicture()
{
    if (shown() == nullptr || display().primary == nullptr)
        return;
    if (shown()->picture->update(display().primary->view()))
        shown()->draw();
}

void pumpDisplay()
{
    SDL_Event event;
    while (shown() != nullptr && SDL_PollEvent(&event) != 0) {
        switch (translateEvent(shown()->handle, event, shown()->size())) {
        case DisplayAction::None:
            break;
        case DisplayAction::Redraw:
            shown()->draw();
            break;
        case DisplayAction::ToggleFullScreen:
            setFullScreen(!wantsFullScreen);
            break;
        case DisplayAction::Activate:
            setActive(shown()->handle, true);
            break;
        case DisplayAction::Deactivate:
            setActive(shown()->handle, false);
            break;
        }
    }
}

bool showBox(const char* title, const char* text, UINT type)
{
    if (shown() == nullptr)
        return false;
    constexpr UINT icons = 0xF0;
    const Uint32 flags = (type & icons) == MB_ICONERROR ? SDL_MESSAGEBOX_ERROR
        : (type & icons) == MB_ICONWARNING              ? SDL_MESSAGEBOX_WARNING
                                                        : SDL_MESSAGEBOX_INFORMATION;
    return SDL_ShowSimpleMessageBox(
               flags, utf8Of(title).c_str(), utf8Of(text).c_str(), shown()->window.get())
        == 0;
}

} // namespace kez::winapi
