// SPDX-License-Identifier: MIT
#include "folder_watch.h"
#include "platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kez::driver {
namespace {

using kez::test::TemporaryFolder;

// The names that are new, each taken as it comes.
std::string takeAll(FolderWatch& watch)
{
    std::string names;
    while (const auto path = watch.next()) {
        names += std::filesystem::path(*path).filename().string() + ' ';
        watch.settle(true);
    }
    return names;
}

TEST(FolderWatch, offersThePicturesThatAreThereByName)
{
    const TemporaryFolder folder;
    for (const char* name : { "b.JPG", "a.jpeg", "c.Png", "notes.txt", "jpg", "d.jpg.part", ".png",
             "Screenshot 12:30.png" })
        folder.put(name, "x");
    std::filesystem::create_directory(folder / "e.jpg");
    FolderWatch watch(folder.path());
    watch.look(0);
    EXPECT_EQ(takeAll(watch), ".png Screenshot 12:30.png a.jpeg b.JPG c.Png ");
    watch.look(5000);
    EXPECT_EQ(takeAll(watch), "");
}

TEST(FolderWatch, offersAFileThatComesOnceItHasStoppedGrowing)
{
    const TemporaryFolder folder;
    FolderWatch watch(folder.path());
    watch.look(0);
    folder.put("a.jpg", "12");
    watch.look(999); // too soon to look at all
    watch.look(1000);
    EXPECT_EQ(takeAll(watch), "");
    folder.put("a.jpg", "1234");
    watch.look(2000);
    EXPECT_EQ(takeAll(watch), "");
    watch.look(3000);
    EXPECT_EQ(takeAll(watch), "a.jpg ");
}

TEST(FolderWatch, offersASkippedFileAgainWhenItHasGrown)
{
    const TemporaryFolder folder;
    folder.put("a.jpg", "12");
    FolderWatch watch(folder.path());
    watch.look(0);
    ASSERT_TRUE(watch.next());
    watch.settle(false);
    watch.look(1000);
    EXPECT_FALSE(watch.next());
    folder.put("a.jpg", "1234");
    watch.look(2000);
    watch.look(3000);
    EXPECT_EQ(takeAll(watch), "a.jpg ");
}

TEST(FolderWatch, takesAFileThatWentAndCameBackForANewOne)
{
    const TemporaryFolder folder;
    folder.put("a.jpg", "12");
    FolderWatch watch(folder.path());
    watch.look(0);
    EXPECT_EQ(takeAll(watch), "a.jpg ");
    std::filesystem::remove(folder / "a.jpg");
    watch.look(1000);
    folder.put("a.jpg", "12");
    watch.look(2000);
    watch.look(3000);
    EXPECT_EQ(takeAll(watch), "a.jpg ");
    std::filesystem::remove_all(folder.path());
    watch.look(4000);
    EXPECT_EQ(takeAll(watch), "");
}

} // namespace
} // namespace kez::driver
