// SPDX-License-Identifier: MIT
/// Random sprites, stored and as what they mean, for comparing the blitters with the plain rules.
#pragma once

#include "sprites/plain_renderer.h"
#include "sprites/sprite_encoder.h"

#include <cstdint>
#include <optional>
#include <random>
#include <stdexcept>
#include <vector>

namespace kez::test {

/// Words of 32 random bits.
using Random = std::independent_bits_engine<std::mt19937, 32, std::uint32_t>;

/// How pixels are spread. `Sprite`: opaque and transparent stretches with soft pixels between;
/// `Soft`: any opacity anywhere; `Drawn`: as in pictures that somebody drew, here discs with soft
/// edges that cover two fifths of the picture.
enum class Spread { Sprite, Soft, Drawn };

struct RandomShape {
    int width = 0;
    int height = 0;
    int bits = 32;
    SpriteMode mode = SpriteMode::Raw;
    bool hasAlpha = false;
    Spread spread = Spread::Sprite;
};

/// The records of a sprite, checked, with what they mean.
class RandomSprite {
public:
    RandomSprite(const RandomShape& shape, Random& random)
        : shape_(shape)
    {
        const auto area = static_cast<std::size_t>(shape.width * shape.height);
        makePixels(area, random);
        encode();
        meaning_ = { shape.width, shape.height, shape.mode == SpriteMode::Raw, shape.hasAlpha,
            std::vector<std::uint32_t>(area), std::vector<std::uint8_t>(area), stored_ };
        for (std::size_t i = 0; i < area; ++i) {
            meaning_.colours[i] = shown(pixels_[i]);
            meaning_.opacities[i] = byteOf(pixels_[i], 3);
        }
        if (shape.mode == SpriteMode::Raw)
            meaning_.stored.assign(area, 1);
    }

    [[nodiscard]] const PlainSprite& meaning() const { return meaning_; }

    [[nodiscard]] const EncodedSprite& records() const { return *records_; }

    [[nodiscard]] const std::vector<std::uint32_t>& pixels() const { return pixels_; }

    [[nodiscard]] SpriteParts parts() const
    {
        return { &*sprite_, palette_ ? &*palette_ : nullptr, alpha_ ? &*alpha_ : nullptr };
    }

private:
    void makePixels(std::size_t area, Random& random)
    {
        pixels_.resize(area);
        stored_.resize(area);
        if (shape_.spread == Spread::Drawn)
            return makeDiscs(random);
        std::vector<std::uint32_t> colours(1 + random() % 256);
        for (std::uint32_t& colour : colours)
            colour = random();
        std::size_t end = 0;
        unsigned kind = 0;
        for (std::size_t i = 0; i < area; ++i) {
            if (i == end) {
                end += 1 + random() % 40;
                kind = random() % 5;
            }
            const bool isSoft = shape_.spread == Spread::Soft || kind == 2 || random() % 16 == 0;
            const std::uint32_t opacity = isSoft ? random() % 256 : kind < 2 ? 0u : 255u;
            const std::uint32_t colour
                = shape_.bits == 8 ? colours[random() % colours.size()] : random();
            pixels_[i] = (colour & 0x00FFFFFF) | opacity << 24;
            // Stored pixels of opacity 0 occur as well; no skip outgrows a short count.
            const bool isSkipped = shape_.spread == Spread::Sprite ? kind < 2 : false;
            stored_[i] = !isSkipped || random() % 16 == 0 || i % 128 == 0 ? 1 : 0;
        }
    }

    void makeDiscs(Random& random)
    {
        constexpr int cell = 40;
        constexpr int inner = 13 * 13;
        constexpr int outer = 15 * 15;
        for (std::size_t i = 0; i < pixels_.size(); ++i) {
            const int x = static_cast<int>(i) % shape_.width % cell - cell / 2;
            const int y = static_cast<int>(i) / shape_.width % cell - cell / 2;
            const int distance = x * x + y * y;
            const std::uint32_t opacity = distance < inner ? 255
                : distance >= outer
                ? 0
                : 1 + static_cast<std::uint32_t>(254 * (outer - distance) / (outer - inner));
            const std::uint32_t colour = shape_.bits == 8 ? random() % 256 * 0x010203 : random();
            pixels_[i] = (colour & 0x00FFFFFF) | opacity << 24;
            stored_[i] = opacity != 0 || i % 128 == 0; // no skip outgrows a short count
        }
    }

    void encode()
    {
        SpriteSource source;
        source.name = "random.sp5";
        source.width = shape_.width;
        source.height = shape_.height;
        source.pixels = pixels_;
        source.stored = stored_;
        source.mode = shape_.mode;
        source.bits = shape_.bits;
        source.withAlpha = shape_.hasAlpha;
        source.paletteName = "random.pal";
        source.alphaName = shape_.bits == 32 ? "" : "random.alp";
        records_ = encodeSprite(source);
        const char* fault = nullptr;
        sprite_ = SpriteView::parse(records_.value().sprite, fault);
        if (sprite_ && !records_->palette.empty())
            palette_ = PaletteView::parse(records_->palette, *sprite_, fault);
        if (sprite_ && !records_->alpha.empty())
            alpha_ = AlphaView::parse(records_->alpha, *sprite_, fault);
        if (fault != nullptr)
            throw std::runtime_error(fault);
    }

    // A stored pixel as an opaque sprite shows it.
    [[nodiscard]] std::uint32_t shown(std::uint32_t pixel) const
    {
        if (shape_.bits == 8)
            return pixel | 0xFF000000;
        if (shape_.bits == 32)
            return pixel;
        const auto widen = [](unsigned value, unsigned bits) {
            return value << (8 - bits) | value >> (2 * bits - 8);
        };
        return 0xFF000000 | widen(byteOf(pixel, 2) / 8, 5) << 16
            | widen(byteOf(pixel, 1) / 4, 6) << 8 | widen(byteOf(pixel, 0) / 8, 5);
    }

    RandomShape shape_;
    std::vector<std::uint32_t> pixels_;
    std::vector<std::uint8_t> stored_;
    std::optional<EncodedSprite> records_;
    std::optional<SpriteView> sprite_;
    std::optional<PaletteView> palette_;
    std::optional<AlphaView> alpha_;
    PlainSprite meaning_;
};

} // namespace kez::test
