// SPDX-License-Identifier: MIT
#include "display_fixture.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

using namespace kez::test;

constexpr int width = 120;
constexpr int height = 60;

/// A surface with its device context out; the stock fixed font, transparent, white on black.
class DeviceContexts : public DisplayTest {
protected:
    void open(const DDPIXELFORMAT& format)
    {
        surface = makeSurface(width, height, format);
        ASSERT_EQ(surface->GetDC(&context), DD_OK);
        SelectObject(context, GetStockObject(SYSTEM_FIXED_FONT));
        SetBkMode(context, TRANSPARENT);
        SetTextColor(context, RGB(255, 255, 255));
    }

    void close()
    {
        EXPECT_EQ(surface->ReleaseDC(context), DD_OK);
        surface->Release();
    }

    /// The smallest rectangle around all pixels that are not black.
    [[nodiscard]] RECT ink() const
    {
        POINT origin {};
        SetViewportOrgEx(context, 0, 0, &origin);
        RECT box { width, height, 0, 0 };
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (GetPixel(context, x, y) != 0)
                    box = { std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                        std::max(box.bottom, y + 1) };
            }
        }
        SetViewportOrgEx(context, origin.x, origin.y, nullptr);
        return box;
    }

    void clear()
    {
        const RECT all { -width, -height, 2 * width, 2 * height };
        FillRect(context, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }

    IDirectDrawSurface* surface = nullptr;
    HDC context = nullptr;
};

TEST_F(DeviceContexts, fillInEveryFormatInTheRightColour)
{
    const struct {
        DDPIXELFORMAT format;
        DWORD pixel;
    } cases[] = { { rgbFormat(16, 0xF800, 0x07E0, 0x001F), 0xFC08 },
        { rgbFormat(16, 0x7C00, 0x03E0, 0x001F), 0x7E08 },
        { rgbFormat(16, 0x001F, 0x07E0, 0xF800), 0x441F },
        { rgbFormat(24, 0xFF0000, 0x00FF00, 0x0000FF), 0xFF8040 }, { format32, 0xFF8040 } };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.pixel);
        open(one.format);
        SetViewportOrgEx(context, 10, 20, nullptr);
        HBRUSH brush = CreateSolidBrush(RGB(255, 128, 64) | 0xAB000000);
        const RECT area { -3, -2, 4, 1 };
        EXPECT_EQ(FillRect(context, &area, brush), 1);
        EXPECT_TRUE(DeleteObject(brush));
        const RECT box = ink();
        EXPECT_EQ(box.left, 7);
        EXPECT_EQ(box.top, 18);
        EXPECT_EQ(box.right, 14);
        EXPECT_EQ(box.bottom, 21);
        surface->ReleaseDC(context);
        EXPECT_EQ(Locked(surface).pixel(10, 20), one.pixel);
        surface->Release();
    }
}

TEST_F(DeviceContexts, textLiesAtItsAnchors)
{
    open(format32);
    constexpr LONG letterWidth = 8;
    constexpr LONG lineHeight = 15;
    const RECT area { -40, -20, 40, 25 };

    const struct {
        UINT format;
        LONG left, top; // Of the letter's cell.
    } cases[] = {
        { DT_SINGLELINE | DT_TOP | DT_LEFT, -40, -20 },
        { DT_SINGLELINE | DT_VCENTER | DT_CENTER, -4, -5 },
        { DT_SINGLELINE | DT_BOTTOM | DT_RIGHT, 32, 10 },
        { DT_VCENTER | DT_RIGHT, 32, -20 }, // Only single lines are centred vertically.
    };

    SetViewportOrgEx(context, 60, 30, nullptr);
    for (const auto& one : cases) {
        SCOPED_TRACE(one.format);
        clear();
        RECT place = area;
        const int bottom = DrawTextA(context, "H", -1, &place, one.format | DT_NOPREFIX);
        EXPECT_EQ(bottom, one.top + lineHeight - area.top);
        const RECT box = ink();
        EXPECT_GE(box.left, one.left + 60);
        EXPECT_LE(box.right, one.left + letterWidth + 60);
        EXPECT_GE(box.top, one.top + 30);
        EXPECT_LE(box.bottom, one.top + lineHeight + 30);
        EXPECT_GE(box.right - box.left, 5);
        EXPECT_GE(box.bottom - box.top, 8);
    }
    close();
}

TEST_F(DeviceContexts, textIsBlendedInItsColour)
{
    open(format32);
    HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255));
    const RECT all { 0, 0, width, height };
    FillRect(context, &all, blue);
    DeleteObject(blue);
    SetTextColor(context, RGB(255, 0, 0) | 0xFF000000);
    RECT area { 0, 0, width, height };
    DrawTextA(context, "OOO", -1, &area, DT_NOPREFIX);
    int whole = 0;
    int between = 0;
    for (int y = 0; y < 15; ++y) {
        for (int x = 0; x < 24; ++x) {
            const COLORREF colour = GetPixel(context, x, y);
            ASSERT_EQ(GetGValue(colour), 0);
            ASSERT_NEAR(GetRValue(colour) + GetBValue(colour), 255, 1);
            whole += colour == RGB(255, 0, 0);
            between += GetRValue(colour) > 20 && GetRValue(colour) < 235;
        }
    }
    EXPECT_GT(whole, 10);
    EXPECT_GT(between, 10);
    close();
}

TEST_F(DeviceContexts, linesBreakAtWordsAndLineEnds)
{
    open(format32);

    const struct {
        const char* text;
        UINT format;
        LONG width, height;
    } cases[] = {
        { "one two three", DT_WORDBREAK, 56, 30 }, // "one two", "three" in ten letters
        { "abcdefghijklmnop q", DT_WORDBREAK, 128, 30 }, // A word is never cut.
        { "one two three", 0, 104, 15 },
        { "a\r\nbcd\ne", 0, 24, 45 },
        { "a\nb", DT_SINGLELINE, 24, 15 },
        { "a&b && c", DT_SINGLELINE, 48, 15 }, // "ab & c"
        { "a&b && c", DT_SINGLELINE | DT_NOPREFIX, 64, 15 },
        { "", DT_WORDBREAK, 0, 0 },
    };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.text);
        RECT area { 3, 4, 83, 5 };
        EXPECT_EQ(DrawTextA(context, one.text, -1, &area, one.format | DT_CALCRECT), one.height);
        EXPECT_EQ(area.right - area.left, one.width);
        EXPECT_EQ(area.bottom - area.top, one.height);
    }
    EXPECT_EQ(ink().right, 0); // Measuring draws nothing.
    close();
}

TEST_F(DeviceContexts, textIsCutAtTheRectangleAndAlwaysAtTheSurface)
{
    open(format32);
    RECT area { 20, 20, 30, 28 };
    DrawTextA(context, "MMMM", -1, &area, DT_NOPREFIX | DT_SINGLELINE);
    RECT box = ink();
    EXPECT_GE(box.left, 20);
    EXPECT_LE(box.right, 30);
    EXPECT_LE(box.bottom, 28);
    DrawTextA(context, "MMMM", -1, &area, DT_NOPREFIX | DT_SINGLELINE | DT_NOCLIP);
    box = ink();
    EXPECT_GT(box.right, 46);
    for (const POINT corner : { POINT { -16, -8 }, POINT { width - 4, height - 4 },
             POINT { -100000, 5 }, POINT { 5, 100000 } }) {
        RECT outside { corner.x, corner.y, corner.x + 1, corner.y + 1 };
        DrawTextA(context, "MMMMMM", -1, &outside, DT_NOPREFIX | DT_SINGLELINE | DT_NOCLIP);
    }
    close();
}

TEST_F(DeviceContexts, fontsHaveTheHeightAskedFor)
{
    HDC screen = GetDC(nullptr);
    const auto cellOf = [&](int asked, int weight, DWORD italic) {
        HFONT font = CreateFontA(
            asked, 0, 0, 0, weight, italic, 0, 0, ANSI_CHARSET, 0, 0, 0, 0, "DejaVu Sans");
        HGDIOBJ former = SelectObject(screen, font);
        EXPECT_FALSE(DeleteObject(font)) << "it is selected";
        SIZE size {};
        GetTextExtentPoint32A(screen, "Hamburg", 7, &size);
        SelectObject(screen, former);
        EXPECT_TRUE(DeleteObject(font));
        return size;
    };
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), 96);
    EXPECT_EQ(cellOf(-40, 400, 0).cy, 46); // The face's ascent and descent are 1.164 em.
    EXPECT_EQ(cellOf(46, 400, 0).cy, 46);
    EXPECT_GT(cellOf(-40, 700, 0).cx, cellOf(-40, 0, 0).cx);
    EXPECT_EQ(cellOf(-40, 400, 1).cy, 46);
    EXPECT_GT(cellOf(0, 0, 0).cy, 0);
    EXPECT_GT(cellOf(1, 0, 0).cy, 0);
    cellOf(INT32_MIN, 0, 0);
    cellOf(INT32_MAX, 99999, 0);
    EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
}

TEST_F(DeviceContexts, drawEveryCharacterOfAnyFace)
{
    open(rgbFormat(16, 0x7C00, 0x03E0, 0x001F));
    std::string all;
    for (int c = 1; c < 256; ++c)
        all += static_cast<char>(c);
    for (const char* face : { "No Such Face", "\xC4\x80 \xFF", "DejaVu Serif" }) {
        HFONT font = CreateFontA(-14, 0, 0, 0, 700, 1, 1, 0, 0, 0, 0, 0, 0, face);
        HGDIOBJ former = SelectObject(context, font);
        RECT area { 0, 0, width, height };
        EXPECT_GT(DrawTextA(context, all.c_str(), -1, &area, DT_WORDBREAK | DT_NOPREFIX), 0);
        SelectObject(context, former);
        DeleteObject(font);
    }
    EXPECT_GT(ink().right, 0);
    close();
}

TEST_F(DeviceContexts, staleHandlesAreRefused)
{
    open(format32);
    HDC memory = CreateCompatibleDC(context);
    EXPECT_FALSE(DeleteDC(context)) << "it is the surface's";
    EXPECT_TRUE(DeleteDC(memory));
    EXPECT_FALSE(DeleteDC(memory));
    close();
    EXPECT_EQ(SetTextColor(context, 0), CLR_INVALID);
    EXPECT_EQ(SelectObject(context, GetStockObject(SYSTEM_FONT)), nullptr);
    RECT area { 0, 0, 9, 9 };
    EXPECT_EQ(DrawTextA(context, "a", 1, &area, 0), 0);
    EXPECT_EQ(FillRect(context, &area, nullptr), 0);
    EXPECT_TRUE(DeleteObject(GetStockObject(BLACK_BRUSH)));
    EXPECT_NE(GetStockObject(BLACK_BRUSH), nullptr);
}

} // namespace
