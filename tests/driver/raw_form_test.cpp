// SPDX-License-Identifier: MIT
#include "enlarge.h"
#include "picture_files.h"
#include "raw_form.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace kez::driver {
namespace {

using test::Colour;

using HostPicture = std::array<std::uint8_t, MVI_PICTURE_BYTES>;

HostPicture thereAndBack(const Picture& picture)
{
    HostPicture result {};
    EXPECT_TRUE(colourize(expose(picture), result));
    return result;
}

Colour colourAt(const HostPicture& result, int x, int y)
{
    const auto at = static_cast<std::size_t>((pictureHeight - 1 - y) * pictureWidth + x) * 3;
    return { result[at + 2], result[at + 1], result[at] };
}

Picture pictureOf(const std::function<Colour(int, int)>& colourOfPoint)
{
    const test::Photograph photograph(pictureWidth, pictureHeight, colourOfPoint);
    Picture picture;
    std::copy(photograph.pixels.begin(), photograph.pixels.end(), picture.begin());
    return picture;
}

struct Difference {
    int largest = 0;
    double mean = 0;
};

Difference difference(const Picture& picture)
{
    const HostPicture result = thereAndBack(picture);
    Difference found;
    for (int y = 0; y < pictureHeight; ++y)
        for (int x = 0; x < pictureWidth; ++x) {
            const Colour a = test::colourOf(picture, x, y);
            const Colour b = colourAt(result, x, y);
            for (const int d : { a.red - b.red, a.green - b.green, a.blue - b.blue }) {
                found.largest = std::max(found.largest, std::abs(d));
                found.mean += std::abs(d) / double(MVI_PICTURE_BYTES);
            }
        }
    return found;
}

Colour fieldOf(int x, int y)
{
    const int n = x / 19 + 9 * (y / 17);
    return { (n * 61) % 256, (n * 151) % 256, (n * 203) % 256 };
}

Colour thinLinesAt(int x, int y)
{
    const bool line = x % 11 == 3 || y % 13 == 5 || (x + y) % 17 == 0;
    return line ? Colour { 60, 30, 70 } : Colour { 250, 250, 240 };
}

Colour noiseAt(int x, int y)
{
    const unsigned random = unsigned(y * pictureWidth + x) * 2654435761u;
    return { int(random >> 24), int(random >> 16 & 255), int(random >> 8 & 255) };
}

TEST(RawForm, picturesComeBackNearly)
{
    const Colour colours[] = { { 0, 0, 0 }, { 255, 255, 255 }, { 255, 0, 0 }, { 0, 255, 0 },
        { 0, 0, 255 }, { 255, 255, 0 }, { 12, 200, 77 }, { 254, 1, 128 } };
    for (const Colour& c : colours)
        EXPECT_LE(difference(test::plainPicture(c.red, c.green, c.blue)).largest, 2);
    const Difference gradient = difference(pictureOf([](int x, int y) {
        return Colour { x * 255 / 159, y * 255 / 119, 255 - (x + y) * 255 / 278 };
    }));
    EXPECT_LE(gradient.largest, 4);
    const Difference fields = difference(pictureOf(fieldOf));
    EXPECT_LE(fields.largest, 12);
    EXPECT_LT(fields.mean, 1.5);
    const Difference lines = difference(pictureOf(thinLinesAt));
    EXPECT_LE(lines.largest, 40);
    EXPECT_LT(lines.mean, 4.0);
    // Two colours picked at random are 85 apart.
    EXPECT_LT(difference(pictureOf(noiseAt)).mean, 45.0);
}

TEST(RawForm, holdsItsLengthAndAStreamAndZeros)
{
    const RawPicture raw = expose(test::plainPicture(1, 2, 3));
    const std::size_t length = raw[0] + 256u * raw[1];
    EXPECT_EQ(raw[2] + raw[3], 0);
    EXPECT_EQ(raw[4], 0xFF);
    EXPECT_EQ(raw[5], 0xD8);
    EXPECT_EQ(raw[4 + length - 1], 0xD9);
    EXPECT_TRUE(std::all_of(raw.begin() + 4 + static_cast<std::ptrdiff_t>(length), raw.end(),
        [](std::uint8_t byte) { return byte == 0; }));
}

TEST(RawForm, otherDataAreRefusedWithoutHarm)
{
    RawPicture raw {};
    HostPicture result;
    EXPECT_FALSE(colourize(raw, result));
    raw.fill(0xFF);
    EXPECT_FALSE(colourize(raw, result));
    const RawPicture good = expose(pictureOf([](int x, int y) { return Colour { x, y, x ^ y }; }));
    ASSERT_TRUE(colourize(good, result));
    unsigned random = 3;
    for (int i = 0; i < 300; ++i) {
        random = random * 1664525 + 1013904223;
        raw = good;
        raw[(random >> 8) % (i < 150 ? 700 : 9000)] = static_cast<std::uint8_t>(random >> 3);
        static_cast<void>(colourize(raw, result)); // the sanitizers watch
    }
    raw = good;
    raw[1] = static_cast<std::uint8_t>(raw[1] / 2); // half the stream
    EXPECT_FALSE(colourize(raw, result));
}

TEST(Enlarge, keepsPlainColoursAndRampsBetweenPixels)
{
    std::vector<std::uint8_t> picture(MVI_PICTURE_BYTES, 77);
    std::vector<std::uint8_t> enlarged(MVI_ENLARGED_BYTES);
    const auto run = [&] {
        enlarge(std::span<const std::uint8_t, MVI_PICTURE_BYTES>(picture),
            std::span<std::uint8_t, MVI_ENLARGED_BYTES>(enlarged));
    };
    run();
    EXPECT_EQ(enlarged, std::vector<std::uint8_t>(MVI_ENLARGED_BYTES, 77));
    std::fill(picture.begin(), picture.end(), std::uint8_t { 0 });
    picture[0] = 160; // one blue pixel in the corner of the bottom row
    run();
    const auto blueAt
        = [&enlarged](int x, int y) { return enlarged[std::size_t(y * 320 + x) * 3]; };
    const int expected[3][3] = { { 160, 120, 40 }, { 120, 90, 30 }, { 40, 30, 10 } };
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(blueAt(x, y), expected[y][x]) << x << ' ' << y;
}

} // namespace
} // namespace kez::driver
