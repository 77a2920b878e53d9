// SPDX-License-Identifier: MIT
/// The DirectSound object that the player owns and lends to the module.
#pragma once

#include "com_pointer.h"

#include <windows.h>

#include <mmsystem.h> // before dsound.h, which needs its wave formats

#include <dsound.h>

namespace kez::player {

/// Null when the computer has no sound output; the activity is silent then.
[[nodiscard]] ComPointer<IDirectSound> makeSoundOutput(HWND window);

} // namespace kez::player
