// SPDX-License-Identifier: MIT
// What only our own layer does: counting the system's objects, and refusing bitmaps that end early.
#include "control.h"
#include "display/bitmap_surface.h"
#include "display/canvas.h"
#include "display/screen.h"
#include "platform/bmp_bytes.h"
#include "platform/temporary_folder.h"
#include "support/display.h"

#include <gtest/gtest.h>

namespace kez {
namespace {

TEST(Screen, givesBackOnlyWhatItMade)
{
    test::Display display(24);
    const auto before = winapi::liveObjects();
    screen().attach(display.directDraw, display.primary, display.secondary, 24);
    screen().attach(display.directDraw, display.primary, display.secondary, 24);
    EXPECT_EQ(winapi::liveObjects().surfaces, before.surfaces + 1);
    screen().detach();
    screen().detach();
    EXPECT_EQ(winapi::liveObjects(), before);
    EXPECT_EQ(targetSurface(), nullptr);
}

TEST(BitmapSurfacesOfOurs, areRefusedWhenTheFileEndsEarly)
{
    test::Display display(32);
    screen().attach(display.directDraw, display.primary, display.secondary, 32);
    const auto bytes = test::BmpBytes { .width = 100, .height = 100, .pixels = { 1 } }.file();
    const test::TemporaryFolder folder;
    folder.put("cut.bmp", std::string(bytes.begin(), bytes.end()));
    EXPECT_EQ(loadBitmapSurface((folder / "cut.bmp").c_str(), 0, 0, nullptr), nullptr);
    screen().detach();
}

} // namespace
} // namespace kez
