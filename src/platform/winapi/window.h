// SPDX-License-Identifier: MIT
/// The windows of the program. Each is its client area: frames are the desktop's business.
#pragma once

#include "handles.h"
#include "winuser.h"

#include <string>

namespace kez::winapi {

struct Window {
    std::string className; ///< In lower case.
    std::string title;
    WNDPROC procedure = nullptr;
    HCURSOR cursor = nullptr; ///< Of the class.
    LONG_PTR style = 0;
    LONG_PTR exStyle = 0;
    LONG_PTR userData = 0;
    int width = 0;
    int height = 0;
    bool visible = false;
    bool needsPaint = false;
    bool dying = false; ///< DestroyWindow is under way.
};

HandleTable<Window, HWND>& windows();

/// The window, or null and ERROR_INVALID_WINDOW_HANDLE.
[[nodiscard]] Window* windowOf(HWND handle);

/// The program gets or loses the keyboard; its window hears of it, once.
void setActive(HWND window, bool active);

} // namespace kez::winapi
