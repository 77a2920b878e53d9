// SPDX-License-Identifier: MIT
// What file systems of this kind hold besides: names in two spellings, links, pipes, permissions.
#include "platform/file_texts.h"
#include "platform/temporary_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kez::files {
namespace {

using test::TemporaryFolder;

struct CaseCase {
    const char* asked;
    const char* content;
};

TEST(Files, ignoreCaseButPreferTheExactSpelling)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(createDirectory(folder / "Photo"));
    folder.put("Photo/Two.cam", "Two");
    folder.put("Photo/two.cam", "two");
    folder.put("Photo/one.CAM", "one");
    const CaseCase cases[] = { { "photo\\ONE.cam", "one" }, { "Photo\\one.CAM", "one" },
        { "PHOTO/two.cam", "two" }, { "photo\\Two.cam", "Two" }, { "photo\\TWO.CAM", "Two" },
        { "photo\\..\\PHOTO\\.\\one.cam", "one" }, { "photo\\three.cam", "(none)" } };
    for (const CaseCase& c : cases) {
        EXPECT_EQ(textOf(read(folder / c.asked)), c.content) << c.asked;
        EXPECT_EQ(exists(folder / c.asked), std::string("(none)") != c.content) << c.asked;
    }
}

TEST(Files, areOnlyRegularFiles)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(createDirectory(folder / "directory"));
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("/dev/zero", (folder / "device").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (folder / "dangling").c_str()), 0);
    for (const std::string name : { "directory", "pipe", "device" }) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(exists(folder / name));
        EXPECT_FALSE(read(folder / name));
        EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
        EXPECT_FALSE(write(folder / name, bytesOf("x")));
        EXPECT_FALSE(copy(folder / name, folder / "copy"));
        EXPECT_FALSE(remove(folder / name));
        EXPECT_EQ(files::size(folder / name), 0u);
    }
    EXPECT_FALSE(exists(folder / "dangling"));
    EXPECT_FALSE(read(folder / "dangling"));
    EXPECT_TRUE(list(folder.path()).empty());
    EXPECT_EQ(folder.names(), Names({ "dangling", "device", "directory", "pipe" }));
    EXPECT_TRUE(write(folder / "dangling", bytesOf("x"))); // the link itself is replaced
    EXPECT_EQ(folder.get("dangling"), "x");
}

TEST(Files, keepTheirPermissionsWhenReplaced)
{
    const TemporaryFolder folder;
    folder.put("a", "old");
    ASSERT_EQ(::chmod((folder / "a").c_str(), 0640), 0);
    EXPECT_TRUE(write(folder / "a", bytesOf("new")));

    struct stat info { };

    ASSERT_EQ(::stat((folder / "a").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777u, 0640u);
}

TEST(Files, areListedByExtensionWithoutWhatCannotBeNamed)
{
    const TemporaryFolder folder;
    for (const char* name :
        { "~1.clip", "a.CLIP", "b.clip.~new3", "c:d.clip", "e.cam", "con.clip" })
        folder.put(name, "");
    ASSERT_TRUE(createDirectory(folder / "directory.clip"));
    ASSERT_EQ(::symlink("e.cam", (folder / "link.clip").c_str()), 0);
    EXPECT_EQ(namesOf(list(folder.path(), "clip")), Names({ "a.CLIP", "link.clip", "~1.clip" }));
    EXPECT_EQ(list(folder.path()).size(), 4u);
    EXPECT_EQ(namesOf(list(folder.path(), "clip", Naming::TheSystems)),
        Names({ "a.CLIP", "c:d.clip", "con.clip", "link.clip", "~1.clip" }));
    folder.put("c:d.clip", "odd");
    EXPECT_EQ(Reader(folder / "c:d.clip", Naming::TheSystems).size(), 3u);
    EXPECT_FALSE(Reader(folder / "c:d.clip"));
}

TEST(Files, thatTheSystemCutsShortAreNotPutInPlace)
{
    // No file may grow beyond three bytes; what the buffer still holds fails at the commit.
    const TemporaryFolder folder;
    folder.put("a", "old");
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small { 3, limit.rlim_max };
    ::setrlimit(RLIMIT_FSIZE, &small);
    const bool fits = write(folder / "a", bytesOf("new"));
    const bool isTooLong = !write(folder / "a", bytesOf("longer"));
    const DWORD error = GetLastError();
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, ignored);
    EXPECT_TRUE(fits && isTooLong);
    EXPECT_EQ(error, ERROR_FILE_TOO_LARGE);
    EXPECT_EQ(folder.names(), Names({ "a" }));
    EXPECT_EQ(folder.get("a"), "new");
}

TEST(Files, renameKeepsLinksThatLeadNowhere)
{
    const TemporaryFolder folder;
    folder.put("a", "A");
    ASSERT_EQ(::symlink("nowhere", (folder / "dangling").c_str()), 0);
    EXPECT_FALSE(rename(folder / "a", folder / "dangling"));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(folder.names(), Names({ "a", "dangling" }));
}

TEST(Files, haveANativePathSpeltAsTheyAre)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(createDirectory(folder / "photo"));
    folder.put("photo/A.cam", "");
    EXPECT_EQ(nativePath(folder / "PHOTO\\a.cam"), folder / "photo/A.cam");
    EXPECT_EQ(nativePath(folder / "PHOTO\\b\\c.cam"), folder / "photo/b/c.cam");
}

} // namespace
} // namespace kez::files
