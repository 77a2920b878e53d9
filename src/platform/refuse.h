// SPDX-License-Identifier: MIT
/// How a function that answers true or false says no with a reason, as the system's own do.
#pragma once

#include <windows.h>

namespace kez {

/// Sets the last error; always false.
inline bool refuse(DWORD error)
{
    SetLastError(error);
    return false;
}

} // namespace kez
