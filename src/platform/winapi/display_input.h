// SPDX-License-Identifier: MIT
/// SDL's events as window messages: keys as virtual keys, texts as ANSI characters, the mouse in
/// pixels of the picture.
#pragma once

#include "fit.h"
#include "winuser.h"

union SDL_Event;

namespace kez::winapi {

/// What the window itself has to do about an event.
enum class DisplayAction { None, Redraw, ToggleFullScreen, Activate, Deactivate };

/// Posts the messages that the event means for the window. `size` is the window's on the display.
DisplayAction translateEvent(HWND window, const SDL_Event& event, SIZE size);

/// Where the picture of the display's mode lies in a window of that size.
[[nodiscard]] Fit displayFit(SIZE size);

/// The virtual key for an SDL key, 0 for one that has none.
[[nodiscard]] int virtualKey(int scancode, int keycode);

} // namespace kez::winapi
