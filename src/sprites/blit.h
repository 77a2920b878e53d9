// SPDX-License-Identifier: MIT
/// The family of blitters behind the sprite renderer: one loop for each storage mode, pixel format
/// and way of drawing, chosen once per sprite. Sources have been checked, targets clipped.
#pragma once

#include "sprites/run_rows.h"
#include "sprites/sprite_record.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace kez {

/// A sprite with what it needs to be drawn. Borrowed.
struct SpriteParts {
    const SpriteView* sprite = nullptr;
    const PaletteView* palette = nullptr; ///< Null without one.
    const AlphaView* alpha = nullptr; ///< Null without one.
};

/// How pixels are stored; the order is that of the blitters' tables.
enum class StoredFormat { Indexed, Rgb565, TrueColour };

struct BlitSource {
    RowCursor start;
    const std::uint8_t* palette = nullptr;
    int width = 0;
    int height = 0;
    SpriteMode mode = SpriteMode::Raw;
    StoredFormat format = StoredFormat::TrueColour;
    bool hasAlpha = false;
};

/// Empty for what draws nothing: a size of zero, an unknown mode, an 8-bit sprite without palette.
/// Opacity that a missing plane should give is not used: the sprite is then opaque.
[[nodiscard]] std::optional<BlitSource> blitSource(const SpriteParts& parts);

/// The visible part of a sprite on the canvas, and how much of the displayed picture is cut off at
/// its left and top. All in pixels of the canvas.
struct BlitTarget {
    std::uint32_t* pixels = nullptr; ///< The first visible one.
    std::ptrdiff_t rowPixels = 0; ///< From one row to the next.
    int clipLeft = 0;
    int clipTop = 0;
    int columns = 0;
    int rows = 0;

    [[nodiscard]] std::uint32_t* row(int y) const { return pixels + y * rowPixels; }
};

/// Draws the source pixel for pixel. In raw sprites opacity 0 leaves the canvas as it is.
void drawUnscaled(const BlitSource& source, const BlitTarget& target);

/// Draws the source as a picture of the displayed size, by nearest neighbours.
void drawScaled(
    const BlitSource& source, const BlitTarget& target, int displayedWidth, int displayedHeight);

/// Writes the whole source as 32-bit pixels, turned clockwise by 90, 180 or 270 degrees, into a
/// picture of its area: skipped pixels are 0, the pixels of opaque sprites with runs get opacity
/// 255, those of opaque raw ones stay as stored. Drawn raw and with the opacity flag of
/// `turnedHasAlpha` that picture is the turned sprite.
void turn(const BlitSource& source, int angle, std::uint32_t* into);
[[nodiscard]] bool turnedHasAlpha(const BlitSource& source);

} // namespace kez
