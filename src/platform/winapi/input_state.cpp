// SPDX-License-Identifier: MIT
#include "input_state.h"

#include "display_window.h"
#include "winbase.h"
#include "window.h"

#include <utility>

namespace kez::winapi {

InputState& inputState()
{
    static auto& only = *new InputState;
    return only;
}

void seeKey(UINT message, WPARAM key)
{
    auto& seen = inputState().seenDown;
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP:
        seen[key & 0xFF] = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
        seen[VK_LBUTTON] = message == WM_LBUTTONDOWN;
        break;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
        seen[VK_RBUTTON] = message == WM_RBUTTONDOWN;
        break;
    default:
        break;
    }
}

void setActive(HWND window, bool active)
{
    InputState& state = inputState();
    if (state.active == active || (!active && state.focus != window))
        return;
    state.active = active;
    state.focus = active ? window : nullptr;
    SendMessageA(window, WM_ACTIVATEAPP, static_cast<WPARAM>(active), 0);
    SendMessageA(window, WM_ACTIVATE, static_cast<WPARAM>(active), 0);
    SendMessageA(window, active ? WM_SETFOCUS : WM_KILLFOCUS, 0, 0);
}

} // namespace kez::winapi

using namespace kez::winapi;

SHORT WINAPI GetKeyState(int key)
{
    return inputState().seenDown[static_cast<BYTE>(key)] ? static_cast<SHORT>(0x8000) : SHORT { 0 };
}

SHORT WINAPI GetAsyncKeyState(int key)
{
    pumpDisplay();
    const auto code = static_cast<BYTE>(key);
    const int now = inputState().down[code] ? 0x8000 : 0;
    return static_cast<SHORT>(now | (std::exchange(inputState().pressed[code], false) ? 1 : 0));
}

HWND WINAPI GetFocus()
{
    return inputState().focus;
}

HWND WINAPI SetFocus(HWND window)
{
    if (window != nullptr && windowOf(window) == nullptr)
        return nullptr;
    return std::exchange(inputState().focus, window);
}

BOOL WINAPI SetForegroundWindow(HWND window)
{
    if (windowOf(window) == nullptr)
        return FALSE;
    raiseOnDisplay(window);
    return TRUE;
}

BOOL WINAPI GetCursorPos(LPPOINT position)
{
    if (position == nullptr)
        return FALSE;
    *position = inputState().cursor;
    return TRUE;
}

BOOL WINAPI SetCursorPos(int x, int y)
{
    inputState().cursor = { x, y };
    warpOnDisplay({ x, y });
    return TRUE;
}

// The handles of the system's own cursors are their numbers.
HCURSOR WINAPI LoadCursorA(HINSTANCE instance, LPCSTR name)
{
    const LPCSTR known[] = { IDC_ARROW, IDC_WAIT, IDC_HAND, IDC_HELP };
    for (const LPCSTR one : known) {
        if (instance == nullptr && name == one)
            return reinterpret_cast<HCURSOR>(const_cast<char*>(name));
    }
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

HCURSOR WINAPI SetCursor(HCURSOR cursor)
{
    HCURSOR before = std::exchange(inputState().shape, cursor);
    if (before != cursor)
        cursorOnDisplay();
    return before;
}

int WINAPI ShowCursor(BOOL show)
{
    inputState().showCount += show != FALSE ? 1 : -1;
    cursorOnDisplay();
    return inputState().showCount;
}
