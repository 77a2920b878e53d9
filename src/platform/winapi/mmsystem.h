// SPDX-License-Identifier: MIT
/// The multimedia timer: milliseconds since some start, wrapping round after 49.7 days.
#pragma once

#include "windef.h"

extern "C" DWORD WINAPI timeGetTime();
