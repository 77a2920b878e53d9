// SPDX-License-Identifier: MIT
#include "activity/camera_slots.h"

#include "activity/picture_names.h"
#include "activity/store_fixture.h"
#include "platform/files.h"

#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;

namespace {

class CameraSlots : public StoreTest {
protected:
    int take(int seed) { return storeTakenPicture(makePicture(160, 120, seed).data()); }

    std::string numbered(const char* directory, int number, const char* extension)
    {
        String name;
        return std::string(directory) + "/" + makeNumberedName(name, "Photo", number).c_str() + "."
            + extension;
    }
};

TEST_F(CameraSlots, reserveFreeNumbersInOrder)
{
    putPhoto("Photo  2");
    putPhoto("Photo  5");
    resetSlots();
    const int expected[] = { 1, 3, 4, 6, 7 };
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(cameraSlot(i).fileNumber, expected[i]);
    EXPECT_EQ(cameraSlot(19).fileNumber, 22);
}

TEST_F(CameraSlots, takePicturesInTheFirstEmptyOne)
{
    for (int i = 0; i < slotCount; ++i)
        EXPECT_EQ(take(i), i);
    EXPECT_EQ(take(20), -1);
    EXPECT_EQ(picturesTaken(), slotCount);
    EXPECT_TRUE(forgetSlot(3));
    EXPECT_FALSE(forgetSlot(3));
    EXPECT_EQ(picturesTaken(), 19);
    EXPECT_EQ(take(21), 3);
    EXPECT_TRUE(has("photo/~20.cam") && has("clipboard/~20.clip") && !has("photo/~21.cam"));
}

TEST_F(CameraSlots, areSavedUnderTheirNumbers)
{
    requestSave();
    EXPECT_FALSE(has(numbered("photo", 1, "cam")));
    take(1);
    take(2);
    EXPECT_TRUE(unsavedPictures);
    requestSave();
    EXPECT_FALSE(unsavedPictures);
    EXPECT_TRUE(cameraSlot(1).saved && cameraSlot(1).taken);
    EXPECT_EQ(folder.get(numbered("photo", 2, "cam")), folder.get("photo/~2.cam"));
    EXPECT_EQ(folder.get(numbered("clipboard", 2, "clip")), folder.get("clipboard/~2.clip"));

    folder.put("clipboard/~1.clip", "changed meanwhile");
    requestSave(); // nothing is unsaved
    EXPECT_NE(folder.get(numbered("clipboard", 1, "clip")), "changed meanwhile");
    take(3);
    requestSave(); // saves the earlier ones again
    EXPECT_EQ(folder.get(numbered("clipboard", 1, "clip")), "changed meanwhile");
    EXPECT_FALSE(has(numbered("photo", 4, "cam")));
}

TEST_F(CameraSlots, areNotSavedWithoutRoom)
{
    take(1);
    diskBudget = diskUsed;
    hasRoomNow = true;
    requestSave();
    EXPECT_FALSE(hasRoomNow);
    EXPECT_TRUE(unsavedPictures);
    EXPECT_FALSE(has(numbered("photo", 1, "cam")));
}

TEST_F(CameraSlots, thatCouldNotBeSavedStayUnsaved)
{
    take(1);
    take(2);
    requestSave();
    const std::string old = folder.get(numbered("photo", 1, "cam"));
    take(3);
    bool saved = false;
    for (int n = 0; !saved && n < 100; ++n) {
        SCOPED_TRACE(n);
        {
            const files::Fault fault({ .failCommitNumber = n });
            unsavedPictures = true;
            requestSave();
        }
        saved = !unsavedPictures;
        int savedSlots = 0;
        for (int i = 0; i < 3; ++i)
            savedSlots += cameraSlot(i).saved;
        EXPECT_EQ(savedSlots, saved ? 3 : 2);
        EXPECT_EQ(folder.get(numbered("photo", 1, "cam")), old);
    }
    EXPECT_TRUE(saved);
}

// The files of an earlier visit must not be saved in place of a picture that could not be stored.
TEST_F(CameraSlots, takeAPictureThatTheDiskRefuses)
{
    put("photo/~1.cam", "of an earlier visit");
    put("clipboard/~1.clip", "of an earlier visit");
    {
        const files::Fault fault({ .roomBytes = 100 });
        EXPECT_EQ(take(1), 0);
    }
    EXPECT_TRUE(cameraSlot(0).taken);
    requestSave();
    EXPECT_FALSE(has(numbered("photo", 1, "cam")));
    EXPECT_FALSE(has(numbered("clipboard", 1, "clip")));
}

TEST_F(CameraSlots, haveNothingUnsavedWhenTheLastIsGone)
{
    take(1);
    take(2);
    forgetSlot(0);
    EXPECT_TRUE(unsavedPictures);
    forgetSlot(1);
    EXPECT_FALSE(unsavedPictures);
    EXPECT_TRUE(has("photo/~1.cam"));
}

} // namespace
