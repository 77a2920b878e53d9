// SPDX-License-Identifier: MIT
/// The four colours that the player gives to the module, to match the content's artwork.
#pragma once

#include <windows.h>

namespace kez::player {

/// A frame's or text's colour: red in the lowest byte.
constexpr DWORD graphicColour(DWORD red, DWORD green, DWORD blue)
{
    return 0xFF000000u | blue << 16 | green << 8 | red;
}

/// A filled area's colour, a canvas pixel: blue in the lowest byte.
constexpr DWORD pixelColour(DWORD red, DWORD green, DWORD blue)
{
    return 0xFF000000u | red << 16 | green << 8 | blue;
}

constexpr DWORD selectedFrame = graphicColour(0xF5, 0x80, 0x3F);
constexpr DWORD labelText = graphicColour(0x33, 0x30, 0x4D);
constexpr DWORD emptyCell = pixelColour(0xFF, 0xF3, 0xD6);
constexpr DWORD bookFrame = graphicColour(0x93, 0x59, 0x2F);

} // namespace kez::player
