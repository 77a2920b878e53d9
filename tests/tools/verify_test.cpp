// SPDX-License-Identifier: MIT
#include "tools/kez_run.h"

#include "activity/content_needs.h"
#include "host/song.h"
#include "media/archive_block.h"
#include "platform/temporary_folder.h"
#include "sprites/sprite_encoder.h"
#include "tools/sound_record_builder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

using namespace kez;
using namespace kez::test;
using testing::HasSubstr;
using testing::Not;

namespace {

/// A complete set of plain rectangles, which the tests spoil.
class Verifies : public testing::Test {
protected:
    struct Sprite {
        int x = 0;
        int y = 0;
        int width = 40;
        int height = 32;
        int depth = 100;
        SpriteMode mode = SpriteMode::Raw;
        std::uint32_t pixel = 0xFF336699;
    };

    Verifies()
    {
        std::filesystem::create_directory(folder / "data");
        std::filesystem::create_directory(folder / "audio");
        for (const ScreenNeeds& screen : needs.screens) {
            sprites[screen.ground] = { .width = screen.fillsScreen ? 640 : 400,
                .height = screen.fillsScreen ? 480 : 300,
                .depth = 1000 };
            // Off all places: in a row at the lower end, where cards and screens have none.
            int place = 0;
            for (const std::string& button : screen.buttons)
                sprites[button] = { .x = -160 + 41 * place++,
                    .y = screen.fillsScreen ? 200 : 130,
                    .width = 40,
                    .height = 30 };
        }
        for (const std::string& pointer : needs.pointers)
            sprites[pointer] = { .width = 32, .height = 32 };
        for (const auto* names : { &needs.sounds, &needs.clips })
            for (const std::string& name : *names)
                putSound(name);
        putSound(songName);
    }

    void putSound(const std::string& name) const
    {
        const std::uint8_t samples[] = { 128, 140, 120 };
        const auto record = tools::buildSoundRecord(
            { .name = name, .rate = 22050, .sampleLength = 3, .encoded = samples });
        folder.put("audio/" + name + ".wv5", std::string(record.begin(), record.end()));
    }

    static std::string recordOf(const std::string& name, const Sprite& sprite)
    {
        const std::vector<std::uint32_t> pixels(
            static_cast<std::size_t>(sprite.width * sprite.height), sprite.pixel);
        const auto encoded = encodeSprite({ .name = name + ".sp5",
            .x = sprite.x,
            .y = sprite.y,
            .depth = sprite.depth,
            .width = sprite.width,
            .height = sprite.height,
            .pixels = pixels,
            .mode = sprite.mode,
            .withAlpha = sprite.pixel >> 24 != 255 });
        return { encoded->sprite.begin(), encoded->sprite.end() };
    }

    KezRun verify(const std::string& furtherRecords = "") const
    {
        std::string archive;
        for (const auto& [name, sprite] : sprites)
            archive += recordOf(name, sprite);
        folder.put("data/kez.wad", archive + furtherRecords);
        return runKez({ "verify", folder.path() });
    }

    ContentNeeds needs = contentNeeds();
    std::map<std::string, Sprite> sprites;
    TemporaryFolder folder;
};

TEST_F(Verifies, acceptsWhatIsComplete)
{
    const KezRun run = verify();
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.out, folder / "data/kez.wad: all is there that the screens need\n");
    std::filesystem::remove_all(folder / "audio");
    EXPECT_THAT(verify().errors, HasSubstr("audio: there is no such folder"));
    EXPECT_EQ(runKez({ "verify", folder / "data/kez.wad", "--no-audio" }).status, 0);
}

TEST_F(Verifies, saysWhatIsWrongWithAPicture)
{
    const struct {
        const char* name;
        Sprite sprite;
        const char* said;
    } cases[] = {
        { "camBack", { .width = 600, .height = 480, .depth = 1000 }, "does not fill the screen" },
        { "camBack", { .width = 640, .height = 480, .depth = 100 }, "it hides camImportRoll" },
        { "camBack", { .width = 640, .height = 480, .depth = 1000, .mode = SpriteMode::LongRuns },
            "write form=raw32 keep" },
        { "camBack", { .width = 640, .height = 480, .depth = 1000, .pixel = 0x80336699 },
            "it can be seen through" },
        { "savePop", { .x = 200, .width = 400, .height = 300, .depth = 300 },
            "it reaches from (320, 90) to (719, 389) and so out of the screen" },
        { "importPop", { .y = 60, .width = 400, .height = 200, .depth = 300 },
            "does not reach below a row of the list at (238, 130) to (345, 144)" },
        { "camTrashRoll", { .x = 310, .y = 200 }, "and so beyond camBack" },
        { "camTrashRoll", { .x = -234, .y = -140 }, "covers a cell of the camera screen at (45, " },
        { "bookLeftRoll", { .x = -236, .y = 64, .width = 20, .height = 6 },
            "covers a name of the photo book" },
        { "savePopBlink", { .x = 190 }, "and so beyond savePop" },
        { "wait05", { .width = 20, .height = 20 }, "a pointer has 30 x 30 to 96 x 96" },
        { "cursor", { .width = 32, .height = 0 }, "it has no pixels" },
    };

    const auto complete = sprites;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.said);
        sprites = complete;
        sprites[each.name] = each.sprite;
        const KezRun run = verify();
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.errors, HasSubstr(std::string(each.name)));
        EXPECT_THAT(run.errors, HasSubstr(each.said));
    }
}

TEST_F(Verifies, missesWhateverAScreenAsksFor)
{
    const auto complete = sprites;
    for (const auto& [name, sprite] : complete) {
        sprites.erase(name);
        EXPECT_THAT(verify().errors, HasSubstr(name + ": it is missing. It is ")) << name;
        sprites = complete;
    }
    for (const char* name : { "tap", "kez28", songName }) {
        std::filesystem::remove(folder / (std::string("audio/") + name + ".wv5"));
        EXPECT_THAT(verify().errors, HasSubstr(std::string(name) + ".wv5 is missing"));
        putSound(name);
    }
    folder.put("audio/bad.wv5", "no sound");
    EXPECT_THAT(verify().errors, HasSubstr("bad.wv5: it is no sound record"));
}

TEST_F(Verifies, seesDamageAndWhatNobodyShows)
{
    std::string cut = recordOf("extra", {});
    cut[128] = 0x70; // the pixels now lie elsewhere
    EXPECT_THAT(verify(cut).errors, HasSubstr("extra.sp5: the sprite's pixels lie outside"));
    EXPECT_THAT(verify(recordOf("cursor", {})).errors, HasSubstr("there are two of that name"));
    EXPECT_THAT(verify("\x7f\x7f\x7f\x7fgarbage").errors, HasSubstr("the file is damaged"));
    putSound("kez7");
    putSound("kez11"); // in reserve
    const KezRun run = verify(recordOf("camTrashRol", {}));
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_THAT(run.out, HasSubstr("kez7.wv5 is played nowhere"));
    EXPECT_THAT(run.out, Not(HasSubstr("kez11")));
    EXPECT_THAT(run.out, HasSubstr("camTrashRol.sp5 is shown by no screen"));
}

TEST_F(Verifies, asksForNothingThatTheGuideForArtistsLeavesOut)
{
    std::ifstream file(KEZ_SOURCE "/docs/content.md");
    std::stringstream page;
    page << file.rdbuf();
    for (const auto& [name, sprite] : sprites)
        EXPECT_THAT(page.str(), HasSubstr("`" + name + "`"));
    for (const auto* names : { &needs.sounds, &needs.clips })
        for (const std::string& name : *names)
            EXPECT_THAT(page.str(), HasSubstr("`" + name + "`"));
}

} // namespace
