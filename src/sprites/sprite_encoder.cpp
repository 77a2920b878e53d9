// SPDX-License-Identifier: MIT
#include "sprites/sprite_encoder.h"

#include "core/little_endian.h"
#include "sprites/sprite_builder.h"

#include <algorithm>
#include <unordered_map>

namespace kez {

namespace {

using Bytes = std::vector<std::uint8_t>;

// The pixels of a row in the form of one mode. `append` writes the bytes of pixel i.
class RowEncoder {
public:
    RowEncoder(const SpriteSource& source, Bytes& out)
        : source_(source)
        , out_(out)
    {
    }

    // False when a skip does not fit its count.
    bool row(int y, auto&& append)
    {
        const int start = y * source_.width;
        const int end = start + source_.width;
        if (source_.mode == SpriteMode::Raw) {
            literal(start, end, append);
            return true;
        }
        int at = start;
        do {
            const int skipEnd = runEnd(at, end, false);
            if (!count(skipEnd - at))
                return false;
            if (skipEnd == end)
                return true;
            const int literalEnd = std::min(runEnd(skipEnd, end, true), skipEnd + largestCount());
            count(literalEnd - skipEnd);
            literal(skipEnd, literalEnd, append);
            at = literalEnd;
        } while (at != end);
        return true;
    }

    [[nodiscard]] bool isStored(int pixel) const
    {
        const auto i = static_cast<std::size_t>(pixel);
        if (source_.mode == SpriteMode::Raw)
            return true;
        return source_.stored.empty() ? source_.pixels[i] >> 24 != 0 : source_.stored[i] != 0;
    }

private:
    [[nodiscard]] int largestCount() const
    {
        return source_.mode == SpriteMode::ShortRuns ? 255 : 65535;
    }

    [[nodiscard]] int runEnd(int at, int end, bool stored) const
    {
        while (at != end && isStored(at) == stored)
            ++at;
        return at;
    }

    bool count(int value)
    {
        if (value > largestCount())
            return false;
        if (source_.mode == SpriteMode::LongRuns && value >= 255) {
            out_.push_back(255);
            out_.push_back(static_cast<std::uint8_t>(value));
            value >>= 8;
        }
        out_.push_back(static_cast<std::uint8_t>(value));
        return true;
    }

    void literal(int at, int end, auto&& append)
    {
        for (; at != end; ++at)
            append(static_cast<std::size_t>(at));
    }

    const SpriteSource& source_;
    Bytes& out_;
};

bool encodeRows(const SpriteSource& source, Bytes& out, auto&& append)
{
    RowEncoder encoder(source, out);
    for (int y = 0; y < source.height; ++y) {
        if (!encoder.row(y, append))
            return false;
    }
    return true;
}

void appendWord(Bytes& out, std::uint32_t word)
{
    out.resize(out.size() + 4);
    storeWord(out.data() + out.size() - 4, word);
}

std::uint32_t to565(std::uint32_t pixel)
{
    return (pixel >> 8 & 0xF800) | (pixel >> 5 & 0x07E0) | (pixel >> 3 & 0x001F);
}

// The header of a palette or an alpha record, with the offset of its one block behind it.
Bytes companionHeader(const std::string& name, const char* typeName, std::size_t offsetField)
{
    Bytes record(recordHeaderBytes);
    const std::string type = typeName;
    std::copy_n(name.data(), std::min(name.size(), nameBytes - 1), &record[offsets::name]);
    std::copy(type.begin(), type.end(), &record[offsets::typeName]);
    storeWord(&record[offsetField], recordHeaderBytes);
    return record;
}

void finish(Bytes& record)
{
    storeWord(&record[offsets::recordSize], static_cast<std::uint32_t>(record.size()));
}

Bytes paletteRecord(const std::string& name, const std::vector<std::uint32_t>& colours)
{
    Bytes record = companionHeader(name, "Sprite Palette", offsets::paletteColours);
    appendWord(record, static_cast<std::uint32_t>(colours.size()));
    for (const std::uint32_t colour : colours)
        appendWord(record, colour);
    finish(record);
    return record;
}

std::optional<Bytes> alphaRecord(const SpriteSource& source)
{
    Bytes plane;
    const auto append = [&](std::size_t i) {
        plane.push_back(static_cast<std::uint8_t>(source.pixels[i] >> 24));
    };
    if (!encodeRows(source, plane, append))
        return std::nullopt;
    Bytes record = companionHeader(source.alphaName, "Sprite Alpha", offsets::alphaPlane);
    storeWord(&record[offsets::alphaEncoding], static_cast<std::uint32_t>(source.mode));
    appendWord(record, static_cast<std::uint32_t>(plane.size()));
    record.insert(record.end(), plane.begin(), plane.end());
    finish(record);
    return record;
}

// Colours in order of appearance and the index of each.
class PaletteBuilder {
public:
    std::uint8_t indexOf(std::uint32_t pixel)
    {
        const std::uint32_t colour = pixel | 0xFF000000;
        const auto [entry, isNew] = indices_.try_emplace(colour, colours_.size());
        if (isNew)
            colours_.push_back(colour);
        return static_cast<std::uint8_t>(entry->second);
    }

    [[nodiscard]] const std::vector<std::uint32_t>& colours() const { return colours_; }

private:
    std::unordered_map<std::uint32_t, std::size_t> indices_;
    std::vector<std::uint32_t> colours_;
};

bool isStorable(const SpriteSource& source)
{
    if (source.width < 0 || source.width > largestSpriteSide || source.height < 0
        || source.height > largestSpriteSide || source.width * source.height > largestSpriteArea)
        return false;
    const auto area
        = static_cast<std::size_t>(source.width) * static_cast<std::size_t>(source.height);
    if (source.pixels.size() != area || (!source.stored.empty() && source.stored.size() != area))
        return false;
    if (source.bits == 8 && source.paletteName.empty())
        return false;
    return source.bits == 32 || !source.withAlpha || !source.alphaName.empty();
}

bool encodePixels(const SpriteSource& source, PaletteBuilder& palette, Bytes& out)
{
    const auto append = [&](std::size_t i) {
        const std::uint32_t pixel = source.pixels[i];
        if (source.bits == 8) {
            out.push_back(palette.indexOf(pixel));
        } else if (source.bits == 16) {
            out.push_back(static_cast<std::uint8_t>(to565(pixel)));
            out.push_back(static_cast<std::uint8_t>(to565(pixel) >> 8));
        } else {
            appendWord(out, pixel);
        }
    };
    const bool bitsServe = source.bits == 8 || source.bits == 16 || source.bits == 32;
    return bitsServe && encodeRows(source, out, append) && palette.colours().size() <= 256;
}

} // namespace

std::optional<EncodedSprite> encodeSprite(const SpriteSource& source)
{
    SpriteRecord record;
    PaletteBuilder palette;
    if (!isStorable(source) || !encodePixels(source, palette, record.pixels))
        return std::nullopt;
    record.name = source.name;
    record.x = source.x;
    record.y = source.y;
    record.depth = source.depth;
    record.width = static_cast<std::uint32_t>(source.width);
    record.height = static_cast<std::uint32_t>(source.height);
    record.pixelBits = static_cast<std::uint32_t>(source.bits);
    record.encoding = static_cast<std::uint32_t>(source.mode) | (source.withAlpha ? alphaFlag : 0);

    EncodedSprite encoded;
    if (source.bits == 8) {
        record.paletteNames = { source.paletteName };
        encoded.palette = paletteRecord(source.paletteName, palette.colours());
    }
    if (source.withAlpha && !source.alphaName.empty()) {
        std::optional<Bytes> alpha = alphaRecord(source);
        if (!alpha)
            return std::nullopt;
        record.alphaNames = { source.alphaName };
        encoded.alpha = std::move(*alpha);
    }
    encoded.sprite = record.serialise();
    return encoded;
}

} // namespace kez
