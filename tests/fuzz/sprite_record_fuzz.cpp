// SPDX-License-Identifier: MIT
// Three records, each behind a u16 length: a sprite, its palette and its opacity plane. Whatever
// the checks let through is merged and drawn in every way there is.
#include "fuzz/entries.h"

#include "core/little_endian.h"
#include "sprites/renderer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace kez::fuzz {

namespace {

std::vector<std::uint8_t> takeRecord(std::span<const std::uint8_t>& input)
{
    if (input.size() < 2)
        return {};
    const std::size_t size = std::min<std::size_t>(loadWord16(input.data()), input.size() - 2);
    const auto record = input.subspan(2, size);
    input = input.subspan(2 + size);
    return { record.begin(), record.end() };
}

void drawEveryWay(const SpriteParts& parts)
{
    constexpr int side = 24;
    std::array<std::uint32_t, side* side> pixels = {};
    const CanvasPixels canvas { pixels.data(), side, side };
    const int width = parts.sprite->width();
    const int height = parts.sprite->height();
    for (const int angle : { 0, 90, 180, 270 }) {
        drawSprite(canvas, parts, { 0, 0, width, height, angle });
        drawSprite(canvas, parts, { width / 2, height / 2, width, height, angle });
        drawSprite(canvas, parts, { -width / 2, -height / 2, width, height, angle });
        drawSprite(canvas, parts, { 1, -2, side + 7, side - 3, angle });
    }
}

} // namespace

void feedSpriteRecord(std::span<const std::uint8_t> input)
{
    std::vector<std::uint8_t> record = takeRecord(input);
    std::vector<std::uint8_t> paletteRecord = takeRecord(input);
    std::vector<std::uint8_t> alphaRecord = takeRecord(input);

    const char* fault = nullptr;
    const auto sprite = SpriteView::parse(record, fault);
    if (!sprite)
        return;
    // A claim of millions of pixels is sound but takes long to draw.
    if (static_cast<std::int64_t>(sprite->width()) * sprite->height() > 1 << 16)
        return;
    const auto palette = PaletteView::parse(paletteRecord, *sprite, fault);
    if (palette)
        palette->makeOpaque();
    const auto alpha = AlphaView::parse(alphaRecord, *sprite, fault);
    if (alpha && sprite->pixelBits() == 32)
        alpha->mergeInto(*sprite);
    drawEveryWay({ &*sprite, palette ? &*palette : nullptr, alpha ? &*alpha : nullptr });
}

} // namespace kez::fuzz
