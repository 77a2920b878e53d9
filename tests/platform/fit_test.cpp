// SPDX-License-Identifier: MIT
#include "fit.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using kez::winapi::Fit;

constexpr SIZE picture { 640, 480 };

TEST(Fit, fillsOneDirectionAndCentresTheOther)
{
    const struct {
        SIZE window;
        RECT place;
        bool whole;
    } cases[] = {
        { { 640, 480 }, { 0, 0, 640, 480 }, true },
        { { 1280, 960 }, { 0, 0, 1280, 960 }, true },
        { { 1920, 1080 }, { 240, 0, 1680, 1080 }, false },
        { { 1024, 1280 }, { 0, 256, 1024, 1024 }, false },
        { { 1300, 960 }, { 10, 0, 1290, 960 }, true },
        { { 320, 240 }, { 0, 0, 320, 240 }, false },
        { { 1, 1 }, { 0, 0, 1, 1 }, false },
    };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.window.cx);
        const Fit fit = Fit::of(one.window, picture);
        EXPECT_EQ(fit.place.left, one.place.left);
        EXPECT_EQ(fit.place.top, one.place.top);
        EXPECT_EQ(fit.place.right, one.place.right);
        EXPECT_EQ(fit.place.bottom, one.place.bottom);
        EXPECT_EQ(fit.isWhole(), one.whole);
    }
}

TEST(Fit, everyPixelIsFoundAgainWhereItIsShown)
{
    for (const SIZE window : { SIZE { 640, 480 }, SIZE { 1001, 777 }, SIZE { 1919, 1080 },
             SIZE { 1280, 1024 }, SIZE { 3840, 2160 } }) {
        const Fit fit = Fit::of(window, picture);
        for (LONG x = 0; x < picture.cx; ++x) {
            const LONG y = x * picture.cy / picture.cx;
            const POINT back = fit.toPicture(fit.toWindow({ x, y }));
            ASSERT_EQ(back.x, x) << window.cx;
            ASSERT_EQ(back.y, y) << window.cx;
        }
    }
}

TEST(Fit, pointsBesideThePictureGoToItsEdge)
{
    const Fit fit = Fit::of({ 1920, 1080 }, picture);
    const POINT left = fit.toPicture({ 239, -5 });
    EXPECT_EQ(left.x, 0);
    EXPECT_EQ(left.y, 0);
    const POINT right = fit.toPicture({ 100000, 5000 });
    EXPECT_EQ(right.x, 639);
    EXPECT_EQ(right.y, 479);
    EXPECT_EQ(fit.toPicture({ 1679, 1079 }).x, 639);
    EXPECT_EQ(fit.toPicture({ 240, 0 }).x, 0);
}

} // namespace
