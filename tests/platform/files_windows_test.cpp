// SPDX-License-Identifier: MIT
// What Windows adds to the rules: short names, files that are in use, read-only files.
#include "platform/files.h"
#include "platform/temporary_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace kez::files {
namespace {

using test::TemporaryFolder;

const Bytes some = { 'n', 'e', 'w' };

TEST(Files, ignoreCase)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(createDirectory(folder / "Photo"));
    folder.put("Photo/one.CAM", "one");
    EXPECT_TRUE(exists(folder / "PHOTO\\ONE.cam"));
    EXPECT_TRUE(exists(folder / "photo/../photo/One.Cam"));
    EXPECT_FALSE(exists(folder / "photo\\two.cam"));
    EXPECT_TRUE(createDirectory(folder / "PHOTO"));
}

TEST(Files, areListedWithTheirShortNames)
{
    const TemporaryFolder folder;
    folder.put("Photo  1 of the harbour.cam", "");
    folder.put("SHORT.CAM", "");
    const std::vector<Entry> entries = list(folder.path(), "cam");
    ASSERT_EQ(entries.size(), 2u);
    for (const Entry& entry : entries) {
        SCOPED_TRACE(entry.name);
        WIN32_FIND_DATAA found {};
        const HANDLE search = FindFirstFileA((folder / entry.name).c_str(), &found);
        ASSERT_NE(search, INVALID_HANDLE_VALUE);
        FindClose(search);
        EXPECT_EQ(entry.name, found.cFileName);
        EXPECT_EQ(entry.shortName, found.cAlternateFileName);
        EXPECT_TRUE(entry.shortName.empty() || exists(folder / entry.shortName));
    }
}

TEST(Files, inUseAreNeitherReplacedNorHarmed)
{
    const TemporaryFolder folder;
    folder.put("a", "old");
    const HANDLE held = CreateFileA((folder / "a").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(write(folder / "a", some));
    EXPECT_FALSE(remove(folder / "a"));
    CloseHandle(held);
    EXPECT_EQ(folder.get("a"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>({ "a" }));
    EXPECT_TRUE(write(folder / "a", some));
    EXPECT_EQ(folder.get("a"), "new");
}

TEST(Files, thatMayOnlyBeReadStay)
{
    const TemporaryFolder folder;
    folder.put("a", "old");
    ASSERT_TRUE(SetFileAttributesA((folder / "a").c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(write(folder / "a", some));
    EXPECT_EQ(folder.get("a"), "old");
    SetFileAttributesA((folder / "a").c_str(), FILE_ATTRIBUTE_NORMAL);
}

} // namespace
} // namespace kez::files
