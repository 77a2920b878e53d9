// SPDX-License-Identifier: MIT
#include "tools/manifest.h"

#include "tools/user_error.h"

#include <gtest/gtest.h>

using namespace kez::tools;

namespace {

std::string refusalOf(const std::string& text)
{
    try {
        (void)parseManifest("m.txt", text);
    } catch (const UserError& error) {
        return error.what();
    }
    return "(accepted)";
}

TEST(Manifest, readsEveryKey)
{
    const auto items = parseManifest("m.txt",
        "# comment\n"
        "\n"
        "sprite cursor\r\n"
        "sprite camBack file=\"the back.png\" depth=1000 x=-3 y=4 form=raw32 colours=16 keep # "
        "note\n"
        "record chime.wv5 file=c.wv5");
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].file, "cursor.png");
    EXPECT_EQ(items[0].depth, 100);
    EXPECT_FALSE(items[0].x || items[0].y || items[0].keep);
    EXPECT_STREQ(items[0].form->name, "auto");
    EXPECT_EQ(items[1].line, 4);
    EXPECT_EQ(items[1].file, "the back.png");
    EXPECT_EQ(items[1].depth, 1000);
    EXPECT_EQ(items[1].x, -3);
    EXPECT_EQ(items[1].y, 4);
    EXPECT_STREQ(items[1].form->name, "raw32");
    EXPECT_EQ(items[1].colours, 16);
    EXPECT_TRUE(items[1].keep);
    EXPECT_EQ(items[2].kind, ManifestItem::Kind::Record);
    EXPECT_EQ(items[2].file, "c.wv5");
}

TEST(Manifest, readsBackWhatItFormats)
{
    const std::string lines
        = "sprite \"a b\" \"file=x #y.png\" depth=-7 x=1 y=-2 form=long8 colours=9 keep\n"
          "record plain\n";
    std::string again;
    for (const ManifestItem& item : parseManifest("m.txt", lines))
        again += formatManifestItem(item) + '\n';
    EXPECT_EQ(again, lines);
}

TEST(Manifest, namesFileLineAndRemedy)
{
    const struct {
        const char* text;
        const char* start;
    } cases[] = {
        { "\nsprit a", "m.txt:2: a line begins with \"sprite\" or \"record\"" },
        { "sprite", "m.txt:1: the name is missing" },
        { "sprite depth=4", "m.txt:1: the name is missing" },
        { "sprite a dept=4", "m.txt:1: unknown key \"dept\"; a sprite's keys are" },
        { "sprite a keep=4", "m.txt:1: unknown key" },
        { "sprite a depth=4 depth=5", "m.txt:1: the key \"depth\" stands twice; leave" },
        { "sprite a file=", "m.txt:1: file= names no file" },
        { "record a depth=4", "m.txt:1: unknown key \"depth\"; a record's only key" },
        { "sprite a depth=4x", "m.txt:1: depth=4x is no whole number" },
        { "sprite a x=99999999999", "m.txt:1: x=99999999999 is no whole number" },
        { "sprite a form=raw64", "m.txt:1: form=raw64 is unknown; the forms are auto, raw32" },
        { "sprite a colours=257", "m.txt:1: colours=257 is not between 2 and 256" },
        { "sprite \"a", "m.txt:1: a double quote is not closed" },
        { "sprite a\n# between\nsprite A x=1", "m.txt:3: the name \"A\" stands on line 1 already" },
        { "sprite a\nrecord A.SP5", "m.txt:2: the name \"A.SP5\" stands on line 1 already" },
        { "sprite nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn", // 36, and 4 for the extension
            "m.txt:1: the name \"nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn\" has 40 characters" },
    };

    for (const auto& each : cases)
        EXPECT_EQ(refusalOf(each.text).substr(0, std::string(each.start).size()), each.start);
    EXPECT_EQ(refusalOf("sprite nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn"), "(accepted)");
}

} // namespace
