// SPDX-License-Identifier: MIT
#include "tools/kez_run.h"

#include "platform/temporary_folder.h"
#include "tools/picture.h"
#include "tools/png_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

using namespace kez;
using namespace kez::test;
using namespace kez::tools;
using testing::HasSubstr;

namespace {

class Pictures : public testing::Test {
protected:
    // 47 × 33, every pixel different.
    static Picture sample()
    {
        Picture picture { 47, 33, {} };
        for (int i = 0; i < 47 * 33; ++i)
            for (const int value : { i % 256, i / 256, i * 7 % 251 })
                picture.pixels.push_back(static_cast<std::uint8_t>(value));
        return picture;
    }

    TemporaryFolder folder;
};

TEST_F(Pictures, comeBackFromEveryKindWithoutLoss)
{
    const Picture picture = sample();
    writePicture(folder / "a.cam", picture);
    for (const char* name : { "b.png", "c.TGA", "d.targa" }) {
        SCOPED_TRACE(name);
        const KezRun run = runKez({ "picture", "convert", folder / "a.cam", folder / name });
        EXPECT_EQ(run.status, 0) << run.errors;
        const Picture again = readPicture(folder / name);
        EXPECT_EQ(again.width, 47);
        EXPECT_EQ(again.height, 33);
        EXPECT_TRUE(again.pixels == picture.pixels);
    }
    EXPECT_EQ(runKez({ "picture", "convert", folder / "a.cam", folder / "e.bmp" }).status, 0);
    // 54 bytes of headers, rows of 141 bytes padded to 144.
    EXPECT_EQ(folder.get("e.bmp").size(), 54u + 144 * 33);
}

// Two ways out of a BMP: through our own reader, and by the bytes that its headers promise.
TEST_F(Pictures, comeBackFromABitmap)
{
    const Picture picture = sample();
    writePicture(folder / "a.cam", picture);
    ASSERT_EQ(runKez({ "picture", "convert", folder / "a.cam", folder / "b.BMP" }).status, 0);
    for (const char* name : { "a.cam", "b.BMP" }) {
        const KezRun run = runKez({ "picture", "decode", folder / name });
        EXPECT_EQ(run.status, 0) << run.errors;
        EXPECT_EQ(run.errors, "47 33\n");
        EXPECT_TRUE(run.out == std::string(picture.pixels.begin(), picture.pixels.end()));
    }
    EXPECT_EQ(folder.get("b.BMP").substr(54 + 144, 141),
        std::string(picture.pixels.begin() + 141, picture.pixels.begin() + 282));
    folder.put("cut.bmp", folder.get("b.BMP").substr(0, 54 + 144 * 32));
    const KezRun cut = runKez({ "picture", "decode", folder / "cut.bmp" });
    EXPECT_EQ(cut.status, 1);
    EXPECT_EQ(cut.out, "");
    EXPECT_THAT(cut.errors, HasSubstr("cut.bmp"));
}

// Soft colours survive a JPEG nearly; its rows and channels must not be exchanged.
TEST_F(Pictures, comeBackFromAJpegNearly)
{
    Picture picture { 64, 48, {} };
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x)
            for (const int value : { 60 + x, 100 + y * 2, 220 - x - y })
                picture.pixels.push_back(static_cast<std::uint8_t>(value));
    writePicture(folder / "a.cam", picture);
    for (const char* name : { "b.jpg", "c.JPEG" }) {
        SCOPED_TRACE(name);
        const KezRun run = runKez({ "picture", "convert", folder / "a.cam", folder / name });
        ASSERT_EQ(run.status, 0) << run.errors;
        const KezRun again = runKez({ "picture", "decode", folder / name });
        EXPECT_EQ(again.errors, "64 48\n");
        ASSERT_EQ(again.out.size(), picture.pixels.size());
        int furthest = 0;
        for (std::size_t i = 0; i < picture.pixels.size(); ++i)
            furthest = std::max(furthest,
                std::abs(static_cast<std::uint8_t>(again.out[i]) - int { picture.pixels[i] }));
        EXPECT_LE(furthest, 12);
    }
}

TEST_F(Pictures, putThePngsTopRowLastAndTransparencyOverWhite)
{
    writePng(folder / "a.png", { 1, 3, { 0xFF102030, 0x00123456, 0x80000000 } });
    const std::vector<std::uint8_t> expected { 127, 127, 127, 255, 255, 255, 0x30, 0x20, 0x10 };
    EXPECT_EQ(readPicture(folder / "a.png").pixels, expected);
}

TEST_F(Pictures, becomeThumbnailsOfTheStoresForm)
{
    // Twice as wide as high: white bands above and below.
    Picture picture { 120, 60, std::vector<std::uint8_t>(120 * 60 * 3, 9) };
    writePicture(folder / "a.clip", picture);
    EXPECT_EQ(folder.get("a.clip").size(), 8100u);
    const Picture clip = readPicture(folder / "a.clip");
    EXPECT_EQ(clip.width, 60);
    EXPECT_EQ(clip.height, 45);
    EXPECT_EQ(clip.pixels.front(), 255);
    EXPECT_EQ(clip.pixels[(22 * 60 + 30) * 3], 9);
}

TEST_F(Pictures, refuseInOneLine)
{
    folder.put("short.clip", "abc");
    folder.put("long.clip", std::string(8101, 'x'));
    folder.put("small.cam", "abc");
    folder.put("a.jpeg", "abc");
    folder.put("a.gif", "abc");
    folder.put("nothing", "abc");

    const struct {
        const char* name;
        std::string said;
    } cases[] = {
        { "none.cam", "kez: File \"" + folder / "none.cam\": Could not open file\n" },
        { "small.cam", "kez: File \"" + folder / "small.cam\": File too small for a Targa\n" },
        { "short.clip", "short.clip: it is no thumbnail" },
        { "long.clip", "long.clip: it is no thumbnail" },
        { "none.png", "none.png: the file cannot be read" },
        { "a.jpeg", "a.jpeg: it is missing, damaged, or" },
        { "a.gif", "a.gif: this kind of picture is not read" },
        { "nothing", "nothing: this kind of picture is not read" },
    };

    for (const auto& each : cases) {
        const KezRun run = runKez({ "picture", "decode", folder / each.name });
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.errors, HasSubstr(each.said));
        EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1) << run.errors;
    }
    writePicture(folder / "a.cam", sample());
    EXPECT_EQ(runKez({ "picture", "convert", folder / "a.cam", folder / "b.gif" }).status, 1);
    EXPECT_EQ(runKez({ "picture", "convert", folder / "a.cam", folder / "no/b.bmp" }).status, 1);
    EXPECT_EQ(runKez({ "picture" }).status, 2);
}

} // namespace
