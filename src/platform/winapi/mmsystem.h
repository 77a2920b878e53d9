// SPDX-License-Identifier: MIT
/// The multimedia timer: milliseconds since some start, wrapping round after 49.7 days.
#pragma once

#include "windef.h"

using MMRESULT = UINT;

#define TIMERR_NOERROR 0u
#define TIMERR_NOCANDO 97u

extern "C" {

DWORD WINAPI timeGetTime();

/// The timer always ticks every millisecond here; a period of 0 is refused, as the platform does.
MMRESULT WINAPI timeBeginPeriod(UINT milliseconds);
MMRESULT WINAPI timeEndPeriod(UINT milliseconds);

} // extern "C"
