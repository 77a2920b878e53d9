// SPDX-License-Identifier: MIT
#include "activity/guide.h"

#include "activity/guide_face.h"
#include "activity/sprite_files.h"
#include "activity/stored_files.h"
#include "control_sound.h"
#include "core/clock.h"
#include "core/flags.h"
#include "display/canvas.h"
#include "media/sound_record_bytes.h"
#include "platform/temporary_folder.h"
#include "support/host_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using namespace kez;
using namespace kez::test;
using testing::ElementsAre;
using testing::Pair;

namespace {

constexpr int clipCount = 29;

std::vector<std::pair<int, unsigned>> heardOf;

/// The clip "kezNN" is a second that lies NN + 10 steps above silence, so that one hears which it
/// is.
class GuideTest : public testing::Test {
protected:
    void SetUp() override
    {
        former = std::filesystem::current_path();
        std::filesystem::current_path(folder.path());
        std::filesystem::create_directory("audio");
        for (int i = 0; i < clipCount; ++i) {
            const SoundRecord record { .packed
                = SoundBytes(22050, static_cast<std::uint8_t>(138 + i)) };
            folder.put("audio/kez" + std::string(i < 10 ? "0" : "") + std::to_string(i) + ".wv5",
                record.text());
        }
        ASSERT_TRUE(winapi::useLoopback(22050));
        ASSERT_EQ(DirectSoundCreate(nullptr, &directSound, nullptr), DS_OK);
        directSound->SetCooperativeLevel(window.handle(), DSSCL_NORMAL);
        heardOf.clear();
        guide().setListener([](int id, unsigned ms) { heardOf.emplace_back(id, ms); });
    }

    void TearDown() override
    {
        stopGuide();
        guide().setListener(nullptr);
        directSound->Release();
        directSound = nullptr;
        EXPECT_EQ(winapi::liveSoundBuffers(), 0);
        winapi::useSoundDevice();
        std::filesystem::current_path(former);
    }

    /// The number in the name of the sound that is heard, −10 for silence.
    static int heard()
    {
        static_cast<void>(winapi::renderSamples(300));
        return static_cast<int>(std::lround(winapi::renderSamples(1)[0] / 256.0)) - 10;
    }

    TemporaryFolder folder;
    std::filesystem::path former;
    HostWindow window;
};

TEST_F(GuideTest, playsTheSoundOfEachClip)
{
    EXPECT_EQ(guide().count(), clipCount);
    sayGuide(clip::help);
    EXPECT_EQ(heard(), 0);
    for (int id = 1; id < clipCount; ++id) {
        sayGuide(id);
        EXPECT_EQ(heard(), id);
        EXPECT_EQ(winapi::liveSoundBuffers(), 1); // what was cut off is unloaded
    }
}

TEST_F(GuideTest, changesNothingForAnUnknownClip)
{
    sayGuide(11);
    sayGuide(99);
    sayGuide(0);
    guide().playClip(1, 12);
    EXPECT_EQ(heard(), 11);
    EXPECT_EQ(guide().playing()->soundName, "kez11");
    EXPECT_THAT(heardOf, ElementsAre(Pair(11, 1000u)));
}

TEST_F(GuideTest, startsTheSameClipAgain)
{
    sayGuide(3);
    static_cast<void>(winapi::renderSamples(20000));
    sayGuide(3);
    static_cast<void>(winapi::renderSamples(20000));
    EXPECT_EQ(heard(), 3);
    static_cast<void>(winapi::renderSamples(3000));
    EXPECT_EQ(heard(), -10);
    EXPECT_EQ(winapi::liveSoundBuffers(), 1); // stays loaded after its end
    stopGuide();
    stopGuide();
    EXPECT_EQ(winapi::liveSoundBuffers(), 0);
    EXPECT_EQ(guide().playing(), nullptr);
    EXPECT_THAT(heardOf, ElementsAre(Pair(3, 1000u), Pair(3, 1000u), Pair(0, 0u)));
}

TEST_F(GuideTest, isSilentForAFileThatIsMissing)
{
    std::filesystem::remove("audio/kez05.wv5");
    sayGuide(4);
    sayGuide(5);
    EXPECT_EQ(heard(), -10);
    sayGuide(6);
    EXPECT_EQ(heard(), 6);
    EXPECT_THAT(heardOf, ElementsAre(Pair(4, 1000u), Pair(5, 0u), Pair(6, 1000u)));
}

TEST_F(GuideTest, speaksWhenTheBudgetIsUsedUp)
{
    diskBudget = 100;
    diskUsed = 0;
    EXPECT_TRUE(hasRoom(99));
    EXPECT_TRUE(heardOf.empty());
    EXPECT_FALSE(hasRoom(100));
    EXPECT_EQ(heard(), clip::noRoom);
}

/// Of a face on a picture of 9 x 9: what its middle shows, ms after the clip began.
class Mouth {
public:
    explicit Mouth(const TemporaryFolder& folder)
    {
        createArchive();
        for (const SpriteFile& part :
            { SpriteFile { "wall", 0, 0, 9, 9 }, SpriteFile { "wallAjar", 0, 0, 9, 9, 100, ajar },
                SpriteFile { "wallOpen", 0, 0, 9, 9, 100, open } })
            kez::test::addSprite(folder, part);
        face.addBearer(bearer);
        face.show();
    }

    ~Mouth()
    {
        face.hide();
        destroyArchive();
    }

    Mouth(const Mouth&) = delete;
    Mouth& operator=(const Mouth&) = delete;

    std::uint32_t at(std::uint32_t milliseconds)
    {
        std::vector<std::uint32_t> pixels(81, shut);
        const MemoryCanvas canvas(pixels.data(), 9, 9);
        frameTime = guide().startedAt() + milliseconds;
        face.draw();
        return pixels[40];
    }

    static constexpr std::uint32_t shut = 0;
    static constexpr std::uint32_t ajar = 0xFF101010;
    static constexpr std::uint32_t open = 0xFF202020;

private:
    Image bearer { "wall", true };
    GuideFace face;
};

TEST_F(GuideTest, movesTheMouthByTheLoudnessOfWhatIsHeard)
{
    Mouth mouth(folder);
    const SoundRecord record { .packed = SoundBytes(22050, 150),
        .syncValues = { 0, 150, 255, 63, 64, 199, 200, 255, 255, 255, 255 } };
    folder.put("audio/kez03.wv5", record.text());
    sayGuide(3);
    for (const auto& [ms, shape] : std::initializer_list<std::pair<unsigned, unsigned>> {
             { 0, Mouth::shut }, { 100, Mouth::ajar }, { 200, Mouth::open }, { 300, Mouth::shut },
             { 400, Mouth::ajar }, { 500, Mouth::ajar }, { 600, Mouth::open }, { 999, Mouth::open },
             { 1000, Mouth::shut }, { 5000, Mouth::shut } })
        EXPECT_EQ(mouth.at(ms), shape) << ms;
    sayGuide(4); // has no such track
    EXPECT_NE(mouth.at(0), Mouth::shut);
    EXPECT_EQ(mouth.at(1000), Mouth::shut);
}

} // namespace
