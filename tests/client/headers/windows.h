// SPDX-License-Identifier: MIT
/// As much of the system's headers as a host's calls need, for a compiler that comes without them.
#pragma once

struct HWND__;
using HWND = HWND__*;
using DWORD = unsigned long;
struct IDirectDraw;
struct IDirectDrawSurface;
struct IDirectSound;
