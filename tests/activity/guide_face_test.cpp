// SPDX-License-Identifier: MIT
#include "activity/guide_face.h"

#include "activity/camera_screen_fixture.h"
#include "activity/export_popup.h"
#include "activity/face_motion.h"
#include "activity/save_dialog.h"
#include "display/canvas.h"
#include "support/debug_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using namespace kez;
using namespace kez::test;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr StagePoint mouth { -250, 160 };
constexpr StagePoint eyes { -250, 130 };
constexpr StagePoint litMouth { -200, 160 };
constexpr StagePoint popupMouth { 30, 5 }; // between the cells

constexpr std::uint32_t rest = 0xFF808080; // of whatever the parts lie on
constexpr std::uint32_t ajar = 0xFF101010;
constexpr std::uint32_t open = 0xFF202020;
constexpr std::uint32_t shut = 0xFF303030;
constexpr std::uint32_t bare = 0xFF404040;
constexpr std::uint32_t eye = 0xFF505050;

/// The camera screen with the guide on its backdrop and on its lit help button, and two popups of
/// which one has the guide on it.
class GuideFaceTest : public CameraScreenTest {
protected:
    void SetUp() override
    {
        CameraScreenTest::SetUp();
        for (const SpriteFile& part :
            { SpriteFile { "camBackAjar", mouth.x, mouth.y, 12, 8, 100, ajar },
                SpriteFile { "camBackOpen", mouth.x, mouth.y, 12, 8, 100, open },
                SpriteFile { "camBackBlink", eyes.x, eyes.y, 40, 12, 100, shut },
                SpriteFile { "camBackNoEyes", eyes.x, eyes.y, 40, 12, 100, bare },
                SpriteFile { "camBackEyes", eyes.x, eyes.y, 28, 4, 100, eye },
                SpriteFile { "camHelpRollAjar", litMouth.x, litMouth.y, 12, 8, 100, ajar },
                SpriteFile { "savePop", 0, 0, 200, 100, 300 },
                SpriteFile { "savePopOpen", popupMouth.x, popupMouth.y, 12, 8, 100, open },
                SpriteFile { "exportPop", 0, 0, 200, 100, 300 } })
            kez::test::addSprite(folder, part);
        endScene();
        enterScreen();
    }

    /// The pixel of the next frame at a point of the stage.
    std::uint32_t seen(StagePoint place)
    {
        const MemoryCanvas canvas(canvasPixels.data(), 640, 480);
        for (List* view = displayList().first(); view != nullptr; view = view->next())
            static_cast<View*>(view->item())->draw();
        return canvasPixels[static_cast<std::size_t>((place.y + 240) * 640 + place.x + 320)];
    }

    /// All that is seen there within the time.
    std::set<std::uint32_t> seenFor(int milliseconds, StagePoint place)
    {
        std::set<std::uint32_t> colours;
        for (int passed = 0; passed < milliseconds; passed += 50) {
            colours.insert(seen(place));
            frames(1);
        }
        return colours;
    }

    std::vector<std::uint32_t> canvasPixels = std::vector<std::uint32_t>(640 * 480);
};

using Colours = std::set<std::uint32_t>;

TEST_F(GuideFaceTest, movesTheMouthForAsLongAsItSpeaks)
{
    EXPECT_EQ(seenFor(1000, mouth), Colours { rest });
    sayGuide(clip::introduction); // nobody hears it here
    EXPECT_EQ(seenFor(unheardSpeechMs, mouth), (Colours { rest, ajar, open }));
    EXPECT_EQ(seenFor(1000, mouth), Colours { rest });
    sayGuide(clip::introduction);
    frames(1);
    stopGuide();
    EXPECT_EQ(seenFor(1000, mouth), Colours { rest });
}

TEST_F(GuideFaceTest, blinksNowAndThen)
{
    constexpr int frameMs = 50;
    int closed = 0;
    int openFor = 0;
    for (int i = 0; i < 60'000 / frameMs; ++i, frames(1)) {
        const bool isShut = seen(eyes) == shut;
        closed += isShut ? 1 : 0;
        openFor = isShut ? 0 : openFor + frameMs;
        EXPECT_LE(openFor, 8000) << i;
        EXPECT_FALSE(isShut && i < 2000 / frameMs) << "at once";
    }
    EXPECT_GE(closed, 10 * 2);
    EXPECT_LE(closed, 60'000 / frameMs / 20);
}

TEST_F(GuideFaceTest, looksAtWhatItExplains)
{
    const struct {
        Button button;
        StagePoint step; // of the eyes, from their place
    } cases[] = { { Book, { 3, 0 } }, { Import, { 0, 3 } } };

    for (const auto& each : cases) {
        SCOPED_TRACE(each.button);
        EXPECT_EQ(seen(eyes), rest);
        click(Help);
        click(each.button);
        const StagePoint at { eyes.x + each.step.x, eyes.y + each.step.y };
        EXPECT_EQ(seen({ at.x - 14, at.y }), eye);
        EXPECT_EQ(seen({ at.x - 15, at.y }), bare);
        EXPECT_EQ(seen({ at.x, at.y - 2 }), eye);
        EXPECT_EQ(seen({ at.x, at.y - 3 }), bare);
        sayGuide(clip::saved); // about nothing in particular
        EXPECT_EQ(seen(eyes), rest);
        stopGuide();
    }
}

TEST_F(GuideFaceTest, isThatOfTheLitButtonWhileItIsLit)
{
    mouseEvent(buttonX(Help), buttonY, MouseEvent::Move);
    sayGuide(clip::help);
    EXPECT_EQ(seenFor(1000, mouth), Colours { rest });
    EXPECT_EQ(seenFor(1000, litMouth), (Colours { rest, ajar }));
    mouseEvent(0, 0, MouseEvent::Move);
    EXPECT_EQ(seenFor(400, litMouth), Colours { rest });
}

TEST_F(GuideFaceTest, speaksOnlyWhereItIsInFront)
{
    saveDialog().ask(SaveDialog::Destination::Host);
    EXPECT_EQ(seenFor(1000, mouth), Colours { rest });
    EXPECT_EQ(seenFor(1000, popupMouth), (Colours { rest, open }));
    closePopup();
    EXPECT_EQ(seen(popupMouth), rest);
    openExport("x", "x"); // without a guide
    sayGuide(clip::saved);
    EXPECT_EQ(seenFor(1000, mouth), (Colours { rest, ajar, open }));
}

TEST_F(GuideFaceTest, isNotInTheMousesWay)
{
    sayGuide(clip::introduction);
    EXPECT_EQ(seen(mouth), ajar);
    ASSERT_NE(pick(mouth.x, mouth.y), nullptr);
    EXPECT_EQ(pick(mouth.x, mouth.y)->name(), "camBack");
}

TEST_F(GuideFaceTest, isNotMissedInContentWithoutIt)
{
    DebugOutput diagnostics;
    openExport("x", "x");
    EXPECT_THAT(diagnostics.take(), Not(HasSubstr("exportPopAjar")));
    sayGuide(clip::saved);
    EXPECT_EQ(seenFor(unheardSpeechMs, popupMouth), Colours { rest });
}

} // namespace
