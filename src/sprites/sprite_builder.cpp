// SPDX-License-Identifier: MIT
#include "sprites/sprite_builder.h"

#include "core/little_endian.h"
#include "sprites/sprite_record.h"

#include <algorithm>
#include <cstring>

namespace kez {

namespace {

using Names = std::vector<std::string>;

class BlockWriter {
public:
    explicit BlockWriter(std::size_t size) { bytes_.reserve(size); }

    void word(std::uint32_t word)
    {
        bytes_.resize(bytes_.size() + 4);
        storeWord(bytes_.data() + bytes_.size() - 4, word);
    }

    void name(const std::string& text)
    {
        const std::size_t start = bytes_.size();
        bytes_.resize(start + nameBytes);
        std::copy_n(text.data(), std::min(text.size(), nameBytes - 1), bytes_.data() + start);
    }

    void names(const Names& texts, std::uint32_t count)
    {
        if (count == 0)
            return;
        word(count);
        for (std::uint32_t i = 0; i < count; ++i)
            name(texts[i]);
    }

    void block(const std::vector<std::uint8_t>& bytes)
    {
        word(static_cast<std::uint32_t>(bytes.size()));
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    }

    std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

std::uint32_t countOf(const Names& names)
{
    return static_cast<std::uint32_t>(std::min(names.size(), SpriteRecord::maxNames));
}

} // namespace

void SpriteRecord::clear()
{
    recordSize = 0;
    paletteNamesOffset = alphaNamesOffset = pixelsOffset = extraOffset = 0;
    rowIndexOffset = word140 = converted = word148 = 0;
    paletteNames.clear();
    alphaNames.clear();
    pixels = {};
    extra = {};
}

void SpriteRecord::makeTrueColour(const char* spriteName, int centreX, int centreY, int spriteWidth,
    int spriteHeight, const std::uint32_t* source, bool withAlpha)
{
    clear();
    name = spriteName;
    typeName = "Sprite Image";
    word84 = 1;
    x = centreX;
    y = centreY;
    depth = 100;
    width = static_cast<std::uint32_t>(std::max(spriteWidth, 0));
    height = static_cast<std::uint32_t>(std::max(spriteHeight, 0));
    word108 = 1;
    pixelBits = 32;
    encoding = withAlpha ? alphaFlag : 0;
    const std::size_t area = std::size_t { width } * height;
    pixels.resize(area * 4);
    for (std::size_t i = 0; i < area; ++i)
        storeWord(pixels.data() + 4 * i, source[i]);
}

void SpriteRecord::layout()
{
    std::uint32_t size = recordHeaderBytes;
    const auto place = [&size](bool present, std::size_t bytes) {
        const std::uint32_t offset = present ? size : 0;
        size += present ? static_cast<std::uint32_t>(4 + bytes) : 0;
        return offset;
    };
    paletteNamesOffset = place(!paletteNames.empty(), nameBytes * countOf(paletteNames));
    alphaNamesOffset = place(!alphaNames.empty(), nameBytes * countOf(alphaNames));
    pixelsOffset = place(true, pixels.size());
    extraOffset = place(!extra.empty(), extra.size());
    recordSize = size;
}

std::vector<std::uint8_t> SpriteRecord::serialise()
{
    layout();
    BlockWriter out(recordSize);
    out.word(recordSize);
    out.name(name);
    out.name(typeName);
    for (const std::uint32_t word : { word84, static_cast<std::uint32_t>(x),
             static_cast<std::uint32_t>(y), static_cast<std::uint32_t>(depth), width, height,
             word108, pixelBits, encoding, paletteNamesOffset, alphaNamesOffset, pixelsOffset,
             extraOffset, rowIndexOffset, word140, converted, word148 })
        out.word(word);
    out.names(paletteNames, countOf(paletteNames));
    out.names(alphaNames, countOf(alphaNames));
    out.block(pixels);
    if (!extra.empty())
        out.block(extra);
    return out.take();
}

} // namespace kez
