// SPDX-License-Identifier: MIT
#include "core/little_endian.h"
#include "media/resource_archive.h"
#include "platform/temporary_folder.h"
#include "sprites/dyna_image.h"
#include "sprites/random_sprite.h"
#include "sprites/sprite_builder.h"
#include "support/debug_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace kez::test {

namespace {

using Bytes = std::vector<std::uint8_t>;
using Pixels = std::vector<std::uint32_t>;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t green = 0x8000FF00;
constexpr std::uint32_t blue = 0xFF0000FF;

// Images with an archive of the test's own records; collects what is reported.
class Images : public testing::Test {
protected:
    Images() { createArchive(); }

    ~Images() override { destroyArchive(); }

    void stock(const std::vector<Bytes>& records)
    {
        std::string bytes;
        for (const Bytes& record : records)
            bytes.append(record.begin(), record.end());
        folder_.put("test.wad", bytes);
        archive()->open((folder_ / "test.wad").c_str());
    }

    static Pixels drawn(Image& image, int width, int height)
    {
        Pixels canvas(static_cast<std::size_t>(width * height), 0);
        const MemoryCanvas open(canvas.data(), width, height);
        image.draw();
        return canvas;
    }

    /// What has been reported since the last question.
    std::string reports() { return output_.take(); }

private:
    DebugOutput output_;
    TemporaryFolder folder_;
};

EncodedSprite threeColours(int bits, bool withAlpha)
{
    static const Pixels pixels = { red, green, blue };
    return encodeSprite({ .name = "three.sp5",
                            .x = 5,
                            .y = -6,
                            .depth = 40,
                            .width = 3,
                            .height = 1,
                            .pixels = pixels,
                            .bits = bits,
                            .withAlpha = withAlpha,
                            .paletteName = "three.pal",
                            .alphaName = "three.alp" })
        .value();
}

} // namespace

TEST_F(Images, takeTheirPlacementFromTheRecordUnlessToldToKeepIt)
{
    stock({ threeColours(32, false).sprite });
    Image image("three", true);
    image.loadSprite(true);
    EXPECT_EQ(image.width, 0);
    image.realize();
    EXPECT_THAT((std::vector { image.x, image.y, image.depth, image.width, image.height }),
        ElementsAre(5, -6, 40, 3, 1));
    EXPECT_EQ(image.baseDepth, 40);
    EXPECT_EQ(image.spriteWidth(), 3);
    EXPECT_EQ(reports(), "");

    const std::unique_ptr<Image> copy(image.clone());
    EXPECT_EQ(copy->pixels(), image.pixels());
    image.unrealize();
    EXPECT_EQ(image.spriteWidth(), 0);
    EXPECT_EQ(image.pixels(), nullptr);
    EXPECT_NE(copy->pixels(), nullptr);
}

TEST_F(Images, drawWithPaletteAndPlane)
{
    const EncodedSprite records = threeColours(8, true);
    stock({ records.sprite, records.palette, records.alpha });
    Image image("three", true);
    image.loadSprite(true);
    image.width = 3;
    image.height = 1;
    const Pixels expected = { red, 0x00008000 - 0x0100, blue }; // (128 × 255) >> 8 = 127
    EXPECT_EQ(drawn(image, 3, 1), expected);
    EXPECT_EQ(reports(), "");
    EXPECT_NE(image.alphaPlane(), nullptr);
}

TEST_F(Images, mergeTheirOpacityOnceOrOften)
{
    EncodedSprite records = threeColours(32, true);
    Bytes& plane = records.alpha;
    plane[plane.size() - 3] = 7;
    stock({ records.sprite, records.alpha });
    for (int repeated = 0; repeated < 2; ++repeated) {
        Image image("THREE", true);
        image.realize();
        ASSERT_NE(image.pixels(), nullptr);
        EXPECT_EQ(image.pixels()[3], 7);
        EXPECT_EQ(image.pixels()[7], 0x80);
    }
}

TEST_F(Images, nameWhatIsMissing)
{
    Image image("three", true);
    image.realize();
    EXPECT_THAT(reports(), HasSubstr("three.sp5"));

    const EncodedSprite records = threeColours(8, true);
    stock({ records.sprite, records.alpha });
    image.realize();
    EXPECT_THAT(reports(), HasSubstr("three.pal"));
    EXPECT_EQ(image.alphaPlane(), nullptr); // not sought after a palette that was not found
    EXPECT_EQ(image.spriteWidth(), 3);
    EXPECT_EQ(drawn(image, 3, 1), Pixels(3, 0));

    stock({ records.sprite, records.palette });
    image.loadSprite(true);
    image.x = image.y = 0;
    EXPECT_THAT(reports(), HasSubstr("three.alp"));
    EXPECT_EQ(drawn(image, 3, 1), (Pixels { red, green | 0xFF000000, blue }));
}

TEST_F(Images, reportMalformedRecordsByNameAndDrawNothing)
{
    EncodedSprite records = threeColours(8, false);
    Bytes noPalette = records.sprite;
    storeWord(&noPalette[offsets::paletteNames], 0);
    Bytes tooWide = records.sprite;
    storeWord(&tooWide[offsets::width], 4);
    Bytes fewColours = records.palette;
    storeWord(&fewColours[recordHeaderBytes], 2);

    struct FaultCase {
        std::vector<Bytes> records;
        const char* report;
    };

    const FaultCase cases[] = {
        { { noPalette, records.palette }, "three.sp5: the sprite has 8 bits and no palette" },
        { { tooWide, records.palette }, "three.sp5: the sprite's rows" },
        { { records.sprite, fewColours }, "three.pal: the palette has fewer colours" },
    };
    for (const FaultCase& fault : cases) {
        stock(fault.records);
        Image image("three", true);
        image.loadSprite(true);
        image.width = 3;
        image.height = 1;
        EXPECT_THAT(reports(), HasSubstr(fault.report));
        EXPECT_EQ(drawn(image, 3, 1), Pixels(3, 0));
    }
}

TEST_F(Images, dynamicOnesOwnTheirRecord)
{
    SpriteRecord builder;
    const Pixels pixels = { red, blue };
    builder.makeTrueColour("photo", 4, 5, 2, 1, pixels.data(), false);
    Bytes record = builder.serialise();
    auto image = std::make_unique<DynaImage>("photo", true);
    image->realize();
    EXPECT_EQ(image->pixels(), nullptr);
    image->setRecord(record.data());
    EXPECT_EQ(image->recordSize(), 164);
    record.assign(record.size(), 0xEE);
    EXPECT_EQ(image->x, 4);
    image->x = image->y = 0;
    EXPECT_EQ(drawn(*image, 2, 1), pixels);
    EXPECT_EQ(image->className(), "DynaImage");

    const std::unique_ptr<DynaImage> copy(image->clone());
    EXPECT_NE(copy->pixels(), image->pixels());
    image.reset();
    EXPECT_EQ(drawn(*copy, 2, 1), pixels);
    copy->unrealize();
    EXPECT_EQ(drawn(*copy, 2, 1), Pixels(2, 0));
    copy->realize();
    EXPECT_EQ(copy->x, 4);
    EXPECT_NE(copy->pixels(), nullptr);
    EXPECT_EQ(reports(), "");
}

namespace {

// A dynamic image of 5 × 4 black pixels.
std::unique_ptr<DynaImage> blackImage()
{
    SpriteRecord builder;
    const Pixels pixels(20, 0);
    builder.makeTrueColour("black", 0, 0, 5, 4, pixels.data(), false);
    auto image = std::make_unique<DynaImage>("black", true);
    image->setRecord(builder.serialise().data());
    return image;
}

Pixels pixelsOf(const Image& image)
{
    Pixels pixels;
    for (int i = 0; i < image.width * image.height; ++i)
        pixels.push_back(loadWord(image.pixels() + 4 * i));
    return pixels;
}

} // namespace

TEST_F(Images, fillBlocksClippedToTheSprite)
{
    const auto image = blackImage();
    image->fillPixels(7, 0, 0, 3, 2);
    EXPECT_EQ(
        pixelsOf(*image), (Pixels { 0, 0, 0, 0, 0, 0, 7, 7, 7, 0, 0, 7, 7, 7, 0, 0, 0, 0, 0, 0 }));
    image->fillPixels(9, -2, -2, 2, 3);
    image->fillPixels(9, 100, 0, 5, 5);
    EXPECT_EQ(
        pixelsOf(*image), (Pixels { 9, 0, 0, 0, 0, 9, 7, 7, 7, 0, 0, 7, 7, 7, 0, 0, 0, 0, 0, 0 }));
    image->width = 4; // not shown at its own size
    image->fillPixels(1, 0, 0, 9, 9);
    EXPECT_EQ(loadWord(image->pixels()), 9u);
}

TEST_F(Images, pastePicturesTheRightWayUp)
{
    const Pixels picture = { 1, 2, 3, 4, 5, 6 }; // 3 × 2, the first row is the lowest
    auto image = blackImage();
    image->pastePixels(picture.data(), 3, 2, 0, 0, 0, 0);
    EXPECT_EQ(
        pixelsOf(*image), (Pixels { 0, 0, 0, 0, 0, 0, 4, 5, 6, 0, 0, 1, 2, 3, 0, 0, 0, 0, 0, 0 }));
    image->pastePixels(picture.data(), 3, 2, 2, 2, 3, 2);
    EXPECT_EQ(
        pixelsOf(*image), (Pixels { 0, 0, 0, 0, 0, 0, 4, 5, 6, 0, 0, 1, 2, 3, 0, 0, 0, 0, 4, 5 }));

    image = blackImage();
    image->pastePixels(picture.data(), 3, 2, 0, 0, 2, 4);
    EXPECT_EQ(
        pixelsOf(*image), (Pixels { 0, 4, 5, 0, 0, 0, 4, 5, 0, 0, 0, 4, 5, 0, 0, 0, 1, 2, 0, 0 }));
}

} // namespace kez::test
