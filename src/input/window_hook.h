// SPDX-License-Identifier: MIT
/// While the module is open it stands in front of the host window's procedure: it turns mouse and
/// key messages into events, hides the system cursor, and passes every other message on.
#pragma once

#include <windows.h>

namespace kez {

/// Takes the window's procedure, after giving back that of an earlier window. A window that cannot
/// be hooked is reported; the module then hears no input.
void installHook(HWND window);
void removeHook(); ///< Nothing when no hook is installed.

} // namespace kez
