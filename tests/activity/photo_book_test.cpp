// SPDX-License-Identifier: MIT
#include "activity/photo_book.h"

#include "activity/camera_screen.h"
#include "activity/picture_names.h"
#include "activity/picture_view.h"
#include "activity/screen_fixture.h"
#include "activity/stored_pictures.h"
#include "activity/thumbnail.h"
#include "host/kez.h"
#include "platform/files.h"
#include "support/engine_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace kez;
using namespace kez::test;

namespace {

// The buttons lie in a row at the bottom of the screen, 60 pixels from one to the next.
constexpr const char* buttonNames[]
    = { "bookImportRoll", "bookExportRoll", "bookReturnRoll", "bookTrashRoll", "bookHelpRoll",
          "bookSaveRoll", "bookLeftRoll", "bookRightRoll", "bookCamRoll", "bookRoll" };

constexpr int buttonX(int button)
{
    return -270 + 60 * button;
}

enum Button { Import, Export, Return, Trash, Help, Save, Left, Right, Camera, Book };

constexpr StagePoint bare { 0, 120 }; // neither cell nor label nor button
constexpr std::uint32_t emptyColour = 0xFF112233;

// What lies on its pages, and how they are turned, named and thrown away, the visits show.
class PhotoBookTest : public ScreenTest {
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        addSprite("bookBack", 0, 0, 640, 480, 300);
        addButtons(buttonNames, buttonX);
    }

    /// Files of a picture whose thumbnail is of one shade.
    void putPicture(const std::string& name, int shade = 100) const
    {
        put("photo/" + name + ".cam", "picture of " + name);
        put("clipboard/" + name + ".clip", std::string(clipBytes, static_cast<char>(shade)));
    }

    void putPictures(int count) const
    {
        String name;
        for (int i = 1; i <= count; ++i)
            putPicture(makeNumberedName(name, "Photo", i).c_str(), 100 + i);
    }

    static void openBook()
    {
        switchTo(photoBook());
        frames(1);
    }

    using ScreenTest::click;
    using ScreenTest::clickCell;

    static void click(Button button) { click(buttonX(button), buttonY); }

    static void clickCell(int cell) { clickCell(photoBook().grid(), cell); }

    static void clickBare() { click(bare.x, bare.y); }

    static std::string label(int cell) { return photoBook().labels().shown(cell).c_str(); }

    static std::uint32_t painted(int cell, int dx = 0, int dy = 0)
    {
        const StagePoint& place = photoBook().grid().position(cell);
        return ScreenTest::painted("bookBack", place.x + dx, place.y + dy);
    }

    static std::uint32_t shade(int value)
    {
        return 0xFF000000 | static_cast<std::uint32_t>(value) * 0x010101;
    }

    static int selected() { return photoBook().grid().selectedIndex(); }
};

TEST_F(PhotoBookTest, startsAgainAtTheFirstPageWithWhatIsOnDisk)
{
    putPictures(25);
    openBook();
    click(Right);
    endScene();
    putPicture("Another");
    openBook();
    EXPECT_EQ(photoBook().page(), 0);
    EXPECT_EQ(label(0), "Another");
}

TEST_F(PhotoBookTest, paintsThumbnailsIntoTheirCells)
{
    putPicture("a");
    std::string clip(clipBytes, '\x64');
    clip.replace(0, 180, 180, '\x10'); // its lowest row
    for (const int magenta : { 0, 2 })
        clip[static_cast<std::size_t>((22 * 60 + 30) * 3 + magenta)] = '\xFF';
    clip[(22 * 60 + 30) * 3 + 1] = 0;
    put("clipboard/a.clip", clip);
    openBook();
    EXPECT_EQ(painted(0, -30, -22), shade(0x64));
    EXPECT_EQ(painted(0, 29, 20), shade(0x64));
    EXPECT_EQ(painted(0, -30, 21), shade(0x10));
    EXPECT_EQ(painted(0, 0, 22), 0xFF808080u); // below the cell
    int white = 0;
    for (int dy = -22; dy < 22; ++dy)
        white += painted(0, 0, dy) == 0xFFFFFFFF ? 1 : 0;
    EXPECT_EQ(white, 1);
}

TEST_F(PhotoBookTest, putsARefusedNameBack)
{
    putPictures(2);

    const struct {
        const char* typed;
        int clip;
    } cases[] = { { "Photo  1", clip::nameRefused }, { "PHOTO  1", clip::nameRefused },
        { "a:b", clip::nameRefused }, { "nul", clip::nameRefused }, { "   ", 0 }, { "\b", 0 },
        { "Photo  2", 0 } };

    openBook();
    for (const auto& one : cases) {
        SCOPED_TRACE(one.typed);
        clickCell(1);
        said();
        type(one.typed);
        clickBare();
        EXPECT_EQ(said(), one.clip);
        EXPECT_EQ(label(1), "Photo  2");
        EXPECT_EQ(folder.get("photo/Photo  2.cam"), "picture of Photo  2");
    }
}

TEST_F(PhotoBookTest, typesOnlyIntoASelectedPicture)
{
    putPictures(2);
    openBook();
    type("a");
    const StagePoint& place = photoBook().grid().position(0);
    clickCell(0);
    click(place.x, place.y + 32); // its label
    type("b");
    clickCell(0);
    clickBare();
    type("c");
    clickCell(0);
    click(Import);
    type("d");
    clickBare();
    EXPECT_EQ(label(0), "Photo  1");
    EXPECT_TRUE(has("clipboard/Photo  1.clip"));
    EXPECT_EQ(selected(), -1);
}

TEST_F(PhotoBookTest, keepsPicturesThatTheDiskWillNotLetGo)
{
    putPictures(2);
    openBook();
    const files::Fault fault({ .renamesFail = true, .removesFail = true });
    clickCell(0);
    type("Cat");
    said();
    clickBare();
    EXPECT_EQ(said(), clip::nameRefused);
    clickCell(0);
    click(Trash);
    EXPECT_EQ(label(0), "Photo  1");
    EXPECT_EQ(painted(0), shade(101));
    EXPECT_TRUE(has("photo/Photo  1.cam"));
}

TEST_F(PhotoBookTest, handsOverTheSelectedPictureUnderItsNewName)
{
    const Picture picture = makePicture(4, 3);
    ASSERT_TRUE(savePhoto("Photo  1", picture.data(), 4, 3, nullptr, nullptr));
    openBook();
    clickCell(0);
    type("Cat");
    click(Return);
    EXPECT_TRUE(finishing);
    EXPECT_STREQ(handedName(), "Cat");
    EXPECT_EQ(Kez::imageWidth, 4);
    EXPECT_EQ(folder.get("photo/~0.cam"), folder.get("photo/Cat.cam"));
}

TEST_F(PhotoBookTest, asksForASelectionToExport)
{
    putPictures(1);
    openBook();
    click(Export);
    EXPECT_EQ(said(), clip::exportPicture);
    clickCell(0);
    click(Export);
    EXPECT_EQ(said(), 0);
    EXPECT_EQ(selected(), 0);
    click(Save);
    EXPECT_EQ(said(), clip::nothingToSave);
}

TEST_F(PhotoBookTest, explainsWhatIsClickedInHelpMode)
{
    putPictures(25);
    openBook();
    const std::pair<Button, int> explanations[]
        = { { Import, 6 }, { Export, 7 }, { Return, 9 }, { Trash, 8 }, { Help, 100 }, { Save, 5 },
              { Left, 10 }, { Right, 10 }, { Camera, 2 }, { Book, 4 } };
    for (const auto& [button, clipId] : explanations) {
        SCOPED_TRACE(buttonNames[button]);
        click(Help);
        EXPECT_EQ(said(), 0);
        click(button);
        EXPECT_EQ(said(), clipId);
        EXPECT_FALSE(helpMode);
    }
    EXPECT_EQ(photoBook().page(), 0);
    EXPECT_EQ(pendingScene(), nullptr);
    EXPECT_FALSE(finishing);

    click(Help);
    clickCell(0);
    EXPECT_EQ(said(), clip::bookCell);
    EXPECT_EQ(selected(), -1);
    click(Right);
    click(Help);
    clickCell(1); // an empty cell
    EXPECT_EQ(said(), 0);
    EXPECT_FALSE(helpMode);
}

TEST_F(PhotoBookTest, takesAnOpenPictureAlongWhenItIsLeft)
{
    const Picture picture = makePicture(16, 12);
    ASSERT_TRUE(savePhoto("a", picture.data(), 16, 12, nullptr, nullptr));
    openBook();
    clickCell(0);
    clickCell(0);
    ASSERT_NE(pictureView().picture(), nullptr);
    endScene();
    EXPECT_EQ(pictureView().picture(), nullptr);
    EXPECT_EQ(displayList().count(), 0);
}

} // namespace
