// SPDX-License-Identifier: MIT
#include "picture_files.h"
#include "picture_source.h"
#include "platform/temporary_folder.h"
#include "support/debug_output.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kez::driver {
namespace {

using kez::test::DebugOutput;
using kez::test::TemporaryFolder;
using Shutter = PictureSource::Shutter;

std::string plainFile(int number)
{
    return test::pngFile(test::Photograph(8, 6, [=](int, int) {
        return test::Colour { number, 0, 0 };
    }));
}

/// The number of the next picture; 0 when there is none.
int nextNumber(PictureSource& source, std::uint32_t now, Shutter shutter = Shutter::Waiting)
{
    const std::optional<Picture> picture = source.next(now, shutter);
    return picture ? test::colourOf(*picture, 0, 0).red : 0;
}

void putDemo(const TemporaryFolder& folder, int count)
{
    for (int i = 1; i <= count; ++i)
        folder.put("demo" + std::to_string(i) + (i % 2 == 0 ? ".jpg" : ".png"), plainFile(i));
}

TEST(DemoSource, hasThreeAtOnceAndThenOneEveryTenSecondsUpToSix)
{
    const TemporaryFolder folder;
    putDemo(folder, 7);
    std::string problem;
    const auto source = makeDemoSource(folder.path(), problem);
    ASSERT_NE(source, nullptr) << problem;
    EXPECT_EQ(source->atStart(), 3);
    for (const int number : { 1, 2, 3, 0 })
        EXPECT_EQ(nextNumber(*source, 500), number);
    EXPECT_EQ(nextNumber(*source, 10'499), 0);
    EXPECT_EQ(nextNumber(*source, 10'500), 4);
    EXPECT_EQ(nextNumber(*source, 10'500), 0);
    EXPECT_EQ(nextNumber(*source, 20'500), 5);
    EXPECT_EQ(nextNumber(*source, 99'500), 6);
    EXPECT_EQ(nextNumber(*source, 999'500), 0);
    EXPECT_EQ(nextNumber(*source, 999'500, Shutter::Pressed), 7);
    EXPECT_EQ(nextNumber(*source, 999'500, Shutter::Pressed), 1);
}

TEST(DemoSource, makesDoWithFewerAndSkipsDamagedOnes)
{
    const TemporaryFolder folder;
    putDemo(folder, 2);
    folder.put("demo1.png", "no picture");
    std::string problem;
    const auto source = makeDemoSource(folder.path(), problem);
    ASSERT_NE(source, nullptr);
    const DebugOutput heard;
    EXPECT_EQ(nextNumber(*source, 0), 2);
    EXPECT_EQ(nextNumber(*source, 99'000), 0);
    EXPECT_EQ(nextNumber(*source, 99'000, Shutter::Pressed), 2);
    EXPECT_NE(heard.text().find("demo1.png is no JPEG or PNG picture"), std::string::npos);
    EXPECT_EQ(makeDemoSource(folder / "elsewhere", problem), nullptr);
    EXPECT_NE(problem.find("elsewhere"), std::string::npos);
}

TEST(FolderSource, takesEachFileOnceByNameAndThenThoseThatCome)
{
    const TemporaryFolder folder;
    folder.put("b.png", plainFile(2));
    folder.put("a.JPG", plainFile(1));
    folder.put("ab.jpg", "");
    folder.put("c.jpeg", "no picture");
    std::string problem;
    const auto source = makeFolderSource(folder.path(), problem);
    ASSERT_NE(source, nullptr);
    const DebugOutput heard;
    for (const int number : { 1, 2, 0 })
        EXPECT_EQ(nextNumber(*source, 0), number);
    EXPECT_NE(heard.text().find("ab.jpg is empty; it is skipped"), std::string::npos);
    EXPECT_NE(heard.text().find("c.jpeg is no JPEG or PNG picture"), std::string::npos);
    folder.put("aa.png", plainFile(3));
    EXPECT_EQ(nextNumber(*source, 1000), 0);
    EXPECT_EQ(nextNumber(*source, 2000), 3);
    EXPECT_EQ(nextNumber(*source, 3000), 0);
}

TEST(FolderSource, aPressTakesAnEarlierOneAgainWhenNoneIsNew)
{
    const TemporaryFolder folder;
    std::string problem;
    const auto source = makeFolderSource(folder.path(), problem);
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(nextNumber(*source, 0, Shutter::Pressed), 0);
    folder.put("a.png", plainFile(1));
    folder.put("b.png", plainFile(2));
    nextNumber(*source, 1000);
    for (const int number : { 1, 2, 1, 2, 1 })
        EXPECT_EQ(nextNumber(*source, 2000, Shutter::Pressed), number);
    std::filesystem::remove(folder / "a.png");
    EXPECT_EQ(nextNumber(*source, 2000, Shutter::Pressed), 2);
    std::filesystem::remove(folder / "b.png");
    EXPECT_EQ(nextNumber(*source, 2000, Shutter::Pressed), 0);
}

TEST(FolderSource, isRefusedWhereThereIsNoFolder)
{
    const TemporaryFolder folder;
    folder.put("file", "");
    for (const std::string& path : { folder / "none", folder / "file", std::string() }) {
        std::string problem;
        EXPECT_EQ(makeFolderSource(path, problem), nullptr) << path;
        EXPECT_FALSE(problem.empty());
    }
}

} // namespace
} // namespace kez::driver
