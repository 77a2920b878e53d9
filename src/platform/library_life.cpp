// SPDX-License-Identifier: MIT
#include "platform/library_life.h"

#include <windows.h>

namespace kez::platform {

namespace {

HMODULE ownLibrary(DWORD flags)
{
    HMODULE library = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | flags,
        reinterpret_cast<LPCSTR>(&holdLibrary), &library);
    return library;
}

} // namespace

void holdLibrary()
{
    static_cast<void>(ownLibrary(0));
}

void letLibraryGo()
{
    FreeLibrary(ownLibrary(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT));
}

void endHoldingThread()
{
    FreeLibraryAndExitThread(ownLibrary(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT), 0);
}

} // namespace kez::platform
