// SPDX-License-Identifier: MIT
#include "activity/picture_names.h"

#include "activity/store_fixture.h"

#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;

namespace {

TEST(PictureNames, areRightAligned)
{
    const struct {
        const char* prefix;
        int number;
        const char* name;
    } cases[] = { { "Photo", 5, "Photo  5" }, { "Photo", 42, "Photo 42" },
        { "Image", 999, "Image999" }, { "Photo", 1000, "Photo  0" }, { "Export", 0, "Export  0" } };

    for (const auto& [prefix, number, name] : cases) {
        String text = "what was there before";
        EXPECT_EQ(makeNumberedName(text, prefix, number), name);
    }
    EXPECT_EQ(temporaryName(20), "~20");
    EXPECT_EQ(nameWithoutExtension("a.b.clip"), "a.b");
    EXPECT_EQ(nameWithoutExtension("plain"), "plain");
}

TEST(PicturePaths, arePutTogetherFromWhatIsGiven)
{
    setDataPath(nullptr);
    EXPECT_EQ(makePath(nullptr, "name", "cam"), "name.cam");
    EXPECT_EQ(makePath(nullptr, "name", nullptr), "name");
    setDataPath("some where");
    EXPECT_EQ(makePath(nullptr, "name", "cam"), "some where\\name.cam");
    setDataPath("");
    EXPECT_EQ(makePath(nullptr, nullptr, nullptr), "");
}

class PictureNumbers : public StoreTest { };

TEST_F(PictureNumbers, pathsMakeTheirDirectory)
{
    EXPECT_FALSE(has("clipboard"));
    EXPECT_EQ(makePath("clipboard", "a", "clip"), (folder.path() + "\\clipboard\\a.clip").c_str());
    EXPECT_TRUE(has("clipboard"));
}

TEST_F(PictureNumbers, theLowestFreeOneIsFound)
{
    for (const char* name : { "Photo  1", "Photo  2", "Photo  3" })
        putPhoto(name);
    EXPECT_EQ(findFreeNumber("Photo", 1, "cam"), 4);
    EXPECT_EQ(findFreeNumber("Photo", 3, "cam"), 4);
    EXPECT_EQ(findFreeNumber("Photo", 7, "cam"), 7);
    std::filesystem::remove(folder / "photo/Photo  2.cam");
    EXPECT_EQ(findFreeNumber("Photo", 2, "cam"), 2);
    EXPECT_EQ(findFreeNumber("Photo", 1000, "cam"), 999);

    put("photo/Image  1.cam");
    EXPECT_EQ(findFreeImportNumber(), 2);
    put("export/Export  1.bmp");
    put("export/Export  2.jpg");
    EXPECT_EQ(findFreeExportNumber(), 3);
}

} // namespace
