// SPDX-License-Identifier: MIT
#include "display/bitmap_surface.h"

#include "display/screen.h"
#include "platform/bmp_bytes.h"
#include "platform/temporary_folder.h"
#include "support/debug_output.h"
#include "support/display.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace kez;
using namespace kez::test;

namespace {

class BitmapSurfaces : public testing::Test {
protected:
    BitmapSurfaces()
    {
        screen().attach(display.directDraw, display.primary, display.secondary, 32);
    }

    ~BitmapSurfaces() override { screen().detach(); }

    std::string put(const BmpBytes& bmp) const
    {
        const auto bytes = bmp.file();
        folder.put("A Picture.BMP", std::string(bytes.begin(), bytes.end()));
        return folder.path() + "\\a picture.bmp";
    }

    const BmpBytes twoRows {
        .width = 2, .height = 2, .pixels = { 1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0 }
    };
    TemporaryFolder folder;
    Display display { 32 };
    DebugOutput output;
};

TEST_F(BitmapSurfaces, holdTheBitmapInItsOwnSizeOrAnother)
{
    BITMAP description = {};
    IDirectDrawSurface* surface = loadBitmapSurface(put(twoRows).c_str(), 0, 0, &description);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(description.bmWidth, 2);
    EXPECT_EQ(description.bmHeight, 2);
    EXPECT_EQ(pixelAt(*surface, 0, 0), 0x090807u);
    EXPECT_EQ(pixelAt(*surface, 1, 0), 0x0C0B0Au);
    EXPECT_EQ(pixelAt(*surface, 1, 1), 0x060504u);
    surface->Release();

    surface = loadBitmapSurface(put(twoRows).c_str(), 4, 2, nullptr);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(pixelAt(*surface, 3, 1), 0x060504u);
    surface->Release();
}

TEST_F(BitmapSurfaces, areRefusedWhenTheFileEndsEarly)
{
    std::vector<BmpBytes> bitmaps(6, twoRows);
    bitmaps[0].pixels.resize(13);
    bitmaps[1].width = 1 << 20;
    bitmaps[2].width = bitmaps[2].height = 0x7FFFFFFF; // what they promise exceeds 64 bits
    bitmaps[3].height = std::numeric_limits<int>::min();
    bitmaps[4].headerSize = 12;
    bitmaps[4].pixels.resize(9);
    bitmaps[5].pixels.clear();
    for (const BmpBytes& bitmap : bitmaps)
        EXPECT_EQ(loadBitmapSurface(put(bitmap).c_str(), 0, 0, nullptr), nullptr);
}

TEST_F(BitmapSurfaces, areRefusedWithTheBitmapsName)
{
    folder.put("A Picture.BMP", "BM but no picture");
    const std::string noPicture = folder.path() + "\\a picture.bmp";
    EXPECT_EQ(loadBitmapSurface(noPicture.c_str(), 0, 0, nullptr), nullptr);
    EXPECT_NE(output.text().find("a picture.bmp"), std::string::npos);
    EXPECT_EQ(loadBitmapSurface((folder / "none.bmp").c_str(), 0, 0, nullptr), nullptr);
    EXPECT_EQ(loadBitmapSurface("a?b", 0, 0, nullptr), nullptr);
    EXPECT_EQ(loadBitmapSurface(nullptr, 0, 0, nullptr), nullptr);
    const std::string sound = put(twoRows);
    screen().detach();
    EXPECT_EQ(loadBitmapSurface(sound.c_str(), 0, 0, nullptr), nullptr);
}

} // namespace
