// SPDX-License-Identifier: MIT
/// The camera screen, entered, with artwork made for the test and a camera that obeys it.
#pragma once

#include "activity/camera_screen.h"
#include "activity/screen_fixture.h"
#include "media/fake_camera.h"

#include <algorithm>

namespace kez::test {

// The buttons lie in a row at the bottom of the screen, 70 pixels from one to the next.
inline constexpr const char* buttons[] = { "camImportRoll", "camExportRoll", "camReturnRoll",
    "camTrashRoll", "camHelpRoll", "camSaveRoll", "camRoll", "camBookRoll" };

constexpr int buttonX(int button)
{
    return -245 + 70 * button;
}

enum Button { Import, Export, Return, Trash, Help, Save, Fetch, Book };

class OtherScene : public Scene { };

class CameraScreenTest : public ScreenTest {
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        addSprite("camBack", 0, 0, 640, 480, 300);
        addButtons(buttons, buttonX);
        for (const char* name : { "wait00", "wait01", "wait02", "wait03", "wait04", "wait05",
                 "wait06", "wait07", "wait08" })
            addSprite(name, 0, 0, 3, 3, 0);
        link.reinitialise();
        fake = FakeCamera();
        link.setDriver(fakeDriver());
        enterScreen();
    }

    void TearDown() override
    {
        endScene();
        while (!link.isIdle())
            Sleep(1);
        fake.afterCall = nullptr; // the camera outlives the test
        ScreenTest::TearDown();
    }

    void enterScreen()
    {
        switchTo(cameraScreen());
        frames(1);
    }

    // Every fifth step ticks the link, and a picture takes about four ticks.
    void framesForPictures(int count) { frames(40 + count * 25); }

    using ScreenTest::click;
    using ScreenTest::clickCell;

    static void click(Button button) { click(buttonX(button), buttonY); }

    static void clickCell(int cell) { clickCell(cameraScreen().grid(), cell); }

    static std::vector<std::string> litButtons()
    {
        std::vector<std::string> lit;
        for (List* view = displayList().first(); view != nullptr; view = view->next()) {
            List& items = static_cast<View*>(view->item())->layer(0).items();
            for (List* item = items.first(); item != nullptr; item = item->next()) {
                auto* graphic = static_cast<Graphic*>(item->item());
                if (graphic->visible && std::ranges::count(buttons, graphic->name()) > 0)
                    lit.emplace_back(graphic->name().c_str());
            }
        }
        return lit;
    }

    // What is painted into the backdrop at a cell, from its centre by (dx, dy).
    static std::uint32_t painted(int cell, int dx = 0, int dy = 0)
    {
        const StagePoint& place = cameraScreen().grid().position(cell);
        return ScreenTest::painted("camBack", place.x + dx, place.y + dy);
    }

    static std::uint32_t shade(unsigned picture) { return 0xFF000000 | picture * 0x010101; }

    static int selected() { return cameraScreen().grid().selectedIndex(); }

    Camera& link = camera();
    FakeCamera& fake = fakeCamera();
};

} // namespace kez::test
