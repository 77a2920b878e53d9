// SPDX-License-Identifier: MIT
#include "media/turn_upright.h"

#include <gtest/gtest.h>

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

} // namespace
