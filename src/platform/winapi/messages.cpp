// SPDX-License-Identifier: MIT
/// The message loop's functions, and what becomes of messages that no procedure wants.
#include "display_window.h"
#include "input_state.h"
#include "message_queue.h"
#include "winbase.h"
#include "window.h"
#include "wingdi.h"

#include <cctype>

namespace kez::winapi {

namespace {

constexpr DWORD idleMs = 5; // How long GetMessageA waits before it looks again.

bool isMouse(UINT message)
{
    return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
}

// Input that is about to be handed over has its effects on the system first.
void beforeHandingOver(const MSG& message)
{
    seeKey(message.message, message.wParam);
    if (isMouse(message.message))
        SendMessageA(message.hwnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(message.hwnd),
            MAKELPARAM(HTCLIENT, message.message));
}

// Keys that bear the code of their character, with any keyboard; letters together with Control.
WPARAM controlCharacter(WPARAM key)
{
    if (key == VK_BACK || key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE)
        return key;
    const bool control = inputState().seenDown[VK_CONTROL];
    return control && key >= 'A' && key <= 'Z' ? key - 'A' + 1 : 0;
}

// Letters and digits of a key message that a program posted. The display sends its texts itself,
// because only it knows the person's keyboard.
WPARAM plainCharacter(WPARAM key)
{
    if (key == VK_SPACE || (key >= '0' && key <= '9'))
        return key;
    if (key < 'A' || key > 'Z')
        return 0;
    return inputState().seenDown[VK_SHIFT] ? key : key - 'A' + 'a';
}

LRESULT setClassCursor(const Window& window, LPARAM hit)
{
    if (LOWORD(hit) != HTCLIENT || window.cursor == nullptr)
        return FALSE;
    SetCursor(window.cursor);
    return TRUE;
}

} // namespace

} // namespace kez::winapi

using namespace kez::winapi;

LRESULT WINAPI DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* window = windowOf(handle);
    if (window == nullptr)
        return 0;
    switch (message) {
    case WM_NCCREATE:
    case WM_ERASEBKGND:
        return TRUE;
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    case WM_PAINT:
        window->needsPaint = false;
        return 0;
    case WM_SETCURSOR:
        return setClassCursor(*window, lParam);
    case WM_SYSKEYDOWN:
        if (wParam == VK_F4)
            PostMessageA(handle, WM_CLOSE, 0, 0);
        return 0;
    default:
        return 0;
    }
}

LRESULT WINAPI CallWindowProcA(
    WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}

BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove)
{
    if (message == nullptr)
        return FALSE;
    pumpDisplay();
    const bool removes = (remove & PM_REMOVE) != 0;
    const std::optional<MSG> taken = messageQueue().take({ window, first, last }, removes);
    if (!taken)
        return FALSE;
    *message = *taken;
    if (removes && messageQueue().tookInput())
        beforeHandingOver(*message);
    return TRUE;
}

BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last)
{
    if (message == nullptr || (window != nullptr && windowOf(window) == nullptr))
        return -1;
    while (PeekMessageA(message, window, first, last, PM_REMOVE) == FALSE)
        Sleep(idleMs);
    return message->message != WM_QUIT ? TRUE : FALSE;
}

BOOL WINAPI TranslateMessage(const MSG* message)
{
    if (message == nullptr || message->message < WM_KEYFIRST || message->message > WM_SYSKEYUP)
        return FALSE;
    const bool system = message->message == WM_SYSKEYDOWN;
    if (message->message != WM_KEYDOWN && !system)
        return message->message != WM_CHAR ? TRUE : FALSE;
    WPARAM character = controlCharacter(message->wParam);
    if (character == 0 && !messageQueue().tookInput())
        character = plainCharacter(message->wParam);
    if (character != 0)
        messageQueue().postCharacter(
            message->hwnd, system ? WM_SYSCHAR : WM_CHAR, character, message->lParam);
    return TRUE;
}

LRESULT WINAPI DispatchMessageA(const MSG* message)
{
    if (message == nullptr || message->hwnd == nullptr)
        return 0;
    return SendMessageA(message->hwnd, message->message, message->wParam, message->lParam);
}

BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (window != nullptr && windowOf(window) == nullptr)
        return FALSE;
    messageQueue().post(window, message, wParam, lParam);
    return TRUE;
}

LRESULT WINAPI SendMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Window* window = windowOf(handle);
    return window != nullptr ? CallWindowProcA(window->procedure, handle, message, wParam, lParam)
                             : 0;
}

void WINAPI PostQuitMessage(int exitCode)
{
    messageQueue().postQuit(exitCode);
}

BOOL WINAPI InvalidateRect(HWND handle, const RECT*, BOOL)
{
    Window* window = windowOf(handle);
    if (window == nullptr)
        return FALSE;
    window->needsPaint = true;
    return TRUE;
}

BOOL WINAPI ValidateRect(HWND handle, const RECT*)
{
    Window* window = windowOf(handle);
    if (window == nullptr)
        return FALSE;
    window->needsPaint = false;
    return TRUE;
}

BOOL WINAPI UpdateWindow(HWND handle)
{
    const Window* window = windowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (window->needsPaint && window->visible)
        SendMessageA(handle, WM_PAINT, 0, 0);
    return TRUE;
}

HDC WINAPI BeginPaint(HWND handle, PAINTSTRUCT* paint)
{
    Window* window = windowOf(handle);
    if (window == nullptr || paint == nullptr)
        return nullptr;
    window->needsPaint = false;
    *paint = {};
    paint->hdc = GetDC(handle);
    paint->rcPaint = { 0, 0, window->width, window->height };
    return paint->hdc;
}

BOOL WINAPI EndPaint(HWND handle, const PAINTSTRUCT* paint)
{
    if (paint == nullptr || windowOf(handle) == nullptr)
        return FALSE;
    ReleaseDC(handle, paint->hdc);
    return TRUE;
}
