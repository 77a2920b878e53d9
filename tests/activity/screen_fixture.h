// SPDX-License-Identifier: MIT
/// A store with the engine round it, for tests of screens: an archive of plain sprites made for the
/// test, a clock that moves only by sleeping, frames without a picture, and a child's hand.
#pragma once

#include "activity/activity_screen.h"
#include "activity/guide.h"
#include "activity/sprite_files.h"
#include "activity/store_fixture.h"
#include "activity/thumbnail_grid.h"
#include "control_kernel.h"
#include "core/clock.h"
#include "display/scene.h"
#include "input/events.h"
#include "sprites/image.h"

#include <cstring>

namespace kez::test {

inline constexpr int buttonY = 210;

class ScreenTest : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        winapi::useScriptClock(1000);
        createArchive();
        color3 = 0xFF112233;
        mouseEvent(0, 0, MouseEvent::Move);
    }

    void TearDown() override
    {
        endScene();
        stopGuide();
        winapi::useRealClock();
        destroyArchive();
        helpMode = false;
        finishing = false;
        StoreTest::TearDown();
    }

    void addSprite(const char* name, int x, int y, int width, int height, int depth)
    {
        kez::test::addSprite(folder, { name, x, y, width, height, depth });
    }

    /// Buttons of 50 × 40 in a row at the bottom of the screen.
    template <std::size_t count>
    void addButtons(const char* const (&names)[count], int (&placeX)(int))
    {
        for (int i = 0; i < static_cast<int>(count); ++i)
            addSprite(names[i], placeX(i), buttonY, 50, 40, 50);
        for (const char* pointer : { "cursor", "help" })
            addSprite(pointer, 0, 0, 3, 3, 0);
    }

    static void frames(int count)
    {
        for (; count > 0; --count) {
            Sleep(50);
            takeFrameTime();
            performSwitch();
            runDueTasks();
        }
    }

    static void click(int x, int y)
    {
        mouseEvent(x, y, MouseEvent::Move);
        mouseEvent(x, y, MouseEvent::Press);
        mouseEvent(x, y, MouseEvent::Release);
    }

    static void clickCell(const ThumbnailGrid& grid, int cell)
    {
        click(grid.position(cell).x, grid.position(cell).y);
    }

    static void type(std::string_view text)
    {
        for (const char character : text)
            keyEvent(static_cast<unsigned char>(character), KeyEvent::Character);
    }

    /// The clip that the guide has begun last since the last question, or 0.
    static int said()
    {
        const GuideClip* clip = guide().playing();
        const int id = clip != nullptr ? clip->clipId : 0;
        stopGuide();
        return id;
    }

    /// A pixel of a backdrop of 640 × 480, in stage coordinates.
    static std::uint32_t painted(const char* backdropName, int x, int y)
    {
        Image backdrop(backdropName, true);
        backdrop.realize();
        std::uint32_t value = 0;
        std::memcpy(&value, backdrop.pixels() + ((y + 240) * 640 + x + 320) * 4, 4);
        return value;
    }
};

} // namespace kez::test
