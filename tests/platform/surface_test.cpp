// SPDX-License-Identifier: MIT
#include "display_fixture.h"

namespace {

using namespace kez::test;

using Surfaces = DisplayTest;

// Every pixel different, also in the lowest bits.
void number(IDirectDrawSurface* surface, int width, int height)
{
    const Locked locked(surface);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            locked.setPixel(x, y, static_cast<DWORD>(y * width + x + 1));
    }
}

TEST_F(Surfaces, rowsStartAtMultiplesOfEightBytes)
{
    const struct {
        DWORD bits;
        int width, pitch;
    } cases[] = { { 16, 5, 16 }, { 16, 4, 8 }, { 24, 5, 16 }, { 24, 640, 1920 }, { 32, 5, 24 },
        { 32, 640, 2560 } };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.bits * 1000 + static_cast<DWORD>(one.width));
        const DWORD red = one.bits == 16 ? 0xF800 : 0xFF0000;
        IDirectDrawSurface* surface
            = makeSurface(one.width, 3, rgbFormat(one.bits, red, 0x07E0, 0x001F));
        EXPECT_EQ(Locked(surface).pitch(), one.pitch);
        surface->Release();
    }
}

TEST_F(Surfaces, refusesDescriptionsThatAreNoSurface)
{
    makeSurface(0, 3, format32, DDERR_INVALIDPARAMS);
    makeSurface(100000, 3, format32, DDERR_TOOBIGWIDTH);
    makeSurface(3, 100000, format32, DDERR_TOOBIGHEIGHT);
    const DDPIXELFORMAT formats[]
        = { rgbFormat(8, 0xE0, 0x1C, 0x03), rgbFormat(32, 0xFF0000, 0x01FF00, 0x0000FF), // overlap
              rgbFormat(32, 0xF0F000, 0x000F00, 0x0000FF), // a gap
              rgbFormat(32, 0xFF0000, 0, 0x0000FF), rgbFormat(16, 0xF80000, 0x07E0, 0x001F) };
    for (const DDPIXELFORMAT& format : formats)
        makeSurface(3, 3, format, DDERR_INVALIDPIXELFORMAT);
}

TEST_F(Surfaces, needALevelAndDescriptionsThatSayTheirSize)
{
    IDirectDraw* other = nullptr;
    ASSERT_EQ(DirectDrawCreate(nullptr, &other, nullptr), DD_OK);
    IDirectDrawSurface* surface = nullptr;
    EXPECT_EQ(kez::test::makeSurface(*other, format32, 3, 3, surface), DDERR_NOCOOPERATIVELEVELSET);
    other->Release();
    DDSURFACEDESC description {};
    EXPECT_EQ(directDraw->CreateSurface(&description, &surface, nullptr), DDERR_INVALIDPARAMS);
    surface = makeSurface(3, 3, format32);
    EXPECT_EQ(surface->Lock(nullptr, &description, 0, nullptr), DDERR_INVALIDPARAMS);
    EXPECT_EQ(surface->GetSurfaceDesc(&description), DDERR_INVALIDPARAMS);
    EXPECT_EQ(surface->GetPixelFormat(&description.ddpfPixelFormat), DDERR_INVALIDPARAMS);
    surface->Release();
    EXPECT_EQ(directDraw->SetDisplayMode(640, 480, 8), DDERR_INVALIDMODE);
    EXPECT_EQ(directDraw->SetCooperativeLevel(nullptr, DDSCL_EXCLUSIVE), DDERR_INVALIDPARAMS);
}

TEST_F(Surfaces, areOpenInOneWayAtATime)
{
    IDirectDrawSurface* surface = makeSurface(5, 3, format32);
    DDSURFACEDESC description {};
    description.dwSize = sizeof description;
    HDC context = nullptr;
    EXPECT_EQ(surface->Unlock(nullptr), DDERR_NOTLOCKED);
    EXPECT_EQ(surface->ReleaseDC(nullptr), DDERR_NODC);

    EXPECT_EQ(surface->Lock(nullptr, &description, 0, nullptr), DD_OK);
    EXPECT_EQ(surface->Lock(nullptr, &description, 0, nullptr), DDERR_SURFACEBUSY);
    EXPECT_EQ(surface->GetDC(&context), DDERR_SURFACEBUSY);
    EXPECT_EQ(surface->BltFast(0, 0, surface, nullptr, 0), DDERR_SURFACEBUSY);
    EXPECT_EQ(surface->Unlock(nullptr), DD_OK);

    EXPECT_EQ(surface->GetDC(&context), DD_OK);
    EXPECT_EQ(surface->GetDC(&context), DDERR_DCALREADYCREATED);
    EXPECT_EQ(surface->Lock(nullptr, &description, 0, nullptr), DDERR_SURFACEBUSY);
    surface->Release(); // The context goes with it; the fixture counts.
}

TEST_F(Surfaces, lockOfAPartPointsAtItsCorner)
{
    IDirectDrawSurface* surface = makeSurface(7, 5, format32);
    number(surface, 7, 5);
    RECT area { 3, 2, 7, 5 };
    DDSURFACEDESC description {};
    description.dwSize = sizeof description;
    ASSERT_EQ(surface->Lock(&area, &description, 0, nullptr), DD_OK);
    DWORD first = 0;
    std::memcpy(&first, description.lpSurface, sizeof first);
    EXPECT_EQ(first, 2u * 7 + 3 + 1);
    surface->Unlock(nullptr);
    area.right = 8;
    EXPECT_EQ(surface->Lock(&area, &description, 0, nullptr), DDERR_INVALIDPARAMS);
    surface->Release();
}

TEST_F(Surfaces, copyBetweenSurfacesOfEveryFormat)
{
    const DDPIXELFORMAT formats[] = { rgbFormat(16, 0xF800, 0x07E0, 0x001F),
        rgbFormat(16, 0x7C00, 0x03E0, 0x001F), rgbFormat(16, 0x001F, 0x07E0, 0xF800),
        rgbFormat(24, 0xFF0000, 0x00FF00, 0x0000FF), format32 };
    for (const DDPIXELFORMAT& format : formats) {
        SCOPED_TRACE(format.dwRBitMask);
        IDirectDrawSurface* from = makeSurface(7, 5, format);
        IDirectDrawSurface* to = makeSurface(9, 6, format);
        number(from, 7, 5);
        RECT area { 1, 2, 6, 5 };
        ASSERT_EQ(to->BltFast(3, 1, from, &area, DDBLTFAST_WAIT), DD_OK);
        const Locked seen(to);
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 9; ++x) {
                const bool copied = x >= 3 && x < 8 && y >= 1 && y < 4;
                const int number = copied ? (y + 1) * 7 + (x - 2) + 1 : 0;
                EXPECT_EQ(seen.pixel(x, y), static_cast<DWORD>(number)) << x << ',' << y;
            }
        }
        to->Release();
        from->Release();
    }
}

TEST_F(Surfaces, refuseCopiesThatDoNotFit)
{
    IDirectDrawSurface* from = makeSurface(7, 5, format32);
    IDirectDrawSurface* to = makeSurface(7, 5, format32);

    const struct {
        DWORD x, y;
        RECT area;
    } cases[] = { { 1, 0, { 0, 0, 7, 5 } }, { 0, 1, { 0, 0, 7, 5 } }, { 0, 0, { -1, 0, 3, 3 } },
        { 0, 0, { 0, 0, 8, 5 } }, { 0, 0, { 3, 3, 3, 4 } }, { 0, 0, { 4, 0, 3, 5 } },
        { 0xFFFFFFFF, 0, { 0, 0, 1, 1 } } };

    for (const auto& one : cases) {
        RECT area = one.area;
        EXPECT_EQ(to->BltFast(one.x, one.y, from, &area, DDBLTFAST_WAIT), DDERR_INVALIDRECT);
    }
    EXPECT_EQ(to->BltFast(0, 0, nullptr, nullptr, 0), DDERR_INVALIDPARAMS);
    IDirectDrawSurface* other = makeSurface(7, 5, rgbFormat(16, 0xF800, 0x07E0, 0x001F));
    EXPECT_EQ(to->BltFast(0, 0, other, nullptr, 0), DDERR_INVALIDPIXELFORMAT);
    for (IDirectDrawSurface* surface : { from, to, other })
        surface->Release();
}

TEST_F(Surfaces, copyOntoThemselvesWithoutSmearing)
{
    for (const bool down : { true, false }) {
        IDirectDrawSurface* surface = makeSurface(5, 7, format32);
        number(surface, 5, 7);
        RECT area { 0, down ? 0 : 2, 4, down ? 5 : 7 };
        ASSERT_EQ(surface->BltFast(1, down ? 2 : 0, surface, &area, 0), DD_OK);
        {
            const Locked seen(surface);
            for (int y = 0; y < 5; ++y) {
                for (int x = 0; x < 4; ++x)
                    EXPECT_EQ(seen.pixel(x + 1, y + (down ? 2 : 0)),
                        static_cast<DWORD>((y + area.top) * 5 + x + 1));
            }
        }
        surface->Release();
    }
}

TEST_F(Surfaces, primaryHasTheModesFormatAndIsLostWithIt)
{
    ASSERT_EQ(directDraw->SetDisplayMode(640, 480, 16), DD_OK);
    IDirectDrawSurface* primary = makePrimary();
    DDPIXELFORMAT format {};
    format.dwSize = sizeof format;
    ASSERT_EQ(primary->GetPixelFormat(&format), DD_OK);
    EXPECT_EQ(format.dwRGBBitCount, 16u);
    EXPECT_EQ(format.dwRBitMask, 0xF800u);

    IDirectDrawSurface* second = nullptr;
    DDSURFACEDESC description {};
    description.dwSize = sizeof description;
    description.dwFlags = DDSD_CAPS;
    description.ddsCaps.dwCaps = DDSCAPS_PRIMARYSURFACE;
    EXPECT_EQ(directDraw->CreateSurface(&description, &second, nullptr),
        DDERR_PRIMARYSURFACEALREADYEXISTS);

    EXPECT_EQ(directDraw->SetDisplayMode(640, 480, 24), DD_OK);
    HDC context = nullptr;
    EXPECT_EQ(primary->IsLost(), DDERR_SURFACELOST);
    EXPECT_EQ(primary->Lock(nullptr, &description, 0, nullptr), DDERR_SURFACELOST);
    EXPECT_EQ(primary->GetDC(&context), DDERR_SURFACELOST);
    EXPECT_EQ(primary->BltFast(0, 0, primary, nullptr, 0), DDERR_SURFACELOST);
    EXPECT_EQ(primary->Restore(), DDERR_WRONGMODE);
    EXPECT_EQ(directDraw->SetDisplayMode(640, 480, 16), DD_OK);
    EXPECT_EQ(primary->Restore(), DD_OK);
    EXPECT_EQ(primary->IsLost(), DD_OK);
    primary->Release();
}

} // namespace
