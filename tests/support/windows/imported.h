// SPDX-License-Identifier: MIT
/// Puts a function of ours in the place of one that a program imports. A call to an imported
/// function goes through a pointer of the name `__imp_` and the function's own; whoever defines
/// that pointer before the import library is asked decides what is called.
#pragma once

#include <windows.h>

/// `symbol` is the function's own, with its bytes of arguments: "Sleep@4".
#define KEZ_IN_PLACE_OF(symbol, function)                                                          \
    extern "C" void* const KEZ_IMPORT_OF_##function __asm__("__imp__" symbol);                     \
    void* const KEZ_IMPORT_OF_##function = reinterpret_cast<void*>(&function)

namespace kez::winapi {

/// The system's function itself.
template <class Function>
Function* systemFunction(const char* library, const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(library), name)));
}

} // namespace kez::winapi
