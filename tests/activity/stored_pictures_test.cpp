// SPDX-License-Identifier: MIT
#include "activity/album.h"
#include "activity/picture_names.h"
#include "activity/stored_files.h"
#include "activity/stored_pictures.h"

#include "activity/store_fixture.h"
#include "activity/thumbnail.h"
#include "host/kez.h"
#include "media/targa_file.h"
#include "platform/files.h"
#include "support/debug_output.h"
#include "support/engine_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using namespace kez;
using namespace kez::test;
using testing::HasSubstr;

namespace {

class StoredPictures : public StoreTest {
protected:
    Picture read(const std::string& name)
    {
        TargaFile file((folder / name).c_str());
        int width = 0, height = 0;
        const std::uint8_t* pixels = file.read(&width, &height);
        size = { width, height };
        return pixels == nullptr ? Picture() : Picture(pixels, pixels + width * height * 3);
    }

    std::pair<int, int> size;
};

TEST_F(StoredPictures, areStoredWithTheirThumbnail)
{
    Picture picture = makePicture(160, 120);
    picture[0] = picture[1] = picture[2] = 255;
    ASSERT_TRUE(savePhoto("~1", picture.data(), 160, 120, nullptr, nullptr));
    EXPECT_EQ(picture[0], 255);
    picture[0] = 254;
    EXPECT_EQ(read("photo/~1.cam"), picture);
    EXPECT_EQ(size, std::pair(160, 120));
    const std::string clip = folder.get("clipboard/~1.clip");
    ASSERT_EQ(clip.size(), clipBytes);
    EXPECT_EQ(clip.substr(0, 3), "\xfe\xff\xff");
    const auto onDisk = files::size(folder / "photo/~1.cam") + clipBytes;
    EXPECT_EQ(diskUsed, static_cast<int>(onDisk));
    ASSERT_TRUE(savePhoto("~1", picture.data(), 160, 120, nullptr, "photo"));
    EXPECT_EQ(diskUsed, static_cast<int>(onDisk)); // replaced, not added
}

// Whatever write fails, each file is the old one or the new one.
TEST_F(StoredPictures, areNeverHalfWritten)
{
    const Picture before = makePicture(160, 120, 1), after = makePicture(160, 120, 2);
    ASSERT_TRUE(savePhoto("A", after.data(), 160, 120, nullptr, nullptr));
    const std::string newClip = folder.get("clipboard/A.clip");
    bool saved = false;
    for (int n = 0; !saved && n < 1000; ++n) {
        for (const bool commits : { false, true }) {
            SCOPED_TRACE(testing::Message() << (commits ? "commit " : "write ") << n);
            ASSERT_TRUE(savePhoto("A", before.data(), 160, 120, nullptr, nullptr));
            const std::string oldClip = folder.get("clipboard/A.clip");
            files::Fault::Plan plan;
            (commits ? plan.failCommitNumber : plan.failWriteNumber) = n;
            {
                const files::Fault fault(plan);
                const DebugOutput output;
                saved = savePhoto("A", after.data(), 160, 120, nullptr, nullptr);
                EXPECT_EQ(saved, output.text().find("SavePhoto A failed.") == std::string::npos);
            }
            const Picture stored = read("photo/A.cam");
            const std::string clip = folder.get("clipboard/A.clip");
            EXPECT_EQ(stored, saved || stored == after ? after : before);
            EXPECT_EQ(clip, saved || clip == newClip ? newClip : oldClip);
            EXPECT_EQ(
                std::filesystem::directory_iterator(folder / "photo")->path().filename(), "A.cam");
        }
    }
    EXPECT_TRUE(saved);
}

TEST_F(StoredPictures, thatCannotBeWrittenAreReported)
{
    const Picture picture = makePicture(16, 12);
    const DebugOutput output;
    put("clipboard", "a file where the directory should be");
    EXPECT_FALSE(savePhoto("A", picture.data(), 16, 12, nullptr, nullptr));
    EXPECT_THAT(
        output.text(), HasSubstr("SaveClip " + folder.path() + "\\clipboard\\A.clip failed."));
    EXPECT_THAT(output.text(), HasSubstr("SavePhoto A failed."));
    setDataPath((folder / "missing/deeper").c_str());
    EXPECT_FALSE(savePhoto("A", picture.data(), 16, 12, nullptr, nullptr));
    EXPECT_FALSE(savePhoto("A", nullptr, 16, 12, nullptr, nullptr));
    EXPECT_FALSE(savePhoto("A", picture.data(), -1, 12, nullptr, nullptr));
    EXPECT_FALSE(savePhoto("nul", picture.data(), 16, 12, nullptr, nullptr));
}

TEST_F(StoredPictures, fromOutsideAreReducedWhenTheyAreLarge)
{
    const struct {
        int width, height, storedWidth, storedHeight;
    } cases[] = { { 320, 240, 320, 240 }, { 31, 17, 31, 17 }, { 640, 480, 320, 240 },
        { 1000, 100, 320, 32 }, { 100, 1000, 24, 240 }, { 4000, 1, 320, 1 } };

    for (const auto& [width, height, storedWidth, storedHeight] : cases) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        Picture picture = makePicture(width, height);
        const String path = makePath("photo", "Image  1", "cam");
        ASSERT_TRUE(storeImportedPicture(path.c_str(), "Image  1", picture.data(), width, height));
        EXPECT_FALSE(importFailed);
        const Picture stored = read("photo/Image  1.cam");
        EXPECT_EQ(size, std::pair(storedWidth, storedHeight));
        EXPECT_EQ(stored == picture, width == storedWidth);
        EXPECT_EQ(files::size(folder / "clipboard/Image  1.clip"), clipBytes);
    }
    Picture picture = makePicture(4, 4);
    const files::Fault fault({ .roomBytes = 10 });
    EXPECT_FALSE(storeImportedPicture("x", "Image  2", picture.data(), 4, 4));
    EXPECT_TRUE(importFailed);
}

TEST_F(StoredPictures, masksAreReadBitByBit)
{
    put("mask/A.mask", "\xa1\x80");
    Picture mask(20, 9);
    EXPECT_TRUE(readMask((folder / "mask/A.mask").c_str(), mask.data(), 20));
    EXPECT_EQ(mask, (Picture { 1, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 }));
    Picture few(3, 9);
    EXPECT_TRUE(readMask((folder / "mask/A.mask").c_str(), few.data(), 3));
    EXPECT_EQ(few, (Picture { 1, 0, 1 }));
    EXPECT_FALSE(readMask((folder / "mask/B.mask").c_str(), few.data(), 3));
    EXPECT_EQ(few, (Picture { 0, 0, 0 }));
}

TEST_F(StoredPictures, thumbnailsAreReadWholeOrNotAtAll)
{
    std::array<std::uint8_t, clipBytes> clip {};
    put("clipboard/A.clip", std::string(clipBytes, 'c') + "more");
    put("clipboard/B.clip", std::string(clipBytes - 1, 'c'));
    addName(album(), "A.clip");
    addName(album(), "B.clip");
    addName(album(), "C.clip");
    EXPECT_TRUE(readClip(album().at(0), clip));
    EXPECT_EQ(clip.back(), 'c');
    EXPECT_FALSE(readClip(album().at(1), clip));
    EXPECT_FALSE(readClip(album().at(2), clip));
    EXPECT_FALSE(readClip(nullptr, clip));
}

TEST_F(StoredPictures, areHandedToTheHost)
{
    const Picture picture = makePicture(16, 12);
    ASSERT_TRUE(savePhoto("Cat", picture.data(), 16, 12, nullptr, nullptr));
    handOverPicture("Cat");
    EXPECT_TRUE(finishing);
    ASSERT_NE(handedImage(), nullptr);
    EXPECT_EQ(Picture(handedImage(), handedImage() + 16 * 12 * 3), picture);
    EXPECT_STREQ(handedName(), "Cat");
    EXPECT_EQ(folder.get("photo/~0.cam"), folder.get("photo/Cat.cam"));

    finishing = false;
    put("photo/Bad.cam", "no picture");
    handOverPicture("Bad");
    EXPECT_TRUE(finishing);
    EXPECT_EQ(handedImage(), nullptr);
    EXPECT_STREQ(handedName(), "Bad");
    EXPECT_EQ(Kez::imageWidth, 0);
    handOverPicture(nullptr);
    EXPECT_EQ(handedName(), nullptr);
    finishing = false;
}

class DiskBudget : public StoreTest { };

TEST_F(DiskBudget, isStrictAndDoesNotOverflow)
{
    diskBudget = 100;
    diskUsed = 90;
    EXPECT_TRUE(hasRoom(9));
    EXPECT_FALSE(hasRoom(10));
    EXPECT_FALSE(hasRoom(std::numeric_limits<int>::max()));
    diskBudget = 0;
    diskUsed = 0;
    EXPECT_FALSE(hasRoom(0));
    diskUsed = std::numeric_limits<int>::max() - 1;
    EXPECT_EQ(addDiskUsed(100), std::numeric_limits<int>::max());
}

TEST_F(DiskBudget, countsWritesCopiesAndDeletions)
{
    const std::uint8_t bytes[10] = {};
    const String a = makePath("photo", "a", "cam"), b = makePath("photo", "b", "cam");
    EXPECT_TRUE(writeStoredFile(a, bytes));
    EXPECT_EQ(diskUsed, 10);
    EXPECT_TRUE(writeStoredFile(a, std::span(bytes).first(4)));
    EXPECT_EQ(diskUsed, 4);
    EXPECT_TRUE(copyStoredFile(a, b));
    EXPECT_TRUE(copyStoredFile(a, b)); // what it replaces is not given back
    EXPECT_EQ(diskUsed, 12);
    EXPECT_TRUE(deleteStoredFile(b));
    EXPECT_FALSE(deleteStoredFile(b));
    EXPECT_EQ(diskUsed, 8);
    const files::Fault fault({ .failWriteNumber = 0, .removesFail = true });
    EXPECT_FALSE(writeStoredFile(b, bytes));
    EXPECT_FALSE(deleteStoredFile(a));
    EXPECT_EQ(diskUsed, 8);
}

} // namespace
