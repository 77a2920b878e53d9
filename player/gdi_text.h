// SPDX-License-Identifier: MIT
/// Texts on a device context, for the player's own drawing.
#pragma once

#include <windows.h>

#include <string>

namespace kez::player {

struct TextLook {
    int height = 18; ///< Of a character, in pixels.
    int weight = FW_NORMAL;
    COLORREF colour = 0;
    UINT placing = DT_CENTER | DT_VCENTER | DT_SINGLELINE; ///< As DrawTextA takes it.
};

/// Writes the text into the area, transparently. Nothing in it is a mnemonic.
void writeText(HDC context, const RECT& area, const std::string& text, const TextLook& look);

/// The same with lines that are broken between words, in the middle of the area's height.
void writeInMiddle(HDC context, const RECT& area, const std::string& text, const TextLook& look);

} // namespace kez::player
