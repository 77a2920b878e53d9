// SPDX-License-Identifier: MIT
#include "picture_files.h"
#include "picture_reducer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kez::driver {
namespace {

using test::Colour;
using test::colourOf;
using test::Photograph;

Picture reduce(const Photograph& photograph, int orientation = 1)
{
    PictureReducer reducer(photograph.width, photograph.height, orientation);
    const auto rowBytes = static_cast<std::size_t>(photograph.width) * 3;
    for (int y = 0; y < photograph.height; ++y)
        reducer.addRow(
            { photograph.pixels.data() + static_cast<std::size_t>(y) * rowBytes, rowBytes });
    return reducer.picture();
}

TEST(PictureReducer, keepsAPictureOfItsOwnSize)
{
    const Photograph photograph(160, 120, [](int x, int y) {
        return Colour { x, y, (x * y) % 256 };
    });
    const Picture picture = reduce(photograph);
    EXPECT_TRUE(std::equal(picture.begin(), picture.end(), photograph.pixels.begin()));
}

// The plain rule: every pixel is the mean of its area, by summing over a fine grid of points.
Colour meanByGrid(const Photograph& photograph, int x, int y)
{
    constexpr int fine = 40;
    const Extent kept = keptExtent(photograph.width, photograph.height, 1);
    double sums[3] = {};
    for (int j = 0; j < fine; ++j)
        for (int i = 0; i < fine; ++i) {
            const double column = (photograph.width - kept.width) / 2
                + kept.width * (x + (i + 0.5) / fine) / pictureWidth;
            const double row = (photograph.height - kept.height) / 2
                + kept.height * (y + (j + 0.5) / fine) / pictureHeight;
            const auto at = static_cast<std::size_t>(
                                static_cast<int>(row) * photograph.width + static_cast<int>(column))
                * 3;
            for (std::size_t c = 0; c < 3; ++c)
                sums[c] += photograph.pixels[at + c];
        }
    const auto mean = [](double sum) { return static_cast<int>(sum / (fine * fine) + 0.5); };
    return { mean(sums[0]), mean(sums[1]), mean(sums[2]) };
}

TEST(PictureReducer, averagesAreasAtAnySize)
{
    const int sizes[][2]
        = { { 1, 1 }, { 2, 1 }, { 7, 5 }, { 47, 133 }, { 161, 121 }, { 500, 333 }, { 3, 400 } };
    for (const auto& size : sizes) {
        SCOPED_TRACE(std::to_string(size[0]) + " x " + std::to_string(size[1]));
        const Photograph photograph(size[0], size[1], [](int x, int y) {
            return Colour { (x * 37 + y * 11) % 256, (x * y * 13) % 256, (y * 91) % 256 };
        });
        const Picture picture = reduce(photograph);
        for (int y = 0; y < pictureHeight; y += 17)
            for (int x = 0; x < pictureWidth; x += 23) {
                const Colour expected = meanByGrid(photograph, x, y);
                const Colour got = colourOf(picture, x, y);
                EXPECT_NEAR(got.red, expected.red, 6) << x << ' ' << y;
                EXPECT_NEAR(got.green, expected.green, 6) << x << ' ' << y;
                EXPECT_NEAR(got.blue, expected.blue, 6) << x << ' ' << y;
            }
    }
}

TEST(PictureReducer, cutsTheMiddleOut)
{
    // Wide: 320 × 120, of which the inner 160 columns stay. Tall: 160 × 360, of which the inner
    // 120 rows stay.
    const auto inner = [](bool isInner) {
        return isInner ? Colour { 9, 8, 7 } : Colour { 255, 0, 255 };
    };
    const Photograph wide(320, 120, [&](int x, int) { return inner(x >= 80 && x < 240); });
    const Photograph tall(160, 360, [&](int, int y) { return inner(y >= 120 && y < 240); });
    EXPECT_EQ(reduce(wide), test::plainPicture(9, 8, 7));
    EXPECT_EQ(reduce(tall), test::plainPicture(9, 8, 7));
    const Photograph turned(120, 320, [&](int, int y) { return inner(y >= 80 && y < 240); });
    EXPECT_EQ(reduce(turned, 6), test::plainPicture(9, 8, 7));
}

} // namespace
} // namespace kez::driver
