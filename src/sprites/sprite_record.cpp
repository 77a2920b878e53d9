// SPDX-License-Identifier: MIT
#include "sprites/sprite_record.h"

#include "core/little_endian.h"
#include "media/byte_block.h"
#include "sprites/checked_rows.h"

#include <algorithm>
#include <cstring>

namespace kez {

namespace {

using Bytes = std::span<std::uint8_t>;

// A block's bytes, or nothing when its prefix or its end lies outside the record.
std::optional<Bytes> block(
    Bytes record, std::uint32_t offset, std::size_t least, std::size_t unit = 1)
{
    if (offset < least || offset > record.size() || record.size() - offset < 4)
        return std::nullopt;
    const Bytes rest = record.subspan(offset + std::size_t { 4 });
    const std::uint32_t count = loadWord(record.data() + offset);
    if (rest.size() / unit < count)
        return std::nullopt;
    return rest.first(count * unit);
}

// A name block with at least one name, the first of them zero-terminated; or none at all.
bool isNameBlock(Bytes record, std::uint32_t offset)
{
    if (offset == 0)
        return true;
    const std::optional<Bytes> names = block(record, offset, recordHeaderBytes, nameBytes);
    return names && !names->empty() && std::memchr(names->data(), 0, nameBytes) != nullptr;
}

PictureShape shapeOf(const SpriteView& sprite)
{
    return { sprite.mode(), sprite.width(), sprite.height(), sprite.bytesPerPixel() };
}

// Does the plane hold the same counts as the checked rows at `pixels`, byte for byte?
template <class Count>
bool hasSameCounts(
    const std::uint8_t* pixels, const PictureShape& shape, std::span<const std::uint8_t> plane)
{
    const auto takeCount = [&](int& count) {
        const auto countBytes = static_cast<std::size_t>(Count::bytesAt(pixels));
        if (plane.size() < countBytes || std::memcmp(pixels, plane.data(), countBytes) != 0)
            return false;
        count = Count::valueAt(pixels);
        pixels += countBytes;
        plane = plane.subspan(countBytes);
        return true;
    };
    for (int y = 0; y < shape.height; ++y) {
        int skip = 0;
        int count = 0;
        for (int left = shape.width; left > 0; left -= count) {
            if (!takeCount(skip))
                return false;
            left -= skip;
            if (left == 0)
                break;
            if (!takeCount(count) || plane.size() < static_cast<std::size_t>(count))
                return false;
            pixels += static_cast<std::ptrdiff_t>(count) * shape.pixelBytes;
            plane = plane.subspan(static_cast<std::size_t>(count));
        }
    }
    return true;
}

bool fits(std::span<const std::uint8_t> plane, SpriteMode mode, const SpriteView& sprite)
{
    PictureShape shape = shapeOf(sprite);
    if (!sprite.isDrawable())
        return true;
    if (sprite.pixelBits() == 32 || mode == SpriteMode::Raw) {
        shape.mode = mode;
        shape.pixelBytes = 1;
        return visitPicture(plane, shape, [](int, int, const std::uint8_t*) {});
    }
    if (mode == SpriteMode::ShortRuns)
        return hasSameCounts<ByteCount>(sprite.pixels(), shape, plane);
    return hasSameCounts<EscapedCount>(sprite.pixels(), shape, plane);
}

} // namespace

std::span<std::uint8_t> recordBytes(std::uint8_t* record)
{
    return { record, loadWord(record) };
}

SpriteView::SpriteView(Bytes record)
    : record_(record)
{
}

std::optional<SpriteView> SpriteView::parse(Bytes record, const char*& fault)
{
    SpriteView view(record);
    fault = view.findFault();
    if (fault != nullptr)
        return std::nullopt;
    return view;
}

const char* SpriteView::findFault()
{
    if (record_.size() < recordHeaderBytes)
        return "the sprite record ends in its header";
    const auto unsignedWord = [&](std::size_t offset) { return loadWord(record_.data() + offset); };
    const std::uint32_t wide = unsignedWord(offsets::width);
    const std::uint32_t high = unsignedWord(offsets::height);
    if (wide > largestSpriteSide || high > largestSpriteSide || wide * high > largestSpriteArea)
        return "the sprite is too large";
    width_ = static_cast<int>(wide);
    height_ = static_cast<int>(high);

    const std::uint32_t bits = unsignedWord(offsets::pixelBits);
    if (bits != 8 && bits != 16 && bits != 32)
        return "the sprite's pixels have neither 8 nor 16 nor 32 bits";
    pixelBits_ = static_cast<int>(bits);
    const std::uint32_t encoding = unsignedWord(offsets::encoding);
    mode_ = static_cast<SpriteMode>(encoding & ~alphaFlag);
    hasAlpha_ = (encoding & alphaFlag) != 0;

    if (!isNameBlock(record_, unsignedWord(offsets::paletteNames)))
        return "the sprite's palette name lies outside its record";
    if (!isNameBlock(record_, unsignedWord(offsets::alphaNames)))
        return "the sprite's alpha name lies outside its record";
    const auto pixels = block(record_, unsignedWord(offsets::pixels), recordHeaderBytes);
    if (!pixels)
        return "the sprite's pixels lie outside its record";
    pixels_ = *pixels;
    return findPixelFault();
}

const char* SpriteView::findPixelFault()
{
    if (!isDrawable())
        return nullptr;
    std::uint8_t largest = 0;
    const bool isIndexed = pixelBits_ == 8;
    const auto noteIndices = [&](int, int count, const std::uint8_t* at) {
        if (isIndexed)
            largest = std::max(largest, *std::max_element(at, at + count));
    };
    if (!visitPicture(pixels_, shapeOf(*this), noteIndices))
        return "the sprite's rows do not fill its width and height";
    largestIndex_ = largest;
    return nullptr;
}

std::int32_t SpriteView::word(std::size_t offset) const
{
    return static_cast<std::int32_t>(loadWord(record_.data() + offset));
}

bool SpriteView::isDrawable() const
{
    return width_ > 0 && height_ > 0 && mode_ <= SpriteMode::LongRuns;
}

const char* SpriteView::firstName(std::size_t offsetField) const
{
    const std::uint32_t offset = loadWord(record_.data() + offsetField);
    if (offset == 0)
        return nullptr;
    return reinterpret_cast<const char*>(record_.data() + offset + 4);
}

const char* SpriteView::paletteName() const
{
    return firstName(offsets::paletteNames);
}

const char* SpriteView::alphaName() const
{
    return firstName(offsets::alphaNames);
}

std::optional<PaletteView> PaletteView::parse(
    Bytes record, const SpriteView& sprite, const char*& fault)
{
    // Past the two words that the reader itself needs: `makeOpaque` never changes them.
    constexpr std::size_t fixedPart = offsets::paletteConverted + 4;
    fault = nullptr;
    PaletteView view;
    if (record.size() < fixedPart) {
        fault = "the palette record ends in its header";
    } else if (SpriteView::parse(record, fault)) {
        fault = "the palette record is a sprite";
    } else {
        const std::uint32_t offset = loadWord(record.data() + offsets::paletteColours);
        const std::optional<Bytes> colours = block(record, offset, fixedPart, 4);
        fault = !colours ? "the palette's colours lie outside its record" : nullptr;
        if (colours)
            view.colours_ = *colours;
        view.converted_ = loadWord(record.data() + offsets::paletteConverted) != 0;
    }
    if (fault == nullptr && sprite.pixelBits() == 8 && view.count() <= sprite.largestIndex())
        fault = "the palette has fewer colours than its sprite uses";
    return fault == nullptr ? std::optional(view) : std::nullopt;
}

void PaletteView::makeOpaque() const
{
    if (converted_)
        return;
    for (std::size_t alpha = 3; alpha < colours_.size(); alpha += 4)
        colours_[alpha] = 255;
}

std::optional<AlphaView> AlphaView::parse(
    Bytes record, const SpriteView& sprite, const char*& fault)
{
    constexpr std::size_t fixedPart = offsets::alphaPlane + 4;
    fault = nullptr;
    if (record.size() < fixedPart) {
        fault = "the alpha record ends in its header";
        return std::nullopt;
    }
    const std::optional<Bytes> plane
        = block(record, loadWord(record.data() + offsets::alphaPlane), fixedPart);
    if (!plane) {
        fault = "the opacity plane lies outside its record";
        return std::nullopt;
    }
    AlphaView view;
    view.plane_ = *plane;
    view.mode_
        = static_cast<SpriteMode>(loadWord(record.data() + offsets::alphaEncoding) & ~alphaFlag);
    const bool modeServes = sprite.pixelBits() == 32 || view.mode_ == sprite.mode();
    if (!modeServes || !fits(view.plane_, view.mode_, sprite)) {
        fault = "the opacity plane does not fit its sprite";
        return std::nullopt;
    }
    return view;
}

bool AlphaView::mergeInto(const SpriteView& sprite) const
{
    if (!sprite.isDrawable())
        return true;
    PictureShape shape = shapeOf(sprite);
    ByteBlock opacities = ByteBlock::zeroed(
        static_cast<std::size_t>(shape.width) * static_cast<std::size_t>(shape.height));
    if (!opacities)
        return false;
    const auto keep = [&](int first, int count, const std::uint8_t* at) {
        std::copy_n(at, count, opacities.data() + first);
    };
    const auto setAlpha = [&](int first, int count, const std::uint8_t* at) {
        std::uint8_t* pixel = sprite.pixels() + (at - sprite.pixels());
        for (int i = 0; i < count; ++i)
            pixel[4 * i + 3] = opacities.data()[first + i];
    };
    const PictureShape planeShape { mode_, shape.width, shape.height, 1 };
    return visitPicture(plane_, planeShape, keep) && visitPicture(sprite.pixels_, shape, setAlpha);
}

} // namespace kez
