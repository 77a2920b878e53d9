// SPDX-License-Identifier: MIT
#include "activity/thumbnail.h"

#include "activity/key_colours.h"
#include "activity/store_fixture.h"

#include <gtest/gtest.h>

#include <random>

using namespace kez;
using namespace kez::test;

namespace {

// The rule as it is stated, a pixel at a time.
Picture plainThumbnail(const Picture& source, int sw, int sh, const Picture& mask, int ow, int oh)
{
    Picture out(static_cast<std::size_t>(ow * oh * 3), 255);
    const float scale = static_cast<float>(std::max(double(sw) / ow, double(sh) / oh));
    const int s = static_cast<int>(100.0 * double(scale));
    const int ox = (ow - sw * 100 / s) / 2;
    const int oy = (oh - sh * 100 / s) / 2;
    for (int i = 0; i < ow * oh; ++i) {
        const int x = i % ow, y = i / ow;
        if (y < oy || y >= oh - oy || x < ox || x >= ow - ox)
            continue;
        const int index = ((y - oy) * s / 100) * sw + (x - ox) * s / 100;
        if (index >= sw * sh || (!mask.empty() && mask[static_cast<std::size_t>(index)] != 0))
            continue;
        for (int byte = 0; byte < 3; ++byte)
            out[static_cast<std::size_t>(i * 3 + byte)]
                = source[static_cast<std::size_t>(index * 3 + byte)];
    }
    return out;
}

TEST(Thumbnail, followsTheRuleForEverySize)
{
    std::mt19937 random(20);
    const auto upTo
        = [&random](int most) { return static_cast<int>(random() % unsigned(most)) + 1; };
    for (int round = 0; round < 300; ++round) {
        const int sw = upTo(round % 3 == 0 ? 12 : 400), sh = upTo(round % 5 == 0 ? 12 : 400);
        const int ow = round % 2 == 0 ? clipWidth : upTo(70);
        const int oh = round % 2 == 0 ? clipHeight : upTo(70);
        SCOPED_TRACE(testing::Message() << sw << " x " << sh << " into " << ow << " x " << oh);
        const Picture source = makePicture(sw, sh, round);
        Picture mask;
        for (int i = 0; round % 4 == 0 && i < sw * sh; ++i)
            mask.push_back(random() % 3 == 0);
        Picture out(static_cast<std::size_t>(ow * oh * 3));
        makeThumbnail(
            source.data(), sw, sh, mask.empty() ? nullptr : mask.data(), out.data(), ow, oh);
        ASSERT_EQ(out, plainThumbnail(source, sw, sh, mask, ow, oh));
    }
}

TEST(Thumbnail, ofATallPictureHasWhiteBands)
{
    EXPECT_EQ(reductionPercent(160, 120, clipWidth, clipHeight), 266); // as of the camera's
    EXPECT_EQ(reductionPercent(320, 240, clipWidth, clipHeight), 533);
    const Picture source = makePicture(100, 200);
    Picture clip(clipBytes);
    makeThumbnail(source.data(), 100, 200, nullptr, clip.data(), clipWidth, clipHeight);
    for (std::size_t x = 0; x < clipWidth; ++x) {
        const bool white = clip[x * 3] == 255 && clip[x * 3 + 1] == 255 && clip[x * 3 + 2] == 255;
        EXPECT_EQ(white, x < 19 || x >= 41) << x;
    }
}

TEST(KeyColours, areChangedByOne)
{
    Picture pixels { 255, 255, 255, 255, 0, 255, 254, 255, 255, 0, 255, 255, 255, 0, 254 };
    protectKeyColours(pixels.data(), 4); // the fifth is not asked for
    EXPECT_EQ(
        pixels, (Picture { 254, 255, 255, 255, 0, 254, 254, 255, 255, 0, 255, 255, 255, 0, 254 }));

    Picture shown { 255, 0, 255, 255, 0, 254 };
    turnMagentaWhite(shown.data(), 2);
    EXPECT_EQ(shown, (Picture { 255, 255, 255, 255, 0, 254 }));

    Picture masked { 1, 2, 3, 4, 5, 6 };
    const Picture mask { 0, 9 };
    applyMask(masked.data(), nullptr, 2);
    applyMask(masked.data(), mask.data(), 2);
    EXPECT_EQ(masked, (Picture { 1, 2, 3, 255, 255, 254 }));
}

} // namespace
