// SPDX-License-Identifier: MIT
/// The library's life in its program: what keeps it loaded, and how it ends.
#pragma once

#include <string>

namespace kez::platform {

/// The file that holds a library of ours or of a driver's maker: "qxdcdll.dll", "libqxdcdll.so".
[[nodiscard]] std::string libraryFile(const char* name);

/// A thread that runs code of this library must keep it loaded, for the program may let the library
/// go at any time: call this before the thread starts, and `endHoldingThread` as its last act (or
/// `letLibraryGo` when it does not start). Who lets go last unloads the library, be it the thread.
void holdLibrary();
void letLibraryGo();
[[noreturn]] void endHoldingThread();

/// Calls `hook` once, before the library's static objects are destroyed: when it is unloaded or
/// when the program ends. (Objects first used after this call may be gone before it at the
/// program's end.) One hook; a later one takes the place of an earlier.
void onLibraryUnload(void (*hook)());

/// True once the program ends in the way of Windows: the other threads are gone, killed wherever
/// they were with whatever they had locked, and other libraries may have ended before this one.
[[nodiscard]] bool isAloneAtTheEnd();

} // namespace kez::platform
