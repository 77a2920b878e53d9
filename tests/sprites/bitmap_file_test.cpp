// SPDX-License-Identifier: MIT
#include "sprites/bitmap_file.h"

#include "platform/files.h"
#include "platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kez::test {

namespace {

std::vector<std::uint8_t> countedPixels(std::size_t bytes)
{
    std::vector<std::uint8_t> pixels(bytes);
    for (std::size_t i = 0; i < bytes; ++i)
        pixels[i] = static_cast<std::uint8_t>(i + 1);
    return pixels;
}

} // namespace

TEST(BitmapFile, writesHeaderAndPaddedRows)
{
    const TemporaryFolder folder;
    ByteBlock block = makeBitmap(countedPixels(30).data(), 5, 2);
    EXPECT_EQ(block.size(), 72u);
    ASSERT_TRUE(writeBitmapFile(block, (folder / "a.bmp").c_str()));
    const unsigned char expected[86] = { 'B', 'M', 86, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, //
        40, 0, 0, 0, 5, 0, 0, 0, 2, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 32, 0, 0, 0, //
        0xCE, 0x0E, 0, 0, 0xC4, 0x0E, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, //
        1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0, //
        16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 0 };
    EXPECT_EQ(folder.get("a.bmp"), std::string(expected, expected + sizeof expected));
    freeBitmap(block);
    EXPECT_FALSE(block);

    const ByteBlock photo = makeBitmap(countedPixels(160 * 120 * 3).data(), 160, 120);
    ASSERT_TRUE(writeBitmapFile(photo, (folder / "b.bmp").c_str()));
    EXPECT_EQ(folder.get("b.bmp").size(), 57654u);
}

TEST(BitmapFile, failsWithoutPixelsOrRoomAndLeavesNothingBehind)
{
    const std::uint8_t pixel[3] = {};
    EXPECT_FALSE(makeBitmap(nullptr, 1, 1));
    EXPECT_FALSE(makeBitmap(pixel, 0, 1));
    EXPECT_FALSE(makeBitmap(pixel, 1, -1));
    EXPECT_FALSE(makeBitmap(pixel, 1 << 20, 1 << 20));

    const TemporaryFolder folder;
    EXPECT_FALSE(writeBitmapFile({}, (folder / "a.bmp").c_str()));
    const ByteBlock block = makeBitmap(pixel, 1, 1);
    for (int failing = 0; failing < 2; ++failing) {
        files::Fault::Plan plan;
        plan.failWriteNumber = failing;
        const files::Fault fault(plan);
        EXPECT_FALSE(writeBitmapFile(block, (folder / "a.bmp").c_str()));
    }
    EXPECT_FALSE(writeBitmapFile(block, (folder / "none/a.bmp").c_str()));
    EXPECT_TRUE(folder.names().empty());
}

} // namespace kez::test
