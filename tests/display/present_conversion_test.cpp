// SPDX-License-Identifier: MIT
#include "display/present_conversion.h"

#include "display/present_kernel_table.h"
#include "support/vector_levels.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <random>
#include <vector>

namespace kez {
namespace {

const DisplayLayout layout565 = DisplayLayout::fromMasks(0xF800, 0x07E0, 0x001F);
const DisplayLayout layout555 = DisplayLayout::fromMasks(0x7C00, 0x03E0, 0x001F);

TEST(DisplayLayout, isFoundFromTheMasks)
{
    EXPECT_EQ(layout565.format, DisplayFormat::rgb565);
    EXPECT_EQ(layout555.format, DisplayFormat::rgb555);
    const auto blueHigh = DisplayLayout::fromMasks(0x001F, 0x07E0, 0xF800);
    EXPECT_EQ(blueHigh.format, DisplayFormat::rgbOther);
    EXPECT_EQ(blueHigh.red.topBit, 4);
    EXPECT_EQ(blueHigh.blue.topBit, 15);
    EXPECT_EQ(blueHigh.green.width, 6);
    const auto odd = DisplayLayout::fromMasks(0, 0xFFFF, 0xFFFFFFFF);
    EXPECT_EQ(odd.red.width, 0);
    EXPECT_EQ(odd.green.width, 16);
    EXPECT_EQ(odd.blue.mask, 0xFFFFu);
}

TEST(DisplayPixel, followsTheLayout)
{
    EXPECT_EQ(displayPixel(0x00FF8040, layout565), 0xFC08);
    EXPECT_EQ(displayPixel(0x00FF8040, layout555), 0x7E08);
    EXPECT_EQ(displayPixel(0xFF0000FF, layout565), 0x001F); // alpha is ignored
    const auto blueHigh = DisplayLayout::fromMasks(0x001F, 0x07E0, 0xF800);
    EXPECT_EQ(displayPixel(0x00FF8040, blueHigh), 0x441F);
    const auto fours = DisplayLayout::fromMasks(0x0F00, 0x00F0, 0x000F);
    EXPECT_EQ(displayPixel(0x00A5C37E, fours), 0x0AC7);
    // A narrow mask high up: blue's top bit moves left, to bit 15.
    const auto left = DisplayLayout::fromMasks(0x0002, 0x0001, 0xE000);
    EXPECT_EQ(displayPixel(0x008080A0, left), 0xA003);
}

/// A target picture with guard bytes around every row.
class ConversionTest : public testing::TestWithParam<int> {
protected:
    static constexpr int width = 47;
    static constexpr int height = 5;
    static constexpr std::uint8_t guard = 0xA7;

    ConversionTest()
    {
        std::mt19937 random(11);
        source.resize(static_cast<std::size_t>(sourceStride) * height);
        for (CanvasPixel& pixel : source)
            pixel = static_cast<CanvasPixel>(random());
    }

    PixelRows sourceRows()
    {
        return { reinterpret_cast<std::uint8_t*>(source.data()), sourceStride * 4, width, height };
    }

    PixelRows targetRows(int pitch)
    {
        target.assign(static_cast<std::size_t>(pitch * height), guard);
        return { target.data(), pitch, width, height };
    }

    [[nodiscard]] CanvasPixel sourceAt(int x, int y) const
    {
        return source[static_cast<std::size_t>(y * sourceStride + x)];
    }

    [[nodiscard]] std::uint32_t targetAt(int byte, int pixelBytes) const
    {
        std::uint32_t value = 0;
        std::memcpy(&value, target.data() + byte, static_cast<std::size_t>(pixelBytes));
        return value;
    }

    static constexpr int sourceStride = 50;
    std::vector<CanvasPixel> source;
    std::vector<std::uint8_t> target;
};

TEST_F(ConversionTest, to16BitsIsThePlainRuleAtEveryPixel)
{
    const DisplayLayout layouts[]
        = { layout565, layout555, DisplayLayout::fromMasks(0x001F, 0x07E0, 0xF800),
              DisplayLayout::fromMasks(0xFF00, 0x00F0, 0x000F),
              DisplayLayout::fromMasks(0x8421, 0x0000, 0xFFFF) };
    for (const DisplayLayout& layout : layouts)
        for (const int pitch : { width * 2, width * 2 + 10 }) {
            ASSERT_TRUE(convertPicture(sourceRows(), targetRows(pitch), 16, layout));
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    ASSERT_EQ(targetAt(y * pitch + x * 2, 2), displayPixel(sourceAt(x, y), layout));
            if (pitch > width * 2) {
                EXPECT_EQ(target[static_cast<std::size_t>(width) * 2], guard);
            }
        }
}

// Each in memory of just its size, so that a sanitizer sees a step too far.
TEST(Conversion, isThePlainRuleForEveryCountAtEveryVectorLevel)
{
    const DisplayLayout layouts[]
        = { layout565, layout555, DisplayLayout::fromMasks(0x001F, 0x07E0, 0xF800),
              DisplayLayout::fromMasks(0x8421, 0x0000, 0xFFFF) };
    std::mt19937 random(12);
    for (int width = 1; width <= 100; ++width) {
        std::vector<CanvasPixel> source(static_cast<std::size_t>(width));
        for (CanvasPixel& pixel : source)
            pixel = static_cast<CanvasPixel>(random());
        const PixelRows from { reinterpret_cast<std::uint8_t*>(source.data()), width * 4, width,
            1 };
        test::atEachVectorLevel([&] {
            for (const DisplayLayout& layout : layouts) {
                std::vector<std::uint16_t> words(source.size());
                ASSERT_TRUE(convertPicture(from,
                    { reinterpret_cast<std::uint8_t*>(words.data()), width * 2, width, 1 }, 16,
                    layout));
                for (std::size_t i = 0; i < source.size(); ++i)
                    ASSERT_EQ(words[i], displayPixel(source[i], layout)) << i << " of " << width;
            }
            std::vector<std::uint8_t> bytes(3 * source.size());
            std::vector<std::uint8_t> expected = bytes;
            plainPresentKernels.to24(source.data(), expected.data(), source.size());
            ASSERT_TRUE(convertPicture(from, { bytes.data(), width * 3, width, 1 }, 24, {}));
            ASSERT_EQ(bytes, expected) << width;
        });
    }
}

TEST_F(ConversionTest, to24BitsBeginsRowsAtWholePixels)
{
    for (const int pitch : { width * 3, width * 3 + 2, width * 3 + 3 }) {
        ASSERT_TRUE(convertPicture(sourceRows(), targetRows(pitch), 24, {}));
        const int rowStep = pitch / 3 * 3;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                ASSERT_EQ(targetAt(y * rowStep + x * 3, 3), sourceAt(x, y) & 0xFFFFFF);
    }
}

TEST_F(ConversionTest, to32BitsCopiesRows)
{
    const int pitch = width * 4 + 12;
    ASSERT_TRUE(convertPicture(sourceRows(), targetRows(pitch), 32, {}));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(targetAt(y * pitch + x * 4, 4), sourceAt(x, y));
    EXPECT_EQ(target[static_cast<std::size_t>(width) * 4], guard);
}

TEST_F(ConversionTest, neverLeavesTheTarget)
{
    for (const int bits : { 16, 24, 32 }) {
        const int pitch = 40; // room for a few pixels of each row only
        ASSERT_TRUE(convertPicture(sourceRows(), targetRows(pitch), bits, layout565));
        EXPECT_NE(target[0], guard);
    }
    PixelRows small = targetRows(width * 2);
    small.height = 1;
    small.width = 3;
    ASSERT_TRUE(convertPicture(sourceRows(), small, 16, layout565));
    EXPECT_EQ(target[6], guard);
    EXPECT_EQ(target[static_cast<std::size_t>(width) * 2], guard);
}

TEST_F(ConversionTest, refusesOtherDepthsAndCrookedMemory)
{
    for (const int bits : { 0, 1, 8, 15, -16, 48 })
        EXPECT_FALSE(convertPicture(sourceRows(), targetRows(width * 4), bits, layout565)) << bits;
    EXPECT_FALSE(convertPicture({}, targetRows(width * 2), 16, layout565));
    EXPECT_FALSE(convertPicture(sourceRows(), {}, 24, layout565));
    EXPECT_FALSE(convertPicture(sourceRows(), targetRows(width * 2 + 1), 16, layout565));
    EXPECT_EQ(target[0], guard);
}

} // namespace
} // namespace kez
