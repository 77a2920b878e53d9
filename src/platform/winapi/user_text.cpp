// SPDX-License-Identifier: MIT
/// The user interface's small change: names of messages and the message box.
#include "display_window.h"
#include "winbase.h"
#include "winuser.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <string>
#include <vector>

UINT WINAPI RegisterWindowMessageA(LPCSTR name)
{
    constexpr UINT first = 0xC000;
    constexpr UINT most = 0x4000;
    static auto& names = *new std::vector<std::string>;
    std::string key = name != nullptr ? name : "";
    if (key.empty() || key.size() > 255) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::ranges::transform(
        key, key.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const auto found = std::ranges::find(names, key);
    const auto index = static_cast<UINT>(found - names.begin());
    if (index == most)
        return 0;
    if (found == names.end())
        names.push_back(key);
    return first + index;
}

int WINAPI MessageBoxA(HWND, LPCSTR text, LPCSTR caption, UINT type)
{
    const char* title = caption != nullptr ? caption : "Error";
    const char* words = text != nullptr ? text : "";
    if (!kez::winapi::showBox(title, words, type))
        std::fprintf(stderr, "%s: %s\n", title, words);
    return IDOK;
}
