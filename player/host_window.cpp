// SPDX-License-Identifier: MIT
#include "host_window.h"

namespace kez::player {

namespace {

constexpr const char* className = "KezPlayer";
constexpr const char* title = "Kez";

// A window procedure has no place for a pointer to its object that has the same width everywhere.
HostWindow* current = nullptr;

bool registerClass(WNDPROC procedure)
{
    WNDCLASSA description {};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.lpszClassName = className;
    return RegisterClassA(&description) != 0;
}

// False when there is nothing to show it on.
bool show(HWND window)
{
    ShowWindow(window, SW_SHOW);
    return IsWindowVisible(window) != FALSE;
}

} // namespace

HostWindow::HostWindow(WindowClient& client, WindowShown shown)
    : client_(client)
    , clipMessage_(RegisterWindowMessageA("KezGuideClip"))
{
    if (current != nullptr || !registerClass(procedure))
        return;
    current = this;
    window_ = CreateWindowExA(0, className, title, WS_POPUP, 0, 0, width, height, nullptr, nullptr,
        GetModuleHandleA(nullptr), nullptr);
    isThere_ = window_ != nullptr && (shown == WindowShown::Never || show(window_));
}

HostWindow::~HostWindow()
{
    if (current != this)
        return;
    if (window_ != nullptr)
        DestroyWindow(window_);
    UnregisterClassA(className, GetModuleHandleA(nullptr));
    current = nullptr;
}

bool HostWindow::pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT)
            closing_ = true;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return !closing_;
}

void HostWindow::send(UINT message, WPARAM word, LPARAM detail) const
{
    SendMessageA(window_, message, word, detail);
}

void HostWindow::showPointer()
{
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
}

LRESULT CALLBACK HostWindow::procedure(HWND window, UINT message, WPARAM word, LPARAM detail)
{
    if (current != nullptr && current->handle(message, word, detail))
        return 0;
    return DefWindowProcA(window, message, word, detail);
}

// True when nothing more is to be done about the message.
bool HostWindow::handle(UINT message, WPARAM word, LPARAM detail)
{
    if (message == clipMessage_ && message != 0) {
        client_.guideSpeaks(static_cast<int>(word), static_cast<DWORD>(detail));
        return true;
    }
    const int x = static_cast<SHORT>(LOWORD(detail));
    const int y = static_cast<SHORT>(HIWORD(detail));
    switch (message) {
    case WM_MOUSEMOVE:
        client_.pointerMoved(x, y);
        return true;
    case WM_LBUTTONDOWN:
        client_.pointerPressed(x, y);
        return true;
    case WM_KEYDOWN:
        client_.keyPressed(static_cast<int>(word));
        return true;
    case WM_ACTIVATE:
        client_.needsDrawing();
        return false;
    case WM_CLOSE:
        // The window lives on until the module has given it back.
        closing_ = true;
        return true;
    default:
        return false;
    }
}

} // namespace kez::player
