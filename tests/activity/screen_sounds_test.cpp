// SPDX-License-Identifier: MIT
// Which sound the screens play, and when. A click on the camera screen may tap twice, for its
// button and for its grid: that is one sound, begun anew.
#include "activity/camera_screen_fixture.h"
#include "activity/camera_slots.h"
#include "activity/photo_book.h"
#include "platform/temporary_folder.h"
#include "support/sound_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A current folder with the screens' sounds, and somebody who listens.
class Listener {
public:
    Listener()
    {
        std::filesystem::current_path(folder_.path());
        for (const char* name : { "tap", "shutter", "bad", "trash" })
            recorder.makeSound(name);
        directSound = &recorder;
    }

    ~Listener()
    {
        EXPECT_EQ(recorder.loaded(), 0u);
        directSound = nullptr;
        std::filesystem::current_path(former_);
    }

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    SoundRecorder recorder;

private:
    std::filesystem::path former_ = std::filesystem::current_path();
    TemporaryFolder folder_;
};

class CameraScreenSounds : public CameraScreenTest {
protected:
    std::vector<std::string> heard() { return listener.recorder.begun(); }

    Listener listener;
};

TEST_F(CameraScreenSounds, tapAtEveryEntryButARunsFirst)
{
    EXPECT_THAT(heard(), ElementsAre("tap"));
    EXPECT_EQ(listener.recorder.loaded(), 4u);
    OtherScene other;
    switchTo(other);
    frames(1);
    EXPECT_EQ(listener.recorder.loaded(), 0u);
    freshRun = true;
    enterScreen();
    EXPECT_THAT(heard(), IsEmpty());
    switchTo(other);
    frames(1);
    enterScreen();
    EXPECT_THAT(heard(), ElementsAre("tap"));
}

TEST_F(CameraScreenSounds, tapForEveryClickButOnAnEmptyCell)
{
    fake.take(2);
    framesForPictures(2);
    heard();
    clickCell(2);
    EXPECT_THAT(heard(), IsEmpty());
    clickCell(1);
    EXPECT_THAT(heard(), ElementsAre("tap"));
    click(Save);
    EXPECT_THAT(heard(), ElementsAre("tap"));
    click(Help);
    EXPECT_THAT(heard(), ElementsAre("tap"));
    click(Save); // is explained
    EXPECT_THAT(heard(), IsEmpty());
    clickCell(1); // enlarges it
    EXPECT_THAT(heard(), ElementsAre("tap"));
}

TEST_F(CameraScreenSounds, tellThatAPictureCameOrCannotCome)
{
    heard();
    click(Fetch); // before the camera is found
    EXPECT_THAT(heard(), ElementsAre("tap", "bad"));
    fake.take(2);
    framesForPictures(2);
    EXPECT_THAT(heard(), ElementsAre("shutter", "shutter"));
    click(Help);
    click(Fetch);
    EXPECT_THAT(heard(), ElementsAre("tap"));

    while (picturesTaken() < slotCount)
        storeTakenPicture(link.image());
    click(Fetch);
    EXPECT_THAT(heard(), ElementsAre("tap", "bad"));
    fake.take(); // and is erased
    framesForPictures(3);
    EXPECT_THAT(heard(), ElementsAre("bad"));
}

class PhotoBookSounds : public ScreenTest {
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        addSprite("bookBack", 0, 0, 640, 480, 300);
        addSprite("bookTrashRoll", 0, buttonY, 50, 40, 50);
        putPhoto("Photo  1");
        putPhoto("Photo  2");
        switchTo(photoBook());
        frames(1);
    }

    std::vector<std::string> heard() { return listener.recorder.begun(); }

    Listener listener;
};

TEST_F(PhotoBookSounds, areTapAndTrash)
{
    EXPECT_THAT(heard(), ElementsAre("tap"));
    click(0, buttonY); // nothing is selected
    EXPECT_THAT(heard(), ElementsAre("tap"));
    clickCell(photoBook().grid(), 5); // empty
    EXPECT_THAT(heard(), IsEmpty());
    clickCell(photoBook().grid(), 1);
    EXPECT_THAT(heard(), ElementsAre("tap"));
    click(0, buttonY);
    EXPECT_THAT(heard(), ElementsAre("tap", "trash"));
    EXPECT_FALSE(has("photo/Photo  2.cam"));
}

} // namespace
