// SPDX-License-Identifier: MIT
#include "input/window_hook.h"

#include "core/diagnostics.h"
#include "core/flags.h"
#include "display/stage.h"
#include "input/events.h"

namespace kez {

namespace {

HWND hookedWindow = nullptr;
WNDPROC previousProcedure = nullptr;

void handleKey(WPARAM code, KeyEvent kind)
{
    if (suspended)
        return;
    keyEvent(static_cast<std::uint32_t>(code), kind);
    stage().onInput();
}

void handleMouse(LPARAM position, MouseEvent kind)
{
    if (suspended)
        return;
    // Signed: a captured mouse leaves the window on any side.
    const int x = static_cast<std::int16_t>(LOWORD(position));
    const int y = static_cast<std::int16_t>(HIWORD(position));
    mouseEvent(x - Stage::width / 2, y - Stage::height / 2, kind);
    stage().onInput();
}

LRESULT CALLBACK hookProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    // Kept now: a client of the event may remove the hook.
    const WNDPROC next = previousProcedure;
    switch (message) {
    case WM_SETCURSOR:
        SetCursor(nullptr);
        return TRUE;
    case WM_KEYDOWN:
        handleKey(wParam, KeyEvent::Press);
        break;
    case WM_KEYUP:
        handleKey(wParam, KeyEvent::Release);
        break;
    case WM_CHAR:
        handleKey(wParam, KeyEvent::Character);
        break;
    case WM_MOUSEMOVE:
        handleMouse(lParam, MouseEvent::Move);
        break;
    case WM_LBUTTONDOWN:
        handleMouse(lParam, MouseEvent::Press);
        break;
    case WM_LBUTTONUP:
        handleMouse(lParam, MouseEvent::Release);
        break;
    default:
        break;
    }
    return next != nullptr ? CallWindowProcA(next, window, message, wParam, lParam)
                           : DefWindowProcA(window, message, wParam, lParam);
}

LONG_PTR asWord(WNDPROC procedure)
{
    return reinterpret_cast<LONG_PTR>(procedure);
}

} // namespace

void installHook(HWND window)
{
    removeHook();
    hookedWindow = window;
    if (window == nullptr) {
        debugPrint("The host gave no window; no mouse and no key will be heard.");
        return;
    }
    const LONG_PTR previous = SetWindowLongPtrA(window, GWLP_WNDPROC, asWord(hookProcedure));
    if (previous == 0)
        reportLastError("The host's window cannot be hooked; no mouse and no key will be heard.");
    previousProcedure = reinterpret_cast<WNDPROC>(previous); // NOLINT(performance-no-int-to-ptr)
}

void removeHook()
{
    if (previousProcedure == nullptr)
        return;
    SetWindowLongPtrA(hookedWindow, GWLP_WNDPROC, asWord(previousProcedure));
    previousProcedure = nullptr;
}

} // namespace kez
