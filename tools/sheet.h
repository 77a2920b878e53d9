// SPDX-License-Identifier: MIT
/// The sheet of a whole screen, 640 × 480 pixels, and where the renderer places a picture on it: a
/// record says how far the picture's centre lies from the sheet's.
#pragma once

namespace kez::tools {

constexpr int sheetWidth = 640;
constexpr int sheetHeight = 480;

/// The column, or row, that a picture of `size` pixels begins in when its centre is at 0.
constexpr int centred(int size, int sheetSize)
{
    return (sheetSize - size) / 2;
}

} // namespace kez::tools
