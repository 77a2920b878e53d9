// SPDX-License-Identifier: MIT
/// The sprite record and the palette and alpha records that it names, read in place. A view can
/// only be had from the check of the whole record, so what draws through it checks nothing.
///
/// All words are little-endian; offsets count from the record's first byte.
///
///     offset  size      sprite record
///          0  u32       size of the record
///          4  char[40]  name
///         44  char[40]  "Sprite Image"
///         88  i32 × 3   x, y (of the centre), depth
///        100  u32 × 2   width, height
///        112  u32       bits a stored pixel: 8 (palette index), 16 (565) or 32 (0xAARRGGBB)
///        116  u32       mode (0 raw, 1 short runs, 2 long runs) + 16: draw with opacity
///        120  u32       offset of the palette-name block, 0 without one
///        124  u32       offset of the alpha-name block, 0 without one
///        128  u32       offset of the pixel block
///        132  u32       offset of an extra block, carried and never read; 0 without one
///        136  u32       offset of a row index, never needed; 0 without one
///        152            the blocks
///
/// The words at 84, 108 (both written as 1), 140, 144 and 148 are carried. A name block is a u32
/// count and that many names of 40 bytes, of which the first is used; any other block is a u32
/// length and its bytes. Rows lie top to bottom. A row of runs is
///
///     skip count, [literal count ≥ 1, that many pixels, [skip count, …]]
///
/// and ends where its counts add up to the width: six pixels of 8 bits, two transparent, A, B, one
/// transparent and C are the bytes 2, 2, A, B, 1, 1, C. A short count is a byte. A long count is a
/// byte up to 254, or 255 and the count as a u16.
///
/// A palette record has the offset of its colour block (u32 count, then 0xAARRGGBB entries) at 92
/// and a flag at 108: not 0 when the entries' alpha bytes are to stay as they are. An alpha record
/// has its mode at 116 and the offset of its plane block (u32 length, then the plane) at 120; a
/// plane is stored as pixels of one byte, the opacity.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace kez {

enum class SpriteMode : std::uint32_t { Raw = 0, ShortRuns = 1, LongRuns = 2 };

constexpr std::uint32_t alphaFlag = 16; ///< In the encoding, beside the mode.

namespace offsets {
constexpr std::size_t recordSize = 0;
constexpr std::size_t name = 4;
constexpr std::size_t typeName = 44;
constexpr std::size_t word84 = 84;
constexpr std::size_t x = 88;
constexpr std::size_t y = 92;
constexpr std::size_t depth = 96;
constexpr std::size_t width = 100;
constexpr std::size_t height = 104;
constexpr std::size_t pixelBits = 112;
constexpr std::size_t encoding = 116;
constexpr std::size_t paletteNames = 120;
constexpr std::size_t alphaNames = 124;
constexpr std::size_t pixels = 128;
constexpr std::size_t paletteColours = 92;
constexpr std::size_t paletteConverted = 108;
constexpr std::size_t alphaEncoding = 116;
constexpr std::size_t alphaPlane = 120;
} // namespace offsets

constexpr std::size_t recordHeaderBytes = 152;
constexpr std::size_t nameBytes = 40;

constexpr int largestSpriteSide = 32767; ///< What the 16.16 steps of scaled drawing can count.
constexpr int largestSpriteArea = 1 << 24; ///< Pixels; turning or merging a sprite copies them all.

/// The bytes of a record as its own length word counts them.
[[nodiscard]] std::span<std::uint8_t> recordBytes(std::uint8_t* record);

class SpriteView {
public:
    /// Checks the header, every block and every row's runs. Empty, and `fault` says why, when
    /// anything is out of order. A record of an unknown mode is accepted; it draws nothing.
    static std::optional<SpriteView> parse(std::span<std::uint8_t> record, const char*& fault);

    [[nodiscard]] int x() const { return word(offsets::x); }

    [[nodiscard]] int y() const { return word(offsets::y); }

    [[nodiscard]] int depth() const { return word(offsets::depth); }

    [[nodiscard]] int width() const { return width_; }

    [[nodiscard]] int height() const { return height_; }

    [[nodiscard]] int pixelBits() const { return pixelBits_; }

    [[nodiscard]] int bytesPerPixel() const { return pixelBits_ / 8; }

    [[nodiscard]] SpriteMode mode() const { return mode_; }

    [[nodiscard]] bool hasAlpha() const { return hasAlpha_; }

    [[nodiscard]] bool isDrawable() const; ///< A size other than zero and a known mode.

    [[nodiscard]] std::uint8_t* pixels() const { return pixels_.data(); }

    [[nodiscard]] int largestIndex() const { return largestIndex_; } ///< Of an 8-bit sprite.

    [[nodiscard]] const char* paletteName() const; ///< Null when the sprite names none.
    [[nodiscard]] const char* alphaName() const;

private:
    friend class AlphaView;

    explicit SpriteView(std::span<std::uint8_t> record);
    [[nodiscard]] std::int32_t word(std::size_t offset) const;
    [[nodiscard]] const char* findFault();
    [[nodiscard]] const char* findPixelFault();
    [[nodiscard]] const char* firstName(std::size_t offsetField) const;

    std::span<std::uint8_t> record_; // borrowed from the archive or a DynaImage
    std::span<std::uint8_t> pixels_; // as long as its block says
    int width_ = 0;
    int height_ = 0;
    int pixelBits_ = 0;
    int largestIndex_ = 0;
    SpriteMode mode_ = SpriteMode::Raw;
    bool hasAlpha_ = false;
};

class PaletteView {
public:
    /// Checks the record and that it has every colour the sprite uses. A record that is itself a
    /// sprite is refused: `makeOpaque` would write into pixels that others draw unchecked.
    static std::optional<PaletteView> parse(
        std::span<std::uint8_t> record, const SpriteView& sprite, const char*& fault);

    [[nodiscard]] const std::uint8_t* colours() const { return colours_.data(); }

    [[nodiscard]] int count() const { return static_cast<int>(colours_.size() / 4); }

    /// Sets every entry's alpha byte to 255, unless the record asks for them to stay.
    void makeOpaque() const;

private:
    std::span<std::uint8_t> colours_; // four bytes an entry
    bool converted_ = false;
};

class AlphaView {
public:
    /// Checks the record and that its plane fits the sprite: for 8- and 16-bit sprites the same
    /// mode and the same counts, for 32-bit sprites any mode that gives width × height opacities.
    static std::optional<AlphaView> parse(
        std::span<std::uint8_t> record, const SpriteView& sprite, const char*& fault);

    [[nodiscard]] const std::uint8_t* plane() const { return plane_.data(); }

    /// Gives each stored pixel of a 32-bit sprite its opacity from this plane, in the sprite's own
    /// record. False when there is no memory for the work.
    bool mergeInto(const SpriteView& sprite) const;

private:
    std::span<const std::uint8_t> plane_;
    SpriteMode mode_ = SpriteMode::Raw;
};

} // namespace kez
