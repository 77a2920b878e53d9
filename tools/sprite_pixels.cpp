// SPDX-License-Identifier: MIT
#include "sprite_pixels.h"

#include "core/little_endian.h"
#include "sprites/checked_rows.h"

namespace kez::tools {

namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr std::uint32_t opaque = 0xFF000000;

void visitSprite(const ArchiveRecord& record, const SpriteView& sprite, auto&& visit)
{
    const std::uint8_t* end = record.bytes.data() + record.bytes.size();
    const PictureShape shape { sprite.mode(), sprite.width(), sprite.height(),
        sprite.bytesPerPixel() };
    visitPicture(std::span<const std::uint8_t>(sprite.pixels(), end), shape, visit);
}

// A plane lies as the sprite's pixels do, with one byte for each.
void takeOpacity(const ArchiveRecord& record, const SpriteView& sprite, const std::uint8_t* plane,
    Pixels& pixels)
{
    const std::uint8_t* end = record.bytes.data() + record.bytes.size();
    const PictureShape shape { sprite.mode(), sprite.width(), sprite.height(), 1 };
    visitPicture(std::span(plane, end), shape, [&](int first, int count, const std::uint8_t* at) {
        for (int i = 0; i < count; ++i) {
            std::uint32_t& pixel = pixels[static_cast<std::size_t>(first + i)];
            pixel = (pixel & ~opaque) | std::uint32_t { at[i] } << 24;
        }
    });
}

Pixels trueColourPixels(const ArchiveRecord& record, const SpriteView& sprite)
{
    Pixels pixels(static_cast<std::size_t>(sprite.width() * sprite.height()));
    visitSprite(record, sprite, [&](int first, int count, const std::uint8_t* at) {
        for (int i = 0; i < count; ++i)
            pixels[static_cast<std::size_t>(first + i)]
                = loadWord(at + 4 * i) | (sprite.hasAlpha() ? 0 : opaque);
    });
    return pixels;
}

Pixels palettePixels(
    const ArchiveRecord& record, const SpriteView& sprite, const PaletteView& palette)
{
    Pixels pixels(static_cast<std::size_t>(sprite.width() * sprite.height()));
    visitSprite(record, sprite, [&](int first, int count, const std::uint8_t* at) {
        for (int i = 0; i < count; ++i)
            pixels[static_cast<std::size_t>(first + i)]
                = loadWord(palette.colours() + 4 * at[i]) | opaque;
    });
    return pixels;
}

} // namespace

const ArchiveRecord* recordNamed(std::span<const ArchiveRecord> records, std::string_view name)
{
    const std::string sought = normalisedRecordName(name);
    for (const ArchiveRecord& record : records) {
        if (normalisedRecordName(record.name) == sought)
            return &record;
    }
    return nullptr;
}

std::optional<Pixels> spritePixels(std::span<const ArchiveRecord> records,
    const ArchiveRecord& record, const SpriteView& sprite, std::string& fault)
{
    if (!sprite.isDrawable() || sprite.pixelBits() == 16
        || (sprite.pixelBits() == 32 && sprite.alphaName() != nullptr)) {
        fault = "its form is not one that kez pack makes";
        return std::nullopt;
    }
    if (sprite.pixelBits() == 32)
        return trueColourPixels(record, sprite);
    const char* name = sprite.paletteName();
    const ArchiveRecord* found = name != nullptr ? recordNamed(records, name) : nullptr;
    const char* reason = "its palette is missing";
    const auto palette
        = found != nullptr ? PaletteView::parse(found->bytes, sprite, reason) : std::nullopt;
    if (!palette) {
        fault = reason;
        return std::nullopt;
    }
    Pixels pixels = palettePixels(record, sprite, *palette);
    if (!sprite.hasAlpha())
        return pixels;
    found = sprite.alphaName() != nullptr ? recordNamed(records, sprite.alphaName()) : nullptr;
    reason = "its opacity plane is missing";
    const auto plane
        = found != nullptr ? AlphaView::parse(found->bytes, sprite, reason) : std::nullopt;
    if (!plane) {
        fault = reason;
        return std::nullopt;
    }
    takeOpacity(*found, sprite, plane->plane(), pixels);
    return pixels;
}

} // namespace kez::tools
