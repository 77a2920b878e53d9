// SPDX-License-Identifier: MIT
/// While the module is open it stands in front of the host window's procedure: it turns mouse and
/// key messages into events, hides the system cursor, and passes every other message on.
#pragma once

#include <windows.h>

namespace kez {

void installHook(HWND window);
void removeHook(); ///< Nothing when no hook is installed.

} // namespace kez
