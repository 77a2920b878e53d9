// SPDX-License-Identifier: MIT
// The song and the guide from `Kez::run` to `Kez::close`.
#include "host/kez.h"
#include "support/running_host.h"
#include "support/sound_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kez {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KezSoundTest : public test::RunningHost {
protected:
    KezSoundTest()
    {
        for (const char* name : { "kezsong", "kez01" })
            sounds.makeSound(name);
        Kez::initialize(window.handle(), &sounds, display.directDraw, display.primary,
            display.secondary, 32, "pictures", 0, 0, 0, 0);
        Kez::open();
    }

    ~KezSoundTest() override
    {
        Kez::close();
        EXPECT_EQ(sounds.loaded(), 0u);
        directSound = nullptr;
    }

    static void run(bool playSong, bool guideIntro)
    {
        Kez::run(Kez::camera, 1 << 20, playSong, guideIntro);
    }

    static void processes(int count)
    {
        for (; count > 0; --count) {
            Sleep(50);
            EXPECT_TRUE(Kez::process());
        }
    }

    static void finishRun()
    {
        finishing = true;
        processes(1);
        EXPECT_TRUE(Kez::exit);
    }

    test::SoundRecorder sounds;
};

TEST_F(KezSoundTest, loopsTheSongFromRunToClose)
{
    run(false, false);
    processes(3);
    EXPECT_THAT(sounds.begun(), IsEmpty());
    run(true, false);
    EXPECT_THAT(sounds.begun(), ElementsAre("kezsong (loop)"));
    processes(3);
    finishRun();
    EXPECT_TRUE(sounds.plays("kezsong"));
    run(true, false); // from the beginning
    EXPECT_THAT(sounds.begun(), ElementsAre("kezsong (loop)"));
    Kez::close();
    EXPECT_FALSE(sounds.plays("kezsong"));
    EXPECT_EQ(sounds.loaded(), 0u);
}

TEST_F(KezSoundTest, introducesTheActivityOnceAndFallsSilentAtClose)
{
    run(false, true);
    EXPECT_THAT(sounds.begun(), IsEmpty());
    processes(5);
    EXPECT_THAT(sounds.begun(), ElementsAre("kez01"));
    EXPECT_TRUE(sounds.plays("kez01"));
    Kez::close();
    EXPECT_FALSE(sounds.plays("kez01"));
    Kez::open();
    run(false, true);
    processes(5);
    EXPECT_THAT(sounds.begun(), IsEmpty());
}

TEST_F(KezSoundTest, goesOnWhenTheDeviceIsLost)
{
    run(true, true);
    processes(5);
    sounds.begun();
    sounds.lose();
    processes(5);
    introduced = false;
    run(true, true); // the song is loaded already, the guide speaks anew
    processes(5);
    EXPECT_THAT(sounds.begun(), IsEmpty());
    EXPECT_NE(output.take().find("lost"), std::string::npos);
}

} // namespace
} // namespace kez
