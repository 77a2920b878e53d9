// SPDX-License-Identifier: MIT
/// A sprite on the screen. The record, its palette and its opacity plane are borrowed from the
/// archive between `realize` and `unrealize`; nothing is copied for drawing.
#pragma once

#include "display/graphic.h"
#include "sprites/sprite_record.h"

#include <cstdint>
#include <optional>
#include <span>

namespace kez {

class Image : public Graphic {
public:
    Image(const char* name, bool visible);
    Image(const char* name, const Placement& placement, bool visible);
    Image* clone() const override; ///< Shares the records.
    const String& className() const override;
    void draw() override; ///< Into the open canvas: clipped, scaled and turned as the object says.
    void realize() override; ///< `loadSprite(false)`.
    void unrealize() override; ///< `releaseSprite`.
    bool drawsPixels() const override;

    virtual int spriteWidth() const; ///< Slot 19: 0 without a sprite.
    virtual int spriteHeight() const; ///< Slot 20.

    /// Slot 21: borrows the record named after the object, ".sp5" appended, and the palette and
    /// alpha records it names. Takes the placement from the record unless told to keep it. What is
    /// missing or malformed is reported; a malformed record counts as missing.
    virtual void loadSprite(bool keepPlacement);

    void releaseSprite();
    [[nodiscard]] std::uint8_t* pixels() const; ///< The pixel data in the record, or null.
    [[nodiscard]] const std::uint8_t* alphaPlane() const; ///< The plane in its record, or null.

    /// Sets the w × h block centred at (x, y) of a 32-bit raw sprite shown at its own size, in
    /// coordinates relative to the sprite's centre. Clipped to the sprite.
    void fillPixels(std::uint32_t value, int blockX, int blockY, int w, int h);

    /// Copies a picture (first row at the bottom of the block) into the block centred at (x, y),
    /// scaled by nearest neighbours when the sizes differ; a target size of 0 means the source's.
    void pastePixels(const std::uint32_t* source, int sourceWidth, int sourceHeight, int blockX,
        int blockY, int targetWidth, int targetHeight);

protected:
    enum class RecordOwner { Archive, Object };

    Image(const Image&) = default;

    /// Takes the sprite from the record, the placement too unless told to keep it, and the palette
    /// and alpha records from the archive. A missing one is reported by its name, or for a record
    /// of the object's own by the system's text alone. Such a record's pixels keep their opacity;
    /// an archive's get theirs from the alpha record.
    void borrowSprite(std::span<std::uint8_t> record, const char* recordName, RecordOwner owner,
        bool keepPlacement);

private:
    void takePlacement();
    void borrowPalette(const char* recordName, RecordOwner owner);
    void borrowAlpha(const char* recordName, RecordOwner owner);
    [[nodiscard]] std::uint8_t* editablePixels() const;

    std::optional<SpriteView> sprite_;
    std::optional<PaletteView> palette_;
    std::optional<AlphaView> alpha_;
};

} // namespace kez
