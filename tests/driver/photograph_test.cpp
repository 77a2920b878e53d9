// SPDX-License-Identifier: MIT
#include "photograph.h"
#include "picture_files.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace kez::driver {
namespace {

using kez::test::TemporaryFolder;
using test::Colour;
using test::jpegFile;
using test::Photograph;
using test::pngFile;

struct Outcome {
    std::optional<Picture> picture;
    std::string problem;
};

Outcome readBytes(const std::string& bytes)
{
    const TemporaryFolder folder;
    folder.put("photograph", bytes);
    files::Reader file(folder / "photograph");
    Outcome outcome;
    outcome.picture = readPhotograph(file, outcome.problem);
    return outcome;
}

void expectNear(const Picture& picture, int x, int y, const Colour& expected, int tolerance)
{
    const Colour got = test::colourOf(picture, x, y);
    EXPECT_NEAR(got.red, expected.red, tolerance) << x << ' ' << y;
    EXPECT_NEAR(got.green, expected.green, tolerance) << x << ' ' << y;
    EXPECT_NEAR(got.blue, expected.blue, tolerance) << x << ' ' << y;
}

// A photograph stored so that it is upright with the orientation: the fields from the top left are
// red, green, blue and yellow in the upright picture.
Photograph fields(int orientation, int longSide, int shortSide)
{
    const bool transposed = orientation >= 5;
    const int width = transposed ? shortSide : longSide;
    const int height = transposed ? longSide : shortSide;
    return Photograph(width, height, [=](int x, int y) {
        bool right = x >= width / 2;
        bool below = y >= height / 2;
        if (orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8)
            right = !right;
        if (orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7)
            below = !below;
        if (transposed)
            std::swap(right, below);
        return below ? (right ? Colour { 220, 220, 0 } : Colour { 0, 0, 220 })
                     : (right ? Colour { 0, 200, 0 } : Colour { 220, 0, 0 });
    });
}

void expectFields(const Outcome& outcome)
{
    ASSERT_TRUE(outcome.picture) << outcome.problem;
    expectNear(*outcome.picture, 20, 15, { 220, 0, 0 }, 6);
    expectNear(*outcome.picture, 140, 15, { 0, 200, 0 }, 6);
    expectNear(*outcome.picture, 20, 105, { 0, 0, 220 }, 6);
    expectNear(*outcome.picture, 140, 105, { 220, 220, 0 }, 6);
}

TEST(Photograph, isUprightInEveryOrientation)
{
    for (int orientation = 0; orientation <= 8; ++orientation) {
        SCOPED_TRACE(orientation);
        for (const auto& [longSide, shortSide] : { std::pair(400, 300), std::pair(47, 33) }) {
            const Photograph photograph = fields(orientation, longSide, shortSide);
            expectFields(readBytes(jpegFile(photograph, { .orientation = orientation })));
            expectFields(readBytes(pngFile(photograph, { .orientation = orientation })));
        }
    }
}

TEST(Photograph, isReadInEveryKindOfFile)
{
    const Photograph photograph = fields(1, 333, 250);
    expectFields(readBytes(jpegFile(photograph, { .isProgressive = true })));
    expectFields(readBytes(jpegFile(photograph, { .components = 4, .colours = JCS_CMYK })));
    expectFields(readBytes(pngFile(photograph, { .interlaced = true })));
    expectFields(readBytes(pngFile(photograph, { .opacity = 255 })));
    const Outcome grey
        = readBytes(jpegFile(photograph, { .components = 1, .colours = JCS_GRAYSCALE }));
    ASSERT_TRUE(grey.picture) << grey.problem;
    expectNear(*grey.picture, 20, 15, { 220, 220, 220 }, 4);
}

TEST(Photograph, transparencyLetsWhitePaperThrough)
{
    const Photograph photograph(8, 6, [](int, int) { return Colour { 100, 0, 200 }; });
    const Outcome half = readBytes(pngFile(photograph, { .opacity = 128 }));
    ASSERT_TRUE(half.picture);
    expectNear(*half.picture, 80, 60, { 177, 127, 227 }, 1);
}

TEST(Photograph, hasAnySize)
{
    const int sizes[][2] = { { 1, 1 }, { 1, 7 }, { 3, 4000 }, { 4000, 3 }, { 161, 119 } };
    for (const auto& size : sizes) {
        SCOPED_TRACE(std::to_string(size[0]) + " x " + std::to_string(size[1]));
        const Photograph photograph(size[0], size[1], [](int, int) {
            return Colour { 50, 150, 90 };
        });
        for (const std::string& bytes : { jpegFile(photograph), pngFile(photograph) }) {
            const Outcome outcome = readBytes(bytes);
            ASSERT_TRUE(outcome.picture) << outcome.problem;
            for (const int x : { 0, 80, 159 })
                expectNear(*outcome.picture, x, x / 2, { 50, 150, 90 }, 3);
        }
    }
}

TEST(Photograph, thatIsNoPictureIsRefusedWithTheReason)
{
    const Photograph photograph(4, 3, [](int, int) { return Colour { 1, 2, 3 }; });
    const std::string png = pngFile(photograph);
    EXPECT_EQ(readBytes("").problem, "is empty");
    EXPECT_EQ(readBytes("a letter to granny").problem, "is no JPEG or PNG picture");
    EXPECT_EQ(readBytes(jpegFile(photograph).substr(0, 300)).problem, "ends too early");
    EXPECT_EQ(readBytes(png.substr(0, 8)).problem, "ends too early");
    files::Reader none("/nowhere/at/all.jpg");
    std::string problem;
    EXPECT_FALSE(readPhotograph(none, problem));
    EXPECT_EQ(problem, "cannot be opened");
}

TEST(Photograph, thatIsCutShortIsRefusedWhereverItEnds)
{
    const Photograph photograph(150, 110, [](int x, int y) {
        return Colour { (x * 7) % 256, (y * 5) % 256, (x * y) % 256 };
    });
    for (const std::string& whole : { jpegFile(photograph, { .orientation = 6 }),
             pngFile(photograph), pngFile(photograph, { .interlaced = true }) }) {
        ASSERT_TRUE(readBytes(whole).picture);
        // A JPEG file without its end mark, or PNG without its last chunk, still has every pixel.
        for (std::size_t kept = 0; kept + 40 < whole.size(); kept += 1 + whole.size() / 60) {
            const Outcome outcome = readBytes(whole.substr(0, kept));
            EXPECT_FALSE(outcome.picture) << kept << " of " << whole.size();
            EXPECT_FALSE(outcome.problem.empty()) << kept;
        }
    }
}

TEST(Photograph, thatIsDamagedNeverDoesHarm)
{
    const Photograph photograph(60, 44, [](int x, int y) {
        return Colour { x * 4, y * 5, x ^ y };
    });
    for (std::string bytes : { jpegFile(photograph, { .orientation = 3 }),
             jpegFile(photograph, { .isProgressive = true }), pngFile(photograph) }) {
        unsigned random = 12345;
        for (int i = 0; i < 150; ++i) {
            random = random * 1664525 + 1013904223;
            std::string damaged = bytes;
            damaged[(random >> 8) % damaged.size()] = static_cast<char>(random);
            const Outcome outcome = readBytes(damaged);
            EXPECT_NE(outcome.picture.has_value(), !outcome.problem.empty());
        }
    }
}

TEST(Photograph, beyondTwoHundredMegapixelsIsRefusedBeforeItIsDecoded)
{
    std::string jpeg = jpegFile(Photograph(8, 8, [](int, int) { return Colour { 1, 2, 3 }; }));
    const std::size_t frame = jpeg.find("\xFF\xC0");
    ASSERT_NE(frame, jpeg.npos);
    for (std::size_t i = 5; i < 9; ++i)
        jpeg[frame + i] = static_cast<char>(0xFA); // 64250 × 64250
    EXPECT_EQ(readBytes(jpeg).problem, "has more than 200 megapixels");
}

} // namespace
} // namespace kez::driver
