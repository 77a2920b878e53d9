// SPDX-License-Identifier: MIT
#include "activity/hand_over.h"

#include "support/engine_fixture.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

namespace kez {
namespace {

using test::handedImage;
using test::handedName;

class HandOverTest : public test::EngineFixture {
protected:
    HandOverTest()
        : pixels(320 * 240 * 3)
    {
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = static_cast<unsigned char>(i * 31 + i / 256);
    }

    std::vector<unsigned char> pixels;
};

TEST_F(HandOverTest, givesTheHostACopy)
{
    finishWithImage("Photo  1", pixels.data(), 320, 240);
    EXPECT_TRUE(finishing);
    ASSERT_NE(handedImage(), nullptr);
    const std::vector<unsigned char> handed(handedImage(), handedImage() + pixels.size());
    EXPECT_EQ(handed, pixels);
    EXPECT_NE(handedImage(), pixels.data());
    EXPECT_STREQ(handedName(), "Photo  1");
    EXPECT_EQ(Kez::imageWidth, 320);
    EXPECT_EQ(Kez::imageHeight, 240);
    EXPECT_EQ(output.text(), "");
}

TEST_F(HandOverTest, endsTheRunWithNothingChosen)
{
    finishWithImage("old", pixels.data(), 1, 1);
    finishing = false;
    finishWithImage(nullptr, nullptr, 0, 0);
    EXPECT_TRUE(finishing);
    EXPECT_EQ(handedImage(), nullptr);
    EXPECT_EQ(handedName(), nullptr);
    EXPECT_EQ(Kez::imageWidth, 0);
    EXPECT_EQ(Kez::imageHeight, 0);
}

TEST_F(HandOverTest, refusesPicturesBeyondTheBuffer)
{
    for (const auto& [width, height] :
        { std::pair(321, 240), std::pair(320, 241), std::pair(-1, 1), std::pair(1, -1),
            std::pair(INT_MAX, INT_MAX), std::pair(600, 1), std::pair(INT_MIN, 2) }) {
        finishing = false;
        finishWithImage("kept", pixels.data(), width, height);
        EXPECT_TRUE(finishing);
        EXPECT_EQ(handedImage(), nullptr);
        EXPECT_STREQ(handedName(), "kept");
        EXPECT_EQ(Kez::imageWidth, 0);
        EXPECT_NE(output.take().find("not handed over"), std::string::npos) << width;
    }
}

TEST_F(HandOverTest, refusesNamesBeyondTheBuffer)
{
    finishWithImage("12345678", pixels.data(), 2, 2);
    EXPECT_STREQ(handedName(), "12345678");
    for (const std::string& name : { std::string("123456789"), std::string(10000, 'x') }) {
        finishWithImage(name.c_str(), pixels.data(), 2, 2);
        EXPECT_EQ(handedName(), nullptr);
        EXPECT_NE(handedImage(), nullptr);
        EXPECT_NE(output.take().find("8 characters"), std::string::npos);
    }
}

} // namespace
} // namespace kez
