// SPDX-License-Identifier: MIT
#include "platform/files.h"
#include "platform/path_names.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace kez::files {
namespace {

TEST(FileNames, areValidWhereWindowsTakesThem)
{
    const std::string_view valid[] = { "Photo  7.cam", "~1.cam", "a", ".cam", " x", "kez.wad",
        "CON1", "COMX", "COM10", "COM", "LPT0", "console.txt", "auxiliary", "a.con", "nu l",
        "\xC3\xA9t\xC3\xA9.cam", "x.~y", "a..b" };
    for (const std::string_view name : valid)
        EXPECT_TRUE(isValidName(name)) << name;
}

TEST(FileNames, areRefusedWhereWindowsRefusesThem)
{
    const std::string long256(256, 'a');
    const std::string_view refused[] = { "", ".", "..", "a.", "a ", "a. ", "a<", "a>", "a:b", "a\"",
        "a/b", "a\\b", "a|b", "a?", "*", "a\nb", std::string_view("a\0b", 3), "\x1F", "CON", "con",
        "Prn.txt", "aux.tar.gz", "NUL", "nul .cam", "COM1", "com9.cam", "LPT1", "lpt5.x.y",
        "CONIN$", "conout$.txt", "COM\xC2\xB9", "LPT\xB3.cam", long256 };
    for (const std::string_view name : refused)
        EXPECT_FALSE(isValidName(name)) << name;
    EXPECT_TRUE(isValidName(std::string(255, 'a')));
}

struct PathCase {
    std::string_view path;
    bool valid;
    std::string root;
    std::vector<std::string_view> names;
    bool endsInSeparator;
};

TEST(FileNames, pathsComeApart)
{
    const PathCase cases[] = {
        { "a", true, "", { "a" }, false },
        { "data\\photo/~1.cam", true, "", { "data", "photo", "~1.cam" }, false },
        { "\\a\\\\b\\", true, "\\", { "a", "b" }, true },
        { "//server/share/x", true, "\\\\", { "server", "share", "x" }, false },
        { "C:\\a", true, "C:\\", { "a" }, false },
        { "z:a", true, "z:", { "a" }, false },
        { "..\\.\\a", true, "", { "..", ".", "a" }, false },
        { "/", true, "\\", {}, true },
        { "", false, "", {}, false },
        { "a\\b:c", false, "", {}, false },
        { "photo\\con\\x", false, "", {}, false },
        { "photo.\\x", false, "", {}, false },
        { "...\\x", false, "", {}, false },
    };
    for (const PathCase& c : cases) {
        SCOPED_TRACE(c.path);
        PathParts parts;
        ASSERT_EQ(splitPath(c.path, parts), c.valid);
        if (!c.valid)
            continue;
        EXPECT_EQ(parts.root, c.root);
        EXPECT_EQ(parts.names, c.names);
        EXPECT_EQ(parts.endsInSeparator, c.endsInSeparator);
    }
}

TEST(FileNames, extensionsIgnoreCaseAndNeedTheirDot)
{
    EXPECT_TRUE(hasExtension("~1.CLIP", "clip"));
    EXPECT_TRUE(hasExtension("a.b.clip", "Clip"));
    EXPECT_TRUE(hasExtension("anything", ""));
    EXPECT_TRUE(hasExtension(".clip", "clip"));
    EXPECT_FALSE(hasExtension("clip", "clip"));
    EXPECT_FALSE(hasExtension("xclip", "clip"));
    EXPECT_FALSE(hasExtension("a.clip.~new0", "clip"));
}

TEST(FileNames, aRefusedNameIsRefusedByEveryOperation)
{
    Bytes one(1);
    for (const std::string_view path : { "nul", "ab:c", "x\\con.cam", "" }) {
        SCOPED_TRACE(path);
        SetLastError(NO_ERROR);
        EXPECT_FALSE(write(path, one));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_NAME);
        EXPECT_FALSE(exists(path) || isDirectory(path) || createDirectory(path) || remove(path)
            || rename(path, "x") || copy(path, "x") || readAt(path, 0, one) || read(path));
        EXPECT_EQ(nativePath(path), "");
        EXPECT_FALSE(Reader(path) || Writer(path));
    }
    EXPECT_TRUE(list("ab:c").empty());
}

} // namespace
} // namespace kez::files
