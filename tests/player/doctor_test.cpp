// SPDX-License-Identifier: MIT
#include "player/doctor.h"

#include "media/sound_record_bytes.h"
#include "platform/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace kez::player {

namespace {

using test::TemporaryFolder;
using testing::HasSubstr;

// A computer on which all is well.
class DoctorTest : public testing::Test {
protected:
    DoctorTest()
    {
        for (const char* folder : { "content/data", "content/audio", "store/photo" })
            std::filesystem::create_directories(home / folder);
        home.put("content/data/kez.wad",
            std::string("\x0c\0\0\0"
                        "a.sp5\0"
                        "\1\2",
                12));
        home.put("content/audio/kez01.wv5", test::SoundRecord { .packed = { 128, 128 } }.text());
        home.put("store/photo/Zoo.cam", "kept");
        home.put("store/photo/~1.cam", "on the pinboard");
        home.put("file", "no folder");
        options.diskBudget = 0;
        places.content = home / "content";
        places.data = home / "store";
        places.pictures = home / "Pictures/Kez";
    }

    [[nodiscard]] std::string report() const { return reportOn(examineFiles(options, places)); }

    TemporaryFolder home;
    Options options;
    Places places;
};

TEST_F(DoctorTest, findsNothingWhereAllIsThere)
{
    EXPECT_THAT(report(), HasSubstr("1 picture is kept in " + places.data));
    EXPECT_THAT(report(), HasSubstr("copied to " + places.pictures));
    EXPECT_THAT(report(), testing::EndsWith("All is well.\n"));
    EXPECT_FALSE(std::filesystem::exists(home / "Pictures")); // looked at, not made
}

TEST_F(DoctorTest, namesWhatIsMissingAndTheRemedy)
{
    places.content = home / "nowhere";
    EXPECT_THAT(report(), HasSubstr("MISSING  content"));
    EXPECT_THAT(report(), HasSubstr("To be looked after: 2 of 5."));
    places.content = home / "content";
    home.put("content/data/kez.wad", "DIF1 and no more");
    EXPECT_THAT(report(), HasSubstr("kez.wad is damaged"));
    home.put("content/audio/kez02.wv5", "hello");
    EXPECT_THAT(report(), HasSubstr("1 of 2 sounds"));
    options.language = "xx";
    EXPECT_THAT(report(), HasSubstr("choose one of en with --language"));
    options.language = "en";
    places.data = home / "file";
    EXPECT_THAT(report(), HasSubstr("MISSING  pictures  " + places.data));
    EXPECT_THAT(report(), HasSubstr("--data DIR"));
    places.data = home / "store";
    places.pictures = home / "file";
    EXPECT_THAT(report(), HasSubstr("--pictures DIR"));
}

} // namespace
} // namespace kez::player
