// SPDX-License-Identifier: MIT
/// Diagnostics go to the debugger output and nowhere else; the child never sees them. They never
/// stop the module. Texts longer than 799 characters are cut.
#pragma once

namespace kez {

/// Writes a line break, the formatted text and a line break, in three writes.
[[gnu::format(printf, 1, 2)]] void debugPrint(const char* format, ...);

/// Writes the system's text for the thread's last error (nothing when the code is 0) directly
/// followed by the formatted message; the system's text alone when `format` is null.
[[gnu::format(printf, 1, 2)]] void reportLastError(const char* format, ...);

} // namespace kez
