// SPDX-License-Identifier: MIT
/// A display as a host makes it: a DirectDraw object in a mode of 640 × 480, the primary surface
/// and a secondary one of the display's format. And a way to read and set a surface's pixels.
#pragma once

#include "control.h"

#include <windows.h>

#include <ddraw.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace kez::test {

inline std::uint32_t pixelAt(IDirectDrawSurface& surface, int x, int y)
{
    DDSURFACEDESC description = {};
    description.dwSize = sizeof description;
    if (surface.Lock(nullptr, &description, DDLOCK_WAIT, nullptr) != DD_OK) {
        ADD_FAILURE() << "The surface cannot be locked.";
        return 0;
    }
    const auto bytes = description.ddpfPixelFormat.dwRGBBitCount / 8;
    const auto* row = static_cast<const std::uint8_t*>(description.lpSurface)
        + static_cast<std::ptrdiff_t>(y) * description.lPitch;
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, row + static_cast<std::ptrdiff_t>(x) * bytes, bytes);
    surface.Unlock(nullptr);
    return pixel;
}

class Display {
public:
    explicit Display(int bits)
    {
        EXPECT_EQ(DirectDrawCreate(nullptr, &directDraw, nullptr), DD_OK);
        EXPECT_EQ(directDraw->SetCooperativeLevel(nullptr, DDSCL_NORMAL), DD_OK);
        EXPECT_EQ(directDraw->SetDisplayMode(640, 480, static_cast<DWORD>(bits)), DD_OK);
        DDSURFACEDESC wanted = {};
        wanted.dwSize = sizeof wanted;
        wanted.dwFlags = DDSD_CAPS;
        wanted.ddsCaps.dwCaps = DDSCAPS_PRIMARYSURFACE;
        EXPECT_EQ(directDraw->CreateSurface(&wanted, &primary, nullptr), DD_OK);
        secondary = createSurface(640, 480);
    }

    ~Display()
    {
        secondary->Release();
        primary->Release();
        directDraw->Release();
    }

    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// A surface of the display's format; the caller releases it.
    IDirectDrawSurface* createSurface(DWORD width, DWORD height)
    {
        DDSURFACEDESC wanted = {};
        wanted.dwSize = sizeof wanted;
        wanted.dwFlags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT;
        wanted.dwWidth = width;
        wanted.dwHeight = height;
        wanted.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
        IDirectDrawSurface* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(&wanted, &surface, nullptr), DD_OK);
        return surface;
    }

    IDirectDraw* directDraw = nullptr;
    IDirectDrawSurface* primary = nullptr;
    IDirectDrawSurface* secondary = nullptr;
};

/// While it lives, 16-bit displays have these masks.
class DisplayMasks {
public:
    DisplayMasks(DWORD red, DWORD green, DWORD blue)
    {
        DDPIXELFORMAT format = {};
        format.dwSize = sizeof format;
        format.dwFlags = DDPF_RGB;
        format.dwRGBBitCount = 16;
        format.dwRBitMask = red;
        format.dwGBitMask = green;
        format.dwBBitMask = blue;
        EXPECT_TRUE(winapi::useDisplayFormat(format));
    }

    ~DisplayMasks() { winapi::useUsualDisplayFormats(); }

    DisplayMasks(const DisplayMasks&) = delete;
    DisplayMasks& operator=(const DisplayMasks&) = delete;
};

} // namespace kez::test
