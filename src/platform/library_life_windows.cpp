// SPDX-License-Identifier: MIT
#include "platform/library_life.h"

#include <windows.h>

#include <utility>

namespace {

void (*unloadHook)() = nullptr;
bool programEnds = false;

} // namespace

// Detaching comes before the static objects are destroyed.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*library*/, DWORD reason, LPVOID reserved)
{
    if (reason == DLL_PROCESS_DETACH) {
        programEnds = reserved != nullptr;
        if (auto* hook = std::exchange(unloadHook, nullptr))
            hook();
    }
    return TRUE;
}

namespace kez::platform {

void onLibraryUnload(void (*hook)())
{
    unloadHook = hook;
}

std::string libraryFile(const char* name)
{
    return std::string(name) + ".dll";
}

bool isAloneAtTheEnd()
{
    return programEnds;
}

} // namespace kez::platform
