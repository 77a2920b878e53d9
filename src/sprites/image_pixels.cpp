// SPDX-License-Identifier: MIT
// Editing the pixels of a sprite that was made while the program runs.
#include "core/little_endian.h"
#include "sprites/image.h"

#include "media/byte_block.h"
#include "sprites/picture_pixels.h"

#include <algorithm>
#include <cstring>

namespace kez {

namespace {

// One axis of a block centred at `centre` (from the sprite's centre), clipped to the sprite.
struct Extent {
    Extent(int centre, int blockLength, int spriteLength)
        : start(std::int64_t { centre } + spriteLength / 2 - blockLength / 2)
        , first(static_cast<int>(std::max<std::int64_t>(start, 0)))
        , end(static_cast<int>(std::clamp<std::int64_t>(start + blockLength, 0, spriteLength)))
    {
    }

    std::int64_t start; // of the whole block
    int first;
    int end;
};

std::size_t offsetAt(int row, int column, int width)
{
    return 4
        * (static_cast<std::size_t>(row) * static_cast<std::size_t>(width)
            + static_cast<std::size_t>(column));
}

} // namespace

std::uint8_t* Image::editablePixels() const
{
    const bool isEditable = sprite_ && sprite_->isDrawable() && sprite_->pixelBits() == 32
        && sprite_->mode() == SpriteMode::Raw && sprite_->width() == width
        && sprite_->height() == height;
    return isEditable ? sprite_->pixels() : nullptr;
}

void Image::fillPixels(std::uint32_t value, int blockX, int blockY, int w, int h)
{
    std::uint8_t* const target = editablePixels();
    if (target == nullptr)
        return;
    const Extent across(blockX, w, width);
    const Extent down(blockY, h, height);
    for (int row = down.first; row < down.end; ++row) {
        for (int column = across.first; column < across.end; ++column)
            storeWord(target + offsetAt(row, column, width), value);
    }
}

void Image::pastePixels(const std::uint32_t* source, int sourceWidth, int sourceHeight, int blockX,
    int blockY, int targetWidth, int targetHeight)
{
    std::uint8_t* const target = editablePixels();
    const int w = targetWidth == 0 ? sourceWidth : targetWidth;
    const int h = targetHeight == 0 ? sourceHeight : targetHeight;
    if (target == nullptr || source == nullptr || sourceWidth <= 0 || sourceHeight <= 0 || w <= 0
        || h <= 0)
        return;
    if (w != sourceWidth || h != sourceHeight) {
        const std::size_t area = static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
        ByteBlock scaled = ByteBlock::zeroed(4 * area);
        if (!scaled)
            return;
        auto* const scaledPixels = reinterpret_cast<std::uint32_t*>(scaled.data());
        scaleNearest(source, sourceWidth, sourceHeight, scaledPixels, w, h);
        pastePixels(scaledPixels, w, h, blockX, blockY, w, h);
        return;
    }
    const Extent across(blockX, w, width);
    const Extent down(blockY, h, height);
    if (across.first >= across.end)
        return;
    // The picture's first row is its lowest.
    for (int row = down.first; row < down.end; ++row) {
        const std::int64_t sourceRow = down.start + h - 1 - row;
        const std::uint32_t* const from = source + sourceRow * w + (across.first - across.start);
        std::memcpy(target + offsetAt(row, across.first, width), from,
            offsetAt(0, across.end - across.first, width));
    }
}

} // namespace kez
