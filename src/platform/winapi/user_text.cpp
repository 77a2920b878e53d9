// SPDX-License-Identifier: MIT
/// The user interface's small change: rectangles, formatted texts and the message box.
#include "display_window.h"
#include "winuser.h"

#include <cstdarg>
#include <cstdio>

BOOL WINAPI SetRect(LPRECT area, int left, int top, int right, int bottom)
{
    if (area == nullptr)
        return FALSE;
    *area = { left, top, right, bottom };
    return TRUE;
}

int WINAPI wsprintfA(LPSTR into, LPCSTR format, ...)
{
    constexpr std::size_t largest = 1024;
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(into, largest, format, arguments);
    va_end(arguments);
    return length < static_cast<int>(largest) ? length : static_cast<int>(largest) - 1;
}

int WINAPI MessageBoxA(HWND, LPCSTR text, LPCSTR caption, UINT type)
{
    const char* title = caption != nullptr ? caption : "Error";
    const char* words = text != nullptr ? text : "";
    if (!kez::winapi::showBox(title, words, type))
        std::fprintf(stderr, "%s: %s\n", title, words);
    return IDOK;
}
