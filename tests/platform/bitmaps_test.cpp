// SPDX-License-Identifier: MIT
#include "display_fixture.h"

#include "platform/bmp_bytes.h"
#include "platform/temporary_folder.h"

#include <filesystem>
#include <string>

#include <sys/stat.h>

namespace {

using namespace kez::test;

constexpr UINT fromFile = LR_LOADFROMFILE | LR_CREATEDIBSECTION;

class Bitmaps : public DisplayTest {
protected:
    // Two rows: red and green above blue and white.
    std::string file() const
    {
        const BmpBytes bmp { .width = 2,
            .height = 2,
            .pixels = { 255, 0, 0, 255, 255, 255, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0 } };
        const auto bytes = bmp.file();
        folder.put("a.bmp", std::string(bytes.begin(), bytes.end()));
        return folder / "a.bmp";
    }

    static HANDLE load(const std::string& path, int width = 0, int height = 0)
    {
        return LoadImageA(nullptr, path.c_str(), IMAGE_BITMAP, width, height, fromFile);
    }

    static std::string colours(HDC context, int width, int height)
    {
        std::string text;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const COLORREF colour = GetPixel(context, x, y);
                text += colour == RGB(255, 0, 0)   ? 'r'
                    : colour == RGB(0, 255, 0)     ? 'g'
                    : colour == RGB(0, 0, 255)     ? 'b'
                    : colour == RGB(255, 255, 255) ? 'w'
                                                   : '.';
            }
            text += ' ';
        }
        return text;
    }

    TemporaryFolder folder;
};

TEST_F(Bitmaps, areLoadedFromFilesAndDescribed)
{
    HANDLE bitmap = load(file());
    ASSERT_NE(bitmap, nullptr);
    BITMAP description {};
    EXPECT_EQ(
        GetObjectA(bitmap, sizeof description, &description), static_cast<int>(sizeof description));
    EXPECT_EQ(description.bmWidth, 2);
    EXPECT_EQ(description.bmHeight, 2);
    EXPECT_EQ(description.bmWidthBytes, 8);
    EXPECT_EQ(static_cast<BYTE*>(description.bmBits)[0], 255) << "blue, at the bottom left";
    EXPECT_EQ(GetObjectA(bitmap, 3, &description), 0);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_EQ(GetObjectA(bitmap, sizeof description, &description), 0);

    bitmap = load(file(), 4, 1);
    ASSERT_NE(bitmap, nullptr);
    GetObjectA(bitmap, sizeof description, &description);
    EXPECT_EQ(description.bmWidth, 4);
    EXPECT_EQ(description.bmHeight, 1);
    DeleteObject(bitmap);
}

TEST_F(Bitmaps, areRefusedWithTheReason)
{
    const struct {
        std::string path;
        DWORD error;
    } cases[] = { { folder / "none.bmp", ERROR_FILE_NOT_FOUND },
        { folder.path(), ERROR_ACCESS_DENIED }, { folder / "pipe", ERROR_ACCESS_DENIED },
        { folder / "link", ERROR_FILE_NOT_FOUND }, { folder / "empty", ERROR_FILE_CORRUPT } };

    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", folder / "link");
    folder.put("empty", "");
    for (const auto& one : cases) {
        SCOPED_TRACE(one.path);
        EXPECT_EQ(load(one.path), nullptr);
        EXPECT_EQ(GetLastError(), one.error);
    }
    EXPECT_EQ(LoadImageA(nullptr, "a", IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(LoadImageA(nullptr, file().c_str(), IMAGE_BITMAP, -1, 0, fromFile), nullptr);
    EXPECT_EQ(LoadImageA(nullptr, file().c_str(), 1, 0, 0, fromFile), nullptr);
}

TEST_F(Bitmaps, areSelectedByOneMemoryContextAtATime)
{
    HANDLE bitmap = load(file());
    HDC one = CreateCompatibleDC(nullptr);
    HDC other = CreateCompatibleDC(nullptr);
    EXPECT_EQ(GetPixel(one, 0, 0), CLR_INVALID) << "nothing to draw on yet";
    const HGDIOBJ former = SelectObject(one, bitmap);
    ASSERT_NE(former, nullptr);
    EXPECT_EQ(SelectObject(other, bitmap), nullptr);
    EXPECT_FALSE(DeleteObject(bitmap)) << "it is selected";
    EXPECT_EQ(colours(one, 2, 2), "rg bw ");
    EXPECT_EQ(SelectObject(one, former), bitmap);
    EXPECT_NE(SelectObject(other, bitmap), nullptr);
    EXPECT_TRUE(DeleteDC(one));
    EXPECT_TRUE(DeleteDC(other));
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(Bitmaps, areStretchedOntoSurfacesOfAnyFormat)
{
    HANDLE bitmap = load(file());
    HDC source = CreateCompatibleDC(nullptr);
    SelectObject(source, bitmap);
    for (const DDPIXELFORMAT& format : { rgbFormat(24, 0xFF0000, 0x00FF00, 0x0000FF),
             rgbFormat(16, 0xF800, 0x07E0, 0x001F), rgbFormat(32, 0xFF, 0xFF00, 0xFF0000) }) {
        SCOPED_TRACE(format.dwRGBBitCount);
        IDirectDrawSurface* surface = makeSurface(4, 3, format);
        HDC target = nullptr;
        ASSERT_EQ(surface->GetDC(&target), DD_OK);
        EXPECT_TRUE(StretchBlt(target, 0, 0, 4, 2, source, 0, 0, 2, 2, SRCCOPY));
        EXPECT_EQ(colours(target, 4, 3), "rrgg bbww .... ");
        EXPECT_TRUE(StretchBlt(target, -1, 2, 3, 9, source, 1, 0, 1, 1, SRCCOPY)) << "cut";
        EXPECT_EQ(colours(target, 4, 3), "rrgg bbww gg.. ");
        EXPECT_FALSE(StretchBlt(target, 0, 0, 0, 2, source, 0, 0, 2, 2, SRCCOPY));
        EXPECT_FALSE(StretchBlt(target, 0, 0, 2, 2, nullptr, 0, 0, 2, 2, SRCCOPY));
        EXPECT_FALSE(StretchBlt(target, 0, 0, 2, 2, source, 0, 0, 2, 2, 0x00660046));
        surface->ReleaseDC(target);
        surface->Release();
    }
    DeleteDC(source);
    DeleteObject(bitmap);
}

} // namespace
