// SPDX-License-Identifier: MIT
#include "tools/kez_run.h"

#include "media/archive_block.h"
#include "platform/temporary_folder.h"
#include "sprites/sprite_record.h"
#include "tools/png_file.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <set>

using namespace kez;
using namespace kez::test;
using namespace kez::tools;
using testing::HasSubstr;

namespace {

using Paint = std::function<std::uint32_t(int x, int y)>;

class Packs : public testing::Test {
protected:
    Packs() { std::filesystem::create_directory(folder / "in"); }

    void draw(const std::string& name, int width, int height, const Paint& paint) const
    {
        PngPicture picture { width, height, {} };
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                picture.pixels.push_back(paint(x, y));
        writePng(folder / ("in/" + name), picture);
    }

    void manifest(const std::string& text) const { folder.put("in/manifest.txt", text); }

    KezRun pack() const { return runKez({ "pack", folder / "in", folder / "out.wad" }); }

    // The records of the archive; opened afresh.
    std::vector<ArchiveRecord> records()
    {
        archive = readArchiveBlock(folder / "out.wad");
        return listRecords(archive.block.bytes()).records;
    }

    TemporaryFolder folder;
    ArchiveBlock archive;
};

TEST_F(Packs, choosesTheSmallestFormAndTakesThePlaceFromTheSheet)
{
    // A box of few colours at (100, 50) to (130, 71); a picture of many colours; a soft edge.
    draw("few.png", 640, 480, [](int x, int y) {
        const bool inside = x >= 100 && x < 131 && y >= 50 && y < 72;
        return inside ? 0xFF000000u + static_cast<unsigned>(x % 5) : 0x00FFFFFFu;
    });
    draw("many.png", 40, 30, [](int x, int y) {
        return 0xFF000000u + static_cast<unsigned>(x * 6 << 16 | y * 8 << 8 | (x ^ y));
    });
    draw("soft.png", 60, 60,
        [](int x, int y) { return x < 30 ? 0u : static_cast<unsigned>((y * 4) << 24 | 0x102030); });
    manifest("sprite few\nsprite many depth=7\nsprite soft x=-40 y=41\n");
    const KezRun run = pack();
    ASSERT_EQ(run.status, 0) << run.errors;

    const struct {
        const char* name;
        int bits;
        SpriteMode mode;
        bool hasAlpha;
        int x, y, depth, width, height;
    } expected[] = {
        { "few.sp5", 8, SpriteMode::Raw, false, -204, -179, 100, 31, 22 },
        { "many.sp5", 32, SpriteMode::Raw, false, 0, 0, 7, 40, 30 },
        { "soft.sp5", 8, SpriteMode::ShortRuns, true, -40, 41, 100, 60, 60 },
    };

    std::size_t found = 0;
    for (const ArchiveRecord& record : records()) {
        const char* fault = nullptr;
        const auto sprite = SpriteView::parse(record.bytes, fault);
        for (const auto& each : expected) {
            if (record.name != each.name)
                continue;
            SCOPED_TRACE(each.name);
            ++found;
            ASSERT_TRUE(sprite) << fault;
            EXPECT_EQ(sprite->pixelBits(), each.bits);
            EXPECT_EQ(sprite->mode(), each.mode);
            EXPECT_EQ(sprite->hasAlpha(), each.hasAlpha);
            EXPECT_EQ(sprite->x(), each.x);
            EXPECT_EQ(sprite->y(), each.y);
            EXPECT_EQ(sprite->depth(), each.depth);
            EXPECT_EQ(sprite->width(), each.width);
            EXPECT_EQ(sprite->height(), each.height);
        }
        // Drawn where it was painted: at x + (640 − width) / 2.
        if (record.name == "few.sp5") {
            EXPECT_EQ(sprite->x() + (640 - sprite->width()) / 2, 100);
        }
    }
    EXPECT_EQ(found, 3u);
}

TEST_F(Packs, comesBackFromUnpackingAsItWas)
{
    draw("back.png", 160, 120,
        [](int x, int y) { return 0xFF000000u | static_cast<unsigned>(x % 256 << 8 | y % 256); });
    // Every form: opaque or with holes or soft, few colours or many.
    std::string lines
        = "sprite back form=raw32 keep depth=1000\nsprite edge file=hole.png x=-9 y=8\n";
    draw("hole.png", 31, 23, [](int x, int y) { return x < y ? 0u : 0xFF00FF00u; });
    draw("soft.png", 33, 21, [](int x, int y) {
        return static_cast<unsigned>(x * 7) << 24 | static_cast<unsigned>(y % 3) * 0x111111u;
    });
    for (const char* picture : { "hole", "soft" })
        for (const char* form : { "raw32", "short32", "long32", "raw8", "short8", "long8" })
            lines += std::string("sprite ") + picture + form + " file=" + picture
                + ".png form=" + form + "\n";
    folder.put("in/chime", std::string("\x0d\0\0\0chime\0abc", 13));
    manifest(lines + "record chime\n");
    ASSERT_EQ(pack().status, 0);
    const std::string first = folder.get("out.wad");

    const KezRun unpacked = runKez({ "unpack", folder / "out.wad", folder / "again" });
    ASSERT_EQ(unpacked.status, 0) << unpacked.errors;
    EXPECT_EQ(folder.get("again/manifest.txt").find("record hole"), std::string::npos)
        << "pictures are unpacked as pictures";
    EXPECT_EQ(runKez({ "pack", folder / "again", folder / "out.wad" }).status, 0);
    EXPECT_TRUE(folder.get("out.wad") == first);
    EXPECT_EQ(runKez({ "unpack", folder / "out.wad", folder / "again" }).status, 1)
        << "a folder in use is not written into";
}

// The colours that are left are those of the picture's own that lie nearest, and what is told of
// the loss is true.
TEST_F(Packs, reducesColoursAndTellsWhatItCosts)
{
    const auto paint = [](int x, int y) {
        const auto shade = static_cast<unsigned>(x * 4);
        return static_cast<unsigned>(y * 8) << 24 | shade << 16 | shade << 8 | 30u;
    };
    draw("ramp.png", 60, 30, paint);
    manifest("sprite ramp colours=20\n");
    const KezRun run = pack();
    ASSERT_EQ(run.status, 0) << run.errors;
    ASSERT_EQ(runKez({ "unpack", folder / "out.wad", folder / "again" }).status, 0);
    const PngPicture reduced = readPng(folder / "again/ramp.png");
    std::set<std::uint32_t> colours;
    int largest = 0;
    for (int y = 1; y < 30; ++y)
        for (int x = 0; x < 60; ++x) {
            const std::uint32_t pixel = reduced.pixels[static_cast<std::size_t>(y * 60 + x)];
            colours.insert(pixel & 0xFFFFFF);
            EXPECT_EQ(pixel >> 24, paint(x, y) >> 24);
            largest = std::max(largest, std::abs(static_cast<int>(pixel >> 8 & 255) - x * 4));
        }
    EXPECT_LE(colours.size(), 20u);
    EXPECT_THAT(run.out, HasSubstr("ramp: 20 of 60 colours are left"));
    EXPECT_THAT(run.out, HasSubstr(std::to_string(largest) + " at most"));
    EXPECT_LT(largest, 16);
}

TEST_F(Packs, keepsARecordItDoesNotKnowAsItIs)
{
    folder.put("in/odd", std::string("\x0d\0\0\0odd\0abcde", 13));
    manifest("record odd\n");
    ASSERT_EQ(pack().status, 0);
    // A second record of the same name, and one whose name no file may have.
    const std::string strange("\x0b\0\0\0a:b?\0cd", 11);
    folder.put("out.wad", folder.get("in/odd") + folder.get("in/odd") + strange);
    const KezRun run = runKez({ "unpack", folder / "out.wad", folder / "again" });
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errors, HasSubstr("record 2, \"odd\", is left out"));
    ASSERT_EQ(runKez({ "pack", folder / "again", folder / "out.wad", "--raw" }).status, 0);
    EXPECT_EQ(folder.get("out.wad"), folder.get("in/odd") + strange);
}

TEST_F(Packs, refusesNamingFileLineAndRemedyAndWritesNothing)
{
    draw("good.png", 5, 5, [](int, int) { return ~0u; });
    draw("clear.png", 640, 480, [](int, int) { return 0u; });
    draw("many.png", 20, 20,
        [](int x, int y) { return 0xFF000000u + static_cast<unsigned>(x << 8 | y); });
    folder.put("in/text.png", "no picture");
    std::string cut = folder.get("in/many.png");
    folder.put("in/cut.png", cut.substr(0, cut.size() - 20));
    // A header that announces 40,000 × 40,000 pixels.
    std::string huge = cut;
    huge.replace(16, 8, std::string("\0\0\x9c\x40\0\0\x9c\x40", 8));
    folder.put("in/huge.png", huge);
    folder.put("in/short", "x");
    folder.put("in/other", std::string("\x0d\0\0\0odd\0abcde", 13));

    const struct {
        const char* line;
        const char* said;
    } cases[] = {
        { "sprite missing", "in/manifest.txt:2: there is no file " },
        { "sprite clear", "in/manifest.txt:2: clear.png is transparent all over" },
        { "sprite many form=palette8", "in/manifest.txt:2: many.png does not fit form=palette8" },
        { "sprite text", "in/text.png: it is no sound PNG picture" },
        { "sprite cut", "in/manifest.txt:2: " },
        { "sprite huge", "in/manifest.txt:2: " },
        { "record short", "in/short is not one whole record" },
        { "record good file=other", "holds a record called \"odd\"" },
        { "sprite good depth=x", "in/manifest.txt:2: depth=x" },
        { "sprite good file=", "in/manifest.txt:2: file= names no file" },
    };

    folder.put("out.wad", "before");
    for (const auto& each : cases) {
        SCOPED_TRACE(each.line);
        manifest(std::string("sprite first file=good.png\n") + each.line + "\n");
        const KezRun run = pack();
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.errors, HasSubstr(each.said));
        EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1) << run.errors;
    }
    manifest("# nothing\n");
    EXPECT_EQ(pack().status, 1);
    std::filesystem::remove(folder / "in/manifest.txt");
    EXPECT_THAT(pack().errors, HasSubstr("in/manifest.txt: there is no such manifest"));
    EXPECT_EQ(folder.get("out.wad"), "before");
    EXPECT_EQ(folder.names(), (std::vector<std::string> { "in", "out.wad" }));
}

TEST_F(Packs, listsWhatIsThereAndRefusesWhatIsDamaged)
{
    draw("good.png", 5, 4, [](int, int) { return ~0u; });
    manifest("sprite good x=-3 y=8 depth=12 form=raw32\n");
    ASSERT_EQ(pack().status, 0);
    const KezRun run = runKez({ "list", folder / "out.wad" });
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out,
        testing::ContainsRegex(
            "good.sp5 +Sprite Image +236 +5 x 4 +32 bits raw +depth 12 at -3, 8\n"));
    folder.put("out.wad", std::string("\x0d\0\0\0odd\0abcde\x99\0\0\0x\0", 19));
    const KezRun damaged = runKez({ "list", folder / "out.wad" });
    EXPECT_EQ(damaged.status, 1);
    EXPECT_THAT(damaged.out, HasSubstr("odd"));
    EXPECT_THAT(damaged.errors, HasSubstr("out.wad: the record at byte 13"));
    EXPECT_EQ(runKez({ "list", folder / "none.wad" }).status, 1);

    const auto before = folder.names();
    EXPECT_THAT(
        runKez({ "unpack", folder / "out.wad", folder / "again" }).errors, HasSubstr("--salvage"));
    EXPECT_EQ(folder.names(), before) << "nothing is left of what was refused";
    EXPECT_EQ(runKez({ "unpack", folder / "out.wad", folder / "again", "--salvage" }).status, 0);
    EXPECT_EQ(folder.get("again/odd").size(), 13u);
}

} // namespace
