// SPDX-License-Identifier: MIT
#include "display_input.h"

#include "ansi_text.h"
#include "display_mode.h"
#include "input_state.h"
#include "message_queue.h"

#include <SDL.h>

#include <algorithm>

namespace kez::winapi {

namespace {

constexpr LPARAM wasDown = LPARAM { 1 } << 30;
constexpr LPARAM isReleased = LPARAM { 1 } << 31;
constexpr LPARAM altIsDown = LPARAM { 1 } << 29;

bool isDown(int key)
{
    return inputState().down[static_cast<BYTE>(key)];
}

void setDown(int key, bool down)
{
    InputState& state = inputState();
    const auto code = static_cast<BYTE>(key);
    state.pressed[code] = state.pressed[code] || (down && !state.down[code]);
    state.down[code] = down;
}

WPARAM mouseFlags()
{
    return static_cast<WPARAM>((isDown(VK_LBUTTON) ? MK_LBUTTON : 0)
        | (isDown(VK_RBUTTON) ? MK_RBUTTON : 0) | (isDown(VK_SHIFT) ? MK_SHIFT : 0)
        | (isDown(VK_CONTROL) ? MK_CONTROL : 0));
}

void postMouse(HWND window, UINT message, POINT place, SIZE size)
{
    const POINT position = displayFit(size).toPicture(place);
    inputState().cursor = position;
    messageQueue().postInput(window, message, mouseFlags(), MAKELPARAM(position.x, position.y));
}

void translateButton(HWND window, const SDL_MouseButtonEvent& event, SIZE size)
{
    const bool left = event.button == SDL_BUTTON_LEFT;
    if (!left && event.button != SDL_BUTTON_RIGHT)
        return;
    const bool down = event.state == SDL_PRESSED;
    setDown(left ? VK_LBUTTON : VK_RBUTTON, down);
    const UINT message
        = left ? (down ? WM_LBUTTONDOWN : WM_LBUTTONUP) : (down ? WM_RBUTTONDOWN : WM_RBUTTONUP);
    postMouse(window, message, { event.x, event.y }, size);
}

DisplayAction translateKey(HWND window, const SDL_KeyboardEvent& event)
{
    const bool down = event.state == SDL_PRESSED;
    if (event.keysym.scancode == SDL_SCANCODE_F11)
        return down && event.repeat == 0 ? DisplayAction::ToggleFullScreen : DisplayAction::None;
    const int key = virtualKey(event.keysym.scancode, event.keysym.sym);
    if (key == 0)
        return DisplayAction::None;
    setDown(key, down);
    // The right Alt key selects characters on many keyboards, so only the left one makes a command.
    const bool alt = (event.keysym.mod & KMOD_LALT) != 0;
    const UINT message
        = alt ? (down ? WM_SYSKEYDOWN : WM_SYSKEYUP) : (down ? WM_KEYDOWN : WM_KEYUP);
    const LPARAM state = 1 | (alt ? altIsDown : 0) | (event.repeat != 0 ? wasDown : 0)
        | (down ? 0 : wasDown | isReleased);
    messageQueue().postInput(window, message, static_cast<WPARAM>(key), state);
    return DisplayAction::None;
}

void translateText(HWND window, const char* utf8)
{
    for (const char c : ansiOf(utf8))
        messageQueue().postInput(window, WM_CHAR, static_cast<BYTE>(c), 1);
}

// Keys that are down when the keyboard goes to another program are never seen to be released.
void releaseKeys()
{
    inputState().down.fill(false);
    inputState().seenDown.fill(false);
}

DisplayAction translateWindow(const SDL_WindowEvent& event)
{
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
    case SDL_WINDOWEVENT_RESTORED:
        return DisplayAction::Redraw;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        return DisplayAction::Activate;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        releaseKeys();
        return DisplayAction::Deactivate;
    default:
        return DisplayAction::None;
    }
}

} // namespace

Fit displayFit(SIZE size)
{
    const DisplayMode& mode = display().mode;
    return Fit::of({ std::max(1, size.cx), std::max(1, size.cy) }, { mode.width, mode.height });
}

DisplayAction translateEvent(HWND window, const SDL_Event& event, SIZE size)
{
    switch (event.type) {
    case SDL_QUIT: // Also when the one window is asked to close.
        messageQueue().post(window, WM_CLOSE, 0, 0);
        return DisplayAction::None;
    case SDL_WINDOWEVENT:
        return translateWindow(event.window);
    case SDL_MOUSEMOTION:
        postMouse(window, WM_MOUSEMOVE, { event.motion.x, event.motion.y }, size);
        return DisplayAction::None;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        translateButton(window, event.button, size);
        return DisplayAction::None;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        return translateKey(window, event.key);
    case SDL_TEXTINPUT:
        translateText(window, event.text.text);
        return DisplayAction::None;
    case SDL_RENDER_TARGETS_RESET:
        return DisplayAction::Redraw;
    default:
        return DisplayAction::None;
    }
}

} // namespace kez::winapi
