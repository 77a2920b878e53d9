// SPDX-License-Identifier: MIT
/// The program's window on a real display, by SDL: at most one, opened when a window is first
/// shown. It shows the primary surface and turns what a person does into messages. Every function
/// does nothing while there is no such window.
#pragma once

#include "winuser.h"

#include <string>

namespace kez::winapi {

struct Window;

/// Opens the display. False, with a diagnostic, when there is none or another window is on it.
bool showOnDisplay(HWND handle, const Window& window);
void hideOnDisplay(HWND handle);

void titleOnDisplay(HWND handle, const std::string& title);
void raiseOnDisplay(HWND handle);
void warpOnDisplay(POINT position); ///< Moves the real pointer, if this program has the keyboard.
void cursorOnDisplay(); ///< Gives the pointer the shape that `inputState` says.
void setFullScreen(bool fullScreen); ///< Remembered until a window is shown.

void showPicture(); ///< Brings the primary surface onto the display, if it has changed.
void pumpDisplay(); ///< Turns waiting input into messages.

/// Shows a message box over the window; false when there is no window.
bool showBox(const char* title, const char* text, UINT type);

} // namespace kez::winapi
