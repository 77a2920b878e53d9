// SPDX-License-Identifier: MIT
#include "activity/album.h"

#include "activity/store_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;
using testing::ElementsAre;

namespace {

class Album : public StoreTest {
protected:
    std::vector<std::string> scanned()
    {
        scanAlbum();
        std::vector<std::string> names;
        for (int i = 0; i < album().count(); ++i)
            names.emplace_back(itemName(album().at(i)).c_str());
        return names;
    }

    List* entry(const std::string& name)
    {
        putPhoto(name);
        album().clear();
        return addName(album(), name + ".clip");
    }
};

TEST_F(Album, isSortedByByte)
{
    for (const char* name : { "a", "Photo 10", "Zoo", "Photo  9", "Photo  1" })
        putPhoto(name);
    EXPECT_THAT(scanned(),
        ElementsAre("Photo  1.clip", "Photo  9.clip", "Photo 10.clip", "Zoo.clip", "a.clip"));
}

TEST_F(Album, listsOnlyWhatIsAPictureOfItsOwn)
{
    putPhoto("kept");
    put("photo/CASE.CAM");
    put("clipboard/case.clip");
    put("photo/1.2.cam");
    put("clipboard/1.2.clip");
    putPhoto("~3");
    putPhoto("nineChars");
    putPhoto("eightCha");
    put("clipboard/orphan.clip");
    put("clipboard/kept.txt");
    put("photo/lonely.cam");
    EXPECT_THAT(scanned(), ElementsAre("1.2.clip", "case.clip", "eightCha.clip", "kept.clip"));
}

TEST_F(Album, renamesAPictureWithItsFiles)
{
    List* node = entry("Photo  5");
    put("mask/Photo  5.mask", "mask");
    EXPECT_EQ(renamePicture(node, "Cat"), RenameResult::Renamed);
    EXPECT_EQ(itemName(node), "Cat.clip");
    EXPECT_EQ(folder.get("photo/Cat.cam"), "picture of Photo  5");
    EXPECT_EQ(folder.get("mask/Cat.mask"), "mask");
    EXPECT_FALSE(has("clipboard/Photo  5.clip"));
}

TEST_F(Album, renamesAFlipBookWithoutItsPicture)
{
    List* node = entry("Flip");
    put("flipbook/Flip.flip", "flip");
    EXPECT_EQ(renamePicture(node, "Dog"), RenameResult::Renamed);
    EXPECT_EQ(folder.get("flipbook/Dog.flip"), "flip");
    EXPECT_TRUE(has("clipboard/Dog.clip") && has("photo/Flip.cam") && !has("photo/Dog.cam"));
}

TEST_F(Album, refusesNamesThatCannotBe)
{
    putPhoto("Used");
    const std::pair<const char*, RenameResult> cases[]
        = { { "", RenameResult::Blank }, { "   ", RenameResult::Blank },
              { "Mine", RenameResult::Unchanged }, { "Used", RenameResult::Refused },
              { "a/b", RenameResult::Refused }, { "nul", RenameResult::Refused },
              { "~1", RenameResult::Refused }, { "nineChars", RenameResult::Refused } };
    for (const auto& [name, result] : cases) {
        SCOPED_TRACE(name);
        List* node = entry("Mine");
        EXPECT_EQ(renamePicture(node, name), result);
        EXPECT_EQ(itemName(node), "Mine.clip");
        EXPECT_TRUE(has("clipboard/Mine.clip") && has("photo/Mine.cam"));
        EXPECT_EQ(folder.get("photo/Used.cam"), "picture of Used");
    }
    EXPECT_EQ(renamePicture(nullptr, "New"), RenameResult::Unchanged);
}

TEST_F(Album, deletesWhatThereIs)
{
    putPhoto("Gone");
    EXPECT_TRUE(deletePicture("Gone"));
    EXPECT_FALSE(has("clipboard/Gone.clip") || has("photo/Gone.cam"));
    EXPECT_EQ(diskUsed, -static_cast<int>(std::string("clip of Gonepicture of Gone").size()));
    EXPECT_FALSE(deletePicture("Gone"));
}

} // namespace
