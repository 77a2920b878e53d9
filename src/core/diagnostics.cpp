// SPDX-License-Identifier: MIT
#include "core/diagnostics.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>

namespace kez {

namespace {

constexpr int textSize = 800;

void writeLine(const char* text)
{
    OutputDebugStringA("\n");
    OutputDebugStringA(text);
    OutputDebugStringA("\n");
}

} // namespace

void debugPrint(const char* format, ...)
{
    char text[textSize];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    writeLine(text);
}

void reportLastError(const char* format, ...)
{
    char system[textSize] = "";
    const DWORD code = GetLastError();
    if (code != 0)
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
            system, sizeof system, nullptr);

    char message[textSize] = "";
    if (format != nullptr) {
        std::va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(message, sizeof message, format, arguments);
        va_end(arguments);
    }

    char text[2 * textSize];
    std::snprintf(text, sizeof text, "%s%s", system, message);
    text[textSize - 1] = '\0';
    writeLine(text);
}

} // namespace kez
