// SPDX-License-Identifier: MIT
#include "sprites/picture_pixels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace kez::test {

namespace {

using Pixels = std::vector<std::uint32_t>;
using testing::ElementsAre;

// Pixel (row, column) is row × 100 + column.
Pixels numbered(int width, int height)
{
    Pixels pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            pixels.push_back(static_cast<std::uint32_t>(y * 100 + x));
    }
    return pixels;
}

Pixels scaled(int sw, int sh, int tw, int th)
{
    Pixels target(static_cast<std::size_t>(tw * th), 0xDEAD);
    scaleNearest(numbered(sw, sh).data(), sw, sh, target.data(), tw, th);
    return target;
}

} // namespace

TEST(ScaleNearest, keepsTheCentreAndTruncatesTowardsIt)
{
    EXPECT_THAT(scaled(4, 4, 2, 2), ElementsAre(0, 2, 200, 202));
    EXPECT_THAT(scaled(2, 1, 4, 1), ElementsAre(0, 1, 1, 1));
    EXPECT_THAT(scaled(3, 1, 6, 1), ElementsAre(0, 0, 1, 1, 1, 2));
}

TEST(ScaleNearest, repeatsTheLastButOneOfAnOddSize)
{
    EXPECT_THAT(scaled(6, 6, 3, 3), ElementsAre(101, 103, 103, 301, 303, 303, 301, 303, 303));
    EXPECT_THAT(scaled(5, 4, 1, 1), ElementsAre(202)); // there is no other: the centre
}

TEST(ScaleNearest, staysInsideTheSourceAtAnySize)
{
    for (int source = 1; source <= 40; ++source) {
        for (int target = 1; target <= 90; ++target) {
            for (const std::uint32_t pixel : scaled(source, 1, target, 1))
                ASSERT_LT(pixel, static_cast<std::uint32_t>(source)) << source << ", " << target;
        }
    }
}

TEST(ScaleNearest, scalesPicturesAsItScalesPixels)
{
    const Pixels pixels = numbered(7, 5);
    std::vector<std::uint8_t> picture;
    for (const std::uint32_t pixel : pixels) {
        for (int byte = 0; byte < 3; ++byte)
            picture.push_back(static_cast<std::uint8_t>(pixel >> 8 * byte));
    }
    std::vector<std::uint8_t> small(3 * 4 * 3);
    scaleNearest(picture.data(), 7, 5, small.data(), 4, 3);
    Pixels opaque(12);
    toOpaquePixels(small.data(), opaque.data(), 12);
    Pixels expected = scaled(7, 5, 4, 3);
    for (std::uint32_t& pixel : expected)
        pixel |= 0xFF000000;
    EXPECT_EQ(opaque, expected);
}

TEST(ScaleNearest, doesNothingWithoutBuffersOrSizes)
{
    Pixels target = { 5 };
    scaleNearest(static_cast<const std::uint32_t*>(nullptr), 1, 1, target.data(), 1, 1);
    scaleNearest(target.data(), 0, 1, target.data(), 1, 1);
    scaleNearest(target.data(), 1, 1, target.data(), 1, -1);
    EXPECT_THAT(target, ElementsAre(5));
}

} // namespace kez::test
