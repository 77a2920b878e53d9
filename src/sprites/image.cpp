// SPDX-License-Identifier: MIT
#include "sprites/image.h"

#include "core/diagnostics.h"
#include "media/resource_archive.h"
#include "sprites/renderer.h"

namespace kez {

namespace {

std::uint8_t* findRecord(const char* name)
{
    ResourceArchive* const records = archive();
    return records != nullptr ? records->find(name) : nullptr;
}

template <class View>
const View* pointerTo(const std::optional<View>& view)
{
    return view ? &*view : nullptr;
}

} // namespace

Image::Image(const char* name, bool shown)
    : Image(name, Placement {}, shown)
{
}

Image::Image(const char* name, const Placement& placement, bool shown)
    : Graphic(placement, shown, black)
{
    setName(name);
}

Image* Image::clone() const
{
    return new Image(*this);
}

const String& Image::className() const
{
    static const String own("Image");
    return own;
}

void Image::draw()
{
    const SpriteParts parts { pointerTo(sprite_), pointerTo(palette_), pointerTo(alpha_) };
    drawSprite(targetPixels(), parts, { x, y, width, height, angle });
}

void Image::realize()
{
    loadSprite(false);
}

void Image::unrealize()
{
    releaseSprite();
}

bool Image::drawsPixels() const
{
    return true;
}

int Image::spriteWidth() const
{
    return sprite_ ? sprite_->width() : 0;
}

int Image::spriteHeight() const
{
    return sprite_ ? sprite_->height() : 0;
}

void Image::releaseSprite()
{
    sprite_.reset();
    palette_.reset();
    alpha_.reset();
}

std::uint8_t* Image::pixels() const
{
    return sprite_ ? sprite_->pixels() : nullptr;
}

const std::uint8_t* Image::alphaPlane() const
{
    return alpha_ ? alpha_->plane() : nullptr;
}

void Image::loadSprite(bool keepPlacement)
{
    releaseSprite();
    String recordName = name();
    recordName.append(".sp5");
    std::uint8_t* const record = findRecord(recordName.c_str());
    if (record == nullptr) {
        reportLastError("%s", recordName.c_str());
        return;
    }
    borrowSprite(recordBytes(record), recordName.c_str(), RecordOwner::Archive, keepPlacement);
}

void Image::borrowSprite(
    std::span<std::uint8_t> record, const char* recordName, RecordOwner owner, bool keepPlacement)
{
    releaseSprite();
    const char* fault = nullptr;
    sprite_ = SpriteView::parse(record, fault);
    if (!sprite_) {
        reportLastError("%s: %s", recordName, fault);
        return;
    }
    if (!keepPlacement)
        takePlacement();
    borrowPalette(recordName, owner);
    // An opacity plane is not sought where the palette was not found.
    if (palette_ || sprite_->paletteName() == nullptr)
        borrowAlpha(recordName, owner);
}

void Image::takePlacement()
{
    x = baseX = sprite_->x();
    y = baseY = sprite_->y();
    depth = baseDepth = sprite_->depth();
    width = baseWidth = sprite_->width();
    height = baseHeight = sprite_->height();
}

void Image::borrowPalette(const char* recordName, RecordOwner owner)
{
    const char* const paletteName = sprite_->paletteName();
    if (paletteName == nullptr) {
        if (sprite_->pixelBits() == 8)
            reportLastError("%s: the sprite has 8 bits and no palette", recordName);
        return;
    }
    std::uint8_t* const record = findRecord(paletteName);
    if (record == nullptr) {
        reportLastError("%s", owner == RecordOwner::Archive ? paletteName : "");
        return;
    }
    const char* fault = nullptr;
    palette_ = PaletteView::parse(recordBytes(record), *sprite_, fault);
    if (palette_)
        palette_->makeOpaque();
    else
        reportLastError("%s: %s", paletteName, fault);
}

void Image::borrowAlpha(const char* recordName, RecordOwner owner)
{
    const char* const alphaName = sprite_->alphaName();
    if (alphaName == nullptr)
        return;
    std::uint8_t* const record = findRecord(alphaName);
    if (record == nullptr) {
        reportLastError("%s", owner == RecordOwner::Archive ? alphaName : "");
        return;
    }
    const char* fault = nullptr;
    alpha_ = AlphaView::parse(recordBytes(record), *sprite_, fault);
    if (!alpha_) {
        reportLastError("%s: %s", alphaName, fault);
        return;
    }
    const bool merges = owner == RecordOwner::Archive && sprite_->pixelBits() == 32;
    if (merges && !alpha_->mergeInto(*sprite_))
        reportLastError("%s: no memory for the opacities of %s", recordName, alphaName);
}

} // namespace kez
