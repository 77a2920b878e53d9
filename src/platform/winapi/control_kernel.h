// SPDX-License-Identifier: MIT
/// What tests and `desktop.h` may do to the kernel's part of this layer beyond the Win32 names:
/// watch the diagnostics and run time on a clock of its own. Exists off Windows only.
#pragma once

#include "windef.h"

namespace kez::winapi {

/// Hands every text of `OutputDebugStringA` to `hook`, on the thread that wrote it; null: to none.
void setDebugOutputHook(void (*hook)(const char* text, void* context), void* context = nullptr);

void showDebugOutput(bool shown); ///< Whether the texts go to standard error as well.

/// The script clock. Threads take turns: one that sleeps or waits hands on to the one whose time
/// comes first (of equal times, to the one that has waited longest), and time jumps to it. At most
/// one thread runs, so that a program without other sources of chance runs the same way every time.
///
/// The calling thread and every thread of CreateThread take part. A thread that takes part must
/// reach `Sleep`, `WaitForSingleObject` or its end before any other runs: one that holds a lock
/// while it sleeps, or spins until another acts, stops them all.
///
/// Called again it sets the time anew and shifts all wake-ups with it.
void useScriptClock(DWORD start);

void useRealClock(); ///< Ends it: sleepers wake at once, timeGetTime is real again.

} // namespace kez::winapi
