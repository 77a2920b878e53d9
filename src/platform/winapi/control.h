// SPDX-License-Identifier: MIT
/// What tests may do to the display's half of this layer beyond the Win32 names: break surfaces,
/// choose the display's colour masks, count what is alive. Exists off Windows only.
#pragma once

#include "ddraw.h"

namespace kez::winapi {

/// Lock, GetDC, Blt and BltFast (also as their source) answer DDERR_SURFACELOST until `Restore`.
void loseSurface(IDirectDrawSurface* surface);

enum class Call { Lock, GetDC, Blt, Restore }; ///< Blt: both Blt and BltFast.

/// The next `count` calls on the surface fail with `result` and do nothing; of a blit, those for
/// which the surface is the destination. Replaces what was asked before; a count of 0 ends it.
void refuseNext(IDirectDrawSurface* surface, Call call, HRESULT result, int count = 1);

/// From now on display modes of the description's depth have its masks. False when the description
/// is of no format that a surface can have.
bool useDisplayFormat(const DDPIXELFORMAT& format);
void useUsualDisplayFormats(); ///< 565, and eight bits a channel; red highest.

struct LiveObjects {
    int surfaces = 0;
    int deviceContexts = 0;
    int gdiObjects = 0; ///< Without the stock objects.
    int windows = 0;

    friend bool operator==(const LiveObjects&, const LiveObjects&) = default;
};

[[nodiscard]] LiveObjects liveObjects();

} // namespace kez::winapi
