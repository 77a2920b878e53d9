// SPDX-License-Identifier: MIT
#include "window.h"

#include "display_mode.h"
#include "display_window.h"
#include "message_queue.h"
#include "winbase.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kez::winapi {

namespace {

constexpr int usualWidth = 640;
constexpr int usualHeight = 480;

std::map<std::string, WNDCLASSA>& classes()
{
    static auto& only = *new std::map<std::string, WNDCLASSA>;
    return only;
}

std::string lowerCase(LPCSTR text)
{
    std::string lower = text;
    std::ranges::transform(lower, lower.begin(),
        [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
    return lower;
}

BOOL fail(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

int sideOf(int asked, int usual)
{
    return asked == CW_USEDEFAULT ? usual : std::max(0, asked);
}

// Tells the new window of itself; false when its procedure does not want it.
bool announce(HWND window, CREATESTRUCTA& creation)
{
    const auto parameter = reinterpret_cast<LPARAM>(&creation);
    return SendMessageA(window, WM_NCCREATE, 0, parameter) != FALSE
        && SendMessageA(window, WM_CREATE, 0, parameter) != -1;
}

LONG_PTR* valueAt(Window& window, int index)
{
    switch (index) {
    case GWL_STYLE:
        return &window.style;
    case GWL_EXSTYLE:
        return &window.exStyle;
    case GWLP_USERDATA:
        return &window.userData;
    default:
        return nullptr;
    }
}

} // namespace

HandleTable<Window, HWND>& windows()
{
    static auto& only = *new HandleTable<Window, HWND>;
    return only;
}

Window* windowOf(HWND handle)
{
    Window* window = windows().find(handle);
    if (window == nullptr)
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

} // namespace kez::winapi

using namespace kez::winapi;

ATOM WINAPI RegisterClassA(const WNDCLASSA* description)
{
    if (description == nullptr || description->lpszClassName == nullptr
        || description->lpfnWndProc == nullptr)
        return static_cast<ATOM>(fail(ERROR_INVALID_PARAMETER));
    static ATOM lastAtom = 0xC000;
    const bool isNew
        = classes().emplace(lowerCase(description->lpszClassName), *description).second;
    return isNew ? ++lastAtom : static_cast<ATOM>(fail(ERROR_CLASS_ALREADY_EXISTS));
}

BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE)
{
    if (name == nullptr)
        return fail(ERROR_INVALID_PARAMETER);
    const std::string key = lowerCase(name);
    if (!classes().contains(key))
        return fail(ERROR_CLASS_DOES_NOT_EXIST);
    for (const auto& entry : windows()) {
        if (entry.second->className == key)
            return fail(ERROR_CLASS_HAS_WINDOWS);
    }
    classes().erase(key);
    return TRUE;
}

HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x,
    int y, int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter)
{
    const auto found = classes().find(className != nullptr ? lowerCase(className) : std::string());
    if (found == classes().end()) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    auto window = std::make_unique<Window>();
    window->className = found->first;
    window->title = title != nullptr ? title : "";
    window->procedure = found->second.lpfnWndProc;
    window->cursor = found->second.hCursor;
    window->style = static_cast<LONG_PTR>(style & ~WS_VISIBLE);
    window->exStyle = static_cast<LONG_PTR>(exStyle);
    window->width = sideOf(width, usualWidth);
    window->height = sideOf(height, usualHeight);
    HWND handle = windows().add(std::move(window));
    CREATESTRUCTA creation { parameter, instance, menu, parent, height, width, y, x,
        static_cast<LONG>(style), title, className, exStyle };
    if (!announce(handle, creation)) {
        DestroyWindow(handle);
        return nullptr;
    }
    if ((style & WS_VISIBLE) != 0)
        ShowWindow(handle, SW_SHOW);
    return IsWindow(handle) != FALSE ? handle : nullptr;
}

BOOL WINAPI DestroyWindow(HWND handle)
{
    Window* window = windowOf(handle);
    if (window == nullptr || std::exchange(window->dying, true))
        return FALSE;
    hideOnDisplay(handle);
    setActive(handle, false);
    SendMessageA(handle, WM_DESTROY, 0, 0);
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    messageQueue().forget(handle);
    windows().remove(handle);
    return TRUE;
}

BOOL WINAPI IsWindow(HWND window)
{
    return windows().find(window) != nullptr ? TRUE : FALSE;
}

BOOL WINAPI IsWindowVisible(HWND handle)
{
    const Window* window = windowOf(handle);
    return window != nullptr && window->visible ? TRUE : FALSE;
}

BOOL WINAPI ShowWindow(HWND handle, int command)
{
    Window* window = windowOf(handle);
    if (window == nullptr)
        return FALSE;
    const BOOL before = window->visible ? TRUE : FALSE;
    const bool shown = command != SW_HIDE;
    if (shown == window->visible || window->dying)
        return before;
    if (shown && !showOnDisplay(handle, *window))
        return before;
    window->visible = shown;
    window->style = shown ? window->style | static_cast<LONG_PTR>(WS_VISIBLE)
                          : window->style & ~static_cast<LONG_PTR>(WS_VISIBLE);
    if (!shown)
        hideOnDisplay(handle);
    SendMessageA(handle, WM_SHOWWINDOW, static_cast<WPARAM>(shown), 0);
    setActive(handle, shown);
    InvalidateRect(handle, nullptr, TRUE);
    return before;
}

BOOL WINAPI SetWindowTextA(HWND handle, LPCSTR title)
{
    Window* window = windowOf(handle);
    if (window == nullptr)
        return FALSE;
    window->title = title != nullptr ? title : "";
    titleOnDisplay(handle, window->title);
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT area)
{
    const Window* window = windowOf(handle);
    if (window == nullptr || area == nullptr)
        return FALSE;
    *area = { 0, 0, window->width, window->height };
    return TRUE;
}

// The client area is the window: there is nothing to add.
BOOL WINAPI AdjustWindowRect(LPRECT area, DWORD, BOOL)
{
    return area != nullptr ? TRUE : FALSE;
}

int WINAPI GetSystemMetrics(int index)
{
    const DisplayMode& mode = display().mode;
    return index == SM_CXSCREEN ? mode.width : index == SM_CYSCREEN ? mode.height : 0;
}

LONG_PTR WINAPI SetWindowLongA(HWND handle, int index, LONG_PTR value)
{
    Window* window = windowOf(handle);
    if (window == nullptr)
        return 0;
    if (index == GWLP_WNDPROC)
        return reinterpret_cast<LONG_PTR>(
            std::exchange(window->procedure, reinterpret_cast<WNDPROC>(value)));
    LONG_PTR* place = valueAt(*window, index);
    if (place == nullptr)
        return fail(ERROR_INVALID_PARAMETER);
    return std::exchange(*place, value);
}

LONG_PTR WINAPI GetWindowLongA(HWND handle, int index)
{
    Window* window = windowOf(handle);
    if (window == nullptr)
        return 0;
    if (index == GWLP_WNDPROC)
        return reinterpret_cast<LONG_PTR>(window->procedure);
    const LONG_PTR* place = valueAt(*window, index);
    return place != nullptr ? *place : fail(ERROR_INVALID_PARAMETER);
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value)
{
    return SetWindowLongA(window, index, value);
}

LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index)
{
    return GetWindowLongA(window, index);
}
