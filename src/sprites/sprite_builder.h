// SPDX-License-Identifier: MIT
/// Makes sprite records: fill in the fields, then `serialise`. The layout is that of
/// sprite_record.h. Used while the program runs (a stored picture shown enlarged) and by the
/// packer.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kez {

class SpriteRecord {
public:
    static constexpr std::size_t maxNames = 10;

    /// Drops the names, the pixels and the extra bytes and zeroes every offset and length.
    void clear();

    /// A raw sprite of 32-bit pixels, which are copied (0xAARRGGBB, top row first).
    void makeTrueColour(const char* spriteName, int centreX, int centreY, int spriteWidth,
        int spriteHeight, const std::uint32_t* source, bool withAlpha);

    void layout(); ///< Computes `recordSize` and the block offsets.

    /// Lays the record out and returns its bytes: what lies in the archive or in a ".sp5" file.
    [[nodiscard]] std::vector<std::uint8_t> serialise();

    std::uint32_t recordSize = 0;
    std::string name; ///< Names are cut to 39 characters.
    std::string typeName = "Sprite Image";
    std::uint32_t word84 = 1;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t depth = 100;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t word108 = 1;
    std::uint32_t pixelBits = 32;
    std::uint32_t encoding = 0;
    std::uint32_t paletteNamesOffset = 0;
    std::uint32_t alphaNamesOffset = 0;
    std::uint32_t pixelsOffset = 0;
    std::uint32_t extraOffset = 0;
    std::uint32_t rowIndexOffset = 0; ///< Written as it is; no row index is laid out.
    std::uint32_t word140 = 0;
    std::uint32_t converted = 0;
    std::uint32_t word148 = 0;
    std::vector<std::string> paletteNames; ///< At most `maxNames` of each are written.
    std::vector<std::string> alphaNames;
    std::vector<std::uint8_t> pixels;
    std::vector<std::uint8_t> extra;
};

} // namespace kez
