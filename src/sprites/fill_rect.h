// SPDX-License-Identifier: MIT
/// Solid rectangles of canvas pixels.
#pragma once

#include "display/canvas.h"

namespace kez {

/// Fills the part of the rectangle that lies on the canvas. Alpha 255 writes the pixel whole;
/// below, each colour byte becomes (colour × alpha + canvas × (255 − alpha)) >> 8 and the canvas's
/// alpha byte stays. Nothing for an empty rectangle or without a canvas.
void fillRect(
    const CanvasPixels& canvas, int left, int top, int width, int height, CanvasPixel pixel);

} // namespace kez
