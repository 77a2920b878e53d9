// SPDX-License-Identifier: MIT
#include "control_kernel.h"
#include "platform/desktop.h"
#include "platform/temporary_folder.h"

#include <windows.h>

#include <mmsystem.h>

#include <gtest/gtest.h>

#include <atomic>
#include <climits>
#include <cstdlib>

namespace kez {
namespace {

std::string textOf(DWORD code, DWORD room = 200)
{
    std::vector<char> text(room + 1, '#');
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, text.data(), room, nullptr);
    EXPECT_EQ(text.back(), '#');
    return std::string(text.data(), length);
}

TEST(Kernel, errorTextsEndInALineBreakAndFitOrAreRefused)
{
    const std::string text = textOf(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(text, "There is no such file.\r\n");
    const auto size = static_cast<DWORD>(text.size());
    EXPECT_EQ(textOf(ERROR_FILE_NOT_FOUND, size + 1), text);
    EXPECT_EQ(textOf(ERROR_FILE_NOT_FOUND, size), "");
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(textOf(0xE0001234), "");
    EXPECT_EQ(GetLastError(), ERROR_MR_MID_NOT_FOUND);
}

DWORD WINAPI setOwnError(LPVOID seen)
{
    SetLastError(77);
    *static_cast<DWORD*>(seen) = GetLastError();
    return 0;
}

TEST(Kernel, everyThreadHasItsOwnLastError)
{
    SetLastError(5);
    DWORD seen = 0;
    DWORD id = 0;
    const HANDLE thread = CreateThread(nullptr, 0, setOwnError, &seen, 0, &id);
    ASSERT_NE(thread, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(seen, 77u);
    EXPECT_EQ(GetLastError(), 5u);
    EXPECT_NE(id, GetCurrentThreadId());
    EXPECT_TRUE(CloseHandle(thread));
    EXPECT_FALSE(CloseHandle(thread));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_FAILED);
}

DWORD WINAPI runUntilTold(LPVOID told)
{
    while (!static_cast<std::atomic<bool>*>(told)->load())
        Sleep(1);
    return 0;
}

TEST(Kernel, waitsEndWithTheThreadOrTheTime)
{
    std::atomic<bool> told = false;
    const HANDLE thread = CreateThread(nullptr, 0, runUntilTold, &told, 0, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_TIMEOUT);
    const DWORD before = timeGetTime();
    EXPECT_EQ(WaitForSingleObject(thread, 20), WAIT_TIMEOUT);
    EXPECT_GE(timeGetTime() - before, 19u);
    told = true;
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_OBJECT_0);
    CloseHandle(thread);
}

TEST(Kernel, librariesAreFoundByTheirBareName)
{
    for (const char* name : { "kez_winapi", "kez_winapi.DLL", "libkez_winapi.so" }) {
        SCOPED_TRACE(name);
        const HMODULE library = LoadLibraryA(name);
        ASSERT_NE(library, nullptr);
        EXPECT_EQ(reinterpret_cast<void*>(GetProcAddress(library, "GetTickCount")),
            reinterpret_cast<void*>(&GetTickCount));
        EXPECT_EQ(GetProcAddress(library, "noSuchThing"), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
        EXPECT_TRUE(FreeLibrary(library));
    }
    EXPECT_EQ(LoadLibraryA("no-such-driver"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(LoadLibraryA(""), nullptr);
    EXPECT_EQ(LoadLibraryA(nullptr), nullptr);
}

TEST(Kernel, aFileThatIsNoLibraryIsRefusedWithAReason)
{
    const test::TemporaryFolder folder;
    folder.put("libx.so", "this is no library");
    std::string heard;
    winapi::setDebugOutputHook(
        [](const char* text, void* context) { *static_cast<std::string*>(context) += text; },
        &heard);
    EXPECT_EQ(LoadLibraryA((folder / "libx.so").c_str()), nullptr);
    winapi::setDebugOutputHook(nullptr);
    EXPECT_EQ(GetLastError(), ERROR_BAD_EXE_FORMAT);
    EXPECT_NE(heard.find("libx.so"), std::string::npos);
}

TEST(Kernel, moduleNamesAreFullPathsAndAreCutToTheRoomGiven)
{
    char path[MAX_PATH] = "";
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    EXPECT_EQ(std::string(path, length), std::string(path));
    EXPECT_EQ(path, desktop::programDirectory() + "/platform_tests");
    char few[5];
    EXPECT_EQ(GetModuleFileNameA(nullptr, few, sizeof few), 5u);
    EXPECT_EQ(std::string(few), std::string(path).substr(0, 4));
    const HMODULE library = GetModuleHandleA("kez_winapi");
    ASSERT_NE(library, nullptr);
    GetModuleFileNameA(library, path, sizeof path);
    EXPECT_NE(std::string(path).find("/libkez_winapi.so"), std::string::npos) << path;
    EXPECT_EQ(GetModuleHandleA("no-such-driver"), nullptr);
}

TEST(Kernel, mulDivRoundsHalvesAwayFromZero)
{
    EXPECT_EQ(MulDiv(5, 1, 2), 3);
    EXPECT_EQ(MulDiv(-5, 1, 2), -3);
    EXPECT_EQ(MulDiv(5, 1, -2), -3);
    EXPECT_EQ(MulDiv(12, 96, 72), 16);
    EXPECT_EQ(MulDiv(INT_MAX, 2, 2), INT_MAX);
    EXPECT_EQ(MulDiv(INT_MAX, 2, 1), -1);
    EXPECT_EQ(MulDiv(1, 1, 0), -1);
}

TEST(Desktop, dataLiesUnderTheDataHome)
{
    ::setenv("XDG_DATA_HOME", "/somewhere/data", 1);
    EXPECT_EQ(desktop::dataHome(), "/somewhere/data/kez");
    ::setenv("XDG_DATA_HOME", "relative", 1);
    ::setenv("HOME", "/home/child", 1);
    EXPECT_EQ(desktop::dataHome(), "/home/child/.local/share/kez");
    ::unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(desktop::dataHome(), "/home/child/.local/share/kez");
}

TEST(Desktop, picturesLieWhereThePersonPutThem)
{
    const test::TemporaryFolder folder;
    ::setenv("HOME", "/home/child", 1);
    ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    EXPECT_EQ(desktop::picturesHome(), "/home/child/Pictures"); // without a list
    const std::pair<const char*, const char*> cases[] {
        { "XDG_MUSIC_DIR=\"/m\"\n  XDG_PICTURES_DIR=\"$HOME/Meine Bilder\"\n",
            "/home/child/Meine Bilder" },
        { "XDG_PICTURES_DIR=\"/disk/a \\\"b\\\"\" # mine\n", "/disk/a \"b\"" },
        { "XDG_PICTURES_DIR=\"/old\"\nXDG_PICTURES_DIR=\"/new\"", "/new" },
        { "#XDG_PICTURES_DIR=\"/no\"\nXDG_PICTURES_DIR=relative\n", "/home/child/Pictures" },
        { "XDG_PICTURES_DIR=\"$HOME/\"\n", "" },
    };
    for (const auto& [list, expected] : cases) {
        folder.put("user-dirs.dirs", list);
        EXPECT_EQ(desktop::picturesHome(), expected) << list;
    }
    ::unsetenv("XDG_CONFIG_HOME");
}

} // namespace
} // namespace kez
