// SPDX-License-Identifier: MIT
/// The sprite renderer: puts a sprite on the canvas, clipped, scaled to its displayed size and
/// turned by quarters. Only the host's thread draws; the renderer is not re-entrant.
#pragma once

#include "display/canvas.h"
#include "sprites/blit.h"

namespace kez {

/// Where and how large a sprite is shown: its centre from the canvas's centre and its displayed
/// size before turning, in pixels; the angle in degrees, clockwise.
struct SpritePlacement {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int angle = 0;
};

/// Draws nothing, silently, without a canvas or a sprite, for a size of zero, outside the canvas
/// and at angles other than 0, 90, 180 and 270.
void drawSprite(
    const CanvasPixels& canvas, const SpriteParts& parts, const SpritePlacement& placement);

} // namespace kez
