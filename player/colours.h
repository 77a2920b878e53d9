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

constexpr DWORD selectedFrame = graphicColour(16, 110, 230);
constexpr DWORD labelText = graphicColour(75, 46, 62);
constexpr DWORD emptyCell = pixelColour(234, 223, 198);
constexpr DWORD bookFrame = graphicColour(178, 132, 86);

} // namespace kez::player
