// SPDX-License-Identifier: MIT
#include "platform/file_texts.h"
#include "platform/temporary_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>

namespace kez::files {
namespace {

using test::TemporaryFolder;

TEST(Files, areWrittenOverTheNameThatIsThere)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(createDirectory(folder / "photo"));
    folder.put("photo/A.cam", "old");
    EXPECT_TRUE(write(folder / "PHOTO\\a.CAM", bytesOf("new")));
    EXPECT_EQ(folder.get("photo/A.cam"), "new");
    EXPECT_TRUE(createDirectory(folder / "Photo"));
    EXPECT_TRUE(write(folder / "Photo\\New.cam", {}));
    EXPECT_EQ(folder.names(), Names({ "photo" }));
    EXPECT_EQ(namesOf(list(folder / "PHOTO")), Names({ "A.cam", "New.cam" }));
}

TEST(Files, areReadWholeOrInPart)
{
    const TemporaryFolder folder;
    folder.put("a", "0123456789");
    EXPECT_EQ(files::size(folder / "a"), 10u);
    EXPECT_EQ(textOf(read(folder / "a", 10)), "0123456789");
    EXPECT_EQ(textOf(read(folder / "a", 9)), "(none)");
    EXPECT_EQ(GetLastError(), ERROR_FILE_TOO_LARGE);
    std::array<std::uint8_t, 4> part {};
    EXPECT_TRUE(readAt(folder / "a", 6, part));
    EXPECT_EQ(std::string(part.begin(), part.end()), "6789");
    EXPECT_FALSE(readAt(folder / "a", 7, part));
    EXPECT_FALSE(readAt(folder / "a", 11, {}));
    EXPECT_TRUE(readAt(folder / "a", 10, {}));

    Reader reader(folder / "a");
    EXPECT_EQ(reader.read(part), 4u);
    EXPECT_TRUE(reader.seek(8));
    EXPECT_EQ(reader.read(part), 2u);
    EXPECT_EQ(reader.position(), 10u);
    EXPECT_FALSE(reader.seek(11));
}

TEST(Files, renameNeverReplaces)
{
    const TemporaryFolder folder;
    folder.put("a", "A");
    folder.put("b", "B");
    for (const std::string to : { "b", "B", "a" }) {
        EXPECT_FALSE(rename(folder / "a", folder / to)) << to;
        EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS) << to;
    }
    EXPECT_FALSE(rename(folder / "missing", folder / "c"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(rename(folder / "a", folder / "missing\\c"));
    EXPECT_FALSE(rename(folder / "a", folder / "c:d"));
    EXPECT_TRUE(rename(folder / "a", folder / "A"));
    EXPECT_TRUE(rename(folder / "a", folder / "c"));
    EXPECT_EQ(folder.names(), Names({ "b", "c" }));
    EXPECT_EQ(folder.get("b") + folder.get("c"), "BA");
}

TEST(Files, sayWhatWasWrong)
{
    const TemporaryFolder folder;
    folder.put("file", "");
    const auto error = [](bool succeeded) { return succeeded ? NO_ERROR : GetLastError(); };
    EXPECT_EQ(error(write(folder / "missing\\a", {})), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(error(write(folder / "file\\a", {})), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(error(createDirectory(folder / "file")), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(error(createDirectory(folder / "a\\b")), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(error(remove(folder / "a")), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(error(!list(folder / "a").empty()), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(write(folder / "file\\", {}) || exists(folder / "file\\"));
}

TEST(Files, twoWritersOfOneNameDoNotMix)
{
    const TemporaryFolder folder;
    Writer first(folder / "a");
    Writer second(folder / "a");
    EXPECT_TRUE(first.write(bytesOf("first")));
    EXPECT_TRUE(second.write(bytesOf("2nd")));
    EXPECT_TRUE(first.commit());
    EXPECT_EQ(folder.get("a"), "first");
    EXPECT_TRUE(second.commit());
    EXPECT_FALSE(second.commit());
    EXPECT_EQ(folder.get("a"), "2nd");
    EXPECT_EQ(folder.names(), Names({ "a" }));
}

TEST(Files, whatACrashLeftBehindIsUsedAgain)
{
    const TemporaryFolder folder;
    folder.put("a.~new0", "half of a longer fi");
    EXPECT_TRUE(write(folder / "a", bytesOf("new")));
    EXPECT_EQ(folder.get("a"), "new");
    EXPECT_EQ(folder.names(), Names({ "a" }));
}

TEST(Files, copyReplacesAndTakesLargeFiles)
{
    const TemporaryFolder folder;
    std::string large;
    for (int i = 0; i < 50'000; ++i)
        large += std::to_string(i);
    folder.put("a", large);
    folder.put("b", "old");
    EXPECT_TRUE(copy(folder / "A", folder / "B"));
    EXPECT_EQ(folder.get("b"), large);
    EXPECT_TRUE(copy(folder / "b", folder / "b"));
    EXPECT_EQ(folder.get("b"), large);
    EXPECT_EQ(folder.names(), Names({ "a", "b" }));
}

} // namespace
} // namespace kez::files
