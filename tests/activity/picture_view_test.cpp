// SPDX-License-Identifier: MIT
#include "activity/picture_view.h"

#include "activity/screen_fixture.h"
#include "activity/stored_pictures.h"
#include "media/resample.h"

#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;

namespace {

class PictureViewTest : public ScreenTest {
protected:
    void TearDown() override
    {
        pictureView().leave();
        ScreenTest::TearDown();
    }

    const DynaImage* open(const char* name)
    {
        pictureView().open(name, 2, grid);
        return pictureView().picture();
    }

    static std::uint32_t pixel(const DynaImage& image, int x, int y)
    {
        std::uint32_t value = 0;
        std::memcpy(&value, image.pixels() + (y * image.spriteWidth() + x) * 4, 4);
        return value;
    }

    /// The pixel of a picture of three bytes a pixel, bottom row first, as the view must show it.
    static std::uint32_t expected(const std::uint8_t* picture, int width, int height, int x, int y)
    {
        const std::uint8_t* at = picture + ((height - 1 - y) * width + x) * 3;
        return 0xFF000000u | static_cast<std::uint32_t>(at[2]) << 16
            | static_cast<std::uint32_t>(at[1]) << 8 | at[0];
    }

    ThumbnailGrid grid;
};

TEST_F(PictureViewTest, fitsPicturesIntoTheView)
{
    const struct {
        int width, height, shownWidth, shownHeight;
    } cases[] = { { 160, 120, 320, 240 }, { 320, 240, 320, 240 }, { 640, 100, 320, 50 },
        { 47, 33, 320, 224 }, { 30, 60, 120, 240 }, { 1, 500, 1, 240 }, { 500, 1, 320, 1 } };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.width);
        const Picture picture = makePicture(one.width, one.height);
        ASSERT_TRUE(savePhoto("a", picture.data(), one.width, one.height, nullptr, nullptr));
        const DynaImage* image = open("a");
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(image->spriteWidth(), one.shownWidth);
        EXPECT_EQ(image->spriteHeight(), one.shownHeight);
        EXPECT_EQ(image->x, -32);
        EXPECT_EQ(image->y, -62);
        pictureView().leave();
    }
}

TEST_F(PictureViewTest, masksBeforeItResamples)
{
    Picture picture = makePicture(160, 120);
    ASSERT_TRUE(savePhoto("a", picture.data(), 160, 120, nullptr, nullptr));
    put("mask/a.mask", "\xFF\xFF\x80"); // the first seventeen pixels of the lowest row
    for (std::size_t i = 0; i < 17; ++i) {
        picture[3 * i] = picture[3 * i + 1] = 255;
        picture[3 * i + 2] = 254;
    }
    Picture shown(320 * 240 * 3);
    std::uint8_t* into = shown.data();
    resamplePicture(picture.data(), 160, 120, &into, 320, 240);
    const DynaImage* image = open("a");
    ASSERT_NE(image, nullptr);
    for (int x = 0; x < 40; ++x)
        EXPECT_EQ(pixel(*image, x, 239), expected(shown.data(), 320, 240, x, 239));
}

TEST_F(PictureViewTest, staysWithThePictureThatIsShown)
{
    const Picture picture = makePicture(16, 12);
    ASSERT_TRUE(savePhoto("a", picture.data(), 16, 12, nullptr, nullptr));
    ASSERT_TRUE(savePhoto("b", picture.data(), 12, 16, nullptr, nullptr));
    const DynaImage* first = open("a");
    EXPECT_EQ(open("b"), first);
}

TEST_F(PictureViewTest, doesNotOpenWhatCannotBeRead)
{
    put("photo/bad.cam", "no picture at all");
    EXPECT_EQ(open("bad"), nullptr);
    EXPECT_EQ(open("missing"), nullptr);
    EXPECT_EQ(displayList().count(), 0);
}

} // namespace
