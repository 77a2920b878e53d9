// SPDX-License-Identifier: MIT
// What only our own layer does: counting the system's objects.
#include "control.h"
#include "display/canvas.h"
#include "display/screen.h"
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

} // namespace
} // namespace kez
