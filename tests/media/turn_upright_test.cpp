// SPDX-License-Identifier: MIT
#include "media/turn_upright.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace kez;

namespace {

// Rows from the top, a letter a pixel.
std::string turned(std::string rows, int width, int height, int orientation)
{
    std::vector<std::uint8_t> pixels;
    for (int y = height; y-- > 0;)
        for (int x = 0; x < width; ++x)
            for (const int channel : { 0, 1, 2 })
                pixels.push_back(static_cast<std::uint8_t>(
                    rows[static_cast<std::size_t>(y * (width + 1) + x)] + channel));
    EXPECT_TRUE(turnUpright(pixels.data(), width, height, orientation));
    rows.clear();
    for (int y = height; y-- > 0;) {
        for (int x = 0; x < width; ++x) {
            const std::uint8_t* pixel = &pixels[static_cast<std::size_t>(3 * (y * width + x))];
            EXPECT_EQ(pixel[1], pixel[0] + 1);
            EXPECT_EQ(pixel[2], pixel[0] + 2);
            rows += static_cast<char>(pixel[0]);
        }
        rows += y != 0 ? "/" : "";
    }
    return rows;
}

TEST(TurnUpright, knowsAllOrientations)
{
    constexpr const char* stored = "abc/def";
    const char* const upright[] = { "abc/def", "cba/fed", "fed/cba", "def/abc", "ad/be/cf",
        "da/eb/fc", "fc/eb/da", "cf/be/ad" };
    for (int orientation = 1; orientation <= 8; ++orientation) {
        SCOPED_TRACE(orientation);
        EXPECT_EQ(turned(stored, 3, 2, orientation), upright[orientation - 1]);
    }
    EXPECT_EQ(turned(stored, 3, 2, 0), stored);
    EXPECT_EQ(turned(stored, 3, 2, 9), stored);
    EXPECT_EQ(turned("abcd", 4, 1, 6), "a/b/c/d");
    EXPECT_EQ(turned("a/b/c/d", 1, 4, 6), "dcba");
}

// Sizes that are turned in one strip, in strips of rows, of columns, and pixel by pixel.
TEST(TurnUpright, turnsLargePicturesLikeSmallOnes)
{
    for (const auto& [width, height] :
        { std::pair { 301, 211 }, { 2000, 1208 }, { 1208, 1999 }, { 1999, 997 } }) {
        SCOPED_TRACE(width);
        std::vector<std::uint8_t> stored(static_cast<std::size_t>(3 * width * height));
        std::uint32_t noise = 1;
        for (std::uint8_t& byte : stored)
            byte = static_cast<std::uint8_t>((noise = noise * 1664525 + 1013904223) >> 24);
        std::vector<std::uint8_t> pixels = stored;
        int turnedWidth = width;
        int turnedHeight = height;
        ASSERT_TRUE(turnUpright(pixels.data(), turnedWidth, turnedHeight, 6));
        ASSERT_EQ(turnedWidth, height);
        std::size_t wrong = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const auto from = static_cast<std::size_t>(3 * (y * width + x));
                const auto to = static_cast<std::size_t>(3 * ((width - 1 - x) * height + y));
                wrong += std::memcmp(&stored[from], &pixels[to], 3) != 0 ? 1u : 0u;
            }
        EXPECT_EQ(wrong, 0u);
    }
}

} // namespace
