// SPDX-License-Identifier: MIT
#include "platform/desktop.h"

#include <windows.h>

#include <shlobj.h>

#include <cstdio>

namespace kez::desktop {

namespace {

constexpr DWORD debugOutputRaised = 0x40010006; // what OutputDebugStringA raises

// The system offers each debug text to the handlers of exceptions before it looks for a debugger.
LONG CALLBACK copyToStandardError(EXCEPTION_POINTERS* raised)
{
    const EXCEPTION_RECORD& record = *raised->ExceptionRecord;
    if (record.ExceptionCode == debugOutputRaised && record.NumberParameters >= 2)
        std::fputs(reinterpret_cast<const char*>(record.ExceptionInformation[1]), stderr);
    return EXCEPTION_CONTINUE_SEARCH;
}

// Empty when the person has no such folder.
std::string folderOf(int which)
{
    char path[MAX_PATH];
    return SHGetFolderPathA(nullptr, which, nullptr, 0, path) == S_OK ? path : "";
}

} // namespace

std::string dataHome()
{
    const std::string folder = folderOf(CSIDL_APPDATA);
    return folder.empty() ? "kez" : folder + "\\kez";
}

std::string picturesHome()
{
    return folderOf(CSIDL_MYPICTURES);
}

std::string programDirectory()
{
    char path[MAX_PATH];
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string file(path, length < sizeof path ? length : 0);
    const std::size_t separator = file.rfind('\\');
    return separator == std::string::npos ? "." : file.substr(0, separator);
}

void useScriptClock(unsigned) { } // time is real on Windows

std::filesystem::path pathOf(const std::string& text)
{
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    const int made = MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(made));
    return wide;
}

std::string textOf(const std::filesystem::path& path)
{
    const std::wstring& wide = path.native();
    const int length = static_cast<int>(wide.size());
    std::string text(wide.size() * 4, '\0'); // as many bytes as a character can have
    const int made = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(),
        static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(made));
    return text;
}

// A file that nobody else may open, and that goes with its last handle.
Claim::Claim(const std::string& directory)
    : handle_(reinterpret_cast<std::intptr_t>(
        CreateFileA((directory + "\\in-use.lock").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
            FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr)))
    , refused_(reinterpret_cast<HANDLE>(handle_) == INVALID_HANDLE_VALUE
          && GetLastError() == ERROR_SHARING_VIOLATION)
{
}

Claim::~Claim()
{
    if (const auto file = reinterpret_cast<HANDLE>(handle_); file != INVALID_HANDLE_VALUE)
        CloseHandle(file);
}

void useConsoleOfCaller()
{
    const bool isTaken = GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_UNKNOWN
        || GetFileType(GetStdHandle(STD_ERROR_HANDLE)) != FILE_TYPE_UNKNOWN;
    if (isTaken || !AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    for (std::FILE* stream : { stdout, stderr }) {
        if (std::freopen("CONOUT$", "w", stream) != nullptr)
            std::setvbuf(stream, nullptr, _IONBF, 0);
    }
}

void showDebugOutput(bool shown)
{
    static void* handler = nullptr;
    if (shown == (handler != nullptr))
        return;
    if (shown) {
        handler = AddVectoredExceptionHandler(1, copyToStandardError);
    } else {
        RemoveVectoredExceptionHandler(handler);
        handler = nullptr;
    }
}

} // namespace kez::desktop
