// SPDX-License-Identifier: MIT
/// What our own layer offers to tests on other systems, for the system's real kernel: the texts of
/// `OutputDebugStringA` and a clock that a test moves. Both work for calls from the test program
/// and the module linked into it, whose imports lead here (see imported.h).
#pragma once

#include <windows.h>

namespace kez::winapi {

/// Hands every text of `OutputDebugStringA` to `hook`, on the thread that wrote it; null: to none.
void setDebugOutputHook(void (*hook)(const char* text, void* context), void* context = nullptr);

/// From now on `timeGetTime` starts at `start`, and `Sleep` and waits for a thread's end cost no
/// time: threads of CreateThread and the caller take turns, and time jumps to whoever is next.
void useScriptClock(DWORD start);

void useRealClock(); ///< Ends it: sleepers wake at once.

} // namespace kez::winapi
