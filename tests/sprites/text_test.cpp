// SPDX-License-Identifier: MIT
#include "sprites/text.h"

#include "core/data_file.h"
#include "display/canvas.h"
#include "platform/temporary_folder.h"
#include "support/display.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace kez::test {
namespace {

constexpr int canvasWidth = 200;
constexpr int canvasHeight = 100;
constexpr int letterWidth = 8; // of the stock fixed font
constexpr int lineHeight = 15;

/// What is not black, in stage coordinates; right and bottom outside.
struct Ink {
    int left = canvasWidth;
    int top = canvasHeight;
    int right = -canvasWidth;
    int bottom = -canvasHeight;
};

class TextTest : public testing::Test {
protected:
    TextTest() { setTarget(canvas, 0, 0, canvasWidth, canvasHeight); }

    ~TextTest() override
    {
        setTarget(nullptr, 0, 0, 0, 0);
        canvas->Release();
    }

    Ink drawn(Text& text)
    {
        text.colour = makeColour(255, 255, 255);
        HDC context = nullptr;
        EXPECT_EQ(canvas->GetDC(&context), DD_OK);
        const RECT all { 0, 0, canvasWidth, canvasHeight };
        FillRect(context, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
        canvas->ReleaseDC(context);
        pixelMode = false;
        openTarget();
        drawItem(text);
        closeTarget();
        return ink();
    }

    Ink ink()
    {
        Ink box;
        for (int y = 0; y < canvasHeight; ++y)
            for (int x = 0; x < canvasWidth; ++x)
                if ((pixelAt(*canvas, x, y) & 0xFFFFFF) != 0) {
                    const int stageX = x - canvasWidth / 2;
                    const int stageY = y - canvasHeight / 2;
                    box = { std::min(box.left, stageX), std::min(box.top, stageY),
                        std::max(box.right, stageX + 1), std::max(box.bottom, stageY + 1) };
                }
        return box;
    }

    static Text make(const char* words, const Anchors& anchors = {})
    {
        return { words, Placement { .x = 10, .y = -5, .width = 60, .height = 40 }, true, black,
            anchors };
    }

    Display display { 32 };
    IDirectDrawSurface* canvas = display.createSurface(canvasWidth, canvasHeight);
};

TEST_F(TextTest, hasTheStockFontUntilGivenAnother)
{
    Text text = make("a");
    EXPECT_EQ(text.font().handle(), GetStockObject(SYSTEM_FIXED_FONT));
    const Font large("DejaVu Sans", 30, { .weight = 700 }, makeColour(1, 2, 3));
    text.setFont(large, Text::Fit::Measure);
    EXPECT_EQ(text.fontColour, makeColour(1, 2, 3));
    EXPECT_EQ(text.height, 46); // 40 pixels at 96 dots an inch; this face's lines are 1.164 em
    EXPECT_EQ(large.className(), "Font");
}

TEST_F(TextTest, measuresItsWords)
{
    const struct {
        const char* words;
        Anchors anchors;
        int x, y, width;
    } cases[] = {
        { "", { 0, 0 }, 10, -5, 8 },
        { "ten letter", { 0, 0 }, 10, -5, 80 },
        { "ten letter", { 1, 1 }, 10 + 20, -5 - 25, 80 },
        { "ten letter", { -1, -1 }, 10 - 20, -5 + 25, 80 },
    };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.words);
        Text text = make("before", one.anchors);
        text.setText(one.words, Text::Fit::Measure);
        EXPECT_EQ(text.x, one.x);
        EXPECT_EQ(text.y, one.y);
        EXPECT_EQ(text.width, one.width);
        EXPECT_EQ(text.height, lineHeight);
        EXPECT_EQ(text.baseWidth, one.width);
        EXPECT_EQ(text.baseHeight, lineHeight);
    }
}

TEST_F(TextTest, liesAtItsAnchors)
{
    // The rectangle reaches from (-20, -25) to (40, 15).
    const struct {
        Anchors anchors;
        int left, top; // of the letter's cell
    } cases[] = {
        { { 1, -1 }, -20, -25 },
        { { 0, 0 }, 6, -12 },
        { { -1, 1 }, 32, 0 },
    };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.left);
        Text text = make("H", one.anchors);
        const Ink box = drawn(text);
        EXPECT_GE(box.left, one.left);
        EXPECT_LE(box.right, one.left + letterWidth);
        EXPECT_GE(box.top, one.top);
        EXPECT_LE(box.bottom, one.top + lineHeight);
        EXPECT_GE(box.bottom - box.top, 8);
    }
}

TEST_F(TextTest, isNotCutAtItsRectangle)
{
    Text text = make("twelve signs");
    const Ink box = drawn(text);
    EXPECT_LT(box.left, -20 - letterWidth);
    EXPECT_GT(box.right, 40 + letterWidth);
}

TEST_F(TextTest, breaksAtWordsFromTheTopWhenAsked)
{
    Text text = make("HHHHH HHHHH", { -1, -1 });
    text.wordWrap = true;
    const Ink box = drawn(text);
    EXPECT_LT(box.right, -20 + 5 * letterWidth + 1);
    EXPECT_LT(box.top, -25 + lineHeight);
    EXPECT_GT(box.bottom, -25 + lineHeight + 8);
}

TEST_F(TextTest, showsAmpersandsAndLettersOutsideAscii)
{
    for (const char* words : { "&", "\xC3\xA4", "\xE4" }) {
        Text text = make(words);
        EXPECT_LT(drawn(text).left, drawn(text).right) << words;
        text.measure();
        EXPECT_EQ(text.width, letterWidth);
    }
}

TEST_F(TextTest, leavesTheDeviceContextAsItWas)
{
    Text text = make("a");
    const Font large(nullptr, 20, {}, 0);
    text.setFont(large, Text::Fit::Keep);
    pixelMode = false;
    openTarget();
    HDC context = targetDeviceContext();
    SetTextColor(context, RGB(1, 2, 3));
    SetBkMode(context, OPAQUE);
    text.draw();
    EXPECT_EQ(GetTextColor(context), RGB(1, 2, 3));
    EXPECT_EQ(SetBkMode(context, TRANSPARENT), OPAQUE);
    EXPECT_NE(SelectObject(context, GetStockObject(SYSTEM_FIXED_FONT)), large.handle());
    closeTarget();
    text.draw(); // into nothing
}

TEST_F(TextTest, isCopiedWithItsFont)
{
    Text text = make("words", { 1, -1 });
    const Font other(nullptr, 20, {}, makeColour(9, 8, 7));
    text.setFont(other, Text::Fit::Keep);
    text.wordWrap = text.flag35 = true;
    const std::unique_ptr<Text> copy(text.clone());
    EXPECT_EQ(copy->className(), "Text");
    EXPECT_EQ(&copy->font(), &other);
    EXPECT_EQ(copy->text(), "words");
    EXPECT_EQ(copy->fontColour, makeColour(9, 8, 7));
    EXPECT_TRUE(copy->wordWrap && copy->flag35);
    EXPECT_FALSE(copy->drawsPixels());
}

TEST_F(TextTest, isStoredWithItsWords)
{
    const TemporaryFolder folder;
    Text text = make("words", { 1, -1 });
    text.wordWrap = true;
    text.colour = makeColour(4, 5, 6);
    const std::string path = folder / "text";
    {
        DataFile file(path.c_str(), DataFile::Direction::Writing);
        text.serialize(file);
    }
    Text read = make("");
    DataFile file(path.c_str(), DataFile::Direction::Reading);
    read.serialize(file);
    EXPECT_EQ(read.text(), "words");
    EXPECT_EQ(read.anchors.vertical, 1);
    EXPECT_EQ(read.anchors.horizontal, -1);
    EXPECT_EQ(read.colour, makeColour(4, 5, 6));
    EXPECT_TRUE(read.wordWrap);
}

} // namespace
} // namespace kez::test
