// SPDX-License-Identifier: MIT
#include "activity/camera_screen.h"

#include "activity/camera_screen_fixture.h"
#include "activity/camera_slots.h"
#include "activity/photo_book.h"
#include "activity/picture_view.h"
#include "host/kez.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST_F(CameraScreenTest, startsWithEmptyCells)
{
    EXPECT_EQ(currentScene(), &cameraScreen());
    for (int cell = 0; cell < slotCount; ++cell) {
        EXPECT_EQ(painted(cell, -41, -27), color3);
        EXPECT_EQ(painted(cell, 40, 26), color3);
        EXPECT_EQ(painted(cell, 41, 26), 0xFF808080);
        EXPECT_EQ(painted(cell, 40, 27), 0xFF808080);
    }
    EXPECT_EQ(cameraScreen().grid().position(7).x, -24);
    EXPECT_EQ(cameraScreen().grid().position(7).y, -96);
    EXPECT_EQ(cursorObject->name(), "cursor");
    EXPECT_EQ(hotSpot.x, -15);
    EXPECT_FALSE(freshRun);
}

TEST_F(CameraScreenTest, showsAndStoresPicturesAsTheyArrive)
{
    fake.take(3);
    framesForPictures(3);
    EXPECT_EQ(picturesTaken(), 3);
    EXPECT_EQ(painted(2), shade(3));
    EXPECT_EQ(painted(3), color3);
    EXPECT_TRUE(has("photo/~3.cam") && has("clipboard/~3.clip"));
    EXPECT_TRUE(unsavedPictures);
    fake.take();
    framesForPictures(1);
    EXPECT_EQ(painted(3), shade(4));
}

TEST_F(CameraScreenTest, animatesThePointerWhileAPictureComesIn)
{
    fake.take();
    fake.lineMs = 500;
    std::vector<std::string> pointers;
    for (int i = 0; i < 120 && picturesTaken() == 0; ++i) {
        frames(1);
        if (pointers.empty() || cursorObject->name() != pointers.back().c_str())
            pointers.emplace_back(cursorObject->name().c_str());
    }
    ASSERT_GE(pointers.size(), 12u);
    EXPECT_THAT(std::vector(pointers.begin(), pointers.begin() + 11),
        ElementsAre("cursor", "wait00", "wait01", "wait02", "wait03", "wait04", "wait05", "wait06",
            "wait07", "wait08", "wait00"));
    EXPECT_EQ(pointers.back(), "cursor");
}

TEST_F(CameraScreenTest, stopsWaitingWhenTheCameraIsGone)
{
    fake.take();
    fake.lineMs = 300;
    while (!link.isUploading())
        frames(1);
    frames(2);
    EXPECT_NE(cursorObject->name(), "cursor");
    fake.afterCall = [this](int) { fake.plugged = false; };
    frames(100);
    EXPECT_EQ(cursorObject->name(), "cursor");
    EXPECT_FALSE(link.isReady());
}

TEST_F(CameraScreenTest, lightsTheButtonUnderThePointer)
{
    EXPECT_THAT(litButtons(), IsEmpty());
    mouseEvent(buttonX(Save), buttonY, MouseEvent::Move);
    EXPECT_THAT(litButtons(), ElementsAre("camSaveRoll"));
    mouseEvent(buttonX(Fetch), buttonY, MouseEvent::Move);
    EXPECT_THAT(litButtons(), ElementsAre("camRoll"));
    mouseEvent(0, 0, MouseEvent::Move);
    EXPECT_THAT(litButtons(), IsEmpty());

    mouseEvent(buttonX(Trash), buttonY, MouseEvent::Move);
    OtherScene other;
    switchTo(other);
    frames(1);
    EXPECT_THAT(litButtons(), IsEmpty());
    enterScreen(); // the pointer has stayed where it was
    EXPECT_THAT(litButtons(), ElementsAre("camTrashRoll"));
}

TEST_F(CameraScreenTest, fetchesAllTheCameraHoldsOnRequest)
{
    fake.take(6);
    fake.counter = 0;
    framesForPictures(0);
    EXPECT_EQ(picturesTaken(), 0);
    click(Fetch);
    framesForPictures(6);
    EXPECT_EQ(picturesTaken(), 6);
    EXPECT_EQ(painted(5), shade(6));
}

TEST_F(CameraScreenTest, erasesWhatItHasNoCellFor)
{
    for (int i = 0; i < slotCount; ++i)
        storeTakenPicture(link.image());
    framesForPictures(0);
    click(Fetch);
    EXPECT_FALSE(link.isDownloading());
    fake.take();
    framesForPictures(3);
    EXPECT_EQ(picturesTaken(), slotCount);
    EXPECT_EQ(fake.counter, 0);
}

TEST_F(CameraScreenTest, showsASelectedPictureEnlarged)
{
    fake.take(2);
    framesForPictures(2);
    clickCell(19); // not selected, so not enlarged
    clickCell(1);
    EXPECT_EQ(pictureView().picture(), nullptr);
    clickCell(1);
    EXPECT_EQ(selected(), -1);
    ASSERT_NE(pictureView().picture(), nullptr);
    EXPECT_EQ(pictureView().picture()->name(), "~2");
    EXPECT_EQ(pictureView().picture()->spriteWidth(), 320);
    click(-32, -62);
    EXPECT_EQ(pictureView().picture(), nullptr);
    EXPECT_EQ(selected(), 1);
    clickCell(1);
    endScene();
    EXPECT_EQ(pictureView().picture(), nullptr);
}

TEST_F(CameraScreenTest, savesUnlessAskedInHelpMode)
{
    fake.take();
    framesForPictures(1);
    click(Help);
    EXPECT_EQ(cursorObject->name(), "help");
    click(Save);
    EXPECT_TRUE(unsavedPictures);
    EXPECT_EQ(cursorObject->name(), "cursor");
    click(Save);
    EXPECT_FALSE(unsavedPictures);
    EXPECT_TRUE(has("photo/Photo  1.cam") && has("clipboard/Photo  1.clip"));
}

TEST_F(CameraScreenTest, beginsANewVisitAtEveryEntry)
{
    fake.take(2);
    framesForPictures(2);
    clickCell(0);
    OtherScene other;
    switchTo(other);
    frames(30);
    EXPECT_EQ(link.isReady(), false);
    EXPECT_EQ(displayList().count(), 0);
    enterScreen();
    EXPECT_EQ(picturesTaken(), 0);
    EXPECT_EQ(selected(), -1);
    EXPECT_EQ(painted(0), color3);
    EXPECT_FALSE(unsavedPictures);
    EXPECT_TRUE(has("photo/~1.cam"));
    fake.take();
    framesForPictures(1);
    EXPECT_EQ(painted(0), shade(3));
}

TEST_F(CameraScreenTest, testsTheRoomOnceAfterEntry)
{
    diskBudget = 0;
    retestRoom = hasRoomNow = true;
    frames(4);
    EXPECT_FALSE(hasRoomNow);
    EXPECT_FALSE(retestRoom);
}

TEST_F(CameraScreenTest, worksWithoutAnyArtwork)
{
    endScene();
    destroyArchive();
    createArchive();
    OtherScene other;
    switchTo(other);
    frames(1);
    enterScreen();
    fake.take();
    framesForPictures(1);
    EXPECT_EQ(picturesTaken(), 1);
    clickCell(0);
    EXPECT_EQ(selected(), 0);
}

} // namespace
