// SPDX-License-Identifier: MIT
/// The Win32 names that the module and the player use, for systems that have none of their own:
/// the real names, values, member orders and failure rules. What is not here does not compile.
#pragma once

#include "windef.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"
