// SPDX-License-Identifier: MIT
/// A display in a mode of the test's choice, and surfaces on it.
#pragma once

#include <windows.h>

#include <control.h>
#include <ddraw.h>

#include <gtest/gtest.h>

#include <cstring>

namespace kez::testing {

inline DDPIXELFORMAT rgbFormat(DWORD bits, DWORD red, DWORD green, DWORD blue, DWORD alpha = 0)
{
    return { sizeof(DDPIXELFORMAT), DDPF_RGB | (alpha != 0 ? DDPF_ALPHAPIXELS : 0), 0, bits, red,
        green, blue, alpha };
}

inline const DDPIXELFORMAT format32 = rgbFormat(32, 0xFF0000, 0x00FF00, 0x0000FF);

class DisplayTest : public ::testing::Test {
protected:
    DisplayTest()
    {
        EXPECT_EQ(DirectDrawCreate(nullptr, &directDraw, nullptr), DD_OK);
        EXPECT_EQ(directDraw->SetCooperativeLevel(nullptr, DDSCL_NORMAL), DD_OK);
    }

    ~DisplayTest() override
    {
        directDraw->RestoreDisplayMode();
        directDraw->Release();
        EXPECT_EQ(winapi::liveObjects(), before);
    }

    IDirectDrawSurface* makePrimary() const
    {
        DDSURFACEDESC description {};
        description.dwSize = sizeof description;
        description.dwFlags = DDSD_CAPS;
        description.ddsCaps.dwCaps = DDSCAPS_PRIMARYSURFACE;
        IDirectDrawSurface* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(&description, &surface, nullptr), DD_OK);
        return surface;
    }

    IDirectDrawSurface* makeSurface(
        int width, int height, const DDPIXELFORMAT& format, HRESULT expected = DD_OK) const
    {
        DDSURFACEDESC description {};
        description.dwSize = sizeof description;
        description.dwFlags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT | DDSD_PIXELFORMAT;
        description.dwWidth = static_cast<DWORD>(width);
        description.dwHeight = static_cast<DWORD>(height);
        description.ddpfPixelFormat = format;
        description.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
        IDirectDrawSurface* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(&description, &surface, nullptr), expected);
        return surface;
    }

    winapi::LiveObjects before = winapi::liveObjects();
    IDirectDraw* directDraw = nullptr;
};

/// The surface locked for as long as the object lives.
class Locked {
public:
    explicit Locked(IDirectDrawSurface* surface)
        : surface_(surface)
    {
        surface_->AddRef();
        description_.dwSize = sizeof description_;
        EXPECT_EQ(surface_->Lock(nullptr, &description_, DDLOCK_WAIT, nullptr), DD_OK);
    }

    ~Locked()
    {
        surface_->Unlock(nullptr);
        surface_->Release();
    }

    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

    [[nodiscard]] int pitch() const { return description_.lPitch; }

    [[nodiscard]] BYTE* at(int x, int y) const
    {
        return static_cast<BYTE*>(description_.lpSurface) + y * pitch() + x * bytes();
    }

    [[nodiscard]] DWORD pixel(int x, int y) const
    {
        DWORD value = 0;
        std::memcpy(&value, at(x, y), static_cast<std::size_t>(bytes()));
        return value;
    }

    void setPixel(int x, int y, DWORD value) const
    {
        std::memcpy(at(x, y), &value, static_cast<std::size_t>(bytes()));
    }

private:
    [[nodiscard]] int bytes() const
    {
        return static_cast<int>(description_.ddpfPixelFormat.dwRGBBitCount / 8);
    }

    IDirectDrawSurface* surface_;
    DDSURFACEDESC description_ {};
};

} // namespace kez::testing
