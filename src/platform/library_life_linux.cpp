// SPDX-License-Identifier: MIT
#include "platform/library_life.h"

#include <cstdlib>
#include <utility>

namespace kez::platform {

namespace {

void (*unloadHook)() = nullptr;
bool registered = false;

// At the program's end the handlers of `atexit` run first, latest first; on an unload alone this
// runs before them.
[[gnu::destructor]] void callHook()
{
    if (auto* hook = std::exchange(unloadHook, nullptr))
        hook();
}

} // namespace

void onLibraryUnload(void (*hook)())
{
    unloadHook = hook;
    if (!registered)
        registered = std::atexit(callHook) == 0;
}

std::string libraryFile(const char* name)
{
    return std::string("lib") + name + ".so";
}

bool isAloneAtTheEnd()
{
    return false;
}

} // namespace kez::platform
