// SPDX-License-Identifier: MIT
#include "sprites/renderer.h"

#include "media/byte_block.h"

#include <array>
#include <utility>

namespace kez {

namespace {

// The visible part of one axis.
struct Extent {
    std::int64_t start; // on the canvas
    std::int64_t length;
    std::int64_t clipped; // cut off before the start
};

Extent visibleExtent(int centre, std::int64_t length, int canvasLength)
{
    // The division truncates towards zero, so odd differences lie nearer to the centre.
    std::int64_t start = centre + (canvasLength - length) / 2;
    std::int64_t clipped = 0;
    if (start < 0) {
        clipped = -start;
        length -= clipped;
        start = 0;
    }
    if (start + length > canvasLength)
        length = canvasLength - start;
    return { start, length, clipped };
}

// Empty when the picture lies outside the canvas.
std::optional<BlitTarget> clip(const CanvasPixels& canvas, const SpritePlacement& placement)
{
    const Extent across = visibleExtent(placement.x, placement.width, canvas.width);
    const Extent down = visibleExtent(placement.y, placement.height, canvas.height);
    if (across.length < 1 || down.length < 1)
        return std::nullopt;
    BlitTarget target;
    target.rowPixels = canvas.width;
    target.pixels = canvas.pixels + down.start * target.rowPixels + across.start;
    target.clipLeft = static_cast<int>(across.clipped);
    target.clipTop = static_cast<int>(down.clipped);
    target.columns = static_cast<int>(across.length);
    target.rows = static_cast<int>(down.length);
    return target;
}

void drawUpright(
    const BlitSource& source, const BlitTarget& target, const SpritePlacement& placement)
{
    if (source.width == placement.width && source.height == placement.height)
        drawUnscaled(source, target);
    else
        drawScaled(source, target, placement.width, placement.height);
}

// Memory for a turned sprite: up to a screenful for the life of the module, more for one call.
class TurnBuffer {
public:
    explicit TurnBuffer(std::size_t pixels)
    {
        static std::array<std::uint32_t, std::size_t { 640 } * 480> screenful;
        if (pixels <= screenful.size()) {
            pixels_ = screenful.data();
            return;
        }
        larger_ = ByteBlock::unset(pixels * sizeof *pixels_);
        pixels_ = reinterpret_cast<std::uint32_t*>(larger_.data());
    }

    [[nodiscard]] std::uint32_t* pixels() const { return pixels_; } // null without memory

private:
    std::uint32_t* pixels_ = nullptr;
    ByteBlock larger_;
};

void drawTurned(
    const BlitSource& source, const BlitTarget& target, const SpritePlacement& turnedPlacement)
{
    const TurnBuffer buffer(
        static_cast<std::size_t>(source.width) * static_cast<std::size_t>(source.height));
    if (buffer.pixels() == nullptr)
        return;
    turn(source, turnedPlacement.angle, buffer.pixels());
    BlitSource turned;
    turned.start.pixels = reinterpret_cast<const std::uint8_t*>(buffer.pixels());
    turned.width = source.width;
    turned.height = source.height;
    turned.hasAlpha = turnedHasAlpha(source);
    if (turnedPlacement.angle != 180)
        std::swap(turned.width, turned.height);
    drawUpright(turned, target, turnedPlacement);
}

} // namespace

std::optional<BlitSource> blitSource(const SpriteParts& parts)
{
    const SpriteView* const sprite = parts.sprite;
    if (sprite == nullptr || !sprite->isDrawable())
        return std::nullopt;
    BlitSource source;
    source.start.pixels = sprite->pixels();
    source.width = sprite->width();
    source.height = sprite->height();
    source.mode = sprite->mode();
    source.hasAlpha = sprite->hasAlpha();
    if (sprite->pixelBits() == 32)
        return source;

    source.format = sprite->pixelBits() == 8 ? StoredFormat::Indexed : StoredFormat::Rgb565;
    if (source.format == StoredFormat::Indexed && parts.palette == nullptr)
        return std::nullopt;
    source.palette = parts.palette != nullptr ? parts.palette->colours() : nullptr;
    source.hasAlpha = source.hasAlpha && parts.alpha != nullptr;
    source.start.plane = source.hasAlpha ? parts.alpha->plane() : nullptr;
    return source;
}

void drawSprite(
    const CanvasPixels& canvas, const SpriteParts& parts, const SpritePlacement& placement)
{
    const std::optional<BlitSource> source = blitSource(parts);
    if (canvas.pixels == nullptr || !source)
        return;
    SpritePlacement turned = placement;
    if (placement.angle == 90 || placement.angle == 270)
        std::swap(turned.width, turned.height);
    const std::optional<BlitTarget> target = clip(canvas, turned);
    if (!target)
        return;
    if (placement.angle == 0)
        drawUpright(*source, *target, turned);
    else if (placement.angle == 90 || placement.angle == 180 || placement.angle == 270)
        drawTurned(*source, *target, turned);
}

} // namespace kez
