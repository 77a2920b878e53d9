// SPDX-License-Identifier: MIT
#include "sprites/random_sprite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>

namespace kez::test {

namespace {

using Pixels = std::vector<std::uint32_t>;

struct Family {
    int bits;
    SpriteMode mode;
    bool hasAlpha;
    int angle;
    bool isScaled;
};

std::ostream& operator<<(std::ostream& out, const Family& family)
{
    return out << family.bits << " bits, mode " << static_cast<int>(family.mode)
               << (family.hasAlpha ? ", opacity" : ", opaque") << ", " << family.angle << " degrees"
               << (family.isScaled ? ", scaled" : "");
}

std::vector<Family> allFamilies()
{
    std::vector<Family> families;
    for (const int bits : { 8, 16, 32 })
        for (const SpriteMode mode :
            { SpriteMode::Raw, SpriteMode::ShortRuns, SpriteMode::LongRuns })
            for (const bool hasAlpha : { false, true })
                for (const int angle : { 0, 90, 180, 270 })
                    for (const bool isScaled : { false, true })
                        families.push_back({ bits, mode, hasAlpha, angle, isScaled });
    return families;
}

Pixels randomPixels(std::size_t count, Random& random)
{
    Pixels pixels(count);
    std::generate(pixels.begin(), pixels.end(), std::ref(random));
    return pixels;
}

// Draws the same sprite by the blitters and by the rules onto equal canvases of random pixels.
void compare(const RandomSprite& sprite, const SpritePlacement& place, int canvasWidth,
    int canvasHeight, Random& random)
{
    const Pixels before
        = randomPixels(static_cast<std::size_t>(canvasWidth * canvasHeight), random);
    Pixels drawn = before;
    Pixels expected = before;
    drawSprite({ drawn.data(), canvasWidth, canvasHeight }, sprite.parts(), place);
    plainDraw({ expected.data(), canvasWidth, canvasHeight }, sprite.meaning(), place);
    const auto fault = std::mismatch(drawn.begin(), drawn.end(), expected.begin());
    ASSERT_EQ(fault.first, drawn.end())
        << "pixel " << fault.first - drawn.begin() << " became " << std::hex << *fault.first
        << " instead of " << *fault.second << std::dec << "; sprite " << sprite.meaning().width
        << " x " << sprite.meaning().height << " shown " << place.width << " x " << place.height
        << " at " << place.x << ", " << place.y;
}

int between(int low, int high, Random& random)
{
    return std::uniform_int_distribution(low, high)(random);
}

void compareRandomSprites(const Family& family)
{
    Random random(20261);
    constexpr int canvasWidth = 43;
    constexpr int canvasHeight = 29;
    for (int round = 0; round < 80 && !testing::Test::HasFailure(); ++round) {
        const int width = round % 8 == 0 ? 1 : between(1, 60, random);
        const int height = round % 8 == 1 ? 1 : between(1, 45, random);
        const RandomSprite sprite({ width, height, family.bits, family.mode, family.hasAlpha,
                                      round % 3 == 0 ? Spread::Soft : Spread::Sprite },
            random);
        SpritePlacement place { 0, 0, width, height, family.angle };
        if (round % 4 != 0) {
            place.x = between(-55, 55, random);
            place.y = between(-40, 40, random);
        }
        if (family.isScaled) {
            place.width = between(1, 130, random);
            place.height = between(1, 90, random);
        }
        compare(sprite, place, canvasWidth, canvasHeight, random);
    }
}

// Rows longer than a short count, a long count's single byte and the kernels' steps and buffers;
// also rows as wide as the canvas, which are drawn at one go.
void compareLongRows(const Family& family)
{
    Random random(20262);
    for (const int width : { 255, 256, 700 }) {
        const RandomSprite sprite({ width, 3, family.bits, family.mode, family.hasAlpha,
                                      width == 256 ? Spread::Soft : Spread::Sprite },
            random);
        const int displayed = family.isScaled ? width + 91 : width;
        compare(sprite, { 3, 1, displayed, 3, family.angle }, 640, 7, random);
        compare(sprite, { 0, -2, displayed, 3, family.angle }, displayed, 5, random);
        compare(sprite, { 1, 0, displayed, 3, family.angle }, 9, 800, random);
    }
}

} // namespace

TEST(EveryBlitter, drawsAsTheRulesSay)
{
    for (const Family& family : allFamilies()) {
        SCOPED_TRACE(testing::PrintToString(family));
        compareRandomSprites(family);
        compareLongRows(family);
    }
}

namespace {

constexpr int side = 8;
constexpr std::uint32_t grey = 0x12345678;

// A canvas of one colour with a sprite of the given pixels drawn into its centre.
Pixels drawnOnGrey(std::vector<std::uint8_t> record, const SpritePlacement& place)
{
    Pixels canvas(side * side, grey);
    const char* fault = nullptr;
    const std::optional<SpriteView> sprite = SpriteView::parse(record, fault);
    EXPECT_TRUE(sprite) << fault;
    drawSprite({ canvas.data(), side, side }, { &*sprite, nullptr, nullptr }, place);
    return canvas;
}

std::vector<std::uint8_t> recordOf(int width, int height, const Pixels& pixels, bool withAlpha)
{
    return encodeSprite({ .name = "a.sp5",
                            .width = width,
                            .height = height,
                            .pixels = pixels,
                            .withAlpha = withAlpha })
        .value()
        .sprite;
}

std::uint32_t at(const Pixels& canvas, int x, int y)
{
    return canvas[static_cast<std::size_t>(y * side + x)];
}

} // namespace

TEST(Renderer, placesOddDifferencesTowardsTheCentre)
{
    // 8 − 3 = 5 and 8 − 11 = −3 halve to 2 and −1.
    const Pixels three(3, 0xFF000001);
    Pixels canvas = drawnOnGrey(recordOf(3, 1, three, false), { 0, 0, 3, 1, 0 });
    EXPECT_EQ(at(canvas, 1, 3), grey);
    EXPECT_EQ(at(canvas, 2, 3), 0xFF000001);
    EXPECT_EQ(at(canvas, 5, 3), grey);

    Pixels eleven(11);
    for (std::size_t i = 0; i < eleven.size(); ++i)
        eleven[i] = static_cast<std::uint32_t>(i);
    canvas = drawnOnGrey(recordOf(11, 1, eleven, false), { 0, 0, 11, 1, 0 });
    EXPECT_EQ(at(canvas, 0, 3), 1u);
    EXPECT_EQ(at(canvas, 7, 3), 8u);
}

TEST(Renderer, keepsTheCanvasUnderOpacityZeroOnlyInUnscaledRawSprites)
{
    const auto record = recordOf(1, 1, { 0x00FFFFFF }, true);
    EXPECT_EQ(at(drawnOnGrey(record, { 1, 1, 1, 1, 0 }), 4, 4), grey);
    constexpr std::uint32_t darker = 0x12335577; // (255 × d) >> 8 in each colour byte
    EXPECT_EQ(at(drawnOnGrey(record, { 0, 0, 2, 2, 0 }), 4, 4), darker);
}

TEST(Renderer, turnsClockwise)
{
    const Pixels pixels = { 1, 2, 3, 4, 5, 6 };
    const auto record = recordOf(3, 2, pixels, false);
    const Pixels turned = drawnOnGrey(record, { 0, 0, 3, 2, 90 });
    EXPECT_EQ(at(turned, 3, 2), 4u);
    EXPECT_EQ(at(turned, 4, 2), 1u);
    EXPECT_EQ(at(turned, 4, 4), 3u);
    EXPECT_EQ(at(turned, 5, 2), grey);
}

TEST(Renderer, drawsNothingWhereThereIsNothingToDraw)
{
    const Pixels untouched(side * side, grey);
    const auto record = recordOf(2, 2, Pixels(4, 1), false);
    const SpritePlacement places[] = {
        { 0, 0, 0, 2, 0 },
        { 0, 0, 2, 0, 0 },
        { 0, 0, -2, 2, 0 },
        { 0, 0, 2, 2, 45 },
        { 0, 0, 2, 2, -90 },
        { 0, 0, 2, 2, 360 },
        { 5, 0, 2, 2, 0 },
        { 0, -5, 2, 2, 0 },
        { INT32_MAX, INT32_MIN, 2, 2, 0 },
    };
    for (const SpritePlacement& place : places)
        EXPECT_EQ(drawnOnGrey(record, place), untouched)
            << place.x << ", " << place.y << ", " << place.width << ", " << place.angle;

    for (const unsigned mode : { 3u, 32u }) {
        auto unknown = record;
        unknown[offsets::encoding] = static_cast<std::uint8_t>(mode);
        for (const int angle : { 0, 90 })
            EXPECT_EQ(drawnOnGrey(unknown, { 0, 0, 2, 2, angle }), untouched) << mode;
    }
    EXPECT_EQ(drawnOnGrey(recordOf(0, 5, {}, false), { 0, 0, 2, 2, 0 }), untouched);
    drawSprite({}, {}, { 0, 0, 2, 2, 0 });
}

TEST(Renderer, showsTheLastSourcePixelAtAnyDisplayedSize)
{
    const auto record = recordOf(2, 1, { 1, 2 }, false);
    constexpr int enormous = 100'000; // the rounded step would pass the last source pixel
    const Pixels canvas
        = drawnOnGrey(record, { 4 - enormous / 2, 4 - enormous / 2, enormous, enormous, 0 });
    EXPECT_EQ(at(canvas, 0, 0), 2u);
    EXPECT_EQ(at(canvas, 7, 7), 2u);
}

} // namespace kez::test
