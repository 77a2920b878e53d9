// SPDX-License-Identifier: MIT
#include "activity/camera_screen.h"
#include "activity/camera_slots.h"
#include "activity/export_popup.h"
#include "activity/import_popup.h"
#include "activity/picture_export.h"
#include "activity/picture_import.h"
#include "activity/picture_names.h"
#include "activity/save_dialog.h"
#include "activity/screen_fixture.h"
#include "display/screen.h"
#include "host/kez.h"
#include "media/fake_camera.h"
#include "media/jpeg_file.h"
#include "media/targa_file.h"
#include "platform/files.h"
#include "sprites/bitmap_file.h"
#include "support/display.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

using namespace kez;
using namespace kez::test;

namespace {

struct Place {
    const char* name;
    int x, y;
};

constexpr Place popupPlaces[]
    = { { "exportPop", -30, -40 }, { "importPop", -30, -40 }, { "savePop", -30, -40 } };
constexpr Place jpeg { "exportJPGroll", -90, -40 };
constexpr Place bmp { "exportBMProll", 30, -40 };
constexpr Place ok { "importOkRoll", -120, 60 };
constexpr Place cancel { "importCancelRoll", 50, 60 };
constexpr Place up { "importuproll", 80, -110 };
constexpr Place down { "importdownRoll", 80, -30 };
constexpr Place yes { "saveYesRoll", -90, 0 };
constexpr Place no { "saveNoRoll", 30, 0 };
constexpr Place trash { "camTrashRoll", 280, 200 };
constexpr Place importButton { "camImportRoll", -280, 200 };
constexpr Place exportButton { "camExportRoll", -200, 200 };
constexpr Place returnButton { "camReturnRoll", -120, 200 };
constexpr Place bookButton { "camBookRoll", 0, 200 };
constexpr StagePoint besideAll { 310, -230 };
constexpr StagePoint onPicture { -30, 20 };

class Popups : public ScreenTest {
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        screen().attach(display.directDraw, display.primary, display.secondary, 32);
        addSprite("camBack", 0, 0, 640, 480, 1000);
        for (const Place& place : popupPlaces)
            addSprite(place.name, place.x, place.y, 300, 260, 300);
        for (const Place& place : { jpeg, bmp, ok, cancel, up, down, yes, no, trash, importButton,
                 exportButton, returnButton, bookButton })
            addSprite(place.name, place.x, place.y, 50, 40, 50);
        addSprite("cursor", 0, 0, 3, 3, 0);
        camera().reinitialise();
        fakeCamera() = FakeCamera();
        camera().setDriver(fakeDriver());
        switchTo(cameraScreen());
        frames(1);
        importDone = exportDone = importUnreadable = false;
    }

    void TearDown() override
    {
        endScene();
        while (!camera().isIdle())
            Sleep(1);
        ScreenTest::TearDown();
        screen().detach();
    }

    static void click(const Place& place) { ScreenTest::click(place.x, place.y); }

    static void click(const StagePoint& place) { ScreenTest::click(place.x, place.y); }

    void takePicture()
    {
        picture = makePicture(160, 120);
        cell = storeTakenPicture(picture.data());
    }

    void selectPicture()
    {
        takePicture();
        cameraScreen().grid().select(cell);
    }

    // The bytes of a file in "export", which another program may have put there.
    void putBmp(const std::string& name, int width = 5, int height = 4) const
    {
        std::filesystem::create_directories(folder / "export");
        const ByteBlock block = makeBitmap(makePicture(width, height).data(), width, height);
        ASSERT_TRUE(writeBitmapFile(block, (folder / ("export/" + name)).c_str()));
    }

    static std::vector<std::string> shownRows()
    {
        std::vector<std::string> texts;
        for (int row = 0; row < ImportPopup::rows; ++row)
            texts.emplace_back(importPopup().shownText(row).c_str());
        return texts;
    }

    static std::string current() { return importPopup().shownText(ImportPopup::middleRow).c_str(); }

    // Width and height of a stored picture; its pixels go to `stored`.
    std::pair<int, int> sizeOf(const std::string& name)
    {
        TargaFile file((folder / ("photo/" + name + ".cam")).c_str());
        std::pair<int, int> size { 0, 0 };
        const std::uint8_t* pixels = file.read(&size.first, &size.second);
        if (pixels != nullptr)
            stored.assign(pixels, pixels + 3 * size.first * size.second);
        return size;
    }

    Display display { 32 };
    Picture picture;
    Picture stored;
    int cell = -1;
};

TEST_F(Popups, exportTheSelectedPictureInBothForms)
{
    click(exportButton);
    EXPECT_EQ(said(), clip::exportPicture) << "nothing is selected";
    EXPECT_FALSE(isExportOpen());

    selectPicture();
    put("export/Export  1.BMP");
    const int before = diskUsed;
    click(exportButton);
    ASSERT_TRUE(isExportOpen());
    click(onPicture);
    EXPECT_TRUE(isExportOpen());
    click(jpeg);
    EXPECT_FALSE(isExportOpen());
    ASSERT_TRUE(has("export/Export  2.JPG"));
    EXPECT_EQ(diskUsed - before,
        static_cast<int>(std::filesystem::file_size(folder / "export/Export  2.JPG")));
    frames(2);
    EXPECT_EQ(said(), clip::exported);

    cameraScreen().grid().select(cell);
    click(exportButton);
    click(bmp);
    EXPECT_EQ(std::filesystem::file_size(folder / "export/Export  3.BMP"), 57'654u);
    EXPECT_EQ(
        folder.get("export/Export  3.BMP").substr(54), std::string(picture.begin(), picture.end()));
}

TEST_F(Popups, exportMaskedPixelsAsWhite)
{
    selectPicture();
    put("mask/~1.mask", "\x40");
    exportPicture("~1", "Cat", "BMP");
    const std::string pixels = folder.get("export/Cat.BMP").substr(54);
    EXPECT_EQ(pixels.substr(0, 3), std::string(picture.begin(), picture.begin() + 3));
    EXPECT_EQ(pixels.substr(3, 3), "\xFF\xFF\xFE");
}

TEST_F(Popups, leaveNoHalfWrittenExport)
{
    selectPicture();
    put("export/Cat.JPG", "old");
    put("export/Cat.BMP", "old");
    const int before = diskUsed;
    for (const char* format : { "JPG", "BMP" })
        for (const files::Fault::Plan& plan : { files::Fault::Plan { .failWriteNumber = 0 },
                 { .failCommitNumber = 0 }, { .roomBytes = 900 } }) {
            const files::Fault fault(plan);
            exportPicture("~1", "Cat", format);
            EXPECT_FALSE(exportDone);
        }
    exportPicture("none", "Cat", "JPG");
    EXPECT_FALSE(exportDone);
    EXPECT_EQ(folder.get("export/Cat.JPG"), "old");
    EXPECT_EQ(folder.get("export/Cat.BMP"), "old");
    EXPECT_EQ(diskUsed, before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "export"), {}), 2);
}

TEST_F(Popups, exportOverAnEarlierExport)
{
    selectPicture();
    exportPicture("~1", "Cat", "BMP");
    const std::string whole = folder.get("export/Cat.BMP");
    put("export/Cat.BMP", std::string(100'000, 'x'));
    const int before = diskUsed;
    exportPicture("~1", "Cat", "BMP");
    EXPECT_TRUE(exportDone);
    EXPECT_TRUE(folder.get("export/Cat.BMP") == whole);
    EXPECT_EQ(diskUsed - before, 57'654 - 100'000);
}

TEST_F(Popups, exportNothingThroughALink)
{
    selectPicture();
    put("export/Cat.BMP");
    put("photo/kept.cam", "kept");
    std::error_code error;
    std::filesystem::create_symlink(folder / "photo/kept.cam", folder / "export/Dog.BMP", error);
    if (error)
        GTEST_SKIP() << "there are no links here: " << error.message();
    exportPicture("~1", "Dog", "BMP");
    EXPECT_TRUE(exportDone);
    EXPECT_EQ(std::filesystem::file_size(folder / "export/Dog.BMP"), 57'654u);
    EXPECT_EQ(folder.get("photo/kept.cam"), "kept");
}

TEST_F(Popups, refuseAnExportWhoseTargetIsNoFile)
{
    selectPicture();
    put("export/Cat.JPG/kept", "old");
    put("export/Cat.BMP/kept", "old");
    const int before = diskUsed;
    for (const char* format : { "JPG", "BMP" }) {
        exportPicture("~1", "Cat", format);
        EXPECT_FALSE(exportDone);
        EXPECT_EQ(folder.get(std::string("export/Cat.") + format + "/kept"), "old");
    }
    std::filesystem::remove_all(folder / "export");
    put("export", "no folder");
    exportPicture("~1", "Cat", "JPG");
    EXPECT_FALSE(exportDone);
    EXPECT_EQ(folder.get("export"), "no folder");
    EXPECT_EQ(diskUsed, before);
    EXPECT_TRUE(has("photo/~1.cam"));
}

TEST_F(Popups, closeRatherThanThrowAPictureAway)
{
    selectPicture();
    click(exportButton);
    click(trash);
    EXPECT_FALSE(isExportOpen());
    EXPECT_EQ(picturesTaken(), 1);
    cameraScreen().grid().select(cell);
    click(trash);
    EXPECT_EQ(picturesTaken(), 0);
}

TEST_F(Popups, listWhatCanBeImported)
{
    click(importButton);
    EXPECT_EQ(shownRows(), std::vector<std::string>(7));
    click(ok);
    EXPECT_FALSE(importDone);
    click(besideAll);
    EXPECT_FALSE(importPopup().isOpen());

    for (const char* name : { "b.BMP", "A.jpg", "c.txt", "d", "e.x.JPG" })
        put(std::string("export/") + name);
    std::filesystem::create_directories(folder / "export/f.jpg");
    click(importButton);
    EXPECT_EQ(shownRows(), (std::vector<std::string> { "", "", "A", "b", "e.x", "", "" }));
    click(up);
    EXPECT_EQ(current(), "A");
    click(up);
    EXPECT_EQ(current(), "A");
    keyEvent(40, KeyEvent::Press);
    keyEvent(40, KeyEvent::Press);
    EXPECT_EQ(current(), "e.x");
    ScreenTest::click(-28, -102 + 15); // two above the middle
    EXPECT_EQ(current(), "A");
    click(onPicture);
    EXPECT_TRUE(importPopup().isOpen());
    click(cancel);
    EXPECT_FALSE(importPopup().isOpen());
}

TEST_F(Popups, findFilesByTheirFirstLetters)
{
    for (const char* name : { "Boat", "brook", "Bruno", "zebra", "x1", "x2", "x3", "x4", "x5" })
        put(std::string("export/") + name + ".jpg");
    click(importButton);
    EXPECT_EQ(current(), "x1") << "the fourth";
    type("b");
    EXPECT_EQ(current(), "Boat");
    type("r");
    EXPECT_EQ(current(), "brook");
    type("U");
    EXPECT_EQ(current(), "Bruno");
    type("\"| ~");
    EXPECT_EQ(current(), "Bruno");
    type("\b\b\b");
    EXPECT_EQ(current(), "Boat") << "nothing is searched: the first";
    type("zzz");
    EXPECT_EQ(current(), "zebra") << "no file begins with more";
    click(up);
    type("x5");
    EXPECT_EQ(current(), "x5");
}

TEST_F(Popups, stayUsableWithTenThousandFiles)
{
    std::filesystem::create_directories(folder / "export");
    for (int i = 0; i < 10'000; ++i)
        folder.put("export/Out" + std::to_string(i) + ".jpg", "");
    put("export/z\xC3\xA4ltester B\xC3\xA4r im Zoo.bmp");
    EXPECT_EQ(findFreeExportNumber(), 1);
    click(importButton);
    type("Out77");
    EXPECT_EQ(current(), "Out77");
    for (int i = 0; i < 10'001; ++i)
        keyEvent(40, KeyEvent::Press);
    const std::string shortName = files::list((folder / "export"), "bmp").at(0).shortName;
    EXPECT_EQ(current(),
        shortName.empty() ? "z\xC3\xA4ltester B.." : shortName.substr(0, shortName.find('.')))
        << "cut to its row, between characters";
    click(ok);
    EXPECT_TRUE(importUnreadable) << "found by its whole name: the file holds no picture";
}

TEST_F(Popups, importPicturesAsNewOnes)
{
    putBmp("a.bmp");
    const Picture photograph = makePicture(64, 40);
    ASSERT_EQ(writeJpeg((folder / "export/b.JPG").c_str(), photograph.data(), 64, 40), 1);
    click(importButton);
    click(ok);
    EXPECT_EQ(sizeOf("Image  1"), std::pair(5, 4));
    EXPECT_EQ(stored, makePicture(5, 4));
    EXPECT_TRUE(has("clipboard/Image  1.clip"));
    EXPECT_EQ(lastImportedName(), "Image  1");
    frames(2);
    EXPECT_EQ(said(), clip::imported);
    click(down);
    type("\r");
    EXPECT_EQ(sizeOf("Image  2"), std::pair(64, 40));
    EXPECT_TRUE(importPopup().isOpen());
    diskBudget = diskUsed + 140'000;
    said();
    type("\r");
    EXPECT_EQ(said(), clip::noRoom);
    EXPECT_FALSE(has("photo/Image  3.cam"));
}

TEST_F(Popups, tellWhatCannotBeImported)
{
    putBmp("a.bmp");
    put("export/lie.jpg", folder.get("export/a.bmp"));
    put("export/cut.bmp", folder.get("export/a.bmp").substr(0, 80));
    put("export/empty.jpg", "");
    for (const ImportFile& file :
        { ImportFile { "lie", "jpg" }, { "cut", "bmp" }, { "empty", "jpg" }, { "gone", "BMP" } }) {
        importPicture(file);
        frames(2);
        EXPECT_EQ(said(), clip::unreadable) << file.baseName.c_str();
    }
    EXPECT_FALSE(has("photo/Image  1.cam"));

    const int before = diskUsed;
    for (const files::Fault::Plan& plan : { files::Fault::Plan { .failWriteNumber = 0 },
             { .failWriteNumber = 2 }, { .failCommitNumber = 1 }, { .roomBytes = 200 } }) {
        const files::Fault fault(plan);
        importPicture({ "a", "bmp" });
        frames(2);
        EXPECT_EQ(said(), clip::notStored);
        EXPECT_FALSE(has("photo/Image  1.cam") || has("clipboard/Image  1.clip"));
    }
    EXPECT_EQ(diskUsed, before);
}

TEST_F(Popups, neverReplaceTheLastNumberedPicture)
{
    putBmp("a.bmp");
    String name;
    for (int i = 1; i < 1000; ++i)
        put("photo/" + std::string(makeNumberedName(name, "Image", i).c_str()) + ".cam", "kept");
    importPicture({ "a", "bmp" });
    frames(2);
    EXPECT_EQ(said(), clip::notStored);
    EXPECT_EQ(folder.get("photo/Image999.cam"), "kept");
}

TEST_F(Popups, askBeforeUnsavedPicturesAreLeft)
{
    takePicture();
    frames(3);
    click(returnButton);
    EXPECT_EQ(said(), clip::saveQuestion);
    click(onPicture);
    EXPECT_FALSE(saveDialog().isOpen() || finishing || has("photo/Photo  1.cam"));
    click(returnButton);
    click(no);
    EXPECT_TRUE(finishing);
    EXPECT_FALSE(has("photo/Photo  1.cam"));
    EXPECT_TRUE(has("photo/~1.cam"));
    finishing = false;

    click(bookButton);
    click(yes);
    EXPECT_EQ(said(), clip::saved);
    EXPECT_TRUE(has("photo/Photo  1.cam"));
    frames(1);
    EXPECT_NE(currentScene(), &cameraScreen());
}

TEST_F(Popups, keepTheChildWhereAPictureCouldNotBeSaved)
{
    takePicture();
    frames(3);
    click(returnButton);
    {
        const files::Fault full({ .roomBytes = 100 });
        click(yes);
    }
    EXPECT_EQ(said(), clip::notStored);
    EXPECT_FALSE(finishing || has("photo/Photo  1.cam"));
    EXPECT_TRUE(unsavedPictures);

    click(returnButton);
    diskBudget = 0;
    click(yes);
    EXPECT_EQ(said(), clip::noRoom);
    EXPECT_TRUE(finishing) << "without a budget nothing can be saved: the child may go";
}

} // namespace
